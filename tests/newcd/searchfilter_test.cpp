#include "newcd/searchfilter.h"

#include <gtest/gtest.h>

#include "tests/fakes/fakerunwindows.h"
#include "tests/newcd/runfixture.h"

namespace newcd {
namespace {

using Titles = std::vector<std::u16string>;

class SearchFilterTest : public RunFixture {
  protected:
    void search() { EXPECT_TRUE(filterForSearch(tools, run, window)); }
    fakes::FakeSearchWindow window;
};

TEST_F(SearchFilterTest, TellsNewFromKnownByTitleAndByTitleAndSize) {
    catalogue_.addRow(u"Connu", 100, u"MID");
    catalogue_.addRow(u"Identique", 200, u"MID");
    addTrack(u"Nouveau", u"E:\\1.mid", 1000);
    addTrack(u"Connu", u"E:\\2.mid", 2000);
    addTrack(u"Identique", u"E:\\3.mid", 200);
    search();
    EXPECT_EQ(window.list1, (Titles{u"Connu", u"Identique"}));
    EXPECT_EQ(window.list2, (Titles{u"Identique"}));
    EXPECT_EQ(run.tables.TrackFileTable(0, 0), u"E:\\2.mid");
    EXPECT_EQ(run.tables.TrackSizeTable(0, 0), 2000);
    EXPECT_EQ(run.tables.TrackFileTable(1, 0), u"E:\\3.mid");
    EXPECT_EQ(run.tables.TrackFileTable(0, 1), u"E:\\3.mid");
    EXPECT_EQ(run.tables.TrackSizeTable(0, 1), 200);
    EXPECT_EQ(run.tables.TrackFileTable(1, 1), u"");
    EXPECT_EQ(run.SizeSums, (std::array<int64_t, 4>{3200, 2200, 200, 0}));
    EXPECT_EQ(window.label(),
              u"Analyse terminée.\r\n\n"
              u"Méthode 1 : 1 nouveaux morceaux (1000 Octets) sur 3 - 2 morceaux déjà mémorisés "
              u"(2 Ko).\r\n"
              u"Méthode 2 : 2 nouveaux morceaux (3 Ko) sur 3 - 1 morceaux déjà mémorisés (200 "
              u"Octets).");
    EXPECT_EQ(run.SizeTexts, (std::array<std::u16string, 4>{u"3 Ko", u"2 Ko", u"200 Octets", u""}));
}

TEST_F(SearchFilterTest, TitleAndSizeMustAgreeInOneRow) {
    catalogue_.addRow(u"Connu", 100, u"MID");
    catalogue_.addRow(u"Autre", 2000, u"MID");
    addTrack(u"Connu", u"E:\\2.mid", 2000);
    search();
    EXPECT_EQ(window.list1, Titles{u"Connu"});
    EXPECT_TRUE(window.list2.empty());
}

TEST_F(SearchFilterTest, AnotherTypeIsAnotherTrack) {
    catalogue_.addRow(u"Connu", 100, u"MP3");
    addTrack(u"Connu", u"E:\\2.mid", 100);
    search();
    EXPECT_TRUE(window.list1.empty());
    EXPECT_EQ(window.list2.size(), 0U);
}

TEST_F(SearchFilterTest, TitlesIgnoreCaseAsTheCatalogueDoes) {
    catalogue_.addRow(u"L'ÉTÉ", 100, u"MID");
    addTrack(u"L'été", u"E:\\2.mid", 100);
    search();
    EXPECT_EQ(window.list2, Titles{u"L'été"});
}

TEST_F(SearchFilterTest, KnowsTracksOfTheFirstTypeToo) {
    catalogue_.addRow(u"Vieux module", 100, u"669");
    addTrack(u"Vieux module", u"E:\\2.669", 100);
    search();
    EXPECT_EQ(window.list2, Titles{u"Vieux module"});
}

TEST_F(SearchFilterTest, TakesTitlesWithQuotationMarksAndWildcardsAsTheyAre) {
    catalogue_.addRow(u"Le \"Live\" [*] ?", 100, u"MID");
    catalogue_.addRow(u"Autre", 100, u"MID");
    addTrack(u"Le \"Live\" [*] ?", u"E:\\2.mid", 100);
    addTrack(u"\" or Nom LIKE \"*", u"E:\\3.mid", 100);
    addTrack(u"*", u"E:\\4.mid", 100);
    search();
    EXPECT_EQ(window.list2, Titles{u"Le \"Live\" [*] ?"});
    EXPECT_EQ(window.list1, Titles{u"Le \"Live\" [*] ?"});
}

TEST_F(SearchFilterTest, RowsOfAnUnknownTypeAreNoTracks) {
    for (const char16_t* type : {u"OGG", u"", u"T", u"MI"})
        catalogue_.addRow(u"Connu", 100, type);
    addTrack(u"Connu", u"E:\\2.mid", 100);
    search();
    EXPECT_TRUE(window.list1.empty());
    EXPECT_EQ(catalogue_.rowCount(), 4U);
}

TEST_F(SearchFilterTest, OfAnEmptyMediumStillSumsUp) {
    search();
    EXPECT_EQ(window.labels.size(), 1U);
    EXPECT_EQ(window.label(),
              u"Analyse terminée.\r\n\n"
              u"Méthode 1 : 0 nouveaux morceaux (0 Octets) sur 0 - 0 morceaux déjà mémorisés (0 "
              u"Octets).\r\n"
              u"Méthode 2 : 0 nouveaux morceaux (0 Octets) sur 0 - 0 morceaux déjà mémorisés (0 "
              u"Octets).");
}

TEST_F(SearchFilterTest, ReportsItsProgress) {
    addTrack(u"Un", u"E:\\1.mid", 1);
    addTrack(u"Deux", u"E:\\2.mid", 1);
    search();
    ASSERT_EQ(window.labels.size(), 3U);
    EXPECT_EQ(window.labels[0], u"Filtrage des morceaux en cours... 50%");
    EXPECT_EQ(window.labels[1], u"Filtrage des morceaux en cours... 100%");
}

TEST_F(SearchFilterTest, StopEndsItAtOnceWithoutASummary) {
    addTrack(u"Un", u"E:\\1.mid", 1);
    addTrack(u"Deux", u"E:\\2.mid", 1);
    window.atYield = [&](size_t) { scanState.ScanAnswer = 1; };
    EXPECT_FALSE(filterForSearch(tools, run, window));
    EXPECT_EQ(run.FoundCount, 1);
    EXPECT_EQ(window.label(), u"Filtrage des morceaux en cours... 50%");
}

TEST_F(SearchFilterTest, LeavesTheCatalogueAsItWas) {
    catalogue_.addRow(u"Connu", 100, u"MID");
    const std::string before = catalogue_.bytes();
    addTrack(u"Connu", u"E:\\2.mid", 100);
    search();
    EXPECT_EQ(catalogue_.bytes(), before);
}

}  // namespace
}  // namespace newcd
