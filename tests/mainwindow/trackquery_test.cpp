#include "mainwindow/trackquery.h"

#include <gtest/gtest.h>

namespace {

using catalogue::Settings;
using mainwindow::RefreshTrackList;
using mainwindow::TrackListState;

constexpr int kSomeCdRow = 3;

// All of these extensions are shown.
Settings settingsWith(std::initializer_list<std::u16string_view> extensions) {
    Settings settings;
    settings.NbExtensions = -1;
    for (const std::u16string_view extension : extensions) {
        ++settings.NbExtensions;
        settings.ExtensionList(settings.NbExtensions) = extension;
        settings.ExtensionFlags(settings.NbExtensions, catalogue::shownColumn) = 1;
    }
    return settings;
}

TrackListState rock() {
    TrackListState state;
    state.cdRow = kSomeCdRow;
    state.cdName = u"Rock 1";
    state.sortByName = true;
    return state;
}

TrackListState allCds() {
    TrackListState state = rock();
    state.cdRow = 0;
    state.cdName = u"*** TOUS LES TITRES ***";
    return state;
}

std::u16string query(const TrackListState& state, const Settings& settings) {
    return RefreshTrackList(state, settings).value().recordSource;
}

TEST(RefreshTrackList, ChangesNothingWithoutAChosenRow) {
    TrackListState state = rock();
    state.cdRow = -1;
    EXPECT_EQ(RefreshTrackList(state, settingsWith({u"MP3"})), std::nullopt);
}

TEST(RefreshTrackList, ListsTheShownTypesOfOneCd) {
    EXPECT_EQ(query(rock(), settingsWith({u"MP3", u"WAV"})),
              u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\" or Type=\"WAV\") and "
              u"(Compilation=\"Rock 1\") ORDER BY Nom");
}

TEST(RefreshTrackList, SearchesOneCd) {
    TrackListState state = rock();
    state.searchText = u"abc";
    EXPECT_EQ(query(state, settingsWith({u"MP3", u"WAV"})),
              u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\" or Type=\"WAV\") and "
              u"(Compilation=\"Rock 1\") and (Nom LIKE \"*abc*\" or Fichier LIKE \"*abc*\") "
              u"ORDER BY Nom");
}

TEST(RefreshTrackList, ListsAllCds) {
    EXPECT_EQ(query(allCds(), settingsWith({u"MP3"})),
              u"SELECT * FROM Listdonnees WHERE Type=\"MP3\" ORDER BY Nom");
    EXPECT_EQ(query(allCds(), settingsWith({u"MP3", u"WAV"})),
              u"SELECT * FROM Listdonnees WHERE Type=\"MP3\" or Type=\"WAV\" ORDER BY Nom");
}

TEST(RefreshTrackList, SearchesAllCds) {
    TrackListState state = allCds();
    state.searchText = u"abc";
    EXPECT_EQ(query(state, settingsWith({u"MP3"})),
              u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\") and "
              u"(Nom LIKE \"*abc*\" or Fichier LIKE \"*abc*\") ORDER BY Nom");
}

TEST(RefreshTrackList, ListsOneTypeOfOneCd) {
    EXPECT_EQ(query(rock(), settingsWith({u"MP3"})),
              u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\") and (Compilation=\"Rock 1\") "
              u"ORDER BY Nom");
}

TEST(RefreshTrackList, TrimsTheSearchTextAndIgnoresABlankOne) {
    TrackListState state = allCds();
    state.searchText = u"   ";
    EXPECT_EQ(query(state, settingsWith({u"MP3"})), query(allCds(), settingsWith({u"MP3"})));
    state.searchText = u"  a b ";
    EXPECT_EQ(query(state, settingsWith({u"MP3"})),
              u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\") and "
              u"(Nom LIKE \"*a b*\" or Fichier LIKE \"*a b*\") ORDER BY Nom");
}

TEST(RefreshTrackList, LeavesWildcardsAndApostrophesOfTheSearchTextAlone) {
    TrackListState state = allCds();
    state.searchText = u"l'a?[b#*";
    EXPECT_EQ(query(state, settingsWith({u"MP3"})),
              u"SELECT * FROM Listdonnees WHERE (Type=\"MP3\") and "
              u"(Nom LIKE \"*l'a?[b#**\" or Fichier LIKE \"*l'a?[b#**\") ORDER BY Nom");
}

TEST(RefreshTrackList, DoublesQuotationMarksInEveryText) {
    TrackListState state = rock();
    state.cdName = u"Best of \"X\"";
    state.searchText = u"a\"b";
    EXPECT_EQ(query(state, settingsWith({u"M\"P"})),
              u"SELECT * FROM Listdonnees WHERE (Type=\"M\"\"P\") and "
              u"(Compilation=\"Best of \"\"X\"\"\") and "
              u"(Nom LIKE \"*a\"\"b*\" or Fichier LIKE \"*a\"\"b*\") ORDER BY Nom");
}

TEST(RefreshTrackList, SortsByTheLastOptionThatIsSet) {
    const Settings settings = settingsWith({u"MP3"});
    const std::u16string unsorted = u"SELECT * FROM Listdonnees WHERE Type=\"MP3\"";
    TrackListState state = allCds();
    state.sortByName = false;
    EXPECT_EQ(query(state, settings), unsorted);
    state.sortByName = true;
    EXPECT_EQ(query(state, settings), unsorted + u" ORDER BY Nom");
    state.sortByPath = true;
    EXPECT_EQ(query(state, settings), unsorted + u" ORDER BY Fichier");
    state.sortBySize = true;
    EXPECT_EQ(query(state, settings), unsorted + u" ORDER BY Taille");
    state.sortByPath = false;
    EXPECT_EQ(query(state, settings), unsorted + u" ORDER BY Taille");
}

TEST(RefreshTrackList, TakesOnlyExtensionsWhoseFlagIsExactlyOneInListOrder) {
    Settings settings = settingsWith({u"XM", u"IT", u"MP3", u"669"});
    settings.ExtensionFlags(0, catalogue::shownColumn) = 0;
    settings.ExtensionFlags(2, catalogue::shownColumn) = 2;
    settings.ExtensionFlags(2, catalogue::copiedColumn) = 1;
    EXPECT_EQ(query(allCds(), settings),
              u"SELECT * FROM Listdonnees WHERE Type=\"IT\" or Type=\"669\" ORDER BY Nom");
}

TEST(RefreshTrackList, IgnoresExtensionsBeyondTheLastInUse) {
    Settings settings = settingsWith({u"XM", u"IT"});
    settings.NbExtensions = 0;
    EXPECT_EQ(query(allCds(), settings),
              u"SELECT * FROM Listdonnees WHERE Type=\"XM\" ORDER BY Nom");
}

TEST(RefreshTrackList, ListsNothingWhenNoTypeIsShown) {
    const std::u16string nothing = u"SELECT * FROM Listdonnees Where Type=\"X\"";
    TrackListState state = rock();
    state.searchText = u"abc";
    Settings settings = settingsWith({u"MP3"});
    settings.ExtensionFlags(0, catalogue::shownColumn) = 0;
    EXPECT_EQ(query(state, settings), nothing);
    EXPECT_EQ(query(allCds(), settings), nothing);
    EXPECT_EQ(query(state, settingsWith({})), nothing);
}

TEST(RefreshTrackList, DisplaysTitleOrPathWithOrWithoutTheCd) {
    const Settings settings = settingsWith({u"MP3"});
    TrackListState state = rock();
    EXPECT_EQ(RefreshTrackList(state, settings)->displayedField, u"Nom");
    state.showCdName = true;
    EXPECT_EQ(RefreshTrackList(state, settings)->displayedField, u"Nomcompil");
    state.showPath = true;
    EXPECT_EQ(RefreshTrackList(state, settings)->displayedField, u"Fichiercompil");
    state.showCdName = false;
    EXPECT_EQ(RefreshTrackList(state, settings)->displayedField, u"Fichier");
}

TEST(EmptyTrackListQuery, NamesACdThatNobodyHas) {
    EXPECT_EQ(mainwindow::emptyTrackListQuery(),
              u"SELECT * FROM Listdonnees WHERE Compilation=\"X\"");
}

TEST(CountLabel, CountsInFrench) {
    EXPECT_EQ(mainwindow::countLabel(0), u"Aucun morceau.");
    EXPECT_EQ(mainwindow::countLabel(1), u" 1 morceau.");
    EXPECT_EQ(mainwindow::countLabel(2), u" 2 morceaux.");
    EXPECT_EQ(mainwindow::countLabel(12), u" 12 morceaux.");
    EXPECT_EQ(mainwindow::countLabel(1000000), u" 1000000 morceaux.");
}

}  // namespace
