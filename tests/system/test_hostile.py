"""Streams from servers that do what no server should: the program neither hammers them, nor lets itself be hammered."""

import os
import signal
import socket
import time
import unittest

from support import clips, wait_for
from support.display import VirtualDisplay
from support.hostile_servers import (RTSP, ChunkFlood, ClosesAfterPackets, FasterThanRealTime, Film, PingFlood,
                                     RedirectsToItself, SilentOverHttp)
from support.live import number_on_screen
from support.localservices import LocalServices
from support.program import Program

SECONDS = 8
PLAYING = r"Progress changed: Playing\.\.\."


class Hostile(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())
        cls.clip = clips.asf(60, 660, "1M")
        cls.film = Film(cls.clip)

    def close(self, program):
        """Ends the program, which used to wait for what it was sent; how fast it does otherwise is for a quiet machine."""
        began = time.monotonic()
        program.quit()
        self.assertLess(time.monotonic() - began, 8)

    def moves(self, program):
        last = number_on_screen(program)
        return wait_for(lambda: number_on_screen(program) not in (last, None), 20, "pictures that move")

    def test_servers_that_send_us_away_are_not_hammered(self):
        for server in ClosesAfterPackets(self.film, 1), ClosesAfterPackets(self.film, 30), RedirectsToItself(RTSP):
            began = time.monotonic()
            with self.subTest(type(server).__name__), server, Program(self.display, server.address) as program:
                time.sleep(SECONDS)
                requests, seconds = server.requests, time.monotonic() - began
                print(f"{requests} requests, {len(program.log_lines())} log lines in {seconds:.1f} s", flush=True)
                self.assertLess(requests, 3 * seconds)
                self.close(program)

    def test_floods_wait_in_the_server_and_are_left(self):
        for server in PingFlood(), ChunkFlood(self.film):
            with self.subTest(type(server).__name__), server, Program(self.display, server.address) as program:
                time.sleep(5)
                print(f"{server.sent >> 20} MiB sent, {server.requests} requests", flush=True)
                self.assertLess(server.sent / max(1, server.requests), 16 << 20)
                self.close(program)

    def test_a_server_that_is_too_fast_waits_and_hears_the_end(self):
        with FasterThanRealTime(self.film) as server, Program(self.display, server.address) as program:
            program.wait_for_log(PLAYING, 30)
            time.sleep(15)
            self.moves(program)
            self.assertLess(server.sent, 64 << 20)
            self.close(program)
            wait_for(lambda: server.heard == ["stop", "log"], 20, "the last words")

    def test_a_silent_port_of_http_costs_a_second(self):
        with LocalServices("--stream", f"/live={self.clip}") as services, \
                SilentOverHttp(services.ports["mms-tcp"]) as server, Program(self.display, server.address) as program:
            began = time.monotonic()
            program.wait_for_log(r"New media descriptor", 20)
            print(f"the header came after {time.monotonic() - began:.1f} s", flush=True)
            self.assertLess(time.monotonic() - began, 8)  # The next attempt would be after ten.

    def test_a_sound_server_that_never_answers_keeps_nobody_from_the_picture(self):
        with socket.create_server(("127.0.0.1", 0)) as server:  # The kernel takes the call.
            address = f"tcp:127.0.0.1:{server.getsockname()[1]}"
            with Program(self.display, self.clip, driver="pulse", environment={"PULSE_SERVER": address}) as program:
                self.moves(program)
                self.close(program)

    def test_a_frozen_program_finds_back_to_what_is_live(self):
        with LocalServices("--stream", f"/live={clips.asf(60, 660, '4M')}") as services, \
                Program(self.display, services.address("mmsh", "/live").replace("mmsh", "mms")) as program:
            program.wait_for_log(PLAYING, 30)
            wait_for(lambda: number_on_screen(program) is not None, 20, "the first picture")
            os.kill(program.pid, signal.SIGSTOP)
            time.sleep(12)
            os.kill(program.pid, signal.SIGCONT)
            self.moves(program)
            time.sleep(5)
            self.moves(program)


if __name__ == "__main__":
    unittest.main()
