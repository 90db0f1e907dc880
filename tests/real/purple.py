"""Finch in a terminal, or Pidgin on the screen, signed on as me."""
import os
import signal

from accessible import call, connect, has_owner
from chat_server import HOST, PASSWORD
from gi.repository import GLib
from servers import await_that

SERVICE = "im.pidgin.purple.PurpleService"
PATH = "/im/pidgin/purple/PurpleObject"
INTERFACE = "im.pidgin.purple.PurpleInterface"
DEVICE = "here"

ACCOUNTS = """<?xml version='1.0' encoding='UTF-8' ?>
<account version='1.0'><account>
 <protocol>prpl-jabber</protocol>
 <name>me@{host}/{device}</name>
 <password>{password}</password>
 <alias>Max Muster</alias>
 <settings>
  <setting name='connection_security' type='string'>opportunistic_tls</setting>
  <setting name='auth_plain_in_clear' type='bool'>1</setting>
  <setting name='connect_server' type='string'>127.0.0.1</setting>
  <setting name='port' type='int'>{port}</setting>
  <setting name='check-mail' type='bool'>1</setting>
 </settings>
 <settings ui='gnt-purple'><setting name='auto-login' type='bool'>1</setting></settings>
 <settings ui='gtk-gaim'><setting name='auto-login' type='bool'>1</setting></settings>
</account></account>
"""
# It goes away by itself when nobody types, and Pidgin makes sounds.
PREFERENCES = """<?xml version='1.0' encoding='UTF-8' ?>
<pref version='1' name='/'>
 <pref name='purple'><pref name='away'>
  <pref name='idle_reporting' type='string' value='none'/>
  <pref name='away_when_idle' type='bool' value='0'/>
 </pref></pref>
 <pref name='pidgin'><pref name='sound'>
  <pref name='method' type='string' value='none'/>
 </pref></pref>
</pref>
"""


class Purple:
    COMMANDS = {
        "finch": ["/usr/bin/script", "--quiet", "--command", "finch --config={folder}",
                  "/dev/null"],
        "pidgin": ["/usr/bin/pidgin", "--config={folder}"],
    }

    def __init__(self, desktop, port, kind):
        self.desktop = desktop
        self.kind = kind
        self.connection = connect(desktop.session_bus)
        self.folder = desktop.folder / kind
        self.folder.mkdir()
        (self.folder / "accounts.xml").write_text(
            ACCOUNTS.format(host=HOST, device=DEVICE, password=PASSWORD, port=port),
            encoding="utf-8")
        (self.folder / "prefs.xml").write_text(PREFERENCES, encoding="utf-8")
        desktop.environment["TERM"] = "xterm"
        self.start()

    def start(self):
        command = [part.format(folder=self.folder) for part in self.COMMANDS[self.kind]]
        self.server = self.desktop.start(command)
        await_that(self.runs, self.kind,
                   lambda: self.server.log.read_text(errors="replace"))
        await_that(self.signed_on, f"the sign-on of {self.kind}",
                   lambda: self.server.log.read_text(errors="replace"))

    def end(self, number=signal.SIGTERM):
        os.kill(self.pid, number)
        await_that(lambda: not self.runs(), f"the end of {self.kind}")
        self.desktop.stop(self.server)

    def runs(self):
        return has_owner(self.connection, SERVICE)

    def put_away(self):
        """At the end of a test."""
        if self.runs():
            self.end()

    @property
    def pid(self):
        return call(self.connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                    "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                    GLib.Variant("(s)", (SERVICE,)))[0]

    def ask(self, method, signature="()", *values):
        answer = call(self.connection, SERVICE, PATH, INTERFACE, "Purple" + method,
                      GLib.Variant(signature, values))
        return answer[0] if answer else None

    @property
    def account(self):
        return self.ask("AccountsFind", "(ss)", f"me@{HOST}/{DEVICE}", "prpl-jabber")

    def signed_on(self):
        return self.account and self.ask("AccountIsConnected", "(i)", self.account)

    def sign_off(self):
        self.ask("AccountDisconnect", "(i)", self.account)

    def sign_on(self):
        self.ask("AccountConnect", "(i)", self.account)

    def enter(self, room, rooms, nick):
        connection = self.ask("AccountGetConnection", "(i)", self.account)
        data = GLib.Variant("(ia{ss})", (connection, {"room": room, "server": rooms,
                                                      "handle": nick}))
        call(self.connection, SERVICE, PATH, INTERFACE, "ServJoinChat", data)

    def say_in(self, room, text):
        [chat] = [each for each in self.ask("GetChats")
                  if self.ask("ConversationGetName", "(i)", each) == room]
        self.ask("ConvChatSend", "(is)", self.ask("ConversationGetChatData", "(i)", chat), text)

    def conversations(self):
        """With whom there are windows."""
        return [self.ask("ConversationGetName", "(i)", each) for each in self.ask("GetIms")]

    def answer(self, person, text):
        """Says something as the user."""
        conversation = self.ask("ConversationNew", "(iis)", 1, self.account, person)
        self.ask("ConvImSend", "(is)", self.ask("ConversationGetImData", "(i)", conversation),
                 text)
