#include "scan/rescan.h"

#include <gtest/gtest.h>

#include "tests/scan/scanfixture.h"

namespace {

using platform::Answer;
using scan::ScanResult;
using Titles = std::vector<std::u16string>;

// The scan window, telling in order what became of it.
class RecordingRescanView : public scan::RescanView {
  public:
    void load(const scan::RescanCaptions& captions, std::u16string_view cdName) override {
        shownCaptions = captions;
        steps.push_back(u"load " + std::u16string(cdName));
    }
    void showScanning(std::u16string_view drive) override {
        steps.push_back(u"show " + std::u16string(drive));
    }
    void unload() override { steps.push_back(u"unload"); }
    void showWaiting() override { steps.push_back(u"waiting"); }
    void setWaitingCaption(std::u16string_view) override {}
    void keepAlive() override {}

    Titles steps;
    scan::RescanCaptions shownCaptions{};
};

class Rescan : public scan::ScanFixture {
  protected:
    Rescan() {
        settings_.ScanCdName = u"last added";
        files_.addFile(u"D:\\new.mid", "");
        files_.addFile(u"C:\\disk.mid", "");
    }
    ScanResult rescan(std::u16string_view cd = u"Rock 1") {
        return RescanCd(tools(), settings_, state_, view_, cd);
    }
    void expectSettingsRestored() {
        EXPECT_EQ(settings_.ScanCdName, u"last added");
        EXPECT_EQ(settings_.CdRomDrive, u"D:");
        EXPECT_FALSE(state_.SkipReplaceQuestion);
    }

    RecordingRescanView view_;
};

TEST_F(Rescan, AsksFirst) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    messages_.answer(Answer::No);
    EXPECT_EQ(rescan(), ScanResult::Refused);
    ASSERT_EQ(messages_.shown().size(), 1u);
    EXPECT_EQ(messages_.shown()[0], (fakes::ScriptedMessages::Shown{
                                        u"Re-Scanner ce CD ?", u"Mise à jour des données", 292}));
    EXPECT_TRUE(view_.steps.empty());
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"Old"});
    expectSettingsRestored();
}

TEST_F(Rescan, ReplacesTheRowsWithoutAskingAgain) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    messages_.answer(Answer::Yes);
    EXPECT_EQ(rescan(), ScanResult::Done);
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"New"});
    EXPECT_EQ(messages_.shown().size(), 1u);
    expectSettingsRestored();
}

TEST_F(Rescan, ShowsTheScanWindowWithTextsOfItsOwn) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    messages_.answer(Answer::Yes);
    rescan();
    EXPECT_EQ(view_.steps, (Titles{u"load Rock 1", u"show D:", u"waiting", u"unload"}));
    EXPECT_EQ(view_.shownCaptions.window, u"Re-scanner CD musical");
    EXPECT_EQ(view_.shownCaptions.Label1,
              u"Brivantole Audio va re-scanner votre lecteur source et mettre à jour la liste de "
              u"tous les fichiers musicaux s'y trouvant.");
    EXPECT_EQ(view_.shownCaptions.LabelNouveauNom,
              u"Nom du CD à re-scanner. La liste portant ce nom va être mise à jour");
    EXPECT_EQ(view_.shownCaptions.LabelNouveauDrive,
              u"Lecteur à re-scanner. Le CD doit être inséré dans ce lecteur si le support est de "
              u"type CD");
}

TEST_F(Rescan, LooksForACdInThePresentCdRomDrive) {
    drives_.add(u'E', platform::DriveType::CdRom);
    settings_.CdRomDrive = u"E:";
    files_.addFile(u"E:\\other.mid", "");
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    messages_.answer(Answer::Yes);
    EXPECT_EQ(rescan(), ScanResult::Done);
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"Other"});
    EXPECT_EQ(settings_.CdRomDrive, u"E:");
}

TEST_F(Rescan, LooksForAHardDisksTracksWhereTheyWereFound) {
    addRow(u"Rock 1", u"Old", u"C:\\old.mp3");
    messages_.answer(Answer::Yes);
    EXPECT_EQ(rescan(), ScanResult::Done);
    EXPECT_EQ(rowsOf(u"Rock 1").at(0).Fichier, u"C:\\disk.mid");
    EXPECT_EQ(view_.steps[1], u"show C:");
    expectSettingsRestored();
}

TEST_F(Rescan, LooksForACdWithoutRowsInThePresentCdRomDrive) {
    messages_.answer(Answer::Yes);
    EXPECT_EQ(rescan(u"gone"), ScanResult::Done);
    EXPECT_EQ(titlesOf(u"gone"), Titles{u"New"});
}

TEST_F(Rescan, WaitsUntilTheCdIsInserted) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    drives_.setNotReady(u'D', 2);
    for (const Answer answer : {Answer::Yes, Answer::Retry, Answer::Retry})
        messages_.answer(answer);
    EXPECT_EQ(rescan(), ScanResult::Done);
    ASSERT_EQ(messages_.shown().size(), 3u);
    EXPECT_EQ(messages_.shown()[1],
              (fakes::ScriptedMessages::Shown{u"Insérez le CD Rock 1\r\ndans le lecteur D:",
                                              u"CD absent!", 53}));
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"New"});
}

TEST_F(Rescan, GivingUpTheWaitChangesNothing) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    drives_.setNotReady(u'D', 2);
    messages_.answer(Answer::Yes);
    messages_.answer(Answer::Cancel);
    EXPECT_EQ(rescan(), ScanResult::Refused);
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"Old"});
    EXPECT_EQ(view_.steps, (Titles{u"load Rock 1", u"unload"}));
    expectSettingsRestored();
}

TEST_F(Rescan, DoesNotWaitForADriveThatIsNoCdRom) {
    addRow(u"Rock 1", u"Old", u"C:\\old.mp3");
    drives_.setNotReady(u'C', 1);
    messages_.answer(Answer::Yes);
    EXPECT_EQ(rescan(), ScanResult::Done);
    EXPECT_EQ(messages_.shown().size(), 1u);
}

TEST_F(Rescan, StoppedByTheUserHasTakenTheOldRowsAway) {
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    files_.addFile(u"D:\\closed\\inside.mid", "");
    files_.fail(fakes::MemoryFileSystem::Step::OpenFolder, u"D:\\closed",
                base::Error(base::ErrorNumber::PathFileAccess, u"Accès refusé."));
    messages_.answer(Answer::Yes);
    messages_.answer(Answer::Cancel);
    EXPECT_EQ(rescan(), ScanResult::Stopped);
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{});
    EXPECT_EQ(view_.steps.back(), u"unload");
    expectSettingsRestored();
}

TEST_F(Rescan, FindsTheRowsOfACdWhoseNameHoldsAQuotationMark) {
    addRow(u"12\" mix", u"Old", u"C:\\old.mp3");
    messages_.answer(Answer::Yes);
    EXPECT_EQ(rescan(u"12\" mix"), ScanResult::Done);
    EXPECT_EQ(view_.steps[1], u"show C:");
    EXPECT_EQ(titlesOf(u"12\"\" mix"), Titles{u"Disk"});
}

TEST_F(Rescan, KeepsTheRowsOfACdWhenThereIsNoCdRomDrive) {
    settings_.CdRomDrive.clear();
    addRow(u"Rock 1", u"Old", u"[CD]\\old.mp3");
    messages_.answer(Answer::Yes);
    EXPECT_THROW(rescan(), base::Error);
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"Old"});
    EXPECT_EQ(settings_.CdRomDrive, u"");
}

TEST_F(Rescan, GivesTheSettingsBackAfterAnError) {
    addRow(u"Rock 1", u"Old", u"X:\\old.mp3");
    messages_.answer(Answer::Yes);
    EXPECT_THROW(rescan(), base::Error);
    EXPECT_EQ(titlesOf(u"Rock 1"), Titles{u"Old"});
    EXPECT_EQ(view_.steps.back(), u"unload");
    expectSettingsRestored();
}

}  // namespace
