"""A disk that takes no more for a while, so that a test can look at what goes on in the midst of a file."""
import os
import pathlib
import shutil
import tempfile

from .paths import BUILD, HELD_DISK


class HeldDisk:
    """A folder in which a file takes only so many bytes until it is let go. It holds programs that were
    started with its `environment`."""

    def __init__(self, folder):
        self._folder = pathlib.Path(tempfile.mkdtemp(prefix="held.", dir=BUILD))
        self._limit = self._folder / "limit"
        self.environment = {"LD_PRELOAD": str(HELD_DISK), "HELD_DISK": str(folder),
                            "HELD_DISK_LIMIT": str(self._limit)}

    def hold(self, size):
        """Whoever writes more than `size` bytes to a file waits from now on."""
        told = self._folder / "new"
        told.write_text(str(size), encoding="ascii")
        os.replace(told, self._limit)

    def let_go(self):
        self._limit.unlink(missing_ok=True)

    def close(self):
        self.let_go()
        shutil.rmtree(self._folder)
