#!/usr/bin/python3
"""A walk through the whole program that leaves named screenshots; scripts/tour calls it.

Each set is a way to look at the same places: a language, a scale, a look. Menus and dialogs are found by themselves, so
that what is new is shown without a line here.
"""

import argparse
import contextlib
import pathlib
import re
import subprocess
import sys
import tempfile
import time
from xml.etree import ElementTree

from support import ROOT, accessible, wait_for
from support.display import VirtualDisplay
from support.localservices import LocalServices
from support.program import Program

GUEST, PASSWORD = "viewer@ombravision.invalid", "letters & signs"
LEAVES = ("Exit", "Close Window", "Sign Out", "Minimize", "Full Screen", "Skin Mode", "Menu Bar", "Tabs",
          "Test Channels")  # What ends a tour, or leads it elsewhere.

# What a desktop says in ~/.config/kdeglobals: ground and text of windows, fields, buttons and tool tips, then what is chosen.
KDE = {"QT_QPA_PLATFORMTHEME": "kde", "XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5"}
DARK = {"Window": ("42,46,50", "252,252,252"), "View": ("27,30,32", "252,252,252"), "Button": ("49,54,59", "252,252,252"),
        "Tooltip": ("49,54,59", "252,252,252"), "Selection": ("30,87,116", "252,252,252")}
CONTRAST = {"Window": ("0,0,0", "255,255,255"), "View": ("0,0,0", "255,255,255"), "Button": ("0,0,0", "255,255,255"),
            "Tooltip": ("0,0,0", "255,255,255"), "Selection": ("255,255,0", "0,0,0")}

# Environment, settings and colours of the desktop of each set, and the size of the display.
FRAME = {r"application/videoWindow\showWindowFrame": "true"}
SETS = {
    "skin": {},
    "light": {"settings": FRAME},
    "dark": {"settings": FRAME, "environment": KDE, "colours": DARK},
    "contrast": {"settings": FRAME, "environment": KDE, "colours": CONTRAST},
    "german-150": {"environment": {"LC_ALL": "de_DE.UTF-8", "LANGUAGE": "de", "QT_SCALE_FACTOR": "1.5"}, "size": (2400, 1500),
                   "settings": FRAME},
    "french-200": {"environment": {"LC_ALL": "fr_FR.UTF-8", "LANGUAGE": "fr", "QT_SCALE_FACTOR": "2"}, "size": (3840, 2160)},
    "italian-small": {"environment": {"LC_ALL": "it_IT.UTF-8", "LANGUAGE": "it"}, "size": (800, 480)},
    "arabic": {"environment": {"LC_ALL": "ar_EG.UTF-8", "LANGUAGE": "ar"}},
}


class Tour:
    def __init__(self, name, directory, only):
        self._set = SETS[name]
        self._name = name
        self._directory = directory
        self._only = re.compile(only)
        self._count = 0
        self._words = words_of(self._set.get("environment", {}).get("LANGUAGE"))

    def said(self, *texts):
        """What these texts are in the language of the set."""
        return {self._words.get(text, text) for text in texts}

    def run(self):
        with contextlib.ExitStack() as stack:
            self.display = stack.enter_context(VirtualDisplay(*self._set.get("size", (1600, 1000))))
            films = subprocess.run([ROOT / "scripts/make-samples", self._directory / "samples"], check=True, text=True,
                                   stdout=subprocess.PIPE).stdout.splitlines()
            self.service = stack.enter_context(LocalServices(*services_of(films)))
            self.service.control(f"account add {GUEST} {PASSWORD}")
            self.program = Program(
                self.display, *self._set.get("arguments", ()), driver="null", environment=self._set.get("environment"),
                settings={**self.service.settings(GUEST, PASSWORD), **self._set.get("settings", {})})
            self._write_colours()
            stack.enter_context(self.program)
            self.tree = accessible.application(self.program, 20)
            self.walk()

    def _write_colours(self):
        groups = [f"[Colors:{name}]\nBackgroundNormal={ground}\nBackgroundAlternate={ground}\nForegroundNormal={text}\n"
                  for name, (ground, text) in self._set.get("colours", {}).items()]
        (self.program.home / ".config/kdeglobals").write_text("".join(groups))

    # What a viewer does.

    def shoot(self, name, pause=0.4):
        time.sleep(pause)  # What fades is there then.
        self._count += 1
        file = f"{self._name}-{self._count:02}-{re.sub('[^a-z0-9]+', '-', name.lower()).strip('-')}.png"
        if not self._only.search(file):
            return
        picture = self.display.screenshot()
        subprocess.run(["ffmpeg", "-nostdin", "-loglevel", "error", "-y", "-f", "rawvideo", "-pix_fmt", "rgb24", "-video_size",
                        f"{picture.width}x{picture.height}", "-i", "-", self._directory / file],
                       input=picture.rgb, check=True)
        print(self._directory / file, flush=True)

    def key(self, *keys):
        self.display.ask("xdotool", "key", "--delay", "60", *keys)

    def place_of(self, element):
        """On the screen, which has more pixels than Qt counts where there is a scale."""
        scale = float(self._set.get("environment", {}).get("QT_SCALE_FACTOR", 1))
        return [int(number * scale) for number in element.place]

    def click(self, element, button=1):
        x, y, width, height = self.place_of(element)
        self.display.ask("xdotool", "mousemove", str(x + width // 2), str(y + height // 2), "click", str(button))

    def activate(self):
        self.display.ask("xdotool", "windowactivate", "--sync", self.program.window)

    def windows(self):
        return set(self.display.windows())

    def menus(self):
        bar = self.tree.wait_for("menu bar")
        return [menu for menu in bar.children if menu.role == "menu item"]

    def entries(self):
        """Of all menus, those below others too: (path of names, element)."""
        def below(element, path):
            for popup in element.children:
                for entry in popup.children:
                    if entry.role == "separator" or not entry.name:
                        continue
                    if entry.children:
                        yield from below(entry, path + [entry.name])
                    else:
                        yield path + [entry.name], entry
        for menu in self.menus():
            yield from below(menu, [menu.name])

    def show_menus(self):
        for menu in self.menus():
            self.activate()
            self.click(menu)
            self.shoot(f"menu {menu.name}")
            self.key("Escape", "Escape")

    @staticmethod
    def leads_somewhere(entry):
        return "enabled" in entry.states and "checkable" not in entry.states

    def show_dialogs(self):
        """Every entry that opens a window, which is closed as a viewer does."""
        for path, entry in list(self.entries()):
            if path[0] in self.said("Channels") or path[-1] in self.said(*LEAVES) or not self.leads_somewhere(entry):
                continue
            before = self.windows()
            entry.do("Press")
            time.sleep(0.3)
            opened = self.windows() - before
            if opened:
                self.shoot("dialog " + " ".join(path[1:]))
                self.show_pages()
            for window in opened:
                self.display.ask("xdotool", "windowactivate", "--sync", window)
                self.key("Escape")
            try:
                wait_for(lambda: not self.windows() - before, 3, "its end")
            except AssertionError:
                print(f"Escape does not close {' > '.join(path)}", flush=True)
                for window in self.windows() - before:
                    self.display.close(window)

    # The picture and what lies over it.

    def over_picture(self, part=0.5):
        x, y, width, height = self.place_of(self.tree.wait_for("canvas", state="focusable"))
        self.display.ask("xdotool", "mousemove", str(x + width // 2), str(y + int(height * part)),
                         "mousemove_relative", "--", "3", "3")

    def show_picture(self):
        self.activate()
        self.over_picture()
        self.shoot("overlay")
        self.over_picture(0.94)
        self.shoot("overlay pointer on a control", 1)
        self.display.ask("xdotool", "click", "4")
        self.shoot("volume by the wheel", 0.2)
        self.display.ask("xdotool", "click", "3")
        self.shoot("context menu")
        self.key("Escape")
        self.display.ask("xdotool", "mousemove", "2", "2")
        self.shoot("picture alone", 4)
        self.key("ctrl+space")
        self.shoot("carousel", 1.5)
        self.key("Right", "Right")
        self.shoot("carousel turned", 1)
        self.key("Escape")
        self.shoot("carousel left", 1)
        self.key("ctrl+f")
        self.over_picture()
        self.shoot("full screen", 1)
        self.key("Escape")
        time.sleep(1)

    # The panels.

    def channel(self, number):
        tree = self.tree.wait_for("tree", state="showing")
        rows = [cell for cell in tree.children if cell.role == "table cell" and ", " in cell.name]
        return rows[number]

    def type_into(self, field, text):
        self.click(field)
        self.display.ask("xdotool", "key", "ctrl+a")
        self.display.ask("xdotool", "type", "--delay", "20", text)

    def show_panels(self):
        self.activate()
        self.click(self.channel(1), 3)
        self.shoot("channel context menu")
        self.key("Escape")
        self.display.ask("xdotool", "keydown", "ctrl")
        self.click(self.channel(3))
        self.display.ask("xdotool", "keyup", "ctrl")
        self.over_picture()
        self.shoot("two channels", 7)
        field = self.tree.wait_for("text", state="focusable")
        self.type_into(field, "tw")
        self.shoot("channels filtered")
        self.type_into(field, "nothing like that")
        self.shoot("no channel matches")
        self.display.ask("xdotool", "key", "ctrl+a", "BackSpace")
        tabs = [tab for tab in self.tree.walk() if tab.role == "page tab"]
        self.click(tabs[1])
        self.shoot("search")
        self.display.ask("xdotool", "type", "--delay", "20", "ombra")
        self.key("Return")
        self.shoot("search found", 1.5)
        self.click(tabs[0])

    def show_pages(self):
        """Of the dialog that is open: what stands in its list of pages, if it has one."""
        pages = self.tree.find("list", state="showing")
        for page in pages.children if pages else []:
            if page.role == "list item":
                self.click(page)
                self.shoot(f"page {page.name}")

    def show_failures(self):
        self.service.kill()
        refresh = self.tree.find("push button", "|".join(self.said("Refresh the list")), "showing")
        if refresh:
            self.click(refresh)
        self.shoot("service gone", 6)
        self.program.start_second("mms://127.0.0.1:9/nothing")
        self.shoot("stream that fails", 6)

    def walk(self):
        self.shoot("begin", 0)
        self.program.wait_for_log("^Channel update complete")
        self.shoot("channel plays", 9)
        self.show_picture()
        self.show_panels()
        self.show_menus()
        self.show_dialogs()
        self.show_failures()


def words_of(language):
    file = ROOT / f"translations/ombravision_{language}.ts"
    if not file.exists():
        return {}
    return {re.sub("&(?=.)", "", message.findtext("source")): re.sub("&(?=.)", "", message.findtext("translation") or "")
            for message in ElementTree.parse(file).iter("message")}


def services_of(films):
    options = []
    for film in map(pathlib.Path, films):
        kind = "--hls" if film.suffix == ".m3u8" else "--stream"
        options.append(f"{kind}=/{film.stem}={film}")
    return options + [f"--stream=/vault={films[0]}", f"--stream=/cinema={films[1]}"]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--only", default="", help="screenshots whose names match this pattern")
    parser.add_argument("--into", type=pathlib.Path, default=pathlib.Path(tempfile.gettempdir()) / "ombravision-tour")
    parser.add_argument("sets", nargs="*", choices=[[], *SETS], help="all when none is named")
    given = parser.parse_args()
    given.into.mkdir(parents=True, exist_ok=True)
    accessible.enable()
    for name in given.sets or SETS:
        Tour(name, given.into, given.only).run()
    return 0


if __name__ == "__main__":
    sys.exit(main())
