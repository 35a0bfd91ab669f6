#include "scan/tracklistfile.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "tests/fakes/memoryfilesystem.h"

namespace {

using base::CodePage;
using fakes::MemoryFileSystem;
using Step = MemoryFileSystem::Step;

constexpr std::u16string_view kList = u"C:\\App\\tmp.tmp";

class TrackListFile : public testing::Test {
  protected:
    TrackListFile() { files_.addFolder(u"C:\\App"); }

    std::vector<std::u16string> readBack() {
        scan::TrackListReader reader(files_, kList, CodePage::windows1252());
        std::vector<std::u16string> lines;
        for (std::u16string line; reader.next(line);)
            lines.push_back(line);
        return lines;
    }

    MemoryFileSystem files_;
};

TEST_F(TrackListFile, WritesEachLineAtOnceInTheCodePage) {
    scan::TrackListWriter writer(files_, kList, CodePage::windows1252());
    EXPECT_EQ(files_.content(kList), "");
    writer.writeLine(u"D:\\été.mp3");
    EXPECT_EQ(files_.content(kList), "D:\\\xE9t\xE9.mp3\r\n");
    writer.writeLine(u"D:\\b.mp3");
    EXPECT_EQ(files_.content(kList), "D:\\\xE9t\xE9.mp3\r\nD:\\b.mp3\r\n");
    EXPECT_EQ(readBack(), (std::vector<std::u16string>{u"D:\\été.mp3", u"D:\\b.mp3"}));
}

TEST_F(TrackListFile, ReplacesAnOlderList) {
    files_.addFile(kList, "D:\\old.mp3\r\n");
    scan::TrackListWriter writer(files_, kList, CodePage::windows1252());
    EXPECT_EQ(files_.content(kList), "");
}

TEST_F(TrackListFile, TurnsWhollyIntoUtf8WithTheFirstNameThatTheCodePageLacks) {
    scan::TrackListWriter writer(files_, kList, CodePage::windows1252());
    writer.writeLine(u"D:\\été.mp3");
    writer.writeLine(u"D:\\\u97F3\u697D.mp3");
    writer.writeLine(u"D:\\fin.mp3");
    writer.writeLine(u"D:\\\U0001F3B5.mp3");
    EXPECT_EQ(files_.content(kList),
              "\xEF\xBB\xBF"
              "D:\\\xC3\xA9t\xC3\xA9.mp3\r\n"
              "D:\\\xE9\x9F\xB3\xE6\xA5\xBD.mp3\r\n"
              "D:\\fin.mp3\r\n"
              "D:\\\xF0\x9F\x8E\xB5.mp3\r\n");
    EXPECT_EQ(readBack(), (std::vector<std::u16string>{u"D:\\été.mp3", u"D:\\\u97F3\u697D.mp3",
                                                       u"D:\\fin.mp3", u"D:\\\U0001F3B5.mp3"}));
}

TEST_F(TrackListFile, KeepsEveryLineWhenTurningIntoUtf8FailsAndIsTriedAgain) {
    const base::Error full(base::ErrorNumber::DiskFull, u"Disque plein.");
    scan::TrackListWriter writer(files_, kList, CodePage::windows1252());
    writer.writeLine(u"D:\\a.mp3");
    for (const Step step : {Step::Read, Step::CreateOutput, Step::Write})
        files_.fail(step, kList, full);
    for (int failures = 0; failures < 3; ++failures)
        EXPECT_THROW(writer.writeLine(u"D:\\\u97F3.mp3"), base::Error);
    writer.writeLine(u"D:\\\u97F3.mp3");
    EXPECT_EQ(readBack(), (std::vector<std::u16string>{u"D:\\a.mp3", u"D:\\\u97F3.mp3"}));
}

TEST_F(TrackListFile, ReadsAnEmptyList) {
    files_.addFile(kList, "");
    EXPECT_TRUE(readBack().empty());
}

TEST_F(TrackListFile, ReadsLinesAcrossBlocksAndLongerThanOne) {
    std::vector<std::u16string> written;
    scan::TrackListWriter writer(files_, kList, CodePage::windows1252());
    for (size_t length : {65533u, 1u, 65536u, 200000u, 65535u, 30000u, 30000u, 30000u}) {
        written.emplace_back(length, u'a');
        writer.writeLine(written.back());
    }
    EXPECT_EQ(readBack(), written);
}

TEST_F(TrackListFile, ReadsCharactersOfSeveralBytesAcrossBlocks) {
    std::vector<std::u16string> written;
    scan::TrackListWriter writer(files_, kList, CodePage::windows1252());
    for (size_t line = 0; line < 300; ++line) {
        written.emplace_back(301, u'\u97F3');
        writer.writeLine(written.back());
    }
    EXPECT_EQ(readBack(), written);
}

TEST_F(TrackListFile, ReadsALastLineOnlyWhenItIsComplete) {
    files_.addFile(kList, "D:\\a.mp3\r\nD:\\b.m");
    EXPECT_EQ(readBack(), std::vector<std::u16string>{u"D:\\a.mp3"});
}

TEST_F(TrackListFile, ReportsAMissingList) {
    EXPECT_THROW(scan::TrackListReader(files_, kList, CodePage::windows1252()), base::Error);
}

}  // namespace
