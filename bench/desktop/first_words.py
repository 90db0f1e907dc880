#!/usr/bin/python3
"""How long it takes from a notification on the bus to the first samples of its sentence, beside a
script that pipes dbus-monitor into the command-line espeak-ng, which is what people use instead.

usage: first_words.py BRENWICK [RUNS]

One after the other they hear the same notifications on the same bus; the sound of both goes through
ALSA into a pipe that is read at once. The medians are compared: at least ten times faster is
wanted. The exit status is 0 when it is.
"""
import os
import pathlib
import select
import socket
import statistics
import subprocess
import sys
import time

sys.dont_write_bytecode = True  # the source tree stays as it is
from gi.repository import Gio, GLib  # noqa: E402
from world import PATIENCE, World  # noqa: E402

LEAST = 10  # times as fast
NOTIFICATIONS = "org.freedesktop.Notifications"
HIDDEN = """[Software\\Brenwick\\General]
Introduce = "0"
ShowStartupScreen = "1"
Language = "English"
[Software\\Brenwick\\Notifications]
Chat = "1"
"""
# The body of a call is its fourth line that holds a text: application, icon, summary, body.
SCRIPT = """dbus-monitor --session "interface='org.freedesktop.Notifications',member='Notify'" |
while read -r kind text; do
  case $kind in
    method) number=0 ;;
    string) number=$((number + 1))
      if [ $number = 4 ]; then espeak-ng "$text"; fi ;;
  esac
done
"""


class Ear:
    """The pipe that a program's sound goes to."""

    def __init__(self, world, name, settings=HIDDEN):
        self.home = pathlib.Path(world.folder.name) / name
        (self.home / ".config/brenwick").mkdir(parents=True)
        (self.home / ".config/brenwick/store.ini").write_text(settings, encoding="utf-8")
        pipe = self.home / "sound"
        os.mkfifo(pipe)
        (self.home / ".asoundrc").write_text(
            f'pcm.!default {{ type file; slave.pcm null; file "{pipe}"; format raw }}\n'
            "ctl.!default { type null }\n", encoding="utf-8")
        self.pipe = os.open(pipe, os.O_RDONLY | os.O_NONBLOCK)

    def into_nothing(self):
        """The sound goes to nobody instead."""
        (self.home / ".asoundrc").write_text(
            "pcm.!default { type null }\nctl.!default { type null }\n", encoding="utf-8")

    def first_samples(self):
        """When the first samples came, on the clock of time.monotonic."""
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            select.select([self.pipe], [], [], 0.1)
            if self.take():
                return time.monotonic()
        raise TimeoutError("no sound")

    def take(self):
        try:
            return os.read(self.pipe, 1 << 16)
        except BlockingIOError:
            return b""

    def until_silence(self, seconds=0.5):
        silent_since = time.monotonic()
        while time.monotonic() - silent_since < seconds:
            if self.take():
                silent_since = time.monotonic()
            time.sleep(0.002)


def notification(text):
    message = Gio.DBusMessage.new_method_call(
        NOTIFICATIONS, "/org/freedesktop/Notifications", NOTIFICATIONS, "Notify")
    message.set_body(GLib.Variant("(susssasa{sv}i)", ("Chat", 0, "", "Anna", text, [], {}, -1)))
    message.set_flags(Gio.DBusMessageFlags.NO_REPLY_EXPECTED)
    return message


class Sender:
    """A connection to the bus that no thread stands in front of: what is sent is on its way."""

    def __init__(self, world):
        path = world.environment["DBUS_SESSION_BUS_ADDRESS"].split("path=")[1].split(",")[0]
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(path)
        self.socket.sendall(b"\0AUTH EXTERNAL " + str(os.getuid()).encode().hex().encode() + b"\r\n")
        if not self.socket.recv(256).startswith(b"OK"):
            raise RuntimeError("the bus refuses the connection")
        self.socket.sendall(b"BEGIN\r\n")
        self.serial = 0
        bus = "org.freedesktop.DBus"
        self.send(Gio.DBusMessage.new_method_call(bus, "/org/freedesktop/DBus", bus, "Hello"))

    def send(self, message):
        self.serial += 1
        message.set_serial(self.serial)
        self.socket.sendall(message.to_blob(Gio.DBusCapabilityFlags.NONE))


def have_desktop(world):
    """Somebody to show the notifications, as there is on every desktop."""
    world.bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName",
                        GLib.Variant("(su)", (NOTIFICATIONS, 0)), None, Gio.DBusCallFlags.NONE, -1,
                        None)


def measure(sender, ear, text):
    """Milliseconds to the first samples."""
    message = notification(text)
    begin = time.monotonic()
    sender.send(message)
    heard = ear.first_samples()
    ear.until_silence()
    return (heard - begin) * 1000


def start(world, command, ear):
    process = subprocess.Popen(command, env={**world.environment, "HOME": str(ear.home)},
                               stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, start_new_session=True)
    return process


def stop(process):
    os.killpg(process.pid, 15)
    process.wait()


def main():
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 21
    found = {}
    with World() as world:
        have_desktop(world)
        sender = Sender(world)
        for name, command in (("brenwick", [sys.argv[1]]), ("script", ["sh", "-c", SCRIPT])):
            ear = Ear(world, name)
            process = start(world, command, ear)
            try:
                while True:  # until it listens
                    sender.send(notification("Ready?"))
                    if select.select([ear.pipe], [], [], 0.5)[0]:
                        break
                ear.until_silence(2)
                found[name] = [measure(sender, ear, f"Hello, this is number {run}.")
                               for run in range(runs)]
            finally:
                stop(process)
    print(f"{'ms to the first samples':26}{'median':>10}{'shortest':>10}{'longest':>10}")
    for name, times in found.items():
        print(f"{name:26}{statistics.median(times):10.2f}{min(times):10.2f}{max(times):10.2f}")
    ratio = statistics.median(found["script"]) / statistics.median(found["brenwick"])
    print(f"{'GOOD' if ratio >= LEAST else 'BAD'}: {ratio:.1f} times as fast, {LEAST} wanted")
    return 0 if ratio >= LEAST else 1


if __name__ == "__main__":
    sys.exit(main())
