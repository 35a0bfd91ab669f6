"""The probe: what the windows inside a prefix show."""
import json
import select
import subprocess
import threading

from .paths import PROBE
from .waiting import ProbeError

ANSWER_SECONDS = 60


class Probe:
    """One probe.exe that answers questions; `environment` names the prefix and the display."""

    def __init__(self, environment):
        self._lock = threading.Lock()
        self._process = subprocess.Popen(
            ["wine", str(PROBE)], cwd=PROBE.parent, env=environment, text=True, bufsize=1,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def ask(self, *question):
        with self._lock:
            self._process.stdin.write(" ".join(map(str, question)) + "\n")
            self._process.stdin.flush()
            if not select.select([self._process.stdout], [], [], ANSWER_SECONDS)[0]:
                raise AssertionError(f"the probe does not answer {question}")
            line = self._process.stdout.readline()
        reply = json.loads(line)
        if "error" in reply:
            raise ProbeError(f"{question}: {reply['error']}")
        return reply["answer"]

    def close(self):
        self._process.stdin.close()
        try:
            self._process.wait(5)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        self._process.stdout.close()
