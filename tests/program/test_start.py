"""Starting and ending: what is read, what is written, and what stops the start."""
import pytest

from harness import catalogue, settings
from harness.medium import ALBUM_ROWS
from harness.program import Program
from harness.steps import ALL, add_cd, choose_cd, delete_cd, open_new_cd
from harness.waiting import wait_for


def contents(folder):
    """Name to bytes; what a test made unreadable it looks at itself."""
    return {path.name: path.read_bytes() for path in folder.iterdir()
            if path.stat().st_mode & 0o400}


def refuse_to_start(program):
    """Starts a program that cannot run: gives its report's text once it has ended with a failure."""
    before = contents(program.folder)
    program.start()
    message = program.message()
    text = message.text
    assert message.buttons() == ["OK"]
    assert program.form_or_none("FrmMP3") is None
    message.answer("OK")
    assert program.exit_code() != 0
    assert contents(program.folder) == before
    return text


def test_an_empty_catalogue_lists_all_titles_alone(program):
    main = program.open()
    assert main.List1.items() == [ALL]
    assert main.List1.choice is None
    assert main.DBList2.count == 0


def test_closing_writes_the_settings_though_nothing_changed(program):
    program.settings.touch()
    shipped = settings.read(program.settings)
    written = program.settings.stat().st_mtime_ns
    program.open()
    assert program.quit() == 0
    assert program.settings.stat().st_mtime_ns > written
    now = settings.read(program.settings)
    for name in shipped:
        if not name.endswith(("Width", "Height")) and not name.startswith("LayoutValue"):
            assert now[name] == shipped[name], name


def test_a_second_round_writes_the_same_bytes(program):
    program.open()
    program.quit()
    first = program.settings.read_bytes()
    program.open()
    program.quit()
    assert program.settings.read_bytes() == first


def test_the_menus_have_their_captions(program):
    main = program.open()
    captions = [item["caption"].split("\t")[0] for menu in main.menu() for item in menu["items"]]
    assert "&Nouveau CD Musical" in captions
    assert "&Actualiser l'affichage" in captions


def test_the_quit_entry_ends_the_program(program):
    main = program.open()
    main.choose("Fichier", "Quitter")
    assert program.exit_code() == 0


def test_a_maximised_window_comes_back_maximised_and_keeps_its_normal_size(program):
    main = program.open()
    normal = main.rect
    main.maximize()
    wait_for(lambda: main.state["maximized"], "the maximised window")
    program.quit()
    saved = settings.read(program.settings)
    assert saved["WinState"] == 2
    # The outer size is kept in twips: fifteen to a pixel.
    assert saved["WinWidth"] == (normal[2] - normal[0]) * 15
    assert saved["WinHeight"] == (normal[3] - normal[1]) * 15
    again = program.open()
    wait_for(lambda: again.state["maximized"], "the maximised window")


def test_the_working_directory_is_the_program_directory(desktop):
    """With a drive's root as working directory there is one backslash, not two."""
    with Program(desktop) as program:
        desktop.set_medium("p", program.folder)
        try:
            main = program.open()
            assert main.List1.items() == [ALL]
            assert program.quit() == 0
        finally:
            desktop.set_medium("p", None)


@pytest.mark.parametrize("name", ["Brivantole.mdb", "Brivantole.ini"])
def test_a_missing_file_is_reported_by_name(program, name):
    (program.folder / name).unlink()
    assert name in refuse_to_start(program)


@pytest.mark.parametrize("name", ["Brivantole.mdb", "Brivantole.ini"])
def test_an_unreadable_file_is_reported_by_name(program, name):
    path = program.folder / name
    before = path.read_bytes()
    path.chmod(0)
    assert name in refuse_to_start(program)
    path.chmod(0o644)
    assert path.read_bytes() == before


def test_a_second_program_is_told_that_the_catalogue_is_in_use(program, desktop):
    main = program.open()
    add_cd(main, "Rock 1")
    second = Program(desktop, folder=program.folder)
    text = refuse_to_start(second)
    assert "Le catalogue est déjà utilisé par un autre programme." in text
    assert "Brivantole.mdb" in text
    add_cd(main, "Rock 2")
    assert program.quit() == 0
    assert catalogue.count(program.database) == 2 * len(ALBUM_ROWS)


def test_a_read_only_catalogue_can_be_browsed_and_says_why_it_stays_as_it_is(program):
    main = program.open()
    add_cd(main, "Rock 1")
    program.quit()
    before = program.database.read_bytes()
    program.database.chmod(0o444)
    main = program.open()
    choose_cd(main, "Rock 1")
    assert main.DBList2.count == len(ALBUM_ROWS)
    delete_cd(main)
    report = program.message()
    assert "lecture seule" in report.text
    report.answer("OK")
    assert wait_for(main.List1.items, "the list of media") == [ALL, "Rock 1"]
    dialog = open_new_cd(main)
    program.desktop.type("Autre")
    dialog.CommandNouveauOK.click()
    report = program.message()
    assert "lecture seule" in report.text
    report.answer("OK")
    program.form("FrmNouveauCD").key("Escape")
    program.wait_gone("FrmNouveauCD")
    program.quit()
    assert program.database.read_bytes() == before


def test_settings_that_cannot_be_written_are_reported_at_the_end(program):
    program.open()
    before = program.settings.read_bytes()
    program.settings.chmod(0o444)
    program.folder.chmod(0o555)
    try:
        program.form("FrmMP3").close()
        report = program.message()
        assert "Brivantole.ini" in report.text
        report.answer("OK")
        program.exit_code()
        assert program.settings.read_bytes() == before
    finally:
        program.folder.chmod(0o755)


def test_a_minimised_window_is_saved_with_its_normal_size(program, desktop):
    main = program.open()
    left, top, right, bottom = main.rect
    desktop.xdo("search", "--onlyvisible", "--name", main.title, "windowminimize")
    wait_for(lambda: main.state["minimized"], "the minimised window")
    # Another program asks it to close, as the taskbar's menu does.
    desktop.wine("taskkill", "/im", "Brivantole.exe")
    assert program.exit_code() == 0
    saved = settings.read(program.settings)
    assert saved["WinState"] == 1
    assert (saved["WinWidth"], saved["WinHeight"]) == ((right - left) * 15, (bottom - top) * 15)


@pytest.mark.parametrize("length", [0, 100, 2048, 4096, 6000, 40960])
def test_a_truncated_catalogue_is_reported(program, length):
    whole = program.database.read_bytes()
    program.database.write_bytes(whole[:length])
    assert "Brivantole.mdb" in refuse_to_start(program)


@pytest.mark.parametrize("data", [b"PK\3\4 not a database" * 300, bytes(8192), b"\xff" * 12288],
                         ids=["zip", "zeros", "ones"])
def test_a_foreign_catalogue_is_reported(program, data):
    program.database.write_bytes(data)
    assert "Brivantole.mdb" in refuse_to_start(program)


@pytest.mark.parametrize("keep", [0, 1, 13, 30, 50])
def test_truncated_settings_are_reported(program, keep):
    lines = program.settings.read_bytes().split(b"\r\n")
    program.settings.write_bytes(b"".join(line + b"\r\n" for line in lines[:keep]))
    assert "Brivantole.ini" in refuse_to_start(program)


def test_settings_that_hold_no_numbers_are_reported_with_their_line(program):
    lines = program.settings.read_bytes().split(b"\r\n")
    lines[0] = b"[options]"
    program.settings.write_bytes(b"\r\n".join(lines))
    text = refuse_to_start(program)
    assert "Brivantole.ini" in text and "1" in text


def test_a_count_of_extensions_beyond_the_limit_is_reported(program):
    lines = program.settings.read_bytes().split(b"\r\n")
    lines[0] = b" 2001 "
    program.settings.write_bytes(b"\r\n".join(lines))
    assert "Brivantole.ini" in refuse_to_start(program)


def test_two_programs_on_one_catalogue_do_it_no_harm(program, desktop):
    first = program.open()
    second = Program(desktop, program.folder)
    second.start()
    shown = wait_for(lambda: second.form_or_none("FrmMP3") or second.message_or_none(),
                     "the second program's first window")
    if shown.name == "FrmMP3":
        assert second.quit() == 0
    else:
        report = second.message()
        assert "Brivantole.mdb" in report.text
        report.answer("OK")
        assert second.exit_code() != 0
    assert first.List1.items() == [ALL]
    assert program.quit() == 0
    assert catalogue.count(program.database) == 0
