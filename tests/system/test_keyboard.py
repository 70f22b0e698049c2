"""Everything by the keyboard alone, read back as a screen reader has it. Needs a session bus of its own, and the system's
Python: dbus-run-session -- /usr/bin/python3 -m unittest test_keyboard."""

import re
import time
import unittest

from support import ROOT, accessible, clips, wait_for
from support.display import VirtualDisplay
from support.keyboard import Keyboard
from support.localservices import LocalServices
from support.program import Program

GUEST, PASSWORD = "hands@ombravision.invalid", "letters-and-signs"
CONTROLS = {"push button", "check box", "combo box", "spin button", "slider", "list", "tree", "table", "page tab list",
            "text", "password text"}
HOLDERS = {"combo box", "spin button", "list", "tree", "table"}  # What is in them is gone through by arrows.
NO_DIALOG = ("Sign In", "Sign Out", "Minimize", "Close Window", "Exit", "Record", "Mute", ".* Volume", "Seek .*", "Full Screen",
             "Tabs", "Menu Bar", "Skin Mode", "Always on Top", "Perspective", "Take Screenshot", "Test Channels",
             "Run at Startup", "Support", "Feedback", "Buy .*", "Open Video Files", "Add Video Files")

OF_OTHER_TESTS = ("Open a channel beside the others, or close it", "Full screen on and off", "Volume",
                  'In "Open Video Stream": open it beside what plays')


def controls(element):
    for child in element.children:
        if child.role in CONTROLS and {"focusable", "showing", "enabled"} <= child.states:
            yield child
        if child.role not in HOLDERS:
            yield from controls(child)


class ByKeyboard(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        accessible.enable()
        cls.display = cls.enterClassContext(VirtualDisplay())
        cls.service = cls.enterClassContext(LocalServices("--stream", f"/a={clips.asf(40, 440, '1M')}"))
        cls.service.control(f"account add {GUEST} {PASSWORD}")
        for title in "Alpha", "Beta", "Gamma":
            cls.service.control(f"channel add {title.lower()} TV {cls.service.address('mms', '/a')} {title}")
        cls.service.control("channel default alpha")

    def setUp(self):
        self.program = self.enterContext(Program(self.display, driver="null", settings={
            **self.service.settings(GUEST, PASSWORD), r"application/videoWindow\showWindowFrame": "true"}))
        self.tree = accessible.application(self.program)
        self.entries = {}  # Of the menus, by name.
        self.keyboard = self.enterContext(Keyboard(self.program, self.tree))
        self.program.wait_for_log("^Channel changed from .* to Alpha$")
        self.program.video_rectangle()
        self.display.ask("xdotool", "windowactivate", "--sync", self.program.window)
        self.main = wait_for(self.active, 20, "the window to be active")
        self.keyboard.go_to("canvas")

    def active(self):
        return next((window for window in self.tree.children if "active" in window.states), None)

    def look_round(self, window):
        """Each control has its turn once, in one order and the other, and a name and a role."""
        there = self.keyboard.round()
        self.assertEqual(there[1:], self.keyboard.round("shift+Tab")[:0:-1], "the same way back")
        for element in there:
            self.assertTrue(element.name and element.role not in ("", "filler", "unknown"), element)
        for control in controls(window):
            self.assertIn(control, there, "no key leads there")

    def opened(self, what):
        window = wait_for(lambda: self.active() not in (None, self.main) and self.active(), 20, what)
        wait_for(lambda: self.keyboard.listen(0.05) or self.keyboard.focus in window.walk(), 20, f"the focus in {what}")
        self.keyboard.settle()
        return window

    def close(self, before):
        self.keyboard.press("Escape")
        wait_for(lambda: self.active() == self.main, 20, "the dialog to close")
        self.keyboard.wait_for(before.role, re.escape(before.name))

    def in_dialog(self, what, *steps):
        """What is opened by the steps, gone through and closed: the focus is where it was."""
        before = self.keyboard.focus
        with self.subTest(what):
            for step in steps:
                step()
            window = self.opened(what)
            self.look_round(window)
            pages = window.find("list", "Pages", "showing")
            for _ in pages.children[1:] if pages else []:
                self.keyboard.go_to("list", "Pages")
                self.keyboard.press("Down")
                self.keyboard.press("Tab")
                self.look_round(window)
            self.close(before)

    def test_each_control_has_its_turn(self):
        self.look_round(self.main)
        self.keyboard.go_to("push button", "Next channel.*")
        menus = self.tree.wait_for("menu bar").children
        for index, menu in enumerate(menus):
            entries = [entry for popup in menu.children for entry in popup.children if entry.name and not entry.children]
            for entry in entries if menu.name != "Channels" else []:
                if re.fullmatch("|".join(NO_DIALOG), entry.name) or "enabled" not in entry.states:
                    continue
                self.in_dialog(entry.name, lambda: self.keyboard.press("F10", *["Right"] * index, "Down"),
                               lambda: self.keyboard.go_to(entry.role, re.escape(entry.name), "Down"),
                               lambda: self.keyboard.press("Return"))
        self.in_dialog("effects", lambda: self.keyboard.press("ctrl+e"))
        self.keyboard.go_to("tree")
        self.in_dialog("delete", lambda: self.keyboard.press("Delete"))
        self.keyboard.go_to("page tab list")
        self.keyboard.press("Right")
        self.keyboard.go_to("combo box")
        self.keyboard.press("Tab", "Return")
        self.look_round(self.main)
        self.keyboard.go_to("push button", "New Channel...")
        self.in_dialog("new channel", lambda: self.keyboard.press("space"))

    def test_a_held_key_goes_on_or_acts_once(self):
        volume = self.tree.wait_for("slider", "Volume")
        self.changes(lambda: volume.value, "ctrl+Down")
        once = volume.value
        begin = time.monotonic()
        self.keyboard.hold("ctrl+Down", lambda: time.monotonic() > begin + 1, "the key to repeat")
        wait_for(lambda: volume.value != once, 20, "a change by the held key")
        self.assertAlmostEqual(volume.value, 2 * once - 1, 3, "acts once")
        self.keyboard.go_to("slider", "Volume")
        self.keyboard.hold("Left", lambda: volume.value < 0.5, "a slider to go on")
        self.keyboard.go_to("tree")
        self.keyboard.press("Home")
        self.keyboard.hold("Down", lambda: not re.search("Alpha|Beta|Gamma", self.keyboard.focus.name), "a list to go on")

    def film(self):
        """One that can be held and sought in."""
        if "enabled" not in self.entry("Seek Forwards").states:
            self.program.start_second(clips.mp4(60, 320, 240))
            wait_for(lambda: "enabled" in self.entry("Seek Forwards").states, 20, "a film")
        self.keyboard.go_to("canvas")
        return self.tree.wait_for("slider", "Position")

    def row(self):
        """The current one of the list is not the one that plays."""
        self.keyboard.go_to("tree|table cell")
        self.keyboard.press("Home", "Down")
        return self.keyboard.focus.name

    def changes(self, value, *keys):
        before = value()
        self.keyboard.press(*keys)
        return wait_for(lambda: value() != before, 20, f"a change from {before} by {keys}")

    def title(self):
        return self.display.ask("xdotool", "getwindowname", self.program.window).split(" - ")[0]

    def rows_in_words(self):
        return " ".join(cell.name for cell in self.tree.wait_for("tree", "Channels").children)

    def entry(self, name):
        if name not in self.entries:
            self.entries[name] = next(entry for entry in self.tree.wait_for("menu bar").walk() if entry.name == name)
        return self.entries[name]

    def is_checked(self, name):
        if name == "Channel Carousel":  # Its menu is filled when it is opened.
            return bool(self.tree.find("push button", "Play this channel", "showing"))
        return "checked" in self.entry(name).states

    def by_key(self, key, words):
        """Does what a row of the table says, and sees whether it has happened."""
        press = self.keyboard.press
        if words in ("Open Video File", "Open Video Stream", "Preferences", "Help", "Video Information", "Stream Buffer",
                     "Edit Video Post Processing"):
            before = self.keyboard.focus
            press(key)
            self.opened(words)
            self.close(before)
        elif words in ("Mute", "Full Screen", "Tabs", "Channel Carousel"):
            for _ in "on", "off":
                self.changes(lambda: self.is_checked(words), key)
        elif re.fullmatch(r"[\d.]+x", words):
            self.film()
            press(key)
            wait_for(lambda: self.is_checked(words), 20, "the speed")
        elif words in ("Increase Volume", "Decrease Volume"):
            volume = self.tree.wait_for("slider", "Volume")
            self.keyboard.press("ctrl+Down")
            self.changes(lambda: volume.value, key)
        elif words in ("Seek Forwards", "Seek backwards"):
            position = self.film()
            press("Tab")  # Where the bars are, the time runs.
            wait_for(lambda: position.value > 1, 20, "the time")
            before = position.value - time.monotonic()
            press(key)
            wait_for(lambda: abs(position.value - time.monotonic() - before) > 5, 20, "another place")
        elif words == "Take Screenshot":
            press(key)
            wait_for(lambda: list(self.program.home.rglob("*.png")), 20, "the screenshot")
        elif words == "To the menus":
            press(key)
            self.keyboard.wait_for("menu item", "File")
            press("Escape")
        elif words == "Close Window":
            press(key)
            wait_for(lambda: not self.display.is_shown(self.program.window), 20, "the window to hide")
            self.program.start_second()
            wait_for(lambda: self.display.is_shown(self.program.window) and self.active() == self.main, 20, "the window")
        elif words == "Leave full screen, close a dialog":
            press("ctrl+f")
            wait_for(lambda: self.is_checked("Full Screen"), 20, "full screen")
            self.changes(lambda: self.is_checked("Full Screen"), "Escape")
        elif words == "Choose one of the open channels":
            self.row()
            press("ctrl+Return")
            self.tree.wait_for("check box", "Show only this channel")
            self.keyboard.go_to("canvas")
            press("1")
            self.changes(self.title, "2")
        elif words == "Previous and next channel":
            self.keyboard.go_to("canvas")
            self.changes(self.title, "Next")
            self.changes(self.title, "Prior")
        elif words == "Over the picture: go through the controls":
            self.keyboard.go_to("canvas")
            press("Tab")
            self.keyboard.wait_for("check box|push button")
        elif words == "Over the picture: pause and go on":
            self.film()
            for each in "space", "p":
                self.changes(lambda: bool(self.tree.find("push button", "Pause.*")), each)
        elif words in ("The menu of what is chosen", "What has that letter underlined"):
            self.row()
            for each in ("Menu", "shift+F10") if words.startswith("The") else ("alt+v",):
                wait_for(lambda: press(each, "Down") or self.keyboard.focus.matches("menu item")
                         or press("Escape", "Escape"), 20, "a menu, which a change of the channel may close")
                press("Escape", "Escape")
        elif words == "In the list: play the channel":
            name = self.row()
            press(key)
            wait_for(lambda: self.title() in name, 20, "the channel")
        elif words == "In the list: open the channel beside the others":
            self.row()
            press("Down", key)
            self.tree.wait_for("check box", "Show only this channel")
        elif words in ("In the list: a look at the channel, and back", "In the list: favourite or not"):
            self.row()
            press("End")
            for _ in "on", "off":
                self.changes(self.rows_in_words, key)
        elif words == "In the list: delete the channel":
            self.row()
            press(key)
            self.opened(words)
            press("Escape")
            wait_for(lambda: self.active() == self.main, 20, "the dialog to close")
        elif words == "In the list: filter or search":
            self.row()
            press("o", "m")
            wait_for(lambda: "Beta" not in self.rows_in_words(), 20, "the filter")
            press("Escape")
        elif words.startswith("In the carousel"):
            press("ctrl+space")
            wait_for(lambda: self.is_checked("Channel Carousel"), 20, "the carousel")
            press("Right", "Return")
            wait_for(lambda: not self.is_checked("Channel Carousel"), 20, "the chosen channel")
        elif words not in OF_OTHER_TESTS:
            self.fail("nobody knows whether it works")

    def test_the_table_of_keys_holds(self):
        self.keyboard.press("F1")
        self.opened("the table of keys")
        cells = wait_for(lambda: [cell.name for cell in self.keyboard.focus.children if cell.role == "table cell"], 20, "cells")
        self.keyboard.press("Escape")
        wait_for(lambda: self.active() == self.main, 20, "the dialog to close")
        for keys, words in zip(cells[::2], cells[1::2]):
            if words == "Exit":
                continue
            with self.subTest(f"{keys}: {words}"):
                self.by_key(re.sub(r"Ctrl|Shift|Space|\b[A-Z]$", lambda found: found.group().lower(), keys)
                            .replace(",", "comma"), words)
        self.keyboard.press("ctrl+q")
        self.assertEqual(self.program.wait(), 0)


if __name__ == "__main__":
    unittest.main()
