#!/usr/bin/env python3
"""Compares what playing a clip costs: this program, ffplay, mpv, and mere decoding. See benchmarks/README.md."""

import argparse
import dataclasses
import json
import os
import pathlib
import re
import signal
import statistics
import subprocess
import sys
import time
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/system"))

from support import clips, process, wait_for  # noqa: E402
from support.display import VirtualDisplay  # noqa: E402
from support.picture import number_of, number_points  # noqa: E402
from support.program import Program  # noqa: E402

SCREEN = (2200, 1400)
PATIENCE = 30  # Seconds that a player may take beyond the clip's length.
QUIET = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}


@dataclasses.dataclass
class Result:
    """One row of the table."""
    clip: str
    player: str
    cpu: float
    server_cpu: float
    peak_mb: float
    shown: int | None = None
    dropped: int | None = None
    start: float | None = None


class Player:
    """A program that plays a clip in a window of the clip's size and ends with it."""

    minimised = False

    def __init__(self, name, command, environment=None):
        self.name, self._command, self._environment = name, command, environment or {}

    def rectangle(self, display, clip, width, height):
        return 0, 0, width, height

    def launch(self, display, clip, width, height):
        command = [part.format(width=width, height=height, clip=clip) for part in self._command]
        self._process = subprocess.Popen(command, env={**display.environment, **self._environment}, **QUIET)

    def play_to_the_end(self, seconds):
        """Returns CPU seconds and peak memory in MiB."""
        deadline = time.monotonic() + seconds + PATIENCE
        while True:
            pid, _, usage = os.wait4(self._process.pid, os.WNOHANG)
            if pid:
                self._process.returncode = 0
                return usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024
            if time.monotonic() > deadline:
                raise RuntimeError(f"{self.name} does not end")
            time.sleep(0.05)

    def stop(self):
        if self._process.poll() is None:
            self._process.send_signal(signal.SIGTERM)
            self._process.wait()


class Ombravision(Player):
    """This program: its window has a menu bar besides, and it does not end with the film."""

    def __init__(self, name="ombravision", settings=None, minimised=False):
        super().__init__(name, [])
        self._settings, self.minimised = settings, minimised
        self._rectangles = {}

    def _program(self, display, clip, debug=False):
        # The window takes the picture's own size by itself.
        return Program(display, "--", clip, driver="null", debug=debug, settings=self._settings)

    def rectangle(self, display, clip, width, height):
        if (width, height) not in self._rectangles:
            with self._program(display, clip, debug=True) as program:
                self._rectangles[width, height] = wait_for(
                    lambda: program.video_rectangle()[2:] == (width, height) and program.video_rectangle(), 10,
                    f"a picture of {width}x{height}")
        return self._rectangles[width, height]

    def launch(self, display, clip, width, height):
        self._process = self._program(display, clip)
        if self.minimised:
            self._process.__enter__()
            self._process.wait_for_log(r"^Playing ", PATIENCE)
            display.minimise(self._process.window)
            wait_for(lambda: not display.is_shown(self._process.window), 10, "the window to go")
            self._began = time.monotonic(), process.cpu_seconds(self._process.pid)
        else:
            self._process.start()

    def play_to_the_end(self, seconds):
        self._process.wait_for_log(r"Movie finished", seconds + PATIENCE)
        cpu, peak = process.cpu_seconds(self._process.pid), process.peak_kb(self._process.pid) / 1024
        if not self.minimised:
            return cpu, peak
        # From when the window was gone, as much as the whole film would cost so.
        when, before = self._began
        return (cpu - before) * seconds / (time.monotonic() - when), peak

    def stop(self):
        self._process.__exit__(None)


FFPLAY = Player("ffplay", ["ffplay", "-loglevel", "quiet", "-nostats", "-autoexit", "-noborder",
                           "-left", "0", "-top", "0", "-x", "{width}", "-y", "{height}", "{clip}"],
                {"SDL_RENDER_DRIVER": "opengl", "SDL_AUDIODRIVER": "dummy"})
MPV = Player("mpv", ["mpv", "--no-config", "--really-quiet", "--vo=gpu", "--gpu-sw=yes", "--ao=null", "--no-border",
                     "--no-osc", "--osd-level=0", "--geometry={width}x{height}+0+0", "{clip}"])
MPV_X11 = Player("mpv-x11", ["mpv", "--no-config", "--really-quiet", "--vo=x11", "--ao=null", "--no-border", "--no-osc",
                             "--osd-level=0", "--geometry={width}x{height}+0+0", "{clip}"])
DECODING = Player("decoding", ["ffmpeg", "-nostdin", "-loglevel", "quiet", "-re", "-i", "{clip}", "-f", "null", "-"])
PLAYERS = {player.name: player for player in
           (DECODING, Ombravision(), Ombravision("ombravision-opengl", {r"application/video\presentation": "opengl"}),
            Ombravision("ombravision-minimised", minimised=True), FFPLAY, MPV, MPV_X11)}
# What is measured against what: CPU seconds of player and X server. A minimised player has decoding alone to pay.
RATIOS = (("ombravision", "mpv-x11", 1.10), ("ombravision-opengl", "ffplay", 0.68),
          ("ombravision-minimised", "decoding", 1.05))


def numbers_seen(watch):
    """(time, number) of each picture that came up."""
    return [(when, number) for when, digits in watch.changes if (number := number_of(digits)) is not None]


def measure(display, player, clip, width, height, seconds):
    if player is DECODING or player.minimised:  # There is nothing to watch, which costs the server something too.
        player.launch(display, clip, width, height)
        server = process.cpu_seconds(display.server_pid)
        try:
            cpu, peak = player.play_to_the_end(seconds)
        finally:
            player.stop()
        return Result(clip.name, player.name, cpu, process.cpu_seconds(display.server_pid) - server, peak)
    y, points = number_points(player.rectangle(display, clip, width, height))
    server = process.cpu_seconds(display.server_pid)
    with display.watch(y, points) as watch:
        player.launch(display, clip, width, height)
        try:
            cpu, peak = player.play_to_the_end(seconds)
        finally:
            player.stop()
    server = process.cpu_seconds(display.server_pid) - server
    shown = len({number for _, number in numbers_seen(watch)})
    if not shown:
        raise RuntimeError(f"{player.name} showed no picture where it should")
    return Result(clip.name, player.name, cpu, server, peak, shown, seconds * clips.RATE - shown)


def start_time(display, player, clip, width, height, starts):
    """Median seconds to the first picture, the first start left out."""
    y, points = number_points(player.rectangle(display, clip, width, height))
    times = []
    for _ in range(starts + 1):
        with display.watch(y, points, interval=0.002) as watch:
            began = time.monotonic()
            player.launch(display, clip, width, height)
            time.sleep(2)
            player.stop()
        seen = numbers_seen(watch)
        if not seen:
            raise RuntimeError(f"{player.name} showed no picture within two seconds")
        times.append(seen[0][0] - began)
        time.sleep(0.3)  # The window has to be gone.
    return statistics.median(times[1:])


def use_the_fastest_build():
    for variable, path in (("OMBRAVISION_PROGRAM", "application/ombravision"),
                           ("OMBRAVISION_WATCHER", "benchmarks/watcher/display_watcher")):
        for preset in ("bench", "release"):
            candidate = ROOT / "build" / preset / path
            if candidate.exists():
                os.environ.setdefault(variable, str(candidate))


def table(results):
    def cell(value, digits=2):
        return "" if value is None else f"{value:.{digits}f}" if isinstance(value, float) else str(value)

    lines = ["| clip | player | CPU player | CPU server | CPU both | peak MiB | shown | dropped | start s |",
             "|---|---|---|---|---|---|---|---|---|"]
    for r in results:
        cells = [r.clip, r.player, cell(r.cpu), cell(r.server_cpu), cell(r.cpu + r.server_cpu), cell(r.peak_mb, 0),
                 cell(r.shown), cell(r.dropped), cell(r.start)]
        lines.append("| " + " | ".join(cells) + " |")
    return "\n".join(lines)


def ratios(results):
    """A table of what is to be compared, as far as it was measured."""
    both = {(r.clip, r.player): r.cpu + r.server_cpu for r in results}
    lines = ["| clip | ratio of CPU both | is | at most |", "|---|---|---|---|"]
    for clip in dict.fromkeys(r.clip for r in results):
        for ours, other, limit in RATIOS:
            if both.get((clip, ours)) and both.get((clip, other)):
                ratio = both[clip, ours] / both[clip, other]
                lines.append(f"| {clip} | {ours} / {other} | {ratio:.2f} | {limit:.2f} |")
    return "\n".join(lines)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--sizes", nargs="+", default=["1280x720", "1920x1080"], metavar="WxH")
    parser.add_argument("--seconds", type=int, default=20, help="length of each clip, 40 at most (20)")
    parser.add_argument("--starts", type=int, default=5, help="warm starts to take the time of; 0 for none (5)")
    parser.add_argument("--players", nargs="+", default=list(PLAYERS), choices=list(PLAYERS))
    parser.add_argument("--json", type=pathlib.Path, help="write the figures to this file too")
    options = parser.parse_args()
    use_the_fastest_build()

    results = []
    with VirtualDisplay(*SCREEN) as display:
        for size in options.sizes:
            width, height = map(int, re.fullmatch(r"(\d+)x(\d+)", size).groups())
            clip = clips.mp4(options.seconds, width, height)
            for player in (PLAYERS[name] for name in options.players):
                try:
                    result = measure(display, player, clip, width, height, options.seconds)
                    if options.starts and player is not DECODING and not player.minimised:
                        result.start = start_time(display, player, clip, width, height, options.starts)
                except unittest.SkipTest as reason:
                    print(f"{player.name}: {reason}", file=sys.stderr)
                    continue
                results.append(result)
                print(f"{size} {player.name}: done", file=sys.stderr)
    print(table(results))
    print("\n" + ratios(results))
    if options.json:
        options.json.write_text(json.dumps([dataclasses.asdict(result) for result in results], indent=2) + "\n")


if __name__ == "__main__":
    main()
