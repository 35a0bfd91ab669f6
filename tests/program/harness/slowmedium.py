"""A medium that is read slowly, so that a test can look at what goes on meanwhile on any machine."""
from . import medium
from .paths import SLOW_MEDIUM

_NAME = "lent"
# How many tracks take their time: seconds rather than moments, even on the fastest machine.
MANY = 500


def with_slow_media(environment=None):
    """The environment of a Desktop on which what write() makes is slow."""
    environment = environment or {}
    libraries = [library for library in (environment.get("LD_PRELOAD"), str(SLOW_MEDIUM)) if library]
    return {**environment, "LD_PRELOAD": ":".join(libraries), "SLOW_MEDIUM": _NAME}


def write(parent, count=MANY):
    """A folder for a drive with so many modules in it, whose titles have to be read from them."""
    return medium.write(parent / _NAME,
                        {f"{number % 20}/{number:05}.mod": medium.mod(f"morceau {number}")
                         for number in range(count)})
