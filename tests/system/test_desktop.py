"""The window on a desktop that has a will of its own, and the command line."""

import os
import re
import signal
import subprocess
import time
import unittest

from support import built, clips, wait_for
from support.display import VirtualDisplay
from support.localservices import LocalServices
from support.program import Program
from support.sound import Sound

MAXIMISED = {"MAXIMIZED_VERT", "MAXIMIZED_HORZ"}
WORDS = 60  # Pixels that differ from the empty surface: fewer are no words.


class Desktop(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())

    def press(self, program, *keys):
        self.display.ask("xdotool", "windowactivate", "--sync", program.window)
        for key in keys:
            self.display.ask("xdotool", "key", "--clearmodifiers", key)

    def change(self, program, *states):
        """As the window manager's own menu does."""
        for state in states:
            self.display.ask("wmctrl", "-i", "-r", program.window, "-b", state)

    def states(self, program):
        return set(re.findall(r"_NET_WM_STATE_(\w+)", self.display.ask("xprop", "-id", program.window, "_NET_WM_STATE")))

    def wait_for_states(self, program, wanted, among):
        wait_for(lambda: self.states(program) & among == wanted, 20, f"{wanted or 'none'} of {among}")

    def number(self, program):
        return self.display.screenshot(program.video_rectangle()).number()

    def check_moves(self, program):
        first = wait_for(lambda: self.number(program), 20, "a picture")
        wait_for(lambda: self.number(program) not in (None, first), 20, "the next picture")

    def test_the_window_manager_and_the_program_agree(self):
        always_on_top = ("alt+v", *["Down"] * 4, "Return")
        with Program(self.display, clips.mp4()) as program:
            self.check_moves(program)
            with self.subTest("always on top"):
                self.press(program, *always_on_top)
                self.wait_for_states(program, {"ABOVE"}, {"ABOVE"})
                self.check_moves(program)
                self.assertIn(program.window, self.display.windows(), "the native window stays")
                self.change(program, "remove,above")
                self.wait_for_states(program, set(), {"ABOVE"})
                self.press(program, *always_on_top)  # The menu has followed: this sets it again.
                self.wait_for_states(program, {"ABOVE"}, {"ABOVE"})
            with self.subTest("maximised"):
                self.change(program, "add,maximized_vert,maximized_horz")
                for way in (lambda: self.press(program, "ctrl+f"), lambda: self.display.minimise(program.window),
                            lambda: self.display.close(program.window)):
                    self.wait_for_states(program, MAXIMISED, MAXIMISED)
                    way()
                    wait_for(lambda: not self.display.is_shown(program.window) or "FULLSCREEN" in self.states(program), 20,
                             "the window to change")
                    if "FULLSCREEN" in self.states(program):
                        self.press(program, "ctrl+f")
                    self.assertEqual(program.start_second(), 0)
                    self.wait_for_states(program, MAXIMISED | {"ABOVE"}, MAXIMISED | {"ABOVE", "FULLSCREEN"})
            with self.subTest("full screen"):
                height = self.display.width * 9 // 16
                whole = (0, (self.display.height - height) // 2, self.display.width, height)
                self.change(program, "add,fullscreen")
                wait_for(lambda: program.video_rectangle() == whole, 20, "the picture without the menu bar")
                self.press(program, "Escape")
                self.wait_for_states(program, MAXIMISED, MAXIMISED | {"FULLSCREEN"})
                self.press(program, "ctrl+f")
                self.wait_for_states(program, {"FULLSCREEN"}, {"FULLSCREEN"})
                wait_for(lambda: program.video_rectangle() == whole, 20, "the picture in full screen")
                self.change(program, "remove,fullscreen")
                wait_for(lambda: program.video_rectangle() != whole, 20, "the picture below the menu bar")
                self.press(program, "ctrl+f")  # The menu has followed: this sets it again.
                self.wait_for_states(program, {"FULLSCREEN"}, {"FULLSCREEN"})
                self.check_moves(program)

    def test_the_speed_is_one_for_all_films(self):
        decrease_speed, reset_speed = (("alt+p", "Up", "Right", *ups, "Return") for ups in (["Up"], ["Up"] * 3))
        tones = (440, 610)  # None is another at one of the speeds.
        films = [clips.mp4(frequency=tone) for tone in tones]
        with Program(self.display, films[0]) as program:

            def check(film, speed):
                """Its tone is heard, higher or lower by the speed: it is played by the menu that the steps start from."""
                wait_for(lambda: Sound.end_of_wave(program.wave, 0.4).strength(tones[film] * speed, 0, 0.4) > 2000, 20,
                         f"film {film} at {speed}")

            check(0, 1)
            playing = 0
            for keys, speed in ((("ctrl+6",), 1.5), (decrease_speed, 1.25), (reset_speed, 1)):
                self.press(program, *keys)
                check(playing, speed)
                playing = 1 - playing
                self.assertEqual(program.start_second(films[playing]), 0)
                check(playing, speed)
            self.press(program, "ctrl+6")
            check(playing, 1.5)
            with LocalServices("--stream", f"/live={clips.asf(40, 730, '2M')}") as services:
                self.assertEqual(program.start_second(services.address("http", "/live")), 0)
                tones += (730,)
                check(2, 1)  # What is live would run dry.
                self.press(program, "ctrl+8")  # Nothing to choose.
            self.assertEqual(program.start_second(films[0]), 0)
            check(0, 1.5)

    def test_what_plays_rests_while_the_system_sleeps(self):
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address"],
                               stdout=subprocess.PIPE, text=True)
        self.addCleanup(bus.stdout.close)
        self.addCleanup(bus.wait)
        self.addCleanup(bus.terminate)
        address = bus.stdout.readline().strip()

        def announce(what, begins):
            subprocess.run(["dbus-send", f"--bus={address}", "--type=signal", "/org/freedesktop/login1",
                            f"org.freedesktop.login1.Manager.{what}", f"boolean:{begins}"], check=True)

        with Program(self.display, clips.mp4(), environment={"DBUS_SYSTEM_BUS_ADDRESS": address}) as program:
            self.check_moves(program)
            announce("PrepareForSleep", "true")
            program.wait_for_log("^A stream of channel .* was closed")
            announce("PrepareForSleep", "false")
            self.check_moves(program)
            announce("PrepareForShutdown", "true")
            self.assertEqual(program.wait(), 0)

    def test_a_display_that_dies_ends_the_program(self):
        with VirtualDisplay() as display:
            program = Program(display, clips.mp4())
            program.start()
            program.wait_for_log(r"^Playing ")
            os.kill(display.server_pid, signal.SIGKILL)
            self.assertEqual(program.wait(), 1)
            self.assertTrue(program.logged("The display is gone"))

    def test_screenshots_say_where_they_are(self):
        with Program(self.display, "-demo") as program:
            directory = program.home / ".Ombravision/Screenshots"
            area = self.display.geometry(program.window)

            def rests():
                before = self.display.screenshot(area)
                time.sleep(3)  # What to do first is said after two.
                return before if self.display.screenshot(area).pixels_unlike(before) == 0 else None

            empty = wait_for(rests, 30, "the hint")

            def words():
                return self.display.screenshot(area).pixels_unlike(empty) > WORDS

            self.press(program, "ctrl+shift+s")
            wait_for(words, 20, "words over the surface")
            self.assertEqual(len(list(directory.iterdir())), 1)
            wait_for(lambda: not words(), 20, "the words to go")
            directory.rename(program.home / "elsewhere")
            directory.write_text("in the way")
            self.press(program, "ctrl+shift+s")
            wait_for(words, 20, "words over the surface")

    def test_the_command_line(self):
        binary = built("OMBRAVISION_PROGRAM", "application/ombravision")
        for switch, answer in (("--help", "Usage: "), ("-version", "Ombravision 3.2.0")):
            result = subprocess.run([binary, switch], env={}, capture_output=True, text=True, timeout=20)
            self.assertEqual((result.returncode, result.stdout[:len(answer)], result.stderr), (0, answer, ""))
        with Program(self.display, "-nonsense", "-debug", clips.mp4(), debug=False) as program:
            program.wait_for_log(r"^Playing ")
            self.assertIn("-nonsense", (program.home / "stderr").read_text())


if __name__ == "__main__":
    unittest.main()
