#!/usr/bin/python3
"""The global hotkeys: they reach the program while another window has the keyboard."""
import case
from program import debug_log
from servers import await_that

AGAIN = ("Speak Text to speak :Good morning to all of you, hello\n"
         "Speak Not online, nothing spoken\n")


class Hotkeys(case.DesktopTest):
    settings = {"General": {"ShowStartupScreen": "1", "Introduce": "1",
                            "IntroductionText": "Good morning to all of you"},
                "User": {"UseRepeatHotkeys": "1"}}

    def setUp(self):
        super().setUp()
        self.desktop.start(["/usr/bin/xmessage", "another window"])
        self.start()
        self.other = await_that(lambda: next((window for window in self.screen.windows()
                                              if window.title == "xmessage"), None),
                                "another window")
        self.screen.activate(self.other)

    def test_activate_brings_the_window(self):
        self.await_hidden()
        self.screen.keys("ctrl+shift+t")
        self.await_window()

    def test_repeat_wants_the_last_sentence_again(self):
        # While the user is signed out it is wanted, but not said.
        self.screen.keys("ctrl+shift+1")
        await_that(lambda: AGAIN in self.log(), "the introduction once more", self.log)
        self.assertEqual(self.screen.active(), self.other.id)

    def log(self):
        return "".join(line.split(" ", 4)[-1] for line in
                       debug_log(self.desktop).replace("\r", "").splitlines(keepends=True))

    def test_keys_are_free_again_after_the_end(self):
        self.assertEqual(self.ask("--quit").returncode, 0)
        self.assertEqual(self.program.await_end(), 0)
        self.start()
        self.screen.activate(self.other)
        self.screen.keys("ctrl+shift+t")
        self.await_window()


if __name__ == "__main__":
    case.main()
