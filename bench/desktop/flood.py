#!/usr/bin/python3
"""How fluid Brenwick stays, and how slim, while 10,000 messages come in ten seconds.

usage: flood.py BRENWICK

They come as notifications, then as calls of the feed by 25 scripts. Meanwhile the program's window is
open, and it is asked again and again for what it refuses at once; the time until it does is the time
in which it would have answered to a key. At most 50 ms are wanted; the exit status is 0 when that
holds.
"""
import statistics
import sys
import threading
import time

sys.dont_write_bytecode = True  # the source tree stays as it is
from gi.repository import Gio, GLib  # noqa: E402
from first_words import HIDDEN, Ear, Sender, have_desktop, notification  # noqa: E402
from world import World, status_of, wait_until_idle  # noqa: E402

MESSAGES, SECONDS = 10_000, 10
SCRIPTS = 25
MOST_MILLISECONDS = 50
FEED = "org.brenwick.Brenwick1"
SHOWN = HIDDEN.replace('ShowStartupScreen = "1"', 'ShowStartupScreen = "0"')


def connect(world):
    return Gio.DBusConnection.new_for_address_sync(
        world.environment["DBUS_SESSION_BUS_ADDRESS"],
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT |
        Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)


def call_feed(bus, number):
    message = Gio.DBusMessage.new_method_call(FEED, "/org/brenwick/Brenwick1", FEED, "Message")
    message.set_body(GLib.Variant("(sss)", ("anna", "Anna", f"message {number}")))
    message.set_flags(Gio.DBusMessageFlags.NO_REPLY_EXPECTED)
    bus.send_message(message, Gio.DBusSendMessageFlags.NONE)


def flood(send_one):
    """Sends the messages, spread evenly over the seconds."""
    begin = time.monotonic()
    for number in range(MESSAGES):
        send_one(number)
        ahead = begin + SECONDS * number / MESSAGES - time.monotonic()
        if ahead > 0:
            time.sleep(ahead)


def call_brenwick(bus, method, arguments=None):
    bus.call_sync("org.brenwick.Brenwick", "/org/brenwick/Brenwick", "org.brenwick.Brenwick", method,
                  arguments, None, Gio.DBusCallFlags.NONE, -1, None)


def answer_times(bus, busy):
    """Milliseconds to the answer of one call after the other."""
    times = []
    while busy.is_alive():
        begin = time.monotonic()
        try:
            call_brenwick(bus, "Repeat", GLib.Variant("(i)", (5,)))
            raise RuntimeError("it has repeated a sentence that does not exist")
        except GLib.Error:
            times.append((time.monotonic() - begin) * 1000)
        time.sleep(0.001)
    return times


def main():
    good = True
    with World() as world:
        have_desktop(world)
        buses = [connect(world) for _ in range(SCRIPTS)]
        asking, sender = connect(world), Sender(world)
        ways = {"notifications": lambda number: sender.send(notification(f"message {number}")),
                "the feed": lambda number: call_feed(buses[number % SCRIPTS], number)}
        print(f"{'while there come':20}{'answers':>8}{'median ms':>11}{'99 %':>9}{'longest':>9}"
              f"{'KiB before':>12}{'after':>8}")
        for name, way in ways.items():
            ear = Ear(world, name, SHOWN)
            ear.into_nothing()
            process, _ = world.start([sys.argv[1]], home=name)
            try:
                wait_until_idle(process)
                before = status_of(process, "VmRSS")
                busy = threading.Thread(target=flood, args=[way])
                busy.start()
                times = sorted(answer_times(asking, busy))
                busy.join()
                call_brenwick(asking, "Stop")  # what waits would be said for hours
                wait_until_idle(process)
                after = status_of(process, "VmRSS")
            finally:
                process.terminate()
                process.wait()
            good = good and times[-1] <= MOST_MILLISECONDS
            print(f"{name:20}{len(times):8}{statistics.median(times):11.2f}"
                  f"{times[len(times) * 99 // 100]:9.2f}{times[-1]:9.2f}{before:12}{after:8}")
    print(f"{'GOOD' if good else 'BAD'}: at most {MOST_MILLISECONDS} ms wanted")
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
