"""What lies over the picture: the bars, several pictures, the carousel; by mouse, by keys and by assistive technology."""

import os
import subprocess
import time
import unittest

from support import clips, wait_for
from support.display import VirtualDisplay
from support.program import Program

WHEEL_DOWN = "5"
BAR = 60  # Pixels from an edge of the picture that a bar covers.


class Overlay(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())

    def move(self, rectangle, across, down):
        """To a point of the picture, in parts of its size, by two moves: one alone may be no move at all."""
        x, y, width, height = rectangle
        for step in (3, 0):
            self.display.ask("xdotool", "mousemove", str(int(x + across * width) + step), str(int(y + down * height)))

    def click(self, *arguments):
        self.display.ask("xdotool", "click", *arguments)

    def key(self, program, *keys):
        self.display.ask("xdotool", "windowactivate", "--sync", program.window)
        for key in keys:
            self.display.ask("xdotool", "key", "--clearmodifiers", key)

    def title(self, program):
        return self.display.ask("xdotool", "getwindowname", program.window).strip()

    def bars(self, rectangle):
        """Whether the bottom bar is there: the picture is bright at its lower edge, the bar is not."""
        x, y, width, height = rectangle
        row = self.display.screenshot((x + width // 3, y + height - BAR, width // 3, 4))
        return max(row.rgb) < 200

    def test_the_bars_come_with_the_pointer_and_go_when_it_rests(self):
        with Program(self.display, clips.mp4(20, 1024, 576)) as program:
            place = program.own_size_rectangle(1024, 576)  # That is the whole surface.
            self.display.ask("xdotool", "mousemove", "1", "1")
            wait_for(lambda: not self.bars(place), 20, "the picture")
            self.move(place, 0.5, 0.5)
            wait_for(lambda: self.bars(place), 20, "the bars")
            wait_for(lambda: not self.bars(place), 20, "no bars")
            self.move(place, 0.5, 0.97)
            wait_for(lambda: self.bars(place), 20, "the bars")
            time.sleep(6)
            self.assertTrue(self.bars(place), "the pointer is over one")
            with self.subTest("the wheel is the volume"):
                self.move(place, 0.5, 0.5)
                self.click("--repeat", "2", WHEEL_DOWN)
                wait_for(lambda: "90 %" in self.title(program), 20, "another volume")
            with self.subTest("the keyboard gets to the buttons"):
                self.click("1")
                self.key(program, *["Tab"] * 5, "space")  # Sign in, tabs, position, pause, mute.
                wait_for(lambda: "muted" in self.title(program), 20, "silence")
                self.key(program, "Tab", "Left")
                wait_for(lambda: "85 %" in self.title(program), 20, "another volume by key")
                self.key(program, "Escape")

    def test_pictures_change_places_and_one_fills_the_screen(self):
        with Program(self.display, clips.mp4(), clips.mp4(8, 1024, 576)) as program:
            wait_for(lambda: len(program.logged("^Playing ")) == 2, 20, "two pictures")
            left = wait_for(lambda: program.video_rectangle()[2] < 500 and program.video_rectangle(), 20, "two halves")
            width = self.display.geometry(program.window)[2]
            self.move(left, 0.5, 0.5)
            self.display.ask("xdotool", "mousedown", "1")
            self.move(left, 1.0, 0.5)
            self.move(left, 1.5, 0.5)
            self.display.ask("xdotool", "mouseup", "1")
            wait_for(lambda: program.video_rectangle()[0] > left[0], 20, "the active picture to the right")
            self.click("--repeat", "2", "--delay", "50", "1")
            wait_for(lambda: self.display.geometry(program.window)[2:] == (self.display.width, self.display.height), 20,
                     "full screen")
            self.key(program, "Escape")
            wait_for(lambda: self.display.geometry(program.window)[2] == width, 20, "the window")
            with self.subTest("carousel"):
                self.key(program, "ctrl+space")
                wait_for(lambda: program.video_rectangle()[2] not in (left[2], width), 20, "the picture on a card")
                self.key(program, "Left", "Return")
                wait_for(lambda: program.logged("Channel changed from .* to .*1024x576"), 20, "the chosen channel")

    def test_assistive_technology_finds_and_uses_the_controls(self):
        script = os.path.join(os.path.dirname(__file__), "support", "read_overlay.py")
        found = subprocess.run(["dbus-run-session", "--", "/usr/bin/python3", script, clips.mp4(20, 1024, 576)],
                               env={**self.display.environment, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"},
                               capture_output=True, text=True, timeout=180)
        if "No module named" in found.stderr:
            self.skipTest("python3-pyatspi is not installed")
        self.assertEqual(found.returncode, 0, found.stderr)
        for line in ("canvas Picture", "push button Pause (Space)", "check box Mute (Ctrl+M)", "slider Volume",
                     "slider Position", "pressed Sound on (Ctrl+M)", "set 0.5"):
            self.assertIn(line, found.stdout.splitlines())


if __name__ == "__main__":
    unittest.main()
