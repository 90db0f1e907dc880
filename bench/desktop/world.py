"""A desktop of its own for measuring: an X server, a session bus, and an area for tray icons that
notes when an icon comes."""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

# The tests of the desktop program have such an area, too.
sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "tests" / "program"))
from notification_area import NAME, NotificationArea  # noqa: E402

# Seconds until something that must come is given up.
PATIENCE = 60


class NotingArea(NotificationArea):
    """An area that notes when the newest icon came."""

    icon_at = None

    def called(self, connection, sender, path, interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            self.icon_at = time.monotonic()
        super().called(connection, sender, path, interface, method, arguments, invocation)


class World:
    """Use it with "with": what it starts ends with it."""

    def __enter__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="brenwick-bench-")
        self.started = []
        home = pathlib.Path(self.folder.name)
        (home / "run").mkdir(mode=0o700)
        self.environment = {
            "HOME": str(home), "XDG_RUNTIME_DIR": str(home / "run"), "PATH": os.environ["PATH"],
            "LANG": "C.UTF-8", "QT_QPA_PLATFORM": "xcb",
            "DISPLAY": ":" + self.told_by(["Xvfb", "-displayfd", "1", "-nolisten", "tcp",
                                           "-screen", "0", "1280x800x24"])}
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.told_by(
            ["dbus-daemon", "--session", "--nofork", "--print-address=1"])
        self.watch_for_icons()
        return self

    def __exit__(self, *_):
        for process in reversed(self.started):
            process.terminate()
            process.wait()
        self.folder.cleanup()

    def told_by(self, command):
        """Starts a server; what it tells in its first line."""
        process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                   env=getattr(self, "environment", None), text=True)
        self.started.append(process)
        return process.stdout.readline().strip()

    def watch_for_icons(self):
        bus = Gio.DBusConnection.new_for_address_sync(
            self.environment["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
            Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self.area = NotingArea(bus)
        Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
        self.bus = bus
        self.wait_for(lambda: self.owner() != "")

    def owner(self):
        try:
            return self.bus.call_sync(
                "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetNameOwner",
                GLib.Variant("(s)", (NAME,)), None, Gio.DBusCallFlags.NONE, -1, None)[0]
        except GLib.Error:
            return ""

    @staticmethod
    def wait_for(condition, seconds=PATIENCE):
        """Lets the bus work until the condition holds."""
        end = time.monotonic() + seconds
        context = GLib.MainContext.default()
        GLib.timeout_add(5, lambda: True)  # so that an iteration ends without an event, too
        while not condition():
            if time.monotonic() > end:
                raise TimeoutError(f"not there after {seconds} s")
            context.iteration(True)

    def start(self, command, home="home"):
        """Starts a program; the process, and the seconds until its tray icon came."""
        folder = pathlib.Path(self.folder.name) / home
        folder.mkdir(exist_ok=True)
        self.area.icon_at = None
        begin = time.monotonic()
        process = subprocess.Popen(command, env={**self.environment, "HOME": str(folder)},
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        self.wait_for(lambda: self.area.icon_at is not None or process.poll() is not None)
        if self.area.icon_at is None:
            raise RuntimeError(f"{command[0]} ended without an icon")
        return process, self.area.icon_at - begin


def status_of(process, name):
    """A number from /proc/PID/status, such as VmRSS in KiB."""
    text = pathlib.Path(f"/proc/{process.pid}/status").read_text(encoding="ascii")
    return int(text.split(name + ":")[1].split()[0])


def cpu_of(process):
    """Clock ticks that the process has worked."""
    text = pathlib.Path(f"/proc/{process.pid}/stat").read_text(encoding="ascii")
    fields = text.rsplit(")", 1)[1].split()
    return int(fields[11]) + int(fields[12])


def wait_until_idle(process, still=1.0):
    """Until the process has not worked for so many seconds."""
    worked, since = cpu_of(process), time.monotonic()
    end = time.monotonic() + PATIENCE
    while time.monotonic() - since < still:
        if time.monotonic() > end:
            raise TimeoutError("it does not come to rest")
        World.wait_for(lambda until=time.monotonic() + 0.05: time.monotonic() > until)
        if cpu_of(process) != worked:
            worked, since = cpu_of(process), time.monotonic()
