#include "platform/win32/abandonedscratch.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "platform/scratchname.h"
#include "platform/win32/handle.h"
#include "platform/win32/path.h"
#include "platform/win32/wide.h"
#include "tests/platform/win32/tempfolder.h"

namespace platform::win32 {
namespace {

// No process has a number that is no multiple of four, let alone this one.
constexpr uint32_t kEnded = 4'000'000'001;

// Runs no code of its own, but runs.
class RunningProcess {
  public:
    RunningProcess() {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION started{};
        const std::wstring program =
            toWide(testing_win32::programFolder() + u"\\commandline_recorder.exe");
        if (!CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED,
                            nullptr, nullptr, &startup, &started)) {
            ADD_FAILURE() << "CreateProcessW: " << GetLastError();
            return;
        }
        process_.reset(started.hProcess);
        thread_.reset(started.hThread);
        number_ = started.dwProcessId;
    }
    RunningProcess(const RunningProcess&) = delete;
    RunningProcess& operator=(const RunningProcess&) = delete;
    ~RunningProcess() {
        if (process_) TerminateProcess(process_.get(), 0);
    }
    uint32_t number() const { return number_; }

  private:
    KernelHandle process_;
    KernelHandle thread_;
    uint32_t number_ = 0;
};

class AbandonedScratchTest : public testing::Test {
  protected:
    using Names = std::vector<std::u16string>;

    void remove() const { removeAbandonedScratch(folder_.path() + u"\\"); }
    Names names(std::u16string_view folder = {}) const {
        return testing_win32::names(folder.empty() ? folder_.path() : folder_.file(folder));
    }
    static void makeReadOnly(std::u16string_view path) {
        SetFileAttributesW(extendedPath(path).c_str(), FILE_ATTRIBUTE_READONLY);
    }

    testing_win32::TempFolder folder_;
};

TEST_F(AbandonedScratchTest, FilesGoAndNothingElse) {
    for (const uint32_t number : {0U, 1U, 400U})
        folder_.write(scratchName(kEnded, number), "half a file");
    makeReadOnly(folder_.write(scratchName(kEnded, 7), "half a file"));
    folder_.folder(u"Autre");
    folder_.write(u"Autre\\" + scratchName(kEnded, 0), "elsewhere");
    for (const char16_t* name : {u"~Brivantole12.tmp.mp3", u"~Brivantole4000000001-0.tmp",
                                 u"~brivantole4000000001x.tmp", u"a.mp3"})
        folder_.write(name, "mine");
    remove();
    EXPECT_EQ(names(), (Names{u"Autre", u"a.mp3", u"~Brivantole12.tmp.mp3",
                              u"~Brivantole4000000001-0.tmp", u"~brivantole4000000001x.tmp"}));
    EXPECT_EQ(names(u"Autre"), Names{scratchName(kEnded, 0)});
}

TEST_F(AbandonedScratchTest, FoldersGoWithTheFilesUnderWay) {
    const std::u16string name = scratchName(kEnded, 1);
    folder_.folder(name);
    folder_.write(name + u"\\" + scratchName(kEnded, 2), "half a file");
    makeReadOnly(folder_.write(name + u"\\" + scratchName(kEnded, 3), "half a file"));
    folder_.folder(scratchName(kEnded, 4));
    remove();
    EXPECT_EQ(names(), Names{});
}

TEST_F(AbandonedScratchTest, InAFolderOnlyItsOwnFilesGo) {
    const std::u16string name = scratchName(kEnded, 1);
    const std::u16string other = scratchName(kEnded + 4, 2);
    const std::u16string inner = scratchName(kEnded, 3);
    folder_.folder(name);
    folder_.write(name + u"\\" + scratchName(kEnded, 2), "half a file");
    folder_.write(name + u"\\" + other, "another's");
    folder_.write(name + u"\\à moi.txt", "mine");
    folder_.folder(name + u"\\" + inner);
    folder_.write(name + u"\\" + inner + u"\\" + scratchName(kEnded, 4), "deeper");
    remove();
    EXPECT_EQ(names(name), (Names{inner, other, u"à moi.txt"}));
    EXPECT_EQ(names(name + u"\\" + inner), Names{scratchName(kEnded, 4)});
}

TEST_F(AbandonedScratchTest, LinksAreNotFollowed) {
    const std::u16string elsewhere = folder_.folder(u"Autre");
    folder_.write(u"Autre\\" + scratchName(kEnded, 2), "elsewhere");
    const std::u16string link = scratchName(kEnded, 1);
    if (!testing_win32::makeFolderLink(folder_.file(link), elsewhere))
        GTEST_SKIP() << "no links here";
    remove();
    EXPECT_EQ(names(), (Names{u"Autre", link}));
    EXPECT_EQ(names(u"Autre"), Names{scratchName(kEnded, 2)});
}

TEST_F(AbandonedScratchTest, WhatARunningProgramHasUnderWayStays) {
    const RunningProcess running;
    const std::u16string name = scratchName(running.number(), 1);
    const std::u16string inner = scratchName(running.number(), 2);
    folder_.folder(name);
    folder_.write(name + u"\\" + inner, "under way");
    folder_.write(inner, "under way");
    remove();
    EXPECT_EQ(names().size(), 2U);
    EXPECT_EQ(names(name), Names{inner});
}

TEST_F(AbandonedScratchTest, WhatAnEarlierProcessOfThisNumberLeftGoes) {
    const std::u16string name = scratchName(GetCurrentProcessId(), 1);
    folder_.folder(name);
    folder_.write(name + u"\\" + scratchName(GetCurrentProcessId(), 2), "half a file");
    folder_.write(scratchName(GetCurrentProcessId(), 3), "half a file");
    remove();
    EXPECT_EQ(names(), Names{});
}

TEST_F(AbandonedScratchTest, AFolderThatIsNotThereIsNone) {
    removeAbandonedScratch(folder_.file(u"X") + u"\\");
    EXPECT_EQ(names(), Names{});
}

}  // namespace
}  // namespace platform::win32
