"""The person at the other end, with a client of its own in a thread of the test."""
import asyncio
import threading
from xml.sax.saxutils import escape, quoteattr

import slixmpp

from chat_server import HOST, PASSWORD
from servers import await_that

ME = f"me@{HOST}"

FILE_OFFER = """<iq type='set' id='offer' to={to}>
<si xmlns='http://jabber.org/protocol/si' id='file' mime-type='text/plain'
 profile='http://jabber.org/protocol/si/profile/file-transfer'>
<file xmlns='http://jabber.org/protocol/si/profile/file-transfer' name={name} size='1022'/>
<feature xmlns='http://jabber.org/protocol/feature-neg'>
<x xmlns='jabber:x:data' type='form'><field var='stream-method' type='list-single'>
<option><value>http://jabber.org/protocol/ibb</value></option></field></x></feature></si></iq>"""


class Peer:
    def __init__(self, user, port):
        self.jid = f"{user}@{HOST}/pc"
        self.port = port
        self.loop = asyncio.new_event_loop()
        self.thread = threading.Thread(target=self.loop.run_forever)
        self.thread.start()
        self.client = None
        self.seen = set()  # who has shown any presence
        self.heard = []    # from whom, and what
        self.sign_on()

    def _do(self, action):
        done = asyncio.run_coroutine_threadsafe(action(), self.loop)
        return done.result(60)

    def sign_on(self, presence=True):
        started = threading.Event()

        async def connect():
            self.client = slixmpp.ClientXMPP(self.jid, PASSWORD)
            self.client.add_event_handler("session_start", lambda _: started.set())
            self.client.add_event_handler(
                "presence", lambda presence: self.seen.add(presence["from"].full))
            self.client.add_event_handler(
                "message", lambda said: self.heard.append((said["from"].bare, said["body"])))
            self.client.connect(("127.0.0.1", self.port), disable_starttls=True)
        self._do(connect)
        await_that(started.is_set, f"{self.jid} signed on")
        if presence:
            self.show()

    def end(self):
        self.lose_connection()
        self.loop.call_soon_threadsafe(self.loop.stop)
        self.thread.join()
        self.loop.close()

    def lose_connection(self):
        """Without a word to the server."""
        async def leave():
            self.client.abort()
            rest = asyncio.all_tasks() - {asyncio.current_task()}
            for task in rest:
                task.cancel()
            await asyncio.gather(*rest, return_exceptions=True)
        self._do(leave)

    def send(self, xml):
        async def write():
            self.client.send_raw(xml)
        self._do(write)

    def show(self, state="", more=""):
        """away, chat, dnd, xa, or nothing for one who is there."""
        self.send(f"<presence>{'<show>' + state + '</show>' if state else ''}{more}</presence>")

    def go_offline(self):
        self.send("<presence type='unavailable'/>")

    def say(self, text, rich="", kind="chat", more=""):
        html = ("<html xmlns='http://jabber.org/protocol/xhtml-im'>"
                f"<body xmlns='http://www.w3.org/1999/xhtml'>{rich}</body></html>") if rich else ""
        self.send(f"<message to='{ME}' type='{kind}'><body>{escape(text)}</body>{html}{more}"
                  "</message>")

    def offer_file(self, device, name):
        self.send(FILE_OFFER.format(to=quoteattr(f"{ME}/{device}"), name=quoteattr(name)))

    def enter(self, room, nick):
        self.send(f"<presence to='{room}/{nick}'><x xmlns='http://jabber.org/protocol/muc'/>"
                  "</presence>")

    def say_in(self, room, text):
        self.send(f"<message to='{room}' type='groupchat'><body>{escape(text)}</body></message>")

    def say_privately(self, place, text):
        self.send(f"<message to='{place}' type='chat'><body>{escape(text)}</body></message>")

    def await_in(self, room, nick):
        """Awaits that somebody has entered the room."""
        await_that(lambda: f"{room}/{nick}" in self.seen, f"{nick} in {room}",
                   lambda: f"There are {self.seen}.")

    def await_said(self, room, text):
        await_that(lambda: (room, text) in self.heard, f"{text!r} in {room}",
                   lambda: f"Said was {self.heard}.")

    def invite(self, room):
        self.send(f"<message to='{ME}'><x xmlns='jabber:x:conference' jid='{room}'/></message>")

    def mail(self, count):
        self.send(f"<iq type='set' id='mail' to='{ME}'>"
                  f"<arrived xmlns='brenwick:mail' count='{count}'/></iq>")
