"""Live television over RTSP, from servers that nobody here has written."""

import time
import unittest

from support import clips, wait_for
from support.clips import RATE
from support.display import VirtualDisplay
from support.picture import frame_of
from support.program import Program
from support.rtsp_servers import TCP, GStreamerServer, VlcServer
from support.sound import Sound

MINIMUM_PSNR = 30
SECONDS = 8
FREQUENCY = 440


class Rtsp(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())
        cls.clip = clips.mp4(seconds=40, frequency=FREQUENCY)

    def number_on_screen(self, program):
        return self.display.screenshot(program.own_size_rectangle(640, 360)).number()

    def check_picture(self, program, seconds):
        """Each screenshot shows a frame as FFmpeg decodes it, and time goes on between them as it should."""
        rectangle = program.own_size_rectangle(640, 360)
        wait_for(lambda: self.display.screenshot(rectangle).number() is not None, 10, "the first picture")
        time.sleep(1)  # It has faded in.
        end = time.monotonic() + seconds
        previous = None
        while time.monotonic() < end:
            shown = self.display.screenshot(rectangle)
            now = time.monotonic()
            number = shown.number()
            self.assertIsNotNone(number, "no frame number on the screen")
            self.assertGreaterEqual(shown.psnr(frame_of(self.clip, number, 640, 360)), MINIMUM_PSNR, f"frame {number}")
            if previous:
                self.assertAlmostEqual((number - previous[0]) / RATE, now - previous[1], delta=0.3)
            previous = number, now
            time.sleep(1)

    def check_sound(self, program, seconds):
        sound = Sound.of_wave(program.wave)
        first, last = sound.span()
        self.assertGreater(last - first, seconds)
        for start in (first + 0.5, (first + last) / 2, last - 1.5):
            self.assertAlmostEqual(sound.pitch(FREQUENCY, start), FREQUENCY, delta=FREQUENCY / 150)

    def check(self, server):
        with Program(self.display, server.address) as program:
            began = time.monotonic()
            program.wait_for_log(r"^Playing rtsp://", 30)
            print(f"plays {time.monotonic() - began:.1f} s after the window came", flush=True)
            self.check_picture(program, SECONDS)
            program.quit()
            self.check_sound(program, SECONDS)

    def test_udp(self):
        with GStreamerServer(self.clip) as server:
            self.check(server)

    def test_tcp_only(self):
        with GStreamerServer(self.clip, transports=(TCP,)) as server:
            self.check(server)

    def test_udp_only(self):
        with VlcServer(self.clip) as server:
            self.check(server)

    def test_a_server_that_goes_and_comes_back(self):
        with GStreamerServer(self.clip) as server, Program(self.display, server.address) as program:
            program.wait_for_log(r"^Playing rtsp://", 30)
            wait_for(lambda: self.number_on_screen(program) is not None, 10, "the first picture")
            server.stop()
            program.wait_for_log(r"Reconnecting\.\.\.", 30)
            server.start()
            program.wait_for_log(r"Progress changed: Playing\.\.\.", 30, count=2)
            before = self.number_on_screen(program)
            wait_for(lambda: self.number_on_screen(program) not in (before, None), 10, "pictures that move again")

    def test_a_password(self):
        with GStreamerServer(self.clip, user="me", password="s3cret") as server:
            for password, expected in (("wrong9", r"Authentication required"), ("s3cret", r"^Playing rtsp://")):
                address = server.address.replace("//", f"//me:{password}@")
                with Program(self.display, address) as program:
                    program.wait_for_log(expected, 30)
                    self.assertEqual(program.logged(password), [])


if __name__ == "__main__":
    unittest.main()
