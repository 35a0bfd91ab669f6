#include "newcd/copyfilter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <tuple>

#include "base/text.h"
#include "newcd/selection.h"
#include "tests/fakes/fakerunwindows.h"
#include "tests/newcd/runfixture.h"

namespace newcd {
namespace {

class CopyFilterTest : public RunFixture {
  protected:
    void filter() {
        EXPECT_TRUE(filterForCopy(tools, run, window));
        EXPECT_EQ(catalogue_.markerCount(), 0U);
    }
    std::vector<bool> checks() const {
        std::vector<bool> checked;
        for (const auto& item : window.list)
            checked.push_back(item.checked);
        return checked;
    }
    fakes::FakeCopyWindow window;
};

TEST_F(CopyFilterTest, ListsEveryTrackAndChecksTheKept) {
    settings.ExtensionFlags(3, catalogue::copiedColumn) = 0;  // MID
    addTrack(u"Un", u"E:\\1.xm", 1000);
    addTrack(u"Deux", u"E:\\2.mid", 2000);
    addTrack(u"Trois", u"E:\\3.xm", 4000);
    filter();
    EXPECT_EQ(window.list, (std::vector<fakes::FakeCopyWindow::Item>{
                               {u"Un", true}, {u"Deux", false}, {u"Trois", true}}));
    EXPECT_EQ(run.checked, checks());
    EXPECT_EQ(run.FoundCount, 3);
    EXPECT_EQ(run.SelectedCount, 2);
    EXPECT_EQ(run.SizeSums, (std::array<int64_t, 4>{7000, 0, 0, 5000}));
    EXPECT_EQ(window.label(),
              u"Analyse terminée.\r\n\n2 morceaux sélectionnés (5 Ko) sur 3 morceaux trouvés (7 "
              u"Ko).");
}

TEST_F(CopyFilterTest, RowsOfTheTablesAreCountedFromOne) {
    addTrack(u"Un", u"E:\\1.xm", 1000);
    addTrack(u"Deux", u"E:\\2.xm", 2000);
    filter();
    EXPECT_EQ(run.tables.TrackFileTable(0, 0), u"");
    EXPECT_EQ(run.tables.TrackFileTable(1, 0), u"E:\\1.xm");
    EXPECT_EQ(run.tables.TrackFileTable(2, 0), u"E:\\2.xm");
    EXPECT_EQ(run.tables.TrackSizeTable(2, 0), 2000);
}

TEST_F(CopyFilterTest, TextMustBeInTitleOrPath) {
    run.CopyFilterText = u"ROCK";
    addTrack(u"Jazz", u"E:\\1.xm", 1);
    addTrack(u"Du rock", u"E:\\2.xm", 1);
    addTrack(u"Autre", u"E:\\Rock\\3.xm", 1);
    filter();
    EXPECT_EQ(checks(), (std::vector<bool>{false, true, true}));
}

TEST_F(CopyFilterTest, WithTheTextOnlyMatchingRowsAreKnown) {
    settings.CopyOption1 = 1;
    run.CopyFilterText = u"ROCK";
    catalogue_.addRow(u"Un", 1, u"XM", u"[CD]\\Jazz\\1.xm");
    catalogue_.addRow(u"Deux", 1, u"XM", u"[CD]\\Rock\\2.xm");
    catalogue_.addRow(u"Le rock", 1, u"XM", u"[CD]\\Jazz\\3.xm");
    addTrack(u"Un", u"E:\\Rock\\1.xm", 1);
    addTrack(u"Deux", u"E:\\Rock\\2.xm", 1);
    addTrack(u"Le rock", u"E:\\3.xm", 1);
    filter();
    EXPECT_EQ(checks(), (std::vector<bool>{true, false, false}));
}

TEST_F(CopyFilterTest, WildcardsOfTheTextActInTheCatalogue) {
    settings.CopyOption1 = 1;
    run.CopyFilterText = u"R#CK";
    catalogue_.addRow(u"Un r#ck", 1, u"XM");
    catalogue_.addRow(u"Deux", 1, u"XM", u"[CD]\\r5ck.xm");
    addTrack(u"Un r#ck", u"E:\\1.xm", 1);
    addTrack(u"Deux", u"E:\\r#ck.xm", 1);
    filter();
    EXPECT_EQ(checks(), (std::vector<bool>{true, false}));
}

TEST_F(CopyFilterTest, TracksThatAreNotKeptDoNotCountAsDuplicates) {
    settings.CopyOption2 = 1;
    run.CopyFilterText = u"ALBUM";
    addTrack(u"Un", u"E:\\1.xm", 1);
    addTrack(u"Un", u"E:\\Album\\1.xm", 1);
    addTrack(u"Un", u"E:\\Album\\2.xm", 1);
    filter();
    EXPECT_EQ(checks(), (std::vector<bool>{false, true, false}));
}

TEST_F(CopyFilterTest, MarkersOfAnOlderRunAreNoDuplicates) {
    for (uint8_t rule = 0; rule <= 2; ++rule) {
        settings.CopyOption2 = rule;
        catalogue_.addRow(u"Un", 1, u"T");
        addTrack(u"Un", u"E:\\1.xm", 1);
        filter();
        EXPECT_TRUE(checks().back()) << static_cast<int>(rule);
        EXPECT_EQ(catalogue_.markerCountInFile(), 0U);
        window.list.clear();
        run.workList.clear();
    }
}

TEST_F(CopyFilterTest, MarkersAreUnknownToTheCatalogueRule) {
    settings.CopyOption1 = 1;
    settings.CopyOption2 = 2;
    addTrack(u"Un", u"E:\\1.669", 1);
    addTrack(u"Un", u"E:\\2.669", 2);
    filter();
    EXPECT_EQ(checks(), (std::vector<bool>{true, true}));
}

TEST_F(CopyFilterTest, RowsOfAnUnknownTypeAreNeitherTracksNorMarkers) {
    settings.CopyOption1 = 1;
    settings.CopyOption2 = 1;
    for (const char16_t* type : {u"OGG", u"", u"TT"})
        catalogue_.addRow(u"Un", 1, type);
    addTrack(u"Un", u"E:\\1.xm", 1);
    filter();
    EXPECT_EQ(checks(), std::vector<bool>{true});
    EXPECT_EQ(catalogue_.rowCount(), 3U);
}

TEST_F(CopyFilterTest, TitlesWithWhatQueriesAreMadeOfAreOneTrackEach) {
    settings.CopyOption1 = 2;
    settings.CopyOption2 = 2;
    const std::vector<std::u16string> titles{
        u"a \"b\"", u"[a]", u"a]", u"*", u"?", u"#", u"[!a-z]", u"'", u"日本", u"\" or \"\"=\""};
    for (const std::u16string& title : titles) {
        addTrack(title, u"E:\\Новый \"[*]\"\\1.xm", 1);
        addTrack(title, u"E:\\Новый \"[*]\"\\2.xm", 1);
    }
    catalogue_.addRow(titles.back(), 1, u"XM");
    filter();
    std::vector<bool> firstOfEach;
    for (const std::u16string& title : titles) {
        firstOfEach.push_back(title != titles.back());
        firstOfEach.push_back(false);
    }
    EXPECT_EQ(checks(), firstOfEach);
    EXPECT_EQ(catalogue_.rowCount(), 1U);
}

TEST_F(CopyFilterTest, StopLeavesNoMarkerAndNoSummary) {
    for (uint8_t rule = 0; rule <= 2; ++rule) {
        settings.CopyOption2 = rule;
        run.workList.clear();
        for (int i = 0; i < 5; ++i)
            addTrack(u"Titre " + std::u16string(1, static_cast<char16_t>(u'0' + i)), u"E:\\1.xm",
                     i);
        for (size_t stopAt = 1; stopAt <= 5; ++stopAt) {
            scanState.ScanAnswer = 0;
            window.yields = 0;
            window.atYield = [&](size_t number) {
                if (number == stopAt) scanState.ScanAnswer = 1;
            };
            EXPECT_FALSE(filterForCopy(tools, run, window));
            EXPECT_EQ(run.FoundCount, static_cast<int64_t>(stopAt));
            EXPECT_EQ(catalogue_.markerCount(), 0U);
            EXPECT_EQ(catalogue_.markerCountInFile(), 0U);
            EXPECT_TRUE(window.label().starts_with(u"Filtrage")) << base::toUtf8(window.label());
        }
    }
}

// Each pair of rules over a medium full of repeated titles, against what the rules say in plain
// sets.
class CopyRulePairs : public CopyFilterTest,
                      public testing::WithParamInterface<std::tuple<int, int>> {
  protected:
    struct Entry {
        std::u16string title;
        int64_t size;
        std::u16string type;
    };
    using Key = std::tuple<std::u16string, std::u16string, int64_t>;

    Entry randomEntry() {
        static const std::vector<std::u16string> titles{u"Intro", u"INTRO", u"intro",   u"Été",
                                                        u"ÉTÉ",   u"Fin",   u"a \"b\"", u"Rock"};
        static const std::vector<std::u16string> types{u"MID", u"XM", u"669"};
        return {titles[random_() % titles.size()], 100 + static_cast<int64_t>(random_() % 3),
                types[random_() % types.size()]};
    }
    // What two equal tracks have in common under a rule.
    static Key key(int rule, const Entry& entry, bool typed) {
        return {base::upper(entry.title), typed ? entry.type : u"", rule == 2 ? entry.size : 0};
    }

    std::mt19937 random_{20};
};

TEST_P(CopyRulePairs, KeepWhatTheRulesSay) {
    const auto [rule1, rule2] = GetParam();
    settings.CopyOption1 = static_cast<uint8_t>(rule1);
    settings.CopyOption2 = static_cast<uint8_t>(rule2);
    std::set<Key> catalogued;
    for (int i = 0; i < 8; ++i) {
        const Entry row = randomEntry();
        catalogue_.addRow(row.title, row.size, row.type);
        catalogued.insert(key(rule1, row, true));
    }
    std::set<Key> kept;
    std::vector<bool> expected;
    for (int i = 0; i < 200; ++i) {
        const Entry track = randomEntry();
        addTrack(track.title, u"E:\\Album\\piste." + track.type, track.size);
        const bool known = rule1 != 0 && catalogued.contains(key(rule1, track, true));
        const bool keep = !known && (kept.insert(key(rule2, track, false)).second || rule2 == 0);
        expected.push_back(keep);
    }
    filter();
    EXPECT_EQ(checks(), expected);
    EXPECT_EQ(run.SelectedCount, std::count(expected.begin(), expected.end(), true));
    EXPECT_EQ(catalogue_.rowCount(), 8U);
    EXPECT_EQ(catalogue_.markerCountInFile(), 0U);
}

INSTANTIATE_TEST_SUITE_P(AllNine, CopyRulePairs,
                         testing::Combine(testing::Range(0, 3), testing::Range(0, 3)));

}  // namespace
}  // namespace newcd
