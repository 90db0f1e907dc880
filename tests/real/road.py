"""The whole road: a chat server, two people with real clients, the program on a private desktop.

What is heard is what the speech engine's process is told to say, sentence by sentence: nothing may be
missing, come twice, or come besides, up to the end of the program.
"""
import json
import pathlib
import re
import sys
from unittest import mock

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "program"))

import case  # noqa: E402
from accessible import call, connect  # noqa: E402
from chat_server import ChatServer  # noqa: E402
from peer import Peer  # noqa: E402
from gi.repository import GLib  # noqa: E402
from program import debug_log, with_engine  # noqa: E402
from purple import Purple  # noqa: E402
from servers import await_that  # noqa: E402

LINE = re.compile(r"^\d\d \w{3} \d{4} \d\d:\d\d:\d\d ", re.MULTILINE)
HERE = pathlib.Path(__file__).parent
FEED = "org.brenwick.Brenwick1"
ONLINE = "You are online."
OFFLINE = "You are offline."
GREETING = "Welcome to the Brenwick., hello"


def as_engine_text(sentence):
    """As the engine is handed a sentence: spaces and line ends in a row are one space."""
    return " ".join(sentence.split())


class HeardTest(case.DesktopTest):
    """The way from the program to the engine."""
    settings = None

    def setUp(self):
        super().setUp()
        self.expected = []
        self.transcript = self.desktop.folder / "transcript"
        listening = f'exec /usr/bin/python3 "{HERE / "listening_engine.py"}" "$ENGINE"'
        program = with_engine(self.desktop, case.PROGRAM, f'{listening} "{self.transcript}"')
        patch = mock.patch.object(case, "PROGRAM", program)
        patch.start()
        self.addCleanup(patch.stop)

    def tearDown(self):
        try:
            if not self.has_failed():
                self.hear_the_end()
        finally:
            super().tearDown()
        self.assertEqual(self.spoken(), self.expected)

    def start_program(self, greeting):
        self.start("--debug")
        self.hear(greeting)

    def log(self):
        """The lines of the debug log without their times; a text may go on in the next line."""
        return [entry.rstrip("\n") for entry in LINE.split(debug_log(self.desktop))]

    def spoken(self):
        if not self.transcript.exists():
            return []
        lines = self.transcript.read_text(encoding="utf-8").split("\n")
        return [json.loads(line) for line in lines[:-1]]

    def hear(self, *sentences):
        """Awaits that these are said, and nothing besides since the last ones."""
        self.expected += map(as_engine_text, sentences)
        await_that(lambda: len(self.spoken()) >= len(self.expected), f"{sentences} to be said",
                   lambda: f"Said was {self.spoken()}, the log is {self.log()[-12:]}.")
        self.assertEqual(self.spoken(), self.expected)

    def feed(self, contact, name, text):
        """Raises a message as a script does."""
        call(connect(self.desktop.session_bus), FEED, "/org/brenwick/Brenwick1", FEED, "Message",
             GLib.Variant("(sss)", (contact, name, text)))

    def hear_the_end(self):
        """Says one more sentence, behind all that still waits to be said."""
        states = [said for said in self.expected if said in (ONLINE, OFFLINE)]
        self.feed("bell", "Bell", "that was all")
        # It makes the user signed in, where no messenger does.
        now_online = [ONLINE] if states[-1:] == [OFFLINE] else []
        self.hear(*now_online, "Bell says that was all")


class RoadTest(HeardTest):
    """The way from another person's client, too."""
    client = "finch"

    def setUp(self):
        super().setUp()
        self.server = ChatServer(self.desktop)
        self.anna = Peer("anna", self.server.port)
        self.addCleanup(self.anna.end)

    def start_client(self):
        self.me = Purple(self.desktop, self.server.port, self.client)
        self.addCleanup(self.me.put_away)

    def await_found(self, who, state, times=1):
        """Awaits that the program has taken in, without a word, how things stand."""
        def found():
            log = self.log()
            return sum(before == "MessengerObject UserStateFound" and
                       entry.startswith(f"UserStateChanged {who} ") and entry.endswith(state)
                       for before, entry in zip(log, log[1:])) >= times
        await_that(found, f"{who} found {state}", lambda: f"The log is {self.log()[-12:]}.")

    def choose_in_menu(self, person):
        """Asks for a conversation by the program's menu in the notification area."""
        lines = [each for line in self.area.icon().open_menu() for each in line.lines]
        [found] = [line for line in lines if person in line.caption]
        found.choose()
