"""The program under test: its folder, its process, its windows."""
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

from .form import Form, Message
from .paths import BUILD, PROGRAM, SHIPPED
from .waiting import DEADLINE, NeverCame, wait_for


# How long the window manager may take to give a new window the keys, in seconds.
FORGETFUL = 5.0


class Program:
    """Brivantole.exe in a program folder of its own, on a Desktop.

    `folder` is made when not given, and filled with copies of `files`. The program is started by
    `start` and can be started again after it ended.
    """

    def __init__(self, desktop, folder=None, files=tuple(SHIPPED)):
        self.desktop = desktop
        self._own_folder = folder is None
        self.folder = pathlib.Path(folder or tempfile.mkdtemp(prefix="program.", dir=BUILD))
        if folder is None:
            for path in files:
                shutil.copy(path, self.folder)
        self.process = None
        self._identity = None

    @property
    def database(self):
        return self.folder / "Brivantole.mdb"

    @property
    def settings(self):
        return self.folder / "Brivantole.ini"

    def start(self):
        """Starts the program; does not wait for a window."""
        self._before = {window["process"] for window in self.desktop.probe.ask("windows")}
        self._identity = None
        self.process = self.desktop.start(str(PROGRAM), cwd=self.folder,
                                          stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

    def open(self):
        """Starts the program and gives its main window."""
        self.start()
        return self.form("FrmMP3")

    def windows(self):
        """Its visible top-level windows."""
        windows = self.desktop.probe.ask("windows")
        if self._identity is None:
            own = [window["process"] for window in windows
                   if window["visible"] and window["process"] not in self._before
                   and (window["class"].startswith("Frm") or window["class"] == "#32770")]
            if not own:
                return []
            self._identity = own[0]
        return [window for window in windows
                if window["process"] == self._identity and window["visible"]]

    def form_or_none(self, name):
        for window in self.windows():
            if window["class"] == name:
                return Form(self, window)
        return None

    def form(self, name):
        """The form of that name, once it is shown."""
        return self._ready(lambda: self.form_or_none(name), f"the window {name}")

    def wait_gone(self, name):
        """Waits until no form of that name is shown."""
        wait_for(lambda: self.form_or_none(name) is None, f"the end of the window {name}")

    def message_or_none(self, other_than=None):
        for window in self.windows():
            if window["class"] == "#32770" and not (
                    other_than and window["handle"] == other_than.handle):
                return Message(self, window)
        return None

    def message(self, deadline=DEADLINE, other_than=None):
        """The message box or common dialog on top, once there is one besides `other_than`."""
        return self._ready(lambda: self.message_or_none(other_than), "a message box", deadline)

    def _ready(self, find, what, deadline=DEADLINE):
        """A window once it is shown and gets the keys that are typed."""
        window = wait_for(lambda: find() or self._must_live(), what, deadline)

        def gets_keys():
            return self.desktop.active_title() == window.title
        try:
            wait_for(gets_keys, f"{what} to get the keys", deadline=FORGETFUL)
        except NeverCame:
            # Two windows that close at once may leave the window manager giving the keys to none;
            # a person then clicks the window's caption.
            window.click_caption()
            wait_for(gets_keys, f"{what} to get the keys")
        return window

    def _must_live(self):
        if self.process.poll() is not None:
            raise NeverCame(f"the program ended with code {self.process.returncode}")

    @property
    def running(self):
        return self.process is not None and self.process.poll() is None

    def memory(self):
        """Bytes that its process has in memory now."""
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text(encoding="ascii")
        line, = (line for line in status.splitlines() if line.startswith("VmRSS:"))
        return int(line.split()[1]) * 1024

    def exit_code(self):
        """Waits for the program's end."""
        wait_for(lambda: not self.running, "the end of the program")
        return self.process.returncode

    def only_main_window(self):
        """Starts the program anew when a failed test has left other windows open, or none."""
        if [window["class"] for window in self.windows()] != ["FrmMP3"]:
            self.kill()
            self.open()

    def quit(self):
        """Closes the main window as its user does, and waits for the program's end."""
        self.form("FrmMP3").close()
        return self.exit_code()

    def kill(self):
        """Ends the program at this instant, with no chance to tidy up."""
        if self.running:
            os.kill(self.process.pid, signal.SIGKILL)
            self.process.wait()

    def close(self):
        self.kill()
        if self._own_folder:
            shutil.rmtree(self.folder, ignore_errors=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
