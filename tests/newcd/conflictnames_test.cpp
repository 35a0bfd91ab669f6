#include "newcd/conflictnames.h"

#include <gtest/gtest.h>

#include <string>

namespace newcd {
namespace {

TEST(ProposedName, InsertsTwoBeforeTheLastDot) {
    EXPECT_EQ(proposedName(u"titre.mp3"), u"titre 2.mp3");
    EXPECT_EQ(proposedName(u"a.b.c.mp3"), u"a.b.c 2.mp3");
    EXPECT_EQ(proposedName(u".mp3"), u" 2.mp3");
    EXPECT_EQ(proposedName(u"fin."), u"fin 2.");
}

TEST(ProposedName, ChainsForANameThatIsTakenToo) {
    EXPECT_EQ(proposedName(proposedName(u"titre.mp3")), u"titre 2 2.mp3");
}

TEST(ProposedName, GoesToTheEndOfANameWithoutADot) {
    EXPECT_EQ(proposedName(u"titre"), u"titre 2");
    EXPECT_EQ(proposedName(u""), u" 2");
}

TEST(CanAcceptName, NeedsMoreThanBlanks) {
    EXPECT_FALSE(canAcceptName(u""));
    EXPECT_FALSE(canAcceptName(u"   "));
    EXPECT_TRUE(canAcceptName(u" a "));
    EXPECT_TRUE(canAcceptName(u"\t"));
}

TEST(IsUsableName, RefusesEachCharacterThatTypingCannotMake) {
    for (const char16_t character : std::u16string_view(u"\\/:*?<>|\"")) {
        EXPECT_FALSE(isUsableName(std::u16string(u"a") + character + u"b.mp3"))
            << static_cast<char>(character);
    }
    EXPECT_FALSE(isUsableName(u"a\nb.mp3"));
    EXPECT_FALSE(isUsableName(u""));
    EXPECT_FALSE(isUsableName(u".."));
    EXPECT_FALSE(isUsableName(u"titre."));
}

TEST(IsUsableName, TakesEveryOther) {
    EXPECT_TRUE(isUsableName(u"titre 2.mp3"));
    EXPECT_TRUE(isUsableName(u"été à l'ombre [1] #%&'+,;=@.mp3"));
    EXPECT_TRUE(isUsableName(u"sans point"));
    EXPECT_TRUE(isUsableName(u"日本.mp3"));
}

}  // namespace
}  // namespace newcd
