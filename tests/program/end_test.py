#!/usr/bin/python3
"""How the program ends: whatever ends it, the settings are kept and nothing is left behind."""
import fcntl
import signal

import case
from program import STORE, debug_log, stored
from servers import await_that


class End(case.DesktopTest):
    def setUp(self):
        super().setUp()
        self.start()
        self.window = self.await_window()
        self.area.icon()
        # A setting that only the end stores.
        self.go_to("Repeat")
        self.box = self.controls.find("check box", "Use repeat hotkeys")
        self.await_ticked(self.box, False)
        self.click(self.box)
        self.await_ticked(self.box)
        self.assertNotEqual(stored(self.desktop, "UseRepeatHotkeys"), '"1"')

    def assert_ended(self):
        self.assertEqual(self.program.await_end(), 0)
        self.assertEqual(stored(self.desktop, "UseRepeatHotkeys"), '"1"')
        self.assertIn("Unloading forms", debug_log(self.desktop))
        await_that(lambda: not self.area.icons(), "an empty notification area")

    def test_by_the_close_box(self):
        self.screen.ask_to_close(self.window)
        self.assert_ended()

    def test_by_the_end_of_the_login(self):
        self.program.signal(signal.SIGTERM)
        self.assert_ended()

    def test_by_the_terminal(self):
        self.program.signal(signal.SIGINT)
        self.assert_ended()

    def test_by_a_terminal_that_goes(self):
        self.program.signal(signal.SIGHUP)
        self.assert_ended()

    def test_by_the_menu(self):
        exit_line = next(line for line in self.area.icon().open_menu() if line.caption == "_Exit")
        exit_line.choose()
        self.assert_ended()

    def test_by_a_display_that_dies(self):
        self.let_the_display_die()

    def test_by_a_display_that_dies_while_another_program_has_the_store(self):
        with open(self.desktop.config / (STORE + ".lock"), "w", encoding="utf-8") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            self.let_the_display_die()

    def let_the_display_die(self):
        self.desktop.stop(self.desktop.display)
        # The status of a display that was lost; a crash has another.
        self.assertEqual(self.program.await_end(), 1)
        self.assertEqual(stored(self.desktop, "UseRepeatHotkeys"), '"1"')
        self.assertIn("Unloading forms", debug_log(self.desktop))
        # What the libraries say to it is not ours.
        self.expected_words = self.program.errors().splitlines()

    def test_while_hidden(self):
        self.screen.minimize(self.window)
        self.await_hidden()
        self.program.signal(signal.SIGTERM)
        self.assert_ended()


if __name__ == "__main__":
    case.main()
