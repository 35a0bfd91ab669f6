// The shipped, empty catalogue opened in memory, to be filled and queried.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "jet/database.h"
#include "tests/fakes/memoryfilestore.h"
#include "tests/fakes/projectfiles.h"

namespace jet {

inline constexpr std::u16string_view kCatalogPath = u"C:\\Brivantole\\Brivantole.mdb";

struct Track {
    std::u16string nom;
    std::u16string type = u"MP3";
    double taille = 0;
    std::u16string compilation = u"CD";
    std::u16string fichier = u"[CD]\\x.mp3";
};

class CatalogFixture : public testing::Test {
  protected:
    void SetUp() override {
        files_.add(kCatalogPath, fakes::shippedCatalogue());
        database_ = Database::OpenDatabase(files_, kCatalogPath, limits_);
    }

    void add(const Track& track) {
        const auto recordset = database_->OpenRecordset(u"ListDonnees");
        recordset->AddNew();
        recordset->Fields(u"Nom").setValue(track.nom);
        recordset->Fields(u"Type").setValue(track.type);
        recordset->Fields(u"Taille").setValue(track.taille);
        recordset->Fields(u"Compilation").setValue(track.compilation);
        recordset->Fields(u"Fichier").setValue(track.fichier);
        recordset->Update();
    }
    void addAll(const std::vector<Track>& tracks) {
        Transaction transaction(*database_);
        for (const Track& track : tracks)
            add(track);
        transaction.Commit();
    }

    // The values of one field over all records of the answer, each followed by a comma.
    std::string values(std::u16string_view source, std::u16string_view field = u"Nom") {
        const auto recordset = database_->OpenRecordset(source);
        std::u16string all;
        for (; !recordset->Eof(); recordset->MoveNext())
            all += recordset->Fields(field).Text() + u",";
        return base::toUtf8(all);
    }

    // The number of the error that `action` throws; 0 when it throws none.
    template <typename Action>
    static int errorOf(Action&& action) {
        try {
            action();
        } catch (const base::Error& error) {
            EXPECT_FALSE(error.text().empty());
            return static_cast<int>(error.number());
        }
        return 0;
    }

    CacheLimits limits_;
    fakes::MemoryFileStore files_;
    std::unique_ptr<Database> database_;
};

}  // namespace jet
