"""An external player that writes down how it is started."""
import shutil

from .paths import PLAYER
from .waiting import wait_for

MINIMISED_WITH_FOCUS = 2


def windows_path(path):
    """A path of this machine as the programs under Wine see it."""
    return "Z:" + str(path).replace("/", "\\")


class RecordingPlayer:
    """A copy of the recording player at `path` below drive C: ("Mon dossier/lecteur.exe")."""

    def __init__(self, desktop, path):
        self.path = "C:\\" + path.replace("/", "\\")
        self.file = desktop.prefix / "drive_c" / path
        self._log = self.file.with_name(self.file.name + ".txt")
        self._stay = self.file.with_name(self.file.name + ".stay")
        self.file.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(PLAYER, self.file)

    def stay(self):
        """From now on it does not end by itself."""
        self._stay.touch()

    def leave(self):
        self._stay.unlink(missing_ok=True)

    def starts(self):
        """The command line of each start so far, in order; every one was minimised with focus."""
        if not self._log.exists():
            return []
        lines = self._log.read_bytes().decode("utf-8").splitlines()
        starts = sorted((int(time), int(style), command)
                        for time, style, command in (line.split("\t", 2) for line in lines))
        assert all(style == MINIMISED_WITH_FOCUS for _, style, _ in starts), starts
        return [command for _, _, command in starts]

    def wait_started(self, *commands):
        """Waits until it was started with exactly these command lines, in this order."""
        wait_for(lambda: len(self.starts()) >= len(commands), f"{len(commands)} starts")
        assert self.starts() == list(commands), self.starts()

    def forget(self):
        self._log.unlink(missing_ok=True)
