"""What every Windows program does: wheel, Tab key, the keys of menus, icon."""
import subprocess

from harness.paths import ROOT
from harness.steps import ALL, add_cd, choose_cd
from harness.waiting import wait_for

# The stops of the Tab key, as the eye goes: buttons, lists, then the rows below them.
BUTTONS = ["CheckAutoRefresh", "Command1", "ComNouveau", "comcopier", "comsave", "Comaide"]
TAB_STOPS = ["List1", "DBList2", "Check1", "Check3", "Option1", "CommandLecteurMoins",
             "CommandLecteurPlus", "TextRech", "CheckFormat0"]


def test_the_wheel_turns_the_list_under_the_pointer(program, album_folder, tmp_path):
    main = program.open()
    for number in range(120):
        (tmp_path / f"piste {number:03}.mp3").write_bytes(bytes(200))
    program.desktop.set_medium("e", tmp_path)
    add_cd(main, "Cent vingt")
    program.desktop.set_medium("e", album_folder)
    choose_cd(main, "Cent vingt")
    main.resize(700, 480)
    main.List1.wait(lambda: main.List1.focused, "to have the focus")
    assert main.DBList2.top_row == 0
    left, top, right, bottom = main.DBList2.rect
    program.desktop.click((left + right) // 2, (top + bottom) // 2, button=5, times=3)
    wait_for(lambda: main.DBList2.top_row > 0, "the list of tracks further down")
    assert main.List1.focused and main.List1.choice == "Cent vingt"
    program.desktop.click((left + right) // 2, (top + bottom) // 2, button=4, times=9)
    wait_for(lambda: main.DBList2.top_row == 0, "the list of tracks back at its beginning")


def test_tab_goes_through_the_window_as_the_eye_does(program):
    main = program.open()
    choose_cd(main, ALL)

    def visit(names, key):
        for name in names:
            wait_for(lambda n=name: main.control(n).focused, f"the focus on {name}")
            main.key(key)
    visit(["List1", *reversed(BUTTONS)], "shift+Tab")
    main.List1.click_item(ALL)
    visit(TAB_STOPS, "Tab")


def test_shortcuts_do_what_the_menu_says(program):
    main = program.open()
    main.List1.wait(lambda: main.List1.focused, "to have the focus")
    main.key("ctrl+n")
    dialog = program.form("FrmNouveauCD")
    main.key("Escape")
    dialog.wait_gone()
    main.key("ctrl+f")
    main.key("ctrl+s")
    assert len(program.windows()) == 1, "nothing to search or to save before a CD is chosen"
    choose_cd(main, ALL)
    main.key("ctrl+f")
    main.TextRech.wait(lambda: main.TextRech.focused, "to have the focus")
    main.key("ctrl+s")
    saving = program.message()
    main.key("Escape")
    saving.wait_gone()


def test_arrow_keys_choose_in_both_lists(program):
    main = program.open()
    add_cd(main, "Rock 1")
    main.List1.wait(lambda: main.List1.focused, "to have the focus")
    main.key("Up")
    wait_for(lambda: main.List1.choice == ALL, "the row above")
    main.key("Down")
    wait_for(lambda: main.List1.choice == "Rock 1" and main.DBList2.count > 3, "the row below")
    main.key("Tab")
    main.DBList2.wait(lambda: main.DBList2.focused, "to have the focus")
    assert main.DBList2.selected == []
    for key, row in (("Down", 0), ("Down", 1), ("End", main.DBList2.count - 1), ("Home", 0)):
        main.key(key)
        wait_for(lambda r=row: main.DBList2.selected == [r], f"row {row} after {key}")


def test_letters_lead_to_the_tracks_that_begin_with_them(program, album_folder, tmp_path):
    for name in ("Adieu", "Été à deux", "Étoile", "Zeste"):
        (tmp_path / f"{name}.mid").write_bytes(b"MThd" + bytes(200))
    program.desktop.set_medium("e", tmp_path)
    main = program.open()
    add_cd(main, "Lettres")
    program.desktop.set_medium("e", album_folder)
    wait_for(lambda: main.DBList2.rows() == ["Adieu", "Été à deux", "Étoile", "Zeste"], "the tracks")
    main.List1.wait(lambda: main.List1.focused, "to have the focus")
    main.key("Tab")
    main.DBList2.wait(lambda: main.DBList2.focused, "to have the focus")
    program.desktop.type("z")
    wait_for(lambda: main.DBList2.selected == [3], "the track with Z")
    program.desktop.type("q")
    program.desktop.keys("Home")
    wait_for(lambda: main.DBList2.selected == [0], "the first track")


def test_delete_in_the_list_of_media_asks_and_deletes(program):
    main = program.open()
    add_cd(main, "Rock 1")
    main.DBList2.click_row(0)
    main.key("Delete")
    main.key("ctrl+f")
    main.TextRech.wait(lambda: main.TextRech.focused, "to have the focus")
    main.key("Delete")
    choose_cd(main, "Rock 1")
    assert len(program.windows()) == 1, "nothing is deleted from elsewhere"
    for answer, left in (("Non", [ALL, "Rock 1"]), ("Oui", [ALL])):
        main.key("Delete")
        question = program.message()
        assert "Rock 1" in question.text
        question.answer(answer)
        wait_for(lambda rows=left: main.List1.items() == rows, f"the list after {answer}")
        program.form("FrmMP3")
    main.key("Delete")
    main.key("ctrl+c")
    assert len(program.windows()) == 1, "nothing is chosen any more"


def test_enter_in_the_search_box_and_f5_refresh(program):
    main = program.open()
    add_cd(main, "Rock 1")
    all_tracks = main.DBList2.count
    main.CheckAutoRefresh.click()
    main.key("ctrl+f")
    main.TextRech.wait(lambda: main.TextRech.focused, "to have the focus")
    program.desktop.type("hello")
    main.TextRech.wait(lambda: main.TextRech.text == "hello", "to hold the text")
    assert main.DBList2.count == all_tracks
    main.key("Return")
    wait_for(lambda: main.DBList2.count == 1, "the track that was searched for")
    assert main.TextRech.focused
    # Ctrl+F chooses the old text, for the next one to replace it.
    main.key("ctrl+f", "BackSpace", "F5")
    wait_for(lambda: main.DBList2.count == all_tracks, "all tracks")


def test_alt_and_a_letter_open_a_menu(program):
    main = program.open()
    main.List1.wait(lambda: main.List1.focused, "to have the focus")
    main.key("alt+o")
    wait_for(lambda: main.menu_item("Outils", "Lecteurs Audio")["rect"][2] > 0, "the menu")
    main.key("u")
    dialog = program.form("FrmPlayers")
    main.key("Escape")
    dialog.wait_gone()


def frame_of_the_icon(width):
    """The pixels of the program's icon in that size, as they are drawn."""
    for number in range(8):
        run = subprocess.run(["convert", f"{ROOT}/app/Brivantole.ico[{number}]", "-depth", "8",
                              "rgba:-"], check=True, capture_output=True)
        if len(run.stdout) == width * width * 4:
            return [tuple(run.stdout[at:at + 4]) for at in range(0, len(run.stdout), 4)]
    raise AssertionError(f"no icon {width} wide")


def test_the_title_bar_has_the_icon_in_both_sizes(program):
    program.open()
    icons = program.desktop.active_icons()
    assert {16, 32} <= set(icons)
    for width in (16, 32):
        for shown, drawn in zip(icons[width], frame_of_the_icon(width), strict=True):
            assert shown[3] == drawn[3] and (drawn[3] == 0 or shown == drawn)
