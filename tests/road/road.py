"""The whole road: a chat server, two people with real clients, the program on a private desktop.

What is heard is what the program hands to the speech engine, sentence by sentence: nothing may be
missing, come twice, or come besides.
"""
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "desktop"))

import case  # noqa: E402
from chat_server import ChatServer  # noqa: E402
from peer import Peer  # noqa: E402
from program import debug_log  # noqa: E402
from purple import Purple  # noqa: E402
from servers import await_that  # noqa: E402

LINE = re.compile(r"^\d\d \w{3} \d{4} \d\d:\d\d:\d\d ", re.MULTILINE)
SPOKEN = "Speak Speaking text: "
GREETING = "Welcome to the Brenwick., hello"


class RoadTest(case.DesktopTest):
    settings = None
    client = "finch"

    def setUp(self):
        super().setUp()
        self.expected = []
        self.server = ChatServer(self.desktop)
        self.anna = Peer("anna", self.server.port)
        self.addCleanup(self.anna.end)

    def start_client(self):
        self.me = Purple(self.desktop, self.server.port, self.client)
        self.addCleanup(self.me.put_away)

    def start_program(self, greeting):
        self.start("--debug")
        self.hear(greeting)

    def log(self):
        """The lines of the debug log without their times; a text may go on in the next line."""
        return [entry.rstrip("\n") for entry in LINE.split(debug_log(self.desktop))]

    def spoken(self):
        return [entry[len(SPOKEN):] for entry in self.log() if entry.startswith(SPOKEN)]

    def hear(self, *sentences):
        """Awaits that these are said, and nothing besides since the last ones."""
        self.expected += sentences
        await_that(lambda: len(self.spoken()) >= len(self.expected), f"{sentences} to be said",
                   lambda: f"Said was {self.spoken()}, the log is {self.log()[-12:]}.")
        self.assertEqual(self.spoken(), self.expected)

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
