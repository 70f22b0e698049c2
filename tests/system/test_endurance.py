"""Opening, playing and stopping over and over uses nothing up."""

import os
import statistics
import unittest

from support import clips, process
from support.display import VirtualDisplay
from support.program import Program

CYCLES = int(os.environ.get("OMBRAVISION_TEST_ROUNDS", 90))
WARM = 30  # Cycles after which caches are full.
SAMPLES = 20


class Endurance(unittest.TestCase):
    def test_cycles_leave_nothing_behind(self):
        clip = clips.mp4()
        with VirtualDisplay() as display, Program(display, settings={"logger/maximumFileSize": 100000000}) as program:
            usage = []
            for cycle in range(1, CYCLES + 1):
                # A film that is handed over takes the place of the one that plays.
                self.assertEqual(program.start_second(clip), 0)
                program.wait_for_log(r"^Playing ", count=cycle)
                usage.append((process.threads(program.pid), process.descriptors(program.pid),
                              process.resident_kb(program.pid)))

            def median(index, part):
                return statistics.median(sample[index] for sample in part)

            early, late = usage[WARM:WARM + SAMPLES], usage[-SAMPLES:]
            self.assertLessEqual(median(0, late), median(0, early) + 1, "threads")
            self.assertLessEqual(median(1, late), median(1, early) + 2, "descriptors")
            self.assertLess(median(2, late), median(2, early) * 1.05, "resident memory, kilobytes")


if __name__ == "__main__":
    unittest.main()
