"""The probe: what the windows inside a prefix show."""
import json
import select
import subprocess
import threading

from .waiting import ProbeError

ANSWER_SECONDS = 60


class Probe:
    """Asks a running probe.exe; `process` has its text streams."""

    def __init__(self, process):
        self._lock = threading.Lock()
        self._process = process

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
