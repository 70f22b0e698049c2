"""A virtual X display, and what can be seen on it."""

import os
import re
import subprocess

from . import ROOT, built
from .picture import Picture
from .process import children


class VirtualDisplay:
    """Xvfb with a window manager and a tray, from entering the context to leaving it."""

    def __init__(self, width=1600, height=1000):
        self.width, self.height = width, height

    def __enter__(self):
        # The display lasts until its command ends, and the command until its input is closed, whatever becomes of us.
        self._process = subprocess.Popen(
            [ROOT / "scripts/with-display", "sh", "-c", "echo $DISPLAY; exec cat"],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True,
            env={**os.environ, "OMBRAVISION_SCREEN": f"{self.width}x{self.height}"})
        self.name = self._process.stdout.readline().strip()
        if not self.name:
            raise RuntimeError("there is no virtual display")
        return self

    def __exit__(self, *_):
        self._process.stdin.close()
        self._process.wait()
        self._process.stdout.close()

    @property
    def environment(self):
        return {**os.environ, "DISPLAY": self.name}

    @property
    def server_pid(self):
        return next(pid for pid, name in children(self._process.pid) if name == "Xvfb")

    def ask(self, *command):
        """The output of a command that talks to the display; empty when it fails."""
        result = subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, capture_output=True, text=True)
        return result.stdout if result.returncode == 0 else ""

    def windows(self):
        """The windows that the window manager manages, as identifiers; the tray is none of them."""
        found = re.findall(r"0x[0-9a-f]+", self.ask("xprop", "-root", "_NET_CLIENT_LIST"))
        return [w for w in found if "_TYPE_DOCK" not in self.ask("xprop", "-id", w, "_NET_WM_WINDOW_TYPE")]

    def active_window(self):
        found = re.search(r"0x[0-9a-f]+", self.ask("xprop", "-root", "_NET_ACTIVE_WINDOW"))
        return found.group() if found else None

    def is_shown(self, window):
        """Whether a window is on the screen, neither hidden nor minimised."""
        return "IsViewable" in self.ask("xwininfo", "-id", window)

    def geometry(self, window):
        """Position on the screen and size of a window, without its frame."""
        text = self.ask("xwininfo", "-id", window)
        return tuple(int(re.search(name + r":\s+(-?\d+)", text).group(1))
                     for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

    def minimise(self, window):
        self.ask("xdotool", "windowminimize", window)

    def close(self, window):
        """As by the button in the window's frame."""
        self.ask("xdotool", "windowactivate", "--sync", window, "key", "--clearmodifiers", "alt+F4")

    def screenshot(self, rectangle=None):
        x, y, width, height = rectangle or (0, 0, self.width, self.height)
        result = subprocess.run(
            ["ffmpeg", "-nostdin", "-loglevel", "error", "-f", "x11grab", "-draw_mouse", "0",
             "-video_size", f"{width}x{height}", "-i", f"{self.name}+{x},{y}",
             "-frames:v", "1", "-f", "rawvideo", "-pix_fmt", "rgb24", "-"],
            stdin=subprocess.DEVNULL, capture_output=True, check=True)
        return Picture(width, height, result.stdout)

    def watch(self, y, points, interval=0.004):
        return Watch(self, y, points, interval)


class Watch:
    """Samples points on a row of the display, from entering the context to leaving it.

    `changes` then holds (time on the monotonic clock, digits) for each change, one digit for each point, "1" for light.
    """

    def __init__(self, display, y, points, interval):
        self._command = [built("OMBRAVISION_WATCHER", "tests/system/watcher/display_watcher"),
                         str(int(interval * 1e6)), str(y), *map(str, points)]
        self._display = display
        self.changes = []

    def __enter__(self):
        self._process = subprocess.Popen(self._command, stdout=subprocess.PIPE, text=True, bufsize=1 << 20,
                                         env=self._display.environment)
        return self

    def __exit__(self, *_):
        self._process.terminate()
        for line in self._process.communicate()[0].splitlines():
            time, digits = line.split()
            self.changes.append((float(time), digits))
