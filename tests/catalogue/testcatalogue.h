// The shipped catalogue in memory, with tracks that a test adds.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

#include "jet/database.h"

namespace catalogue {

inline constexpr char16_t testFolder[] = u"C:\\Prog\\";
inline constexpr char16_t testCatalogue[] = u"C:\\Prog\\Brivantole.mdb";

inline std::string shippedCatalogue() {
    std::ifstream file(BRIVANTOLE_SOURCE_DIR "/data/Brivantole.mdb", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void addTrack(jet::Database& catalogue, const std::u16string& title, const jet::Value& cd) {
    const auto table = catalogue.OpenRecordset(u"ListDonnees");
    table->AddNew();
    table->Fields(u"Nom").setValue(title);
    table->Fields(u"Compilation").setValue(cd);
    table->Fields(u"Type").setValue(std::u16string(u"MP3"));
    table->Fields(u"Taille").setValue(1234.0);
    table->Update();
    table->Close();
}

}  // namespace catalogue
