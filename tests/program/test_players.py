"""The players: the window in which they are kept, the label and the buttons beside it."""
import pytest

from harness import settings
from harness.player import RecordingPlayer, windows_path
from harness.program import Program
from harness.steps import open_players
from harness.waiting import wait_for

DARK_BLUE, DARK_RED = (0, 0, 0x40), (0x40, 0, 0)
INVALID = "Le nom de fichier du lecteur n'est pas valide !"


@pytest.fixture(scope="module")
def paths(desktop):
    """Letter to the path of a player that is there."""
    return {letter: RecordingPlayer(desktop, f"Lecteurs/{letter}.exe").path for letter in "abcd"}


def open_with_abc(program, paths, current):
    settings.set_players(program.settings, [(letter.upper(), paths[letter]) for letter in "abc"],
                         current)
    return program.open()


@pytest.fixture
def abc(program, paths):
    """Lets the program start with the players A, B and C, `current` chosen."""
    return lambda current=0: open_with_abc(program, paths, current)


@pytest.fixture(scope="module")
def looked_at(desktop, paths):
    """A program with these players, for tests that change none of them."""
    with Program(desktop) as made:
        open_with_abc(made, paths, 0)
        yield made


@pytest.fixture
def dialog(looked_at):
    """Its players window, just opened."""
    opened = open_players(looked_at.form("FrmMP3"))
    yield opened
    looked_at.desktop.tidy()
    looked_at.desktop.keys("Escape")
    opened.wait_gone()


def add(dialog, name, path):
    dialog.TextNom.fill(name)
    dialog.TextChemin.paste(path)
    dialog.CommandAjouter.click()


def delete(dialog, name):
    dialog.ListPlayers.click_item(name)
    dialog.CommandSupprimer.click()
    wait_for(lambda: name not in dialog.ListPlayers.items(), f"{name} to go")


def label_shows(main, name, colour=None):
    wait_for(lambda: main.LabelLecteur.text == name, f"the label {name!r}")
    if colour is None:
        return
    other, = {DARK_BLUE, DARK_RED} - {colour}
    def colours():
        seen = main.desktop.colours(main.LabelLecteur.rect)
        return colour in seen and other not in seen
    wait_for(colours, f"{name!r} in {colour}")


def saved(program):
    assert program.quit() == 0
    return settings.read(program.settings)


def players_of(values):
    return [name for name, _ in values["PlayerTable"]]


def current_of(values):
    return values["CurrentPlayer"], values["CurrentPlayerName"], values["PlayerPath"]


def test_the_dialog_says_what_it_does(looked_at, dialog):
    main = looked_at.form_or_none("FrmMP3")
    assert dialog.title == "Players Audio"
    assert dialog.Label4.text == "Lecteurs Audio"
    assert dialog.Label3.text == (
        "Brivantole Audio utilise des logiciels externes pour lire les fichiers musicaux. "
        "Choisissez ceux que vous utilisez  (Winamp, Sonique, Windows Media player...).")
    texts = {child["text"] for child in dialog.children()}
    assert {"Nom", "Chemin", "Ajouter", "Supprimer", "Fermer"} <= texts
    assert dialog.ListPlayers.items() == ["A", "B", "C"]
    assert dialog.ListPlayers.choice is None
    assert dialog.TextNom.text == dialog.TextChemin.text == ""
    assert not dialog.CommandAjouter.enabled and not dialog.CommandSupprimer.enabled
    assert dialog.stands_over_the_middle_of(main)
    assert dialog.Picture1.tip() == "Choisir le fichier du lecteur"
    assert not main.state["enabled"]


def test_a_click_on_the_label_opens_it_too(program):
    main = program.open()
    main.LabelLecteur.click()
    dialog = program.form("FrmPlayers")
    assert dialog.ListPlayers.items() == []
    assert dialog.TextNom.focused


def test_the_add_button_wants_a_name_and_a_path(dialog):
    dialog.TextNom.fill("Lecteur")
    assert not dialog.CommandAjouter.enabled
    dialog.TextChemin.fill("  ")
    assert not dialog.CommandAjouter.enabled
    dialog.TextChemin.fill("x")
    wait_for(lambda: dialog.CommandAjouter.enabled, "the add button")
    dialog.TextNom.fill("  ")
    wait_for(lambda: not dialog.CommandAjouter.enabled, "the add button disabled")


def test_separators_cannot_be_typed_into_the_path_but_a_path_can_be_pasted(dialog, paths):
    dialog.TextChemin.fill("a\\b/c:d*e?f<g>h|i\"j.exe -k")
    wait_for(lambda: dialog.TextChemin.text == "abcdefghij.exe -k", "the letters alone")
    dialog.TextNom.fill("a/b: c")
    wait_for(lambda: dialog.TextNom.text == "a/b: c", "a name with any character")
    dialog.TextChemin.paste(paths["a"])


def test_browsing_begins_in_the_program_folder_and_gives_a_full_path(program):
    (program.folder / "lecteur à moi.exe").write_bytes(b"MZ")
    dialog = open_players(program.open())
    dialog.Picture1.click()
    browser = program.message()
    assert browser.title == "Nom du fichier à utiliser pour la lecture des morceaux"
    assert "Exécutable (*.exe) " in browser.entries()
    assert "Tous les fichiers (*.*) " in browser.entries()
    program.desktop.paste("lecteur à moi.exe")
    program.desktop.keys("Return")
    browser.wait_gone()
    wait_for(lambda: dialog.TextChemin.text == windows_path(program.folder / "lecteur à moi.exe"),
             "the path")
    dialog.TextNom.fill("moi")
    dialog.CommandAjouter.click()
    wait_for(lambda: dialog.ListPlayers.items() == ["Moi"], "the player, blanks in its path")


def test_a_cancelled_browsing_changes_nothing_and_the_picture_obeys_the_keyboard(looked_at, dialog):
    dialog.TextNom.fill("moi")
    dialog.TextChemin.fill("avant")
    dialog.key("Tab")
    wait_for(lambda: dialog.Picture1.focused, "the picture to have the focus")
    dialog.key("space")
    browser = looked_at.message()
    dialog.key("Escape")
    browser.wait_gone()
    assert dialog.TextChemin.text == "avant" and dialog.TextNom.text == "moi"
    assert looked_at.message_or_none() is None


def test_the_first_player_becomes_current_at_once(program, paths):
    main = program.open()
    label_shows(main, "Aucun", DARK_RED)
    dialog = open_players(main)
    add(dialog, "  winamp ", f" {paths['a']}  ")
    wait_for(lambda: dialog.ListPlayers.items() == ["Winamp"], "the new player")
    label_shows(main, "Winamp", DARK_BLUE)
    assert dialog.TextNom.text == dialog.TextChemin.text == ""
    assert dialog.TextNom.focused and not dialog.CommandAjouter.enabled
    add(dialog, "Zinf", paths["b"])
    wait_for(lambda: dialog.ListPlayers.items() == ["Winamp", "Zinf"], "the second player")
    assert main.LabelLecteur.text == "Winamp"
    # Leaving without a choice keeps the current one.
    dialog.CommandOK.click()
    dialog.wait_gone()
    values = saved(program)
    assert values["PlayerTable"] == [("Winamp", paths["a"]), ("Zinf", paths["b"])]
    assert current_of(values) == (1, "Winamp", paths["a"])


def test_the_same_path_renames_and_the_same_name_gets_the_other_path(program, abc, paths):
    main = abc(current=2)
    dialog = open_players(main)
    add(dialog, "bis", paths["b"])
    wait_for(lambda: dialog.ListPlayers.items() == ["A", "Bis", "C"], "the new name")
    label_shows(main, "Bis")
    add(dialog, "Bis", paths["d"])
    wait_for(lambda: dialog.TextNom.text == "", "the boxes empty")
    assert dialog.ListPlayers.items() == ["A", "Bis", "C"]
    values = saved_after_closing(program, dialog)
    assert values["PlayerTable"][1] == ("Bis", paths["d"])
    assert current_of(values) == (2, "Bis", paths["d"])


def saved_after_closing(program, dialog):
    dialog.CommandOK.click()
    dialog.wait_gone()
    return saved(program)


@pytest.mark.parametrize("path", ["C:\\Lecteurs\\absent.exe", "C:\\Lecteurs", "pas un chemin",
                                  '"C:\\Lecteurs\\a.exe"'])
def test_an_executable_that_cannot_be_opened_is_refused(looked_at, dialog, path):
    add(dialog, " neuf ", path)
    box = looked_at.message()
    assert (box.title, box.text) == ("Fichier incorrect", INVALID)
    assert box.buttons() == ["OK"] and not box.has_icon
    box.answer("OK")
    wait_for(lambda: dialog.TextChemin.focused, "the path to have the focus")
    assert (dialog.TextNom.text, dialog.TextChemin.text) == ("Neuf", path)
    assert dialog.ListPlayers.items() == ["A", "B", "C"]
    assert looked_at.form_or_none("FrmMP3").LabelLecteur.text == "Aucun"


def test_the_201st_player_is_refused_and_the_200_stay(program, paths):
    table = [(f"P{number}", f"C:\\p\\{number}.exe") for number in range(1, 201)]
    settings.set_players(program.settings, table)
    main = program.open()
    dialog = open_players(main)
    for _ in range(2):
        add(dialog, "De trop", paths["a"])
        box = program.message()
        assert (box.title, box.text) == ("Fichier incorrect", INVALID)
        box.answer("OK")
    assert len(dialog.ListPlayers.items()) == 200
    # One that is there can still be changed.
    add(dialog, "P200", paths["a"])
    wait_for(lambda: dialog.TextNom.text == "", "the boxes empty")
    dialog.CommandOK.click()
    dialog.wait_gone()
    main.CommandLecteurMoins.click()
    label_shows(main, "P200")
    main.CommandLecteurPlus.click()
    label_shows(main, "Aucun")
    assert saved(program)["PlayerTable"] == table[:199] + [("P200", paths["a"])]


def test_a_choice_fills_the_boxes(dialog, paths):
    dialog.ListPlayers.click_item("B")
    wait_for(lambda: dialog.TextNom.text == "B", "the name")
    assert dialog.TextChemin.text == paths["b"]
    assert dialog.CommandSupprimer.enabled and dialog.CommandAjouter.enabled


def test_of_two_with_one_name_the_last_fills_the_boxes_and_the_first_is_chosen(program, paths):
    settings.set_players(program.settings, [("Même", paths["a"]), ("Même", paths["b"])])
    main = program.open()
    dialog = open_players(main)
    dialog.ListPlayers.click_item("Même")
    wait_for(lambda: dialog.TextChemin.text == paths["b"], "the last one's path")
    values = saved_after_closing(program, dialog)
    assert current_of(values) == (1, "Même", paths["a"])


def test_a_button_that_is_pressed_by_a_message_closes_at_once(looked_at):
    """As another program presses it: nothing comes that would wake a window waiting for the user."""
    main = looked_at.form("FrmMP3")
    dialog = open_players(main)
    looked_at.desktop.tidy()
    dialog.CommandOK.press_by_message()
    dialog.wait_gone()
    assert main.state["enabled"]


def test_deleting_wants_name_and_path(program, abc, paths):
    dialog = open_players(abc(current=1))
    dialog.ListPlayers.click_item("B")
    wait_for(lambda: dialog.CommandSupprimer.enabled, "the delete button")
    dialog.TextChemin.paste(paths["c"])
    dialog.CommandSupprimer.click()
    wait_for(lambda: dialog.TextNom.text == "", "the boxes empty")
    assert dialog.TextChemin.text == "" and dialog.TextNom.focused
    assert dialog.ListPlayers.items() == ["A", "B", "C"]
    # Nothing was deleted, so the choice stands, and closing takes it.
    assert dialog.ListPlayers.choice == "B" and dialog.CommandSupprimer.enabled
    assert current_of(saved_after_closing(program, dialog)) == (2, "B", paths["b"])


def test_deleting_before_the_current_player_keeps_its_name_and_program(program, abc, paths):
    main = abc(current=2)
    dialog = open_players(main)
    delete(dialog, "A")
    assert dialog.ListPlayers.items() == ["B", "C"] and dialog.TextNom.focused
    assert main.LabelLecteur.text == "B"
    values = saved_after_closing(program, dialog)
    assert values["PlayerTable"] == [("B", paths["b"]), ("C", paths["c"])]
    # Its number is that of the former last one.
    assert current_of(values) == (3, "B", paths["b"])


def test_deleting_the_current_player_makes_the_last_one_current(program, abc, paths):
    main = abc(current=1)
    dialog = open_players(main)
    delete(dialog, "A")
    label_shows(main, "C")
    delete(dialog, "C")
    label_shows(main, "B")
    delete(dialog, "B")
    label_shows(main, "Aucun", DARK_RED)
    values = saved_after_closing(program, dialog)
    assert values["PlayerTable"] == [] and current_of(values) == (0, "Aucun", "")


def test_closing_chooses_the_selected_player(program, abc, paths):
    main = abc()
    dialog = open_players(main)
    dialog.ListPlayers.click_item("C")
    dialog.CommandOK.click()
    dialog.wait_gone()
    label_shows(main, "C")
    assert current_of(saved(program)) == (3, "C", paths["c"])


@pytest.mark.parametrize("way", ["Escape", "alt+F4"])
def test_leaving_in_another_way_chooses_none(program, abc, paths, way):
    main = abc(current=1)
    dialog = open_players(main)
    dialog.ListPlayers.click_item("C")
    wait_for(lambda: dialog.ListPlayers.choice == "C", "the choice")
    program.desktop.keys(way)
    dialog.wait_gone()
    assert current_of(saved(program)) == (1, "A", paths["a"])


def test_enter_adds_in_the_boxes_and_chooses_in_the_list(program, abc, paths):
    main = abc()
    dialog = open_players(main)
    assert dialog.ListPlayers.focused
    dialog.TextNom.fill("d")
    dialog.TextChemin.paste(paths["d"])
    program.desktop.keys("Return")
    wait_for(lambda: dialog.ListPlayers.items() == ["A", "B", "C", "D"], "the added player")
    program.desktop.keys("shift+Tab")
    wait_for(lambda: dialog.ListPlayers.focused, "the list to have the focus")
    # The first key chooses the entry that the list's focus is on.
    program.desktop.keys("Down", "End", "Return")
    dialog.wait_gone()
    label_shows(main, "D")


def test_the_tab_key_follows_the_eye(dialog):
    dialog.key("Down")
    wait_for(lambda: dialog.CommandSupprimer.enabled, "every control usable")
    order = [dialog.ListPlayers, dialog.TextNom, dialog.TextChemin, dialog.Picture1,
             dialog.CommandAjouter, dialog.CommandSupprimer, dialog.CommandOK, dialog.ListPlayers]
    for control in order:
        wait_for(lambda: control.focused, f"{control.name} to have the focus")
        dialog.key("Tab")


def test_stepping_goes_round_with_none_as_one_stop(program, abc, paths):
    main = abc()
    for name, colour in (("C", DARK_BLUE), ("B", None), ("A", None), ("Aucun", DARK_RED)):
        main.CommandLecteurMoins.click()
        label_shows(main, name, colour)
    for name, colour in (("A", DARK_BLUE), ("B", None), ("C", None), ("Aucun", DARK_RED),
                         ("A", None)):
        main.CommandLecteurPlus.click()
        label_shows(main, name, colour)
    assert current_of(saved(program)) == (1, "A", paths["a"])
    label_shows(program.open(), "A", DARK_BLUE)


def test_without_players_there_is_nothing_to_step_through(program):
    main = program.open()
    main.CommandLecteurMoins.click()
    main.CommandLecteurPlus.click()
    label_shows(main, "Aucun", DARK_RED)
    assert current_of(saved(program)) == (0, "Aucun", "")
