#!/usr/bin/python3
"""How long the window does not answer, and what memory it takes, with many channels. See benchmarks/README.md."""

import argparse
import os
import pathlib
import re
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/system"))

from support import accessible, clips, wait_for  # noqa: E402
from support.display import VirtualDisplay  # noqa: E402
from support.localservices import LocalServices  # noqa: E402
from support.process import resident_kb  # noqa: E402
from support.program import Program  # noqa: E402

GUEST, PASSWORD = "guest@ombravision.invalid", "not a secret"
AWAY = r"^\[debug\] ([\d-]+ [\d:.]+) .* away for ([\d.]+) ms \(([\d.]+) ms of work\)$"
DIALOGS = ("Open Video Stream", "Add Latte Stream", "Edit Video Post Processing", "Video Information", "Stream Buffer",
           "Preferences", "Test Console", "Tutorial", "Send Support Information", "Invite Friend", "About Ombravision",
           "Help")
SETTLED = 1.5  # Seconds after which a step has had its effect.


class Session:
    """The program, and what its watchdog has told since it was last asked."""

    def __init__(self, program):
        self.program = program
        self._last = ""

    def report(self, step):
        time.sleep(SETTLED)
        files = sorted(self.program.log.parent.glob(self.program.log.name + "*"))
        text = "".join(file.read_text(errors="replace") for file in files)
        told = [found for found in re.findall(AWAY, text, re.MULTILINE) if found[0] > self._last]
        self._last = max((time for time, _, _ in told), default=self._last)
        away, work = (max((float(found[column]) for found in told), default=0) for column in (1, 2))
        print(f"{step:42} {away:7.1f} {work:7.1f} {resident_kb(self.program.pid) / 1024:7.0f}", flush=True)

    def keys(self, *keys):
        self.program.display.ask("xdotool", "key", "--delay", "30", *keys)

    def type(self, text):
        self.program.display.ask("xdotool", "type", "--delay", "20", text)

    def open_and_close(self, entry):
        display = self.program.display
        before = set(display.windows())
        entry.do("Press")
        wait_for(lambda: set(display.windows()) - before, 10, entry.name)
        self.keys("Escape")
        wait_for(lambda: not set(display.windows()) - before, 10, f"the end of {entry.name}")


def entries_of(tree):
    """The entries of all menus, by their names."""
    def below(element):
        for child in element.children:
            if child.role in ("menu item", "check menu item") and not child.children:
                yield child.name, child
            else:
                yield from below(child)
    return dict(below(tree.wait_for("menu bar")))


def walk(session, openings):
    program = session.program
    program.wait_for_log("^Channel changed from .* to ", 60)
    session.report("start, sign-in, the list")
    tree = accessible.application(program, 20)
    entries = entries_of(tree)
    program.display.ask("xdotool", "windowactivate", "--sync", program.window)
    x, y, width, height = tree.find("text", state="focusable").place
    program.display.ask("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click", "1")
    session.report("menus read, the filter clicked")
    for text in ("news", "channel 4", "nowhere", ""):
        session.keys("ctrl+a", "BackSpace")
        session.type(text)
        session.report(f'filter "{text}"')
    session.keys("ctrl+space")
    session.report("carousel")
    session.keys(*["Right"] * 12)
    session.report("carousel, twelve to the right")
    session.keys("Escape")
    session.report("carousel left")
    for name in DIALOGS:
        session.open_and_close(entries[name])
        session.report(f"{name}, first")
        for _ in range(openings):
            session.open_and_close(entries[name])
        session.report(f"{name}, {openings} more")
    entries["Sign Out"].do("Press")
    session.report("signed out")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build/release")
    parser.add_argument("--channels", type=int, default=5000)
    parser.add_argument("--openings", type=int, default=5, help="of each dialog, after the first")
    given = parser.parse_args()
    os.environ.setdefault("OMBRAVISION_PROGRAM", str(given.build / "application/ombravision"))
    os.environ.setdefault("OMBRAVISION_LOCALSERVICES", str(given.build / "localservices/ombravision-localservices"))
    for name in ("XDG_RUNTIME_DIR", "XDG_CACHE_HOME"):  # The bus of assistive technology is to be our own.
        os.environ[name] = tempfile.mkdtemp(prefix="ombravision-bench-")
    accessible.enable()
    with VirtualDisplay(1280, 800) as display, LocalServices("--no-seeds", f"--stream=/a={clips.asf(40)}") as service:
        service.control(f"account add {GUEST} {PASSWORD}")
        for first in range(0, given.channels, 100):  # Each command is a transaction.
            service.control(*(f"channel add c{i} TV {{mms-http}}/a Channel {i} {('news', 'sport', 'music')[i % 3]}"
                              for i in range(first, min(first + 100, given.channels))))
        program = Program(display, "-debug=EventLoop", debug=False, driver="null", settings={
            r"application/window\showFrame": "true", **service.settings(GUEST, PASSWORD)})
        print(f"{'step':42} {'away ms':>7} {'work ms':>7} {'MiB':>7}")
        with program:
            walk(Session(program), given.openings)


if __name__ == "__main__":
    main()
