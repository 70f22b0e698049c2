"""Starts of the program: switches, a second instance, output."""

import os
import pathlib
import unittest

from support import clips, wait_for
from support.display import VirtualDisplay
from support.program import Program


class Instances(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())

    def test_a_second_start_raises_the_first_window_and_ends(self):
        with Program(self.display, "-demo") as program:
            for hide in (self.display.minimise, self.display.close):
                hide(program.window)
                wait_for(lambda: not self.display.is_shown(program.window), 20, "the window to go away")
                self.assertEqual(program.start_second(), 0)
                wait_for(lambda: self.display.is_shown(program.window)
                         and self.display.active_window() == program.window, 20, f"the window after {hide.__name__}")
            self.assertFalse(program.logged(r"^Playing "))

    def test_a_second_start_hands_its_files_over(self):
        clip = clips.mp4()
        with Program(self.display, "-demo") as program:
            self.assertEqual(program.start_second(clip), 0)
            program.wait_for_log(r"^Playing .*" + clip.name)
            self.assertIsNotNone(program.video_rectangle())

    def test_debug_lines_of_the_named_classes_only(self):
        with Program(self.display, "-debug=Foo,,GLMovie", "--", clips.mp4(), debug=False) as program:
            program.wait_for_log(r"^Playing ")
            self.assertEqual(os.readlink(f"/proc/{program.pid}/fd/1"), str(program.home / "stdout"))

            def files_of_debug_lines():
                found = {pathlib.PurePath(line.file) for line in program.log_lines() if line.level == "debug"}
                return found if len(found) > 1 else None

            files = wait_for(files_of_debug_lines, 20, "lines of several files of the class")
            self.assertEqual({file for file in files if "GLMovie" not in (file.stem, file.parent.name)}, set())

    def test_nothing_is_written_to_the_terminal_without_debug(self):
        with Program(self.display, clips.mp4(), debug=False) as program:
            program.wait_for_log(r"^Playing ")
            targets = [os.readlink(f"/proc/{program.pid}/fd/{number}") for number in (1, 2)]
            self.assertEqual(targets, ["/dev/null", "/dev/null"], "kept from being given to a file or a socket")
            program.quit()
            self.assertEqual((program.home / "stdout").read_bytes() + (program.home / "stderr").read_bytes(), b"")


if __name__ == "__main__":
    unittest.main()
