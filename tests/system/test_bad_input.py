"""Whatever cannot be played is said in words, and the next film plays."""

import pathlib
import socket
import tempfile
import unittest

from support import clips, wait_for
from support.display import VirtualDisplay
from support.program import Program

WORDS = 60  # Pixels that differ from the empty surface: fewer are no words.


class BadInput(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())
        cls.directory = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))

    def file(self, name, content):
        path = self.directory / name
        path.write_bytes(content)
        return path

    def silent_server(self):
        """An address that takes connections and never says a word."""
        server = socket.create_server(("127.0.0.1", 0))
        self.addCleanup(server.close)
        return f"http://127.0.0.1:{server.getsockname()[1]}/film.mp4"

    def check(self, bad, seconds=20):
        """The program says something of `bad`, on the screen and in its log, and then plays another film."""
        with Program(self.display) as program:
            area = self.display.geometry(program.window)
            empty = self.display.screenshot(area)
            self.assertEqual(program.start_second("--", bad), 0)
            wait_for(lambda: self.display.screenshot(area).pixels_unlike(empty) > WORDS, seconds, "words on the screen")
            wait_for(lambda: any(line.level in ("WARNING", "ERROR") for line in program.log_lines()), 5, "words in the log")
            self.assertEqual(program.start_second(clips.mp4()), 0)
            wait_for(lambda: self.display.screenshot(program.video_rectangle()).number() is not None, 20, "the next film")

    def test_files(self):
        bad = {
            "missing": self.directory / "missing.mp4",
            "empty": self.file("empty.mp4", b""),
            "text": self.file("text.mp4", b"This is no film.\n" * 100),
            "directory": self.directory,
            "without its index": clips.beheaded(),
            "unknown codecs": clips.unknown_codecs(),
        }
        for name, path in bad.items():
            with self.subTest(name):
                self.check(path)

    def test_nobody_at_the_address(self):
        with socket.create_server(("127.0.0.1", 0)) as unused:
            port = unused.getsockname()[1]
        self.check(f"http://127.0.0.1:{port}/film.mp4")

    def test_a_stream_that_goes_silent(self):
        self.check(self.silent_server(), seconds=70)

    def test_what_can_be_played_is_played(self):
        for clip in (clips.truncated(), clips.unknown_video()):
            with self.subTest(clip.name), Program(self.display, clip) as program:
                program.wait_for_log(r"^Playing ")
                program.wait_for_log(r"Movie finished")
                self.assertEqual(program.start_second(clips.mp4()), 0)
                program.wait_for_log(r"^Playing ", count=2)


if __name__ == "__main__":
    unittest.main()
