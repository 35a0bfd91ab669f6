// A catalogue in memory, with tracks to be listed.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "jet/database.h"
#include "tests/catalogue/testcatalogue.h"
#include "tests/fakes/memoryfilestore.h"
#include "tests/fakes/projectfiles.h"

namespace mainwindow {

class TrackFixture : public testing::Test {
  protected:
    TrackFixture() {
        store_.add(catalogue::testCatalogue, fakes::shippedCatalogue());
        catalogue_ = jet::Database::OpenDatabase(store_, catalogue::testCatalogue);
    }

    void addTrack(const std::u16string& title, const std::u16string& path, const std::u16string& cd,
                  double size = 1234, const std::u16string& type = u"MP3") {
        const auto rows = catalogue_->OpenRecordset(u"ListDonnees");
        rows->AddNew();
        rows->Fields(u"Nom").setValue(title);
        rows->Fields(u"NomCompil").setValue(title + u" [" + cd + u"]");
        rows->Fields(u"Fichier").setValue(path);
        rows->Fields(u"FichierCompil").setValue(path + u" [" + cd + u"]");
        rows->Fields(u"Taille").setValue(size);
        rows->Fields(u"Compilation").setValue(cd);
        rows->Fields(u"Type").setValue(type);
        rows->Update();
    }
    std::unique_ptr<jet::Recordset> tracksBy(const std::u16string& order) {
        return catalogue_->OpenRecordset(u"SELECT * FROM Listdonnees ORDER BY " + order);
    }

    fakes::MemoryFileStore store_;
    std::unique_ptr<jet::Database> catalogue_;
};

}  // namespace mainwindow
