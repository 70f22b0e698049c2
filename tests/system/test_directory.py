"""A viewer who is signed in: the directory of channels, what was open last, and a service that keeps dying."""

import contextlib
import os
import pathlib
import random
import tempfile
import threading
import time
import unittest

from support import clips, wait_for
from support.display import VirtualDisplay
from support.live import number_on_screen
from support.localservices import LocalServices
from support.program import Program

ROUNDS = int(os.environ.get("OMBRAVISION_TEST_ROUNDS", 8))  # How often the service is killed.
SEED = os.environ.get("OMBRAVISION_TEST_SEED") or str(random.randrange(1 << 32))
STILL = 5  # Seconds for which the picture may stand while the service is killed and started on the same two cores.
GUEST, PASSWORD = "guest@ombravision.invalid", "letters, blanks & signs"


class Directory(unittest.TestCase):
    def setUp(self):
        stack = self.enterContext(contextlib.ExitStack())
        self.display = stack.enter_context(VirtualDisplay())
        films = [clips.asf(40, frequency, "1M") for frequency in (440, 550)]
        self.streams = stack.enter_context(LocalServices("--stream", f"/a={films[0]}", "--stream", f"/b={films[1]}"))
        directory = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory()))
        self.service = stack.enter_context(LocalServices("--no-seeds", "--max-age", 1, "--database", directory / "service.sqlite"))
        self.service.control(f"account add {GUEST} {PASSWORD}")
        for name in "a", "b":
            self.service.control(f"channel add {name} TV {self.streams.address('mms', '/' + name)} Channel {name.upper()}")
        self.service.control("channel default b")

    def program(self):
        user = GUEST.replace("@", "%40")
        return Program(self.display, settings={
            r"application/service\url": f"http://127.0.0.1:{self.service.ports['web']}",
            r"application/biscotti\host": "127.0.0.1", r"application/biscotti\port": self.service.ports["biscotti"],
            r"application/lastUser": GUEST,
            rf"user/{user}\password": f'"{PASSWORD}"', rf"user/{user}\signInAutomatically": "true"})

    def shown(self, program, title):
        program.wait_for_log(rf"^Channel changed from .* to {title}$")
        wait_for(lambda: number_on_screen(program) is not None, 20, f"the picture of {title}")

    def choose(self, program, place, key):
        """By the menu, which is waited for: what is typed before it is there does not reach it."""
        def windows():
            return len(self.display.ask("xdotool", "search", "--onlyvisible", "--pid", str(program.pid)).split())
        self.display.ask("xdotool", "windowactivate", "--sync", program.window)
        closed = windows()
        self.display.ask("xdotool", "key", "alt+c")
        wait_for(lambda: windows() > closed, 20, "the menu")
        self.display.ask("xdotool", "key", "--delay", "100", *["Down"] * (place - 1), key)

    def test_what_was_open_is_so_again(self):
        program = self.program()
        with program:
            self.shown(program, "Channel B")
            self.choose(program, 1, "ctrl+Return")
            program.wait_for_log("^Opened .*/a$")
            self.choose(program, 1, "Return")  # It is open: it takes over the sound.
            program.wait_for_log("^Channel changed from .* to Channel A$")
            program.quit()
            program.log.unlink()
            program.again()
            for name in "a", "b":
                program.wait_for_log(f"^Opened .*/{name}$")
            program.wait_for_log("^Channel changed from .* to Channel A$")
            self.assertFalse(program.logged(PASSWORD))
            self.assertNotIn(PASSWORD, (program.home / ".config/Ombravision/Ombravision.ini").read_text())

    def test_what_plays_may_go_from_the_directory(self):
        with self.program() as program:
            self.shown(program, "Channel B")
            self.service.control("channel remove b")
            self.shown(program, "Channel A")

    def test_a_cache_that_cannot_be_written_keeps_nobody_from_the_channels(self):
        program = self.program()
        (program.home / ".cache").write_text("in the way")
        with program:
            self.shown(program, "Channel B")

    def test_a_service_that_keeps_dying(self):
        print(f"OMBRAVISION_TEST_SEED={SEED}", flush=True)
        chance = random.Random(SEED)
        with self.program() as program, Watch(program) as watch:
            for number in range(ROUNDS):
                self.service.kill()
                self.service.start()
                time.sleep(chance.uniform(0, 1.5))
                with contextlib.suppress(OSError):
                    self.service.control(f"channel add extra{number} TV {self.streams.address('mms', '/a')} Extra {number}")
                time.sleep(chance.choice((0, 0.01, 0.1, 1)))
            count = 0
            for line in program.log_lines():
                count += line.text.startswith("Added channel") - line.text.startswith("Removed channel")
                self.assertFalse(count < 2 and line.text.startswith("Channel update complete"))
            self.assertFalse(program.logged("^Channels unloaded"))
            self.assertLess(watch.longest, STILL)
            program.quit()
            program.log.unlink()
            self.service.control("web fault /client/desktop 500")
            program.again()  # With what the cache holds.
            self.shown(program, "Channel B")


class Watch:
    """For how many seconds the picture has stood at most, from the first one to leaving the context."""

    def __init__(self, program):
        self._program, self._over, self.longest = program, threading.Event(), 0.0

    def __enter__(self):
        wait_for(lambda: number_on_screen(self._program) is not None, 30, "the first picture")
        self._thread = threading.Thread(target=self._run)
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._over.set()
        self._thread.join()

    def _run(self):
        last, since = None, time.monotonic()
        while not self._over.wait(0.2):
            begin, number = time.monotonic(), number_on_screen(self._program)
            if number != last:
                last, since = number, time.monotonic()
            self.longest = max(self.longest, begin - since)  # However long a look takes.


if __name__ == "__main__":
    unittest.main()
