#!/usr/bin/python3
"""The same with Pidgin on the screen, in short."""
import road
from purple import DEVICE
from servers import await_that


class Pidgin(road.RoadTest):
    client = "pidgin"

    def test_from_the_sign_on_to_the_end(self):
        self.start_program(road.GREETING)
        self.start_client()
        self.hear("You are online.")
        self.await_found("AnnaBaker (anna@localhost)", "MSTATE_ONLINE")
        self.anna.say("fish & <chips>\nand more")
        self.hear("Anna Baker says fish & (chips)\nand more")
        self.anna.show("away")
        self.hear("Anna Baker is away.")
        self.anna.offer_file(DEVICE, "holiday photo.jpg")
        self.hear("Anna Baker wants to send you the file holiday photo.jpg")
        self.anna.show()
        self.hear("Anna Baker is online.")
        self.me.end()
        self.hear("You are offline.")

    def test_conversation_from_the_menu(self):
        self.start_client()
        self.start_program(f"{road.GREETING} Max Muster")
        self.await_found("AnnaBaker (anna@localhost)", "MSTATE_ONLINE")
        self.choose_in_menu("anna@localhost")
        await_that(lambda: any("AnnaBaker" in window.title for window in self.screen.windows()),
                   "Pidgin's window for Anna")


if __name__ == "__main__":
    road.case.main()
