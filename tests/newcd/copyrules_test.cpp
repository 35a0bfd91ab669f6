#include "newcd/copyrules.h"

#include <gtest/gtest.h>

#include <vector>

namespace newcd {
namespace {

const std::vector<std::u16string> TYPES{u"669", u"IT", u"MP3", u"WAV", u"P3"};

TEST(TypeOfPath, IgnoresTheCaseOfThePath) {
    EXPECT_EQ(typeOfPath(TYPES, u"D:\\a.wav"), u"WAV");
    EXPECT_EQ(typeOfPath(TYPES, u"D:\\a.It"), u"IT");
}

TEST(TypeOfPath, LastMatchWins) {
    EXPECT_EQ(typeOfPath(TYPES, u"D:\\a.MP3"), u"P3");
}

TEST(TypeOfPath, FirstTypeCountsForLackOfALaterMatch) {
    EXPECT_EQ(typeOfPath(TYPES, u"D:\\a.669"), u"669");
    const std::vector<std::u16string> both{u"669", u"9"};
    EXPECT_EQ(typeOfPath(both, u"D:\\a.669"), u"9");
}

TEST(TypeOfPath, IsEmptyWhenNothingMatches) {
    EXPECT_EQ(typeOfPath(TYPES, u"D:\\a.xm"), u"");
    EXPECT_EQ(typeOfPath({}, u"D:\\a.mp3"), u"");
    EXPECT_EQ(typeOfPath(TYPES, u"9"), u"");
}

class TypesAllowCopy : public testing::Test {
  protected:
    // Column 0 is the main window's and has no say here.
    std::vector<std::array<uint8_t, 2>> flags{{0, 1}, {0, 1}, {0, 1}, {0, 1}, {0, 1}};
};

TEST_F(TypesAllowCopy, UnlessAMatchingTypeIsOff) {
    EXPECT_TRUE(typesAllowCopy(TYPES, flags, u"D:\\a.wav"));
    flags[3] = {1, 0};
    EXPECT_FALSE(typesAllowCopy(TYPES, flags, u"D:\\a.wav"));
    EXPECT_TRUE(typesAllowCopy(TYPES, flags, u"D:\\a.it"));
}

TEST_F(TypesAllowCopy, AnyMatchingTypeThatIsOffRefuses) {
    flags[2][1] = 0;
    EXPECT_FALSE(typesAllowCopy(TYPES, flags, u"D:\\a.mp3"));
    flags[2][1] = 1;
    flags[4][1] = 0;
    EXPECT_FALSE(typesAllowCopy(TYPES, flags, u"D:\\a.mp3"));
}

TEST_F(TypesAllowCopy, FirstTypeIsNeverTested) {
    flags[0][1] = 0;
    EXPECT_TRUE(typesAllowCopy(TYPES, flags, u"D:\\a.669"));
}

TEST_F(TypesAllowCopy, UnknownTypesPass) {
    EXPECT_TRUE(typesAllowCopy(TYPES, flags, u"D:\\a.xyz"));
}

TEST(MatchesFilterText, LooksInTitleThenPath) {
    EXPECT_TRUE(matchesFilterText(u"", u"", u""));
    EXPECT_TRUE(matchesFilterText(u"INTRO", u"Une intro", u"D:\\a.mp3"));
    EXPECT_TRUE(matchesFilterText(u"ALBUM", u"Une intro", u"D:\\Album\\a.mp3"));
    EXPECT_TRUE(matchesFilterText(u"TROD:", u"Intro", u"D:\\a.mp3"));
    EXPECT_TRUE(matchesFilterText(u"ÉTÉ", u"L'été", u"D:\\a.mp3"));
    EXPECT_FALSE(matchesFilterText(u"INTROS", u"Une intro", u"D:\\a.mp3"));
}

TEST(MatchesFilterText, WildcardsMeanThemselvesHere) {
    EXPECT_FALSE(matchesFilterText(u"A*C", u"ABC", u""));
    EXPECT_TRUE(matchesFilterText(u"A*C", u"a*c", u""));
}

TEST(Queries, OfTheSearch) {
    EXPECT_EQ(knownTitleQuery(u"MP3", u"Intro"),
              u"SELECT * from Listdonnees where(Type=\"MP3\")  and Nom=\"Intro\"");
    EXPECT_EQ(knownTitleAndSizeQuery(u"MP3", u"Intro", 4096),
              u"SELECT * from Listdonnees where(Type=\"MP3\")  and Nom=\"Intro\" and Taille=4096");
}

TEST(Queries, OfTheCatalogueRule) {
    EXPECT_EQ(catalogueRuleQuery(CatalogueRule::SkipKnownTitle, u"MP3", u"", u"Intro", 4096),
              u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\")  and (Nom=\"Intro\")");
    EXPECT_EQ(
        catalogueRuleQuery(CatalogueRule::SkipKnownTitleAndSize, u"MP3", u"", u"Intro", 4096),
        u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\")  and (Nom=\"Intro\") And (taille=4096)");
}

TEST(Queries, OfTheCatalogueRuleWithAFilterText) {
    EXPECT_EQ(catalogueRuleQuery(CatalogueRule::SkipKnownTitle, u"MP3", u"ROCK", u"Intro", 4096),
              u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\") and (Nom LIKE \"*ROCK*\" or Fichier "
              u"LIKE \"*ROCK*\") and (Nom=\"Intro\")");
    EXPECT_EQ(
        catalogueRuleQuery(CatalogueRule::SkipKnownTitleAndSize, u"MP3", u"ROCK", u"Intro", 0),
        u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\") and (Nom LIKE \"*ROCK*\" or Fichier LIKE "
        u"\"*ROCK*\") and (Nom=\"Intro\") And (taille=0)");
}

TEST(Queries, OfTheDuplicateRule) {
    EXPECT_EQ(duplicateRuleQuery(DuplicateRule::OncePerTitle, u"Intro", 4096),
              u"SELECT * FROM Listdonnees WHERE (Type=\"T\")  and (Nom=\"Intro\")");
    EXPECT_EQ(
        duplicateRuleQuery(DuplicateRule::OncePerTitleAndSize, u"Intro", 4096),
        u"SELECT * FROM Listdonnees WHERE (Type=\"T\")  and (Nom=\"Intro\") And (taille=4096)");
}

TEST(Queries, OfTheMarkers) {
    EXPECT_EQ(markersQuery(), u"SELECT * FROM Listdonnees WHERE Type=\"T\"");
}

TEST(Queries, DoubleAQuotationMarkSoThatNoTitleBreaksThem) {
    EXPECT_EQ(knownTitleQuery(u"MP3", u"Le \"Live\""),
              u"SELECT * from Listdonnees where(Type=\"MP3\")  and Nom=\"Le \"\"Live\"\"\"");
    EXPECT_EQ(duplicateRuleQuery(DuplicateRule::OncePerTitle, u"\"", 1),
              u"SELECT * FROM Listdonnees WHERE (Type=\"T\")  and (Nom=\"\"\"\")");
}

TEST(Queries, WriteSizesBeyondFourGigabytesInFull) {
    EXPECT_EQ(duplicateRuleQuery(DuplicateRule::OncePerTitleAndSize, u"a", 5'000'000'000),
              u"SELECT * FROM Listdonnees WHERE (Type=\"T\")  and (Nom=\"a\") And "
              u"(taille=5000000000)");
}

}  // namespace
}  // namespace newcd
