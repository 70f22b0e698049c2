"""Keys as a hand presses them, and where the focus goes, as a screen reader hears of it."""

import subprocess
import time

from . import wait_for
from .accessible import Atspi, Element, GLib


class Keyboard:
    """Of a program that accessible.enable() came before. `focus` is what the last told of is, None before that.
    A context: what presses the keys ends with it. `tree` is the program's."""

    def __init__(self, program, tree):
        self._program = program
        self._window = tree.wait_for("frame")
        self._told = 0
        self.focus = None
        self._listener = Atspi.EventListener.new(self._on_focus)
        self._listener.register("object:state-changed:focused")

    def __enter__(self):
        self._hands = subprocess.Popen(["xdotool", "-"], env=self._program.display.environment, text=True,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self._repeat("off")
        return self

    def __exit__(self, *_):
        self._hands.communicate()

    def _do(self, *words):
        """One for all keys: a process for each would take longer than what it does."""
        print(*words, "\ngetdisplaygeometry", file=self._hands.stdin, flush=True)
        if not self._hands.stdout.readline():
            raise AssertionError(f"the display does not take {words}")

    def _repeat(self, switch):
        """On a busy machine any key may be down for so long that it repeats."""
        self._program.display.ask("xset", "r", switch)

    def _on_focus(self, event, *_):
        if event.detail1:
            self.focus = Element(event.source)
            self._told += 1

    def listen(self, seconds):
        """For that long, or until nothing more comes after something has come."""
        told, end = self._told, time.monotonic() + seconds
        quiet = None
        while time.monotonic() < min(end, quiet or end):
            if not GLib.MainContext.default().iteration(False):
                time.sleep(0.004)
            if self._told != told:
                told, quiet = self._told, time.monotonic() + 0.02

    def settle(self):
        """Until the program has done with its keys and told of the focus: what it is asked later, it answers later."""
        for _ in range(3):  # The first may have overtaken the key, which comes by another way.
            self._window.place  # pylint: disable=pointless-statement
        self.listen(0.02)

    def press(self, *keys):
        """As xdotool names them, each when the program has done with the one before."""
        for key in keys:
            self._do("key", key)
            self.settle()

    def hold(self, key, condition, what):
        """Until the condition is met."""
        def look():
            self.listen(0.05)
            return condition()
        self._repeat("on")
        self._do("keydown", key)
        try:
            wait_for(look, 20, what)
        finally:
            self._do("keyup", key)
            self._repeat("off")
        self.settle()

    def go_to(self, role, name=".*", key="Tab"):
        """Presses a key until the focus is there."""
        for _ in range(60):
            if self.focus and self.focus.matches(role, name):
                return
            self.press(key)
        raise AssertionError(f'{key} does not lead to {role} "{name}"')

    def wait_for(self, role, name=".*", seconds=20):
        def look():
            self.listen(0.05)
            return self.focus and self.focus.matches(role, name)
        wait_for(look, seconds, f'the focus on {role} "{name}", which is on {self.focus}')

    def round(self, key="Tab"):
        """All that a key leads to, from where the focus is until it is there again."""
        found = [self.focus]
        while True:
            before = self.focus
            self.press(key)
            if self.focus == before:  # The machine is busy, or the key was to the label's link.
                self.listen(2)
            if before.role == "label" and self.focus == before:
                self.press(key)
            if self.focus == found[0]:
                return found
            if self.focus == before or self.focus in found:
                raise AssertionError(f"{key} does not lead on from {self.focus} after {found}")
            found.append(self.focus)
