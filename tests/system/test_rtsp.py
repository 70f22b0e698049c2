"""Live television over RTSP, from servers that nobody here has written."""

import unittest

from support import clips
from support.display import VirtualDisplay
from support.foreign_servers import TCP, GStreamerServer, VlcRtspServer
from support.live import CLIP_SECONDS, check_stream
from support.program import Program

FREQUENCY = 440


class Rtsp(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())
        cls.clip = clips.mp4(seconds=CLIP_SECONDS, frequency=FREQUENCY)

    def check(self, server):
        check_stream(self, self.display, server.address, self.clip, FREQUENCY)

    def test_udp(self):
        with GStreamerServer(self.clip) as server:
            self.check(server)

    def test_tcp_only(self):
        with GStreamerServer(self.clip, transports=(TCP,)) as server:
            self.check(server)

    def test_udp_only(self):
        with VlcRtspServer(self.clip) as server:
            self.check(server)

    def test_a_password(self):
        with GStreamerServer(self.clip, user="me", password="s3cret") as server:
            for password, expected in (("wrong9", r"Authentication required"), ("s3cret", r"^Playing rtsp://")):
                address = server.address.replace("//", f"//me:{password}@")
                with Program(self.display, address) as program:
                    program.wait_for_log(expected, 30)
                    self.assertEqual(program.logged(password), [])


if __name__ == "__main__":
    unittest.main()
