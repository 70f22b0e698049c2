"""Our stream servers, judged by a player that nobody here wrote: FFmpeg."""

import concurrent.futures
import json
import pathlib
import subprocess
import tempfile
import unittest
import urllib.request

from support import clips
from support.localservices import LocalServices

SECONDS = 14


def run(*command, seconds):
    """The finished process, after so many seconds at the latest."""
    return subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          timeout=seconds)


def streams_of(source):
    """What goes wrong in words, and the codec of each kind of stream in a file or at an address."""
    result = run("ffprobe", "-v", "error", "-show_entries", "stream=codec_type,codec_name", "-of", "json", source, seconds=60)
    return result.stderr, {s["codec_type"]: s["codec_name"] for s in json.loads(result.stdout or "{}").get("streams", [])}


class StreamServers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.directory = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.services = cls.enterClassContext(LocalServices("--stream", f"/short={clips.asf(8)}"))

    def test_ffmpeg_receives_a_film_that_begins_anew_as_one_stream(self):
        def check(scheme):
            path = self.directory / f"{scheme}-short.asf"
            for command in (["-i", self.services.address(scheme, "/short"), "-t", SECONDS, "-c", "copy", path],
                            ["-i", path, "-f", "null", "-"]):
                result = run("ffmpeg", "-nostdin", "-v", "error", *command, seconds=120)
                self.assertEqual((result.returncode, result.stderr), (0, ""))
            self.assertEqual(streams_of(path), ("", {"video": "wmv2", "audio": "wmav2"}))
            times = run("ffprobe", "-v", "error", "-select_streams", "v", "-show_entries", "packet=pts_time",
                        "-of", "csv=p=0", path, seconds=60).stdout.replace(",", "").split()
            steps = [float(b) - float(a) for a, b in zip(times, times[1:])]
            self.assertGreater(len(steps), clips.RATE * (SECONDS - 4))
            self.assertGreater(min(steps), 0)
            self.assertLess(max(steps), 0.2)
        with concurrent.futures.ThreadPoolExecutor() as pool:
            for scheme, future in [(scheme, pool.submit(check, scheme)) for scheme in ("mmsh", "mmst")]:
                with self.subTest(scheme):
                    future.result()

    def test_documents_and_faults(self):
        with urllib.request.urlopen(self.services.address("http", "/short.asx"), timeout=60) as answer:
            self.assertEqual(answer.headers["Content-Type"], "video/x-ms-asf")
            self.assertIn(self.services.address("mmst", "/short").replace("mmst", "mms"), answer.read().decode())
        self.assertEqual(self.services.control("fault /short 404 on describe times 1")[-1], "OK")
        errors, _ = streams_of(self.services.address("mmsh", "/short"))
        self.assertIn("404", errors)
        self.assertEqual(self.services.control("fault /short 0x80070005 on open times 1")[-1], "OK")
        errors, _ = streams_of(self.services.address("mmst", "/short"))
        self.assertIn("80070005", errors)
        self.assertEqual(streams_of(self.services.address("mmst", "/short"))[0], "")


if __name__ == "__main__":
    unittest.main()
