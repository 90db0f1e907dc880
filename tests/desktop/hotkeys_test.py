#!/usr/bin/python3
"""The global hotkeys: they reach the program while another window has the keyboard."""
import case
from program import debug_log
from servers import await_that


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

    def test_repeat_says_the_last_sentence_again(self):
        def times_said():
            return debug_log(self.desktop).count("Good morning to all of you")
        await_that(times_said, "the introduction in the debug log")
        before = times_said()
        self.screen.keys("ctrl+shift+1")
        await_that(lambda: times_said() > before, "the introduction once more")
        self.assertEqual(self.screen.active(), self.other.id)

    def test_keys_are_free_again_after_the_end(self):
        self.assertEqual(self.ask("--quit").returncode, 0)
        self.assertEqual(self.program.await_end(), 0)
        self.start()
        self.screen.activate(self.other)
        self.screen.keys("ctrl+shift+t")
        self.await_window()


if __name__ == "__main__":
    case.main()
