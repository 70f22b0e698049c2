"""The program as a screen reader has it: names, roles and states over AT-SPI. Needs /usr/bin/python3 and a session bus
(dbus-run-session); programs that are started after enable() announce themselves."""

import os
import re

import gi

from . import wait_for

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def enable():
    """To be called before the program starts."""
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"


class Element:
    """One element of the tree. What has gone meanwhile has no children, no name and no place."""

    def __init__(self, accessible):
        self._accessible = accessible

    def _ask(self, question, nothing):
        try:
            answer = question()
        except GLib.Error:
            return nothing
        return nothing if answer is None else answer

    @property
    def name(self):
        return self._ask(self._accessible.get_name, "")

    @property
    def role(self):
        return self._ask(self._accessible.get_role_name, "")

    @property
    def states(self):
        return {state.value_nick for state in
                self._ask(lambda: self._accessible.get_state_set().get_states(), [])}

    @property
    def children(self):
        count = self._ask(self._accessible.get_child_count, 0)
        found = (self._ask(lambda index=index: self._accessible.get_child_at_index(index), None) for index in range(count))
        return [Element(child) for child in found if child]

    @property
    def place(self):
        """On the screen: x, y, width, height."""
        box = self._ask(lambda: self._accessible.get_extents(Atspi.CoordType.SCREEN), None)
        return (box.x, box.y, box.width, box.height) if box else (0, 0, 0, 0)

    @property
    def actions(self):
        count = self._ask(self._accessible.get_n_actions, 0)
        return [self._ask(lambda index=index: self._accessible.get_action_name(index), "") for index in range(count)]

    def do(self, action):
        """By name, as "Press"."""
        names = [name.lower() for name in self.actions]
        self._ask(lambda: self._accessible.do_action(names.index(action.lower())), False)

    @property
    def value(self):
        return self._ask(self._accessible.get_current_value, None)

    def walk(self, depth=20):
        """This element and all below it, whatever is above before what is below."""
        yield self
        if depth > 0:
            for child in self.children:
                yield from child.walk(depth - 1)

    def matches(self, role, name=".*"):
        return bool(re.fullmatch(role, self.role) and re.fullmatch(name, self.name))

    def find(self, role, name=".*", state=None):
        """The first element below with that role, whose name matches the pattern and which has the state; or None."""
        return next((element for element in self.walk() if element.matches(role, name)
                     and (state is None or state in element.states)), None)

    def __eq__(self, other):
        return isinstance(other, Element) and self._accessible == other._accessible  # pylint: disable=protected-access

    def wait_for(self, role, name=".*", state=None, seconds=20):
        return wait_for(lambda: self.find(role, name, state), seconds, f'{role} "{name}"')

    def __repr__(self):
        return f"{self.role} {self.name!r}"


def application(program, seconds=20):
    """The tree of a running program; the elements right below are its windows."""
    Atspi.init()
    Atspi.set_timeout(20000, 20000)  # ms; one that is busy has not gone.
    desktop = Element(Atspi.get_desktop(0))

    def look():
        for child in desktop.children:
            pid = child._ask(child._accessible.get_process_id, 0)  # pylint: disable=protected-access
            if pid == program.pid:
                return child
        return None

    return wait_for(look, seconds, "the program on the bus of accessibility")
