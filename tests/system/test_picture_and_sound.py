"""What a viewer sees and hears of a film."""

import time
import unittest

from support import clips, wait_for
from support.clips import RATE
from support.display import VirtualDisplay
from support.live import check_picture, check_sound
from support.program import Program
from support.sound import Sound, WaveClock

PATHS = ("shader", "fragmentProgram", "software")
FINISHED = r"Movie finished: Looping"  # Local films begin again after half a second.


class PictureAndSound(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())

    def test_each_film_and_each_path(self):
        mp4 = clips.mp4(), 440
        for path, (clip, frequency) in (*((path, mp4) for path in PATHS), (PATHS[0], (clips.asf(), 660)),
                                        (PATHS[0], (clips.picture_only(), None))):
            with self.subTest(path=path, clip=clip.name), \
                    Program(self.display, clip, settings={r"application/video\colourConversion": path}) as program:
                check_picture(self, program, clip, 3)
                program.wait_for_log(FINISHED)
                program.quit()
                if frequency:
                    check_sound(self, program, frequency, 8, delta=0.15)

    def test_sound_without_pictures(self):
        with Program(self.display, clips.sound_only()) as program:
            program.wait_for_log(FINISHED)
            program.quit()
            check_sound(self, program, 880, 5, delta=0.15)

    def test_sound_whose_format_changes(self):
        for container in ("aac", "ts"):
            with self.subTest(container=container), Program(self.display, clips.changing_sound(container)) as program:
                program.wait_for_log(FINISHED)
                program.quit()
                sound = Sound.of_wave(program.wave)
                first, last = sound.span(clips.PAUSE)
                self.assertAlmostEqual(last - first, 2 * len(clips.CHANGES), delta=0.5)
                for i, (frequency, _, _) in enumerate(clips.CHANGES):
                    self.assertGreater(sound.strength(frequency, first + 2 * i + 0.5, 1), 1000, frequency)

    def test_a_seek_lands_where_it_was_told(self):
        with Program(self.display, clips.far_key_frames()) as program:
            rectangle = program.own_size_rectangle(640, 360)
            began = time.monotonic() - wait_for(lambda: self.display.screenshot(rectangle).number(), 20, "a picture") / RATE
            for key, seconds in (("Right", 10), ("Right", 10), ("Left", -10)):
                self.display.ask("xdotool", "windowactivate", "--sync", program.window, "key", "--clearmodifiers", key)
                began -= seconds
                wait_for(lambda: abs((self.display.screenshot(rectangle).number() or 0) / RATE + began - time.monotonic()) < 4,
                         20, f"another place {seconds} s away")
            program.quit()
            self.assertGreater(Sound.of_wave(program.wave).strength(440, 1, 0.5), 1000)

    def test_a_film_past_opengl_is_the_one_that_opengl_draws(self):
        clip = clips.mp4()
        for presentation in ("opengl", "shm"):
            with self.subTest(presentation), \
                    Program(self.display, clip, settings={r"application/video\presentation": presentation}) as program:
                check_picture(self, program, clip, 3)
                rectangle = program.own_size_rectangle(640, 360)
                self.display.minimise(program.window)
                wait_for(lambda: not self.display.is_shown(program.window), 20, "the window to go")
                self.display.ask("xdotool", "windowactivate", "--sync", program.window)
                wait_for(lambda: self.display.screenshot(rectangle).number() is not None, 20, "pictures again")

    def test_two_films_side_by_side_of_which_the_first_is_heard(self):
        with Program(self.display, clips.mp4(), clips.asf()) as program:
            program.wait_for_log(r"^Playing .*\.mp4")
            program.wait_for_log(r"^Playing .*\.asf")
            program.wait_for_log(FINISHED, count=2)
            program.quit()
            sound = Sound.of_wave(program.wave)
            first, _ = sound.span()
            self.assertGreater(sound.strength(440, first + 2, 1), 1000)
            self.assertLess(sound.strength(660, first + 2, 1), 10)

    def test_pictures_keep_time_with_the_sound(self):
        clip = clips.flash_and_beep()
        own_offset = Sound.of_clip(clip).onsets()[0] - 1.0
        with Program(self.display, clip) as program, WaveClock(program.wave) as clock:
            x, y, width, height = program.video_rectangle()
            with self.display.watch(y + height // 2, [x + width // 2], interval=0.002) as watch:
                program.wait_for_log(FINISHED)
            program.quit()
            flashes = [when for when, digits in watch.changes if digits == "1"]
            beeps = [clock.time_of(onset) for onset in Sound.of_wave(program.wave).onsets()]
        self.assertGreaterEqual(len(flashes), 7)
        for flash in flashes:
            beep = min(beeps, key=lambda when: abs(when - flash))
            self.assertAlmostEqual(beep - flash, own_offset, delta=0.04)


if __name__ == "__main__":
    unittest.main()
