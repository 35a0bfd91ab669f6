// Everything that a scan works with: a catalogue and a medium in memory, drives, a window.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/error.h"
#include "scan/scandrive.h"
#include "tests/catalogue/testcatalogue.h"
#include "tests/fakes/fakedrives.h"
#include "tests/fakes/faultyfilestore.h"
#include "tests/fakes/memoryfilesystem.h"
#include "tests/fakes/projectfiles.h"
#include "tests/fakes/recordingscanview.h"
#include "tests/fakes/scriptedmessages.h"

namespace scan {

struct Row {
    std::u16string Nom;
    std::u16string NomCompil;
    std::u16string Fichier;
    std::u16string FichierCompil;
    std::u16string Taille;
    std::u16string Compilation;
    std::u16string Type;
    bool operator==(const Row&) const = default;
};

class ScanFixture : public testing::Test {
  protected:
    ScanFixture() {
        catalogue::ResetDefaultExtensions(settings_);
        settings_.ScanCdName = u"Rock 1";
        settings_.CdRomDrive = u"D:";
        files_.addFolder(u"C:\\Prog");
        files_.addFolder(u"D:\\");
        drives_.add(u'C', platform::DriveType::Fixed);
        drives_.add(u'D', platform::DriveType::CdRom);
        const std::string shipped = fakes::shippedCatalogue();
        store_.put(catalogue::testCatalogue, {shipped.begin(), shipped.end()});
        catalogue_ = jet::Database::OpenDatabase(store_, catalogue::testCatalogue);
    }

    ScanTools tools() {
        return {{files_, messages_, base::CodePage::windows1252()},
                drives_,
                *catalogue_,
                catalogue::testFolder};
    }

    // The rows of one CD, in stored order.
    std::vector<Row> rowsOf(const std::u16string& cd) {
        const auto rows = catalogue_->OpenRecordset(
            u"SELECT * from Listdonnees where Compilation=\"" + cd + u"\"");
        std::vector<Row> found;
        for (; !rows->Eof(); rows->MoveNext()) {
            const auto text = [&](std::u16string_view name) { return rows->Fields(name).Text(); };
            found.push_back({text(u"Nom"), text(u"NomCompil"), text(u"Fichier"),
                             text(u"FichierCompil"), text(u"Taille"), text(u"Compilation"),
                             text(u"Type")});
        }
        return found;
    }
    std::vector<std::u16string> titlesOf(const std::u16string& cd) {
        std::vector<std::u16string> titles;
        for (const Row& row : rowsOf(cd))
            titles.push_back(row.Nom);
        return titles;
    }

    void addRow(const std::u16string& cd, const std::u16string& title, const std::u16string& path) {
        const auto rows = catalogue_->OpenRecordset(u"ListDonnees");
        rows->AddNew();
        rows->Fields(u"Nom").setValue(title);
        rows->Fields(u"Fichier").setValue(path);
        rows->Fields(u"Compilation").setValue(cd);
        rows->Fields(u"Type").setValue(std::u16string(u"MP3"));
        rows->Update();
    }

    fakes::FaultyFileStore store_;
    std::unique_ptr<jet::Database> catalogue_;
    fakes::MemoryFileSystem files_;
    fakes::FakeDrives drives_;
    fakes::ScriptedMessages messages_;
    catalogue::Settings settings_;
    ScanState state_;
};

}  // namespace scan
