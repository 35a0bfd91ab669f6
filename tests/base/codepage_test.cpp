#include "base/codepage.h"

#include <numeric>

#include "gtest/gtest.h"

namespace base {
namespace {

std::string allBytes() {
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

TEST(CodePage, DecodesTheLatin1PartOf1252AsItStands) {
    const CodePage& codePage = CodePage::windows1252();
    for (unsigned byte = 0; byte < 256; ++byte) {
        if (byte >= 0x80 && byte < 0xA0) continue;
        EXPECT_EQ(codePage.decode(static_cast<uint8_t>(byte)), static_cast<char16_t>(byte));
    }
}

TEST(CodePage, DecodesThe32SpecialBytesOf1252) {
    const std::u16string expected = u"€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ";
    EXPECT_EQ(CodePage::windows1252().decode(std::string_view(allBytes()).substr(0x80, 32)),
              expected);
}

TEST(CodePage, GivesEveryByteBack) {
    const CodePage& codePage = CodePage::windows1252();
    EXPECT_EQ(codePage.encode(codePage.decode(allBytes())), allBytes());
}

TEST(CodePage, LacksWhatHasNoByteOfItsOwn) {
    const CodePage& codePage = CodePage::windows1252();
    // Best fit would write "Ā" as "A" and the full-width letter as "A".
    const std::u16string_view lacking = u"Āжα中Ａ\u0080\u0085\u2010\uFFFD";
    for (const char16_t character : lacking)
        EXPECT_FALSE(codePage.encode(character).has_value());
    EXPECT_FALSE(codePage.encode(u"Été ж").has_value());
    EXPECT_EQ(codePage.encode(u"Été"), "\xC9t\xE9");
    EXPECT_EQ(codePage.encode(u""), "");
}

TEST(CodePage, WritesTheLowerOfTwoBytesWithOneCharacter) {
    std::array<char16_t, 256> table{};
    for (size_t byte = 0; byte < table.size(); ++byte)
        table[byte] = static_cast<char16_t>(byte);
    table[200] = u'A';
    const CodePage codePage(table);
    EXPECT_EQ(codePage.encode(u'A'), uint8_t{'A'});
    EXPECT_EQ(codePage.decode(uint8_t{200}), u'A');
}

}  // namespace
}  // namespace base
