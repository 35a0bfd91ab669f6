"""What tests of a run's two windows, a search's results and a copy's selection, have in common."""
from . import settings
from .waiting import wait_for


def check_order(window, in_order):
    """`in_order(window)` must hold in any size that the window may have, and nothing of another size be
    left on the screen."""
    assert in_order(window)
    for asked, size in (((1000, 700), (1000, 700)), ((300, 200), (480, 360))):
        window.resize(*asked)
        wait_for(lambda size=size: window.size == size, f"the size {size}")
        wait_for(lambda: in_order(window), "the controls to follow")
        window.must_be_painted()


def check_kept_size(program, run, close, numbers):
    """The next run must have the size of the one before, across two starts of the program. `run`
    gives the window for a main window; `numbers` are its layout values: height, width, state."""
    def kept():
        values = settings.read(program.settings)
        return [values[f"LayoutValue{number}"] for number in numbers]
    window = run(program.open())
    window.resize(900, 650)
    wait_for(lambda: window.size == (900, 650), "the larger window")
    close(window)
    program.quit()
    assert kept() == [650 * 15, 900 * 15, 0]
    window = run(program.open())
    assert window.size == (900, 650)
    window.maximize()
    wait_for(lambda: window.size[0] > 1200, "the maximised window")
    close(window)
    program.quit()
    assert kept() == [650 * 15, 900 * 15, 2]
