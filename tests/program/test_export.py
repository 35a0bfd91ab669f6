"""Copying the track list to the clipboard and saving it to a file."""
import os

import pytest

from harness import medium
from harness.desktop import FIXED, Desktop
from harness.program import Program
from harness.steps import ALL, add_cd, choose_cd
from harness.waiting import wait_for

CD = {"a/été.mid": medium.mid(90), "[live] x.wav": medium.wav(400)}
DISK = {"b/zèbre.mid": medium.mid(100)}
TITLES = ["[live] x", "Été", "Zèbre"]
PATHS = ["E:\\[live] x.wav", "E:\\a\\été.mid", "F:\\b\\zèbre.mid"]


@pytest.fixture(scope="module")
def desktop(tmp_path_factory):
    cd, disk, foreign = (medium.write(tmp_path_factory.mktemp("drive"), files) for files in
                         (CD, DISK, {"\N{CJK UNIFIED IDEOGRAPH-97F3}.mid": medium.mid()}))
    with Desktop(medium=cd, drives={"f": (disk, FIXED), "g": (foreign, FIXED)}) as made:
        yield made


@pytest.fixture(scope="module")
def filled(desktop):
    with Program(desktop) as program:
        main = program.open()
        add_cd(main, "Cédé")
        add_cd(main, "Disque", "f:")
        # The drive of the last scan counts until the program is started again.
        program.quit()
        program.open()
        yield program


@pytest.fixture
def main(filled):
    """The main window with the three tracks, titles shown, in their order."""
    window = filled.form("FrmMP3")
    choose_cd(window, ALL)
    window.Check1.set_checked(False)
    window.Check3.set_checked(False)
    window.TextRech.fill("")
    window.Option1.click()
    window.Command1.click()
    wait_for(lambda: window.DBList2.rows() == TITLES, "the three titles")
    yield window
    filled.desktop.tidy()


def text_of(lines):
    return "".join(line + "\r\n" for line in lines)


def copied(main, copy):
    """What the clipboard holds after `copy`."""
    probe = main.desktop.probe
    before = probe.ask("clipboardnumber")
    copy()
    wait_for(lambda: probe.ask("clipboardnumber") != before, "the clipboard to change")
    return probe.ask("clipboard")


def show_paths(main, names=False):
    main.Check1.set_checked(True)
    main.Check3.set_checked(names)


def search_nothing(main):
    main.TextRech.fill("rien de tel")
    main.Command1.click()
    wait_for(lambda: main.DBList2.count == 0, "no track")


def save_dialog(main):
    main.comsave.click()
    dialog = main.program.message()
    assert dialog.title == "Enregistrer la liste des morceaux"
    return dialog


def save_as(main, path):
    dialog = save_dialog(main)
    main.desktop.paste("Z:" + str(path).replace("/", "\\"))
    main.desktop.keys("Return")
    return dialog


def saved(main, path):
    save_as(main, path).wait_gone()
    wait_for(path.exists, f"the file {path}")
    return path.read_bytes()


def test_the_titles_are_copied_as_they_are_listed(main):
    assert copied(main, main.comcopier.click) == text_of(TITLES)
    main.Option3.click()
    wait_for(lambda: main.DBList2.rows() == ["Été", "Zèbre", "[live] x"], "the order by size")
    assert copied(main, lambda: main.choose("Fichier", "Copier la liste")) == text_of(
        ["Été", "Zèbre", "[live] x"])


def test_names_of_media_are_copied_when_they_are_shown(main):
    main.Check3.set_checked(True)
    assert copied(main, main.comcopier.click) == text_of(
        ["[live] x [Cédé]", "Été [Cédé]", "Zèbre [Disque]"])


def test_paths_are_copied_with_the_present_drive(main):
    show_paths(main)
    assert copied(main, main.comcopier.click) == text_of(PATHS)
    main.Check3.set_checked(True)
    assert copied(main, main.comcopier.click) == text_of(
        [f"{path} [{name}]" for path, name in zip(PATHS, ["Cédé", "Cédé", "Disque"])])


def test_titles_are_copied_as_they_are_while_the_paths_are_not_shown_yet(main):
    main.CheckAutoRefresh.set_checked(False)
    main.Check1.set_checked(True)
    try:
        assert copied(main, main.comcopier.click) == text_of(TITLES)
    finally:
        main.CheckAutoRefresh.set_checked(True)
    assert copied(main, main.comcopier.click) == text_of(PATHS)


def test_the_keyboard_copies_from_both_lists_alone(main):
    main.DBList2.click_row(0)
    assert copied(main, lambda: main.key("ctrl+c")) == text_of(TITLES)
    choose_cd(main, "Disque")
    assert copied(main, lambda: main.key("ctrl+c")) == text_of(["Zèbre"])
    main.TextRech.fill("zbr")
    assert copied(main, lambda: main.key("Home", "shift+End", "ctrl+c")) == "zbr"


def test_an_empty_list_leaves_the_clipboard_empty(main):
    assert copied(main, main.comcopier.click) != ""
    search_nothing(main)
    assert copied(main, main.comcopier.click) == ""


def test_a_clipboard_that_is_in_use_is_reported_and_left_as_it_is(main):
    probe = main.desktop.probe
    assert copied(main, main.comcopier.click) == text_of(TITLES)
    choose_cd(main, "Disque")
    assert probe.ask("holdclipboard")
    try:
        main.comcopier.click()
        report = main.program.message()
        assert "Le presse-papiers est utilisé par un autre programme." in report.text
    finally:
        assert probe.ask("releaseclipboard")
    assert probe.ask("clipboard") == text_of(TITLES)
    report.answer("OK")
    assert copied(main, main.comcopier.click) == text_of(["Zèbre"])


def test_the_list_is_saved_in_the_code_page(main, tmp_path):
    assert saved(main, tmp_path / "liste.txt") == text_of(TITLES).encode("cp1252")
    show_paths(main, names=True)
    assert saved(main, tmp_path / "chemins à moi.txt") == text_of(
        [f"{path} [{name}]" for path, name in zip(PATHS, ["Cédé", "Cédé", "Disque"])]
    ).encode("cp1252")


def test_a_name_without_an_extension_gets_one_and_the_menu_saves_too(main, tmp_path):
    main.choose("Fichier", "Enregistrer la liste")
    dialog = main.program.message()
    main.desktop.paste("Z:" + str(tmp_path / "sans").replace("/", "\\"))
    main.desktop.keys("Return")
    dialog.wait_gone()
    wait_for((tmp_path / "sans.txt").exists, "the file sans.txt")


def test_letters_outside_the_code_page_make_it_utf_8(filled, main, tmp_path):
    add_cd(main, "Ailleurs", "g:")
    wait_for(lambda: main.DBList2.count == 1, "its track")
    show_paths(main)
    assert copied(main, main.comcopier.click) == "G:\\音.mid\r\n"
    assert saved(main, tmp_path / "liste.txt") == "\ufeffG:\\音.mid\r\n".encode()
    main.choose("Fichier", "Supprimer")
    filled.message().answer("Oui")
    wait_for(lambda: "Ailleurs" not in main.List1.items(), "the medium to go")


def test_an_older_file_is_replaced_once_the_user_agrees(main, tmp_path):
    target = tmp_path / "liste.txt"
    target.write_bytes(b"older and longer than the list itself\r\n" * 9)
    dialog = save_as(main, target)
    question = main.program.message(other_than=dialog)
    main.desktop.keys("alt+o")
    question.wait_gone()
    dialog.wait_gone()
    wait_for(lambda: target.read_bytes() == text_of(TITLES).encode("cp1252"), "the new list")
    assert os.listdir(tmp_path) == ["liste.txt"]


def test_an_empty_list_is_saved_as_an_empty_file(main, tmp_path):
    search_nothing(main)
    assert saved(main, tmp_path / "vide.txt") == b""


def test_a_cancelled_dialog_saves_nothing(main, tmp_path):
    dialog = save_dialog(main)
    main.desktop.paste("Z:" + str(tmp_path / "liste.txt").replace("/", "\\"))
    main.desktop.keys("Escape")
    dialog.wait_gone()
    assert main.program.message_or_none() is None
    main.Command1.click()
    assert os.listdir(tmp_path) == []


def test_a_target_that_cannot_be_written_is_reported_and_left_as_it_is(main, tmp_path):
    folder = tmp_path / "fermé"
    folder.mkdir()
    os.chmod(folder, 0o555)
    dialog = save_as(main, folder / "liste.txt")
    try:
        report = main.program.message(other_than=dialog)
        assert report.buttons() == ["OK"]
        assert "liste.txt" in report.text
        main.desktop.keys("Return")
        report.wait_gone()
    finally:
        os.chmod(folder, 0o755)
    if dialog.exists:
        main.desktop.keys("Escape")
        dialog.wait_gone()
    assert os.listdir(folder) == []
    assert copied(main, main.comcopier.click) == text_of(TITLES)
