"""What a viewer should see and hear of a film or a stream."""

import math
import os
import time

from . import wait_for
from .clips import RATE
from .picture import BITS, frame_of
from .program import Program
from .sound import Sound

MINIMUM_PSNR = 30
SIZE = 640, 360
SECONDS = int(os.environ.get("OMBRAVISION_TEST_SECONDS", 5))  # How long each stream is watched.
CLIP_SECONDS = SECONDS + 35


def check_picture(test, program, clip, seconds):
    """Each screenshot shows a frame of the clip as FFmpeg decodes it, and time goes on between them as it should."""
    rectangle = program.own_size_rectangle(*SIZE)
    wait_for(lambda: program.display.screenshot(rectangle).number() is not None, 10, "the first picture")
    time.sleep(1)  # It has faded in.
    end = time.monotonic() + seconds
    previous = None
    while time.monotonic() < end:
        shown = program.display.screenshot(rectangle)
        now = time.monotonic()
        number = shown.number()
        test.assertIsNotNone(number, "no frame number on the screen")
        likeness = max(shown.psnr(frame_of(clip, n, *SIZE)) for n in range(number, CLIP_SECONDS * RATE, 1 << BITS))
        test.assertGreaterEqual(likeness, MINIMUM_PSNR, f"frame {number}")
        if previous and number > previous[0]:  # A film may begin again.
            test.assertAlmostEqual((number - previous[0]) / RATE, now - previous[1], delta=0.3)
        previous = number, now
        time.sleep(1)


def check_sound(test, program, frequency, seconds, delta=None):
    """For a program that has ended: a tone of that frequency has sounded for so long, or longer unless a `delta` is given."""
    sound = Sound.of_wave(program.wave)
    first, last = sound.span()
    test.assertGreater(last - first, seconds - (delta or 0))
    test.assertLess(last - first, seconds + (delta or math.inf))
    for start in (first + 0.5, (first + last) / 2, last - 1.5):
        test.assertAlmostEqual(sound.pitch(frequency, start), frequency, delta=frequency / 150)


def check_stream(test, display, address, clip, frequency):
    """Plays the address, watches and listens for a while, and ends the program."""
    with Program(display, address) as program:
        began = time.monotonic()
        program.wait_for_log(r"^Playing \w+://", 30)
        print(f"plays {time.monotonic() - began:.1f} s after the window came", flush=True)
        check_picture(test, program, clip, SECONDS)
        program.quit()
        check_sound(test, program, frequency, SECONDS)


def number_on_screen(program):
    """The number of the frame that is shown, or None."""
    return program.display.screenshot(program.own_size_rectangle(*SIZE)).number()
