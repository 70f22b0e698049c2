"""What the tests of the whole program and the playback benchmark share."""

import os
import pathlib
import time
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[3]


def wait_for(condition, seconds, what):
    """The first true value of condition(), which is asked until then; an AssertionError after so many seconds."""
    deadline = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {seconds} s in vain for {what}")
        time.sleep(0.02)


def built(variable, path):
    """A program of the build: the environment variable's, or that of a preset; skips the test when it is absent."""
    candidates = [os.environ.get(variable)] + [ROOT / "build" / preset / path for preset in ("dev", "release")]
    for candidate in candidates:
        if candidate and os.access(candidate, os.X_OK):
            return pathlib.Path(candidate)
    raise unittest.SkipTest(f"SKIPPED: {path} has not been built")
