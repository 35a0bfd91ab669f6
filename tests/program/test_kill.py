"""The catalogue survives the program's sudden death."""
import random
import shutil

import pytest

from harness import catalogue, medium
from harness.desktop import Desktop
from harness.helddisk import HeldDisk
from harness.killing import KillTest
from harness.medium import as_set
from harness.paths import SHIPPED
from harness.program import Program
from harness.steps import add_cd, open_new_cd
from harness.waiting import wait_for

FILE, JOURNAL = "Brivantole.mdb", "Brivantole.mdb-journal"
PIECE = 256 << 10  # bytes that the journal and the file are written in at a time
DEFINITION = 24 * 4096  # where the page of the table's definition is, the last that a commit writes


def test_a_kill_at_any_moment_leaves_the_state_before_or_after():
    seed = random.randrange(1 << 32)
    print(f"seed {seed}")
    KillTest(seed, say=print).run(20)


@pytest.fixture(scope="module")
def folder(tmp_path_factory):
    made = tmp_path_factory.mktemp("program")
    for path in SHIPPED:
        shutil.copy(path, made)
    return made


@pytest.fixture(scope="module")
def held_disk(folder):
    """Holds the program's folder."""
    made = HeldDisk(folder)
    yield made
    made.close()


@pytest.fixture(scope="module")
def program(folder, held_disk, tmp_path_factory):
    """A program with a small CD in its catalogue, and a large one in its drive."""
    small = medium.write(tmp_path_factory.mktemp("small"), medium.album())
    large = medium.write(tmp_path_factory.mktemp("large"), {
        f"dossier {number % 40}/morceau {number}.mid": medium.mid(60) for number in range(4000)})
    with Desktop(medium=small, environment=held_disk.environment) as desktop:
        with Program(desktop, folder=folder) as made:
            add_cd(made.open(), "Petit")
            made.quit()
            desktop.set_medium("e", large)
            yield made


@pytest.fixture
def start(program, held_disk, tmp_path):
    """The program with its first catalogue, which is put back afterwards."""
    kept = shutil.copy(program.database, tmp_path)
    yield program
    held_disk.let_go()
    program.kill()
    shutil.copy(kept, program.database)
    program.database.with_name(JOURNAL).unlink(missing_ok=True)


# What is held, for a file that has `size` bytes, and whether what was added is there afterwards.
STEPS = {
    "before the journal": (lambda size: (0, PIECE, JOURNAL), False),
    "within the journal": (lambda size: (PIECE, 2 * PIECE, JOURNAL), False),
    "before the file": (lambda size: (0, 1 << 62, FILE), True),
    "within the new pages": (lambda size: (size + PIECE, 1 << 62, FILE), True),
    "before the old pages": (lambda size: (0, size, FILE), True),
    "before the last of the old pages": (lambda size: (DEFINITION, DEFINITION + 4096, FILE), True),
}


@pytest.mark.parametrize("step", STEPS)
def test_a_kill_at_each_step_of_a_commit(start, held_disk, step):
    held, added = STEPS[step]
    before = as_set(catalogue.rows(start.database))
    dialog = open_new_cd(start.open())
    start.desktop.type("Gros")
    wait_for(lambda: dialog.TextNouveau.text == "Gros", "the name")
    held_disk.hold(*held(start.database.stat().st_size))
    start.desktop.keys("Return")
    held_disk.wait_met()
    start.kill()
    held_disk.let_go()
    start.open()
    assert start.quit() == 0
    rows = as_set(catalogue.rows(start.database))
    assert before < rows if added else before == rows
    assert len(rows) - len(before) == (4000 if added else 0)
    assert catalogue.count(start.database) == len(rows)
