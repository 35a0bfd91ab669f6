"""The choice of the CD-ROM drive."""
import pytest

from harness import medium, settings
from harness.desktop import CD_ROM, FIXED, Desktop
from harness.program import Program
from harness.steps import open_new_cd
from harness.waiting import wait_for


@pytest.fixture(scope="module")
def desktop(tmp_path_factory):
    """E: and F: are CD-ROM drives, H: is a hard disk."""
    folders = [medium.write(tmp_path_factory.mktemp("drive"), {"a.mid": medium.mid()})
               for _ in range(3)]
    with Desktop(medium=folders[0],
                 drives={"f": (folders[1], CD_ROM), "h": (folders[2], FIXED)}) as made:
        yield made


@pytest.fixture(scope="module")
def program(desktop):
    with Program(desktop) as made:
        made.open()
        yield made


@pytest.fixture
def main(program):
    """The main window, with E: as the drive and no window over it."""
    window = program.form("FrmMP3")
    assert window.Label2.text == "E:\\"
    yield window
    program.desktop.tidy()
    program.only_main_window()


def open_choice(main):
    main.choose("Outils", "Sélectionner le lecteur de CD ROM")
    return main.program.form("FrmRechCD")


def choose(main, drive):
    dialog = open_choice(main)
    dialog.DriveRech.choose_entry(drive)
    dialog.CommandOK.click()
    main.program.wait_gone("FrmRechCD")


def test_the_dialog_says_what_it_is_for(main):
    dialog = open_choice(main)
    assert dialog.title == "Choix du lecteur de CD ROM"
    assert dialog.LabelRech.text == "Sélectionnez le lecteur de CD ROM de votre choix"
    assert dialog.FrameRech.text == "Source"
    assert not dialog.LabelRechtitre.visible
    assert dialog.DriveRech.choice[:2].upper() == "E:"
    assert dialog.DriveRech.focused
    # The gap is closed: as much room above the frame as below the buttons.
    _, top, _, _ = dialog.rect
    assert dialog.FrameRech.rect[1] - top < 60
    dialog.CommandAnnul.click()
    main.program.wait_gone("FrmRechCD")


def test_a_hard_disk_is_refused_without_a_word(main):
    choose(main, "h:")
    assert main.program.message_or_none() is None
    assert main.Label2.text == "E:\\"
    dialog = open_choice(main)
    assert dialog.DriveRech.choice[:2].upper() == "E:"
    main.desktop.keys("Escape")
    main.program.wait_gone("FrmRechCD")


@pytest.mark.parametrize("end", ["CommandAnnul", "Escape", "alt+F4"])
def test_cancelling_keeps_the_drive(main, end):
    dialog = open_choice(main)
    dialog.DriveRech.choose_entry("f:")
    if end == "CommandAnnul":
        dialog.CommandAnnul.click()
    else:
        main.desktop.keys(end)
    main.program.wait_gone("FrmRechCD")
    assert main.Label2.text == "E:\\"


@pytest.mark.parametrize("control", ["Label2", "Image1"])
def test_the_drive_in_the_main_window_opens_the_dialog_too(main, control):
    main.control(control).click()
    dialog = main.program.form("FrmRechCD")
    assert dialog.title == "Choix du lecteur de CD ROM"
    dialog.CommandAnnul.click()
    main.program.wait_gone("FrmRechCD")


def test_a_second_cd_rom_drive_is_shown_and_kept(desktop):
    with Program(desktop) as program:
        main = program.open()
        choose(main, "f:")
        wait_for(lambda: main.Label2.text == "F:\\", "the other drive")
        program.quit()
        assert settings.read(program.settings)["CdRomDrive"] == "F:"
        main = program.open()
        assert main.Label2.text == "F:\\"


def test_the_drive_of_a_new_cd_is_shown_and_kept(tmp_path):
    """Also when its row bears the medium's name behind the letter."""
    labelled = medium.write(tmp_path, {".windows-label": b"DISQUE 2\n", "a.mid": medium.mid()})
    # Wine reads a medium's name once: the drive holds it from the start.
    with Desktop(drives={"f": (labelled, CD_ROM)}) as desktop, Program(desktop) as program:
        main = program.open()
        dialog = open_new_cd(main)
        desktop.type("Second")
        dialog.DriveNouveau.choose_entry("f:")
        assert dialog.DriveNouveau.choice == "F: [DISQUE 2]"
        dialog.CommandNouveauOK.click()
        program.wait_gone("FrmNouveauCD")
        assert main.Label2.text == "F:\\"
        program.quit()
        assert settings.read(program.settings)["CdRomDrive"] == "F:"
        assert program.open().Label2.text == "F:\\"


def test_enter_confirms(desktop):
    with Program(desktop) as program:
        main = program.open()
        dialog = open_choice(main)
        desktop.keys("End", "Home")
        wait_for(lambda: dialog.DriveRech.choice[:2] == "C:", "the first drive")
        desktop.keys("f")
        wait_for(lambda: dialog.DriveRech.choice[:2] == "F:", "the other drive")
        desktop.keys("Return")
        program.wait_gone("FrmRechCD")
        assert main.Label2.text == "F:\\"


@pytest.mark.parametrize("end", ["CommandOK", "CommandAnnul"])
def test_a_drive_that_goes_while_it_is_chosen_is_missed(tmp_path, end):
    folders = [medium.write(tmp_path / name, {"a.mid": medium.mid()}) for name in ("cd", "usb")]
    with Desktop(medium=folders[0], drives={"f": (folders[1], CD_ROM)}) as desktop, \
            Program(desktop) as program:
        main = program.open()
        dialog = open_choice(main)
        dialog.DriveRech.choose_entry("f:")
        assert desktop.probe.ask("removedrive", "f")
        dialog.control(end).click()
        if end == "CommandOK":
            report = program.message()
            assert report.text.endswith(
                "\nLe lecteur F: n'est plus là. Rebranchez-le ou choisissez un autre lecteur de CD ROM.")
            report.answer("OK")
        program.wait_gone("FrmRechCD")
        assert program.message_or_none() is None and main.Label2.text == "E:\\"
        dialog = open_choice(main)
        assert "F:" not in [row[:2].upper() for row in dialog.DriveRech.items()]
        dialog.CommandAnnul.click()
        dialog.wait_gone()
        assert program.quit() == 0
        assert settings.read(program.settings)["CdRomDrive"] == "E:"


def test_no_two_items_of_a_menu_have_the_same_letter(main):
    def check(items):
        letters = [item["caption"].split("\t")[0].partition("&")[2][:1].upper() for item in items
                   if "&" in item["caption"]]
        assert len(set(letters)) == len(letters), letters
        for item in items:
            check(item["items"])
    check(main.menu())
