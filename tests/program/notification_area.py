#!/usr/bin/python3
"""A notification area of the kind that is reached over D-Bus: it knows its icons and draws none.

It lives until it is ended. Its icons are the property RegisteredStatusNotifierItems.

usage: notification_area.py
"""
import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

NAME = "org.kde.StatusNotifierWatcher"
INTERFACE = f"""<node><interface name="{NAME}">
  <method name="RegisterStatusNotifierItem"><arg name="service" type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg name="service" type="s" direction="in"/></method>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
  <signal name="StatusNotifierItemUnregistered"><arg type="s"/></signal>
  <signal name="StatusNotifierHostRegistered"/>
</interface></node>"""


class NotificationArea:
    def __init__(self, connection):
        self.connection = connection
        self.items = []
        connection.register_object("/StatusNotifierWatcher",
                                   Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0],
                                   self.called, self.asked, None)
        connection.signal_subscribe("org.freedesktop.DBus", "org.freedesktop.DBus",
                                    "NameOwnerChanged", None, None, Gio.DBusSignalFlags.NONE,
                                    self.owner_changed)

    def called(self, _connection, sender, _path, _interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            service = arguments.unpack()[0]
            self.items.append((service if not service.startswith("/") else sender, sender))
            self.tell("StatusNotifierItemRegistered", service)
        invocation.return_value(None)

    def asked(self, _connection, _sender, _path, _interface, name):
        values = {"RegisteredStatusNotifierItems": ("as", [item for item, _ in self.items]),
                  "IsStatusNotifierHostRegistered": ("b", True), "ProtocolVersion": ("i", 0)}
        return GLib.Variant(*values[name])

    def owner_changed(self, _connection, _sender, _path, _interface, _signal, arguments):
        name, _, owner = arguments.unpack()
        if owner:
            return
        for item in [item for item in self.items if name in item]:
            self.items.remove(item)
            self.tell("StatusNotifierItemUnregistered", item[0])

    def tell(self, signal, service):
        self.connection.emit_signal(None, "/StatusNotifierWatcher", NAME, signal,
                                    GLib.Variant("(s)", (service,)))


def main():
    connection = Gio.bus_get_sync(Gio.BusType.SESSION)
    area = NotificationArea(connection)
    Gio.bus_own_name_on_connection(connection, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
    GLib.MainLoop().run()
    return area


if __name__ == "__main__":
    main()
