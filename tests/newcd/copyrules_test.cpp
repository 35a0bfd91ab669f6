#include "newcd/copyrules.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace newcd {
namespace {

// Settings with these extensions, all of them copied.
catalogue::Settings settingsWith(std::initializer_list<const char16_t*> extensions) {
    catalogue::Settings settings;
    settings.NbExtensions = -1;
    for (const char16_t* extension : extensions) {
        settings.ExtensionList(++settings.NbExtensions) = extension;
        settings.ExtensionFlags(settings.NbExtensions, catalogue::copiedColumn) = 1;
    }
    return settings;
}

TEST(Rules, FollowTheSettings) {
    catalogue::Settings settings;
    EXPECT_EQ(catalogueRule(settings), CatalogueRule::CopyAll);
    EXPECT_EQ(duplicateRule(settings), DuplicateRule::CopyAll);
    settings.CopyOption1 = 1;
    settings.CopyOption2 = 2;
    EXPECT_EQ(catalogueRule(settings), CatalogueRule::SkipKnownTitle);
    EXPECT_EQ(duplicateRule(settings), DuplicateRule::OncePerTitleAndSize);
    settings.CopyOption1 = 2;
    settings.CopyOption2 = 1;
    EXPECT_EQ(catalogueRule(settings), CatalogueRule::SkipKnownTitleAndSize);
    EXPECT_EQ(duplicateRule(settings), DuplicateRule::OncePerTitle);
    settings.CopyOption1 = settings.CopyOption2 = 3;
    EXPECT_EQ(catalogueRule(settings), CatalogueRule::CopyAll);
    EXPECT_EQ(duplicateRule(settings), DuplicateRule::CopyAll);
}

TEST(TypeOfPath, IgnoresTheCaseOfThePath) {
    const auto settings = settingsWith({u"669", u"IT", u"MP3", u"WAV"});
    EXPECT_EQ(typeOfPath(settings, u"D:\\a.wav"), u"WAV");
    EXPECT_EQ(typeOfPath(settings, u"D:\\a.It"), u"IT");
}

TEST(TypeOfPath, LastMatchWins) {
    EXPECT_EQ(typeOfPath(settingsWith({u"669", u"MP3", u"P3"}), u"D:\\a.MP3"), u"P3");
    EXPECT_EQ(typeOfPath(settingsWith({u"669", u"P3", u"MP3"}), u"D:\\a.MP3"), u"MP3");
}

TEST(TypeOfPath, FirstTypeCountsForLackOfALaterMatch) {
    EXPECT_EQ(typeOfPath(settingsWith({u"669", u"IT"}), u"D:\\a.669"), u"669");
    EXPECT_EQ(typeOfPath(settingsWith({u"669", u"9"}), u"D:\\a.669"), u"9");
}

TEST(TypeOfPath, IsEmptyWhenNothingMatches) {
    EXPECT_EQ(typeOfPath(settingsWith({u"669", u"IT"}), u"D:\\a.xm"), u"");
    EXPECT_EQ(typeOfPath(settingsWith({u"669"}), u"9"), u"");
    EXPECT_EQ(typeOfPath(settingsWith({}), u"D:\\a.mp3"), u"");
}

TEST(TypesAllowCopy, UnlessAMatchingTypeIsOff) {
    auto settings = settingsWith({u"669", u"IT", u"WAV"});
    EXPECT_TRUE(typesAllowCopy(settings, u"D:\\a.wav"));
    settings.ExtensionFlags(2, catalogue::copiedColumn) = 0;
    settings.ExtensionFlags(2, catalogue::shownColumn) = 1;
    EXPECT_FALSE(typesAllowCopy(settings, u"D:\\a.wav"));
    EXPECT_TRUE(typesAllowCopy(settings, u"D:\\a.it"));
}

TEST(TypesAllowCopy, AnyMatchingTypeThatIsOffRefuses) {
    for (const int off : {1, 2}) {
        auto settings = settingsWith({u"669", u"MP3", u"P3"});
        settings.ExtensionFlags(off, catalogue::copiedColumn) = 0;
        EXPECT_FALSE(typesAllowCopy(settings, u"D:\\a.mp3")) << off;
    }
}

TEST(TypesAllowCopy, FirstTypeIsNeverTested) {
    auto settings = settingsWith({u"669", u"IT"});
    settings.ExtensionFlags(0, catalogue::copiedColumn) = 0;
    EXPECT_TRUE(typesAllowCopy(settings, u"D:\\a.669"));
}

TEST(TypesAllowCopy, UnknownTypesPass) {
    EXPECT_TRUE(typesAllowCopy(settingsWith({u"669", u"IT"}), u"D:\\a.xyz"));
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
