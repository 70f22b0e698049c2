"""What a viewer should see and hear of a film or a stream."""

import math
import os
import time

from . import wait_for
from .clips import PAUSE, RATE
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

    def look():
        """A frame's number, how like the clip's it is, and the times between which it was seen."""
        begin = time.monotonic()
        shown = program.display.screenshot(rectangle)
        end = time.monotonic()
        numbers = range(CLIP_SECONDS * RATE)[shown.number()::1 << BITS] if shown.number() is not None else ()
        return shown.number(), max((shown.psnr(frame_of(clip, n, *SIZE)) for n in numbers), default=0), begin, end

    wait_for(lambda: look()[1] >= MINIMUM_PSNR, 20, "a picture that has faded in")
    until = time.monotonic() + seconds
    previous = None
    while time.monotonic() < until:
        number, likeness, begin, end = look()
        test.assertGreaterEqual(likeness, MINIMUM_PSNR, f"frame {number}")
        if previous and number > previous[0]:  # A film may begin again.
            passed = (number - previous[0]) / RATE
            test.assertGreater(passed, begin - previous[2] - 0.3)
            test.assertLess(passed, end - previous[1] + 0.3)
        previous = number, begin, end
        time.sleep(1)


def check_sound(test, program, frequency, seconds, delta=None):
    """For a program that has ended: a tone of that frequency has sounded for so long, or longer unless a `delta` is given."""
    sound = Sound.of_wave(program.wave)
    first, last = sound.span(math.inf if delta is None else PAUSE)
    test.assertGreater(last - first, seconds - 2 * (delta or 0))  # The fade may begin late, from silence.
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
