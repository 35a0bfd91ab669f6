"""A disk that takes no more for a while, so that a test can look at what goes on in the midst of a file."""
import os
import pathlib
import shutil
import tempfile

from .paths import BUILD, HELD_DISK
from .waiting import wait_for

_END = 1 << 62


class HeldDisk:
    """A folder in which files take no bytes at certain places until it is let go. It holds programs that
    were started with its `environment`."""

    def __init__(self, folder):
        self._folder = pathlib.Path(tempfile.mkdtemp(prefix="held.", dir=BUILD))
        self._order = self._folder / "order"
        self._met = self._folder / "order.met"
        self.environment = {"LD_PRELOAD": str(HELD_DISK), "HELD_DISK": str(folder),
                            "HELD_DISK_ORDER": str(self._order)}

    def hold(self, first, last=_END, name="*"):
        """Whoever writes between these places of a file of that name waits from now on."""
        told = self._folder / "new"
        told.write_text(f"{first} {last} {name}", encoding="ascii")
        self._met.unlink(missing_ok=True)
        os.replace(told, self._order)

    def wait_met(self):
        """Comes back when somebody waits."""
        wait_for(self._met.exists, "a write that is held")

    def let_go(self):
        self._order.unlink(missing_ok=True)

    def close(self):
        self.let_go()
        shutil.rmtree(self._folder)
