"""Kills the program at random moments of its operations and judges what is left of the catalogue.

Most of an operation's time goes by before its commit, which random moments would hardly ever meet:
every other kill comes shortly after the journal has appeared.
"""
import random
import shutil
import tempfile
import time

from . import catalogue, medium
from .desktop import Desktop
from .medium import as_set
from .paths import BUILD
from .program import Program
from .steps import ALL, add_cd, choose_cd, open_new_cd
from .waiting import DEADLINE, wait_for

FILES = 1500
LONGEST_COMMIT = 0.03  # seconds, about, that the journal is needed


def big_medium(folder):
    return medium.write(folder, {f"dossier {number % 40}/morceau {number}.mid": medium.mid(60 + number)
                                 for number in range(FILES)})


class Operation:
    """Something that changes the catalogue, up to its last click."""

    def __init__(self, name, prepare, ended):
        self.name = name
        self.prepare = prepare  # main window -> nothing; leaves one click or key to do
        self.ended = ended      # main window -> whether it is over


def _prepare_scan(name, replaces):
    def prepare(main):
        dialog = open_new_cd(main)
        main.desktop.type(name)
        wait_for(lambda: dialog.TextNouveau.text == name, "the name")
        if replaces:
            main.desktop.keys("Return")
            question = main.program.message()
            assert question.buttons() == ["Oui", "Non"]  # Return means Oui
    return prepare


def _prepare_deletion(name):
    def prepare(main):
        choose_cd(main, name)
        main.choose("Fichier", "Supprimer")
        main.program.message()
    return prepare


def _dialog_gone(main):
    return main.program.form_or_none("FrmNouveauCD") is None and (
        main.program.message_or_none() is None)


OPERATIONS = [
    Operation("adding", _prepare_scan("Nouveau", False), _dialog_gone),
    Operation("replacing", _prepare_scan("Gros", True), _dialog_gone),
    Operation("deleting one", _prepare_deletion("Gros"),
              lambda main: "Gros" not in main.List1.items()),
    Operation("deleting all", _prepare_deletion(ALL), lambda main: main.List1.items() == [ALL]),
]


class KillTest:
    """Runs `kills` kills, spread over the operations; `say` is told of each one."""

    def __init__(self, seed, say=lambda text: None):
        self._random = random.Random(seed)
        self._say = say

    def run(self, kills):
        with tempfile.TemporaryDirectory(dir=BUILD) as work:
            folder = big_medium(BUILD / work / "medium")
            with Desktop(medium=folder) as desktop, Program(desktop) as program:
                self._desktop, self._program = desktop, program
                self._start_files = BUILD / work / "start"
                self._make_start()
                before = as_set(catalogue.rows(self._start_files / "Brivantole.mdb"))
                whole = {operation.name: self._whole(operation) for operation in OPERATIONS}
                for number in range(kills):
                    operation = OPERATIONS[number % len(OPERATIONS)]
                    self._kill_once(number, operation, before, *whole[operation.name])

    def _make_start(self):
        """A catalogue of a small medium and a large one."""
        main = self._program.open()
        add_cd(main, "Gros")
        self._desktop.set_medium("e", medium.write(self._start_files.parent / "album",
                                                   medium.album()))
        add_cd(main, "Petit")
        self._desktop.set_medium("e", self._start_files.parent / "medium")
        self._program.quit()
        shutil.copytree(self._program.folder, self._start_files)

    def _restore(self):
        shutil.rmtree(self._program.folder)
        shutil.copytree(self._start_files, self._program.folder)

    def _whole(self, operation):
        """Seconds that the operation takes undisturbed, and the rows that it leaves."""
        self._restore()
        main = self._program.open()
        operation.prepare(main)
        start = time.monotonic()
        self._desktop.keys("Return")
        wait_for(lambda: operation.ended(main), f"the end of {operation.name}")
        seconds = time.monotonic() - start
        self._program.quit()
        return seconds, as_set(catalogue.rows(self._program.database))

    def _await_journal(self):
        journal = self._program.database.with_name("Brivantole.mdb-journal")
        deadline = time.monotonic() + DEADLINE
        while not journal.exists():
            assert time.monotonic() < deadline, "no journal has appeared"

    def _kill_once(self, number, operation, before, seconds, after):
        self._restore()
        main = self._program.open()
        operation.prepare(main)
        in_commit = number // len(OPERATIONS) % 2 == 1
        moment = self._random.uniform(0, LONGEST_COMMIT if in_commit else seconds)
        self._desktop.keys("Return")
        if in_commit:
            self._await_journal()
        time.sleep(moment)
        self._program.kill()
        # An independent reader finds a valid file at once ...
        as_left = as_set(catalogue.rows(self._program.database))
        assert as_left <= before | after, "rows that no state has"
        # ... and once the program has opened it, one of the two states.
        self._program.open()
        assert self._program.quit() == 0
        rows = as_set(catalogue.rows(self._program.database))
        state = "before" if rows == before else "after" if rows == after else "NEITHER"
        where = "of the commit" if in_commit else f"of {seconds:.3f} s"
        self._say(f"kill {number + 1}: {operation.name} at {moment:.3f} s {where}: {state}")
        assert state != "NEITHER", (
            f"{operation.name}, killed at {moment:.3f} s {where}, left {len(rows)} rows; "
            f"before {len(before)}, after {len(after)}")
        assert catalogue.count(self._program.database) == len(rows)
