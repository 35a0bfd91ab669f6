#include "catalogue/main.h"

#include <algorithm>

#include "base/error.h"
#include "catalogue/settingsfile.h"
#include "gtest/gtest.h"
#include "tests/catalogue/testcatalogue.h"
#include "tests/fakes/fakedrives.h"
#include "tests/fakes/memoryfilecopier.h"
#include "tests/fakes/memoryfilestore.h"
#include "tests/fakes/memoryfilesystem.h"
#include "tests/fakes/projectfiles.h"
#include "tests/fakes/recordingprograms.h"
#include "tests/fakes/scriptedmessages.h"

namespace catalogue {
namespace {

using Rows = std::vector<std::u16string>;

// Writes down what the start does to the window, and what there is by then.
class RecordingWindow : public MainWindow {
  public:
    void clearList1() override {
        steps.emplace_back("clear");
        answerAtClear = session->ScanAnswer;
    }
    void applySettings() override {
        steps.emplace_back("settings");
        openAtSettings = session->Catalogue != nullptr;
        driveAtSettings = session->settings.CdRomDrive;
    }
    void fillList1(const Rows& filled) override {
        steps.emplace_back("fill");
        rows = filled;
    }
    void show() override { steps.emplace_back("show"); }

    Session* session = nullptr;
    std::vector<std::string> steps;
    Rows rows;
    int answerAtClear = -1;
    bool openAtSettings = false;
    std::u16string driveAtSettings;
};

class MainTest : public testing::Test {
  protected:
    MainTest() {
        window_.session = &session_;
        fileStore_.add(testCatalogue, fakes::shippedCatalogue());
        files_.addFolder(u"C:\\Prog");
        Settings saved;
        ResetDefaultExtensions(saved);
        saved.ExtensionList(0) = u"OGG";
        saved.CdRomDrive = u"E:";
        drives_.add(u'E', platform::DriveType::CdRom);
        SaveSettings(files_, testFolder, codePage_, saved);
    }

    base::ErrorNumber errorOfMain() {
        try {
            Main(session_, window_, place_);
        } catch (const base::Error& error) {
            return error.number();
        }
        ADD_FAILURE() << "no error";
        return base::ErrorNumber::Overflow;
    }
    bool shown() const {
        return std::find(window_.steps.begin(), window_.steps.end(), "show") != window_.steps.end();
    }

    fakes::MemoryFileStore fileStore_;
    fakes::MemoryFileSystem files_;
    fakes::MemoryFileCopier copier_{files_};
    fakes::FakeDrives drives_;
    fakes::ScriptedMessages messages_;
    fakes::RecordingPrograms programs_;
    base::CodePage codePage_ = base::CodePage::windows1252();
    platform::System system_{files_, drives_, messages_, programs_, copier_, codePage_, u','};
    StartPlace place_{fileStore_, system_, u"C:\\Prog"};
    int scanAnswer_ = 1;
    Session session_{scanAnswer_};
    RecordingWindow window_;
};

TEST_F(MainTest, DoesTheFirstStartInOrder) {
    Main(session_, window_, place_);
    EXPECT_EQ(window_.steps, (std::vector<std::string>{"clear", "settings", "fill", "show"}));
    EXPECT_EQ(window_.answerAtClear, 0);
    EXPECT_TRUE(window_.openAtSettings);
    EXPECT_EQ(window_.driveAtSettings, u"E:");
    EXPECT_EQ(session_.AppPath, u"C:\\Prog\\");
    EXPECT_EQ(session_.settings.ExtensionList(0), u"OGG");
    EXPECT_EQ(session_.settings.PlayerTable(0, nameColumn), u"Aucun");
    EXPECT_EQ(window_.rows, Rows{u"*** TOUS LES TITRES ***"});
}

TEST_F(MainTest, OnlyMakesTheCdListAnewLater) {
    Main(session_, window_, place_);
    addTracks(*session_.Catalogue, std::u16string(u"Rock"), 2);
    addTracks(*session_.Catalogue, std::u16string(u"Jazz"), 1);
    const jet::Database* const opened = session_.Catalogue.get();
    session_.settings.ExtensionList(0) = u"FLAC";
    scanAnswer_ = 1;
    window_.steps.clear();

    RefillCdList(session_, window_, place_);
    EXPECT_EQ(window_.steps, (std::vector<std::string>{"clear", "fill"}));
    EXPECT_EQ(window_.rows, (Rows{u"*** TOUS LES TITRES ***", u"Jazz", u"Rock"}));
    EXPECT_EQ(scanAnswer_, 0);
    EXPECT_EQ(session_.Catalogue.get(), opened);
    EXPECT_EQ(session_.settings.ExtensionList(0), u"FLAC");
    EXPECT_FALSE(session_.RefillOnly);
}

TEST_F(MainTest, StopsBeforeTheWindowIsShownWithoutACatalogue) {
    fileStore_.add(testCatalogue, "MZ");
    errorOfMain();
    EXPECT_FALSE(shown());
    EXPECT_EQ(fileStore_.content(testCatalogue), "MZ");
}

TEST_F(MainTest, OpensTheCatalogueBeforeItReadsTheSettings) {
    fileStore_.add(testCatalogue, "MZ");
    files_.remove(u"C:\\Prog\\Brivantole.ini");
    EXPECT_NE(errorOfMain(), base::ErrorNumber::FileNotFound);
}

TEST_F(MainTest, StopsBeforeTheWindowIsShownWithoutSettings) {
    files_.remove(u"C:\\Prog\\Brivantole.ini");
    EXPECT_EQ(errorOfMain(), base::ErrorNumber::FileNotFound);
    EXPECT_FALSE(shown());
    EXPECT_FALSE(files_.exists(u"C:\\Prog\\Brivantole.ini"));
}

TEST_F(MainTest, LeavesNoRefillBehindAfterAnError) {
    Main(session_, window_, place_);
    session_.Catalogue->Close();
    EXPECT_THROW(RefillCdList(session_, window_, place_), base::Error);
    EXPECT_FALSE(session_.RefillOnly);
}

}  // namespace
}  // namespace catalogue
