"""The program's icon in the notification area, as the area sees it."""
import pathlib

from gi.repository import GLib

from accessible import call, connect, has_owner
from servers import await_that

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
PROPERTIES = "org.freedesktop.DBus.Properties"


class NotificationArea:
    """The area itself, which may come after the program and go before it."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.connection = connect(desktop.session_bus)
        script = pathlib.Path(__file__).with_name("notification_area.py")
        self.server = desktop.start(["/usr/bin/python3", script])
        await_that(lambda: has_owner(self.connection, WATCHER), "the notification area")

    def go(self):
        self.desktop.stop(self.server)

    def icons(self):
        names = call(self.connection, WATCHER, "/StatusNotifierWatcher", PROPERTIES, "Get",
                     GLib.Variant("(ss)", (WATCHER, "RegisteredStatusNotifierItems")))[0]
        return [Icon(self.connection, name) for name in names]

    def icon(self):
        """The one icon, which is waited for."""
        return await_that(self.icons, "an icon in the notification area")[0]


class Icon:
    def __init__(self, connection, service):
        self.connection = connection
        self.service = service

    def _call(self, path, interface, method, arguments):
        return call(self.connection, self.service, path, interface, method, arguments)

    def _property(self, name):
        return self._call("/StatusNotifierItem", PROPERTIES, "Get",
                          GLib.Variant("(ss)", (ITEM, name)))[0]

    def click(self):
        """The left button."""
        self._call("/StatusNotifierItem", ITEM, "Activate", GLib.Variant("(ii)", (0, 0)))

    @property
    def tooltip(self):
        return self._property("ToolTip")[2]

    @property
    def picture(self):
        return self._property("IconPixmap")

    def open_menu(self):
        """Opens the menu as an area does, and returns its lines, each with its own lines."""
        path = self._property("Menu")
        self._call(path, MENU, "AboutToShow", GLib.Variant("(i)", (0,)))
        _, (number, properties, lines) = self._call(
            path, MENU, "GetLayout", GLib.Variant("(iias)", (0, -1, [])))
        return MenuLine(self, path, number, properties, lines).lines


class MenuLine:
    def __init__(self, icon, path, number, properties, lines):
        self.icon = icon
        self.path = path
        self.number = number
        self.caption = properties.get("label", "")
        self.separator = properties.get("type") == "separator"
        self.enabled = properties.get("enabled", True)
        self.ticked = properties.get("toggle-state", -1) == 1
        self.lines = [MenuLine(icon, path, *line) for line in lines]

    def choose(self):
        self.icon._call(self.path, MENU, "Event",
                        GLib.Variant("(isvu)", (self.number, "clicked", GLib.Variant("s", ""), 0)))
