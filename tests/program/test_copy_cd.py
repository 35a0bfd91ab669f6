"""Copying a new medium: what is ticked, what is copied, how it is shown, and what can go wrong."""
import os
import shutil

import pytest

from harness import catalogue, medium, settings, titles
from harness.desktop import FIXED, Desktop
from harness.paths import SAMPLE_MEDIUM
from harness.player import RecordingPlayer
from harness.program import Program
from harness.steps import add_cd, begin_copy, choose_cd, delete_cd, finish_copy, open_copy
from harness.waiting import wait_for

MUSIC = {path: data for path, data in medium.album().items()
         if not path.endswith((".txt", ".bak", "faux.wav"))}
ALL_SELECTED = ("Analyse terminée.\r\n\n"
                "8 morceaux sélectionnés (19 Ko) sur 8 morceaux trouvés (19 Ko).")


@pytest.fixture(scope="module")
def disk(tmp_path_factory):
    return tmp_path_factory.mktemp("disk")


@pytest.fixture(scope="module")
def desktop(disk, album_folder):
    """E: is a CD-ROM drive with the album, H: the hard disk to copy to."""
    with Desktop(medium=album_folder, drives={"h": (disk, FIXED)}) as made:
        yield made


@pytest.fixture(scope="module")
def player(desktop):
    return RecordingPlayer(desktop, "lecteur.exe")


@pytest.fixture(scope="module")
def shared(desktop, player):
    """One program for all tests, with one of the album's titles in its catalogue."""
    with Program(desktop) as made:
        settings.set_players(made.settings, [("Écoute", player.path)], current=1)
        settings.change(made.settings, DestinationDrive="h:", CopyDestination="H:\\Copies")
        made.open()
        yield made


@pytest.fixture
def target(disk):
    """The folder to copy to, empty."""
    folder = disk / "Copies"
    folder.mkdir()
    yield folder
    folder.chmod(0o755)
    shutil.rmtree(folder)


@pytest.fixture
def main(shared, album_folder, player, target):
    player.forget()
    yield shared.form("FrmMP3")
    shared.desktop.tidy()
    shared.desktop.set_medium("e", album_folder)
    shared.only_main_window()


def files(folder):
    """Every file below a folder: its path to its bytes."""
    return {str(path.relative_to(folder)): path.read_bytes()
            for path in folder.rglob("*") if path.is_file()}


def cancel(window):
    window.ComAnnuleCopie.click()
    window.program.wait_gone("FrmInfoCopy")


def markers(program):
    return [row for row in catalogue.rows(program.database) if row["Type"] == "T"]


def test_the_window_lists_every_track_ticked(main):
    window = begin_copy(main)
    assert window.title == "Copie de CD musical vers le disque dur"
    assert window.LabelTitrelist.text == "Morceaux du CD  (Titres cochés = titres à copier)"
    assert window.LabelInfoCopy.text == ALL_SELECTED
    assert set(window.ListInfocopy.rows()) == {row[0] for row in medium.ALBUM_ROWS}
    assert window.ListInfocopy.ticks() == [True] * 8
    assert window.CommandCopier.text == "Démarrer la copie"
    assert window.ComAnnuleCopie.text == "Annuler"
    wait_for(lambda: window.CommandCopier.enabled, "the start button")
    cancel(window)


@pytest.mark.parametrize("end", ["ComAnnuleCopie", "Escape", "alt+F4"])
def test_cancelling_copies_nothing(main, target, end):
    window = begin_copy(main)
    if end == "ComAnnuleCopie":
        window.ComAnnuleCopie.click()
    else:
        main.desktop.keys(end)
    main.program.wait_gone("FrmInfoCopy")
    assert files(target) == {} and main.state["enabled"]


def test_every_byte_is_copied_with_its_folder_and_its_time(main, target, album_folder):
    long_ago = 1_000_000_000
    os.utime(album_folder / "my_song.mid", (long_ago, long_ago))
    summary = finish_copy(begin_copy(main))
    assert summary == ("Copie terminée.\r\n\n"
                       "8 morceaux copiés (19 Ko) sur 8 morceaux trouvés (19 Ko).")
    assert files(target) == MUSIC
    assert (target / "my_song.mid").stat().st_mtime == long_ago
    assert main.Label2.text == "E:\\"
    assert markers(main.program) == []


def test_without_folders_all_files_stand_beside_each_other(main, target):
    finish_copy(begin_copy(main, lambda dialog: dialog.CheckRepert.set_checked(True)))
    assert files(target) == {path.rsplit("/")[-1]: data for path, data in MUSIC.items()}
    assert not any(path.is_dir() for path in target.iterdir())
    dialog = open_copy(main)
    dialog.CheckRepert.set_checked(False)
    dialog.ComCopierOK.click()
    cancel(main.program.form("FrmInfoCopy"))


def test_ticks_change_the_totals_and_the_start_button(main, target):
    window = begin_copy(main)
    rows = window.ListInfocopy.rows()
    sizes = {row[0]: row[2] for row in medium.ALBUM_ROWS}
    for index in range(8):
        assert window.CommandCopier.enabled
        window.ListInfocopy.click_tick(index)
        wait_for(lambda: not window.ListInfocopy.ticks()[index], "the tick to go")
        assert f"\n{7 - index} morceaux sélectionnés (" in window.LabelInfoCopy.text
    assert window.LabelInfoCopy.text == (
        "Analyse terminée.\r\n\n"
        "0 morceaux sélectionnés (0 Octets) sur 8 morceaux trouvés (19 Ko).")
    wait_for(lambda: not window.CommandCopier.enabled, "nothing to start")
    small = rows.index("My_song")
    window.ListInfocopy.click_tick(small)
    wait_for(lambda: window.CommandCopier.enabled, "something to start")
    assert f"\n1 morceaux sélectionnés ({sizes['My_song']} Octets) sur 8 " in (
        window.LabelInfoCopy.text)
    assert "1 morceaux copiés (77 Octets) sur 8 " in finish_copy(window)
    assert files(target) == {"my_song.mid": MUSIC["my_song.mid"]}


def test_the_space_bar_ticks_the_chosen_track(main):
    window = begin_copy(main)
    window.ListInfocopy.click_row(1)
    wait_for(lambda: window.ListInfocopy.selected == [1], "the second track to be chosen")
    assert window.ListInfocopy.ticks()[1]
    for ticked in (False, True):
        main.desktop.keys("space")
        wait_for(lambda: window.ListInfocopy.ticks()[1] == ticked, "the tick to change")
    cancel(window)


def test_the_keyboard_chooses_looks_and_starts_without_a_tab(main, target):
    window = begin_copy(main)
    window.ListInfocopy.wait(lambda: window.ListInfocopy.focused, "to have the focus")
    rows = window.ListInfocopy.rows()
    main.desktop.keys("Down", "Menu")
    popup = main.program.form("FrmInfoTitre")
    assert rows[0] in {child["text"] for child in popup.children("Static")}
    assert popup.stands_over_the_middle_of(window)
    main.desktop.keys("Escape")
    popup.wait_gone()
    main.program.form("FrmInfoCopy")
    main.desktop.keys("space")
    wait_for(lambda: window.ListInfocopy.ticks() == [False] + [True] * 7, "one tick less")
    main.desktop.keys("Return")
    wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
    assert len(files(target)) == 7
    cancel(window)


def test_a_double_click_on_a_tick_changes_it_twice(main):
    window = begin_copy(main)
    left, top, _, bottom = window.ListInfocopy._ask("item", 0)
    main.desktop.click(left - 8, (top + bottom) // 2, times=2)
    window.ListInfocopy.click_tick(1)
    wait_for(lambda: not window.ListInfocopy.ticks()[1], "the next tick to go")
    assert window.ListInfocopy.ticks()[0]
    cancel(window)


def test_the_right_button_shows_details_and_plays_when_it_is_dragged(main, player):
    window = begin_copy(main)
    # The details stand over the selection, not over the main window.
    window.resize(window.size[0] + 120, window.size[1] + 60)
    wait_for(lambda: not window.stands_over_the_middle_of(main), "the larger window")
    row = window.ListInfocopy.rows().index("Hello world")
    x, y = window.ListInfocopy.item_place(row)
    main.desktop.press(x, y, button=3)
    popup = wait_for(lambda: main.program.form_or_none("FrmInfoTitre"), "the pop-up")
    texts = {child["text"] for child in popup.children("Static")}
    assert {"Hello world", "E:\\Album\\Suite\\hello.mod", "1 Ko"} <= texts
    assert popup.stands_over_the_middle_of(window)
    assert player.starts() == []
    main.desktop.move(x + 3, y)
    main.program.wait_gone("FrmInfoTitre")
    player.wait_started(f'{player.path} "E:\\Album\\Suite\\hello.mod"')
    main.desktop.move(x + 30, y)
    main.desktop.release(button=3)
    assert len(player.starts()) == 1
    cancel(window)


def test_without_a_player_a_drag_only_closes_the_details(main, player):
    main.CommandLecteurMoins.click()
    wait_for(lambda: main.LabelLecteur.text == "Aucun", "no player")
    window = begin_copy(main)
    x, y = window.ListInfocopy.item_place(0)
    main.desktop.press(x, y, button=3)
    wait_for(lambda: main.program.form_or_none("FrmInfoTitre"), "the pop-up")
    main.desktop.move(x + 3, y)
    main.program.wait_gone("FrmInfoTitre")
    main.desktop.release(button=3)
    cancel(window)
    main.CommandLecteurPlus.click()
    wait_for(lambda: main.LabelLecteur.text == "Écoute", "the player")
    assert player.starts() == []


def test_only_the_ticked_types_and_what_holds_the_text_are_ticked(main, target):
    def only_suite(dialog):
        dialog.TextCopy.fill("SUITE")
    window = begin_copy(main, only_suite)
    ticked = {row for row, tick in zip(window.ListInfocopy.rows(), window.ListInfocopy.ticks())
              if tick}
    assert ticked == {"Hello world", "Espace 'intersidéral"}
    assert window.ListInfocopy.count == 8
    cancel(window)

    def without_mp3(dialog):
        dialog.CheckFormat7.set_checked(False)
    finish_copy(begin_copy(main, without_mp3))
    assert files(target) == {path: data for path, data in MUSIC.items()
                             if not path.endswith(".mp3")}
    dialog = open_copy(main)
    dialog.CheckFormat7.set_checked(True)
    dialog.ComCopierOK.click()
    cancel(main.program.form("FrmInfoCopy"))


def test_an_empty_medium_still_sums_up(main, tmp_path):
    main.desktop.set_medium("e", tmp_path)
    window = begin_copy(main)
    assert window.LabelInfoCopy.text == (
        "Analyse terminée.\r\n\n"
        "0 morceaux sélectionnés (0 Octets) sur 0 morceaux trouvés (0 Octets).")
    assert not window.CommandCopier.enabled
    cancel(window)


def in_order(window):
    """One below the other and inside the window: heading, list, label, a pair of buttons."""
    left, top, right, bottom = window.rect
    heading, view, label = (window.control(name).rect
                            for name in ("LabelTitrelist", "ListInfocopy", "LabelInfoCopy"))
    start, stop = window.CommandCopier.rect, window.ComAnnuleCopie.rect
    return (top < heading[1] and heading[3] <= view[1] and view[3] <= label[1]
            and label[3] <= start[1] and (start[1], start[3]) == (stop[1], stop[3])
            and start[2] < stop[0] and stop[3] < bottom
            and abs((start[0] + stop[2]) - (left + right)) <= 20
            and abs((heading[0] + heading[2]) - (left + right)) <= 20
            and (view[0], view[2]) == (label[0], label[2])
            and 0 < view[0] - left < 30 and 0 < right - view[2] < 30)


def test_the_window_keeps_its_order_at_any_size(main):
    window = begin_copy(main)
    assert in_order(window)
    for asked, size in (((1000, 700), (1000, 700)), ((300, 200), (480, 360))):
        window.resize(*asked)
        wait_for(lambda: window.size == size, f"the size {size}")
        wait_for(lambda: in_order(window), "the controls to follow")
    cancel(window)


def test_size_and_look_are_kept_for_the_next_run(desktop, target):
    with Program(desktop) as program:
        settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\Copies",
                        FontSize=16, BackColor=0xC0F0FF)
        window = begin_copy(program.open())
        left, _, right, bottom = window.ListInfocopy.rect
        shown = desktop.colours((left + 30, bottom - 20, right - 30, bottom - 4))
        assert shown == {(255, 240, 192): 1.0}
        assert window.ListInfocopy.item_height() > 20
        window.resize(900, 650)
        wait_for(lambda: window.size == (900, 650), "the larger window")
        cancel(window)
        program.quit()
        values = settings.read(program.settings)
        assert [values[f"LayoutValue{number}"] for number in (4, 5, 6)] == [650 * 15, 900 * 15, 0]
        window = begin_copy(program.open())
        assert window.size == (900, 650)
        window.maximize()
        wait_for(lambda: window.size[0] > 1200, "the maximised window")
        cancel(window)
        program.quit()
        values = settings.read(program.settings)
        assert [values[f"LayoutValue{number}"] for number in (4, 5, 6)] == [650 * 15, 900 * 15, 2]


@pytest.mark.parametrize("height, width, state", [(-5, 2147483647, 1), (2147483647, -1, 77)])
def test_stored_sizes_that_make_no_sense_give_a_usable_window(desktop, target, height, width, state):
    with Program(desktop) as program:
        settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\Copies",
                        LayoutValue4=height, LayoutValue5=width, LayoutValue6=state)
        window = begin_copy(program.open())
        assert not window.state["minimized"]
        left, top, right, bottom = window.rect
        assert left >= -4 and top >= -4 and right <= 1284 and bottom <= 1004
        assert right - left >= 480 and bottom - top >= 360
        assert in_order(window)
        cancel(window)


def test_after_the_copy_keys_close_the_window(main, target):
    for key in ("Return", "Escape"):
        window = begin_copy(main)
        window.ListInfocopy.click_tick(0)
        wait_for(lambda: not window.ListInfocopy.ticks()[0], "one track less")
        window.CommandCopier.click()
        wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
        assert window.ComAnnuleCopie.focused and window.ListInfocopy.enabled
        main.desktop.keys(key)
        main.program.wait_gone("FrmInfoCopy")
        shutil.rmtree(target)
        target.mkdir()


# The rules, over the sample medium with copies of its own files in it.

@pytest.fixture(scope="module")
def doubles(tmp_path_factory):
    """The sample medium with some of its files a second time, some of those longer."""
    folder = tmp_path_factory.mktemp("sample") / "medium"
    shutil.copytree(SAMPLE_MEDIUM, folder)
    for number, path in enumerate(sorted(folder.rglob("*.mid"))):
        copy = folder / "Doubles" / path.name
        copy.parent.mkdir(exist_ok=True)
        copy.write_bytes(path.read_bytes() + bytes(7 * (number % 2)))
    return folder


@pytest.fixture(scope="module")
def known(doubles, tmp_path_factory):
    """A medium with a part of those files, every other one longer."""
    folder = tmp_path_factory.mktemp("known")
    for number, path in enumerate(sorted((doubles / "Modules").rglob("*.*"))
                                  + sorted((doubles / "Midi").rglob("*.mid"))[::3]):
        tail = b"" if path.suffix.lower() != ".mid" or number % 2 else bytes(9)
        (folder / path.name).write_bytes(path.read_bytes() + tail)
    return folder


@pytest.fixture
def catalogued(main, doubles, known):
    """The catalogue holds the known medium alone."""
    main.desktop.set_medium("e", known)
    add_cd(main, "Connu")
    main.desktop.set_medium("e", doubles)
    yield
    choose_cd(main, "Connu")
    delete_cd(main)


def expected_copies(order, tracks, known_tracks, rule, duplicate_rule):
    """The files that a pair of rules lets through, in the order of the walk."""
    copied, kept = [], set()
    known_titles = {(title.casefold(), kind) for title, kind, _ in known_tracks}
    known_sizes = {(title.casefold(), kind, size) for title, kind, size in known_tracks}
    for path in order:
        title, kind, size = tracks[path]
        title = title.casefold()
        if rule == 1 and (title, kind) in known_titles:
            continue
        if rule == 2 and (title, kind, size) in known_sizes:
            continue
        seen = (title, size if duplicate_rule == 2 else None)
        if duplicate_rule and seen in kept:
            continue
        kept.add(seen)
        copied.append(path)
    return copied


def test_each_pair_of_rules_copies_exactly_what_it_says(main, target, doubles, known, catalogued):
    program = main.program
    rows = catalogue.rows(program.database)
    tracks = titles.tracks(doubles)
    known_tracks = list(titles.tracks(known).values())
    assert len(rows) == len(known_tracks)
    sizes = {}
    for rule in range(3):
        for duplicate_rule in range(3):
            def choose(dialog, catalogue_rule=rule, run_rule=duplicate_rule):
                dialog.control(f"OptionCopier{catalogue_rule}").click()
                dialog.control(f"OptionCopier{3 + run_rule}").click()
            window = begin_copy(main, choose)
            # The order is the system's; what stands in it is not.
            lines = (program.folder / "tmp.tmp").read_bytes().decode("cp1252").split("\r\n")
            walked = [line.removeprefix("E:\\").replace("\\", "/") for line in lines[:-1]]
            order = [path for path in walked if path in tracks]
            assert sorted(order) == sorted(tracks)
            assert window.ListInfocopy.rows() == [tracks[path][0] for path in order]
            expected = expected_copies(order, tracks, known_tracks, rule, duplicate_rule)
            assert window.ListInfocopy.ticks() == [path in expected for path in order]
            assert f"{len(expected)} morceaux copiés (" in finish_copy(window)
            assert files(target) == {path: (doubles / path).read_bytes() for path in expected}, (
                rule, duplicate_rule)
            sizes[rule, duplicate_rule] = len(expected)
            assert catalogue.rows(program.database) == rows
            shutil.rmtree(target)
            target.mkdir()
    # Each rule has made a difference.
    assert sizes[0, 0] > sizes[0, 2] > sizes[0, 1] and sizes[0, 0] > sizes[2, 0] > sizes[1, 0]
    begin = open_copy(main)
    begin.OptionCopier0.click()
    begin.OptionCopier3.click()
    begin.ComCopierOK.click()
    cancel(program.form("FrmInfoCopy"))


# Long copies.

@pytest.fixture
def long_medium(main, tmp_path):
    """A large file between two small ones, in the order of the walk; takes no room itself."""
    folder = tmp_path / "long"
    folder.mkdir()
    (folder / "gros.wav").write_bytes(medium.wav(1000))
    os.truncate(folder / "gros.wav", 1 << 30)
    (folder / "suite").mkdir()
    (folder / "suite" / "petit.mid").write_bytes(medium.mid(60))
    main.desktop.set_medium("e", folder)
    return folder


def test_a_long_copy_shows_its_progress_in_a_window_that_answers(main, target, long_medium):
    window = begin_copy(main)
    window.CommandCopier.click()
    positions = set()

    def halfway():
        positions.add(window.Progression.progress())
        return len(positions) > 3
    wait_for(halfway, "the bar to move within one file")
    assert window.LabelInfoCopy.text == "Copie de E:\\gros.wav\r\n\nGros"
    assert not window.ListInfocopy.enabled and not window.CommandCopier.enabled
    assert window.Progression.visible
    before = window.size
    window.resize(900, 600)
    wait_for(lambda: window.size != before, "the window to answer")
    wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy", deadline=120)
    assert window.ListInfocopy.enabled and not window.Progression.visible
    assert (target / "gros.wav").stat().st_size == 1 << 30
    assert (target / "suite" / "petit.mid").read_bytes() == medium.mid(60)
    cancel(window)


def test_a_stop_takes_effect_after_the_file_in_progress(main, target, long_medium):
    window = begin_copy(main)
    window.CommandCopier.click()
    wait_for(lambda: window.Progression.progress() > 0, "the copy to go on")
    assert not (target / "gros.wav").exists()
    window.ComAnnuleCopie.click()
    wait_for(lambda: main.program.form_or_none("FrmInfoCopy") is None, "the end", deadline=120)
    assert [path.name for path in target.rglob("*")] == ["gros.wav"]
    assert (target / "gros.wav").stat().st_size == 1 << 30
    assert markers(main.program) == []


def test_a_stop_while_reading_ends_the_run(main, target, tmp_path):
    folder = medium.write(tmp_path / "m", {f"{n % 50}/{n}.mid": medium.mid() for n in range(4000)})
    main.desktop.set_medium("e", folder)
    open_copy(main).ComCopierOK.click()
    window = main.program.form("FrmInfoCopy")
    assert not window.CommandCopier.enabled
    cancel(window)
    assert files(target) == {} and main.state["enabled"]


# What can go wrong: a message, nothing half done, nothing overwritten.

def failing_copy(window):
    """Starts a copy that fails; gives the report's text. The window goes with it."""
    window.CommandCopier.click()
    box = window.program.message()
    text = box.text
    box.answer("OK")
    window.program.wait_gone("FrmInfoCopy")
    return text


def test_a_disc_taken_out_ends_the_copy_with_a_message(main, target):
    window = begin_copy(main)
    main.desktop.set_medium("e", None)
    assert "E:\\" in failing_copy(window)
    assert files(target) == {} and main.state["enabled"]


def test_a_disc_taken_out_during_the_copy_keeps_what_is_whole(main, target, long_medium):
    window = begin_copy(main)
    window.CommandCopier.click()
    wait_for(lambda: window.Progression.progress() > 0, "the copy to go on")
    main.desktop.set_medium("e", None)
    box = main.program.message()
    assert "E:\\suite\\petit.mid" in box.text
    box.answer("OK")
    main.program.wait_gone("FrmInfoCopy")
    assert [path.name for path in target.rglob("*") if path.is_file()] == ["gros.wav"]
    assert (target / "gros.wav").stat().st_size == 1 << 30


def test_a_kill_during_the_copy_leaves_no_half_file(desktop, target, long_medium):
    with Program(desktop) as program:
        settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\Copies")
        window = begin_copy(program.open())
        window.CommandCopier.click()
        wait_for(lambda: window.Progression.progress() > 0, "the copy to go on")
        program.kill()
    assert not (target / "gros.wav").exists()


def test_a_drive_without_a_medium_is_reported(main, target):
    dialog = open_copy(main)
    main.desktop.set_medium("e", None)
    dialog.ComCopierOK.click()
    main.program.message().answer("OK")
    main.program.wait_gone("FrmInfoCopy")
    assert files(target) == {}


def test_a_destination_that_goes_ends_the_copy_with_a_message(main, target):
    window = begin_copy(main)
    target.rmdir()
    assert "H:\\Copies" in failing_copy(window)
    assert not target.exists()
    target.mkdir()


def test_a_destination_drive_that_goes_ends_the_copy_with_a_message(main, target, disk):
    window = begin_copy(main)
    main.desktop.set_medium("h", None)
    try:
        assert "H:\\Copies" in failing_copy(window)
    finally:
        main.desktop.set_medium("h", disk)
    assert files(target) == {} and main.state["enabled"]


def test_a_read_only_destination_ends_the_copy_with_a_message(main, target):
    window = begin_copy(main)
    target.chmod(0o555)
    assert "H:\\Copies" in failing_copy(window)
    target.chmod(0o755)
    assert files(target) == {}


def test_a_full_disk_keeps_what_is_whole(desktop, disk, small_disk, tmp_path):
    folder = medium.write(tmp_path / "m", {"a.wav": medium.wav(300_000), "b.wav": medium.wav(9_000_000),
                                           "c.wav": medium.wav(3000)})
    desktop.set_medium("e", folder)
    desktop.set_medium("h", small_disk.folder)
    before = files(small_disk.folder)
    try:
        with Program(desktop) as program:
            settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\")
            window = begin_copy(program.open())
            order = window.ListInfocopy.rows()
            assert "H:\\b.wav" in failing_copy(window)
            whole = {f"{name.lower()}.wav" for name in order[:order.index("B")]}
            assert set(files(small_disk.folder)) == set(before) | whole
            for name in whole:
                assert (small_disk.folder / name).read_bytes() == (folder / name).read_bytes()
            assert program.quit() == 0
    finally:
        desktop.set_medium("h", disk)


def test_a_destination_inside_the_source_copies_each_file_once(album_folder, tmp_path):
    source = tmp_path / "m"
    shutil.copytree(album_folder, source)
    (source / "Copies").mkdir()
    with Desktop(medium=None, drives={"h": (source, FIXED)}) as desktop, Program(desktop) as program:
        settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\Copies",
                        CdRomDrive="H:")
        window = begin_copy(program.open(), lambda dialog: dialog.DriveSource.choose_entry("h:"))
        finish_copy(window)
        assert files(source / "Copies") == MUSIC
        for path, data in medium.album().items():
            assert (source / path).read_bytes() == data


def test_paths_beyond_260_characters_are_copied(main, target, tmp_path):
    deep = "/".join([letter * 60 for letter in "abcdefgh"])
    main.desktop.set_medium("e", medium.write(tmp_path / "m", {f"{deep}/fin.mid": medium.mid(64)}))
    finish_copy(begin_copy(main))
    assert files(target) == {f"{deep}/fin.mid": medium.mid(64)}


def test_names_outside_the_code_page_are_copied(main, target, tmp_path):
    names = {f"世界/{name}": medium.mid(70 + n)
             for n, name in enumerate(["Пётр.mid", "日本の歌.mid", "clé 🎵.mid"])}
    main.desktop.set_medium("e", medium.write(tmp_path / "m", names))
    finish_copy(begin_copy(main))
    assert files(target) == names
