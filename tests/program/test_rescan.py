"""Scanning a catalogued CD again: where it is looked for, awaited, and what is left unchanged."""
import os

import pytest

from harness import catalogue, medium, settings
from harness.desktop import CD_ROM, FIXED, Desktop
from harness.medium import as_set, expected_rows
from harness.program import Program
from harness.steps import ALL, add_cd, choose_cd
from harness.waiting import wait_for

RETRY = "Répéter"  # as Wine says it in French
CD = [("Un", "a\\un.mid", 50, "MID"), ("Deux", "deux.mid", 60, "MID")]
DISK = [("Trois", "Musique\\trois.mid", 70, "MID")]
OTHER_CD = [("Quatre", "quatre.mid", 80, "MID")]


def folder_of(tmp_path_factory, rows):
    return medium.write(tmp_path_factory.mktemp("medium"),
                        {path.replace("\\", "/"): medium.mid(size) for _, path, size, _ in rows})


@pytest.fixture(scope="module")
def media(tmp_path_factory):
    return {"e": folder_of(tmp_path_factory, CD), "f": folder_of(tmp_path_factory, DISK),
            "g": folder_of(tmp_path_factory, OTHER_CD)}


@pytest.fixture(scope="module")
def desktop(media):
    """E: and G: are CD-ROM drives, F: is a hard disk."""
    with Desktop(medium=media["e"], drives={"f": (media["f"], FIXED),
                                            "g": (media["g"], CD_ROM)}) as made:
        yield made


@pytest.fixture(scope="module")
def catalogued(desktop):
    """The program's files: "Cédé" from E:, then "Disque" from F:."""
    with Program(desktop) as made:
        main = made.open()
        add_cd(main, "Cédé")
        add_cd(main, "Disque", "f:")
        made.quit()
        yield list(made.folder.iterdir())


@pytest.fixture
def program(catalogued, desktop, media):
    with Program(desktop, files=catalogued) as made:
        yield made
    for letter, folder in media.items():
        desktop.set_medium(letter, folder)
    desktop.tidy()


BEFORE = expected_rows(CD, "Cédé") | expected_rows(DISK, "Disque", "F:")


def ask_rescan(main, name):
    """Chooses a CD and the command from the menu; gives the question."""
    choose_cd(main, name)
    main.choose("Fichier", "Re-scanner le CD")
    return main.program.message()


def rescan(main, name):
    ask_rescan(main, name).answer("Oui")


def rescanned(main):
    """Waits for the main window to be free again."""
    wait_for(lambda: main.state["enabled"] and main.program.message_or_none() is None and
             main.program.form_or_none("FrmNouveauCD") is None, "the end of the scan")


def rows_after(program):
    """The catalogue's rows; what a rescan borrows of the settings is as it was."""
    assert program.quit() == 0
    values = settings.read(program.settings)
    assert values["ScanCdName"] == "Disque"
    return as_set(catalogue.rows(program.database)), values["CdRomDrive"]


def test_it_asks_first_and_means_no(program, desktop, media):
    desktop.set_medium("e", media["g"])
    main = program.open()
    question = ask_rescan(main, "Cédé")
    assert (question.title, question.text) == ("Mise à jour des données", "Re-Scanner ce CD ?")
    assert question.buttons() == ["Oui", "Non"] and question.has_icon
    main.key("Return")
    question.wait_gone()
    assert program.form_or_none("FrmNouveauCD") is None
    assert rows_after(program) == (BEFORE, "E:")


def test_a_fresh_scan_replaces_the_rows_without_asking_again(program, desktop, media):
    desktop.set_medium("e", media["g"])
    main = program.open()
    rescan(main, "Cédé")
    rescanned(main)
    assert main.List1.choice == "Cédé" and main.List1.items() == [ALL, "Cédé", "Disque"]
    assert main.DBList2.rows() == ["Quatre"]
    assert rows_after(program) == (
        expected_rows(OTHER_CD, "Cédé") | expected_rows(DISK, "Disque", "F:"), "E:")


def test_a_right_click_on_a_cd_chooses_it_and_asks(program):
    main = program.open()
    choose_cd(main, "Cédé")
    main.List1.click_item("Disque", button=3)
    question = program.message()
    assert question.text == "Re-Scanner ce CD ?"
    assert main.List1.choice == "Disque" and main.DBList2.rows() == ["Trois"]
    question.answer("Oui")
    rescanned(main)
    assert main.DBList2.rows() == ["Trois"]


@pytest.mark.parametrize("key", ["Menu", "shift+F10"])
def test_the_keyboards_right_click_asks_too(program, key):
    main = program.open()
    choose_cd(main, "Disque")
    main.key(key)
    question = program.message()
    assert question.text == "Re-Scanner ce CD ?"
    question.answer("Non")
    main.List1.click_item(ALL)
    wait_for(lambda: main.List1.choice == ALL, "all titles")
    main.key(key, "F5")
    assert program.message_or_none() is None


def test_all_titles_are_not_rescanned(program):
    main = program.open()
    assert not main.menu_item("Fichier", "Re-scanner le CD")["enabled"]
    main.List1.click_item(ALL, button=3)
    wait_for(lambda: main.DBList2.count == 3, "all titles")
    assert program.message_or_none() is None
    assert not main.menu_item("Fichier", "Re-scanner le CD")["enabled"]
    choose_cd(main, "Disque")
    assert main.menu_item("Fichier", "Re-scanner le CD")["enabled"]
    left, _, right, bottom = main.List1.rect
    desktop = main.desktop
    desktop.click((left + right) // 2, bottom - 30, button=3)
    main.key("F5")
    assert program.message_or_none() is None and main.List1.choice == "Disque"


def test_the_window_says_what_happens_and_cannot_be_changed(program, media):
    """A folder that cannot be read holds the scan up for as long as we look."""
    main = program.open()
    closed = media["e"] / "a"
    os.chmod(closed, 0)
    try:
        rescan(main, "Cédé")
        wait_for(lambda: program.form_or_none("FrmNouveauCD"), "the scan's window")
        held_up = program.message()
        window = program.form_or_none("FrmNouveauCD")
        assert window.title == "Re-scanner CD musical"
        assert window.TextNouveau.text == "Cédé" and not window.TextNouveau.enabled
        assert window.DriveNouveau.choice[:2] == "E:" and not window.DriveNouveau.enabled
        assert not window.CommandNouveauOK.visible and not window.CommandNouveauAnnuler.visible
        assert window.Label1.text == (
            "Brivantole Audio va re-scanner votre lecteur source et mettre à jour la liste de tous "
            "les fichiers musicaux s'y trouvant.")
        assert window.LabelNouveauNom.text == (
            "Nom du CD à re-scanner. La liste portant ce nom va être mise à jour")
        assert window.LabelNouveauDrive.text == (
            "Lecteur à re-scanner. Le CD doit être inséré dans ce lecteur si le support est de type "
            "CD")
    finally:
        os.chmod(closed, 0o755)
    held_up.answer(RETRY)
    rescanned(main)
    assert rows_after(program) == (BEFORE, "E:")


def test_a_cd_is_looked_for_in_the_present_drive(program):
    settings.set_text(program.settings, "CdRomDrive", "G:")
    main = program.open()
    rescan(main, "Cédé")
    rescanned(main)
    assert main.Label2.text == "G:\\"
    assert rows_after(program) == (
        expected_rows(OTHER_CD, "Cédé") | expected_rows(DISK, "Disque", "F:"), "G:")


def test_a_hard_disk_is_scanned_where_it_was_found(program, media):
    more = media["f"] / "neuf.mid"
    more.write_bytes(medium.mid(90))
    main = program.open()
    try:
        rescan(main, "Disque")
        rescanned(main)
    finally:
        more.unlink()
    assert main.Label2.text == "E:\\"
    assert rows_after(program) == (
        expected_rows(CD, "Cédé") |
        expected_rows(DISK + [("Neuf", "neuf.mid", 90, "MID")], "Disque", "F:"), "E:")


def test_an_absent_cd_is_awaited(program, desktop, media):
    main = program.open()
    desktop.set_medium("e", None)
    rescan(main, "Cédé")
    for medium_there in (False, True):
        box = program.message()
        assert box.title == "CD absent!"
        assert box.text.split() == "Insérez le CD Cédé dans le lecteur E:".split()
        assert "\n" in box.text and box.buttons() == [RETRY, "Annuler"] and box.has_icon
        if medium_there:
            desktop.set_medium("e", media["g"])
        box.answer(RETRY)
    rescanned(main)
    assert main.DBList2.rows() == ["Quatre"]


def test_giving_up_waiting_changes_nothing(program, desktop):
    main = program.open()
    desktop.set_medium("e", None)
    rescan(main, "Cédé")
    box = program.message()
    main.key("Escape")
    box.wait_gone()
    rescanned(main)
    assert main.List1.choice == "Cédé" and main.DBList2.rows() == ["Deux", "Un"]
    assert rows_after(program) == (BEFORE, "E:")


def test_a_hard_disk_that_is_gone_is_not_awaited_and_keeps_its_rows(program, desktop):
    main = program.open()
    desktop.set_medium("f", None)
    rescan(main, "Disque")
    report = program.message()
    assert "Le lecteur F: ne peut pas être lu." in report.text
    assert program.form_or_none("FrmNouveauCD") is None
    report.answer("OK")
    rescanned(main)
    assert main.List1.choice == "Disque" and main.DBList2.rows() == ["Trois"]
    assert rows_after(program)[0] == BEFORE


def test_giving_up_at_an_unreadable_folder_leaves_the_cd_without_rows(program, media):
    main = program.open()
    closed = media["e"] / "a"
    os.chmod(closed, 0)
    try:
        rescan(main, "Cédé")
        program.message().answer("Annuler")
        rescanned(main)
    finally:
        os.chmod(closed, 0o755)
    assert main.List1.items() == [ALL, "Disque"] and main.List1.choice is None
    assert rows_after(program) == (expected_rows(DISK, "Disque", "F:"), "E:")


def test_a_cd_without_music_any_more_leaves_the_list(program, desktop, tmp_path):
    main = program.open()
    desktop.set_medium("e", tmp_path)
    rescan(main, "Cédé")
    rescanned(main)
    assert main.List1.items() == [ALL, "Disque"] and main.List1.choice is None
    assert main.DBList2.count == 0 and not main.Command1.enabled
