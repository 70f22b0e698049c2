#!/usr/bin/env python3
"""How soon the window answers, starts, and what its overlay costs. See benchmarks/README.md."""

import argparse
import dataclasses
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time
from collections.abc import Callable

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/system"))

from screen import Screen  # noqa: E402
from support import clips, process, wait_for  # noqa: E402
from support.display import VirtualDisplay  # noqa: E402
from support.localservices import LocalServices  # noqa: E402
from support.program import Program  # noqa: E402

SIZE = 1024, 576
GUEST, PASSWORD = "guest@ombravision.invalid", "not a secret"
OUTSIDE = 2, 2  # Of the window.
ANSWER_MS, MEDIAN_MS, OVERLAY_RATIO, START, SIGNED_IN_START = 50, 25, 1.15, 0.30, 0.60


@dataclasses.dataclass
class Action:
    """What a viewer does, where its first effect is looked for, and what takes it back."""
    name: str
    act: Callable
    place: tuple
    undo: Callable


def still_film(directory):
    """In which nothing moves by itself."""
    film = directory / "still.mp4"
    subprocess.run(["ffmpeg", "-nostdin", "-loglevel", "error", "-f", "lavfi",
                    "-i", f"color=c=0x305070:s={SIZE[0]}x{SIZE[1]}:r=5:d=900", "-c:v", "libx264", "-preset", "ultrafast",
                    film], check=True)
    return film


def actions(screen, picture, window, display):
    x, y, width, height = picture
    panel_x, panel_width = x + width, window[0] + window[2] - x - width
    panel = panel_x, y, panel_width, height
    in_list = panel_x, y + 100, panel_width, height - 100
    middle = x + width / 2, y + height / 2
    tabs = [(panel_x + panel_width * part, y + 12) for part in (0.25, 0.75)]
    above = 0, 0, display.width, 30

    def click_at(place, button=1):
        screen.move(*place)
        return screen.click(button)

    def keys(*all_keys):
        for key in all_keys:
            screen.key(key)
            time.sleep(0.05)

    return (
        Action("mute (Ctrl+M)", lambda: screen.key("Control_L+m"), picture, lambda: screen.key("Control_L+m")),
        Action("volume (wheel)", lambda: screen.click(5), picture, lambda: screen.click(4)),
        Action("volume (Ctrl+Down)", lambda: screen.key("Control_L+Down"), picture, lambda: screen.key("Control_L+Up")),
        Action("carousel (Ctrl+Space)", lambda: screen.key("Control_L+space"), picture,
               lambda: (time.sleep(1), screen.key("Escape"))),
        Action("menu (Alt+V)", lambda: screen.key("Alt_L+v"), picture, lambda: keys("Escape", "Escape")),
        Action("context menu (right button)", lambda: screen.click(3), picture, lambda: keys("Escape")),
        Action("tab (click)", lambda: click_at(tabs[1]), panel, lambda: (click_at(tabs[0]), screen.move(*middle))),
        Action("full screen (Ctrl+F)", lambda: screen.key("Control_L+f"), above, lambda: (time.sleep(1), screen.key("Escape"))),
        Action("filter (a letter)", lambda: screen.key("q"), in_list, lambda: screen.key("BackSpace")),
        Action("bars (pointer)", lambda: screen.move(*middle), picture, lambda: leave(screen)),
    )


def leave(screen):
    """Takes the pointer off the window, and waits until the bars have gone."""
    screen.move(*OUTSIDE)
    time.sleep(6)


def measure_answers(display, film, rounds):
    """Milliseconds from each key, click or move to the first changed pixel."""
    print("| what a viewer does | median ms | longest ms |\n|---|---|---|")
    everything = []
    with Program(display, film, driver="null") as program:
        screen = Screen(display.name)
        picture = program.own_size_rectangle(*SIZE)
        x, y, width, height = picture
        display.ask("xdotool", "windowactivate", "--sync", program.window)
        screen.move(x + width / 2, y + height - 20)  # On the bar, which stays.
        time.sleep(1)
        screen.key("space")  # Paused: neither does time go on.
        for action in actions(screen, picture, display.geometry(program.window), display):
            if action.name.startswith("bars"):
                leave(screen)
            elif not action.name.startswith("filter"):
                screen.move(x + width / 2, y + height - 20)
            else:
                panel = display.geometry(program.window)
                screen.move(panel[0] + panel[2] - 150, y + 38)
                screen.click()
            times = []
            for _ in range(rounds):
                before = screen.wait_until_still(action.place)
                began = action.act()
                times.append((screen.time_of_change(action.place, before) - began) * 1000)
                screen.wait_until_still(action.place)
                action.undo()
            everything += times
            print(f"| {action.name} | {statistics.median(times):.0f} | {max(times):.0f} |", flush=True)
            screen.wait_until_still(action.place)
    print(f"| all: at most {ANSWER_MS}, median under {MEDIAN_MS} | {statistics.median(everything):.0f} | {max(everything):.0f} |")


def measure_overlay(display, pairs, seconds):
    """CPU seconds of player and X server with the bars over a film, beside none."""
    ratios = []
    with Program(display, clips.mp4(pairs * (2 * seconds + 14) + 10, 1280, 720), driver="null", debug=False) as program:
        time.sleep(4)
        screen = Screen(display.name)
        x, y, width, height = display.geometry(program.window)

        def used():
            return process.cpu_seconds(program.pid) + process.cpu_seconds(display.server_pid)

        for _ in range(pairs):
            cost = []
            for is_visible in (False, True):
                leave(screen)
                if is_visible:
                    screen.move(x + width / 3, y + height - 20)
                    time.sleep(1)
                before = used()
                time.sleep(seconds)
                cost.append(used() - before)
            ratios.append(cost[1] / cost[0])
            print(f"overlay hidden {cost[0]:.2f} s, visible {cost[1]:.2f} s in {seconds} s", flush=True)
    print(f"overlay visible / hidden: {statistics.median(ratios):.2f} (at most {OVERLAY_RATIO})")


def first_picture(display, program, rectangle, patience=5):
    """Seconds from the start of the process until something is to be seen where there was one colour."""
    screen = Screen(display.name)
    x, y, width, height = rectangle
    row = x, y + height // 36, width, 1  # Through the squares of the film's numbers, dark and light.
    began = time.monotonic()
    program.status = None
    program.start()
    while len(set(memoryview(screen.look(row)).cast("I"))) < 2:
        if time.monotonic() - began > patience:
            raise RuntimeError(f"no picture within {patience} s")
        time.sleep(0.002)
    shown = time.monotonic() - began
    time.sleep(1)
    program.quit()
    time.sleep(0.3)  # The window has to be gone.
    return shown


def measure_starts(display, starts):
    """From the start of the process to the first picture: with a film alone, and with sign-in and a kept list too."""
    film = clips.mp4(20, *SIZE)
    with LocalServices() as service:
        service.control(f"account add {GUEST} {PASSWORD}")
        signed_in = service.settings(GUEST, PASSWORD)
        for name, settings, limit in (("a film", None, START), ("sign-in, the list and a film", signed_in, SIGNED_IN_START)):
            program = Program(display, "--", film, driver="null", settings=settings)
            with program:
                rectangle = program.own_size_rectangle(*SIZE)
                time.sleep(2)
                program.quit()
                times = [first_picture(display, program, rectangle) for _ in range(starts + 1)][1:]
            print(f"start with {name}: {statistics.median(times):.2f} s to the first picture (at most {limit:.2f})", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build/release")
    parser.add_argument("--rounds", type=int, default=10, help="of each action (10)")
    parser.add_argument("--pairs", type=int, default=3, help="of measurements with and without the overlay (3)")
    parser.add_argument("--starts", type=int, default=5, help="of each kind (5)")
    given = parser.parse_args()
    os.environ.setdefault("OMBRAVISION_PROGRAM", str(given.build / "application/ombravision"))
    os.environ.setdefault("OMBRAVISION_LOCALSERVICES", str(given.build / "localservices/ombravision-localservices"))
    with VirtualDisplay(1920, 1080) as display, tempfile.TemporaryDirectory() as directory:
        if given.rounds:
            measure_answers(display, still_film(pathlib.Path(directory)), given.rounds)
        if given.pairs:
            measure_overlay(display, given.pairs, 8)
        if given.starts:
            measure_starts(display, given.starts)


if __name__ == "__main__":
    main()
