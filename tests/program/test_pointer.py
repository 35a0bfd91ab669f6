"""What the pointer tells while the program is busy: the hourglass where nothing can be clicked, the arrow
with an hourglass where something can."""
import pytest

from harness import medium, settings, slowmedium
from harness.desktop import FIXED, Desktop
from harness.form import centre
from harness.player import RecordingPlayer
from harness.program import Program
from harness.steps import ALL, add_cd, begin_copy, choose_cd, open_copy, open_new_cd, open_search
from harness.waiting import wait_for

FEW = {f"{number}.mid": medium.mid() for number in range(3)}


@pytest.fixture(scope="module")
def folders(tmp_path_factory):
    return {"many": slowmedium.write(tmp_path_factory.mktemp("many")),
            "few": medium.write(tmp_path_factory.mktemp("few"), FEW)}


@pytest.fixture(scope="module")
def disk(tmp_path_factory):
    return tmp_path_factory.mktemp("disk")


@pytest.fixture(scope="module")
def desktop(folders, disk):
    """E: is a CD-ROM drive with a slow medium, H: the hard disk to copy to."""
    with Desktop(medium=folders["many"], drives={"h": (disk, FIXED)},
                 environment=slowmedium.with_slow_media()) as made:
        yield made


@pytest.fixture(scope="module")
def player(desktop):
    return RecordingPlayer(desktop, "lecteur.exe")


@pytest.fixture(scope="module")
def shared(desktop, player):
    with Program(desktop) as made:
        settings.set_players(made.settings, [("Écoute", player.path)], current=1)
        settings.change(made.settings, DestinationDrive="h:", CopyDestination="H:\\")
        made.open()
        yield made


@pytest.fixture
def main(shared, folders):
    yield shared.form("FrmMP3")
    shared.desktop.tidy()
    shared.desktop.set_medium("e", folders["many"])
    shared.only_main_window()


class Pointer:
    """The pointer's shapes by their names."""

    def __init__(self, main):
        self._desktop = main.desktop
        self._main = main
        self._shapes = main.cursors()

    def becomes(self, name):
        wait_for(lambda: self._desktop.cursor() == self._shapes[name], f"the pointer {name!r}")

    def becomes_at(self, rect, name):
        self._desktop.move(*centre(rect))
        self.becomes(name)

    def shapes_over(self, *rects):
        """The shapes that it has while it comes over each of these places."""
        with self._desktop.watched_cursor() as seen:
            for left, top, right, bottom in rects:
                for step in (3, 2):
                    self._desktop.move(left + (right - left) // step, top + (bottom - top) // step)
                    # The window has been told of the movement when it answers once more.
                    self._main.cursors()
                    self._main.cursors()
        return {name for name, shape in self._shapes.items() if shape in seen}


def name_cd(main, name):
    """Opens the dialog for a new medium and names it; only its OK button remains to be clicked."""
    dialog = open_new_cd(main)
    main.desktop.type(name)
    dialog.TextNouveau.wait(lambda: dialog.TextNouveau.text == name, f"to hold {name!r}")
    return dialog


def test_the_hourglass_stays_until_a_cd_is_scanned(main):
    pointer = Pointer(main)
    dialog = name_cd(main, "Beaucoup")
    behind = main.CheckAutoRefresh.rect
    places = dialog.rect, dialog.TextNouveau.rect, behind
    # The window behind waits as well.
    pointer.becomes_at(behind, "arrow")
    dialog.key("Return")
    pointer.becomes("wait")
    assert pointer.shapes_over(*places) == {"wait"}
    assert dialog.exists, "the scan still goes on"
    main.program.wait_gone("FrmNouveauCD")
    pointer.becomes("arrow")


def test_questions_and_reports_are_no_time_to_wait(main, folders):
    pointer = Pointer(main)
    main.desktop.set_medium("e", folders["few"])
    add_cd(main, "Encore")
    main.desktop.set_medium("e", folders["many"])
    dialog = name_cd(main, "Encore")
    dialog.CommandNouveauOK.click()
    question = main.program.message()
    for rect in (main.CheckAutoRefresh.rect, dialog.FrameNom.rect, question.rect):
        pointer.becomes_at(rect, "arrow")
    question.answer("Oui")
    # The mouse has not moved since its button was pressed.
    pointer.becomes("wait")
    main.program.wait_gone("FrmNouveauCD")
    main.desktop.set_medium("e", None)
    dialog = name_cd(main, "Rien")
    dialog.CommandNouveauOK.click()
    main.program.message().answer("OK")
    pointer.becomes_at(dialog.FrameNom.rect, "arrow")
    pointer.becomes_at(dialog.TextNouveau.rect, "text")
    dialog.CommandNouveauAnnuler.click()
    dialog.wait_gone()


def test_the_hourglass_stays_until_a_cd_is_scanned_again(main, folders):
    pointer = Pointer(main)
    main.desktop.set_medium("e", folders["few"])
    add_cd(main, "Une fois")
    main.desktop.set_medium("e", folders["many"])
    main.choose("Fichier", "Re-scanner le CD")
    behind = main.CheckAutoRefresh.rect
    main.program.message().answer("Oui")
    main.program.form("FrmNouveauCD")
    pointer.becomes_at(behind, "wait")
    main.program.wait_gone("FrmNouveauCD")
    pointer.becomes_at(main.List1.rect, "arrow")


def test_a_search_that_can_be_stopped_leaves_the_arrow(main, folders):
    pointer = Pointer(main)
    open_search(main).CommandOK.click()
    results = main.program.form("FrmInfoRech")
    pointer.becomes("working")
    assert pointer.shapes_over(results.List2.rect, results.CommandOkannul.rect) == {"working"}
    assert results.CommandOkannul.text == "Annuler"
    results.key("Escape")
    main.program.wait_gone("FrmInfoRech")
    pointer.becomes("arrow")
    main.desktop.set_medium("e", folders["few"])
    open_search(main).CommandOK.click()
    results = main.program.form("FrmInfoRech")
    results.CommandOkannul.wait(lambda: results.CommandOkannul.text == "OK", "to end the search")
    pointer.becomes_at(results.List1.rect, "arrow")
    results.CommandOkannul.click()
    main.program.wait_gone("FrmInfoRech")


def test_a_search_that_fails_gives_the_arrow_back(main):
    pointer = Pointer(main)
    dialog = open_search(main)
    main.desktop.set_medium("e", None)
    dialog.CommandOK.click()
    report = main.program.message()
    results = main.program.form_or_none("FrmInfoRech")
    pointer.becomes_at(results.List1.rect, "arrow")
    report.answer("OK")
    main.program.wait_gone("FrmInfoRech")
    pointer.becomes_at(main.List1.rect, "arrow")


def test_a_copy_is_busy_but_while_its_user_chooses(main, folders):
    pointer = Pointer(main)
    open_copy(main).ComCopierOK.click()
    window = main.program.form("FrmInfoCopy")
    pointer.becomes("working")
    assert pointer.shapes_over(window.ListInfocopy.rect, window.ComAnnuleCopie.rect) == {"working"}
    assert window.ListInfocopy.count < slowmedium.MANY
    window.ComAnnuleCopie.click()
    main.program.wait_gone("FrmInfoCopy")
    pointer.becomes("arrow")
    main.desktop.set_medium("e", folders["many"])
    window = begin_copy(main)
    pointer.becomes_at(window.ListInfocopy.rect, "arrow")
    window.CommandCopier.click()
    pointer.becomes("working")
    # The list cannot be used now; the stop button can.
    assert pointer.shapes_over(window.ListInfocopy.rect, window.ComAnnuleCopie.rect) == {"working"}
    assert not window.ListInfocopy.enabled
    window.ComAnnuleCopie.click()
    main.program.wait_gone("FrmInfoCopy")
    pointer.becomes("arrow")


def test_a_copy_that_asks_for_a_name_is_not_busy(main, folders, disk):
    pointer = Pointer(main)
    main.desktop.set_medium("e", folders["few"])
    for path in FEW:
        (disk / path).write_bytes(b"pris")
    window = begin_copy(main)
    window.CommandCopier.click()
    first = main.program.form("FrmExisteFich")
    first.CommandOK.click()
    first.wait_gone()
    # A file has been copied meanwhile.
    conflict = main.program.form("FrmExisteFich")
    pointer.becomes_at(conflict.LabelAncien.rect, "arrow")
    assert pointer.shapes_over(window.LabelTitrelist.rect) == {"arrow"}
    conflict.Command1.click()
    wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
    pointer.becomes_at(window.ListInfocopy.rect, "arrow")
    window.ComAnnuleCopie.click()
    main.program.wait_gone("FrmInfoCopy")


def test_the_hourglass_is_shown_while_the_clipboard_is_awaited(main):
    choose_cd(main, ALL)
    hourglass = main.cursors()["wait"]
    probe = main.desktop.probe
    assert probe.ask("holdclipboard")
    try:
        with main.desktop.watched_cursor() as seen:
            main.key("ctrl+c")
            report = main.program.message()
    finally:
        assert probe.ask("releaseclipboard")
    assert hourglass in seen
    report.answer("OK")
    Pointer(main).becomes_at(main.DBList2.rect, "arrow")


def test_the_hourglass_is_shown_while_a_list_is_handed_to_the_player(main, folders, player):
    main.desktop.set_medium("e", folders["few"])
    add_cd(main, "Rock 1")
    hourglass = main.cursors()["wait"]
    main.DBList2.click_row(0)
    wait_for(lambda: len(player.starts()) == 1, "the track")
    with main.desktop.watched_cursor() as seen:
        main.DBList2.click_row(0, times=2)
        wait_for(lambda: len(player.starts()) == 2, "the list")
    assert hourglass in seen
    Pointer(main).becomes("arrow")
