"""The dialogs by hand, from the keys that open them to what they have done."""

import shutil
import subprocess
import unittest

from support import clips, wait_for
from support.display import VirtualDisplay
from support.program import Program


class DialogsByHand(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.display = cls.enterClassContext(VirtualDisplay())

    def do(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.display.environment, check=True, stdin=subprocess.DEVNULL)

    def shown(self, title):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"],
                               env=self.display.environment, stdout=subprocess.PIPE, check=False)
        return found.stdout.split()

    def open(self, program, key, title):
        self.do("windowactivate", "--sync", program.window, "key", "--clearmodifiers", key)
        window = wait_for(lambda: self.shown(title), 20, f"the dialog {title}")[0].decode()
        self.do("windowactivate", "--sync", window)

    def test_an_address_is_opened_beside_what_plays_and_kept(self):
        with Program(self.display, clips.mp4()) as program:
            alone = program.own_size_rectangle(640, 360)
            second = shutil.copy(clips.mp4(), program.home / "second.mp4")
            self.open(program, "ctrl+u", "Open Video Stream")
            self.do("type", "nonsense")
            self.do("key", "Return")
            self.assertTrue(self.shown("Open Video Stream"), "what is no address is not opened")
            self.do("key", "ctrl+a")
            self.do("type", str(second))
            self.do("key", "ctrl+Return")
            wait_for(lambda: not self.shown("Open Video Stream"), 20, "the dialog to go")
            wait_for(lambda: program.video_rectangle() != alone, 20, "another picture beside the first")
            settings = program.home / ".config/Ombravision/Ombravision.ini"
            wait_for(lambda: str(second) in settings.read_text(), 20, "the address to be kept")

    def test_an_effect_of_the_last_time_is_tried_and_what_the_program_died_of_is_not(self):
        program = Program(self.display, clips.mp4())
        effects = program.home / ".Ombravision/Effects"
        effects.mkdir(parents=True)
        for name in ("Good", "Deadly"):
            (effects / f"{name}.frag").write_text("void main() { gl_FragColor = vec4(0.0, 1.0, 0.0, 1.0); }\n")
        (effects / "effects.json").write_text('{"enabled": true, "effects": [{"name": "Good", "on": true},'
                                              ' {"name": "Deadly", "on": true}]}')
        (effects / "trying.json").write_text('["Deadly"]')
        with program:
            program.own_size_rectangle(640, 360)
            kept = effects / "effects.json"
            wait_for(lambda: kept.read_text().count('"on": true') == 1, 20, "one of them to be switched off")
            wait_for(lambda: "passed\": \"\"" not in kept.read_text().split('"Good"')[1].split("}")[0], 20,
                     "the other one to pass its trial")
            wait_for(lambda: not (effects / "trying.json").exists(), 20, "the marker to go")
            self.assertTrue(program.logged("ended while the effect \"Deadly\""))


if __name__ == "__main__":
    unittest.main()
