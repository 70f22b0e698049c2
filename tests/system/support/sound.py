"""Sound as it was heard: samples of a WAV file, tones and beeps in them."""

import array
import math
import os
import struct
import subprocess
import threading
import time


class Sound:
    """Mono samples, -32768 to 32767."""

    def __init__(self, rate, samples):
        self.rate, self.samples = rate, samples

    @staticmethod
    def of_wave(path):
        """A WAV file of 16 bit samples, whose lengths may not have been filled in yet; channels are averaged."""
        with open(path, "rb") as file:
            data = file.read()
        position, channels, rate = 12, 1, 0
        while data[position:position + 4] != b"data":
            name, size = struct.unpack_from("<4sI", data, position)
            if name == b"fmt ":
                channels, rate = struct.unpack_from("<HI", data, position + 10)
            position += 8 + size
        body = data[position + 8:]
        samples = array.array("h", body[:len(body) // (2 * channels) * (2 * channels)])
        if channels == 2:
            samples = array.array("h", ((a + b) // 2 for a, b in zip(samples[::2], samples[1::2])))
        return Sound(rate, samples)

    @staticmethod
    def end_of_wave(path, seconds, rate=44100):
        """The last so many seconds of a file that the program's own driver is writing: its left channel."""
        data = path.read_bytes()[WaveClock.HEADER:] if path.exists() else b""
        return Sound(rate, array.array("h", data[:len(data) // 4 * 4])[::2][-int(seconds * rate):])

    @staticmethod
    def of_clip(path, rate=44100):
        """What FFmpeg decodes."""
        result = subprocess.run(
            ["ffmpeg", "-nostdin", "-loglevel", "error", "-i", path, "-vn", "-ac", "1", "-ar", str(rate), "-f", "s16le", "-"],
            stdin=subprocess.DEVNULL, capture_output=True, check=True)
        return Sound(rate, array.array("h", result.stdout))

    def onsets(self, threshold=2000, silence=0.1):
        """When sound begins after so many seconds of silence, in seconds."""
        times, last = [], -math.inf
        gap = silence * self.rate
        for i, sample in enumerate(self.samples):
            if abs(sample) > threshold:
                if i - last > gap:
                    times.append(i / self.rate)
                last = i
        return times

    def span(self, silence=math.inf, threshold=100):
        """From the first sample that is heard to the last one before so many seconds of silence, in seconds."""
        heard = [i for i, sample in enumerate(self.samples) if abs(sample) > threshold] or [0]
        last = next((a for a, b in zip(heard, heard[1:]) if b - a > silence * self.rate), heard[-1])
        return heard[0] / self.rate, last / self.rate

    def strength(self, frequency, start, seconds):
        """Amplitude of a tone within a part of the sound, by Goertzel's algorithm."""
        part = self.samples[int(start * self.rate):int((start + seconds) * self.rate)]
        coefficient = 2 * math.cos(2 * math.pi * frequency / self.rate)
        before, last = 0.0, 0.0
        for sample in part:
            before, last = last, sample + coefficient * last - before
        power = before * before + last * last - coefficient * before * last
        return 2 * math.sqrt(max(power, 0.0)) / max(len(part), 1)

    def pitch(self, near, start, seconds=1.0):
        """The strongest frequency within 10 % of the one given, in hertz, to a part in 200."""
        return max((near * (1 + step / 200) for step in range(-20, 21)),
                   key=lambda frequency: self.strength(frequency, start, seconds))


class WaveClock:
    """Tells when each sample of a WAV file that is being written was due, from entering the context to leaving it.

    The writer takes its samples from the mixer at the pace of the clock and never early, so the earliest time at which
    the file was seen to have some length tells when it began.
    """

    HEADER = 68  # Bytes, as OpenAL Soft writes it.

    def __init__(self, path, rate=44100, frame_bytes=4):
        self._path, self._bytes_per_second = path, rate * frame_bytes
        self._stop = threading.Event()
        self.start = math.inf

    def __enter__(self):
        self._thread = threading.Thread(target=self._watch)
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._stop.set()
        self._thread.join()

    def _watch(self):
        size = 0
        while not self._stop.wait(0.001):
            try:
                now, new = time.monotonic(), os.stat(self._path).st_size
            except FileNotFoundError:
                continue
            if new > size:
                size = new
                self.start = min(self.start, now - (size - self.HEADER) / self._bytes_per_second)

    def time_of(self, seconds):
        """The monotonic time at which that second of the file was due."""
        return self.start + seconds
