"""Our stream servers, judged by players that nobody here wrote: FFmpeg and VLC."""

import concurrent.futures
import json
import os
import pathlib
import subprocess
import tempfile
import unittest
import urllib.request

from support import clips
from support.localservices import LocalServices

SECONDS = 10
SCHEMES = ("mmsh", "mmst")


def run(*command, seconds, **options):
    """The finished process, after so many seconds at the latest."""
    return subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          timeout=seconds, **options)


def streams_of(source):
    """Kind, codec and packets of each stream in a file, or, without packets, at an address."""
    count = ["-count_packets"] if isinstance(source, pathlib.Path) else []
    result = run("ffprobe", "-v", "error", *count, "-show_entries", "stream=codec_type,codec_name,nb_read_packets",
                 "-of", "json", source, seconds=20)
    return result.stderr, {s["codec_type"]: s for s in json.loads(result.stdout or "{}").get("streams", [])}


class StreamServers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.directory = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.directory.chmod(0o777)  # VLC writes as another user.
        cls.services = cls.enterClassContext(LocalServices(
            "--stream", f"/live={clips.asf(60)}", "--stream", f"/short={clips.asf(8)}"))

    def check_all(self, check):
        """Runs the check for both protocols side by side."""
        with concurrent.futures.ThreadPoolExecutor() as pool:
            for scheme, future in [(scheme, pool.submit(check, scheme)) for scheme in SCHEMES]:
                with self.subTest(scheme):
                    future.result()

    def check_file(self, path, seconds):
        """Whether a film of so many seconds is in the file, and decodes without a word."""
        errors, streams = streams_of(path)
        self.assertEqual(errors, "")
        self.assertEqual({kind: s["codec_name"] for kind, s in streams.items()}, {"video": "wmv2", "audio": "wmav2"})
        self.assertGreaterEqual(int(streams["video"]["nb_read_packets"]), clips.RATE * seconds)
        decoded = run("ffmpeg", "-nostdin", "-v", "error", "-i", path, "-f", "null", "-", seconds=30)
        self.assertEqual((decoded.returncode, decoded.stderr), (0, ""))

    def test_ffmpeg_decodes_without_a_word(self):
        def check(scheme):
            result = run("ffmpeg", "-nostdin", "-v", "error", "-i", self.services.address(scheme, "/live"),
                         "-t", SECONDS, "-f", "null", "-", seconds=30)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.check_all(check)

    def test_a_film_that_begins_anew_stays_one_stream(self):
        def check(scheme):
            path = self.directory / f"{scheme}-short.asf"
            result = run("ffmpeg", "-nostdin", "-v", "error", "-i", self.services.address(scheme, "/short"),
                         "-t", SECONDS + 4, "-c", "copy", path, seconds=40)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            times = run("ffprobe", "-v", "error", "-select_streams", "v", "-show_entries", "packet=pts_time",
                        "-of", "csv=p=0", path, seconds=20).stdout.replace(",", "").split()
            steps = [float(b) - float(a) for a, b in zip(times, times[1:])]
            self.assertGreater(len(steps), clips.RATE * SECONDS)
            self.assertGreater(min(steps), 0)
            self.assertLess(max(steps), 0.2)
        self.check_all(check)

    def test_vlc_receives_a_stream_that_decodes(self):
        home = self.directory / "home"
        home.mkdir(mode=0o777)
        home.chmod(0o777)
        user = ["setpriv", "--reuid=65534", "--clear-groups"] if os.geteuid() == 0 else []

        def check(scheme):
            # What its access module hands to its demuxer, as it is: its own ASF muxer cuts frames off.
            path = self.directory / f"{scheme}-vlc.asf"
            result = run("timeout", "-k", 5, "-s", "INT", SECONDS - 1, *user, "env", f"HOME={home}", "cvlc", "-q",
                         self.services.address(scheme, "/live"), "--demux=dump", f"--demuxdump-file={path}",
                         "vlc://quit", seconds=30)
            self.assertTrue(path.exists(), result.stderr)
            whole = path.read_bytes()
            self.check_file(path, SECONDS - 1)
            self.assertGreater(len(whole), 1 << 20)
        self.check_all(check)

    def test_documents_and_faults(self):
        with urllib.request.urlopen(self.services.address("http", "/live.asx"), timeout=10) as answer:
            self.assertEqual(answer.headers["Content-Type"], "video/x-ms-asf")
            self.assertIn(self.services.address("mmst", "/live").replace("mmst", "mms"), answer.read().decode())
        self.assertEqual(self.services.control("fault /short 404 on describe times 1")[-1], "OK")
        errors, _ = streams_of(self.services.address("mmsh", "/short"))
        self.assertIn("404", errors)
        self.assertEqual(self.services.control("fault /short 0x80070005 on open times 1")[-1], "OK")
        errors, _ = streams_of(self.services.address("mmst", "/short"))
        self.assertIn("80070005", errors)
        self.assertEqual(streams_of(self.services.address("mmst", "/short"))[0], "")


if __name__ == "__main__":
    unittest.main()
