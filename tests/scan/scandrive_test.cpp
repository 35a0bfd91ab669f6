#include "scan/scandrive.h"

#include <gtest/gtest.h>

#include "base/number.h"
#include "tests/scan/scanfixture.h"

namespace {

using namespace std::string_literals;

using base::ErrorNumber;
using fakes::MemoryFileSystem;
using platform::Answer;
using scan::Row;
using scan::ScanResult;
using Step = MemoryFileSystem::Step;
using Titles = std::vector<std::u16string>;

class ScanDrive : public scan::ScanFixture {
  protected:
    ScanResult scan() { return ScanDriveIntoCatalogue(tools(), settings_, state_, view_); }
    void addFiles(int count, std::u16string_view extension, const std::string& content) {
        for (int file = 1; file <= count; ++file)
            files_.addFile(u"D:\\Track" + base::strNumber(file).append(extension), content);
    }

    fakes::RecordingScanView view_;
};

const base::Error kRefused(ErrorNumber::PermissionDenied, u"Accès refusé.");

TEST_F(ScanDrive, AddsARowOfSevenFieldsForEachTrack) {
    files_.addFile(u"D:\\ALBUM\\A.MOD", "hello_world\0\0\0\0\0\0\0\0\0"s);
    files_.addFile(u"D:\\my_song.mid", "1234");
    EXPECT_EQ(scan(), ScanResult::Done);
    EXPECT_EQ(rowsOf(u"Rock 1"),
              (std::vector<Row>{{u"My_song", u"My_song [Rock 1]", u"[CD]\\my_song.mid",
                                 u"[CD]\\my_song.mid [Rock 1]", u"4", u"Rock 1", u"MID"},
                                {u"Hello world", u"Hello world [Rock 1]", u"[CD]\\ALBUM\\A.MOD",
                                 u"[CD]\\ALBUM\\A.MOD [Rock 1]", u"20", u"Rock 1", u"MOD"}}));
    EXPECT_TRUE(messages_.shown().empty());
}

TEST_F(ScanDrive, StoresTheDriveLetterOfADriveThatIsNoCdRom) {
    settings_.CdRomDrive = u"C:";
    files_.addFile(u"C:\\Music\\a.mid", "");
    scan();
    ASSERT_EQ(rowsOf(u"Rock 1").size(), 1u);
    EXPECT_EQ(rowsOf(u"Rock 1")[0].Fichier, u"C:\\Music\\a.mid");
    EXPECT_EQ(rowsOf(u"Rock 1")[0].FichierCompil, u"C:\\Music\\a.mid [Rock 1]");
}

TEST_F(ScanDrive, ScansTheDriveThatTheFirstTwoCharactersName) {
    settings_.CdRomDrive = u"D:\\Somewhere";
    files_.addFile(u"D:\\a.mid", "");
    EXPECT_EQ(scan(), ScanResult::Done);
    EXPECT_EQ(rowsOf(u"Rock 1").at(0).Fichier, u"[CD]\\a.mid");
}

TEST_F(ScanDrive, KeepsSizesBeyondFourGigabytes) {
    files_.addSparseFile(u"D:\\a.mid", uint64_t{5000000000}, "");
    scan();
    EXPECT_EQ(rowsOf(u"Rock 1").at(0).Taille, u"5000000000");
}

TEST_F(ScanDrive, SkipsFilesThatAreNotWhatTheirExtensionClaims) {
    files_.addFile(u"D:\\a.wav", "noise");
    files_.addFile(u"D:\\b.wav", "RIFF");
    EXPECT_EQ(scan(), ScanResult::Done);
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"B"});
}

TEST_F(ScanDrive, TakesTheFirstExtensionThatMatchesAsTheType) {
    settings_.NbExtensions = 1;
    settings_.ExtensionList(0) = u"IT";
    settings_.ExtensionList(1) = u"XIT";
    files_.addFile(u"D:\\a.xit", "");
    scan();
    EXPECT_EQ(rowsOf(u"Rock 1").at(0).Type, u"IT");
}

// The list on disk is what counts, and it may hold a path that no extension matches any more.
TEST_F(ScanDrive, KeepsTheTypeOfTheTrackBeforeWhenNothingMatches) {
    settings_.NbExtensions = 1;
    settings_.ExtensionList(0) = u"MID";
    settings_.ExtensionList(1) = u"WMA";
    files_.addFile(u"D:\\a.mid", "");
    files_.addFile(u"D:\\b.wma", "");
    state_.TrackType = u"OLD";
    view_.whileAlive = [&] {
        constexpr int walkedFiles = 2;
        if (view_.timesKeptAlive == walkedFiles + 1) settings_.NbExtensions = 0;
    };
    scan();
    EXPECT_EQ(rowsOf(u"Rock 1").at(0).Type, u"MID");
    EXPECT_EQ(rowsOf(u"Rock 1").at(1).Type, u"MID");
    EXPECT_EQ(state_.TrackType, u"MID");
}

TEST_F(ScanDrive, AsksBeforeItReplacesACd) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    files_.addFile(u"D:\\new.mid", "");
    messages_.answer(Answer::Yes);
    EXPECT_EQ(scan(), ScanResult::Done);
    ASSERT_EQ(messages_.shown().size(), 1u);
    EXPECT_EQ(messages_.shown()[0],
              (fakes::ScriptedMessages::Shown{
                  u"Ce nom de CD existe déjà.\r\nVoulez-vous le remplacer ?", u"Attention !", 52}));
}

TEST_F(ScanDrive, LeavesACdThatTheUserWantsToKeep) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    files_.addFile(u"D:\\new.mid", "");
    files_.addFile(u"C:\\Prog\\tmp.tmp", "untouched");
    const fakes::FileBytes before = store_.get(catalogue::testCatalogue);
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        messages_.answer(answer);
        EXPECT_EQ(scan(), ScanResult::Refused);
        EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"Old"});
        EXPECT_EQ(files_.content(u"C:\\Prog\\tmp.tmp"), "untouched");
    }
    EXPECT_TRUE(store_.get(catalogue::testCatalogue) == before);
}

TEST_F(ScanDrive, ReplacesAllRowsOfThatCdAndNoOthers) {
    for (int row = 0; row < 20; ++row)
        addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    addRow(u"Rock 10", u"Other", u"[CD]\\other.mp3");
    files_.addFile(u"D:\\new.mid", "");
    messages_.answer(Answer::Yes);
    EXPECT_EQ(scan(), ScanResult::Done);
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"New"});
    EXPECT_EQ(titlesOf(u"Rock 10"), Titles{u"Other"});
}

TEST_F(ScanDrive, ReplacesWithoutAQuestionWhenToldSoOnce) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    files_.addFile(u"D:\\new.mid", "");
    state_.SkipReplaceQuestion = true;
    EXPECT_EQ(scan(), ScanResult::Done);
    EXPECT_TRUE(messages_.shown().empty());
    EXPECT_FALSE(state_.SkipReplaceQuestion);
    messages_.answer(Answer::No);
    EXPECT_EQ(scan(), ScanResult::Refused);
}

TEST_F(ScanDrive, ReplacesACdWhoseNameDiffersInCase) {
    addRow(u"ROCK 1", u"Old", u"[CD]\\old.mp3");
    files_.addFile(u"D:\\new.mid", "");
    messages_.answer(Answer::Yes);
    EXPECT_EQ(scan(), ScanResult::Done);
    EXPECT_EQ(rowsOf(u"Rock 1").at(0).Compilation, u"Rock 1");
    EXPECT_EQ(rowsOf(u"Rock 1").size(), 1u);
}

TEST_F(ScanDrive, QuotationMarkInANameWidensNoDeletion) {
    addRow(u"Other", u"Old", u"[CD]\\old.mp3");
    settings_.ScanCdName = u"x\" or Compilation<>\"";
    files_.addFile(u"D:\\new.mid", "");
    EXPECT_EQ(scan(), ScanResult::Done);
    EXPECT_EQ(titlesOf(u"Other"), Titles{u"Old"});
}

TEST_F(ScanDrive, EmptyDriveLeavesTheCdWithoutRows) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    messages_.answer(Answer::Yes);
    EXPECT_EQ(scan(), ScanResult::Done);
    EXPECT_TRUE(rowsOf(u"Rock 1").empty());
    EXPECT_TRUE(view_.captions.empty());
}

TEST_F(ScanDrive, CancelInTheWalkLeavesOnlyTheDeletion) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    files_.addFile(u"D:\\a.mid", "");
    files_.addFile(u"D:\\A\\b.mid", "");
    files_.fail(Step::OpenFolder, u"D:\\A", kRefused);
    messages_.answer(Answer::Yes);
    messages_.answer(Answer::Cancel);
    EXPECT_EQ(scan(), ScanResult::Stopped);
    EXPECT_TRUE(rowsOf(u"Rock 1").empty());
    EXPECT_EQ(state_.ScanAnswer, 1);
    EXPECT_TRUE(view_.captions.empty());
}

TEST_F(ScanDrive, ForgetsTheStopOfAnEarlierScan) {
    state_.ScanAnswer = 1;
    files_.addFile(u"D:\\a.mid", "");
    EXPECT_EQ(scan(), ScanResult::Done);
    EXPECT_EQ(state_.ScanAnswer, 0);
}

TEST_F(ScanDrive, AbsentDriveIsReportedAndNothingIsLost) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    files_.remove(u"D:\\");
    messages_.answer(Answer::Yes);
    EXPECT_THROW(scan(), base::Error);
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"Old"});
}

TEST_F(ScanDrive, UnreadableTrackListIsReportedAndNothingIsLost) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    files_.addFile(u"D:\\a.mid", "");
    files_.fail(Step::Read, u"C:\\Prog\\tmp.tmp", kRefused);
    messages_.answer(Answer::Yes);
    EXPECT_THROW(scan(), base::Error);
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"Old"});
}

TEST_F(ScanDrive, FailureAtAnyWriteLosesNothing) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    addFiles(100, u".mid", "");
    catalogue_->Idle();
    uint64_t failing = 0;
    for (bool failed = true; failed; ++failing) {
        state_.SkipReplaceQuestion = true;
        store_.failAt(failing, fakes::Fault::Fail);
        try {
            scan();
            failed = false;
        } catch (const base::Error&) {
            ASSERT_EQ(titlesOf(u"Rock 1"), Titles{u"Old"}) << failing;
        }
    }
    EXPECT_GT(failing, 2u);
    EXPECT_EQ(rowsOf(u"Rock 1").size(), 100u);
}

TEST_F(ScanDrive, FullDiskIsReportedAndNothingIsLost) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    addFiles(200, u".mid", "");
    state_.SkipReplaceQuestion = true;
    catalogue_->Idle();
    store_.setCapacity(store_.get(catalogue::testCatalogue).size());
    try {
        scan();
        FAIL() << "no error";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), ErrorNumber::DiskFull);
    }
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"Old"});
}

TEST_F(ScanDrive, TellsThePercentageOnlyWhenItChanges) {
    addFiles(8, u".mid", "");
    scan();
    EXPECT_EQ(
        view_.captions,
        (Titles{u"Analyse des morceaux en cours... 12%", u"Analyse des morceaux en cours... 25%",
                u"Analyse des morceaux en cours... 37%", u"Analyse des morceaux en cours... 50%",
                u"Analyse des morceaux en cours... 62%", u"Analyse des morceaux en cours... 75%",
                u"Analyse des morceaux en cours... 87%",
                u"Analyse des morceaux en cours... 100%"}));
    EXPECT_EQ(view_.percentages, (std::vector<int>{12, 25, 37, 50, 62, 75, 87, 100}));
    EXPECT_EQ(view_.waitingShown, 1);
}

TEST_F(ScanDrive, CountsSkippedFilesInThePercentage) {
    addFiles(250, u".wav", "noise");
    scan();
    ASSERT_EQ(view_.captions.size(), 101u);
    EXPECT_EQ(view_.captions.front(), u"Analyse des morceaux en cours... 0%");
    EXPECT_EQ(view_.captions.back(), u"Analyse des morceaux en cours... 100%");
}

TEST_F(ScanDrive, KeepsTheWindowAliveForEveryFile) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    messages_.answer(Answer::Yes);
    addFiles(3, u".mid", "");
    scan();
    EXPECT_EQ(view_.timesKeptAlive, 1 + 3 + 3);
}

TEST_F(ScanDrive, CataloguesNamesThatTheCodePageLacks) {
    files_.addFile(u"D:\\\u97F3\u697D.mid", "1234");
    scan();
    ASSERT_EQ(rowsOf(u"Rock 1").size(), 1u);
    EXPECT_EQ(rowsOf(u"Rock 1")[0].Nom, u"\u97F3\u697D");
    EXPECT_EQ(rowsOf(u"Rock 1")[0].Fichier, u"[CD]\\\u97F3\u697D.mid");
    EXPECT_EQ(rowsOf(u"Rock 1")[0].Taille, u"4");
}

}  // namespace
