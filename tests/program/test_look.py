"""Font and colours of the lists."""
import pytest

from harness import settings
from harness.form import plain
from harness.lookdialogs import (BACK_COLOUR, BLUE, FACE, FONT, GREEN, HELP, RED, SIZE, STYLE,
                                 TEXT_COLOUR, choose_colour, choose_font, dialog_of, texts, type_colour,
                                 type_font)
from harness.steps import ALL, add_cd, choose_cd
from harness.waiting import wait_for

LOOK = ("FontName", "FontBold", "FontItalic", "FontSize", "ForeColor", "BackColor")


def becomes_background(main, name, colour):
    control = main.control(name)
    wait_for(lambda: main.desktop.colours(control.rect).get(colour, 0) > 0.5,
             f"{name} with the background {colour}")


def shown_colours(main, name):
    return main.desktop.colours(main.control(name).rect)


def saved_look(program):
    saved = settings.read(program.settings)
    return tuple(saved[name] for name in LOOK)


def set_look(program, *look):
    settings.change(program.settings, **dict(zip(LOOK, look)))


def test_the_menu_names_the_three_commands(program):
    main = program.open()
    captions = [item["caption"] for item in main.menu_item("Outils")["items"]]
    for caption in ("Définir la taille et le type de &fonte de caractères des listes",
                    "Définir la couleur de la f&onte de caractères des listes",
                    "Définir la couleur du fon&d des listes"):
        assert caption in captions


def test_a_font_changes_both_lists_at_once_and_lasts(program):
    main = program.open()
    add_cd(main, "Mon CD")
    before = main.List1.item_height(), main.DBList2.item_height()
    choose_font(main, "DejaVu Serif", 20, last_style=True)
    wait_for(lambda: main.List1.item_height() > before[0] * 1.5, "larger rows of media")
    assert main.DBList2.item_height() > before[1] * 1.5
    after = main.List1.item_height(), main.DBList2.item_height()
    program.quit()
    assert saved_look(program) == ("DejaVu Serif", 255, 255, 20, 0, 0xFFFFFF)
    again = program.open()
    choose_cd(again, "Mon CD")
    assert (again.List1.item_height(), again.DBList2.item_height()) == after


def test_the_font_dialog_shows_the_present_font_and_its_colour_is_not_taken(program):
    set_look(program, "Liberation Mono", 255, 255, 14, 0, 0xFFFFFF)
    main = program.open()
    dialog = dialog_of(main, FONT)
    shown = texts(dialog)
    assert (shown[FACE], shown[STYLE], shown[SIZE]) == ("Liberation Mono", "Gras italique", "14")
    colour = next(child["rect"] for child in dialog.children() if child["id"] == 1139)
    main.desktop.click((colour[0] + colour[2]) // 2, (colour[1] + colour[3]) // 2)
    main.desktop.keys("Down", "Down", "Return")
    wait_for(lambda: texts(dialog)[1139] != shown[1139], "another colour")
    dialog.answer("OK")
    program.quit()
    assert saved_look(program) == ("Liberation Mono", 255, 255, 14, 0, 0xFFFFFF)


def test_colours_change_both_lists_at_once_and_last(program):
    main = program.open()
    add_cd(main, "Mon CD")
    choose_colour(main, BACK_COLOUR, (255, 240, 192))
    becomes_background(main, "List1", (255, 240, 192))
    becomes_background(main, "DBList2", (255, 240, 192))
    choose_colour(main, TEXT_COLOUR, (0, 96, 32))
    for name in ("List1", "DBList2"):
        wait_for(lambda n=name: (0, 96, 32) in shown_colours(main, n), f"the text colour of {name}")
    program.quit()
    assert saved_look(program)[4:] == (0x206000, 0xC0F0FF)
    again = program.open()
    becomes_background(again, "List1", (255, 240, 192))
    becomes_background(again, "DBList2", (255, 240, 192))
    choose_cd(again, ALL)
    wait_for(lambda: (0, 96, 32) in shown_colours(again, "DBList2"), "the text colour")


def open_search_results(main):
    main.choose("Outils", "Rechercher sur un nouveau CD les titres déjà mémorisés")
    main.program.form("FrmRechCD").CommandOK.click()
    results = main.program.form("FrmInfoRech")
    wait_for(lambda: plain(results.CommandOkannul.text) == "OK", "the end of the search")
    return results


def open_copy_selection(main):
    main.choose("Outils", "Copier les fichiers musicaux d'un nouveau CD sur le disque dur")
    main.program.form("FrmCDcopy").ComCopierOK.click()
    copying = main.program.form("FrmInfoCopy")
    copying.CommandCopier.wait(lambda: copying.CommandCopier.enabled, "to be usable")
    return copying


def test_the_lists_of_the_new_cd_tools_have_the_same_look(program):
    """Chosen before their windows were ever opened."""
    main = program.open()
    add_cd(main, "Mon CD")
    small = main.DBList2.item_height()
    choose_font(main, "Liberation Sans", 20)
    wait_for(lambda: main.DBList2.item_height() > small * 1.5, "larger rows")
    choose_colour(main, BACK_COLOUR, (255, 240, 192))
    choose_colour(main, TEXT_COLOUR, (0, 96, 32))
    height = main.DBList2.item_height()
    results = open_search_results(main)
    for name in ("List1", "List2"):
        becomes_background(results, name, (255, 240, 192))
        assert results.control(name).item_height() == height
        assert (0, 96, 32) in shown_colours(results, name)
    results.CommandOkannul.click()
    results.wait_gone()
    copying = open_copy_selection(main)
    becomes_background(copying, "ListInfocopy", (255, 240, 192))
    assert copying.ListInfocopy.item_height() == height
    assert (0, 96, 32) in shown_colours(copying, "ListInfocopy")
    copying.ComAnnuleCopie.click()
    copying.wait_gone()


def test_the_lists_of_the_new_cd_tools_begin_each_run_as_designed(program):
    """And take of a choice what was chosen, no more."""
    set_look(program, "Liberation Sans", 0, 0, 24, 0x206000, 0xC0F0FF)
    main = program.open()
    add_cd(main, "Mon CD")
    height = main.DBList2.item_height()
    results = open_search_results(main)
    for name in ("List1", "List2"):
        becomes_background(results, name, (255, 255, 255))
        assert results.control(name).item_height() < height * 0.7
        assert (0, 96, 32) not in shown_colours(results, name)
    results.CommandOkannul.click()
    results.wait_gone()
    choose_colour(main, BACK_COLOUR, (192, 224, 255))
    copying = open_copy_selection(main)
    becomes_background(copying, "ListInfocopy", (192, 224, 255))
    assert copying.ListInfocopy.item_height() < height * 0.7
    assert (0, 96, 32) not in shown_colours(copying, "ListInfocopy")
    copying.ComAnnuleCopie.click()
    copying.wait_gone()


def test_the_colour_dialogs_open_with_the_present_colours(program):
    set_look(program, "Tahoma", 0, 0, 8, 0x302010, 0xE0F0FF)
    main = program.open()
    for command, colour in ((TEXT_COLOUR, ("16", "32", "48")), (BACK_COLOUR, ("255", "240", "224"))):
        dialog = dialog_of(main, command)
        shown = texts(dialog)
        assert tuple(shown[field] for field in (RED, GREEN, BLUE)) == colour
        main.desktop.keys("Escape")
        dialog.wait_gone()


def test_cancelled_dialogs_change_nothing(program):
    main = program.open()
    dialog = dialog_of(main, FONT)
    type_font(main, dialog, "DejaVu Serif", 20)
    dialog.answer("Annuler")
    for command in (TEXT_COLOUR, BACK_COLOUR):
        dialog = dialog_of(main, command)
        type_colour(main, dialog, (255, 240, 192))
        dialog.answer("Annuler")
    assert len(program.windows()) == 1
    program.quit()
    assert saved_look(program) == ("Tahoma", 0, 0, 8, 0, 0xFFFFFF)


def test_the_help_button_of_a_colour_dialog_explains_the_choice(program):
    main = program.open()
    dialog = dialog_of(main, BACK_COLOUR)
    place = next(child["rect"] for child in dialog.children() if child["id"] == HELP)
    main.desktop.click(place[2] - 6, (place[1] + place[3]) // 2)
    box = wait_for(lambda: next((window for window in program.windows()
                                 if window["text"] == "Couleur des listes"), None), "the explanation")
    assert box
    main.desktop.keys("Return")
    wait_for(lambda: len(program.windows()) == 2, "the explanation to go")
    main.desktop.keys("Escape")
    dialog.wait_gone()


@pytest.mark.parametrize("look", [
    ("Police qui n’existe pas", 0, 0, 9, 0, 0xFFFFFF),
    ("", 255, 0, 0, 0, 0xFFFFFF),
    ("Tahoma", 0, 0, -20, 0, 0xFFFFFF),
    ("x" * 300, 0, 255, 1, -2147483640, -2147483643),
    ("Tahoma", 0, 0, 32000, 0, 0xFFFFFF),
])
def test_an_odd_look_still_shows_its_rows(program, look):
    set_look(program, *look)
    main = program.open()
    choose_cd(main, ALL)
    assert 6 <= main.List1.item_height() <= 160
    assert main.desktop.colours(main.List1.rect).get((255, 255, 255), 0) > 0.3
    program.quit()
    assert saved_look(program) == look
