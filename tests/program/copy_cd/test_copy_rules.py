"""The rules of a copy, over the sample medium with copies of its own files in it."""
import shutil

import pytest

from harness import catalogue, titles
from harness.copies import cancel, files
from harness.paths import SAMPLE_MEDIUM
from harness.steps import add_cd, begin_copy, choose_cd, delete_cd, finish_copy, open_copy


@pytest.fixture(scope="module")
def doubles(tmp_path_factory):
    """The sample medium with some of its files a second time, some of those longer."""
    folder = tmp_path_factory.mktemp("sample") / "medium"
    shutil.copytree(SAMPLE_MEDIUM, folder)
    for number, path in enumerate(sorted(folder.rglob("*.mid"))):
        copy = folder / "Doubles" / path.name
        copy.parent.mkdir(exist_ok=True)
        copy.write_bytes(path.read_bytes() + bytes(7 * (number % 2)))
    return folder


@pytest.fixture(scope="module")
def known(doubles, tmp_path_factory):
    """A medium with a part of those files, every other one longer."""
    folder = tmp_path_factory.mktemp("known")
    for number, path in enumerate(sorted((doubles / "Modules").rglob("*.*"))
                                  + sorted((doubles / "Midi").rglob("*.mid"))[::3]):
        tail = b"" if path.suffix.lower() != ".mid" or number % 2 else bytes(9)
        (folder / path.name).write_bytes(path.read_bytes() + tail)
    return folder


@pytest.fixture
def catalogued(main, doubles, known):
    """The catalogue holds the known medium alone."""
    main.desktop.set_medium("e", known)
    add_cd(main, "Connu")
    main.desktop.set_medium("e", doubles)
    yield
    choose_cd(main, "Connu")
    delete_cd(main)


def expected_copies(order, tracks, known_tracks, rule, duplicate_rule):
    """The files that a pair of rules lets through, in the order of the walk."""
    copied, kept = [], set()
    known_titles = {(title.casefold(), kind) for title, kind, _ in known_tracks}
    known_sizes = {(title.casefold(), kind, size) for title, kind, size in known_tracks}
    for path in order:
        title, kind, size = tracks[path]
        title = title.casefold()
        if rule == 1 and (title, kind) in known_titles:
            continue
        if rule == 2 and (title, kind, size) in known_sizes:
            continue
        seen = (title, size if duplicate_rule == 2 else None)
        if duplicate_rule and seen in kept:
            continue
        kept.add(seen)
        copied.append(path)
    return copied


def test_each_pair_of_rules_copies_exactly_what_it_says(main, target, doubles, known, catalogued):
    program = main.program
    rows = catalogue.rows(program.database)
    tracks = titles.tracks(doubles)
    known_tracks = list(titles.tracks(known).values())
    assert len(rows) == len(known_tracks)
    sizes = {}
    for rule in range(3):
        for duplicate_rule in range(3):
            def choose(dialog, catalogue_rule=rule, run_rule=duplicate_rule):
                dialog.control(f"OptionCopier{catalogue_rule}").click()
                dialog.control(f"OptionCopier{3 + run_rule}").click()
            # A repaint for each track takes long on a busy machine.
            window = begin_copy(main, choose, deadline=120)
            # The order is the system's; what stands in it is not.
            lines = (program.folder / "tmp.tmp").read_bytes().decode("cp1252").split("\r\n")
            walked = [line.removeprefix("E:\\").replace("\\", "/") for line in lines[:-1]]
            order = [path for path in walked if path in tracks]
            assert sorted(order) == sorted(tracks)
            assert window.ListInfocopy.rows() == [tracks[path][0] for path in order]
            expected = expected_copies(order, tracks, known_tracks, rule, duplicate_rule)
            assert window.ListInfocopy.ticks() == [path in expected for path in order]
            assert f"{len(expected)} morceaux copiés (" in finish_copy(window)
            assert files(target) == {path: (doubles / path).read_bytes() for path in expected}, (
                rule, duplicate_rule)
            sizes[rule, duplicate_rule] = len(expected)
            assert catalogue.rows(program.database) == rows
            shutil.rmtree(target)
            target.mkdir()
    # Each rule has made a difference.
    assert sizes[0, 0] > sizes[0, 2] > sizes[0, 1] and sizes[0, 0] > sizes[2, 0] > sizes[1, 0]
    begin = open_copy(main)
    begin.OptionCopier0.click()
    begin.OptionCopier3.click()
    begin.ComCopierOK.click()
    cancel(program.form("FrmInfoCopy"))
