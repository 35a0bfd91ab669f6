"""A program with a medium in its drive and a disk to copy it to."""
import os
import shutil

import pytest

from harness import medium, settings
from harness.copies import LONG_SIZE
from harness.desktop import FIXED, Desktop
from harness.helddisk import HeldDisk
from harness.player import RecordingPlayer
from harness.program import Program
from harness.slowmedium import with_slow_media

@pytest.fixture(scope="module")
def disk(tmp_path_factory):
    return tmp_path_factory.mktemp("disk")


@pytest.fixture(scope="module")
def held_disk(disk):
    """Holds the disk of all of the module's programs."""
    made = HeldDisk(disk)
    yield made
    made.close()


@pytest.fixture(scope="module")
def source(album_folder):
    """What the medium to copy holds unless a test changes it."""
    return album_folder


@pytest.fixture(scope="module")
def desktop(disk, held_disk, source):
    """E: is a CD-ROM drive with the medium, H: the hard disk to copy to."""
    with Desktop(medium=source, drives={"h": (disk, FIXED)},
                 environment=with_slow_media(held_disk.environment)) as made:
        yield made


@pytest.fixture(scope="module")
def player(desktop):
    return RecordingPlayer(desktop, "lecteur.exe")


@pytest.fixture(scope="module")
def copy_settings():
    """What the program's settings say besides the destination."""
    return {}


@pytest.fixture(scope="module")
def shared(desktop, player, copy_settings):
    """One program for all tests."""
    with Program(desktop) as made:
        settings.set_players(made.settings, [("Écoute", player.path)], current=1)
        settings.change(made.settings, DestinationDrive="h:", CopyDestination="H:\\Copies",
                        **copy_settings)
        made.open()
        yield made


@pytest.fixture
def target(disk):
    """The folder to copy to, empty."""
    folder = disk / "Copies"
    folder.mkdir()
    yield folder
    folder.chmod(0o755)
    shutil.rmtree(folder)


@pytest.fixture
def main(shared, source, player, target):
    player.forget()
    yield shared.form("FrmMP3")
    shared.desktop.tidy()
    shared.desktop.set_medium("e", source)
    shared.only_main_window()


@pytest.fixture
def long_copy(main, held_disk, tmp_path):
    """In the drive a file of LONG_SIZE bytes, of which the disk takes a quarter until it is let go, and
    a small one that comes after it."""
    folder = tmp_path / "long"
    folder.mkdir()
    (folder / "gros.wav").write_bytes(medium.wav(1000))
    os.truncate(folder / "gros.wav", LONG_SIZE)
    (folder / "suite").mkdir()
    (folder / "suite" / "petit.mid").write_bytes(medium.mid(60))
    main.desktop.set_medium("e", folder)
    held_disk.hold(LONG_SIZE // 4)
    yield held_disk
    held_disk.let_go()
