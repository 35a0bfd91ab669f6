"""The pop-up with a track's details, there for as long as the right button is held, or until a key
closes it."""
import pytest

from harness import medium
from harness.program import Program
from harness.steps import add_cd, choose_cd
from harness.waiting import wait_for

LONG = "un titre très long " * 12
FILES = {
    "a/court.mid": medium.mid(50),
    f"a/{LONG.strip()}.wav": medium.wav(123456),
    "z/" + "sansblanc" * 20 + ".mod": medium.mod("milieu", 2 << 20),
}


@pytest.fixture(scope="module")
def filled(desktop, tmp_path_factory):
    program = Program(desktop)
    main = program.open()
    desktop.set_medium("e", medium.write(tmp_path_factory.mktemp("cd"), FILES))
    add_cd(main, "Détails & Cie")
    yield program
    program.close()


@pytest.fixture
def main(filled):
    window = filled.form("FrmMP3")
    choose_cd(window, "Détails & Cie")
    wait_for(lambda: window.DBList2.count == 3, "the three tracks")
    yield window
    filled.desktop.tidy()
    wait_for(lambda: filled.form_or_none("FrmInfoTitre") is None, "no pop-up to be left")


def popup(main):
    return wait_for(lambda: main.program.form_or_none("FrmInfoTitre"), "the pop-up")


def details(window):
    """Heading to value, read as they stand beside each other."""
    labels = window.children("Static")
    place = {label["id"]: label for label in labels}
    first = min(place)
    pairs = {place[first + index]["text"]: place[first + index + 4] for index in range(4)}
    for heading, value in pairs.items():
        row, = [label for label in labels if label["text"] == heading and label["id"] < first + 4]
        assert row["rect"][1] == value["rect"][1] and row["rect"][2] <= value["rect"][0]
    return {heading: value["text"] for heading, value in pairs.items()}


def test_it_shows_the_track_under_the_pointer_for_as_long_as_the_button_is_held(main):
    main.DBList2.press_row(0, button=3)
    shown = popup(main)
    assert shown.title == "Informations sur le titre"
    assert details(shown) == {"Titre": "Court", "Nom du fichier": "E:\\a\\court.mid",
                              "Taille": "50 Octets", "Nom du CD": "Détails & Cie"}
    for _ in range(20):
        assert shown.exists
    main.desktop.release(3)
    shown.wait_gone()
    assert main.DBList2.selected == []


def test_it_stands_in_the_middle_of_the_main_window(main):
    main.DBList2.press_row(0, button=3)
    assert popup(main).stands_over_the_middle_of(main)


def test_the_keys_stay_with_the_list(main):
    main.DBList2.press_row(0, button=3)
    popup(main)
    assert main.desktop.active_title() == main.title


@pytest.mark.parametrize("place", ["the pop-up itself", "another control", "outside the program"])
def test_a_release_anywhere_closes_it(main, place):
    main.DBList2.press_row(1, button=3)
    shown = popup(main)
    left, top, right, bottom = (shown.rect if place == "the pop-up itself" else
                                main.Label1.rect if place == "another control" else
                                (0, 980, 4, 984))
    main.desktop.move((left + right) // 2, (top + bottom) // 2)
    assert shown.exists
    main.desktop.release(3)
    shown.wait_gone()


def test_it_opens_again_at_once(main):
    """The second of two quick presses is a double click to the system."""
    main.DBList2.press_row(0, button=3)
    popup(main)
    main.desktop.release(3)
    main.DBList2.press_row(0, button=3)
    assert details(popup(main))["Titre"] == "Court"


def test_nothing_opens_below_the_tracks(main):
    left, _, right, bottom = main.DBList2.rect
    main.desktop.press((left + right) // 2, bottom - 10, button=3)
    main.desktop.release(3)
    main.DBList2.press_row(0, button=3)
    assert details(popup(main))["Titre"] == "Court"


def test_a_left_press_opens_nothing(main):
    main.DBList2.press_row(0)
    wait_for(lambda: main.DBList2.selected == [0], "the row to be chosen")
    assert main.program.form_or_none("FrmInfoTitre") is None


def test_long_values_get_the_lines_they_need(main):
    """Also one without a blank; the labels stay inside the window, none on top of another."""
    heights = []
    for row in range(3):
        main.DBList2.press_row(row, button=3)
        shown = popup(main)
        left, top, right, bottom = shown.rect
        places = [label["rect"] for label in shown.children("Static")]
        assert all(left < place[0] and place[2] < right for place in places)
        assert all(top < place[1] and place[3] < bottom for place in places)
        rows = sorted({place[1]: max(other[3] for other in places if other[1] == place[1])
                       for place in places}.items())
        assert all(above[1] <= below[0] for above, below in zip(rows, rows[1:]))
        heights.append([end - start for start, end in rows])
        main.desktop.release(3)
        shown.wait_gone()
    (line, *others), without_blank, with_blanks = heights
    assert others == [line] * 3
    assert without_blank[0] == line and without_blank[1] >= 3 * line
    assert min(with_blanks[:2]) >= 3 * line and with_blanks[2:] == [line] * 2


@pytest.mark.parametrize("key", ["Menu", "shift+F10"])
@pytest.mark.parametrize("end", ["Escape", "Return"])
def test_keys_open_it_for_the_chosen_track_and_close_it(main, key, end):
    main.DBList2.click_row(1)
    main.key("Up")
    wait_for(lambda: main.DBList2.selected == [0], "the first track to be chosen")
    main.key(key)
    shown = main.program.form("FrmInfoTitre")
    assert details(shown)["Titre"] == "Court"
    assert shown.stands_over_the_middle_of(main)
    main.key(end)
    shown.wait_gone()
    main.program.form("FrmMP3")
    main.DBList2.wait(lambda: main.DBList2.focused, "to have the focus again")
    assert main.DBList2.selected == [0]
    # No menu has been opened behind it: the arrows still move in the list.
    main.key("Down")
    wait_for(lambda: main.DBList2.selected == [1], "the next track")


def test_a_track_that_only_bears_the_mark_is_told_too(main):
    main.List1.click_item("Détails & Cie")
    main.key("Tab")
    main.DBList2.wait(lambda: main.DBList2.focused, "to have the focus")
    main.key("Menu")
    shown = main.program.form("FrmInfoTitre")
    assert details(shown)["Titre"] == "Court" and main.DBList2.selected == []
    main.key("Escape")
    shown.wait_gone()


def test_opened_by_a_key_it_goes_when_another_window_is_used(main):
    main.DBList2.click_row(0)
    main.key("Menu")
    shown = main.program.form("FrmInfoTitre")
    main.List1.click_item("Détails & Cie")
    shown.wait_gone()


def test_a_click_on_it_closes_it_when_a_key_has_opened_it(main):
    main.DBList2.click_row(0)
    main.key("Menu")
    shown = main.program.form("FrmInfoTitre")
    left, top, right, bottom = shown.rect
    main.desktop.click((left + right) // 2, (top + bottom) // 2)
    shown.wait_gone()
