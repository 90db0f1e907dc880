#!/usr/bin/python3
"""Messages, states and offers from Finch, from the other person's client to the sound."""
import os
import signal
import time

import road
from chat_server import ROOMS
from purple import DEVICE
from servers import await_that
from sound import Recording

WITH_NAME = f"{road.GREETING} Max Muster"
# Seconds; times of messages are whole ones.
CLEARLY = 3
ANNA = "AnnaBaker (anna@localhost)"


class Conversation(road.RoadTest):
    """The client runs, and somebody is there, before the program starts."""

    def setUp(self):
        super().setUp()
        self.start_client()
        self.start_program(WITH_NAME)
        self.await_found(ANNA, "MSTATE_ONLINE")

    def test_messages(self):
        anna = self.anna
        anna.say("fish & chips <today>")
        self.hear("Anna Baker says fish & chips (today)")
        anna.say("ignored", rich="<p>rich <b>and</b> bold<br/>caf\u00e9 \U0001F600 &amp; &#228;</p>")
        # What stands for an emoji is the program's own abbreviation.
        self.hear("Anna Baker says rich and bold\ncaf\u00e9  smile  & \u00e4")
        anna.say("one\ntwo\n\nthree")
        self.hear("Anna Baker says one\ntwo\n\nthree")
        anna.say("/talk now")
        self.hear("Anna Baker says  now")
        anna.say("", more="<attention xmlns='urn:xmpp:attention:0'/>")
        anna.say("the news", kind="headline")
        self.me.answer("anna@localhost", "my own words")
        anna.say("the last word")
        self.hear("Anna Baker says the last word")

    def test_states(self):
        for state, said in (("away", "away"), ("xa", "out to lunch"), ("dnd", "busy"),
                            ("chat", "online")):
            self.anna.show(state)
            self.hear(f"Anna Baker is {said}.")
            self.anna.show(state, "<status>another text</status>")
        self.anna.show("", "<query xmlns='jabber:iq:last' seconds='900'/>")
        self.hear("Anna Baker is away.")
        self.anna.show()
        self.hear("Anna Baker is online.")
        self.anna.go_offline()
        self.hear("Anna Baker is offline.")
        self.anna.show("away")
        self.hear("Anna Baker is away.")

    def test_offers_and_mail(self):
        self.anna.offer_file(DEVICE, "holiday photo.jpg")
        self.hear("Anna Baker wants to send you the file holiday photo.jpg")
        self.anna.invite(f"lobby@{ROOMS}")
        self.hear(f"Anna Baker invites you to lobby@{ROOMS}")
        self.anna.mail(1)
        self.hear("New e-mail from  Carla & S\u00f6hne")
        self.anna.mail(3)
        self.hear("You have 3 new e-mail messages.")

    def test_conversation_from_the_menu(self):
        self.assertEqual(self.me.conversations(), [])
        self.choose_in_menu("anna@localhost")
        await_that(lambda: self.me.conversations() == ["anna@localhost"], "the conversation",
                   lambda: f"There are {self.me.conversations()}.")


class ComingsAndGoings(road.RoadTest):
    """The program runs before the client."""

    def setUp(self):
        super().setUp()
        self.start_program(road.GREETING)
        self.start_client()
        self.hear("You are online.")
        self.await_found(ANNA, "MSTATE_ONLINE")

    def test_own_sign_off(self):
        self.me.sign_off()
        self.hear("You are offline.")
        self.await_found(ANNA, "MSTATE_OFFLINE")
        self.me.sign_on()
        self.hear("You are online.")
        self.await_found(ANNA, "MSTATE_ONLINE", 2)
        self.anna.show("away")
        self.hear("Anna Baker is away.")

    def test_client_dies_and_comes_back(self):
        self.me.end(signal.SIGKILL)
        self.hear("You are offline.")
        self.await_found(ANNA, "MSTATE_OFFLINE")
        self.anna.say("while you were away")
        said = time.time()
        await_that(lambda: time.time() > said + CLEARLY, "a message that is clearly older")
        self.me.start()
        self.hear("You are online.")
        self.anna.say("back again")
        self.hear("Anna Baker says back again")

    def test_server_dies_and_comes_back(self):
        self.server.die()
        self.hear("You are offline.")
        self.anna.lose_connection()
        self.server.start()
        self.anna.sign_on()
        self.me.sign_on()
        self.hear("You are online.")
        self.await_found(ANNA, "MSTATE_ONLINE", 2)
        self.anna.say("back again")
        self.hear("Anna Baker says back again")

    def test_program_stays_awake_beside_a_client_that_hangs(self):
        hanging = self.me.pid
        os.kill(hanging, signal.SIGSTOP)
        try:
            self.anna.say("are you there?")
            self.assertEqual(self.ask("--show").returncode, 0)
            self.await_window()
            self.go_to("Spoken")
        finally:
            os.kill(hanging, signal.SIGCONT)
        self.hear("Anna Baker says are you there?")


class GroupChat(road.RoadTest):
    settings = {"Connections": {"GroupChats": "1"},
                "User": {"IntroduceUser": "1"}, "Text": {"Says": "says"}}

    def test_others_are_heard_from_when_the_user_entered(self):
        self.start_client()
        self.start("--debug")
        room = f"lobby@{ROOMS}"
        self.anna.enter(room, "AnnaNick")
        self.anna.say_in(room, "before")
        self.anna.await_said(room, "before")
        self.me.enter("lobby", ROOMS, "MaxNick")
        self.anna.await_in(room, "MaxNick")
        self.anna.say_in(room, "hello & welcome")
        self.hear("Anna Nick says hello & welcome")
        self.me.say_in(room, "my own words")
        self.anna.await_said(room, "my own words")
        self.anna.say_privately(f"{room}/MaxNick", "just you")
        self.hear("Anna Nick says just you")
        self.anna.say_in(room, "the last word")
        self.hear("Anna Nick says the last word")


class Heard(road.RoadTest):
    def test_a_message_can_be_heard(self):
        recording = Recording(self.desktop)
        self.start_client()
        self.start_program(WITH_NAME)
        # The greeting ends before the message begins.
        self.assertEqual(self.ask("--stop").returncode, 0)
        self.await_found(ANNA, "MSTATE_ONLINE")
        await_that(recording.is_silent_now, "silence")
        begin = recording.length()
        self.anna.say("this is the whole road")
        self.hear("Anna Baker says this is the whole road")
        await_that(lambda: recording.is_audible(begin), "the sound")


if __name__ == "__main__":
    road.case.main()
