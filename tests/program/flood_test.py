#!/usr/bin/python3
"""More messages than anybody can hear: the program goes on, answers, and keeps its memory."""
import pathlib
import threading

import case
from accessible import call, connect
from gi.repository import Gio, GLib
from servers import await_that

MESSAGES = 10_000
SENDERS = 25
FEED = "org.brenwick.Brenwick1"
FEED_PATH = "/org/brenwick/Brenwick1"
TOO_MANY = "org.brenwick.Brenwick1.Error.TooManyEvents"
A_SECOND = 50  # events that the feed takes from one sender
LAST = "the last message"
AT_A_TIME = 100  # more calls without an answer a bus may refuse
NOTIFICATIONS = "org.freedesktop.Notifications"
# Of a message a line stays in the list of spoken words, and its sentence waits for the engine, in
# all a few hundred bytes.
BYTES_A_MESSAGE = 1024
# For the rest: the bus with the calls that wait there at one time, the log, an engine that was not
# yet at work, and what the sanitizers lay around each piece of all that.
BYTES_AT_ALL = 24 << 20
# What the sanitizers keep back of freed memory is none of the program's.
SANITIZERS = "quarantine_size_mb=0"


class Flood(threading.Thread):
    """Notifications as fast as they can be sent, and some more until they are enough."""

    def __init__(self, bus):
        super().__init__(daemon=True)
        self.bus = bus
        self.sent = 0
        self.enough = threading.Event()

    def run(self):
        while not self.enough.is_set() or self.sent < MESSAGES:
            self.send(f"message {self.sent}")
            if self.sent % 100 == 0:
                self.bus.flush_sync(None)
            if self.sent > MESSAGES:
                self.enough.wait(0.01)
        self.send(LAST)
        self.bus.flush_sync(None)

    def send(self, text):
        message = Gio.DBusMessage.new_method_call(
            NOTIFICATIONS, "/org/freedesktop/Notifications", NOTIFICATIONS, "Notify")
        message.set_body(GLib.Variant("(susssasa{sv}i)", ("Chat", 0, "", "Anna", text, [], {}, -1)))
        message.set_flags(Gio.DBusMessageFlags.NO_REPLY_EXPECTED)
        self.bus.send_message(message, Gio.DBusSendMessageFlags.NONE)
        self.sent += 1


class Sender:
    """A script that calls the feed, as fast as a bus lets it, and notes what comes back."""

    def __init__(self, bus, name, calls):
        self.bus, self.name, self.calls = bus, name, calls
        self.sent = 0
        self.answers = []
        for _ in range(min(calls, AT_A_TIME)):
            self.send()

    def send(self):
        self.bus.call(FEED, FEED_PATH, FEED, "Message",
                      GLib.Variant("(sss)", (self.name, self.name, f"message {self.sent}")), None,
                      Gio.DBusCallFlags.NO_AUTO_START, -1, None, self.answered)
        self.sent += 1

    def answered(self, bus, result):
        try:
            bus.call_finish(result)
            self.answers.append("")
        except GLib.Error as error:
            self.answers.append(Gio.DBusError.get_remote_error(error))
        if self.sent < self.calls:
            self.send()

    def granted(self):
        return self.answers.count("")


class GrowingLog:
    """The debug log, of which each look reads only what is new."""

    def __init__(self, desktop):
        self.folder = desktop.documents / "Brenwick/DebugLogs"
        self.read = {}
        self.whole, self.begun = [], ""

    def lines(self):
        for file in sorted(self.folder.glob("*.log")):
            with open(file, encoding="utf-8") as log:
                log.seek(self.read.get(file, 0))
                *lines, self.begun = (self.begun + log.read()).split("\n")
                self.whole += lines
                self.read[file] = log.tell()
        return self.whole


class Floods(case.DesktopTest):
    settings = {"General": {"ShowStartupScreen": "1"}, "User": {"FinishSentence": "1"},
                "Notifications": {"Chat": "1"}}

    def setUp(self):
        super().setUp()
        options = self.desktop.environment.get("ASAN_OPTIONS", "")
        self.desktop.environment["ASAN_OPTIONS"] = f"{options}:{SANITIZERS}".lstrip(":")
        self.start()
        self.log = GrowingLog(self.desktop)

    def bus(self):
        connection = connect(self.desktop.session_bus)
        self.addCleanup(connection.close_sync, None)
        return connection

    def resident(self):
        status = pathlib.Path(f"/proc/{self.program.pid}/status").read_text(encoding="ascii")
        return int(status.split("VmRSS:")[1].split()[0]) << 10

    def lines(self, words):
        """The numbers of the lines of the log that hold the words."""
        return [number for number, line in enumerate(self.log.lines()) if words in line]

    def heard(self):
        return len(self.lines("TextReceived Text  :"))

    def await_heard(self, count):
        """However slow the machine is, it gets on."""
        for some in [*range(0, count, 500), count]:
            await_that(lambda: self.heard() >= some, f"{some} messages",
                       lambda: f"There were {self.heard()}.")

    def assert_slim(self, before, messages):
        grown = self.resident() - before
        self.assertLess(grown, BYTES_AT_ALL + messages * BYTES_A_MESSAGE)

    def asked(self, verb):
        done = self.ask(verb)
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_of_notifications(self):
        before = self.resident()
        flood = Flood(self.bus())
        self.addCleanup(flood.enough.set)
        flood.start()
        self.await_heard(100)
        # These are answered while more and more comes.
        for verb in ("--stop", "--mute", "--mute"):
            self.asked(verb)
        flood.enough.set()
        flood.join()
        self.await_heard(flood.sent)
        muted, = self.lines("Mute Current setting = Silent")
        speaking, = self.lines("Mute Current setting = Speaking")
        messages = self.lines("TextReceived Text  :")
        self.assertLess(messages[99], muted)
        self.assertLess(muted, speaking)
        self.assertLess(speaking, messages[-1])
        self.assertEqual(len(messages), flood.sent)
        self.assertEqual(self.lines(f"TextReceived Text  :{LAST}"), messages[-1:])
        self.assert_slim(before, len(messages))

    def test_of_the_feed(self):
        before = self.resident()
        begin = GLib.get_monotonic_time()
        senders = [Sender(self.bus(), "greedy", MESSAGES // 2)]
        senders += [Sender(self.bus(), f"sender {i}", MESSAGES // 2 // SENDERS)
                    for i in range(SENDERS)]
        context = GLib.MainContext.default()

        def answered():
            while context.iteration(False):
                pass
            return all(len(sender.answers) == sender.calls for sender in senders)
        await_that(answered, "an answer to each call")
        seconds = (GLib.get_monotonic_time() - begin) // 1_000_000 + 1
        for sender in senders:
            self.assertLessEqual(set(sender.answers), {"", TOO_MANY}, sender.name)
            self.assertGreaterEqual(sender.granted(), A_SECOND)
            self.assertLessEqual(sender.granted(), A_SECOND * seconds)
        self.assertIn(TOO_MANY, senders[0].answers)
        granted = sum(sender.granted() for sender in senders)
        self.await_heard(granted)
        self.assertEqual(self.heard(), granted)
        self.assert_slim(before, granted)
        self.asked("--stop")
        # Who comes now is heard.
        call(self.bus(), FEED, FEED_PATH, FEED, "State",
             GLib.Variant("(sss)", ("other", "Other", "away")))


if __name__ == "__main__":
    case.main()
