#include "catalogue/settingsfile.h"

#include <random>

#include "base/error.h"
#include "gtest/gtest.h"
#include "tests/fakes/fakedrives.h"
#include "tests/fakes/memoryfilesystem.h"
#include "tests/fakes/projectfiles.h"

namespace catalogue {
namespace {

const base::CodePage& codePage = base::CodePage::windows1252();

// Every value differs from its neighbours, so that two that change places are seen.
Settings sample() {
    Settings settings;
    settings.NbExtensions = 1;
    settings.ExtensionList(0) = u"MP3";
    settings.ExtensionList(1) = u"XM";
    settings.ExtensionFlags(0, shownColumn) = 1;
    settings.ExtensionFlags(1, shownColumn) = 0;
    settings.ExtensionFlags(0, copiedColumn) = 0;
    settings.ExtensionFlags(1, copiedColumn) = 2;
    settings.LayoutValue1 = 101;
    settings.LayoutValue2 = 102;
    settings.LayoutValue3 = 103;
    settings.LayoutValue4 = 104;
    settings.LayoutValue5 = 105;
    settings.LayoutValue6 = -106;
    settings.WinHeight = 7000;
    settings.WinWidth = 9500;
    settings.List1Width = 210;
    settings.DBList2Width = 420;
    settings.WinState = 2;
    settings.CurrentPlayer = 2;
    settings.CurrentPlayerName = u"Écoute";
    settings.NbPlayers = 2;
    settings.PlayerTable(1, nameColumn) = u"Lecteur";
    settings.PlayerTable(1, pathColumn) = u"C:\\Program Files\\l.exe";
    settings.PlayerTable(2, nameColumn) = u"Écoute";
    settings.PlayerTable(2, pathColumn) = u"D:\\e.exe";
    settings.Look = {u"Times New Roman", true, false, 10, 128, -2147483643};
    settings.Option2 = true;
    settings.Check1 = 1;
    settings.Check3 = 0;
    settings.CheckAutoRefresh = 2;
    settings.CopyOption1 = 2;
    settings.CopyOption2 = 1;
    settings.CopyOption3 = 0;
    settings.CdRomDrive = u"E:";
    settings.CopyDestination = u"C:\\Musique";
    settings.DestinationDrive = u"c:";
    settings.ScanCdName = u"Rock 1";
    settings.PlayerPath = u"D:\\e.exe";
    return settings;
}

constexpr std::string_view sampleBytes =
    " 1 \r\n"
    "MP3\r\nXM\r\n"
    " 1 \r\n 0 \r\n"
    " 0 \r\n 2 \r\n"
    " 101 \r\n 104 \r\n 7000 \r\n 102 \r\n 105 \r\n 9500 \r\n 210 \r\n 420 \r\n 103 \r\n-106 \r\n"
    " 2 \r\n"
    " 2 \r\n"
    "\xC9"
    "coute\r\n"
    " 2 \r\n"
    "Lecteur\r\nC:\\Program Files\\l.exe\r\n\xC9"
    "coute\r\nD:\\e.exe\r\n"
    "Times New Roman\r\n 255 \r\n 0 \r\n 10 \r\n 128 \r\n-2147483643 \r\n"
    " 0 \r\n 255 \r\n 0 \r\n"
    " 1 \r\n 0 \r\n 2 \r\n"
    " 2 \r\n 1 \r\n 0 \r\n"
    "E:\r\nC:\\Musique\r\nc:\r\nRock 1\r\nD:\\e.exe\r\n";

// `bytes` with its first `from` replaced.
std::string replaced(std::string bytes, std::string_view from, std::string_view to) {
    const size_t at = bytes.find(from);
    if (at == std::string::npos) {
        ADD_FAILURE() << "nothing to replace: " << from;
        return bytes;
    }
    return bytes.replace(at, from.size(), to);
}

void expectRoundTrip(const Settings& settings) {
    const std::string bytes = formatSettings(settings, codePage);
    EXPECT_EQ(parseSettings(bytes, codePage), settings);
    EXPECT_EQ(formatSettings(parseSettings(bytes, codePage), codePage), bytes);
}

void expectError(const std::string& bytes, base::ErrorNumber number, std::u16string_view place) {
    try {
        parseSettings(bytes, codePage);
        ADD_FAILURE() << "no error";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), number) << error.what();
        EXPECT_EQ(error.place(), place) << error.what();
        EXPECT_FALSE(error.text().empty());
    }
}

TEST(FormatSettings, WritesEveryLineInItsPlace) {
    EXPECT_EQ(formatSettings(sample(), codePage), sampleBytes);
}

TEST(FormatSettings, WritesNoPlayerLinesForNoPlayer) {
    Settings settings = sample();
    settings.NbPlayers = 0;
    const std::string expected = replaced(std::string(sampleBytes),
                                          " 2 \r\nLecteur\r\nC:\\Program Files\\l.exe\r\n\xC9"
                                          "coute\r\nD:\\e.exe\r\n",
                                          " 0 \r\n");
    EXPECT_EQ(formatSettings(settings, codePage), expected);
}

TEST(FormatSettings, KeepsALineEndInATextFromShiftingWhatFollows) {
    Settings settings = sample();
    settings.ScanCdName = u"a\r\nb";
    EXPECT_EQ(parseSettings(formatSettings(settings, codePage), codePage).ScanCdName, u"a  b");
}

TEST(FormatSettings, RefusesCountsBeyondTheTables) {
    Settings settings = sample();
    settings.NbPlayers = 201;
    EXPECT_THROW(formatSettings(settings, codePage), base::Error);
    settings = sample();
    settings.NbExtensions = 2001;
    EXPECT_THROW(formatSettings(settings, codePage), base::Error);
}

TEST(ParseSettings, ReadsBackWhatWasWritten) {
    EXPECT_EQ(parseSettings(sampleBytes, codePage), sample());
    expectRoundTrip(sample());
}

TEST(ParseSettings, ReadsBackTheSmallestAndTheLargestLists) {
    Settings settings = sample();
    settings.NbPlayers = 0;
    settings.CurrentPlayer = 0;
    for (const int row : {1, 2}) {
        for (const int column : {nameColumn, pathColumn})
            settings.PlayerTable(row, column).clear();
    }
    settings.NbExtensions = 0;
    settings.ExtensionList(1).clear();
    settings.ExtensionFlags(1, copiedColumn) = 0;
    expectRoundTrip(settings);
    settings.NbExtensions = -1;
    settings.ExtensionList(0).clear();
    settings.ExtensionFlags(0, shownColumn) = 0;
    expectRoundTrip(settings);

    settings.NbExtensions = highestExtension;
    for (int i = 0; i <= highestExtension; ++i) {
        settings.ExtensionList(i) = base::fromUtf8("E" + std::to_string(i));
        settings.ExtensionFlags(i, shownColumn) = static_cast<uint8_t>(i % 2);
        settings.ExtensionFlags(i, copiedColumn) = static_cast<uint8_t>(i % 3);
    }
    settings.NbPlayers = highestPlayer;
    settings.CurrentPlayer = highestPlayer;
    for (int i = 1; i <= highestPlayer; ++i) {
        settings.PlayerTable(i, nameColumn) = base::fromUtf8("P" + std::to_string(i));
        settings.PlayerTable(i, pathColumn) = base::fromUtf8("C:\\p " + std::to_string(i));
    }
    expectRoundTrip(settings);
}

TEST(ParseSettings, ReadsBackTheExtremesOfEveryType) {
    Settings settings = sample();
    settings.LayoutValue1 = INT32_MIN;
    settings.LayoutValue2 = INT32_MAX;
    settings.Look.FontSize = INT16_MIN;
    settings.Check1 = 255;
    expectRoundTrip(settings);
}

TEST(ParseSettings, ReadsBackTextsThatLookLikeSeveralValues) {
    const std::u16string_view awkward[] = {u"C:\\a,b", u",",      u",,,",     u"\"a",
                                           u"\"a\"",   u"a\"b\"", u"\"a,b\"", u"  a  ",
                                           u" Aucun ", u"12",     u"",        u"\t"};
    for (const std::u16string_view text : awkward) {
        Settings settings = sample();
        for (std::u16string* place :
             {&settings.CdRomDrive, &settings.CopyDestination, &settings.DestinationDrive,
              &settings.ScanCdName, &settings.PlayerPath, &settings.CurrentPlayerName,
              &settings.Look.FontName, &settings.ExtensionList(1),
              &settings.PlayerTable(1, nameColumn)}) {
            const std::u16string before = *place;
            *place = text;
            expectRoundTrip(settings);
            *place = before;
        }
    }
}

TEST(ParseSettings, ReadsBackTextsChosenAtRandom) {
    std::mt19937 random(20240607);
    const std::u16string characters = u" ,\"a1éж\t\u00A0-\x1A";
    for (int run = 0; run < 500; ++run) {
        Settings settings = sample();
        for (std::u16string* place :
             {&settings.CurrentPlayerName, &settings.PlayerTable(1, nameColumn),
              &settings.PlayerTable(2, pathColumn), &settings.CopyDestination, &settings.ScanCdName,
              &settings.PlayerPath, &settings.ExtensionList(0)}) {
            place->clear();
            for (size_t i = random() % 5; i > 0; --i)
                *place += characters[random() % characters.size()];
        }
        expectRoundTrip(settings);
    }
}

TEST(ParseSettings, TakesACharacterThatTheCodePageLacks) {
    Settings settings = sample();
    settings.CopyDestination = u"C:\\Музыка";
    EXPECT_TRUE(formatSettings(settings, codePage).starts_with("\xEF\xBB\xBF 1 \r\n"));
    expectRoundTrip(settings);
}

TEST(ParseSettings, TakesEveryNumberButZeroForTrue) {
    const std::string bytes =
        replaced(std::string(sampleBytes), " 0 \r\n 255 \r\n 0 \r\n", " 2 \r\n 1 \r\n 0 \r\n");
    const Settings settings = parseSettings(bytes, codePage);
    EXPECT_TRUE(settings.Option1);
    EXPECT_TRUE(settings.Option2);
    EXPECT_FALSE(settings.Option3);
}

TEST(ParseSettings, ReadsSeveralValuesOnALine) {
    const std::string bytes =
        replaced(std::string(sampleBytes), " 1 \r\nMP3\r\nXM\r\n 1 \r\n 0 \r\n 0 \r\n 2 \r\n",
                 "1,MP3,\"XM\"\r\n1 0 0 2\r\n");
    EXPECT_EQ(parseSettings(bytes, codePage), sample());
}

TEST(ParseSettings, LosesBlanksAroundTextsOfAFileWrittenByHand) {
    // Without its blanks this number is none that we write.
    const std::string bytes =
        replaced(replaced(std::string(sampleBytes), "Rock 1", "  Rock 1  "), " 7000 ", "7000");
    EXPECT_EQ(parseSettings(bytes, codePage), sample());
}

TEST(ParseSettings, FallsBackToLinesWhenACommaSplitsAText) {
    // Plain numbers, so the file is not exactly ours.
    const std::string bytes = replaced(
        replaced(std::string(sampleBytes), "C:\\Musique", "C:\\Rock, Pop"), " 7000 ", "7000");
    Settings expected = sample();
    expected.CopyDestination = u"C:\\Rock, Pop";
    EXPECT_EQ(parseSettings(bytes, codePage), expected);
}

TEST(ParseSettings, IgnoresLinesAfterTheLastValue) {
    EXPECT_EQ(parseSettings(std::string(sampleBytes) + "note\r\n", codePage), sample());
    EXPECT_EQ(parseSettings(std::string(sampleBytes) + "\r\n\r\n\x1A", codePage), sample());
}

TEST(ParseSettings, TakesOtherLineEnds) {
    std::string bytes(sampleBytes);
    std::erase(bytes, '\r');
    EXPECT_EQ(parseSettings(bytes, codePage), sample());
}

TEST(ParseSettings, NamesTheLineOfAValueThatIsNoNumber) {
    expectError(replaced(std::string(sampleBytes), " 7000 ", "haut"),
                base::ErrorNumber::TypeMismatch, u"ligne 10");
    expectError(replaced(std::string(sampleBytes), " 7000 ", ""), base::ErrorNumber::TypeMismatch,
                u"ligne 10");
    expectError(replaced(std::string(sampleBytes), " 7000 ", "7e3"),
                base::ErrorNumber::TypeMismatch, u"ligne 10");
}

TEST(ParseSettings, RefusesNumbersBeyondTheirType) {
    expectError(replaced(std::string(sampleBytes), " 7000 ", " 2147483648 "),
                base::ErrorNumber::Overflow, u"ligne 10");
    expectError(replaced(std::string(sampleBytes), " 7000 ", "99999999999999999999999"),
                base::ErrorNumber::Overflow, u"ligne 10");
    expectError(replaced(std::string(sampleBytes), "MP3\r\nXM\r\n 1 ", "MP3\r\nXM\r\n 256 "),
                base::ErrorNumber::Overflow, u"ligne 4");
    expectError(replaced(std::string(sampleBytes), "MP3\r\nXM\r\n 1 ", "MP3\r\nXM\r\n-1 "),
                base::ErrorNumber::Overflow, u"ligne 4");
}

TEST(ParseSettings, RefusesCountsBeyondTheTables) {
    constexpr auto outside = base::ErrorNumber::SubscriptOutOfRange;
    expectError(replaced(std::string(sampleBytes), " 1 ", " 2001 "), outside, u"ligne 1");
    expectError(replaced(std::string(sampleBytes), " 1 ", "-2 "), outside, u"ligne 1");
    expectError(replaced(std::string(sampleBytes), " 1 ", " 2147483647 "), outside, u"ligne 1");
    expectError(replaced(std::string(sampleBytes), " 2 \r\nLecteur", " 201 \r\nLecteur"), outside,
                u"ligne 21");
    expectError(replaced(std::string(sampleBytes), " 2 \r\nLecteur", "-1 \r\nLecteur"), outside,
                u"ligne 21");
    expectError(replaced(std::string(sampleBytes), " 2 \r\n\xC9", " 201 \r\n\xC9"), outside,
                u"ligne 19");
}

TEST(ParseSettings, RefusesCountsThatDoNotMatchTheLines) {
    // The next extension or player stands where a number is due.
    expectError(replaced(std::string(sampleBytes), " 1 \r\nMP3", " 0 \r\nMP3"),
                base::ErrorNumber::TypeMismatch, u"ligne 3");
    expectError(replaced(std::string(sampleBytes), " 2 \r\nLecteur", " 1 \r\nLecteur"),
                base::ErrorNumber::TypeMismatch, u"ligne 25");
}

TEST(ParseSettings, RefusesEveryTruncatedFile) {
    // Cut anywhere before the last value, a text may be short but the lines are too few.
    const size_t lastValue = sampleBytes.rfind("D:");
    for (size_t size = 0; size <= lastValue; ++size)
        EXPECT_THROW(parseSettings(sampleBytes.substr(0, size), codePage), base::Error) << size;
    expectError("", base::ErrorNumber::InputPastEnd, u"ligne 1");
}

TEST(ParseSettings, RefusesJunkWithoutHarm) {
    std::mt19937 random(7);
    for (int run = 0; run < 300; ++run) {
        std::string bytes(random() % 3000, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        EXPECT_THROW(parseSettings(bytes, codePage), base::Error);
    }
    expectError(std::string(100000, ' '), base::ErrorNumber::TypeMismatch, u"ligne 1");
    expectError(std::string(100000, '9'), base::ErrorNumber::Overflow, u"ligne 1");
}

TEST(ParseSettings, BlamesTheReadingThatCameFurther) {
    // A comma in a text, and the last three lines are missing.
    const std::string cut(sampleBytes.substr(0, sampleBytes.rfind("c:")));
    expectError(replaced(cut, "C:\\Musique", "C:\\Rock, Pop"), base::ErrorNumber::InputPastEnd,
                u"ligne 43");
    // Several values per line, one of them bad.
    expectError("1,MP3,XM,1,0,0,2\r\n101,104,haut\r\n", base::ErrorNumber::TypeMismatch,
                u"ligne 2");
}

class SettingsOnDisk : public testing::Test {
  protected:
    SettingsOnDisk() { files.addFolder(u"C:\\Prog"); }
    base::Error loadError() {
        try {
            LoadSettings(files, drives, u"C:\\Prog\\", codePage);
        } catch (const base::Error& error) {
            return error;
        }
        ADD_FAILURE() << "no error";
        return {base::ErrorNumber::Overflow, u""};
    }
    fakes::MemoryFileSystem files;
    fakes::FakeDrives drives{{{u'E', platform::DriveType::CdRom}}};
};

TEST_F(SettingsOnDisk, AreReplacedWholeAndComeBack) {
    files.addFile(u"C:\\Prog\\Brivantole.ini", std::string(100000, 'x'));
    SaveSettings(files, u"C:\\Prog\\", codePage, sample());
    EXPECT_EQ(files.content(u"C:\\Prog\\Brivantole.ini"), sampleBytes);
    EXPECT_EQ(LoadSettings(files, drives, u"C:\\Prog\\", codePage), sample());
}

TEST_F(SettingsOnDisk, NameACdRomDriveThatExists) {
    Settings settings = sample();
    settings.CdRomDrive = u"G:";
    SaveSettings(files, u"C:\\Prog\\", codePage, settings);
    EXPECT_EQ(LoadSettings(files, drives, u"C:\\Prog\\", codePage).CdRomDrive, u"E:");
    drives = fakes::FakeDrives();
    EXPECT_EQ(LoadSettings(files, drives, u"C:\\Prog\\", codePage).CdRomDrive, u"G:");
}

TEST_F(SettingsOnDisk, MissingAreAnErrorThatNamesTheFile) {
    const base::Error error = loadError();
    EXPECT_EQ(error.number(), base::ErrorNumber::FileNotFound);
    EXPECT_EQ(error.place(), u"C:\\Prog\\Brivantole.ini");
}

TEST_F(SettingsOnDisk, MalformedAreAnErrorThatNamesFileAndLine) {
    files.addFile(u"C:\\Prog\\Brivantole.ini", " 1 \r\nMP3\r\nXM\r\noui\r\n");
    const base::Error error = loadError();
    EXPECT_EQ(error.place(), u"C:\\Prog\\Brivantole.ini, ligne 4");
    EXPECT_EQ(error.text(), u"Un nombre entier est attendu au lieu de «\u00A0oui\u00A0».");
}

TEST_F(SettingsOnDisk, TooLargeAreRefusedUnread) {
    files.addSparseFile(u"C:\\Prog\\Brivantole.ini", uint64_t{1} << 40, " 1 \r\n");
    EXPECT_EQ(loadError().number(), base::ErrorNumber::Overflow);
}

TEST_F(SettingsOnDisk, ThatCannotBeWrittenStayAsTheyWere) {
    files.addFile(u"C:\\Prog\\Brivantole.ini", "old");
    files.fail(fakes::MemoryFileSystem::Step::Replace, u"C:\\Prog\\Brivantole.ini",
               {base::ErrorNumber::DiskFull, u"Disque plein."});
    EXPECT_THROW(SaveSettings(files, u"C:\\Prog\\", codePage, sample()), base::Error);
    EXPECT_EQ(files.content(u"C:\\Prog\\Brivantole.ini"), "old");
}

std::string shippedSettings() {
    return fakes::bytesOf(fakes::projectPath("data/Brivantole.ini"));
}

TEST(ShippedSettings, AreExactlyAsWeWriteThem) {
    const std::string bytes = shippedSettings();
    EXPECT_EQ(formatSettings(parseSettings(bytes, codePage), codePage), bytes);
}

TEST(ShippedSettings, ShowAndCopyEveryDefaultExtension) {
    const Settings shipped = parseSettings(shippedSettings(), codePage);
    Settings defaults;
    ResetDefaultExtensions(defaults);
    EXPECT_EQ(shipped.NbExtensions, defaults.NbExtensions);
    EXPECT_EQ(shipped.ExtensionList, defaults.ExtensionList);
    for (int i = 0; i <= shipped.NbExtensions; ++i) {
        EXPECT_EQ(shipped.ExtensionFlags(i, shownColumn), 1);
        EXPECT_EQ(shipped.ExtensionFlags(i, copiedColumn), 1);
    }
}

TEST(ShippedSettings, ChooseNoPlayerAndSortByName) {
    const Settings shipped = parseSettings(shippedSettings(), codePage);
    EXPECT_EQ(shipped.NbPlayers, 0);
    EXPECT_EQ(shipped.CurrentPlayer, 0);
    EXPECT_EQ(shipped.CurrentPlayerName, u"Aucun");
    EXPECT_EQ(shipped.PlayerPath, u"");
    EXPECT_TRUE(shipped.Option1);
    EXPECT_FALSE(shipped.Option2 || shipped.Option3);
    EXPECT_EQ(shipped.CheckAutoRefresh, 1);
    EXPECT_EQ(shipped.CdRomDrive, u"E:");
    EXPECT_EQ(shipped.Look, (ListLook{u"Tahoma", false, false, 8, 0, 0xFFFFFF}));
    EXPECT_EQ(shipped.WinState, 0);
}

}  // namespace
}  // namespace catalogue
