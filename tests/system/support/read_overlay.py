"""Reads the controls over the picture back over AT-SPI, in a session bus of its own. The system's Python has pyatspi."""

import os
import pathlib
import sys
import types

import pyatspi

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from support import wait_for  # noqa: E402
from support.program import Program  # noqa: E402


def below(accessible):
    for child in filter(None, accessible):
        yield child
        yield from below(child)


def find(name):
    for application in pyatspi.Registry.getDesktop(0):
        for accessible in below(application):
            if accessible.name == name:
                return accessible
    return None


def main():
    display = types.SimpleNamespace(environment=dict(os.environ), ask=None, windows=None)
    program = Program(display, "--", sys.argv[1], driver="null")
    program.start()
    try:
        picture = wait_for(lambda: find("Picture"), 20, "the picture")
        wait_for(lambda: find("Position") and find("Pause (Space)"), 20, "its controls")
        print(picture.getRoleName(), picture.name)
        for accessible in below(picture):
            print(accessible.getRoleName(), accessible.name)
        find("Mute (Ctrl+M)").queryAction().doAction(0)
        print("pressed", wait_for(lambda: find("Sound on (Ctrl+M)"), 20, "the other name").name)
        volume = find("Volume").queryValue()
        volume.currentValue = 0.5
        wait_for(lambda: volume.currentValue == 0.5, 20, "another volume")
        print("set", volume.currentValue)
    finally:
        program.quit()


main()
