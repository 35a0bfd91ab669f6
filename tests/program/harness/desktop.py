"""A screen and a Wine prefix of a test's own."""
import collections
import contextlib
import os
import pathlib
import shutil
import subprocess
import tempfile
import threading

from .paths import BUILD, PROBE, ROOT
from .probe import Probe
from .waiting import wait_for

CD_ROM, FIXED = 5, 3  # the system's numbers for types of drives
_BOUND = [] if os.geteuid() != 0 else [
    "setpriv", "--bounding-set", "-dac_override,-dac_read_search"]
_ACCESSIBILITY_SERVICE = "{b5f8350b-0548-48b1-a6ee-88bd00b4a5e7}"
_TYPE_NAMES = {CD_ROM: "cdrom", FIXED: "hd"}


class Desktop:
    """Xvfb on a free display with a window manager, a fresh prefix, and the probe in it.

    `medium` is the folder in drive E: (None: no medium); `drives` are more of them, letter to
    (folder, type). `dpi` is the screen's resolution as Windows programs see it; `environment` is what
    they find in theirs beside the usual.
    Permissions of files bind the programs on it, even when the tests are run by root.
    """

    def __init__(self, medium=None, drives=None, dpi=96, size="1280x1000", environment=None):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="desktop.", dir=BUILD))
        self.prefix = self.folder / "prefix"
        self._processes = []
        self.probe = None
        self.environment = {**self._wine_environment(), **(environment or {})}
        try:
            subprocess.run([ROOT / "tools" / "wine-prefix", self.prefix], check=True)
            self._start_screen(size)
            self._set_up_prefix(medium, drives or {}, dpi)
            self.probe = Probe(self.start(str(PROBE), cwd=PROBE.parent, text=True, bufsize=1,
                                          stdin=subprocess.PIPE, stdout=subprocess.PIPE))
            # The first program of a prefix makes what all others need, and must be let.
            self.probe.ask("windows")
        except BaseException:
            self.close()
            raise

    def _wine_environment(self):
        lines = subprocess.run(
            ["bash", "-c", ". tools/wine-environment && env -0"], cwd=ROOT, check=True,
            capture_output=True, text=True).stdout.split("\0")
        environment = dict(line.split("=", 1) for line in lines if line)
        environment["WINEPREFIX"] = str(self.prefix)
        return environment

    def _start_screen(self, size):
        reading, writing = os.pipe()
        screen = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{size}x24", "-nolisten", "tcp"],
            pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self._processes.append(screen)
        os.close(writing)
        with os.fdopen(reading) as numbers:
            number = numbers.readline().strip()
        if not number:
            raise RuntimeError("no virtual screen could be started")
        self.environment["DISPLAY"] = f":{number}"
        self._processes.append(subprocess.Popen(
            ["openbox"], env=self.environment, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL))

    def _set_up_prefix(self, medium, drives, dpi):
        # Types of drives and the resolution are read when the prefix starts, which it has not yet.
        self.set_medium("e", medium)
        if dpi != 96:
            self._set_at_start("user.reg", "Control Panel\\Desktop", f'"LogPixels"=dword:{dpi:08x}')
        for letter, (folder, kind) in drives.items():
            self.set_medium(letter, folder)
            self._set_at_start("system.reg", "Software\\Wine\\Drives",
                               f'"{letter}:"="{_TYPE_NAMES[kind]}"')

    def _set_at_start(self, file, key, value):
        """A line of the registry's files; one key may have several parts there."""
        with open(self.prefix / file, "a", encoding="ascii") as registry:
            registry.write("\n[" + key.replace("\\", "\\\\") + f"] 1\n{value}\n")

    def keep_accessible_names(self):
        """Lets programs that are started from now on find an accessibility service that keeps the
        names of controls, as Windows' own does and Wine's does not."""
        library = "Z:" + str(PROBE.parent / "probeaccessible.dll").replace("/", "\\")
        self.wine("reg", "add", f"HKCR\\CLSID\\{_ACCESSIBILITY_SERVICE}\\InprocServer32", "/ve",
                  "/t", "REG_SZ", "/d", library, "/f")

    def set_medium(self, letter, folder):
        """Puts a folder in a drive; None takes it out."""
        link = self.prefix / "dosdevices" / f"{letter}:"
        link.unlink(missing_ok=True)
        if folder is not None:
            link.symlink_to(folder)

    def start(self, *command, **options):
        """Starts a Windows program; its process identifier is that of the program itself."""
        return subprocess.Popen([*_BOUND, "wine", *command], env=self.environment,
                                stderr=subprocess.DEVNULL, **options)

    def wine(self, *command):
        subprocess.run([*_BOUND, "wine", *command], env=self.environment, check=True,
                       stdout=subprocess.DEVNULL)

    def wineserver(self, option):
        subprocess.run(["wineserver", option], env=self.environment, check=False)

    # What a person does.

    def xdo(self, *command):
        subprocess.run(["xdotool", *map(str, command)], env=self.environment, check=True,
                       stdout=subprocess.DEVNULL)

    def move(self, x, y):
        self.xdo("mousemove", x, y)

    def click(self, x, y, button=1, times=1):
        self.xdo("mousemove", x, y, "click", "--repeat", times, "--delay", 60, button)

    def press(self, x, y, button=1):
        self.xdo("mousemove", x, y, "mousedown", button)

    def release(self, button=1):
        self.xdo("mouseup", button)

    def drag(self, start, end, button=1):
        """Presses at `start`, moves to `end` at a hand's pace, and lets go."""
        distance = max(abs(last - first) for first, last in zip(start, end))
        steps = max(distance // 10, 1)
        way = []
        for step in range(1, steps + 1):
            x, y = (first + (last - first) * step // steps for first, last in zip(start, end))
            way += ["mousemove", x, y, "sleep", 0.01]
        self.xdo("mousemove", *start, "mousedown", button, *way, "mouseup", button)

    def keys(self, *names):
        """Presses keys by their X names, such as "Return", "alt+F4", "Down"."""
        self.xdo("key", "--delay", 15, *names)

    def type(self, text):
        """Types plain letters; what needs keys that this keyboard lacks comes from the clipboard."""
        if text.isascii():
            self.xdo("type", "--delay", 15, "--", text)
        else:
            self.paste(text)

    def paste(self, text):
        """Brings a text in by the clipboard, as if copied from another program."""
        before = self.probe.ask("clipboardnumber")
        subprocess.run(["xclip", "-selection", "clipboard"], input=text.encode(), check=True,
                       env=self.environment, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
        # Windows' programs hear of it a moment later; looking into the clipboard meanwhile would
        # keep the change out.
        wait_for(lambda: self.probe.ask("clipboardnumber") != before, "the clipboard to change")
        wait_for(lambda: self.probe.ask("clipboard") == text, "the text on the clipboard")
        self.keys("ctrl+v")

    def tidy(self):
        """Lets go of whatever a failed test may have left pressed, and parks the pointer."""
        self.xdo("mouseup", 1, "mouseup", 3, "keyup", "alt", "keyup", "shift", "keyup", "ctrl",
                 "mousemove", 1, 990)

    # What a person sees.

    def active_title(self):
        """The caption of the window that gets the keys; None when there is no such window."""
        run = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], check=False,
                             env=self.environment, capture_output=True, text=True)
        return run.stdout.rstrip("\n") if run.returncode == 0 else None

    def cursor(self):
        """The handle of the cursor that the pointer shows; Window.cursors tells names."""
        return self.probe.ask("cursor")

    @contextlib.contextmanager
    def watched_cursor(self):
        """Gathers, in the set that it gives, every cursor that the pointer shows meanwhile."""
        seen, over = set(), threading.Event()

        def watch():
            while not over.is_set():
                seen.add(self.cursor())
        watcher = threading.Thread(target=watch)
        watcher.start()
        try:
            yield seen
        finally:
            over.set()
            watcher.join()

    def active_window(self):
        """The screen's number of the window that gets the keys."""
        return subprocess.run(["xdotool", "getactivewindow"], env=self.environment, check=True,
                              capture_output=True, text=True).stdout.strip()

    def active_icons(self):
        """The icons that the active window gives its title bar: width to rows of pixels, each
        (red, green, blue, alpha)."""
        text = subprocess.run(["xprop", "-id", self.active_window(), "-f", "_NET_WM_ICON", "32c",
                               "-notype", "_NET_WM_ICON"], env=self.environment, check=True,
                              capture_output=True, text=True).stdout
        numbers = [int(number) for number in text.partition("=")[2].split(",")]
        icons = {}
        while numbers:
            (width, height), numbers = numbers[:2], numbers[2:]
            pixels, numbers = numbers[:width * height], numbers[width * height:]
            icons[width] = [tuple(pixel >> shift & 255 for shift in (16, 8, 0, 24))
                            for pixel in pixels]
        return icons

    def screenshot(self, path):
        path.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["import", "-window", "root", str(path)], env=self.environment, check=False)
        return path

    def screenshot_at_rest(self, path):
        """A screenshot of what stays on the screen: closed windows may take a moment to go."""
        before = None

        def at_rest():
            nonlocal before
            last, before = before, self.screenshot(path).read_bytes()
            return before == last

        wait_for(at_rest, "a picture at rest")
        return path

    def pixels(self, rect):
        """A part of the screen: its rows from the top, each three bytes to a pixel."""
        left, top, right, bottom = rect
        run = subprocess.run(
            ["import", "-window", "root", "-crop",
             f"{right - left}x{bottom - top}+{left}+{top}", "-depth", "8", "rgb:-"],
            env=self.environment, check=True, capture_output=True)
        width = len(run.stdout) // (bottom - top)
        return [run.stdout[start:start + width] for start in range(0, len(run.stdout), width)]

    def colours(self, rect):
        """The colours that a part of the screen shows, (red, green, blue) to its share of it."""
        pixels = [pixel for row in self.pixels(rect) for pixel in zip(*[iter(row)] * 3)]
        return {colour: count / len(pixels)
                for colour, count in collections.Counter(pixels).items()}

    def close(self):
        if self.probe is not None:
            self.probe.close()
        self.wineserver("-k")
        self.wineserver("-w")
        for process in reversed(self._processes):
            process.terminate()
            process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
