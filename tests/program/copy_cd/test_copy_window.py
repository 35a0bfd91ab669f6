"""The window of a copy: its order, what it keeps, how it lives through long copies."""
import shutil

import pytest

from harness import medium, settings, slowmedium
from harness.copies import LONG_SIZE, cancel, files, markers
from harness.program import Program
from harness.runwindow import check_order, check_kept_size
from harness.steps import begin_copy, open_copy
from harness.waiting import wait_for


def in_order(window):
    """One below the other and inside the window: heading, list, label, a pair of buttons."""
    left, top, right, bottom = window.rect
    heading, view, label = (window.control(name).rect
                            for name in ("LabelTitrelist", "ListInfocopy", "LabelInfoCopy"))
    start, stop = window.CommandCopier.rect, window.ComAnnuleCopie.rect
    return (top < heading[1] and heading[3] <= view[1] and view[3] <= label[1]
            and label[3] <= start[1] and (start[1], start[3]) == (stop[1], stop[3])
            and start[2] < stop[0] and stop[3] < bottom
            and abs((start[0] + stop[2]) - (left + right)) <= 20
            and abs((heading[0] + heading[2]) - (left + right)) <= 20
            and (view[0], view[2]) == (label[0], label[2])
            and 0 < view[0] - left < 30 and 0 < right - view[2] < 30)


def test_the_window_keeps_its_order_at_any_size(main):
    window = begin_copy(main)
    check_order(window, in_order)
    cancel(window)


def test_the_size_is_kept_for_the_next_run(desktop, target):
    with Program(desktop) as program:
        settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\Copies")
        check_kept_size(program, begin_copy, cancel, (4, 5, 6))


@pytest.mark.parametrize("stored, size", settings.ABSURD_RUN_SIZES)
def test_stored_sizes_that_make_no_sense_give_a_usable_window(desktop, target, stored, size):
    height, width, state = stored
    with Program(desktop) as program:
        settings.change(program.settings, DestinationDrive="h:", CopyDestination="H:\\Copies",
                        LayoutValue4=height, LayoutValue5=width, LayoutValue6=state)
        window = begin_copy(program.open())
        assert not window.state["minimized"] and not window.state["maximized"]
        assert window.size == size
        left, top, right, bottom = window.rect
        assert left >= -4 and top >= -4 and right <= 1284 and bottom <= 1004
        assert in_order(window)
        cancel(window)


def test_after_the_copy_keys_close_the_window(main, target):
    for key in ("Return", "Escape"):
        window = begin_copy(main)
        window.ListInfocopy.click_tick(0)
        wait_for(lambda: not window.ListInfocopy.ticks()[0], "one track less")
        window.CommandCopier.click()
        wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
        assert window.ComAnnuleCopie.focused and window.ListInfocopy.enabled
        main.desktop.keys(key)
        main.program.wait_gone("FrmInfoCopy")
        # A menu opened before the window has the keys again would close when it gets them.
        main.program.form("FrmMP3")
        shutil.rmtree(target)
        target.mkdir()


def test_a_long_copy_shows_its_progress_in_a_window_that_answers(main, target, long_copy):
    window = begin_copy(main)
    window.CommandCopier.click()
    bar = window.Progression
    first = wait_for(bar.progress, "the copy to go on")
    assert window.LabelInfoCopy.text == "Copie de E:\\gros.wav\r\n\nGros" and bar.visible
    assert not window.ListInfocopy.enabled and not window.CommandCopier.enabled
    window.resize(700, 600)
    wait_for(lambda: window.size == (700, 600), "the window to answer")
    window.must_be_painted()
    long_copy.hold(LONG_SIZE // 2)
    wait_for(lambda: bar.progress() > first, "the bar to move within one file")
    assert window.LabelInfoCopy.text == "Copie de E:\\gros.wav\r\n\nGros"
    long_copy.let_go()
    wait_for(lambda: window.ComAnnuleCopie.text == "OK", "the end of the copy")
    assert window.ListInfocopy.enabled and not bar.visible
    assert (target / "gros.wav").stat().st_size == LONG_SIZE
    assert (target / "suite" / "petit.mid").read_bytes() == medium.mid(60)
    cancel(window)


def test_a_stop_takes_effect_after_the_file_in_progress(main, target, long_copy):
    window = begin_copy(main)
    window.CommandCopier.click()
    wait_for(window.Progression.progress, "the copy to go on")
    assert not (target / "gros.wav").exists()
    window.ComAnnuleCopie.click_until_heard()
    assert main.program.form_or_none("FrmInfoCopy") and not (target / "gros.wav").exists()
    long_copy.let_go()
    main.program.wait_gone("FrmInfoCopy")
    assert [path.name for path in target.rglob("*")] == ["gros.wav"]
    assert (target / "gros.wav").stat().st_size == LONG_SIZE
    assert markers(main.program) == []


def test_a_stop_while_reading_ends_the_run(main, target, tmp_path):
    main.desktop.set_medium("e", slowmedium.write(tmp_path))
    open_copy(main).ComCopierOK.click()
    window = main.program.form("FrmInfoCopy")
    assert not window.CommandCopier.enabled
    cancel(window)
    assert files(target) == {} and main.state["enabled"]
