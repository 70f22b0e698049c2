"""Whatever cannot be played is said in words, and the next film plays."""

import socket
import unittest

from support import clips, wait_for
from support.display import VirtualDisplay
from support.program import Program

WORDS = 60  # Pixels that differ from the empty surface: fewer are no words.


class BadInput(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())

    def check(self, bad):
        """The program says something of `bad`, on the screen and in its log, and then plays another film."""
        with Program(self.display, "-demo") as program:
            area = self.display.geometry(program.window)
            empty = self.display.screenshot(area)
            self.assertEqual(program.start_second("--", bad), 0)
            wait_for(lambda: self.display.screenshot(area).pixels_unlike(empty) > WORDS, 20, "words on the screen")
            wait_for(lambda: any(line.level in ("WARNING", "ERROR") for line in program.log_lines()), 20, "words in the log")
            self.assertEqual(program.start_second(clips.mp4()), 0)
            wait_for(lambda: self.display.screenshot(program.video_rectangle()).number() is not None, 20, "the next film")

    def test_what_cannot_be_played_is_told(self):
        with socket.create_server(("127.0.0.1", 0)) as unused:
            port = unused.getsockname()[1]
        for address in "/nowhere/missing.mp4", clips.unknown_codecs(), f"http://127.0.0.1:{port}/film.mp4":
            with self.subTest(address):
                self.check(address)

    def test_what_can_be_played_is_played(self):
        for clip in (clips.truncated(), clips.unknown_video()):
            with self.subTest(clip.name), Program(self.display, clip) as program:
                program.wait_for_log(r"^Playing ")
                program.wait_for_log(r"Movie finished")
                self.assertEqual(program.start_second(clips.mp4()), 0)
                program.wait_for_log(r"^Playing ", count=2)


if __name__ == "__main__":
    unittest.main()
