// Where tests have the catalogue, and the tracks that they add to it.
#pragma once

#include <string>

#include "jet/database.h"

namespace catalogue {

inline constexpr char16_t testFolder[] = u"C:\\Prog\\";
inline constexpr char16_t testCatalogue[] = u"C:\\Prog\\Brivantole.mdb";

// Adds `count` tracks of the CD named `cd`, which may be Null.
inline void addTracks(jet::Database& catalogue, const jet::Value& cd, int count) {
    jet::Transaction transaction(catalogue);
    const auto table = catalogue.OpenRecordset(u"ListDonnees");
    for (int i = 0; i < count; ++i) {
        table->AddNew();
        table->Fields(u"Nom").setValue(std::u16string(u"Titre"));
        table->Fields(u"Compilation").setValue(cd);
        table->Fields(u"Type").setValue(std::u16string(u"MP3"));
        table->Fields(u"Taille").setValue(1234.0);
        table->Update();
    }
    table->Close();
    transaction.Commit();
}

}  // namespace catalogue
