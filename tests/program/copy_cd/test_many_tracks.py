"""A medium with as many tracks as a copy can hold, and with one more."""
import pytest

from harness import medium
from harness.copies import cancel, files, markers
from harness.steps import begin_copy, open_copy

FILES = 1000
TRACKS = 50_000
# For reading so many tracks, seconds.
LONG = 240
MOST_MEMORY = 100_000_000


@pytest.fixture(scope="module")
def source(tmp_path_factory):
    """A folder with a fiftieth of the tracks, under fifty names, and a track beside them."""
    folder = tmp_path_factory.mktemp("many")
    medium.write(folder / "0", {f"{number}.mid": medium.mid() for number in range(FILES)})
    for number in range(1, TRACKS // FILES):
        (folder / f"{number}").symlink_to("0")
    return medium.write(folder, {"en trop.mid": medium.mid(70)})


def test_a_copy_holds_fifty_thousand_tracks_and_refuses_more(main, source, target):
    memory = main.program.memory()
    open_copy(main).ComCopierOK.click()
    box = main.program.message(deadline=LONG)
    assert "plus de 50\u00a0000 morceaux" in box.text
    box.answer("OK")
    main.program.wait_gone("FrmInfoCopy")
    assert markers(main.program) == []

    (source / "en trop.mid").unlink()
    window = begin_copy(main, deadline=LONG)
    assert window.ListInfocopy.count == TRACKS
    assert f"\n{TRACKS} morceaux sélectionnés (" in window.LabelInfoCopy.text
    assert f" sur {TRACKS} morceaux trouvés (" in window.LabelInfoCopy.text
    assert main.program.memory() - memory < MOST_MEMORY
    cancel(window)
    assert files(target) == {} and main.state["enabled"]
