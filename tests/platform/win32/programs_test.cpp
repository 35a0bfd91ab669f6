#include "platform/win32/programs.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <optional>

#include "base/error.h"
#include "platform/win32/handle.h"
#include "platform/win32/path.h"
#include "platform/win32/wide.h"
#include "tests/platform/win32/tempfolder.h"

namespace platform::win32 {
namespace {

using testing_win32::errorOf;
using testing_win32::TempFolder;

constexpr int kFileNotFound = static_cast<int>(base::ErrorNumber::FileNotFound);
constexpr int kMinimisedWithFocus = 2;
constexpr int kLongestWaitSteps = 3000;

class ProgramsTest : public testing::Test {
  protected:
    // A copy of the recording program under `name` in the test's folder.
    std::u16string install(std::u16string_view name) {
        const std::u16string program = folder_.file(name);
        const std::u16string recorder =
            testing_win32::programFolder() + u"\\commandline_recorder.exe";
        EXPECT_TRUE(CopyFileW(extendedPath(recorder).c_str(), extendedPath(program).c_str(), TRUE));
        return program;
    }

    static std::u16string recordOf(const std::u16string& program) { return program + u".txt"; }

    static bool hasRecord(const std::u16string& program) {
        return GetFileAttributesW(extendedPath(recordOf(program)).c_str()) !=
               INVALID_FILE_ATTRIBUTES;
    }

    // What the program recorded, once it has; nothing when it never does.
    static std::optional<std::u16string> awaitRecord(const std::u16string& program) {
        for (int step = 0; !hasRecord(program); ++step) {
            if (step == kLongestWaitSteps) return std::nullopt;
            Sleep(10);
        }
        const std::string bytes = testing_win32::content(recordOf(program));
        std::u16string text(bytes.size() / 2, u'\0');
        std::copy(bytes.begin(), bytes.end(), reinterpret_cast<char*>(text.data()));
        return text;
    }

    static std::u16string started(std::u16string_view commandLine) {
        return std::u16string(1, u'0' + kMinimisedWithFocus) + u" " + std::u16string(commandLine);
    }

    TempFolder folder_;
    Win32Programs programs_;
};

TEST_F(ProgramsTest, StartsMinimisedWithTheExactCommandLine) {
    const std::u16string player = install(u"lecteur.exe");
    const std::u16string commandLine = player + u" \"E:\\Été 日本\\a b.mp3\"";
    programs_.start(player, commandLine);
    EXPECT_EQ(awaitRecord(player), started(commandLine));
}

TEST_F(ProgramsTest, BlanksInAPathStartNoOtherProgram) {
    folder_.folder(u"Mes programmes");
    const std::u16string player = install(u"Mes programmes\\Mon lecteur.exe");
    const std::u16string decoy = install(u"Mes.exe");
    const std::u16string commandLine = player + u" \"E:\\a.mp3\"";
    programs_.start(player, commandLine);
    EXPECT_EQ(awaitRecord(player), started(commandLine));
    EXPECT_FALSE(hasRecord(decoy));
}

TEST_F(ProgramsTest, AMissingPathWithBlanksStartsNoOtherProgram) {
    const std::u16string decoy = install(u"Mes.exe");
    const std::u16string missing = folder_.file(u"Mes programmes\\lecteur.exe");
    EXPECT_NE(errorOf([&] { programs_.start(missing, missing + u" \"E:\\a.mp3\""); }), 0);
    // A second program, started after it, has run: the first would have, too.
    programs_.start(install(u"autre.exe"), u"autre");
    EXPECT_TRUE(awaitRecord(folder_.file(u"autre.exe")).has_value());
    EXPECT_FALSE(hasRecord(decoy));
}

TEST_F(ProgramsTest, TakesAPathBetweenQuotationMarks) {
    const std::u16string player = install(u"Mon lecteur.exe");
    const std::u16string quoted = u"\"" + player + u"\"";
    programs_.start(quoted, quoted + u" \"E:\\a.mp3\"");
    EXPECT_EQ(awaitRecord(player), started(quoted + u" \"E:\\a.mp3\""));
}

TEST_F(ProgramsTest, AddsTheUsualExtension) {
    const std::u16string player = install(u"lecteur.exe");
    programs_.start(folder_.file(u"lecteur"), u"lecteur");
    EXPECT_EQ(awaitRecord(player), started(u"lecteur"));
}

TEST_F(ProgramsTest, FindsANameWhereTheSystemKeepsPrograms) {
    EXPECT_NO_THROW(programs_.start(u"hostname.exe", u"hostname.exe"));
    EXPECT_NO_THROW(programs_.start(u"hostname", u"hostname"));
}

class CurrentFolder {
  public:
    explicit CurrentFolder(std::u16string_view path) {
        GetCurrentDirectoryW(MAX_PATH, before_);
        SetCurrentDirectoryW(toWide(path).c_str());
    }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { SetCurrentDirectoryW(before_); }

  private:
    wchar_t before_[MAX_PATH]{};
};

TEST_F(ProgramsTest, LooksInTheCurrentFolderLast) {
    const std::u16string player = install(u"lecteur.exe");
    const std::u16string namesake = install(u"hostname.exe");
    const CurrentFolder current(folder_.path());
    programs_.start(u"hostname.exe", u"hostname.exe");
    programs_.start(u"lecteur.exe", u"lecteur.exe \"E:\\a b.mp3\"");
    EXPECT_EQ(awaitRecord(player), started(u"lecteur.exe \"E:\\a b.mp3\""));
    EXPECT_FALSE(hasRecord(namesake));
}

TEST_F(ProgramsTest, NamesTheProgramThatIsMissing) {
    const std::u16string missing = folder_.file(u"absent.exe");
    try {
        programs_.start(missing, missing);
        FAIL() << "nothing is there to be started";
    } catch (const base::Error& error) {
        EXPECT_EQ(static_cast<int>(error.number()), kFileNotFound);
        EXPECT_EQ(error.place(), missing);
    }
    EXPECT_EQ(errorOf([&] { programs_.start(u"", u""); }), kFileNotFound);
}

TEST_F(ProgramsTest, ReportsAFileThatIsNoProgram) {
    const std::u16string text = folder_.write(u"texte.exe", "not a program");
    EXPECT_NE(errorOf([&] { programs_.start(text, text); }), 0);
}

TEST_F(ProgramsTest, DoesNotWaitForTheProgram) {
    const std::u16string player = install(u"lecteur.exe");
    const std::wstring name = L"brivantole-" + std::to_wstring(GetCurrentProcessId());
    const KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, name.c_str()));
    programs_.start(player, u"lecteur waits:" + fromWide(name));
    EXPECT_FALSE(hasRecord(player));
    SetEvent(event.get());
    EXPECT_TRUE(awaitRecord(player).has_value());
}

}  // namespace
}  // namespace platform::win32
