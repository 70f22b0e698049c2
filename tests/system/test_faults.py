"""Streams of every transport side by side, whose servers fail at random: each picture is back soon, and nothing is used up."""

import concurrent.futures
import math
import os
import random
import signal
import subprocess
import time
import unittest

from support import process
from support.display import VirtualDisplay
from support.faulty_streams import (ASF, COLOURS, OTHERS, Hls, HttpTransportStream, MmsOverHttp, MmsOverTcp, RtspOverTcp,
                                    RtspOverUdp, film)
from support.picture import number_of, number_points
from support.program import Program

STREAMS = MmsOverHttp, MmsOverTcp, RtspOverTcp, RtspOverUdp, HttpTransportStream, Hls
SECONDS = int(os.environ.get("OMBRAVISION_TEST_SECONDS", 60))
PATIENCE = float(os.environ.get("OMBRAVISION_TEST_PATIENCE", 1))  # A factor, for builds that are slow by themselves.
SEED = os.environ.get("OMBRAVISION_TEST_SEED") or str(random.randrange(1 << 32))

COLUMNS, CELL = math.isqrt(len(STREAMS) - 1) + 1, (320, 180)
WIDTH, HEIGHT = CELL[0] * COLUMNS, CELL[1] * -(-len(STREAMS) // COLUMNS)
START = 15 * PATIENCE
BACK = 8 * PATIENCE  # Seconds after the end of a fault.
ANEW = 8 * PATIENCE  # More where other streams come: they are gathered before they are played.
CHANGES = "killed", "new header", "next film"
STILL = 4 * PATIENCE  # Seconds for which a picture that is back may stand still, where what came before and after it meet.
LASTING = 12  # Seconds of play, after which a player tries at once when it loses its stream.
STOP_EACH = 4  # Rounds, of which the player itself is stopped in one.

LINES = 20  # Of the log, in a second.
DESCRIPTORS, MEGABYTES = 8, 64  # More than after the second round.
CLOSING = 3 * PATIENCE


class Viewer:
    """Looks at each stream in its cell of the screen, from entering the context to leaving it."""

    def __init__(self, display, streams):
        self._display, self._streams, self.complaints = display, streams, []
        for index, stream in enumerate(streams):
            stream.corner = index % COLUMNS * CELL[0], index // COLUMNS * CELL[1]
            stream.number, stream.good = None, 0
            stream.ended, stream.due = time.monotonic(), time.monotonic() + START

    def __enter__(self):
        self._screen = subprocess.Popen(
            ["ffmpeg", "-nostdin", "-loglevel", "error", "-f", "x11grab", "-draw_mouse", "0", "-framerate", "5", "-video_size",
             f"{WIDTH}x{HEIGHT}", "-i", self._display.name, "-f", "rawvideo", "-pix_fmt", "rgb24", "-"], stdout=subprocess.PIPE)
        return self

    def __exit__(self, *_):
        self._screen.kill()
        self._screen.communicate()

    def look(self):
        """Notes when each stream was last seen to go on with the right film."""
        picture = self._screen.stdout.read(WIDTH * HEIGHT * 3)
        now = time.monotonic()
        for stream in self._streams:
            def pixel(x, y):
                return picture[(y * WIDTH + x) * 3:][:3]
            x, y = stream.corner
            row, columns = number_points((x, y, *CELL))
            number = number_of("".join("1" if sum(pixel(column, row)) > 3 * 127 else "0" for column in columns))
            patch = pixel(x + CELL[0] // 2, y + CELL[1] * 3 // 4)
            is_right = max(abs(a - b) for a, b in zip(patch, COLOURS[stream.film])) < 60
            still = now - stream.good
            if is_right and number not in (None, stream.number):
                if now > stream.due and still > STILL:
                    self.complain(f"{stream}: stood still for {still:.1f} s until {now - stream.ended:.1f} s after it")
                stream.good = now
            stream.number = number

    def complain(self, text):
        self.complaints.append(text)
        print("FAULT:", text, flush=True)

    def check(self):
        for stream in self._streams:
            if time.monotonic() - stream.good > STILL:
                self.complain(f"{stream}: not back")


class Faults(unittest.TestCase):
    def test_each_picture_is_back(self):
        print(f"OMBRAVISION_TEST_SEED={SEED}", flush=True)
        for index in range(len(COLOURS)):
            film(index, ASF), film(index, OTHERS)
        self.streams = [self.enterContext(kind()) for kind in STREAMS]
        for stream in self.streams:
            stream.chance, stream.planned = random.Random(f"{SEED} {type(stream).__name__}"), []
        display = self.enterContext(VirtualDisplay(WIDTH, HEIGHT))
        self.pool = self.enterContext(concurrent.futures.ThreadPoolExecutor(len(STREAMS)))
        addresses = [stream.proxy.address for stream in self.streams]
        with Program(display, "-fullscreen", *addresses, debug=False) as self.program, Viewer(display, self.streams) as self.viewer:
            try:
                self.run_rounds(random.Random(SEED))
                self.assertEqual(self.viewer.complaints, [])
            except BaseException:
                print(f"OMBRAVISION_TEST_SEED={SEED}; the end of the log:", *self.program.log_lines()[-60:], sep="\n", flush=True)
                raise
            began = time.monotonic()
            self.program.quit()
            self.assertLess(time.monotonic() - began, CLOSING)

    def run_rounds(self, chance):
        self.watch([self.pool.submit(self.started)])
        usage, end = [], time.monotonic() + SECONDS
        while time.monotonic() < end:
            began, lines = time.monotonic(), len(self.program.log_lines())
            if len(usage) % STOP_EACH == 1:
                self.watch([self.pool.submit(self.stop_program, chance)])
            else:
                self.watch([self.pool.submit(self.harm, stream) for stream in self.streams])
            rate = (len(self.program.log_lines()) - lines) / (time.monotonic() - began)
            usage.append((process.descriptors(self.program.pid), process.resident_kb(self.program.pid) >> 10))
            print(f"round {len(usage)}: {rate:.1f} log lines a second, %d descriptors, %d MiB" % usage[-1], flush=True)
            self.assertLess(rate, LINES)
        if len(usage) > 2:
            self.assertLessEqual(usage[-1][0], usage[1][0] + DESCRIPTORS)
            self.assertLessEqual(usage[-1][1], usage[1][1] + MEGABYTES * PATIENCE)

    def watch(self, faults):
        """Until the faults are over, and the time in which all must have been seen well for a while."""
        while faults or time.monotonic() < max(stream.due for stream in self.streams) + LASTING:
            for fault in [fault for fault in faults if fault.done()]:
                faults.remove(fault)
                fault.result()
            self.viewer.look()
            self.assertTrue(self.program.is_running(), "the program has gone")
        self.viewer.check()

    def started(self):
        end = time.monotonic() + START
        while time.monotonic() < end and not all(stream.good for stream in self.streams):
            time.sleep(0.1)
        for stream in self.streams:
            stream.due = time.monotonic()

    def harm(self, stream):
        time.sleep(stream.chance.uniform(0, 2))
        faults = stream.faults(stream.chance)
        stream.planned = stream.planned or stream.chance.sample(list(faults), len(faults))
        stream.fault, stream.due = stream.planned.pop(), float("inf")
        faults[stream.fault]()
        time.sleep(stream.chance.uniform(1, 5))
        stream.mend()
        self.ended([stream], BACK + (ANEW if stream.fault in CHANGES else 0))

    def stop_program(self, chance):
        for stream in self.streams:
            stream.fault, stream.due = "a stopped player", float("inf")
        os.kill(self.program.pid, signal.SIGSTOP)
        time.sleep(chance.uniform(1, 6))  # For as long the system keeps what comes by UDP.
        os.kill(self.program.pid, signal.SIGCONT)
        self.ended(self.streams, BACK)

    @staticmethod
    def ended(streams, patience):
        now = time.monotonic()
        for stream in streams:
            stream.ended, stream.due = now, now + patience
        while time.monotonic() < now + patience and any(stream.good <= now for stream in streams):
            time.sleep(0.1)
        print(*(f"  {stream}: back after {stream.good - now:.1f} s" for stream in streams), sep="\n", flush=True)


if __name__ == "__main__":
    unittest.main()
