"""Waiting for conditions; nothing here trusts in a fixed pause."""
import time

# Generous: a machine under load must not fail a test. A condition that holds is seen at once.
DEADLINE = 30.0
PAUSE = 0.02
# Looks at a window cost the program under test as much as the observer: on a machine under load it would
# hardly get on between them.
SHARE_OF_LOOKING = 1 / 3
LONGEST_PAUSE = 0.5


class NeverCame(AssertionError):
    """A condition did not come true in time."""


def wait_for(condition, what, deadline=DEADLINE):
    """The first true result of `condition()`; a ProbeError counts as "not yet"."""
    end = time.monotonic() + deadline
    trouble = None
    while True:
        begin = time.monotonic()
        try:
            result = condition()
            if result:
                return result
            trouble = None
        except ProbeError as error:
            trouble = error
        now = time.monotonic()
        if now > end:
            raise NeverCame(f"waited in vain for {what}" + (f" ({trouble})" if trouble else ""))
        time.sleep(min(max(PAUSE, (now - begin) * (1 / SHARE_OF_LOOKING - 1)), LONGEST_PAUSE))


class ProbeError(Exception):
    """The probe could not answer: the window is gone or at work."""
