"""Every window for those who work by keyboard alone or hear the screen instead of seeing it: what a
screen reader says of each control, what the Tab key reaches, and whether the eye can follow it."""
import contextlib

import pytest

from harness import medium, settings
from harness.desktop import FIXED, Desktop
from harness.form import is_met_first
from harness.names import control_ids
from harness.program import Program
from harness.steps import (add_cd, begin_copy, choose_cd, finish_copy, open_copy, open_new_cd,
                           open_players, open_search, search)
from harness.waiting import wait_for

WORKED_WITH = ("Button", "Edit", "ListBox", "ComboBox", "SysListView32", "RichEdit50W")
KIND, NOT_BY_TAB = 0xF, (9, 7)  # of the styles of buttons: radio buttons and frames around others

DRIVE = "Sélectionnez le lecteur de votre choix (et insérez-y un CD si le lecteur est de type CD ROM)"
PAGES = {"CommandExtMoins": "Types de fichiers précédents",
         "CommandExtPlus": "Types de fichiers suivants"}

# What is said of the controls that bear no text, or only a sign.
NAMES = {
    "FrmMP3": PAGES | {
        "List1": "CD", "DBList2": "Morceaux", "TextRech": "Recherche\N{NO-BREAK SPACE}:",
        "CommandLecteurMoins": "Lecteur audio précédent", "CommandLecteurPlus": "Lecteur audio suivant",
        "Image1": "Lecteur de CD ROM", "LabelReglage": "Séparation des deux listes"},
    "FrmInfoTitre": {},
    "FrmNouveauCD": {"TextNouveau": "Donnez un nom à la liste de morceaux du lecteur source",
                     "DriveNouveau": DRIVE},
    "FrmExtension": {"ListExt": "Extensions", "Text1": "Nouvelle extension"},
    "FrmPlayers": {"ListPlayers": "Lecteurs Audio", "TextNom": "Nom", "TextChemin": "Chemin",
                   "Picture1": "Choisir le fichier du lecteur"},
    "FrmRechCD": {"DriveRech": DRIVE},
    "FrmInfoRech": {
        "List1": "Titres déjà mémorisés  (méthode de détection 1 : nom du morceau connu)",
        "List2": "Titres déjà mémorisés  (méthode de détection 2 : nom du morceau connu + taille "
                 "identique)"},
    "FrmCDcopy": PAGES | {
        "DriveSource": "Lecteur source", "Drivedestin": "Lecteur de destination",
        "DirDestin": "Répertoire de destination", "TextCopy": "Rechercher"},
    "FrmNouveauDossier": {"TextDossier": "Nom du nouveau dossier"},
    "FrmInfoCopy": {"ListInfocopy": "Morceaux du CD  (Titres cochés = titres à copier)"},
    "FrmExisteFich": {"TextAncienNom": "Ancien nom de fichier",
                      "TextNouveauNom": "Nouveau nom de fichier"},
    "FrmAide": {"RichTextBox1": "Manuel de Brivantole Audio"},
    "FrmApropos": {},
}


@pytest.fixture(scope="module")
def desktop(album_folder, tmp_path_factory):
    with Desktop(medium=album_folder,
                 drives={"p": (tmp_path_factory.mktemp("disk"), FIXED)}) as made:
        made.keep_accessible_names()
        yield made


@pytest.fixture(scope="module")
def shared(desktop):
    with Program(desktop) as made:
        settings.set_text(made.settings, "CopyDestination", "P:\\")
        settings.set_text(made.settings, "DestinationDrive", "p:")
        main = made.open()
        add_cd(main, "Rock 1")
        finish_copy(begin_copy(main))
        yield made


@pytest.fixture
def program(shared):
    """The program with no window over its main window."""
    yield shared
    shared.desktop.tidy()
    shared.only_main_window()


# How each window is opened and put away again.

@contextlib.contextmanager
def dialog(main, opened):
    yield opened
    main.program.form(opened.name)  # gets the keys again when a dialog in front of it has just gone
    main.desktop.keys("Escape")
    opened.wait_gone()


def from_menu(*captions, name):
    def opener(main):
        main.choose(*captions)
        return dialog(main, main.program.form(name))
    return opener


@contextlib.contextmanager
def main_window(main):
    main.List1.click_item("Rock 1")
    main.List1.wait(lambda: main.List1.focused, "to have the focus")
    yield main


@contextlib.contextmanager
def track_info(main):
    choose_cd(main, "Rock 1")
    main.DBList2.press_row(1, button=3)
    yield wait_for(lambda: main.program.form_or_none("FrmInfoTitre"), "the details")
    main.desktop.release(3)
    main.program.wait_gone("FrmInfoTitre")


@contextlib.contextmanager
def new_folder(main):
    with dialog(main, open_copy(main)) as setup:
        setup.CommandDossier.click()
        with dialog(main, main.program.form("FrmNouveauDossier")) as opened:
            yield opened


@contextlib.contextmanager
def conflict(main):
    window = begin_copy(main)
    window.CommandCopier.click()
    opened = main.program.form("FrmExisteFich")
    yield opened
    opened.Command1.click()
    wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
    window.ComAnnuleCopie.click()
    main.program.wait_gone("FrmInfoCopy")


OPENERS = {
    "FrmMP3": main_window,
    "FrmInfoTitre": track_info,
    "FrmNouveauCD": lambda main: dialog(main, open_new_cd(main)),
    "FrmExtension": from_menu("Outils", "Types de fichiers Audio", name="FrmExtension"),
    "FrmPlayers": lambda main: dialog(main, open_players(main)),
    "FrmRechCD": lambda main: dialog(main, open_search(main)),
    "FrmInfoRech": lambda main: dialog(main, search(main)),
    "FrmCDcopy": lambda main: dialog(main, open_copy(main)),
    "FrmNouveauDossier": new_folder,
    "FrmInfoCopy": lambda main: dialog(main, begin_copy(main)),
    "FrmExisteFich": conflict,
    "FrmAide": from_menu("Aide", "Aide", name="FrmAide"),
    "FrmApropos": from_menu("Aide", "A propos de", name="FrmApropos"),
}


def test_every_window_is_tried():
    assert set(OPENERS) == set(control_ids()) == set(NAMES)


def all_are_said(window):
    said = window.spoken_names()
    assert {name: said[name] for name in NAMES[window.name]} == NAMES[window.name]
    silent = {name for name in said if len(said[name]) < 2 and not name.startswith("Label")}
    assert silent == ({"Picture1"} if window.name == "FrmApropos" else set()), "but for decoration"


def part(pixels, outer, inner):
    left, top, right, bottom = inner
    return [row[(left - outer[0]) * 3:(right - outer[0]) * 3]
            for row in pixels[top - outer[1]:bottom - outer[1]]]


def follow_tab(window):
    """The controls that get the focus one after the other; each shows that it has it."""
    place = window.rect
    shown = window.desktop.pixels(place)
    stops = []
    while True:
        window.key("Tab")

        def next_stop():
            found = next((child for child in window.children() if child["focused"]), None)
            goes_on = found and not (stops and found["handle"] == stops[-1]["handle"])
            return found if goes_on else None
        stop = wait_for(next_stop, "the focus to go on")

        def seen(before=shown):
            now = window.desktop.pixels(place)
            changed = part(now, place, stop["rect"]) != part(before, place, stop["rect"])
            return now if changed else None
        shown = wait_for(seen, f"the focus to be seen on {stop['id']}")
        if stop["handle"] in [earlier["handle"] for earlier in stops]:
            assert stop["handle"] == stops[0]["handle"]
            return stops
        stops.append(stop)


def all_are_reached(window, stops):
    reached = {stop["handle"] for stop in stops}
    for child in window.children():
        if child["visible"] and child["enabled"] and child["class"] in WORKED_WITH:
            # The arrow keys go from one radio button to the others.
            elsewhere = child["class"] == "Button" and child["style"] & KIND in NOT_BY_TAB
            assert child["handle"] in reached or elsewhere, child["id"]


def follow_the_eye(window, stops):
    order = [child["handle"] for child in window.children()]
    first = min(stops, key=lambda stop: order.index(stop["handle"]))
    stops = stops[stops.index(first):] + stops[:stops.index(first)]
    for number, stop in enumerate(stops):
        for later in stops[number + 1:]:
            assert not is_met_first(later["rect"], stop["rect"]), (stop["id"], later["id"])


@pytest.mark.parametrize("name", OPENERS)
def test_every_control_is_said_reached_and_seen(program, name):
    main = program.form("FrmMP3")
    with OPENERS[name](main) as window:
        program.desktop.xdo("mousemove", 1, 990)
        all_are_said(window)
        if name not in ("FrmInfoTitre", "FrmApropos"):
            stops = follow_tab(window)
            all_are_reached(window, stops)
            follow_the_eye(window, stops)


@contextlib.contextmanager
def compact_main_window(main):
    size = main.size
    with main_window(main):
        main.resize(600, 460)
        wait_for(lambda: main.size == (600, 460), "the smallest window")
        yield main
        main.resize(*size)
        wait_for(lambda: main.size == size, "the window as it was")


OTHER_LOOKS = {
    "FrmMP3, compact": compact_main_window,
    "FrmRechCD for the CD-ROM drive": from_menu("Outils", "Sélectionner le lecteur de CD ROM",
                                                name="FrmRechCD"),
}


@pytest.mark.parametrize("name", OTHER_LOOKS)
def test_every_control_is_reached_in_windows_that_have_changed(program, name):
    main = program.form("FrmMP3")
    with OTHER_LOOKS[name](main) as window:
        program.desktop.xdo("mousemove", 1, 990)
        stops = follow_tab(window)
        all_are_reached(window, stops)
        follow_the_eye(window, stops)
