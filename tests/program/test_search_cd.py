"""Searching a new medium for known titles: what is found, shown and played, and what can go wrong."""
import pytest

from harness import catalogue, medium, settings
from harness.desktop import CD_ROM, FIXED, Desktop
from harness.player import RecordingPlayer, windows_path
from harness.program import Program
from harness.runwindow import check_order, check_kept_size
from harness.steps import add_cd, open_search, search
from harness.waiting import wait_for

KNOWN = {
    "a/01.mp3": medium.mp3("Première", "Les Essais", 3000),
    "a/02.mp3": medium.mp3("Deuxième", "Les Essais", 2000),
    "b/air.mid": medium.mid(1500),
    "b/crochet [x].mid": medium.mid(60),
    "b/espace.xm": medium.xm('Un "espace"', 4000),
}
# What the second medium has in common with it, and what it has not.
NEW = {
    "x/premiere.mp3": medium.mp3("PREMIÈRE", "les essais", 3000),   # known in size, too
    "x/deuxieme.mp3": medium.mp3("Deuxième", "Les Essais", 2001),   # known by its title alone
    "x/accent.mp3": medium.mp3("Premiere", "Les Essais", 3000),     # another letter: not known
    "x/Air.wav": medium.wav(1500),                                  # another type: not known
    "crochet [x].mid": medium.mid(60),
    "y/guillemets.xm": medium.xm('Un "espace"', 4000),
    "y/nouveau.mod": medium.mod("tout neuf", 1084),
    "faux.wav": b"not a RIFF file",
    "texte.txt": b"no music",
}
# In the order of the medium's folders, in which a folder's files stand before those below it.
BY_TITLE = {"Crochet [x]", "PREMIÈRE - les essais", "Deuxième - Les Essais", "Un 'espace'"}
BY_SIZE = BY_TITLE - {"Deuxième - Les Essais"}
SUMMARY = ("Analyse terminée.\r\n\n"
           "Méthode 1 : 3 nouveaux morceaux (5 Ko) sur 7 - 4 morceaux déjà mémorisés (9 Ko).\r\n"
           "Méthode 2 : 4 nouveaux morceaux (7 Ko) sur 7 - 3 morceaux déjà mémorisés (7 Ko).")


@pytest.fixture(scope="module")
def folders(tmp_path_factory):
    return {name: medium.write(tmp_path_factory.mktemp(name), files)
            for name, files in {"known": KNOWN, "new": NEW, "empty": {}}.items()}


@pytest.fixture(scope="module")
def desktop(folders):
    """E: and F: are CD-ROM drives, H: is a hard disk with what is new."""
    with Desktop(medium=folders["new"],
                 drives={"f": (folders["new"], CD_ROM), "h": (folders["new"], FIXED)}) as made:
        yield made


@pytest.fixture(scope="module")
def player(desktop):
    return RecordingPlayer(desktop, "Mon lecteur/écoute.exe")


@pytest.fixture(scope="module")
def catalogued(desktop, folders, player):
    """The program's files with the known medium in the catalogue and the player chosen."""
    with Program(desktop) as made:
        settings.set_players(made.settings, [("Écoute", player.path)], current=1)
        main = made.open()
        desktop.set_medium("e", folders["known"])
        add_cd(main, "Connu")
        desktop.set_medium("e", folders["new"])
        made.quit()
        yield list(made.folder.iterdir())


@pytest.fixture(scope="module")
def shared(catalogued, desktop):
    """One program for the tests that leave nothing behind but closed windows."""
    with Program(desktop, files=catalogued) as made:
        made.open()
        yield made


@pytest.fixture
def main(shared, folders, player):
    player.forget()
    yield shared.form("FrmMP3")
    shared.desktop.tidy()
    shared.desktop.set_medium("e", folders["new"])
    shared.only_main_window()


def close(results):
    results.CommandOkannul.click()
    results.program.wait_gone("FrmInfoRech")


def real_path(title):
    names = {"Crochet [x]": "crochet [x].mid", "PREMIÈRE - les essais": "x\\premiere.mp3",
             "Deuxième - Les Essais": "x\\deuxieme.mp3", "Un 'espace'": "y\\guillemets.xm"}
    return "E:\\" + names[title]


def test_the_dialog_says_what_it_does(main):
    dialog = open_search(main)
    assert dialog.title == "Recherche sur CD titres déjà mémorisés"
    assert dialog.LabelRechtitre.text == (
        "Brivantole Audio va scanner votre lecteur source et faire une liste de tous les fichiers "
        "musicaux se trouvant déjà mémorisés.")
    assert dialog.LabelRechtitre.visible
    assert dialog.FrameRech.text == "Source"
    assert dialog.LabelRech.text == (
        "Sélectionnez le lecteur de votre choix (et insérez-y un CD si le lecteur est de type CD ROM)")
    assert dialog.CommandAnnul.text == "Annuler"
    assert dialog.DriveRech.choice[:2].upper() == "E:"
    dialog.CommandAnnul.click()
    main.program.wait_gone("FrmRechCD")


@pytest.mark.parametrize("end", ["CommandAnnul", "Escape", "alt+F4"])
def test_cancelling_searches_nothing(main, end):
    dialog = open_search(main)
    dialog.DriveRech.choose_entry("h:")
    if end == "CommandAnnul":
        dialog.CommandAnnul.click()
    else:
        main.desktop.keys(end)
    main.program.wait_gone("FrmRechCD")
    assert main.program.form_or_none("FrmInfoRech") is None
    assert main.Label2.text == "E:\\"


def test_enter_begins_the_search(main):
    open_search(main).key("Return")
    results = main.program.form("FrmInfoRech")
    wait_for(lambda: results.CommandOkannul.text == "OK", "the end of the search")
    close(results)


def test_both_lists_and_the_summary(main):
    results = search(main)
    assert results.title == "Recherche sur CD titres déjà mémorisés"
    assert results.Label1_0.text == (
        "Titres déjà mémorisés  (méthode de détection 1 : nom du morceau connu)")
    assert results.Label1_1.text == (
        "Titres déjà mémorisés  (méthode de détection 2 : nom du morceau connu + taille identique)")
    rows = results.List1.rows()
    assert set(rows) == BY_TITLE and len(rows) == len(BY_TITLE)
    assert results.List2.rows() == [row for row in rows if row in BY_SIZE]
    assert results.Label2.text == SUMMARY
    assert results.CommandOkannul.focused
    assert not results.Progression.visible
    close(results)


@pytest.mark.parametrize("end", ["Return", "Escape", "alt+F4"])
def test_keys_close_the_results(main, end):
    search(main)
    main.desktop.keys(end)
    main.program.wait_gone("FrmInfoRech")
    assert main.state["enabled"]


def test_the_drive_of_a_search_is_for_that_search_alone(main):
    results = search(main, "h:")
    assert results.List1.count == 4
    close(results)
    assert main.Label2.text == "E:\\"
    dialog = open_search(main)
    assert dialog.DriveRech.choice[:2].upper() == "E:"
    dialog.CommandAnnul.click()
    main.program.wait_gone("FrmRechCD")


def test_the_first_cd_rom_drive_counts_afterwards(main):
    close(search(main, "f:"))
    assert main.Label2.text == "E:\\"


def test_a_click_plays_the_track_from_its_drive(main, player):
    results = search(main)
    title = results.List1.rows()[2]
    results.List1.click_row(2)
    player.wait_started(f'{player.path} "{real_path(title)}"')
    player.forget()
    title = results.List2.rows()[1]
    results.List2.click_row(1)
    player.wait_started(f'{player.path} "{real_path(title)}"')
    close(results)


def test_the_space_bar_plays_like_a_click(main, player):
    results = search(main)
    results.List1.click_row(0)
    first, second = results.List1.rows()[:2]
    player.wait_started(f'{player.path} "{real_path(first)}"')
    main.desktop.keys("Down", "space")
    player.wait_started(f'{player.path} "{real_path(first)}"', f'{player.path} "{real_path(second)}"')
    close(results)


def test_control_and_enter_play_the_whole_list(main, player):
    results = search(main)
    main.desktop.keys("shift+Tab")
    results.List2.wait(lambda: results.List2.focused, "to have the focus")
    main.desktop.keys("ctrl+Return")
    playlist = main.program.folder / "Brivantole.m3u"
    player.wait_started(f'{player.path} "{windows_path(playlist)}"')
    assert results.List2.selected == [0]
    assert playlist.read_text(encoding="cp1252").splitlines() == [
        real_path(title) for title in results.List2.rows()]
    close(results)


@pytest.mark.parametrize("name", ["List1", "List2"])
def test_a_double_click_plays_the_whole_list_in_its_order(main, player, name):
    results = search(main)
    titles = results.control(name).rows()
    results.control(name).click_row(1, times=2)
    playlist = main.program.folder / "Brivantole.m3u"
    player.wait_started(f'{player.path} "{real_path(titles[1])}"',
                        f'{player.path} "{windows_path(playlist)}"')
    assert playlist.read_bytes().decode("cp1252") == "".join(
        f"{real_path(title)}\r\n" for title in titles)
    close(results)


def test_below_the_rows_nothing_is_played(main, player):
    results = search(main)
    left, _, right, bottom = results.List1.rect
    main.desktop.click((left + right) // 2, bottom - 8, times=2)
    # The double click has been dealt with when the next click has.
    results.List1.click_row(0)
    player.wait_started(f'{player.path} "{real_path(results.List1.rows()[0])}"')
    close(results)


def test_the_right_button_shows_the_details_while_it_is_held(main):
    results = search(main)
    # The pop-up stands over the results, not over the main window.
    results.resize(results.size[0] + 120, results.size[1] + 60)
    wait_for(lambda: not results.stands_over_the_middle_of(main), "the larger window")
    row = results.List1.rows().index("Deuxième - Les Essais")
    results.List1.press_row(row, button=3)
    popup = main.program.form_or_none("FrmInfoTitre") or wait_for(
        lambda: main.program.form_or_none("FrmInfoTitre"), "the pop-up")
    texts = {child["text"] for child in popup.children("Static")}
    assert {"Deuxième - Les Essais", "E:\\x\\deuxieme.mp3", "2 Ko"} <= texts
    assert popup.stands_over_the_middle_of(results)
    main.desktop.release(button=3)
    main.program.wait_gone("FrmInfoTitre")
    close(results)


def test_a_key_shows_the_details_too(main, player):
    results = search(main)
    row = results.List2.rows().index("Un 'espace'")
    results.List2.click_row(row)
    results.key("Menu")
    popup = main.program.form("FrmInfoTitre")
    assert {"Un 'espace'", "E:\\y\\guillemets.xm", "4 Ko"} <= {
        child["text"] for child in popup.children("Static")}
    assert popup.stands_over_the_middle_of(results)
    results.key("Escape")
    popup.wait_gone()
    main.program.form("FrmInfoRech")
    results.List2.wait(lambda: results.List2.focused, "to have the focus again")
    close(results)


def test_without_a_player_clicks_do_nothing(catalogued, desktop, player):
    player.forget()
    with Program(desktop, files=catalogued) as program:
        main = program.open()
        main.CommandLecteurMoins.click()
        wait_for(lambda: main.LabelLecteur.text == "Aucun", "no player")
        results = search(main)
        results.List1.click_row(0, times=2)
        results.List2.click_row(0)
        wait_for(lambda: results.List2.selected == [0], "the click")
        close(results)
        assert player.starts() == []
        assert not (program.folder / "Brivantole.m3u").exists()


def test_a_player_that_is_gone_does_not_stop_the_window(catalogued, desktop):
    with Program(desktop, files=catalogued) as program:
        settings.set_text(program.settings, "PlayerPath", "C:\\parti\\lecteur.exe")
        results = search(program.open())
        results.List1.click_row(0)
        program.message().answer("OK")
        close(results)
        assert program.quit() == 0


def test_an_empty_medium_still_sums_up(main, folders):
    main.desktop.set_medium("e", folders["empty"])
    results = search(main)
    assert results.List1.count == results.List2.count == 0
    assert results.Label2.text == (
        "Analyse terminée.\r\n\n"
        "Méthode 1 : 0 nouveaux morceaux (0 Octets) sur 0 - 0 morceaux déjà mémorisés (0 Octets).\r\n"
        "Méthode 2 : 0 nouveaux morceaux (0 Octets) sur 0 - 0 morceaux déjà mémorisés (0 Octets).")
    close(results)


def test_a_medium_without_known_titles_counts_all_as_new(main, tmp_path):
    main.desktop.set_medium("e", medium.write(tmp_path / "m", {"inédit.mid": medium.mid(100)}))
    results = search(main)
    assert results.List1.count == results.List2.count == 0
    assert "Méthode 1 : 1 nouveaux morceaux (100 Octets) sur 1 - 0 " in results.Label2.text
    close(results)


def test_a_drive_without_a_medium_is_reported(main):
    dialog = open_search(main)
    main.desktop.set_medium("e", None)
    dialog.CommandOK.click()
    main.program.message().answer("OK")
    main.program.wait_gone("FrmInfoRech")
    assert main.state["enabled"]


def test_a_search_leaves_the_catalogue_as_it_was(catalogued, desktop):
    with Program(desktop, files=catalogued) as program:
        before = catalogue.rows(program.database)
        close(search(program.open()))
        program.quit()
        assert catalogue.rows(program.database) == before
        assert settings.read(program.settings)["CdRomDrive"] == "E:"


def test_the_window_can_be_stopped_while_it_reads(main, tmp_path):
    folder = medium.write(tmp_path / "m", {f"{n % 50}/{n}.mid": medium.mid() for n in range(5000)})
    main.desktop.set_medium("e", folder)
    open_search(main).CommandOK.click()
    results = main.program.form("FrmInfoRech")
    assert results.CommandOkannul.text == "Annuler"
    results.CommandOkannul.click()
    main.program.wait_gone("FrmInfoRech")
    assert main.state["enabled"]


def in_order(results):
    """Lists side by side and as high as each other, headings over them, all inside the window."""
    left, top, right, bottom = results.rect
    list1, list2 = results.List1.rect, results.List2.rect
    button = results.CommandOkannul.rect
    return (abs((list1[2] - list1[0]) - (list2[2] - list2[0])) <= 1
            and (list1[1], list1[3]) == (list2[1], list2[3]) and list1[2] < list2[0]
            and all((heading[0], heading[2]) == (below[0], below[2]) and heading[3] <= below[1]
                    for heading, below in ((results.Label1_0.rect, list1),
                                           (results.Label1_1.rect, list2)))
            and list1[3] <= results.Label2.rect[1] < button[1]
            and abs((button[0] + button[2]) - (left + right)) <= 20 and button[3] < bottom
            and left < list1[0] and list2[2] < right and top < list1[1])


def test_the_window_keeps_its_order_at_any_size(main):
    results = search(main)
    check_order(results, in_order)
    close(results)


def test_the_size_is_kept_for_the_next_run(catalogued, desktop):
    with Program(desktop, files=catalogued) as program:
        check_kept_size(program, search, close, (1, 2, 3))


@pytest.mark.parametrize("stored, size", settings.ABSURD_RUN_SIZES)
def test_stored_sizes_that_make_no_sense_give_a_usable_window(catalogued, desktop, stored, size):
    height, width, state = stored
    with Program(desktop, files=catalogued) as program:
        settings.change(program.settings, LayoutValue1=height, LayoutValue2=width,
                        LayoutValue3=state)
        results = search(program.open())
        assert not results.state["minimized"] and not results.state["maximized"]
        assert results.size == size
        left, top, right, bottom = results.rect
        assert left >= -4 and top >= -4 and right <= 1284 and bottom <= 1004
        assert in_order(results)
        close(results)
