"""The window that sets a copy up: its presets, its folder list, its types, and what it keeps."""
import shutil

import pytest

from harness import medium, settings
from harness.desktop import CD_ROM, FIXED, Desktop
from harness.program import Program
from harness.steps import begin_copy, finish_copy, open_copy
from harness.waiting import wait_for

OPTIONS = [
    "Copier tous les fichiers musicaux",
    "Ignorer les fichiers dont le titre est déjà mémorisé",
    "Ignorer les fichiers dont le titre et sa taille sont déjà mémorisés",
    "Copier tous les fichiers",
    "Copier une seule fois les fichiers dont le titre est le même",
    "Copier une seule fois les fichiers dont le titre et sa taille sont les mêmes",
]
TYPES = ["669", "IT", "MDL", "MID", "MOD", "MP1", "MP2", "MP3", "S3M", "WAV", "WMA", "XM"]


@pytest.fixture(scope="module")
def disk(tmp_path_factory):
    folder = tmp_path_factory.mktemp("disk")
    for name in ("Musique/Rock", "Musique/Été", "Temp"):
        (folder / name).mkdir(parents=True)
    return folder


@pytest.fixture(scope="module")
def desktop(disk, album_folder):
    with Desktop(medium=album_folder,
                 drives={"f": (album_folder, CD_ROM), "h": (disk, FIXED)}) as made:
        yield made


@pytest.fixture
def program(desktop):
    with Program(desktop) as made:
        settings.change(made.settings, DestinationDrive="h:", CopyDestination="H:\\Musique")
        yield made
    desktop.tidy()


def option(dialog, number):
    return dialog.control(f"OptionCopier{number}")


def boxes(dialog):
    """Caption to tick of the type boxes in view."""
    found = [dialog.control(f"CheckFormat{number}") for number in range(10)]
    return {box.text: box.checked for box in found if box.visible}


def test_the_dialog_says_what_it_does(program):
    dialog = open_copy(program.open())
    assert dialog.title == "Copie de CD musical vers le disque dur"
    assert [dialog.control(name).text for name in (
        "FrameSource", "FrameDestin", "Frame1", "Frame2", "FrameType", "Label1", "CheckRepert",
        "CommandAnnuler")] == [
            "Source", "Destination", "Fichiers à copier", "Titres en doubles sur Source",
            "Type de fichiers à copier", "Rechercher",
            "Ne pas créer les répertoires lors de la copie", "Annuler"]
    assert dialog.LabelSource.text == (
        "Sélectionnez le lecteur de votre choix (et insérez-y un CD si le lecteur est de type CD ROM)")
    assert dialog.LabelDestin.text == (
        "Sélectionnez le chemin de destination où seront copiés les fichiers musicaux du lecteur "
        "source")
    assert [option(dialog, number).text for number in range(6)] == OPTIONS
    assert dialog.TextCopy.text == ""


def test_it_opens_with_the_settings(program):
    settings.change(program.settings, CopyOption1=2, CopyOption2=1, CopyOption3=1)
    dialog = open_copy(program.open())
    assert [option(dialog, number).checked for number in range(6)] == [
        False, False, True, False, True, False]
    assert dialog.CheckRepert.checked
    assert dialog.DriveSource.choice[:2].upper() == "E:"
    assert dialog.Drivedestin.choice[:2].upper() == "H:"
    assert dialog.LabelChemin.text == "H:\\Musique"
    assert dialog.DirDestin.items() == ["H:\\", "Musique", "Rock", "Été"]
    assert dialog.DirDestin.choice == "Musique"


@pytest.mark.parametrize("stored, shown", [
    ("H:\\Musique\\Parti\\Loin", "H:\\Musique"), ("H:\\Nulle part", "H:\\"),
    ("C:\\windows", "H:\\"), ("", "H:\\"), ("n'importe quoi", "H:\\")])
def test_a_destination_that_is_gone_gives_the_nearest_that_is_there(program, stored, shown):
    settings.change(program.settings, CopyDestination=stored)
    assert open_copy(program.open()).LabelChemin.text == shown


def test_a_destination_drive_that_is_gone_gives_another(program):
    settings.change(program.settings, DestinationDrive="q:", CopyDestination="Q:\\Musique")
    dialog = open_copy(program.open())
    drive = dialog.Drivedestin.choice[:2].upper()
    assert drive not in ("", "Q:")
    assert dialog.LabelChemin.text in ("", f"{drive}\\")
    assert dialog.ComCopierOK.enabled == bool(dialog.LabelChemin.text)


def test_a_destination_beyond_260_characters_can_be_copied_to(program, disk, album_folder):
    deep = [letter * 60 for letter in "abcdef"]
    folder = disk.joinpath(*deep)
    folder.mkdir(parents=True)
    path = "\\".join(["H:", *deep])
    settings.change(program.settings, CopyDestination=path)
    window = begin_copy(program.open())
    assert "8 morceaux copiés (" in finish_copy(window)
    assert (folder / "my_song.mid").read_bytes() == (album_folder / "my_song.mid").read_bytes()
    shutil.rmtree(disk / deep[0])


def test_folders_are_browsed_by_mouse_and_keys(program):
    dialog = open_copy(program.open())

    def becomes(path):
        wait_for(lambda: dialog.LabelChemin.text == path, path)
    dialog.DirDestin.click_item("Rock", times=2)
    becomes("H:\\Musique\\Rock")
    dialog.DirDestin.click_item("H:\\", times=2)
    becomes("H:\\")
    assert dialog.DirDestin.items() == ["H:\\", "Musique", "Temp"]
    program.desktop.keys("Down", "Return")
    becomes("H:\\Musique")
    program.desktop.keys("End", "Return")
    becomes("H:\\Musique\\Été")
    program.desktop.keys("BackSpace", "BackSpace")
    becomes("H:\\")
    dialog.Drivedestin.choose_entry("c:")
    becomes("C:\\")
    assert "windows" in dialog.DirDestin.items()


def test_a_folder_can_be_made(program, disk):
    dialog = open_copy(program.open())
    dialog.CommandDossier.click()
    asking = program.form("FrmNouveauDossier")
    assert not asking.CommandOK.enabled
    program.desktop.type('Jazz: "1959"?')
    wait_for(lambda: asking.TextDossier.text == "Jazz 1959", "the name without what no name holds")
    program.desktop.keys("Return")
    program.wait_gone("FrmNouveauDossier")
    wait_for(lambda: dialog.LabelChemin.text == "H:\\Musique\\Jazz 1959", "the new folder")
    assert (disk / "Musique" / "Jazz 1959").is_dir()
    dialog.DirDestin.click_item("Musique", times=2)
    wait_for(lambda: dialog.LabelChemin.text == "H:\\Musique", "the folder above")
    # Its name is taken now.
    dialog.CommandDossier.click()
    program.form("FrmNouveauDossier")
    program.desktop.type("jazz 1959")
    program.desktop.keys("Return")
    program.message().answer("OK")
    assert dialog.LabelChemin.text == "H:\\Musique"
    (disk / "Musique" / "Jazz 1959").rmdir()


def test_a_drive_without_a_medium_keeps_the_one_before(program, album_folder):
    dialog = open_copy(program.open())
    dialog.Drivedestin.choose_entry("e:")
    wait_for(lambda: dialog.LabelChemin.text == "E:\\", "the drive before it")
    program.desktop.set_medium("f", None)
    try:
        program.desktop.keys("Down")
        program.message().answer("OK")
        assert dialog.Drivedestin.choice[:2].upper() == "E:"
        assert dialog.LabelChemin.text == "E:\\"
    finally:
        program.desktop.set_medium("f", album_folder)


def test_types_are_paged_through(program):
    dialog = open_copy(program.open())
    assert list(boxes(dialog)) == TYPES[:10]
    assert not dialog.CommandExtMoins.enabled
    dialog.CommandExtPlus.click()
    wait_for(lambda: list(boxes(dialog)) == TYPES[1:11], "the next type")
    assert dialog.CommandExtMoins.enabled and dialog.CommandExtPlus.enabled
    dialog.CommandExtPlus.click()
    wait_for(lambda: list(boxes(dialog)) == TYPES[2:], "the last type")
    assert not dialog.CommandExtPlus.enabled
    dialog.CheckFormat9.click()
    wait_for(lambda: not dialog.CheckFormat9.checked, "XM to be left out")
    for _ in range(2):
        dialog.CommandExtMoins.click()
    wait_for(lambda: list(boxes(dialog)) == TYPES[:10], "the first types")
    assert not dialog.CommandExtMoins.enabled and all(boxes(dialog).values())
    dialog.ComCopierOK.click()
    window = program.form("FrmInfoCopy")
    wait_for(lambda: window.CommandCopier.enabled, "the tracks")
    window.ComAnnuleCopie.click()
    program.wait_gone("FrmInfoCopy")
    program.quit()
    assert settings.read(program.settings)["Copied"] == [1] * 11 + [0]


def test_with_few_types_the_paging_buttons_stay_disabled(program):
    main = program.open()
    main.choose("Outils", "Types de fichiers Audio")
    formats = program.form("FrmExtension")
    for name in TYPES[:3]:
        formats.ListExt.click_item(name)
        formats.CommandSupprExt.click()
        wait_for(lambda gone=name: gone not in formats.ListExt.items(), "one less")
    formats.CommandFermExt.click()
    program.wait_gone("FrmExtension")
    dialog = open_copy(main)
    assert list(boxes(dialog)) == TYPES[3:]
    assert dialog.CommandExtPlus.visible and not dialog.CommandExtPlus.enabled
    assert dialog.CommandExtMoins.visible and not dialog.CommandExtMoins.enabled


def test_a_quotation_mark_becomes_an_apostrophe(program):
    dialog = open_copy(program.open())
    dialog.TextCopy.fill('dit "oui"')
    wait_for(lambda: dialog.TextCopy.text == "dit 'oui'", "apostrophes")


@pytest.mark.parametrize("end", ["CommandAnnuler", "Escape", "alt+F4"])
def test_cancelling_leaves_every_setting_as_it_was(program, end):
    main = program.open()
    before = settings.read(program.settings)
    dialog = open_copy(main)
    option(dialog, 1).click()
    option(dialog, 5).click()
    dialog.CheckRepert.click()
    dialog.CheckFormat2.click()
    dialog.DriveSource.choose_entry("f:")
    dialog.Drivedestin.choose_entry("c:")
    if end == "CommandAnnuler":
        dialog.CommandAnnuler.click()
    else:
        program.desktop.keys(end)
    program.wait_gone("FrmCDcopy")
    assert program.form_or_none("FrmInfoCopy") is None
    assert main.Label2.text == "E:\\"
    program.quit()
    after = settings.read(program.settings)
    assert {name for name in before if before[name] != after[name]} <= {
        "WinHeight", "WinWidth", "List1Width", "DBList2Width"}


def test_every_choice_is_kept(program, disk):
    main = program.open()

    def setup(dialog):
        option(dialog, 2).click()
        option(dialog, 4).click()
        dialog.CheckRepert.click()
        dialog.CheckFormat1.click()
        dialog.DirDestin.click_item("Rock", times=2)
        dialog.DriveSource.choose_entry("f:")
    window = begin_copy(main, setup)
    wait_for(lambda: window.CommandCopier.enabled, "the tracks")
    finish_copy(window)
    for path in (disk / "Musique" / "Rock").iterdir():
        path.unlink()
    assert main.Label2.text == "E:\\"
    dialog = open_copy(main)
    assert [option(dialog, number).checked for number in range(6)] == [
        False, False, True, False, True, False]
    assert dialog.CheckRepert.checked and not dialog.CheckFormat1.checked
    assert dialog.LabelChemin.text == "H:\\Musique\\Rock"
    dialog.CommandAnnuler.click()
    program.wait_gone("FrmCDcopy")
    program.quit()
    values = settings.read(program.settings)
    assert (values["CopyOption1"], values["CopyOption2"], values["CopyOption3"]) == (2, 1, 1)
    assert values["CopyDestination"] == "H:\\Musique\\Rock"
    assert values["DestinationDrive"][:2].upper() == "H:"
    assert values["CdRomDrive"] == "E:"
    assert values["Copied"] == [1, 0] + [1] * 10


def test_the_tab_key_follows_the_eye(program):
    dialog = open_copy(program.open())
    order = ["DriveSource", "Drivedestin", "DirDestin", "CommandDossier", "OptionCopier0",
             "OptionCopier3", *(f"CheckFormat{number}" for number in range(10)),
             "CommandExtPlus", "CheckRepert", "TextCopy", "ComCopierOK", "CommandAnnuler",
             "DriveSource"]
    for name in order:
        wait_for(lambda here=name: dialog.control(here).focused, f"{name} to have the focus")
        program.desktop.keys("Tab")
