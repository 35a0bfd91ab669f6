#include "base/textfile.h"

#include "gtest/gtest.h"

namespace base {
namespace {

using Lines = std::vector<std::u16string>;

const CodePage& codePage = CodePage::windows1252();

TEST(EncodeLines, EndsEveryLineWithCrLf) {
    EXPECT_EQ(encodeLines({u"Été", u"", u"€"}, codePage), "\xC9t\xE9\r\n\r\n\x80\r\n");
    EXPECT_EQ(encodeLines({}, codePage), "");
}

TEST(EncodeLines, WritesTheWholeFileInUtf8WhenACharacterIsLacking) {
    EXPECT_EQ(encodeLines({u"é", u"ж"}, codePage), "\xEF\xBB\xBF\xC3\xA9\r\n\xD0\xB6\r\n");
}

TEST(EncodeLines, NeverLooksLikeWhatItIsNot) {
    const Lines lines = {u"ï»¿é"};
    const std::string bytes = encodeLines(lines, codePage);
    EXPECT_EQ(bytes, "\xEF\xBB\xBF\xC3\xAF\xC2\xBB\xC2\xBF\xC3\xA9\r\n");
    EXPECT_EQ(splitLines(decodeText(bytes, codePage)), lines);
}

TEST(DecodeText, ReadsBothForms) {
    EXPECT_EQ(decodeText("\xC9t\xE9", codePage), u"Été");
    EXPECT_EQ(decodeText("\xEF\xBB\xBF\xC3\x89t\xC3\xA9", codePage), u"Été");
    EXPECT_EQ(decodeText("\xEF\xBB", codePage), u"ï»");
    EXPECT_EQ(decodeText("", codePage), u"");
}

TEST(DecodeText, ReadsBackEveryCharacterAlone) {
    for (unsigned code = 0; code < 0x10000; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        const std::u16string text = {static_cast<char16_t>(code)};
        ASSERT_EQ(decodeText(encodeText(text, codePage), codePage), text) << std::hex << code;
    }
}

TEST(EncodeText, AddsNoLineEnd) {
    EXPECT_EQ(encodeText(u"a\r\nb", codePage), "a\r\nb");
}

TEST(SplitLines, CutsAtEveryKindOfLineEnd) {
    EXPECT_EQ(splitLines(u"a\r\nb\nc\rd"), (Lines{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(splitLines(u"\n\r"), (Lines{u"", u""}));
}

TEST(SplitLines, OpensNoLineAfterAFinalLineEnd) {
    EXPECT_EQ(splitLines(u"a\r\n"), Lines{u"a"});
    EXPECT_EQ(splitLines(u"a\r\n\r\n"), (Lines{u"a", u""}));
    EXPECT_EQ(splitLines(u""), Lines{});
}

}  // namespace
}  // namespace base
