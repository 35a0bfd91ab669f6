#include "config/players.h"

#include "base/text.h"
#include "gtest/gtest.h"
#include "tests/fakes/memoryfilesystem.h"
#include "tests/fakes/scriptedmessages.h"

namespace config {
namespace {

using Names = std::vector<std::u16string>;
using Shown = fakes::ScriptedMessages::Shown;
using catalogue::nameColumn;
using catalogue::pathColumn;

class Players : public testing::Test {
  protected:
    Players() {
        settings.CurrentPlayerName = u"Aucun";
        for (const std::u16string_view name : {u"a.exe", u"b.exe", u"c.exe", u"d.exe"})
            files.addFile(u"C:\\" + std::u16string(name), "MZ");
    }

    void type(std::u16string_view name, std::u16string_view path) {
        editor.TextNom_Change(name);
        editor.TextChemin_Change(path);
    }
    bool add(std::u16string_view name, std::u16string_view path) {
        type(name, path);
        return editor.CommandAjouter_Click();
    }
    bool remove(std::u16string_view name, std::u16string_view path) {
        type(name, path);
        return editor.CommandSupprimer_Click();
    }
    // Players A, B and C, of which `row` is the current one.
    void addThree(int16_t row) {
        add(u"A", u"C:\\a.exe");
        add(u"B", u"C:\\b.exe");
        add(u"C", u"C:\\c.exe");
        choose(row);
    }
    void choose(int16_t row) {
        settings.CurrentPlayer = row;
        settings.CurrentPlayerName = settings.PlayerTable(row, nameColumn);
        settings.PlayerPath = settings.PlayerTable(row, pathColumn);
    }
    void expectCurrent(int row, std::u16string_view name, std::u16string_view path) {
        EXPECT_EQ(settings.CurrentPlayer, row);
        EXPECT_EQ(settings.CurrentPlayerName, name);
        EXPECT_EQ(settings.PlayerPath, path);
        EXPECT_EQ(ShowPlayerState(settings), row == 0 ? 0x40 : 0x400000);
    }
    void expectRow(int row, std::u16string_view name, std::u16string_view path) {
        EXPECT_EQ(settings.PlayerTable(row, nameColumn), name);
        EXPECT_EQ(settings.PlayerTable(row, pathColumn), path);
    }

    catalogue::Settings settings;
    fakes::MemoryFileSystem files;
    fakes::ScriptedMessages messages;
    PlayersEditor editor{settings, files, messages};
};

TEST(PathKey, SwallowsWhatSeparatesNames) {
    const std::u16string_view swallowed = u"\\/:*?<>|\"";
    for (const char16_t typed : swallowed)
        EXPECT_EQ(pathKey(typed), 0);
    const std::u16string_view kept = u"aZ0. -_'é\b";
    for (const char16_t typed : kept)
        EXPECT_EQ(pathKey(typed), typed);
}

TEST_F(Players, CanBeAddedWhileNeitherBoxIsBlank) {
    EXPECT_FALSE(editor.ajouterEnabled());
    type(u"A", u"");
    EXPECT_FALSE(editor.ajouterEnabled());
    type(u"  ", u"p");
    EXPECT_FALSE(editor.ajouterEnabled());
    type(u"A", u" ");
    EXPECT_FALSE(editor.ajouterEnabled());
    type(u"A", u"p");
    EXPECT_TRUE(editor.ajouterEnabled());
}

TEST_F(Players, FirstBecomesCurrentAtOnce) {
    expectCurrent(0, u"Aucun", u"");
    EXPECT_TRUE(add(u"  winamp ", u" C:\\a.exe "));
    EXPECT_EQ(settings.NbPlayers, 1);
    expectRow(1, u"Winamp", u"C:\\a.exe");
    expectCurrent(1, u"Winamp", u"C:\\a.exe");
    EXPECT_EQ(editor.TextNom(), u"");
    EXPECT_EQ(editor.TextChemin(), u"");
    EXPECT_EQ(FillPlayersList(settings), Names{u"Winamp"});
}

TEST_F(Players, SecondDoesNotBecomeCurrent) {
    add(u"A", u"C:\\a.exe");
    add(u"éCoute", u"C:\\b.exe");
    EXPECT_EQ(settings.NbPlayers, 2);
    expectRow(2, u"ÉCoute", u"C:\\b.exe");
    expectCurrent(1, u"A", u"C:\\a.exe");
    EXPECT_EQ(FillPlayersList(settings), (Names{u"A", u"ÉCoute"}));
}

TEST_F(Players, AreRenamedByTheirPath) {
    addThree(2);
    add(u"bis", u"C:\\b.exe");
    EXPECT_EQ(settings.NbPlayers, 3);
    expectRow(2, u"Bis", u"C:\\b.exe");
    expectCurrent(2, u"Bis", u"C:\\b.exe");
    add(u"ter", u"C:\\c.exe");
    expectRow(3, u"Ter", u"C:\\c.exe");
    expectCurrent(2, u"Bis", u"C:\\b.exe");
}

TEST_F(Players, GetAnotherPathByTheirName) {
    addThree(2);
    add(u"b", u"C:\\d.exe");
    EXPECT_EQ(settings.NbPlayers, 3);
    expectRow(2, u"B", u"C:\\d.exe");
    expectCurrent(2, u"B", u"C:\\d.exe");
    add(u"a", u"C:\\D.EXE");
    expectRow(1, u"A", u"C:\\D.EXE");
    expectCurrent(2, u"B", u"C:\\d.exe");
}

TEST_F(Players, AreComparedExactly) {
    addThree(1);
    add(u"a", u"C:\\A.EXE");
    expectRow(1, u"A", u"C:\\A.EXE");
    add(u"aA", u"C:\\a.exe");
    EXPECT_EQ(settings.NbPlayers, 4);
}

TEST_F(Players, FirstRowWithNameOrPathIsOverwritten) {
    addThree(0);
    // The name is row 3's, the path row 1's.
    add(u"c", u"C:\\a.exe");
    EXPECT_EQ(settings.NbPlayers, 3);
    expectRow(1, u"C", u"C:\\a.exe");
    expectRow(3, u"C", u"C:\\c.exe");
}

TEST_F(Players, AreRefusedWhenTheProgramCannotBeOpened) {
    addThree(1);
    for (const std::u16string_view path : {u"C:\\missing.exe", u"C:\\no\\a.exe", u"C:\\", u""}) {
        EXPECT_FALSE(add(u" z ", path));
        EXPECT_EQ(editor.TextNom(), u"Z");
        EXPECT_EQ(editor.TextChemin(), path);
    }
    const Shown expected{u"Le nom de fichier du lecteur n'est pas valide !", u"Fichier incorrect",
                         0};
    EXPECT_EQ(messages.shown(), std::vector<Shown>(4, expected));
    EXPECT_EQ(settings.NbPlayers, 3);
    expectCurrent(1, u"A", u"C:\\a.exe");
}

TEST_F(Players, EndAt200) {
    for (int i = 1; i <= 200; ++i) {
        const std::u16string number = base::fromUtf8(std::to_string(i));
        files.addFile(u"C:\\p" + number, "MZ");
        add(u"P" + number, u"C:\\p" + number);
    }
    EXPECT_EQ(settings.NbPlayers, 200);
    EXPECT_TRUE(messages.shown().empty());

    EXPECT_FALSE(add(u"Z", u"C:\\a.exe"));
    ASSERT_EQ(messages.shown().size(), 1u);
    EXPECT_EQ(messages.shown()[0].title, u"Fichier incorrect");
    // A count of 201 could neither be stepped through nor saved.
    EXPECT_EQ(settings.NbPlayers, 200);
    expectCurrent(1, u"P1", u"C:\\p1");
    // Known players can still be changed.
    add(u"P200", u"C:\\a.exe");
    expectRow(200, u"P200", u"C:\\a.exe");
    EXPECT_EQ(messages.shown().size(), 1u);
}

TEST_F(Players, NamedAucunTakesTheProgramOfNone) {
    addThree(0);
    add(u"aucun", u"C:\\d.exe");
    expectRow(4, u"Aucun", u"C:\\d.exe");
    expectCurrent(0, u"Aucun", u"C:\\d.exe");
}

TEST_F(Players, AreDeletedByNameAndPathTogether) {
    addThree(3);
    EXPECT_FALSE(remove(u"A", u"C:\\b.exe"));
    EXPECT_EQ(editor.TextNom(), u"");
    EXPECT_EQ(editor.TextChemin(), u"");
    EXPECT_FALSE(remove(u"a", u"C:\\a.exe"));
    EXPECT_FALSE(remove(u"A", u""));
    EXPECT_EQ(settings.NbPlayers, 3);

    EXPECT_TRUE(remove(u" A ", u" C:\\a.exe "));
    EXPECT_EQ(FillPlayersList(settings), (Names{u"B", u"C"}));
    EXPECT_EQ(editor.TextNom(), u"");
}

TEST_F(Players, BehindADeletedOneEndUpAtTheOldLastRow) {
    addThree(2);
    remove(u"A", u"C:\\a.exe");
    EXPECT_EQ(settings.NbPlayers, 2);
    expectCurrent(3, u"B", u"C:\\b.exe");
    expectRow(1, u"B", u"C:\\b.exe");
    expectRow(2, u"C", u"C:\\c.exe");
    // The row that became free keeps its texts.
    expectRow(3, u"C", u"C:\\c.exe");

    CommandLecteurPlus_Click(settings);
    expectCurrent(0, u"Aucun", u"");
}

TEST_F(Players, BeforeADeletedOneKeepTheirRow) {
    addThree(1);
    remove(u"B", u"C:\\b.exe");
    expectCurrent(1, u"A", u"C:\\a.exe");
    EXPECT_EQ(FillPlayersList(settings), (Names{u"A", u"C"}));
}

TEST_F(Players, LastBecomesCurrentWhenTheCurrentOneIsDeleted) {
    addThree(1);
    remove(u"A", u"C:\\a.exe");
    expectCurrent(2, u"C", u"C:\\c.exe");
    remove(u"C", u"C:\\c.exe");
    expectCurrent(1, u"B", u"C:\\b.exe");
}

TEST_F(Players, LastBecomesCurrentWhenNoneWasAndOneIsDeleted) {
    addThree(0);
    remove(u"A", u"C:\\a.exe");
    expectCurrent(2, u"C", u"C:\\c.exe");
}

TEST_F(Players, AllDeletedLeaveNone) {
    add(u"A", u"C:\\a.exe");
    remove(u"A", u"C:\\a.exe");
    EXPECT_EQ(settings.NbPlayers, 0);
    expectCurrent(0, u"Aucun", u"");
    EXPECT_EQ(FillPlayersList(settings), Names{});
}

TEST_F(Players, SelectedFillTheBoxes) {
    addThree(1);
    EXPECT_FALSE(editor.supprimerEnabled());
    editor.ListPlayers_Click(u"B");
    EXPECT_TRUE(editor.supprimerEnabled());
    EXPECT_EQ(editor.TextNom(), u"B");
    EXPECT_EQ(editor.TextChemin(), u"C:\\b.exe");
    EXPECT_TRUE(editor.ajouterEnabled());
}

TEST_F(Players, SelectedByANameThatTwoBearAreTheLast) {
    addThree(0);
    settings.PlayerTable(3, nameColumn) = u"A";
    editor.ListPlayers_Click(u"A");
    EXPECT_EQ(editor.TextChemin(), u"C:\\c.exe");
    editor.CommandOK_Click(u"A");
    expectCurrent(1, u"A", u"C:\\a.exe");
}

TEST_F(Players, SelectedByANameThatNoneBearsAreRow0) {
    editor.ListPlayers_Click(u"Z");
    EXPECT_EQ(editor.TextNom(), u"Aucun");
    EXPECT_EQ(editor.TextChemin(), u"");
}

TEST_F(Players, AreChosenByClosing) {
    addThree(1);
    editor.CommandOK_Click(u"C");
    expectCurrent(3, u"C", u"C:\\c.exe");
    editor.CommandOK_Click(u"");
    expectCurrent(3, u"C", u"C:\\c.exe");
}

TEST_F(Players, AreSteppedThroughForwards) {
    addThree(0);
    CommandLecteurPlus_Click(settings);
    expectCurrent(1, u"A", u"C:\\a.exe");
    CommandLecteurPlus_Click(settings);
    CommandLecteurPlus_Click(settings);
    expectCurrent(3, u"C", u"C:\\c.exe");
    CommandLecteurPlus_Click(settings);
    expectCurrent(0, u"Aucun", u"");
}

TEST_F(Players, AreSteppedThroughBackwards) {
    addThree(0);
    CommandLecteurMoins_Click(settings);
    expectCurrent(3, u"C", u"C:\\c.exe");
    CommandLecteurMoins_Click(settings);
    CommandLecteurMoins_Click(settings);
    expectCurrent(1, u"A", u"C:\\a.exe");
    CommandLecteurMoins_Click(settings);
    expectCurrent(0, u"Aucun", u"");
}

TEST_F(Players, AreNotSteppedThroughWhereThereAreNone) {
    CommandLecteurMoins_Click(settings);
    CommandLecteurPlus_Click(settings);
    expectCurrent(0, u"Aucun", u"");
}

}  // namespace
}  // namespace config
