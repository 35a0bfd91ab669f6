"""Where things are in this checkout."""
import os
import pathlib

ROOT = pathlib.Path(__file__).resolve().parents[3]
BUILD = ROOT / "build"
# The folder of the Windows build; another one can be named, to test what was built elsewhere.
WINDOWS_BUILD = pathlib.Path(os.environ.get("BRIVANTOLE_WINDOWS_BUILD", BUILD / "windows"))
PROGRAM = WINDOWS_BUILD / "Brivantole.exe"
PROBE = WINDOWS_BUILD / "probe" / "probe.exe"
PLAYER = WINDOWS_BUILD / "probe" / "player.exe"
# Of the native build, since they stand between Wine and the system.
HELD_DISK = BUILD / "native-debug" / "tests" / "helddisk.so"
SLOW_MEDIUM = BUILD / "native-debug" / "tests" / "slowmedium.so"
SAMPLE_MEDIUM = BUILD / "sample-medium"
ARTIFACTS = BUILD / "test-artifacts"
SHIPPED = [ROOT / "data" / name for name in ("Brivantole.mdb", "Brivantole.ini", "Brivantole.rtf")]
