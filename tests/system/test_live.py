"""Live television over MMS in the whole program: from our own servers, which others judge, and from a foreign one."""

import time
import unittest

from support import clips, wait_for
from support.display import VirtualDisplay
from support.foreign_servers import VlcMmsServer
from support.live import CLIP_SECONDS, check_picture, check_stream, number_on_screen
from support.localservices import LocalServices
from support.program import Program

FREQUENCY = 660
RATE = "2M"  # What the film has indeed: players wait for five seconds of what it says.
PLAYING = r"Progress changed: Playing\.\.\."


class Live(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())
        cls.clip = clips.asf(CLIP_SECONDS, FREQUENCY, RATE)

    def mms(self, services, kind):
        """The address as a viewer types it. The program finds out by itself which of the two it is."""
        return services.address(kind, "/live").replace(kind, "mms")

    def test_over_http_and_tcp_and_from_a_playlist(self):
        with LocalServices("--stream", f"/live={self.clip}") as services:
            for address in (self.mms(services, "mmsh"), self.mms(services, "mmst"), services.address("http", "/live.asx")):
                with self.subTest(address):
                    check_stream(self, self.display, address, self.clip, FREQUENCY)

    def test_a_foreign_server(self):
        with VlcMmsServer(self.clip) as server:
            check_stream(self, self.display, server.address, self.clip, FREQUENCY)

    def test_a_server_that_is_killed_and_comes_back(self):
        with LocalServices("--stream", f"/live={self.clip}", "--biscotti-port", 0) as services, \
                Program(self.display, self.mms(services, "mmsh"),
                        settings={r"application/biscotti\port": services.ports["biscotti"]}) as program:
            program.wait_for_log(r"Link to Biscotti established", 30)
            program.wait_for_log(PLAYING, 30)
            wait_for(lambda: number_on_screen(program) is not None, 20, "the first picture")
            services.kill()
            program.wait_for_log(r"Reconnecting\.\.\.", 40)
            last = wait_for(lambda: self.last_picture(program), 60, "the end of what was buffered, in a picture that stays")
            services.start()
            began = time.monotonic()
            wait_for(lambda: number_on_screen(program) not in (last, None), 40, "pictures that move again")
            print(f"moves {time.monotonic() - began:.1f} s after the return", flush=True)
            check_picture(self, program, self.clip, 3)  # Without words over it.
            program.quit()
            for farewell in "(stop)", "(log)":
                self.assertIn(farewell, services.log())

    def last_picture(self, program):
        """Its number, if it stays for two seconds and no bar is over it."""
        first = number_on_screen(program)
        time.sleep(2)
        return first if first == number_on_screen(program) else None


if __name__ == "__main__":
    unittest.main()
