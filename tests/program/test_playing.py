"""Playing: what the external player is started with, and when."""
import contextlib
import os

import pytest

from harness import medium, settings
from harness.desktop import CD_ROM, FIXED, Desktop
from harness.player import RecordingPlayer, windows_path
from harness.program import Program
from harness.steps import ALL, add_cd, choose_cd, open_players
from harness.waiting import wait_for

CD = {"Mes airs/été à deux.mid": medium.mid(), "Mes airs/zeste.mid": medium.mid(60)}
DISK = {"Musique/beau.mid": medium.mid()}
OTHER_LETTERS = {"Musique/\N{CJK UNIFIED IDEOGRAPH-97F3}.mid": medium.mid()}


@pytest.fixture(scope="module")
def desktop(tmp_path_factory):
    """E: and G: are CD-ROM drives, F: and H: hard disks."""
    folders = [medium.write(tmp_path_factory.mktemp("drive"), files)
               for files in (CD, DISK, {}, OTHER_LETTERS)]
    with Desktop(medium=folders[0], drives={"f": (folders[1], FIXED), "g": (folders[2], CD_ROM),
                                            "h": (folders[3], FIXED)}) as made:
        yield made


@pytest.fixture(scope="module")
def player(desktop):
    """A player in a folder with a blank and an accent, and no other one where its path is cut."""
    made = RecordingPlayer(desktop, "Mon lecteur/écoute bien.exe")
    yield made
    made.leave()


@pytest.fixture(scope="module")
def catalogued(desktop, player):
    """The program's files: a CD and a hard disk catalogued, the player chosen."""
    with Program(desktop) as made:
        settings.set_players(made.settings, [("Écoute", player.path)], current=1)
        main = made.open()
        add_cd(main, "CD")
        add_cd(main, "Disque", "f:")
        made.quit()
        yield list(made.folder.iterdir())


@pytest.fixture
def program(catalogued, desktop, player):
    player.forget()
    with Program(desktop, files=catalogued) as made:
        yield made
    desktop.tidy()


def opened(program, cd=ALL, count=3):
    main = program.open()
    choose_cd(main, cd)
    wait_for(lambda: main.DBList2.count == count, f"{count} tracks")
    return main


def playlist(program):
    return program.folder / "Brivantole.m3u"


def list_command(program, player):
    return f'{player.path} "{windows_path(playlist(program))}"'


def test_a_click_plays_the_track_once(program, player):
    main = opened(program)
    assert main.DBList2.rows() == ["Beau", "Été à deux", "Zeste"]
    main.DBList2.click_row(1)
    of_cd = f'{player.path} "E:\\Mes airs\\été à deux.mid"'
    player.wait_started(of_cd)
    # Somewhere else in the row, so that it is no double click.
    x, y = main.DBList2.item_place(1)
    main.desktop.click(x + 100, y)
    main.DBList2.click_row(0)
    of_disk = f'{player.path} "F:\\Musique\\beau.mid"'
    player.wait_started(of_cd, of_disk)
    main.DBList2.click_row(1)
    player.wait_started(of_cd, of_disk, of_cd)
    assert not playlist(program).exists()


def test_enter_plays_what_the_arrows_chose_and_a_refresh_forgets_the_last_click(program, player):
    main = opened(program, "CD", 2)
    main.DBList2.click_row(0)
    first, second = (f'{player.path} "E:\\Mes airs\\{name}.mid"' for name in ("été à deux", "zeste"))
    player.wait_started(first)
    main.key("Return", "Down", "Return")
    player.wait_started(first, second)
    main.key("F5")
    wait_for(lambda: main.DBList2.selected == [], "the list filled anew")
    main.DBList2.click_row(1)
    player.wait_started(first, second, second)


def test_the_keyboard_plays_the_marked_track_and_the_whole_list(program, player):
    main = opened(program)
    main.List1.wait(lambda: main.List1.focused, "to have the focus")
    main.key("Tab", "ctrl+Return")
    player.wait_started(list_command(program, player))
    assert main.DBList2.selected == [0]
    main.key("Return")
    first = f'{player.path} "F:\\Musique\\beau.mid"'
    player.wait_started(list_command(program, player), first)
    main.key("F5")
    wait_for(lambda: main.DBList2.selected == [], "the list filled anew")
    for key in ("Home", "Prior"):
        main.key(key)
        wait_for(lambda: main.DBList2.selected == [0], "the first track chosen")
        main.key("F5")
        wait_for(lambda: main.DBList2.selected == [], "the list filled anew")


def test_a_double_click_below_the_tracks_plays_the_list_once_one_was_chosen(program, player):
    main = opened(program)
    _, _, right, bottom = main.DBList2.rect
    main.desktop.click(right - 40, bottom - 30, times=2)
    main.DBList2.click_row(0)
    track = f'{player.path} "F:\\Musique\\beau.mid"'
    player.wait_started(track)
    assert not playlist(program).exists()
    main.desktop.click(right - 40, bottom - 30, times=2)
    player.wait_started(track, list_command(program, player))


def test_a_double_click_plays_the_track_and_then_the_list(program, player):
    main = opened(program)
    main.Option2.click()
    wait_for(lambda: main.DBList2.rows() == ["Été à deux", "Zeste", "Beau"], "the order by path")
    playlist(program).write_bytes(b"older, and much longer than what comes\r\n" * 9)
    main.DBList2.click_row(2, times=2)
    track, whole = f'{player.path} "F:\\Musique\\beau.mid"', list_command(program, player)
    player.wait_started(track, whole)
    assert playlist(program).read_bytes() == (
        "E:\\Mes airs\\été à deux.mid\r\nE:\\Mes airs\\zeste.mid\r\nF:\\Musique\\beau.mid\r\n"
        .encode("cp1252"))
    # The track itself was played before; the list is played each time.
    main.DBList2.click_row(2, times=2)
    player.wait_started(track, whole, whole)


def test_a_name_outside_the_code_page_reaches_the_player_and_the_playlist(program, player):
    main = program.open()
    add_cd(main, "Ailleurs", "h:")
    wait_for(lambda: main.DBList2.count == 1, "its track")
    main.DBList2.click_row(0, times=2)
    player.wait_started(f'{player.path} "H:\\Musique\\音.mid"', list_command(program, player))
    assert playlist(program).read_bytes() == "\ufeffH:\\Musique\\音.mid\r\n".encode()


def test_a_path_beyond_260_characters_reaches_the_player_and_the_playlist(program, player, desktop,
                                                                         tmp_path):
    deep = "/".join(letter * 60 for letter in "abcdef") + "/fin.mid"
    with other_disk(desktop, medium.write(tmp_path, {deep: medium.mid()})):
        main = program.open()
        add_cd(main, "Profond", "h:")
        wait_for(lambda: main.DBList2.count == 1, "its track")
        main.DBList2.click_row(0, times=2)
        path = "H:\\" + deep.replace("/", "\\")
        player.wait_started(f'{player.path} "{path}"', list_command(program, player))
    assert playlist(program).read_bytes() == f"{path}\r\n".encode("cp1252")


@contextlib.contextmanager
def other_disk(desktop, folder):
    """Puts another folder in drive H:."""
    before = os.readlink(desktop.prefix / "dosdevices" / "h:")
    desktop.set_medium("h", folder)
    yield
    desktop.set_medium("h", before)


def test_a_cd_is_shown_and_played_from_the_present_drive(program, player):
    settings.set_text(program.settings, "CdRomDrive", "G:")
    main = opened(program)
    main.DBList2.press_row(2, button=3)
    details = wait_for(lambda: program.form_or_none("FrmInfoTitre"), "the pop-up")
    assert "G:\\Mes airs\\zeste.mid" in {label["text"] for label in details.children("Static")}
    main.desktop.release(3)
    details.wait_gone()
    main.DBList2.click_row(2, times=2)
    player.wait_started(f'{player.path} "G:\\Mes airs\\zeste.mid"', list_command(program, player))
    assert playlist(program).read_bytes() == (
        "F:\\Musique\\beau.mid\r\nG:\\Mes airs\\été à deux.mid\r\nG:\\Mes airs\\zeste.mid\r\n"
        .encode("cp1252"))


def test_without_a_player_nothing_is_started_or_written(program, player):
    main = opened(program)
    main.CommandLecteurPlus.click()
    wait_for(lambda: main.LabelLecteur.text == "Aucun", "no player")
    main.DBList2.click_row(0, times=2)
    main.key("Return")
    main.CommandLecteurPlus.click()
    wait_for(lambda: main.LabelLecteur.text == "Écoute", "the player")
    assert player.starts() == [] and not playlist(program).exists()
    # The clicks counted all the same: this is the list's alone.
    main.DBList2.click_row(0, times=2)
    player.wait_started(list_command(program, player))


def test_a_playlist_that_cannot_be_written_is_reported_and_not_played(program, player):
    playlist(program).mkdir()
    main = opened(program)
    main.DBList2.click_row(0, times=2)
    report = program.message()
    assert windows_path(playlist(program)) in report.text
    report.answer("OK")
    assert main.state["enabled"]
    player.wait_started(f'{player.path} "F:\\Musique\\beau.mid"')


def test_the_program_goes_on_while_the_player_plays(program, player):
    player.stay()
    main = opened(program)
    main.DBList2.click_row(0)
    wait_for(lambda: any(window["text"] == "Player" and window["minimized"]
                         for window in program.desktop.probe.ask("windows")),
             "the player's window, minimised")
    main.Option3.click()
    wait_for(lambda: main.Option3.checked, "the program to answer")
    player.leave()


def test_a_blank_in_the_path_starts_no_other_program(program, desktop, player):
    other = RecordingPlayer(desktop, "Mon.exe")
    main = opened(program)
    main.DBList2.click_row(0)
    player.wait_started(f'{player.path} "F:\\Musique\\beau.mid"')
    assert other.starts() == []
    other.file.unlink()


def test_a_path_between_quotation_marks_starts_the_player_as_it_stands(program, player):
    settings.set_text(program.settings, "PlayerPath", f'"{player.path}"')
    main = opened(program)
    main.DBList2.click_row(0)
    player.wait_started(f'"{player.path}" "F:\\Musique\\beau.mid"')


def test_a_player_beside_the_program_is_started_by_its_name(program, player):
    """Such a name can be typed, and it is accepted: the file is there."""
    (program.folder / "lecteur.exe").write_bytes(player.file.read_bytes())
    main = opened(program)
    dialog = open_players(main)
    dialog.TextNom.fill("Voisin")
    dialog.TextChemin.fill("lecteur.exe")
    main.key("Return")
    wait_for(lambda: "Voisin" in dialog.ListPlayers.items(), "the new player")
    dialog.ListPlayers.click_item("Voisin")
    dialog.CommandOK.click()
    dialog.wait_gone()
    main.DBList2.click_row(0)
    log = program.folder / "lecteur.exe.txt"
    wait_for(lambda: log.exists() and log.read_text().endswith("\n"), "the start")
    assert log.read_text().rstrip("\n").split("\t")[2] == 'lecteur.exe "F:\\Musique\\beau.mid"'


def test_a_player_that_is_gone_is_reported_and_the_program_goes_on(program, player):
    settings.set_text(program.settings, "PlayerPath", "C:\\Mon lecteur\\parti.exe")
    main = opened(program)
    main.DBList2.click_row(0)
    report = program.message()
    assert "C:\\Mon lecteur\\parti.exe" in report.text
    assert report.buttons() == ["OK"]
    report.answer("OK")
    main.DBList2.click_row(1)
    program.message().answer("OK")
    main.CommandLecteurMoins.click()
    main.CommandLecteurMoins.click()
    wait_for(lambda: main.LabelLecteur.text == "Écoute", "the player that is there")
    main.DBList2.click_row(2)
    player.wait_started(f'{player.path} "E:\\Mes airs\\zeste.mid"')
