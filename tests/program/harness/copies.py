"""What tests of a copy have in common: the album to copy, and what is to be seen afterwards."""
from . import catalogue, medium

# What of the album is music, path to bytes.
MUSIC = {path: data for path, data in medium.album().items()
         if not path.endswith((".txt", ".bak", "faux.wav"))}

LONG_SIZE = 64 << 20  # bytes, of a file that is watched while it is copied


def files(folder):
    """Every file below a folder: its path to its bytes."""
    return {str(path.relative_to(folder)): path.read_bytes()
            for path in folder.rglob("*") if path.is_file()}


def cancel(window):
    window.ComAnnuleCopie.click()
    window.program.wait_gone("FrmInfoCopy")


def markers(program):
    """The rows that only a run's filter pass may see."""
    return [row for row in catalogue.rows(program.database) if row["Type"] == "T"]


def failing_copy(window):
    """Starts a copy that fails; gives the report's text. The window goes with it."""
    window.CommandCopier.click()
    box = window.program.message()
    text = box.text
    box.answer("OK")
    window.program.wait_gone("FrmInfoCopy")
    return text
