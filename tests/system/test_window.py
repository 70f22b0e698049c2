"""The window by hand: its frames, keys, edges, tray and place."""

import os
import signal
import subprocess
import time
import unittest

from support import clips, wait_for
from support.display import VirtualDisplay
from support.process import children
from support.program import Program

FRAMED = {r"application/window\showFrame": "true"}


class WindowByHand(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())

    def do(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.display.environment, check=True, stdin=subprocess.DEVNULL)

    def type(self, *events):
        for event in events:
            self.do(*event.split())

    def press(self, program, *keys):
        self.do("windowactivate", "--sync", program.window)
        for key in keys:
            self.do("key", "--clearmodifiers", key)

    def drag(self, start, way):
        """Step by step, as a hand does: the window manager takes over on the way."""
        self.do("mousemove", *start)
        self.do("mousedown", 1)
        for _ in range(10):
            self.do("mousemove_relative", "--", way[0] // 10, way[1] // 10, "sleep", 0.02)
        self.do("mouseup", 1)

    def geometry(self, program):
        return self.display.geometry(program.window)

    def wait_for_geometry(self, program, is_right, what):
        """Once it rests: the window manager follows a hand when it gets to it."""
        return wait_for(lambda: is_right(*(found := self.geometry(program))) and not time.sleep(0.3)
                        and found == self.geometry(program) and found, 20, what)

    def test_the_skin_is_moved_and_resized_by_its_own_frame(self):
        with Program(self.display, "-demo") as program:
            x, y, width, height = self.geometry(program)
            self.drag((x + width * 2 // 3, y + 18), (-60, 50))
            x, y, _, _ = self.wait_for_geometry(program, lambda *g: g[0] < x and g[1] > y and g[2:] == (width, height),
                                                "the window to be moved")
            self.drag((x + width - 4, y + height - 4), (80, 60))
            self.wait_for_geometry(program, lambda *g: g[:2] == (x, y) and g[2] > width and g[3] > height,
                                   "the window to be resized")
            self.do("mousemove", x + width * 2 // 3, y + 18, "click", "--repeat", 2, "--delay", 50, 1)
            self.wait_for_geometry(program, lambda *g: g[2] == self.display.width, "the window to be maximised")

    def test_the_frame_changes_under_a_film_that_plays(self):
        with Program(self.display, clips.mp4()) as program:
            rectangle = program.own_size_rectangle(640, 360)
            self.press(program, "alt+v", "Down", "Down", "Down", "Return")  # Skin Mode
            wait_for(lambda: program.video_rectangle() != rectangle and program.video_rectangle()[2:] == (640, 360), 20,
                     "the picture in another frame, as large as it was")
            self.assertIn(program.window, self.display.windows(), "the native window stays")
            wait_for(lambda: self.display.screenshot(program.video_rectangle()).number() is not None, 20, "the picture")

    def test_keys_act_once_and_the_window_is_found_again(self):
        with Program(self.display, clips.mp4(), settings=FRAMED) as program:
            program.own_size_rectangle(640, 360)

            def title():
                return self.display.ask("xprop", "-id", program.window, "_NET_WM_NAME")

            self.do("windowactivate", "--sync", program.window)
            with self.subTest("keys that are let go in either order"):
                self.type("keydown ctrl", "keydown m", "keyup m", "keyup ctrl")
                wait_for(lambda: "(muted)" in title(), 20, "the sound to be off")
                self.type("keydown ctrl", "keydown m", "keyup ctrl", "keyup m")
                wait_for(lambda: "(muted)" not in title(), 20, "the sound to be back, the control key let go first")
            with self.subTest("full screen has no tabs"):
                self.press(program, "ctrl+f")
                self.wait_for_geometry(program, lambda *g: g[2:] == (self.display.width, self.display.height), "full screen")
                self.press(program, "ctrl+t", "Escape")
                self.wait_for_geometry(program, lambda *g: g[2] < self.display.width, "the window")
            with self.subTest("place and size"):
                self.do("windowsize", "--sync", program.window, 900, 600)
                self.do("windowmove", "--sync", program.window, 200, 100)
                place = self.geometry(program)
                program.wait_for_log("^Video rectangle ")
                program.quit()
                program.again()
                self.wait_for_geometry(program, lambda *g: g[2:] == place[2:], "the size of before")
            with self.subTest("closed, it goes on without a film"):
                self.press(program, "ctrl+w")
                wait_for(lambda: not self.display.is_shown(program.window), 20, "the window to hide")
                program.wait_for_log(r"^Channel changed from .*\.mp4 to ")
                self.assertTrue(program.is_running())
                self.assertEqual(program.start_second(), 0)
                wait_for(lambda: self.display.is_shown(program.window), 20, "the window to be back")


class WithoutTray(unittest.TestCase):
    def test_a_session_that_starts_waits_for_its_tray(self):
        with VirtualDisplay() as display:
            tray = next(pid for pid, name in children(display._process.pid) if name == "trayer")
            os.kill(tray, signal.SIGKILL)
            program = Program(display, "-demo", "-startup")
            wait_for(lambda: '"trayer"' not in display.ask("xwininfo", "-root", "-tree"), 20, "the tray to go")
            program.start()
            wait_for(lambda: program.logged("Running from system startup"), 20, "the program")
            self.assertFalse(program.logged("does not support a system tray"))
            late = subprocess.Popen(["trayer", "--edge", "bottom", "--height", "24"], env=display.environment,
                                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            try:
                wait_for(program._find_window, 20, "the window, once there is a tray")
                program.quit()
            finally:
                late.kill()
                late.wait()


class TwoDisplays(unittest.TestCase):
    def test_full_screen_is_where_the_window_is_and_outlives_that_display(self):
        with VirtualDisplay(1600, 900) as display:
            for name, place, output in (("left", "800/200x900/225+0+0", "screen"), ("right", "800/200x900/225+800+0", "none")):
                subprocess.run(["xrandr", "--setmonitor", name, place, output], env=display.environment, check=True)
            subprocess.run(["openbox", "--reconfigure"], env=display.environment, check=True)
            with Program(display, clips.mp4(), settings=FRAMED) as program:
                program.wait_for_log("^Video rectangle ")

                def wait_for_place(is_right, what):
                    wait_for(lambda: is_right(*display.geometry(program.window)), 20, what)

                display.ask("xdotool", "windowmove", "--sync", program.window, "850", "100")
                display.ask("xdotool", "windowactivate", "--sync", program.window, "key", "ctrl+f")
                wait_for_place(lambda *g: g == (800, 0, 800, 900), "full screen on the right")
                display.ask("xrandr", "--delmonitor", "right")
                wait_for_place(lambda *g: g == (0, 0, 800, 900), "full screen on the display that is left")
                display.ask("xdotool", "key", "Escape")
                wait_for_place(lambda x, y, width, height: x >= 0 and x + width <= 800 and height < 900, "a window to be seen")


if __name__ == "__main__":
    unittest.main()
