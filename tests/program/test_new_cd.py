"""Adding a medium: the dialog, the scan, the rows, and everything that can go wrong."""
import os
import re

import pytest

from harness import catalogue, medium, settings, slowmedium
from harness.desktop import FIXED, Desktop
from harness.medium import ALBUM_ROWS, as_set, expected_rows
from harness.names import control_ids
from harness.program import Program
from harness.steps import ALL, add_cd, open_new_cd
from harness.waiting import ProbeError, wait_for


RETRY = "Répéter"  # as Wine says it in French


@pytest.fixture(scope="module")
def desktop(album_folder):
    """A desktop like all others, but that media may be slow."""
    with Desktop(medium=album_folder, environment=slowmedium.with_slow_media()) as made:
        yield made


@pytest.fixture(scope="module")
def second_folder(tmp_path_factory):
    return medium.write(tmp_path_factory.mktemp("second"), {"x/seul.mid": medium.mid(60)})


@pytest.fixture
def other_medium(desktop, album_folder):
    """Puts another folder in drive E: for one test."""
    yield lambda folder: desktop.set_medium("e", folder)
    desktop.set_medium("e", album_folder)


def test_the_dialog_says_what_it_does(program):
    dialog = open_new_cd(program.open())
    assert dialog.title == "Nouveau CD musical"
    assert dialog.FrameNom.text == "Nom du CD"
    assert dialog.LabelNouveauNom.text == "Donnez un nom à la liste de morceaux du lecteur source"
    assert dialog.FrameNouveauDrive.text == "Source"
    assert dialog.LabelNouveauDrive.text == (
        "Sélectionnez le lecteur de votre choix (et insérez-y un CD si le lecteur est de type CD ROM)")
    assert dialog.Label1.text == (
        "Brivantole Audio va scanner votre lecteur source et faire une liste de tous les fichiers "
        "musicaux s'y trouvant (.MP3, .XM,...).")
    assert not dialog.LabelPatientez.visible
    assert dialog.LabelPatientez.text == "Lecture en cours. Patientez quelques instants..."
    assert dialog.CommandNouveauAnnuler.text.replace("&", "") == "Annuler"
    assert dialog.TextNouveau.text == ""
    assert dialog.TextNouveau.focused
    assert dialog.DriveNouveau.choice[:2].upper() == "E:"


def test_the_button_opens_the_dialog_too(program):
    main = program.open()
    main.ComNouveau.click()
    program.form("FrmNouveauCD")


def test_ok_needs_a_name_that_is_not_blank(program):
    dialog = open_new_cd(program.open())
    assert not dialog.CommandNouveauOK.enabled
    program.desktop.type("   ")
    wait_for(lambda: dialog.TextNouveau.text == "   ", "three blanks")
    assert not dialog.CommandNouveauOK.enabled
    program.desktop.type("x")
    wait_for(lambda: dialog.CommandNouveauOK.enabled, "the OK button")
    program.desktop.keys("BackSpace")
    wait_for(lambda: not dialog.CommandNouveauOK.enabled, "the OK button disabled")


def test_characters_that_no_name_may_hold_are_dropped(program):
    dialog = open_new_cd(program.open())
    program.desktop.type('a\\b/c:d*e?f<g>h|i"j')
    wait_for(lambda: dialog.TextNouveau.text.endswith("j"), "the typed name")
    assert dialog.TextNouveau.text == "abcdefghij"


def test_a_name_ends_where_the_catalogue_would_cut_it(program, desktop):
    dialog = open_new_cd(program.open())
    desktop.paste("x" * 300)
    wait_for(lambda: dialog.TextNouveau.text == "x" * 255, "the longest name")
    desktop.type("y")
    dialog.CommandNouveauOK.click()
    program.wait_gone("FrmNouveauCD")
    assert program.form("FrmMP3").List1.items() == [ALL, "x" * 255]


def test_cancelling_changes_nothing(program):
    main = program.open()
    dialog = open_new_cd(main)
    program.desktop.type("Rien")
    dialog.DriveNouveau.choose_entry("c:")
    dialog.CommandNouveauAnnuler.click()
    program.wait_gone("FrmNouveauCD")
    assert main.List1.items() == [ALL]
    assert main.Label2.text == "E:\\"
    program.quit()
    saved = settings.read(program.settings)
    assert (saved["CdRomDrive"], saved["ScanCdName"]) == ("E:", "")
    assert catalogue.count(program.database) == 0
    assert not (program.folder / "tmp.tmp").exists()


def test_a_scan_writes_one_row_for_each_music_file(program):
    main = program.open()
    add_cd(main, "Rock 1")
    assert main.List1.items() == [ALL, "Rock 1"]
    assert main.List1.choice == "Rock 1"
    assert main.DBList2.count == len(ALBUM_ROWS)
    program.quit()
    assert as_set(catalogue.rows(program.database)) == expected_rows(ALBUM_ROWS, "Rock 1")
    assert settings.read(program.settings)["ScanCdName"] == "Rock 1"


def test_the_list_of_found_files_stays_in_the_program_folder(program):
    main = program.open()
    add_cd(main, "Liste")
    lines = (program.folder / "tmp.tmp").read_bytes().decode("cp1252").split("\r\n")
    assert lines.pop() == ""
    found = sorted(lines)
    assert found == sorted(f"E:\\{path}" for path in
                           [path for _, path, _, _ in ALBUM_ROWS] + ["faux.wav"])
    # The files of a folder stand before those of its folders.
    assert lines.index("E:\\my_song.mid") < lines.index("E:\\Album\\01.mp3")
    assert lines.index("E:\\Album\\01.mp3") < lines.index("E:\\Album\\Suite\\hello.mod")


def test_enter_and_escape_work_in_the_dialog(program):
    main = program.open()
    open_new_cd(main)
    program.desktop.keys("Escape")
    program.wait_gone("FrmNouveauCD")
    open_new_cd(main)
    program.desktop.type("Clavier")
    program.desktop.keys("Return")
    program.wait_gone("FrmNouveauCD")
    assert main.List1.choice == "Clavier"


@pytest.mark.parametrize("name", [
    "Été à l'Œuvre", "l'apostrophe", "[crochets]", "ouvert [", "100% & plus #1 !", "x" * 255],
    ids=["accents", "apostrophe", "brackets", "open bracket", "signs", "long"])
def test_any_name_is_kept_as_typed(program, name):
    main = program.open()
    add_cd(main, name)
    assert main.List1.choice == name
    assert main.DBList2.count == len(ALBUM_ROWS)
    program.quit()
    assert as_set(catalogue.rows(program.database)) == expected_rows(ALBUM_ROWS, name)


def test_blanks_around_the_name_are_cut(program):
    main = program.open()
    dialog = open_new_cd(main)
    program.desktop.type("  Bords  ")
    dialog.CommandNouveauOK.click()
    program.wait_gone("FrmNouveauCD")
    assert main.List1.items() == [ALL, "Bords"]


def test_the_percentage_is_shown_while_tracks_are_analysed(program, other_medium, tmp_path):
    other_medium(slowmedium.write(tmp_path))
    dialog = open_new_cd(program.open())
    program.desktop.type("Long")
    wait_for(lambda: dialog.TextNouveau.text == "Long", "the name")
    identifiers = control_ids()["FrmNouveauCD"]
    bar = dialog.Progression
    dialog.CommandNouveauOK.click()
    percentages = []
    while program.form_or_none("FrmNouveauCD"):
        try:
            controls = {node["id"]: node for node in dialog.tree()["children"]}
            position = bar.progress()
        except ProbeError:
            continue  # at work, or gone by now
        caption = controls[identifiers["LabelPatientez"]]["text"]
        found = re.fullmatch(r"Analyse des morceaux en cours\.\.\. (\d+)%", caption)
        if not found:
            continue
        percentages.append(int(found[1]))
        assert percentages[-1] <= position <= 100  # the bar was read a moment later
        assert not controls[identifiers["CommandNouveauOK"]]["visible"]
        assert not controls[identifiers["CommandNouveauAnnuler"]]["visible"]
        assert not controls[identifiers["TextNouveau"]]["enabled"]
    assert len(set(percentages)) > 1 and percentages == sorted(percentages)


def test_an_existing_name_is_replaced_only_on_yes(program, other_medium, second_folder):
    main = program.open()
    add_cd(main, "Rock 1")
    other_medium(second_folder)

    def add_again(answer):
        dialog = open_new_cd(main)
        program.desktop.type("Rock 1")
        dialog.CommandNouveauOK.click()
        question = program.message()
        assert question.title == "Attention !"
        assert question.text == "Ce nom de CD existe déjà.\r\nVoulez-vous le remplacer ?"
        assert question.buttons() == ["Oui", "Non"]
        question.answer(answer)
        program.wait_gone("FrmNouveauCD")

    add_again("Non")
    assert as_set(catalogue.rows(program.database)) == expected_rows(ALBUM_ROWS, "Rock 1")
    add_again("Oui")
    assert main.List1.items() == [ALL, "Rock 1"]
    program.quit()
    assert as_set(catalogue.rows(program.database)) == expected_rows(
        [("Seul", "x\\seul.mid", 60, "MID")], "Rock 1")


def test_an_empty_medium_replaces_a_name_by_nothing(program, other_medium, tmp_path):
    main = program.open()
    add_cd(main, "Vide")
    other_medium(tmp_path)
    dialog = open_new_cd(main)
    program.desktop.type("Vide")
    dialog.CommandNouveauOK.click()
    program.message().answer("Oui")
    program.wait_gone("FrmNouveauCD")
    assert main.List1.items() == [ALL]
    program.quit()
    assert catalogue.count(program.database) == 0


def test_a_hard_disk_keeps_its_drive_letter(album_folder):
    with Desktop(medium=None, drives={"h": (album_folder, FIXED)}) as desktop:
        with Program(desktop) as program:
            main = program.open()
            dialog = open_new_cd(main)
            program.desktop.type("Disque")
            dialog.DriveNouveau.choose_entry("h:")
            dialog.CommandNouveauOK.click()
            program.wait_gone("FrmNouveauCD")
            assert main.List1.choice == "Disque"
            program.quit()
            assert as_set(catalogue.rows(program.database)) == expected_rows(
                ALBUM_ROWS, "Disque", drive="H:")


def test_a_medium_taken_out_before_the_scan_is_reported_and_harms_nothing(program, other_medium):
    main = program.open()
    add_cd(main, "Présent")
    dialog = open_new_cd(main)
    program.desktop.type("Absent")
    other_medium(None)
    dialog.CommandNouveauOK.click()
    program.message().answer("OK")
    wait_for(lambda: program.message_or_none() is None, "the report to go")
    dialog.TextNouveau.wait(lambda: dialog.TextNouveau.focused, "to have the focus again")
    assert dialog.CommandNouveauOK.enabled and dialog.CommandNouveauOK.visible
    dialog.close()
    program.wait_gone("FrmNouveauCD")
    assert program.running
    program.quit()
    assert as_set(catalogue.rows(program.database)) == expected_rows(ALBUM_ROWS, "Présent")


@pytest.fixture
def medium_with_closed_folder(tmp_path):
    folder = medium.write(tmp_path / "m", {"a/dedans.mid": medium.mid(51),
                                           "b/libre.mid": medium.mid(52)})
    os.chmod(folder / "a", 0)
    yield folder
    os.chmod(folder / "a", 0o755)


def test_an_unreadable_folder_can_be_tried_again(program, other_medium, medium_with_closed_folder):
    other_medium(medium_with_closed_folder)
    main = program.open()
    dialog = open_new_cd(main)
    program.desktop.type("Fermé")
    dialog.CommandNouveauOK.click()
    box = program.message()
    assert box.buttons() == [RETRY, "Annuler"]
    box.answer(RETRY)
    box = program.message()
    os.chmod(medium_with_closed_folder / "a", 0o755)
    box.answer(RETRY)
    program.wait_gone("FrmNouveauCD")
    program.quit()
    assert {row["Fichier"] for row in catalogue.rows(program.database)} == {
        "[CD]\\a\\dedans.mid", "[CD]\\b\\libre.mid"}


def test_cancelling_at_an_unreadable_folder_adds_nothing(program, other_medium,
                                                         medium_with_closed_folder):
    other_medium(medium_with_closed_folder)
    main = program.open()
    dialog = open_new_cd(main)
    program.desktop.type("Fermé")
    dialog.CommandNouveauOK.click()
    program.message().answer("Annuler")
    program.wait_gone("FrmNouveauCD")
    assert main.List1.items() == [ALL]
    program.quit()
    assert catalogue.count(program.database) == 0
    assert "E:\\b\\libre.mid" in (program.folder / "tmp.tmp").read_bytes().decode("cp1252")


def test_names_outside_the_code_page_are_kept_whole(program, other_medium, tmp_path):
    names = ["Пётр.mid", "日本の歌.mid", "Ωμέγα.mid", "clé 🎵.mid"]
    other_medium(medium.write(tmp_path, {f"世界/{name}": medium.mid(70) for name in names}))
    main = program.open()
    add_cd(main, "Monde")
    assert sorted(main.DBList2.rows()) == sorted(
        name[0].upper() + name[1:].removesuffix(".mid") for name in names)
    program.quit()
    # mdbtools shows each half of a character beyond the first 65536 as a question mark.
    assert {row["Fichier"] for row in catalogue.rows(program.database)} == {
        f"[CD]\\世界\\{name.replace('🎵', '??')}" for name in names}
    assert (program.folder / "tmp.tmp").read_bytes().startswith(b"\xef\xbb\xbf")


def test_paths_beyond_260_characters_are_catalogued(program, other_medium, tmp_path):
    deep = "/".join([letter * 60 for letter in "abcdefgh"])
    other_medium(medium.write(tmp_path, {f"{deep}/fin.mid": medium.mid(64)}))
    main = program.open()
    add_cd(main, "Profond")
    program.quit()
    row, = catalogue.rows(program.database)
    assert row["Fichier"] == "[CD]\\" + deep.replace("/", "\\") + "\\fin.mid"
    assert (row["Taille"], row["Nom"]) == (64, "Fin")


def test_a_full_disk_loses_nothing(desktop, small_disk, other_medium, tmp_path):
    program = Program(desktop, small_disk.folder)
    main = program.open()
    add_cd(main, "Avant")
    # The list of the files found fits in, their rows do not.
    small_disk.fill(room=1 << 15)
    other_medium(medium.write(tmp_path / "m", {f"{n}.mid": medium.mid() for n in range(1000)}))
    dialog = open_new_cd(main)
    program.desktop.type("Après")
    dialog.CommandNouveauOK.click()
    program.message().answer("OK")
    wait_for(lambda: program.message_or_none() is None, "the report to go")
    # Another attempt would begin as the first one did.
    assert dialog.LabelPatientez.text == "Lecture en cours. Patientez quelques instants..."
    small_disk.empty()
    program.kill()
    main = program.open()
    assert main.List1.items() == [ALL, "Avant"]
    program.quit()
    assert as_set(catalogue.rows(program.database)) == expected_rows(ALBUM_ROWS, "Avant")
