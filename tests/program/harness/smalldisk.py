"""A small disk that can be full."""
import os
import pathlib
import shutil
import subprocess
import tempfile

from .paths import BUILD, SHIPPED

_SIZE_KIB = 1536


class NoSmallDisk(Exception):
    """This machine lets nobody make one."""


class SmallDisk:
    """A file system of its own, in memory, with the program's files on it."""

    def __init__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="disk.", dir=BUILD))
        self._as_root = [] if os.geteuid() == 0 else ["sudo", "-n"]
        mount = [*self._as_root, "mount", "-t", "tmpfs", "-o",
                 f"size={_SIZE_KIB}k,uid={os.geteuid()}", "tmpfs", str(self.folder)]
        if subprocess.run(mount, capture_output=True, check=False).returncode != 0:
            self.folder.rmdir()
            raise NoSmallDisk
        for path in SHIPPED:
            shutil.copy(path, self.folder)

    def fill(self, room=0):
        """Leaves room for so many bytes."""
        with open(self.folder / "ballast", "wb", buffering=0) as ballast:
            try:
                while True:
                    ballast.write(bytes(4096))
            except OSError:
                pass
            ballast.truncate(max(0, ballast.tell() - room))

    def empty(self):
        (self.folder / "ballast").unlink()

    def close(self):
        subprocess.run([*self._as_root, "umount", "-l", str(self.folder)], check=True)
        self.folder.rmdir()
