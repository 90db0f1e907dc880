"""The controls on the screen, as the desktop's accessibility tells of them."""
import functools

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

from servers import LIMIT, Failed, await_that  # noqa: E402

ACCESSIBLE = "org.a11y.atspi.Accessible"
ROOT = "/org/a11y/atspi/accessible/root"
STATES = {"checked": 4, "editable": 7, "enabled": 8, "focused": 12, "selected": 23, "showing": 25}
ON_SCREEN = 0  # a coordinate type


def connect(address):
    flags = Gio.DBusConnectionFlags
    return Gio.DBusConnection.new_for_address_sync(
        address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)


def call(connection, name, path, interface, method, arguments=None):
    """The values that a method answers with."""
    return connection.call_sync(name, path, interface, method, arguments, None,
                                Gio.DBusCallFlags.NO_AUTO_START, LIMIT * 1000, None).unpack()


class Control:
    """One control or line; its facts are asked for anew each time."""

    def __init__(self, connection, name, path):
        self.connection = connection
        self.owner = name
        self.path = path

    def _call(self, interface, method, arguments=None):
        return call(self.connection, self.owner, self.path, interface, method, arguments)

    def _property(self, interface, name):
        return self._call("org.freedesktop.DBus.Properties", "Get",
                          GLib.Variant("(ss)", (interface, name)))[0]

    @property
    def name(self):
        return self._property(ACCESSIBLE, "Name")

    @property
    def role(self):
        return self._call(ACCESSIBLE, "GetRoleName")[0]

    def has(self, state):
        low, high = self._call(ACCESSIBLE, "GetState")[0]
        return bool((low | high << 32) >> STATES[state] & 1)

    @property
    def children(self):
        return [Control(self.connection, name, path)
                for name, path in self._call(ACCESSIBLE, "GetChildren")[0]]

    @property
    def text(self):
        """The text that can be edited, or that is shown."""
        interface = "org.a11y.atspi.Text"
        length = self._property(interface, "CharacterCount")
        return self._call(interface, "GetText", GLib.Variant("(ii)", (0, length)))[0]

    @property
    def selection(self):
        """The first and the last place of the selected text; they are the same for none."""
        first, last = self._call("org.a11y.atspi.Text", "GetSelection", GLib.Variant("(i)", (0,)))
        return first, last

    @property
    def rectangle(self):
        return self._call("org.a11y.atspi.Component", "GetExtents",
                          GLib.Variant("(u)", (ON_SCREEN,)))[0]

    @property
    def middle(self):
        x, y, width, height = self.rectangle
        return x + width // 2, y + height // 2

    def press(self):
        """What a click would do, without the mouse."""
        self._call("org.a11y.atspi.Action", "DoAction", GLib.Variant("(i)", (0,)))

    def shown(self):
        """This control and those in it, as far as they are on the screen."""
        found, waiting = [], [self]
        while waiting:
            control = waiting.pop(0)
            try:
                inner = control.children
                found.append(control)
                waiting += [child for child in inner if child.has("showing")]
            except GLib.Error:
                continue  # It has gone since it was listed.
        return found

    def __str__(self):
        return f"{self.role} {self.name!r}"


def bus_address(desktop):
    """Of the bus of its own that accessibility has."""
    bus = "org.a11y.Bus"
    connection = connect(desktop.session_bus)
    await_that(lambda: has_owner(connection, bus), "accessibility")
    return call(connection, bus, "/org/a11y/bus", bus, "GetAddress")[0]


def has_owner(connection, name):
    bus = "org.freedesktop.DBus"
    return call(connection, bus, "/org/freedesktop/DBus", bus, "NameHasOwner",
                GLib.Variant("(s)", (name,)))[0]


class Controls:
    """The controls of one program."""

    def __init__(self, desktop, pid):
        self.connection = connect(bus_address(desktop))
        self.pid = pid

    def windows(self):
        return [window for window in Control(self.connection, self.owner, ROOT).children
                if window.has("showing")]

    def all(self):
        return [control for window in self.windows() for control in window.shown()]

    def find(self, role, name=None):
        """The one control on the screen with that role and name, which is waited for."""
        found = await_that(lambda: self._matching(role, name), f"{role} {name!r}", self.told)
        if len(found) > 1:
            raise Failed(f"{len(found)} times {role} {name!r}. {self.told()}")
        return found[0]

    def is_shown(self, role, name=None):
        return bool(self._matching(role, name))

    def told(self):
        return "On the screen: " + ", ".join(str(control) for control in self.all())

    def _matching(self, role, name):
        try:
            return [control for control in self.all() if control.role == role
                    and (name is None or control.name == name)]
        except GLib.Error:
            return []  # The program is not that far yet, or has ended.

    @functools.cached_property
    def owner(self):
        """The program's name on the bus."""
        return await_that(self._owner, "the program on the accessibility bus")

    def _owner(self):
        for name in self._ask_bus("ListNames")[0]:
            try:
                if (name.startswith(":") and name != self.connection.get_unique_name() and
                        self._ask_bus("GetConnectionUnixProcessID",
                                      GLib.Variant("(s)", (name,)))[0] == self.pid):
                    return name
            except GLib.Error:
                continue  # It has gone since it was listed.
        return None

    def _ask_bus(self, method, arguments=None):
        bus = "org.freedesktop.DBus"
        return call(self.connection, bus, "/org/freedesktop/DBus", bus, method, arguments)
