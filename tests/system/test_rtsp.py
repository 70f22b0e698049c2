"""Live television over RTSP, from servers that nobody here has written."""

import time
import unittest

from support import clips, wait_for
from support.display import VirtualDisplay
from support.foreign_servers import TCP, GStreamerServer, VlcRtspServer
from support.live import CLIP_SECONDS, SECONDS, check_picture, check_sound
from support.program import Program

FREQUENCY = 440


class Rtsp(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())
        cls.clip = clips.mp4(seconds=CLIP_SECONDS, frequency=FREQUENCY)

    def number_on_screen(self, program):
        return self.display.screenshot(program.own_size_rectangle(640, 360)).number()

    def check(self, server):
        with Program(self.display, server.address) as program:
            began = time.monotonic()
            program.wait_for_log(r"^Playing rtsp://", 30)
            print(f"plays {time.monotonic() - began:.1f} s after the window came", flush=True)
            check_picture(self, program, self.clip, SECONDS)
            program.quit()
            check_sound(self, program, FREQUENCY, SECONDS)

    def test_udp(self):
        with GStreamerServer(self.clip) as server:
            self.check(server)

    def test_tcp_only(self):
        with GStreamerServer(self.clip, transports=(TCP,)) as server:
            self.check(server)

    def test_udp_only(self):
        with VlcRtspServer(self.clip) as server:
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
