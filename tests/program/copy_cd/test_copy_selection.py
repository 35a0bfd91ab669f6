"""The window of a copy before it starts: the tracks, their ticks, their details."""
import pytest

from harness import medium, settings, slowmedium
from harness.copies import MUSIC, cancel, files
from harness.program import Program
from harness.steps import begin_copy, finish_copy, open_copy
from harness.waiting import wait_for

ALL_SELECTED = ("Analyse terminée.\r\n\n"
                "8 morceaux sélectionnés (19 Ko) sur 8 morceaux trouvés (19 Ko).")


def test_the_window_lists_every_track_ticked(main):
    window = begin_copy(main)
    assert window.title == "Copie de CD musical vers le disque dur"
    assert window.LabelTitrelist.text == "Morceaux du CD  (Titres cochés = titres à copier)"
    assert window.LabelInfoCopy.text == ALL_SELECTED
    assert set(window.ListInfocopy.rows()) == {row[0] for row in medium.ALBUM_ROWS}
    assert window.ListInfocopy.ticks() == [True] * 8
    assert window.CommandCopier.text == "Démarrer la copie"
    assert window.ComAnnuleCopie.text == "Annuler"
    wait_for(lambda: window.CommandCopier.enabled, "the start button")
    cancel(window)


@pytest.mark.parametrize("end", ["ComAnnuleCopie", "Escape", "alt+F4"])
def test_cancelling_copies_nothing(main, target, end):
    window = begin_copy(main)
    if end == "ComAnnuleCopie":
        window.ComAnnuleCopie.click()
    else:
        main.desktop.keys(end)
    main.program.wait_gone("FrmInfoCopy")
    assert files(target) == {} and main.state["enabled"]


def test_ticks_change_the_totals_and_the_start_button(main, target):
    window = begin_copy(main)
    rows = window.ListInfocopy.rows()
    sizes = {row[0]: row[2] for row in medium.ALBUM_ROWS}
    for index in range(8):
        assert window.CommandCopier.enabled
        window.ListInfocopy.click_tick(index)
        wait_for(lambda: not window.ListInfocopy.ticks()[index], "the tick to go")
        assert f"\n{7 - index} morceaux sélectionnés (" in window.LabelInfoCopy.text
    assert window.LabelInfoCopy.text == (
        "Analyse terminée.\r\n\n"
        "0 morceaux sélectionnés (0 Octets) sur 8 morceaux trouvés (19 Ko).")
    wait_for(lambda: not window.CommandCopier.enabled, "nothing to start")
    small = rows.index("My_song")
    window.ListInfocopy.click_tick(small)
    wait_for(lambda: window.CommandCopier.enabled, "something to start")
    assert f"\n1 morceaux sélectionnés ({sizes['My_song']} Octets) sur 8 " in (
        window.LabelInfoCopy.text)
    assert "1 morceaux copiés (77 Octets) sur 8 " in finish_copy(window)
    assert files(target) == {"my_song.mid": MUSIC["my_song.mid"]}


def test_the_space_bar_ticks_the_chosen_track(main):
    window = begin_copy(main)
    window.ListInfocopy.click_row(1)
    wait_for(lambda: window.ListInfocopy.selected == [1], "the second track to be chosen")
    assert window.ListInfocopy.ticks()[1]
    for ticked in (False, True):
        main.desktop.keys("space")
        wait_for(lambda: window.ListInfocopy.ticks()[1] == ticked, "the tick to change")
    cancel(window)


def test_the_keyboard_chooses_looks_and_starts_without_a_tab(main, target):
    window = begin_copy(main)
    window.ListInfocopy.wait(lambda: window.ListInfocopy.focused, "to have the focus")
    rows = window.ListInfocopy.rows()
    main.desktop.keys("Down", "Menu")
    popup = main.program.form("FrmInfoTitre")
    assert rows[0] in {child["text"] for child in popup.children("Static")}
    assert popup.stands_over_the_middle_of(window)
    main.desktop.keys("Escape")
    popup.wait_gone()
    main.program.form("FrmInfoCopy")
    main.desktop.keys("space")
    wait_for(lambda: window.ListInfocopy.ticks() == [False] + [True] * 7, "one tick less")
    main.desktop.keys("Return")
    wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
    assert len(files(target)) == 7
    cancel(window)


def test_the_list_has_the_focus_when_a_user_comes_back_from_another_program(main, tmp_path):
    with Program(main.desktop) as other:
        settings.change(other.settings, WinWidth=600 * 15, WinHeight=460 * 15)
        elsewhere = other.open()
        left, top, right, _ = elsewhere.rect
        caption = ((left + right) // 2, top + 10)
        main.desktop.drag(caption, (caption[0] - left, 20))
        wait_for(lambda: elsewhere.rect[0] < 20, "the other program's window aside")
        main.click_caption()
        main.program.form("FrmMP3")
        main.desktop.set_medium("e", slowmedium.write(tmp_path))
        open_copy(main).ComCopierOK.click()
        window = main.program.form("FrmInfoCopy")
        elsewhere.click_caption()
        other.form("FrmMP3")
        assert not window.CommandCopier.enabled, "the tracks are still being read"
        window.CommandCopier.wait(lambda: window.CommandCopier.enabled, "to be usable")
        # It does not push itself forward.
        assert main.desktop.active_title() == elsewhere.title
        window.click_caption()
        window.ListInfocopy.wait(lambda: window.ListInfocopy.focused, "to have the focus")
        cancel(window)


def test_a_double_click_on_a_tick_changes_it_twice(main):
    window = begin_copy(main)
    left, top, _, bottom = window.ListInfocopy._ask("item", 0)
    main.desktop.click(left - 8, (top + bottom) // 2, times=2)
    window.ListInfocopy.click_tick(1)
    wait_for(lambda: not window.ListInfocopy.ticks()[1], "the next tick to go")
    assert window.ListInfocopy.ticks()[0]
    cancel(window)


def test_the_right_button_shows_details_and_plays_when_it_is_dragged(main, player):
    window = begin_copy(main)
    # The details stand over the selection, not over the main window.
    window.resize(window.size[0] + 120, window.size[1] + 60)
    wait_for(lambda: not window.stands_over_the_middle_of(main), "the larger window")
    row = window.ListInfocopy.rows().index("Hello world")
    x, y = window.ListInfocopy.item_place(row)
    main.desktop.press(x, y, button=3)
    popup = wait_for(lambda: main.program.form_or_none("FrmInfoTitre"), "the pop-up")
    texts = {child["text"] for child in popup.children("Static")}
    assert {"Hello world", "E:\\Album\\Suite\\hello.mod", "1 Ko"} <= texts
    assert popup.stands_over_the_middle_of(window)
    assert player.starts() == []
    main.desktop.move(x + 3, y)
    main.program.wait_gone("FrmInfoTitre")
    player.wait_started(f'{player.path} "E:\\Album\\Suite\\hello.mod"')
    main.desktop.move(x + 30, y)
    main.desktop.release(button=3)
    assert len(player.starts()) == 1
    cancel(window)


def test_without_a_player_a_drag_only_closes_the_details(main, player):
    main.CommandLecteurMoins.click()
    wait_for(lambda: main.LabelLecteur.text == "Aucun", "no player")
    window = begin_copy(main)
    x, y = window.ListInfocopy.item_place(0)
    main.desktop.press(x, y, button=3)
    wait_for(lambda: main.program.form_or_none("FrmInfoTitre"), "the pop-up")
    main.desktop.move(x + 3, y)
    main.program.wait_gone("FrmInfoTitre")
    main.desktop.release(button=3)
    cancel(window)
    main.CommandLecteurPlus.click()
    wait_for(lambda: main.LabelLecteur.text == "Écoute", "the player")
    assert player.starts() == []


def test_an_empty_medium_still_sums_up(main, tmp_path):
    main.desktop.set_medium("e", tmp_path)
    window = begin_copy(main)
    assert window.LabelInfoCopy.text == (
        "Analyse terminée.\r\n\n"
        "0 morceaux sélectionnés (0 Octets) sur 0 morceaux trouvés (0 Octets).")
    assert not window.CommandCopier.enabled
    cancel(window)
