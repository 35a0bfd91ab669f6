#include "scan/trackanalysis.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "tests/fakes/memoryfilesystem.h"

namespace {

using namespace std::string_literals;

using base::CodePage;
using fakes::MemoryFileSystem;

constexpr std::u16string_view kSkipped = u"@//erreur";

scan::TrackAnalysis analyse(MemoryFileSystem& files, std::u16string_view path) {
    return scan::AnalyseTrack(files, CodePage::windows1252(), path);
}

std::u16string titleOf(std::u16string_view path, std::string content) {
    MemoryFileSystem files;
    files.addFile(path, std::move(content));
    return analyse(files, path).TrackTitle;
}

std::string padded(std::string text, size_t size, char padding) {
    text.resize(size, padding);
    return text;
}

// An ID3v1 tag: 128 bytes.
std::string tag(const std::string& title, const std::string& artist, char padding = ' ') {
    return "TAG" + padded(title, 30, padding) + padded(artist, 30, padding) + std::string(65, '\0');
}

std::string mp3(const std::string& title, const std::string& artist, char padding = ' ') {
    return "\xFF\xFBsound" + tag(title, artist, padding);
}

TEST(AnalyseTrack, TakesTheSizeInBytes) {
    MemoryFileSystem files;
    files.addFile(u"D:\\a.mid", std::string(1234, 'x'));
    files.addFile(u"D:\\empty.mid", "");
    files.addSparseFile(u"D:\\huge.wav", uint64_t{5} << 32, "RIFF");
    EXPECT_EQ(analyse(files, u"D:\\a.mid").TrackSize, 1234);
    EXPECT_EQ(analyse(files, u"D:\\empty.mid").TrackSize, 0);
    EXPECT_EQ(analyse(files, u"D:\\huge.wav").TrackSize, int64_t{5} << 32);
}

TEST(AnalyseTrack, KeepsTheSizeOfASkippedFile) {
    MemoryFileSystem files;
    files.addFile(u"D:\\a.wav", "RIFX....");
    EXPECT_TRUE(analyse(files, u"D:\\a.wav").failed());
    EXPECT_EQ(analyse(files, u"D:\\a.wav").TrackSize, 8);
}

TEST(AnalyseTrack, SkipsAFileThatCannotBeOpened) {
    MemoryFileSystem files;
    EXPECT_EQ(analyse(files, u"D:\\gone.mp3").TrackTitle, kSkipped);
    EXPECT_EQ(analyse(files, u"D:\\gone.mp3").TrackSize, 0);
}

TEST(AnalyseTrack, SkipsAFileWhoseHeaderCannotBeRead) {
    MemoryFileSystem files;
    files.addFile(u"D:\\a.mp3", mp3("Abc", "X"));
    files.fail(MemoryFileSystem::Step::Read, u"D:\\a.mp3",
               base::Error(base::ErrorNumber::DeviceIo, u"Erreur de lecture."));
    EXPECT_EQ(analyse(files, u"D:\\a.mp3").TrackTitle, kSkipped);
    EXPECT_EQ(analyse(files, u"D:\\a.mp3").TrackTitle, u"Abc - X");
}

TEST(AnalyseTrackMp3, JoinsTitleAndArtist) {
    EXPECT_EQ(titleOf(u"D:\\a.mp3", mp3("Abc", "Xyz")), u"Abc - Xyz");
    EXPECT_EQ(titleOf(u"D:\\a.MP3", mp3("  abc ", " xyz")), u"Abc - xyz");
}

TEST(AnalyseTrackMp3, ReadsWholeFields) {
    EXPECT_EQ(titleOf(u"D:\\a.mp3", mp3(std::string(30, 't'), std::string(30, 'a'))),
              u"T" + std::u16string(29, u't') + u" - " + std::u16string(30, u'a'));
}

TEST(AnalyseTrackMp3, NamesABlankArtist) {
    EXPECT_EQ(titleOf(u"D:\\a.mp3", mp3("Abc", "")), u"Abc - Artiste inconnu");
}

TEST(AnalyseTrackMp3, NamesABlankTitle) {
    EXPECT_EQ(titleOf(u"D:\\a.mp3", mp3("", "X")), u"Titre inconnu - X");
}

TEST(AnalyseTrackMp3, TakesTheFileNameWhenBothAreBlank) {
    EXPECT_EQ(titleOf(u"D:\\A\\my_song.mp3", mp3("", "")), u"My_song");
}

TEST(AnalyseTrackMp3, TakesTheFileNameForAnUnknownTitleWithoutAnArtist) {
    EXPECT_EQ(titleOf(u"D:\\a.mp3", mp3("Titre inconnu", "")), u"A");
    EXPECT_EQ(titleOf(u"D:\\a.mp3", mp3("titre inconnu", "")), u"Titre inconnu - Artiste inconnu");
}

TEST(AnalyseTrackMp3, CountsZeroBytesAsCharactersUntilTheFilter) {
    EXPECT_EQ(titleOf(u"D:\\a.mp3", mp3("", "X", '\0')), u"- X");
    EXPECT_EQ(titleOf(u"D:\\a.mp3", mp3("Abc", "", '\0')),
              u"Abc" + std::u16string(28, u' ') + u"-");
    EXPECT_EQ(titleOf(u"D:\\a.mp3", mp3("", "", '\0')), u"-");
}

TEST(AnalyseTrackMp3, FiltersTheTitle) {
    EXPECT_EQ(titleOf(u"D:\\a.mp3", mp3("l'\"\xE9t\xE9\"_\x85", "\xC0 \x80")), u"L''été'   - À €");
}

TEST(AnalyseTrackMp3, TakesTheFileNameWithoutATag) {
    EXPECT_EQ(titleOf(u"D:\\song.mp3", std::string(500, 'x')), u"Song");
    EXPECT_EQ(titleOf(u"D:\\song.mp3", tag("Abc", "X") + "x"), u"Song");
    EXPECT_EQ(titleOf(u"D:\\song.mp3", "TAB" + tag("Abc", "X").substr(3)), u"Song");
    EXPECT_EQ(titleOf(u"D:\\song.mp3", "TBG" + tag("Abc", "X").substr(3)), u"Song");
    EXPECT_EQ(titleOf(u"D:\\song.mp3", "tAG" + tag("Abc", "X").substr(3)), u"Song");
}

TEST(AnalyseTrackMp3, TakesTheFileNameWhenTooShortForATag) {
    EXPECT_EQ(titleOf(u"D:\\song.mp3", ""), u"Song");
    EXPECT_EQ(titleOf(u"D:\\song.mp3", tag("Abc", "X").substr(0, 127)), u"Song");
    EXPECT_EQ(titleOf(u"D:\\song.mp3", tag("Abc", "X").substr(1)), u"Song");
}

TEST(AnalyseTrackMp3, FindsATagThatIsTheWholeFile) {
    EXPECT_EQ(titleOf(u"D:\\song.mp3", tag("Abc", "X")), u"Abc - X");
}

TEST(AnalyseTrackMp3, FindsTheTagAtTheEndOfAHugeFile) {
    MemoryFileSystem files;
    files.addSparseFile(u"D:\\a.mp3", (uint64_t{1} << 33) + 1, "\xFF\xFB", tag("Abc", "X"));
    EXPECT_EQ(analyse(files, u"D:\\a.mp3").TrackTitle, u"Abc - X");
}

TEST(AnalyseTrackMod, TakesTheFirstTwentyBytes) {
    EXPECT_EQ(titleOf(u"D:\\a.mod", "hello_world" + std::string(1000, '\0')), u"Hello world");
    EXPECT_EQ(titleOf(u"D:\\a.mod", "12345678901234567890XYZ"), u"12345678901234567890");
    EXPECT_EQ(titleOf(u"D:\\a.mod", "ab\0cd"s + std::string(20, 'x')), u"Ab");
}

TEST(AnalyseTrackMod, TakesTheFileNameForABlankTitle) {
    EXPECT_EQ(titleOf(u"D:\\my_song.mod", std::string(30, ' ')), u"My_song");
    EXPECT_EQ(titleOf(u"D:\\my_song.mod", std::string(30, '\0')), u"My_song");
    EXPECT_EQ(titleOf(u"D:\\my_song.mod", "  \0abc"s), u"My_song");
}

TEST(AnalyseTrackMod, SkipsAFileThatEndsInsideItsTitle) {
    EXPECT_EQ(titleOf(u"D:\\a.mod", ""), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\a.mod", "1234567890123456789"), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\a.mod", "12345678901234567890"), u"12345678901234567890");
    EXPECT_EQ(titleOf(u"D:\\a.mod", "abc\0"s), u"Abc");
}

TEST(AnalyseTrackMod, MayEndWithoutATitleWhenTheFilterLeavesNothing) {
    EXPECT_EQ(titleOf(u"D:\\a.mod", "___\0"s), u"");
}

TEST(AnalyseTrackS3m, TakesEverythingUpToTheFirstZeroByte) {
    EXPECT_EQ(titleOf(u"D:\\a.s3m", "a title of more than twenty-eight\0x"s),
              u"A title of more than twenty-eight");
    EXPECT_EQ(titleOf(u"D:\\my_song.s3m", "\0abc"s), u"My_song");
}

TEST(AnalyseTrackS3m, SkipsATitleOfMoreThanThirtyFiveCharacters) {
    EXPECT_EQ(titleOf(u"D:\\a.s3m", std::string(35, 'A') + '\0'), std::u16string(35, u'A'));
    EXPECT_EQ(titleOf(u"D:\\a.s3m", std::string(36, 'A') + '\0'), kSkipped);
}

TEST(AnalyseTrackS3m, CountsTheCharactersOfTheTrimmedTitle) {
    const std::string spaces(5000, ' ');
    EXPECT_EQ(titleOf(u"D:\\a.s3m", spaces + std::string(35, 'A') + spaces + '\0'),
              std::u16string(35, u'A'));
    EXPECT_EQ(titleOf(u"D:\\a.s3m", "A" + std::string(33, ' ') + "B" + '\0'),
              u"A" + std::u16string(33, u' ') + u"B");
    EXPECT_EQ(titleOf(u"D:\\a.s3m", "A" + std::string(34, ' ') + "B" + '\0'), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\a.s3m", "A" + spaces + "B" + '\0'), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\my_song.s3m", spaces + '\0'), u"My_song");
}

TEST(AnalyseTrackS3m, SkipsAFileWithoutAZeroByte) {
    EXPECT_EQ(titleOf(u"D:\\a.s3m", "abc"), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\a.s3m", ""), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\a.s3m", std::string(5000, ' ')), kSkipped);
}

TEST(AnalyseTrack669, TakesBytesFourToThirtyWithTheirZeroBytes) {
    EXPECT_EQ(titleOf(u"D:\\a.669", "if1abc" + std::string(24, ' ') + "xyz"), u"Abc");
    EXPECT_EQ(titleOf(u"D:\\a.669", "if " + std::string(27, 'T') + "xyz"),
              std::u16string(27, u'T'));
    EXPECT_EQ(titleOf(u"D:\\a.669", "if ab\0\0cd"s + std::string(21, '\0')), u"Ab  cd");
}

TEST(AnalyseTrack669, FieldOfZeroBytesIsNotBlank) {
    EXPECT_EQ(titleOf(u"D:\\my_song.669", "if" + std::string(28, '\0')), u"");
    EXPECT_EQ(titleOf(u"D:\\my_song.669", "if" + std::string(28, ' ')), u"My_song");
}

TEST(AnalyseTrack669, SkipsAFileThatEndsInsideItsTitle) {
    EXPECT_EQ(titleOf(u"D:\\a.669", "if" + std::string(27, 'a')), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\a.669", "if" + std::string(28, 'a')), u"A" + std::u16string(26, u'a'));
}

TEST(AnalyseTrackMdl, TakesBytesTwelveToFortyThree) {
    EXPECT_EQ(titleOf(u"D:\\a.mdl", "DMDL1234567title\0x"s + std::string(40, 'y')), u"Title");
    EXPECT_EQ(titleOf(u"D:\\a.mdl", "DMDL1234567" + std::string(32, 'T') + "xyz"),
              std::u16string(32, u'T'));
    EXPECT_EQ(titleOf(u"D:\\my_song.mdl", "DMDL1234567\0"s), u"My_song");
}

TEST(AnalyseTrackMdl, ChecksEachOfItsFourBytes) {
    for (size_t at = 0; at < 4; ++at) {
        std::string content = "DMDL1234567title" + std::string(40, '\0');
        content[at] = 'd';
        EXPECT_EQ(titleOf(u"D:\\a.mdl", content), kSkipped) << at;
    }
    EXPECT_EQ(titleOf(u"D:\\a.mdl", "DMD"), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\a.mdl", ""), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\a.mdl", "DMDL"), kSkipped);
}

TEST(AnalyseTrackWav, IsNamedAfterItsFileWhenItBeginsWithRiff) {
    EXPECT_EQ(titleOf(u"D:\\A\\my_song.wav", "RIFF"), u"My_song");
    EXPECT_EQ(titleOf(u"D:\\A\\my_song.Wav", "RIFF1234WAVE"), u"My_song");
}

TEST(AnalyseTrackWav, IsSkippedOtherwise) {
    for (size_t at = 0; at < 4; ++at) {
        std::string content = "RIFF1234WAVE";
        content[at] = 'r';
        EXPECT_EQ(titleOf(u"D:\\a.wav", content), kSkipped) << at;
    }
    EXPECT_EQ(titleOf(u"D:\\a.wav", "RIF"), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\a.wav", ""), kSkipped);
}

TEST(AnalyseTrackMidWma, IsNamedAfterItsFileUnchecked) {
    EXPECT_EQ(titleOf(u"C:\\A\\B\\my_song.mid", "anything"), u"My_song");
    EXPECT_EQ(titleOf(u"C:\\A\\B\\my_song.wma", ""), u"My_song");
}

TEST(AnalyseTrackIt, TakesEverythingFromTheFifthByteToAZeroByte) {
    EXPECT_EQ(titleOf(u"D:\\a.it", "IMPMtitle_of_it\0x"s), u"Title of it");
    EXPECT_EQ(titleOf(u"D:\\my_song.IT", "IMPM\0"s), u"My_song");
    EXPECT_EQ(titleOf(u"D:\\my_song.it", "IMPM  \0"s), u"My_song");
}

TEST(AnalyseTrackIt, HasNoLimitOfThirtyFiveCharacters) {
    EXPECT_EQ(titleOf(u"D:\\a.it", "IMPM" + std::string(70000, 'T') + '\0'),
              std::u16string(70000, u'T'));
}

TEST(AnalyseTrackIt, ChecksEachOfItsFourBytes) {
    for (size_t at = 0; at < 4; ++at) {
        std::string content = "IMPMtitle" + std::string(40, '\0');
        content[at] = 'i';
        EXPECT_EQ(titleOf(u"D:\\a.it", content), kSkipped) << at;
    }
    EXPECT_EQ(titleOf(u"D:\\a.it", "IMP"), kSkipped);
}

TEST(AnalyseTrackIt, SkipsAFileWithoutAZeroByte) {
    EXPECT_EQ(titleOf(u"D:\\a.it", "IMPMtitle"), kSkipped);
    EXPECT_EQ(titleOf(u"D:\\a.it", "IMPM" + std::string(3 << 20, 'T')), kSkipped);
}

TEST(AnalyseTrackXm, TakesBytesSeventeenToThirtySeven) {
    EXPECT_EQ(titleOf(u"D:\\a.xm", "Extended Module: " + padded("name", 20, ' ') + "\x1A"),
              u"Name");
    EXPECT_EQ(titleOf(u"D:\\a.xm", "Exte" + std::string(12, 'x') + std::string(21, 'T') + "yz"),
              std::u16string(21, u'T'));
    EXPECT_EQ(titleOf(u"D:\\a.xm", "Extended Module: na\0me"s + std::string(30, 'x')), u"Na");
    EXPECT_EQ(titleOf(u"D:\\my_song.xm", "Extended Module: \0"s), u"My_song");
}

TEST(AnalyseTrackXm, ChecksEachOfItsFourBytes) {
    for (size_t at = 0; at < 4; ++at) {
        std::string content = "Extended Module: name" + std::string(40, '\0');
        content[at] = '_';
        EXPECT_EQ(titleOf(u"D:\\a.xm", content), kSkipped) << at;
    }
    EXPECT_EQ(titleOf(u"D:\\a.xm", "Exte"), kSkipped);
}

TEST(AnalyseTrackOther, IsNamedAfterItsFile) {
    EXPECT_EQ(titleOf(u"D:\\my_song.mp2", ""), u"My_song");
    EXPECT_EQ(titleOf(u"D:\\my_song.flac", ""), u"My_song.flac");
    EXPECT_EQ(titleOf(u"D:\\my_song", ""), u"My_song");
    EXPECT_EQ(titleOf(u"D:\\kitxm", ""), u"Kitxm");
}

TEST(AnalyseTrack, TakesTitleBytesAsCharactersOfTheCodePage) {
    std::array<char16_t, 256> table{};
    for (size_t byte = 0; byte < table.size(); ++byte)
        table[byte] = static_cast<char16_t>(byte < 128 ? byte : byte + 1);
    MemoryFileSystem files;
    files.addFile(u"D:\\a.mod", "x\xE8\0"s);
    EXPECT_EQ(scan::AnalyseTrack(files, CodePage(table), u"D:\\a.mod").TrackTitle, u"Xé");
}

}  // namespace
