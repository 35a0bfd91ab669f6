"""The catalogue survives the program's sudden death."""
import random

from harness.killing import KillTest


def test_a_kill_at_any_moment_leaves_the_state_before_or_after():
    seed = random.randrange(1 << 32)
    print(f"seed {seed}")
    KillTest(seed, say=print).run(20)
