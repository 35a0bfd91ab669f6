"""The main window's layout: smallest size, button looks, splitter, proportions, resolution."""
import pytest

from harness import settings
from harness.desktop import Desktop
from harness.form import centre
from harness.names import control_ids
from harness.program import Program
from harness.steps import ALL, add_cd
from harness.waiting import wait_for

BUTTONS = ("Command1", "comcopier", "comsave", "ComNouveau", "Comaide")
NORMAL_HEIGHTS = (60, 75, 75, 60, 60)
LOWER_BAND = ("Check1", "Check3", "Option1", "Option2", "Option3", "Label1", "TextRech", "Label3",
              "LabelLecteur", "CheckFormat0", "CheckFormat9", "CommandExtPlus")


def becomes(main, width, height):
    wait_for(lambda: main.size == (width, height), f"the size {width} × {height}")


def inside(inner, outer):
    return (inner[0] >= outer[0] and inner[1] >= outer[1]
            and inner[2] <= outer[2] and inner[3] <= outer[3])


def test_the_window_has_a_smallest_size(program):
    main = program.open()
    main.resize(400, 300)
    becomes(main, 600, 460)


@pytest.mark.parametrize("height, compact", [(533, True), (534, False)])
def test_the_buttons_are_compact_below_8000_twips(program, height, compact):
    settings.change(program.settings, WinHeight=height * 15)
    main = program.open()
    assert main.size[1] == height
    assert [main.control(name).height for name in BUTTONS] == (
        [45] * 5 if compact else list(NORMAL_HEIGHTS))


def test_a_low_window_has_compact_buttons(program):
    main = program.open()
    main.resize(800, 640)
    becomes(main, 800, 640)
    captions = [main.control(name).text for name in BUTTONS]
    assert all(captions)
    assert tuple(main.control(name).height for name in BUTTONS) == NORMAL_HEIGHTS
    assert not any(main.control(name).tip() for name in BUTTONS)
    main.resize(800, 500)
    becomes(main, 800, 500)
    wait_for(lambda: main.Command1.height == 45, "the compact look")
    assert [main.control(name).height for name in BUTTONS] == [45] * 5
    assert [main.control(name).text for name in BUTTONS] == [""] * 5
    assert [main.control(name).tip() for name in BUTTONS] == captions
    main.must_be_painted()
    main.resize(800, 640)
    becomes(main, 800, 640)
    wait_for(lambda: [main.control(name).text for name in BUTTONS] == captions, "the captions")
    main.must_be_painted()


def shown_controls(main):
    return {child["id"]: child for child in main.children() if child["visible"]
            and child["id"] > 1000}


def all_inside_and_apart(main):
    """Every control lies inside the window, none on another, and the band below the lists."""
    shown = shown_controls(main)
    for child in shown.values():
        assert inside(child["rect"], main.rect), child
    places = [child["rect"] for child in shown.values()]
    for number, one in enumerate(places):
        for other in places[number + 1:]:
            assert (one[2] <= other[0] or other[2] <= one[0]
                    or one[3] <= other[1] or other[3] <= one[1]), (one, other)
    for name in LOWER_BAND:
        assert main.control(name).rect[1] >= main.DBList2.rect[3]


FIRST_ROW = ("Check1", "Check3", "Option1", "Option2", "Option3", "Label1")
STACK = ("Command1", "ComNouveau", "comcopier", "comsave", "Comaide")


def follows_the_rules(main):
    """The distances between controls and window, in pixels at 96 dots per inch."""
    nodes = main.children()
    numbers = control_ids()["FrmMP3"]

    def rect(name):
        return next(node["rect"] for node in nodes if node["id"] == numbers[name])
    left, top, right, bottom = main.client
    cds, tracks = rect("List1"), rect("DBList2")
    column = rect("Comaide")
    assert tracks[3] - tracks[1] == cds[3] - cds[1] == bottom - top - 130
    assert (tracks[1], tracks[3]) == (cds[1], cds[3])
    assert column[0] == left + 16 and cds[0] == column[2] + 16
    assert tracks[0] == cds[2] + 16 and tracks[2] == right - 16
    assert rect("LabelReglage") == [cds[2], cds[1], tracks[0], cds[3]]
    for heading, below in (("Label4", cds), ("Label5", tracks)):
        assert (rect(heading)[0], rect(heading)[2]) == (below[0], below[2])
    for above, below in zip(STACK, STACK[1:]):
        assert rect(above)[3] < rect(below)[1] and rect(above)[0] == rect(below)[0]
    assert rect("Image1")[0] == rect("Label2")[0] == column[0]
    assert rect("Label2")[1] == tracks[3] + 43
    row = [rect(name) for name in FIRST_ROW]
    assert {place[1] for place in row} == {tracks[3] + 14}
    assert [place[2] for place in row[:-1]] == [place[0] for place in row[1:]]
    assert row[-1][2] == right - 16
    assert (rect("TextRech")[0], rect("TextRech")[2]) == (rect("Label3")[2] + 10, tracks[2])
    players = [rect(name) for name in
               ("LabelLecteur", "CommandLecteurMoins", "CommandLecteurPlus", "Label3")]
    assert all(one[2] <= other[0] for one, other in zip(players, players[1:]))
    boxes = [rect(name) for name in
             ("CommandExtMoins", *(f"CheckFormat{k}" for k in range(10)), "CommandExtPlus")]
    assert all(one[2] <= other[0] for one, other in zip(boxes, boxes[1:]))


@pytest.mark.parametrize("size", [(600, 460), (800, 640), (1000, 760)])
def test_every_control_lies_inside_and_none_on_another(program, size):
    main = program.open()
    main.resize(*size)
    becomes(main, *size)
    all_inside_and_apart(main)
    follows_the_rules(main)


def test_a_resize_keeps_the_proportion_of_the_lists(program):
    main = program.open()
    main.resize(800, 640)
    becomes(main, 800, 640)
    cds, tracks = main.List1.width, main.DBList2.width
    main.resize(1000, 700)
    becomes(main, 1000, 700)
    width = cds * (cds + tracks + 200) // (cds + tracks)
    wait_for(lambda: main.List1.width == width, "a wider list of CDs")
    assert main.DBList2.width == cds + tracks + 200 - width


def test_a_drag_through_many_sizes_and_back_leaves_the_lists_as_they_were(program):
    main = program.open()
    main.resize(800, 640)
    becomes(main, 800, 640)
    left = main.List1.width
    drag_splitter(main, 33)
    wait_for(lambda: main.List1.width == left + 33, "a wider list of CDs")
    before = main.List1.width, main.DBList2.width
    for width in (1000, 700, 900, 800):
        main.resize(width, 640)
        becomes(main, width, 640)
    wait_for(lambda: (main.List1.width, main.DBList2.width) == before, "the lists as before")


def test_a_window_dragged_to_nothing_and_back_keeps_the_proportion_too(program):
    main = program.open()
    main.resize(900, 640)
    becomes(main, 900, 640)
    before = main.List1.width / main.DBList2.width
    main.resize(120, 120)
    becomes(main, 600, 460)
    wait_for(lambda: main.List1.width / main.DBList2.width == pytest.approx(before, rel=0.02),
             "the lists in their proportion")


def drag_splitter(main, distance, button=1):
    x, y = centre(main.LabelReglage.rect)
    main.desktop.drag((x, y), (x + distance, y), button)


@pytest.mark.parametrize("button", [1, 3], ids=["left", "right"])
def test_the_splitter_moves_width_from_one_list_to_the_other(program, button):
    main = program.open()
    left, right = main.List1.width, main.DBList2.width
    drag_splitter(main, 40, button)
    wait_for(lambda: main.List1.width == left + 40, "a wider list of media")
    assert main.DBList2.width == right - 40
    assert main.Label5.rect[0] == main.DBList2.rect[0]
    assert main.Label4.width == main.List1.width
    program.quit()
    assert settings.read(program.settings)["List1Width"] == left + 40


def test_the_pointer_on_the_splitter_shows_what_it_can_do(program):
    main = program.open()
    cursors = main.cursors()
    for name, cursor in (("LabelReglage", "west-east"), ("DBList2", "arrow")):
        main.desktop.move(*centre(main.control(name).rect))
        wait_for(lambda c=cursors[cursor]: main.desktop.cursor() == c, f"{cursor} over {name}")


def test_everything_is_seen_to_follow_the_splitter_while_it_is_held(program):
    settings.change(program.settings, BackColor=0xC0F0FF)
    main = program.open()
    background = (255, 240, 192)
    x, y = centre(main.LabelReglage.rect)

    def bar():
        return main.desktop.pixels(main.LabelReglage.rect)

    def heading():
        left, top, _, bottom = main.Label5.rect
        return main.desktop.pixels((left, top, left + 60, bottom))
    wait_for(lambda: background in main.desktop.colours(main.DBList2.rect), "the lists")
    main.desktop.move(1, 990)
    before = bar(), heading()
    main.desktop.press(x, y)
    for distance in (60, -60):
        main.desktop.move(x + distance, y)
        near, far = sorted((x + distance // 3, x + distance * 2 // 3))
        wait_for(lambda n=near, f=far: main.desktop.colours((n, y - 5, f, y + 5))
                 == {background: 1.0}, "a list where the bar was")
        wait_for(lambda: (bar(), heading()) == before, "the bar and the heading in their new places")
    main.desktop.release()


def push_splitter(main, step, least_left=80, least_right=120):
    """Drags step by step as long as a step is allowed, then twenty more steps; lets go."""
    x, y = centre(main.LabelReglage.rect)
    main.desktop.press(x, y)
    left, right = main.List1.width, main.DBList2.width
    while left + step >= least_left and right - step >= least_right:
        left, right, x = left + step, right - step, x + step
        main.desktop.move(x, y)
        wait_for(lambda: main.List1.width == left, f"the list of media {left} wide")
    for _ in range(20):
        x += step
        main.desktop.move(x, y)
    main.desktop.release()
    return left, right


def test_the_splitter_stops_at_both_limits(program):
    main = program.open()
    for step in (-10, 10):
        left, right = push_splitter(main, step)
        # A choice made afterwards shows that the program has seen every move.
        main.List1.click_item(ALL)
        wait_for(lambda: main.List1.choice == ALL, "the choice")
        assert (main.List1.width, main.DBList2.width) == (left, right)


def hold_splitter(main):
    main.key("F6")
    main.LabelReglage.wait(lambda: main.LabelReglage.focused, "to have the focus")


def test_the_keyboard_moves_the_splitter(program):
    main = program.open()
    left, right = main.List1.width, main.DBList2.width
    plain = main.desktop.pixels(main.LabelReglage.rect)
    hold_splitter(main)
    wait_for(lambda: main.desktop.pixels(main.LabelReglage.rect) != plain, "the focus to be seen")
    for keys, moved in ((["Right"] * 3, 24), (["Left"], 16), (["ctrl+Right"], 17)):
        main.key(*keys)
        wait_for(lambda d=moved: main.List1.width == left + d, f"the bar {moved} to the right")
        assert main.DBList2.width == right - moved
    assert main.Label5.rect[0] == main.DBList2.rect[0]
    main.key("End")
    wait_for(lambda: main.DBList2.width == 120, "the narrowest list of tracks")
    main.key("Right", "Home")
    wait_for(lambda: main.List1.width == 80, "the narrowest list of media")
    assert main.DBList2.width == left + right - 80
    main.key("Left", "Return")
    main.List1.wait(lambda: main.List1.focused, "to have the focus back")
    assert main.List1.width == 80
    program.quit()
    assert settings.read(program.settings)["List1Width"] == 80


def test_keys_let_go_of_the_splitter(program):
    main = program.open()
    left = main.List1.width
    hold_splitter(main)
    main.key("Right", "Escape")
    main.List1.wait(lambda: main.List1.focused, "to have the focus back")
    assert main.List1.width == left, "Escape takes the move back"
    hold_splitter(main)
    main.key("Right", "F6")
    main.List1.wait(lambda: main.List1.focused, "to have the focus back")
    assert main.List1.width == left + 8
    hold_splitter(main)
    main.key("Tab")
    main.DBList2.wait(lambda: main.DBList2.focused, "to have the focus: it is the next one")


def test_size_and_split_come_back_at_the_next_start(program):
    main = program.open()
    main.resize(1000, 720)
    becomes(main, 1000, 720)
    left = main.List1.width
    drag_splitter(main, 60)
    wait_for(lambda: main.List1.width == left + 60, "a wider list of media")
    widths = main.List1.width, main.DBList2.width
    program.quit()
    again = program.open()
    assert again.size == (1000, 720)
    assert (again.List1.width, again.DBList2.width) == widths


@pytest.mark.parametrize("dpi", [120, 144, 192])
def test_a_higher_resolution_scales_everything(album_folder, dpi):
    def px(design_pixels):
        return round(design_pixels * dpi / 96)

    def at(value, design_pixels):
        return abs(value - px(design_pixels)) <= 1

    size = f"{px(1280)}x{px(1000)}"
    with Desktop(medium=album_folder, dpi=dpi, size=size) as desktop, Program(desktop) as program:
        main = program.open()
        assert main.List1.items() == [ALL]
        main.resize(100, 100)
        becomes(main, px(600), px(460))
        wait_for(lambda: all(at(main.control(name).height, 45) for name in BUTTONS), "compact buttons")
        all_inside_and_apart(main)
        main.resize(px(700), px(640))
        becomes(main, px(700), px(640))
        wait_for(lambda: all(at(main.control(name).height, height)
                             for name, height in zip(BUTTONS, NORMAL_HEIGHTS)), "high buttons")
        all_inside_and_apart(main)
        assert at(main.List1.rect[0] - main.Command1.rect[2], 16)
        assert at(main.DBList2.rect[0] - main.List1.rect[2], 16)
        assert at(main.Check1.rect[1] - main.DBList2.rect[3], 14)
        assert at(main.Label2.rect[1] - main.DBList2.rect[3], 43)
        left, right = push_splitter(main, -10, px(80), px(120))
        main.List1.click_item(ALL)
        wait_for(lambda: main.List1.choice == ALL, "the choice")
        assert (main.List1.width, main.DBList2.width) == (left, right)
        program.quit()
        # Kept in twips and design pixels, so that the sizes mean the same at any resolution.
        saved = settings.read(program.settings)
        assert (saved["WinWidth"], saved["WinHeight"]) == (10500, 9600)
        assert saved["List1Width"] == (2 * left * 96 + dpi) // (2 * dpi)  # halves go up


def test_a_window_taken_to_a_screen_of_another_resolution_scales_everything(album_folder):
    with Desktop(medium=album_folder, size="1700x1300") as desktop, Program(desktop) as program:
        main = program.open()
        add_cd(main, "Rock 1")
        main.resize(800, 640)
        becomes(main, 800, 640)
        drag_splitter(main, 40)
        measured = ("Check1", "LabelLecteur", "Label3", "CheckAutoRefresh")
        before = {name: (main.control(name).width, main.control(name).height) for name in measured}
        rows = main.List1.item_height(), main.DBList2.item_height()
        share = main.List1.width / main.DBList2.width
        for dpi in (144, 192, 96):
            scale = dpi / 96
            width, height = round(800 * scale), round(640 * scale)
            main.change_dpi(dpi, (20, 10, 20 + width, 10 + height))
            becomes(main, width, height)
            assert [main.control(name).height for name in BUTTONS] == pytest.approx(
                [height * scale for height in NORMAL_HEIGHTS], abs=1)
            all_inside_and_apart(main)
            assert main.DBList2.rect[0] - main.List1.rect[2] == 16 * scale
            assert main.Label2.rect[1] - main.DBList2.rect[3] == pytest.approx(43 * scale, abs=1)
            assert main.List1.width / main.DBList2.width == pytest.approx(share, rel=0.02)
            for name, size in before.items():
                now = main.control(name)
                assert (now.width, now.height) == pytest.approx(
                    (size[0] * scale, size[1] * scale), rel=0.1), name
            assert (main.List1.item_height(), main.DBList2.item_height()) == pytest.approx(
                (rows[0] * scale, rows[1] * scale), rel=0.15)
            if dpi == 144:
                main.resize(100, 100)
                becomes(main, 900, 690)
                assert main.Command1.height == pytest.approx(45 * scale, abs=1)
        program.quit()
        saved = settings.read(program.settings)
        assert (saved["WinWidth"], saved["WinHeight"]) == (12000, 9600)


def is_usable(program, main, screen=(1280, 1000)):
    """The whole window is on the screen, both lists can be worked with."""
    wait_for(lambda: not main.state["minimized"], "a window that can be seen")
    frame = 4  # the window manager's, which hangs over the edge of a full screen
    assert inside(main.rect, (-frame, -frame, screen[0] + frame, screen[1] + frame)), main.rect
    assert main.List1.width >= 80 and main.DBList2.width >= 120
    main.List1.click_item(ALL)
    wait_for(lambda: main.List1.choice == ALL, "the choice")


def test_a_window_closed_while_minimised_comes_up_to_be_seen(program):
    main = program.open()
    size = main.size
    lists = main.List1.width, main.DBList2.width
    main.minimize()
    # As the task bar does: the window itself cannot be reached.
    program.desktop.wine("taskkill", "/im", "Brivantole.exe")
    assert program.exit_code() == 0
    saved = settings.read(program.settings)
    assert saved["WinState"] == 1
    assert (saved["WinWidth"], saved["WinHeight"]) == (size[0] * 15, size[1] * 15)
    assert (saved["List1Width"], saved["DBList2Width"]) == lists
    again = program.open()
    is_usable(program, again)
    assert again.size == size
    program.quit()
    assert settings.read(program.settings)["WinState"] == 0


def test_a_maximised_window_comes_up_maximised_and_keeps_its_normal_size(program):
    main = program.open()
    size = main.size
    lists = main.List1.width, main.DBList2.width
    main.maximize()
    wait_for(lambda: main.state["maximized"], "the window maximised")
    wait_for(lambda: main.DBList2.width > lists[1], "the wider lists")
    program.quit()
    saved = settings.read(program.settings)
    assert (saved["WinState"], saved["WinWidth"]) == (2, size[0] * 15)
    # A pixel may go from one list to the other on the way there and back.
    assert abs(saved["List1Width"] - lists[0]) <= 1 and abs(saved["DBList2Width"] - lists[1]) <= 1
    again = program.open()
    wait_for(lambda: again.state["maximized"], "the window maximised again")
    is_usable(program, again)


@pytest.mark.parametrize("values", [
    dict(WinWidth=-30000, WinHeight=-1, List1Width=-200, DBList2Width=-400),
    dict(WinWidth=0, WinHeight=0, List1Width=0, DBList2Width=0),
    dict(WinWidth=2147483647, WinHeight=2147483647, List1Width=2147483647, DBList2Width=1),
    dict(WinWidth=300000, WinHeight=200000, List1Width=5, DBList2Width=2147483647),
    dict(WinState=1, WinWidth=-2147483648, WinHeight=12000, List1Width=-2147483648,
         DBList2Width=-2147483648),
    dict(WinState=77, WinWidth=12000, WinHeight=100, List1Width=3000, DBList2Width=3000),
    dict(WinState=-1, LayoutValue1=-5, LayoutValue6=2147483647),
])
def test_stored_sizes_that_make_no_sense_give_a_usable_window(program, values):
    settings.change(program.settings, **values)
    main = program.open()
    is_usable(program, main)
    least = main.size[0] >= 600 and main.size[1] >= 460
    assert least, main.size
