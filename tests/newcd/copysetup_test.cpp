#include "newcd/copysetup.h"

#include <gtest/gtest.h>

namespace newcd {
namespace {

class CopySetupTest : public testing::Test {
  protected:
    catalogue::Settings settings;
    scan::ScanState scanState;
    RunState run{scanState};
};

TEST_F(CopySetupTest, OpensWithTheLastChoices) {
    settings.CdRomDrive = u"E:";
    settings.DestinationDrive = u"c:";
    settings.CopyDestination = u"C:\\Musique";
    settings.CopyOption1 = 2;
    settings.CopyOption2 = 1;
    settings.CopyOption3 = 1;
    EXPECT_EQ(presetCopySetup(settings), (CopySetup{.DriveSource = u"E:",
                                                    .Drivedestin = u"c:",
                                                    .DirDestin = u"C:\\Musique",
                                                    .TextCopy = u"",
                                                    .catalogueOption = 2,
                                                    .duplicateOption = 4,
                                                    .CheckRepert = true}));
}

TEST_F(CopySetupTest, OpensWithTheFirstButtonsForRulesThatDoNotExist) {
    settings.CopyOption1 = 7;
    settings.CopyOption2 = 255;
    const CopySetup setup = presetCopySetup(settings);
    EXPECT_EQ(setup.catalogueOption, 0);
    EXPECT_EQ(setup.duplicateOption, 3);
    EXPECT_FALSE(setup.CheckRepert);
}

TEST_F(CopySetupTest, KeepsEveryChoice) {
    scanState.ScanAnswer = 1;
    acceptCopySetup({.DriveSource = u"e: [rock]",
                     .Drivedestin = u"d: [disque]",
                     .DirDestin = u"D:\\Musique",
                     .TextCopy = u"  l'été  ",
                     .catalogueOption = 1,
                     .duplicateOption = 5,
                     .CheckRepert = true},
                    settings, run);
    EXPECT_EQ(settings.CdRomDrive, u"E: [ROCK]");
    EXPECT_EQ(settings.DestinationDrive, u"d: [disque]");
    EXPECT_EQ(settings.CopyDestination, u"D:\\Musique");
    EXPECT_EQ(settings.CopyOption1, 1);
    EXPECT_EQ(settings.CopyOption2, 2);
    EXPECT_EQ(settings.CopyOption3, 1);
    EXPECT_EQ(run.CopyFilterText, u"L'ÉTÉ");
    EXPECT_EQ(scanState.ScanAnswer, 0);
}

TEST_F(CopySetupTest, GivesBackWhatItKept) {
    for (int catalogueOption = 0; catalogueOption <= 2; ++catalogueOption) {
        for (int duplicateOption = 3; duplicateOption <= 5; ++duplicateOption) {
            CopySetup setup;
            setup.catalogueOption = catalogueOption;
            setup.duplicateOption = duplicateOption;
            acceptCopySetup(setup, settings, run);
            EXPECT_EQ(presetCopySetup(settings), setup);
        }
    }
}

TEST(FilterTextKey, TurnsAQuotationMarkIntoAnApostrophe) {
    EXPECT_EQ(filterTextKey(u'"'), u'\'');
    EXPECT_EQ(filterTextKey(u'a'), u'a');
    EXPECT_EQ(filterTextKey(u'*'), u'*');
}

}  // namespace
}  // namespace newcd
