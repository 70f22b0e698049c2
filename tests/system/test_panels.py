"""The panels of channels by mouse and keyboard: filter, play, add, delete, search and save."""

import base64
import contextlib
import time
import unittest
import urllib.request
from xml.sax.saxutils import escape

from support import clips, wait_for
from support.display import VirtualDisplay
from support.localservices import LocalServices
from support.program import Program

GUEST, MAKER, PASSWORD = "guest@ombravision.invalid", "maker@ombravision.invalid", "letters-and-signs"
FILTER, FIRST_ROW, ROW = 84, 179, 47  # Below the top of the window.
FROM_END = 150  # Of the window, for a point that is on each control of the panel.


class Panels(unittest.TestCase):
    def setUp(self):
        stack = self.enterContext(contextlib.ExitStack())
        self.display = stack.enter_context(VirtualDisplay())
        self.streams = stack.enter_context(LocalServices("--stream", f"/a={clips.asf(40, 440, '1M')}"))
        self.service = stack.enter_context(LocalServices("--no-seeds", "--max-age", 1))
        for name in GUEST, MAKER:
            self.service.control(f"account add {name} {PASSWORD}")
        for title in "Alpha", "Beta", "Gamma":
            self.service.control(f"channel add {title.lower()} TV {self.stream} {title}")
        self.service.control("channel default alpha")

    @property
    def stream(self):
        return self.streams.address("mms", "/a")

    def call(self, method, **arguments):
        """A call of another viewer's program."""
        fields = "".join(f"<{name}>{escape(text)}</{name}>" for name, text in arguments.items())
        body = (f'<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/"><e:Body><m:{method} '
                f'xmlns:m="urn:{method}">{fields}</m:{method}></e:Body></e:Envelope>')
        request = urllib.request.Request(
            f"http://127.0.0.1:{self.service.ports['web']}/client/api", body.encode(),
            {"Content-Type": "text/xml; charset=utf-8", "SOAPAction": f'"urn:{method}"'})
        with urllib.request.urlopen(request, timeout=10) as reply:
            return reply.read().decode()

    def make_channel(self, title):
        node = "0" * 64
        words = f"{MAKER.replace('@', '%40')} {PASSWORD} {node} 3.2.0 0-Linux x86_64"
        self.assertIn("true", self.call("LoginWithErrorHandling", login=base64.b64encode(words.encode()).decode()))
        self.assertIn(title, self.call("CreateUserStream", node_identifier=node, uri=self.stream, name=title,
                                       description="Made by a viewer", channel_type="TV"))

    def key(self, *keys):
        self.display.ask("xdotool", "key", "--delay", "100", *keys)

    def click(self, below, button=1, from_end=FROM_END):
        x, y, width, _ = self.display.geometry(self.program.window)
        self.display.ask("xdotool", "mousemove", str(x + width - from_end), str(y + below), "click", str(button))

    def type(self, text):
        self.display.ask("xdotool", "type", "--delay", "60", text)

    def windows(self):
        return len(self.display.ask("xdotool", "search", "--onlyvisible", "--pid", str(self.program.pid)).split())

    def stands_still(self):
        before = self.display.geometry(self.program.window)
        time.sleep(0.5)
        return self.display.geometry(self.program.window) == before

    def open_by(self, *steps):
        """Does what opens a menu or a dialog, and waits for that."""
        closed = self.windows()
        for step in steps:
            step()
        wait_for(lambda: self.windows() > closed, 20, "a menu or a dialog")

    def test_everything_once(self):
        with Program(self.display, settings=self.service.settings(GUEST, PASSWORD), driver="null") as self.program:
            program = self.program
            program.wait_for_log("^Channel changed from .* to Alpha$")
            program.video_rectangle()
            wait_for(self.stands_still, 20, "the window to have its size")
            self.display.ask("xdotool", "windowactivate", "--sync", program.window)
            self.click(FILTER)
            self.type("bet")
            self.key("Return")
            program.wait_for_log("^Channel changed from Alpha to Beta$|^Channel changed from None to Beta$")
            self.key("Escape")  # The whole list again.
            self.open_by(lambda: self.click(FIRST_ROW + 2 * ROW, button=3))
            self.key("Down", "Down", "Return")  # Add to Multiview.
            program.wait_for_log("^StateChanged for channel Gamma")
            self.assertFalse(program.logged("^A stream of channel Beta was closed"))
            self.click(FILTER)
            self.type("alpha")
            self.open_by(lambda: self.key("Down", "Delete"))
            self.key("Left", "space")  # From Cancel to Delete.
            program.wait_for_log("^Removed channel .* Alpha$")
            program.wait_for_log("^Channel update complete", count=2)
            self.make_channel("Viewers news")
            self.click(52, from_end=70)  # The other tab.
            self.click(FILTER)
            self.type("viewers")
            self.key("Return")
            self.open_by(lambda: self.click(FIRST_ROW + 30, button=3))
            self.key("Down", "Down", "Down", "Return")  # Save to My Channels.
            program.wait_for_log("^Added channel .* Viewers news$")


if __name__ == "__main__":
    unittest.main()
