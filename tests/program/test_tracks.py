"""The track list: what is chosen, ticked, sorted, searched and counted."""
import pytest

from harness import medium
from harness.program import Program
from harness.steps import ALL, add_cd, choose_cd
from harness.waiting import wait_for

SECOND = {
    "b/Zèbre.mid": medium.mid(300),
    "b/arbre.mid": medium.mid(100),
    "a/Été 100%.wav": medium.wav(200),
    "a/[live] x.wav": medium.wav(400),
}


@pytest.fixture(scope="module")
def filled(desktop, tmp_path_factory):
    """A program folder whose catalogue holds two media, and the program on it."""
    program = Program(desktop)
    main = program.open()
    add_cd(main, "Album")
    desktop.set_medium("e", medium.write(tmp_path_factory.mktemp("two"), SECOND))
    add_cd(main, "Bêtes")
    yield program
    program.close()


@pytest.fixture
def main(filled):
    """The main window with both media, every type shown, sorted by title, no search."""
    if not filled.running:
        filled.open()
    window = filled.form("FrmMP3")
    window.TextRech.fill("") if window.TextRech.enabled else None
    choose_cd(window, ALL)
    window.CheckAutoRefresh.set_checked(True)
    window.Check1.set_checked(False)
    window.Check3.set_checked(False)
    window.Option1.click()
    for index in range(10):
        window.control(f"CheckFormat{index}").set_checked(True)
    window.TextRech.fill("")
    window.Command1.click()
    wait_for(lambda: window.DBList2.count == 12, "all twelve tracks")
    yield window
    filled.desktop.tidy()


def shows(main, *titles):
    wait_for(lambda: main.DBList2.rows() == list(titles), f"the tracks {titles}")


def search(main, text):
    main.TextRech.fill(text)
    main.Command1.click()


def test_all_titles_shows_every_medium(main):
    assert main.DBList2.count == 12
    assert main.Label1.text == " 12 morceaux."


def test_one_medium_shows_its_own_tracks_by_title(main):
    choose_cd(main, "Bêtes")
    shows(main, "[live] x", "Arbre", "Été 100%", "Zèbre")
    assert main.Label1.text == " 4 morceaux."


def test_sorting_by_path_and_by_size(main):
    choose_cd(main, "Bêtes")
    main.Option2.click()
    shows(main, "[live] x", "Été 100%", "Arbre", "Zèbre")
    main.Option3.click()
    shows(main, "Arbre", "Été 100%", "Zèbre", "[live] x")
    main.Option1.click()
    shows(main, "[live] x", "Arbre", "Été 100%", "Zèbre")


def test_paths_and_the_names_of_media_can_be_shown(main):
    choose_cd(main, "Bêtes")
    main.Check1.click()
    shows(main, "[CD]\\a\\[live] x.wav", "[CD]\\b\\arbre.mid", "[CD]\\a\\Été 100%.wav",
          "[CD]\\b\\Zèbre.mid")
    main.Check3.click()
    shows(main, "[CD]\\a\\[live] x.wav [Bêtes]", "[CD]\\b\\arbre.mid [Bêtes]",
          "[CD]\\a\\Été 100%.wav [Bêtes]", "[CD]\\b\\Zèbre.mid [Bêtes]")
    main.Check1.click()
    shows(main, "[live] x [Bêtes]", "Arbre [Bêtes]", "Été 100% [Bêtes]", "Zèbre [Bêtes]")


def test_types_choose_the_tracks(main):
    # The ten boxes show the types from 669 to WAV; MID is the fourth, WAV the tenth.
    assert [main.control(f"CheckFormat{index}").text for index in range(10)] == [
        "669", "IT", "MDL", "MID", "MOD", "MP1", "MP2", "MP3", "S3M", "WAV"]
    choose_cd(main, "Bêtes")
    main.CheckFormat3.click()
    shows(main, "[live] x", "Été 100%")
    assert main.Label1.text == " 2 morceaux."
    main.CheckFormat9.click()
    shows(main)
    assert main.Label1.text == "Aucun morceau."


def test_no_type_ticked_lists_nothing(filled, main):
    for index in range(10):
        main.control(f"CheckFormat{index}").set_checked(False)
    for _ in range(2):
        main.CommandExtPlus.click()
    main.CheckFormat8.click()
    main.CheckFormat9.click()
    shows(main)
    assert main.Label1.text == "Aucun morceau."
    main.CheckFormat8.click()
    main.CheckFormat9.click()
    for _ in range(2):
        main.CommandExtMoins.click()


def test_types_are_paged_one_by_one(main):
    def captions():
        return [main.control(f"CheckFormat{index}").text for index in range(10)]
    assert not main.CommandExtMoins.enabled and main.CommandExtPlus.enabled
    main.CheckFormat0.click()
    main.CommandExtPlus.click()
    wait_for(lambda: captions()[0] == "IT", "the types one further")
    assert captions()[9] == "WMA"
    assert main.CheckFormat0.checked  # IT; 669 went out of view with its tick off
    assert main.CommandExtMoins.enabled and main.CommandExtPlus.enabled
    main.CommandExtPlus.click()
    wait_for(lambda: captions()[9] == "XM", "the types two further")
    assert not main.CommandExtPlus.enabled
    main.CommandExtMoins.click()
    main.CommandExtMoins.click()
    wait_for(lambda: captions()[0] == "669", "the first types")
    assert not main.CheckFormat0.checked
    assert not main.CommandExtMoins.enabled and main.CommandExtPlus.enabled


def test_a_search_looks_in_titles_and_paths(main):
    search(main, "ÉT")
    shows(main, "Été 100%")
    assert main.Label1.text == " 1 morceau."
    search(main, "suite")
    shows(main, "Espace 'intersidéral", "Hello world")
    search(main, "nothing like it")
    shows(main)
    assert main.Label1.text == "Aucun morceau."


def test_a_search_of_blanks_is_none(main):
    search(main, "   ")
    wait_for(lambda: main.DBList2.count == 12, "all tracks")


def test_wildcards_and_an_open_bracket_in_a_search(main):
    search(main, "a?bre")
    shows(main, "Arbre")
    search(main, "z*e")
    shows(main, "Zèbre")
    search(main, "[live")
    shows(main, "[live] x")


def test_a_quotation_mark_becomes_an_apostrophe(main):
    search(main, '"intersid')
    assert main.TextRech.text == "'intersid"
    shows(main, "Espace 'intersidéral")


def test_a_search_waits_for_the_next_refresh(main):
    before = main.DBList2.rows()
    main.TextRech.fill("arbre")
    assert main.DBList2.rows() == before
    main.Option3.click()
    shows(main, "Arbre")


def test_without_automatic_refresh_only_the_button_and_the_menu_refresh(filled, main):
    choose_cd(main, "Bêtes")
    shows(main, "[live] x", "Arbre", "Été 100%", "Zèbre")
    main.CheckAutoRefresh.set_checked(False)
    main.Option3.click()
    main.CheckFormat9.click()
    shows(main, "[live] x", "Arbre", "Été 100%", "Zèbre")
    main.Command1.click()
    shows(main, "Arbre", "Zèbre")
    main.CheckFormat9.click()
    shows(main, "Arbre", "Zèbre")
    main.choose("Outils", "Actualiser l'affichage")
    shows(main, "Arbre", "Été 100%", "Zèbre", "[live] x")
    main.Option2.click()
    main.CheckAutoRefresh.click()
    shows(main, "[live] x", "Été 100%", "Arbre", "Zèbre")
    main.CheckAutoRefresh.click()
    main.Option1.click()
    shows(main, "[live] x", "Été 100%", "Arbre", "Zèbre")


def test_choosing_a_medium_refreshes_even_without_automatic_refresh(main):
    main.CheckAutoRefresh.set_checked(False)
    choose_cd(main, "Bêtes")
    shows(main, "[live] x", "Arbre", "Été 100%", "Zèbre")
    choose_cd(main, ALL)
    wait_for(lambda: main.DBList2.count == 12, "all tracks")


def test_everything_is_found_again_at_the_next_start(filled, main):
    main.Check1.set_checked(True)
    main.Check3.set_checked(True)
    main.Option3.click()
    main.CheckFormat0.set_checked(False)
    main.CheckAutoRefresh.set_checked(False)
    filled.quit()
    again = filled.open()
    assert again.List1.items() == [ALL, "Album", "Bêtes"]
    assert again.List1.choice is None
    assert again.DBList2.count == 0
    assert again.Check1.checked and again.Check3.checked and again.Option3.checked
    assert not again.Option1.checked and not again.Option2.checked
    assert not again.CheckFormat0.checked and again.CheckFormat1.checked
    assert not again.CheckAutoRefresh.checked
    choose_cd(again, "Bêtes")
    shows(again, "[CD]\\b\\arbre.mid [Bêtes]", "[CD]\\a\\Été 100%.wav [Bêtes]",
          "[CD]\\b\\Zèbre.mid [Bêtes]", "[CD]\\a\\[live] x.wav [Bêtes]")
