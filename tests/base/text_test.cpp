#include "base/text.h"

#ifdef _WIN32
#include <windows.h>
#endif

#include "gtest/gtest.h"

namespace base {
namespace {

TEST(Trim, TakesSpacesAloneOffBothEnds) {
    EXPECT_EQ(trim(u"  a b  "), u"a b");
    EXPECT_EQ(trim(u"a"), u"a");
    EXPECT_EQ(trim(u"   "), u"");
    EXPECT_EQ(trim(u""), u"");
    EXPECT_EQ(trim(u"\t a\u00A0"), u"\t a\u00A0");
}

TEST(Upper, MapsAsciiLettersAlone) {
    EXPECT_EQ(upper(u"@az[`AZ{09.mp3"), u"@AZ[`AZ{09.MP3");
}

TEST(Upper, MapsLatin1) {
    EXPECT_EQ(upper(u"àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ"), u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ");
    EXPECT_EQ(upper(u"÷×ªº"), u"÷×ªº");
    EXPECT_EQ(upper(u"ÿ"), u"Ÿ");
    EXPECT_EQ(upper(u"ß"), u"ß");
}

TEST(Upper, KeepsWhatWouldNotComeBack) {
    EXPECT_EQ(upper(u"µıſς"), u"µıſς");
}

TEST(Upper, MapsOtherScripts) {
    EXPECT_EQ(upper(u"œšž"), u"ŒŠŽ");
    EXPECT_EQ(upper(u"αβγωάϊ"), u"ΑΒΓΩΆΪ");
    EXPECT_EQ(upper(u"абвяёђ"), u"АБВЯЁЂ");
    EXPECT_EQ(upper(u"աև"), u"Աև");
    EXPECT_EQ(upper(u"ａｚ"), u"ＡＺ");
}

TEST(Upper, KeepsCharactersWithoutCase) {
    EXPECT_EQ(upper(u"中文 \U0001F600\uFFFF"), u"中文 \U0001F600\uFFFF");
}

TEST(Upper, IsItsOwnUpperCase) {
    for (unsigned code = 0; code < 0x10000; ++code) {
        const char16_t once = upper(static_cast<char16_t>(code));
        ASSERT_EQ(upper(once), once) << std::hex << code;
    }
}

#ifdef _WIN32
// Up to Cyrillic every version of the system has the same mappings.
TEST(Upper, AgreesWithTheSystem) {
    for (uintptr_t code = 0; code < 0x530; ++code) {
        const auto system = reinterpret_cast<uintptr_t>(CharUpperW(reinterpret_cast<LPWSTR>(code)));
        ASSERT_EQ(static_cast<uintptr_t>(upper(static_cast<char16_t>(code))), system)
            << std::hex << code;
    }
}
#endif

TEST(UpperFirst, ChangesTheFirstCharacterAlone) {
    EXPECT_EQ(upperFirst(u"winamp"), u"Winamp");
    EXPECT_EQ(upperFirst(u"éCoUTE"), u"ÉCoUTE");
    EXPECT_EQ(upperFirst(u" a"), u" a");
    EXPECT_EQ(upperFirst(u""), u"");
}

TEST(Utf8, WritesEveryLength) {
    EXPECT_EQ(toUtf8(u"A\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"),
              "A\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST(Utf8, ReadsBackWhatItWrote) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        std::u16string text;
        if (code < 0x10000) {
            text = {static_cast<char16_t>(code)};
        } else {
            text = {static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)),
                    static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF))};
        }
        ASSERT_EQ(fromUtf8(toUtf8(text)), text) << std::hex << static_cast<uint32_t>(code);
    }
}

TEST(Utf8, ReplacesLoneSurrogates) {
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(toUtf8(u"a\xD800"), "a" + replacement);
    EXPECT_EQ(toUtf8(u"\xDC00z"), replacement + "z");
    EXPECT_EQ(toUtf8(u"\xD800\xD800\xDC00"), replacement + "\xF0\x90\x80\x80");
}

TEST(Utf8, ReplacesEachMalformedByte) {
    EXPECT_EQ(fromUtf8("a\x80z"), u"a\uFFFDz");
    EXPECT_EQ(fromUtf8("\xC3"), u"\uFFFD");
    EXPECT_EQ(fromUtf8("\xC3z"), u"\uFFFDz");
    EXPECT_EQ(fromUtf8("\xE2\x82"), u"\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("\xFF\xFE"), u"\uFFFD\uFFFD");
    // Overlong forms, a surrogate, and a code point beyond the last.
    EXPECT_EQ(fromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("\xF0\x80\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(fromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Right, TakesAllOfAShorterText) {
    EXPECT_EQ(right(u"abc", 2), u"bc");
    EXPECT_EQ(right(u"abc", 3), u"abc");
    EXPECT_EQ(right(u"abc", 4), u"abc");
    EXPECT_EQ(right(u"abc", 0), u"");
}

TEST(Find, FindsTheFirstAtEveryPlace) {
    for (size_t length = 0; length < 70; ++length) {
        std::u16string text(length, u'a');
        EXPECT_EQ(find(text, u'"'), std::u16string::npos);
        EXPECT_EQ(find(text, u'"', length), std::u16string::npos);
        for (size_t place = 0; place < length; ++place) {
            text.assign(length, u'a');
            text[place] = u'"';
            text.back() = u'"';
            EXPECT_EQ(find(text, u'"'), place);
            EXPECT_EQ(find(text, u'"', place), place);
            const size_t behind = place + 1 < length ? length - 1 : std::u16string::npos;
            EXPECT_EQ(find(text, u'"', place + 1), behind);
        }
    }
}

TEST(Quoted, DoublesInnerQuotationMarks) {
    EXPECT_EQ(quoted(u"Rock 1"), u"\"Rock 1\"");
    EXPECT_EQ(quoted(u""), u"\"\"");
    EXPECT_EQ(quoted(u"7\" single\""), u"\"7\"\" single\"\"\"");
    EXPECT_EQ(quoted(u"l'été"), u"\"l'été\"");
    std::u16string query = u"Nom=";
    appendQuoted(query, u"7\" single");
    EXPECT_EQ(query, u"Nom=\"7\"\" single\"");
}

}  // namespace
}  // namespace base
