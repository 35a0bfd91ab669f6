#include "scan/titlefilter.h"

#include <gtest/gtest.h>

#include "base/codepage.h"

namespace {

using scan::FilterTitle;

// Whether the filter lets a character of a title through unchanged.
bool isKept(char16_t character) {
    return FilterTitle(u"A" + std::u16string(1, character) + u"Z") ==
           u"A" + std::u16string(1, character) + u"Z";
}

TEST(FilterTitle, KeepsExactlyTheAllowedCharactersOfTheCodePage) {
    const std::u16string allowed =
        u"!#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]`"
        u"abcdefghijklmnopqrstuvwxyz{}~€§¨©ª«\u00AD®°±²³´µ·¸¹º»¼½¾¿"
        u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþ";
    ASSERT_EQ(allowed.size(), 176u);
    const base::CodePage& codePage = base::CodePage::windows1252();
    for (int byte = 0; byte < 256; ++byte) {
        const char16_t character = codePage.decode(static_cast<uint8_t>(byte));
        const bool expected = allowed.find(character) != std::u16string::npos;
        // A space becomes a space.
        EXPECT_EQ(isKept(character), expected || character == u' ') << "byte " << byte;
    }
}

TEST(FilterTitle, TurnsEverythingElseIntoSpaces) {
    for (const char16_t character : {u'^', u'_', u'|', u'\0', u'\x1F', u'\x7F', u'¡', u'¦', u'¬',
                                     u'¯', u'¶', u'ÿ', u'Œ', u'\u2019', u'\u4E16'}) {
        EXPECT_EQ(FilterTitle(u"A" + std::u16string(1, character) + u"Z"), u"A Z")
            << static_cast<int>(character);
    }
}

TEST(FilterTitle, TurnsDoubleQuotationMarksIntoApostrophes) {
    EXPECT_EQ(FilterTitle(u"the \"best\""), u"The 'best'");
}

TEST(FilterTitle, KeepsRunsOfSpacesInside) {
    EXPECT_EQ(FilterTitle(u"a__^b"), u"A   b");
}

TEST(FilterTitle, TrimsAfterReplacing) {
    EXPECT_EQ(FilterTitle(u"__hello_world__"), u"Hello world");
}

TEST(FilterTitle, BeginsInUpperCase) {
    EXPECT_EQ(FilterTitle(u"éa"), u"Éa");
    EXPECT_EQ(FilterTitle(u"1a"), u"1a");
}

TEST(FilterTitle, MayLeaveNothing) {
    EXPECT_EQ(FilterTitle(u""), u"");
    EXPECT_EQ(FilterTitle(u"___"), u"");
}

}  // namespace
