#!/usr/bin/python3
"""What comes over the session bus without a messenger: a script's message, and a notification."""
import road
from accessible import call, connect
from gi.repository import Gio, GLib

DESK = "org.freedesktop.Notifications"
DESK_PATH = "/org/freedesktop/Notifications"


class Feed(road.HeardTest):
    def test_a_script_is_heard(self):
        self.start_program(road.GREETING)
        self.feed("anna@example.org", "Anna Baker", "fish & chips <today>")
        self.hear(road.ONLINE, "Anna says fish & chips (today)")
        self.feed("anna@example.org", "Anna Baker", "the last word")
        self.hear("Anna says the last word")


class Notifications(road.HeardTest):
    settings = {"Notifications": {"Chat": "1"},
                "User": {"IntroduceUser": "1"}, "Text": {"Says": "says"}}

    def setUp(self):
        super().setUp()
        # Only where there is somebody who shows them is anything shown.
        self.connection = connect(self.desktop.session_bus)
        call(self.connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
             "org.freedesktop.DBus", "RequestName", GLib.Variant("(su)", (DESK, 0)))

    def show(self, application, summary, body, replaced=0):
        message = Gio.DBusMessage.new_method_call(DESK, DESK_PATH, DESK, "Notify")
        message.set_flags(Gio.DBusMessageFlags.NO_REPLY_EXPECTED)
        message.set_body(GLib.Variant("(susssasa{sv}i)",
                                      (application, replaced, "", summary, body, [], {}, -1)))
        self.connection.send_message(message, Gio.DBusSendMessageFlags.NONE)

    def test_those_of_a_chosen_application_are_heard(self):
        self.start("--debug")
        self.show("Other", "Bob", "not this")
        self.show("Chat", "Anna Baker", "<b>fish</b> &amp; chips")
        self.hear("Anna Baker says fish & chips")
        self.show("Chat", "Anna Baker", "<b>fish</b> &amp; chips", 7)
        self.show("Chat", "Anna Baker", "the last word")
        self.hear("Anna Baker says the last word")


if __name__ == "__main__":
    road.case.main()
