#!/usr/bin/python3
"""How the program starts: with its window or without, once, and with settings or none."""
import case
from program import stored


class Start(case.DesktopTest):
    def test_shows_the_window(self):
        self.start()
        window = self.await_window()
        self.assertTrue(window.taskbar)
        self.assertEqual(window.title, "Brenwick, 3.1.0200 (offline) ")
        self.await_page("Spoken words")

    def test_second_one_shows_the_window_of_the_first_and_ends(self):
        first = self.start()
        self.area.icon()
        self.screen.minimize(self.await_window())
        self.await_hidden()
        second = self.ask()
        self.assertEqual((second.returncode, second.stdout, second.stderr), (0, "", ""))
        self.await_window()
        self.assertTrue(first.runs())


class StartInTray(case.DesktopTest):
    settings = {"General": {"ShowStartupScreen": "1"}}

    def test_shows_no_window(self):
        self.start()
        self.area.icon()
        self.await_hidden()

    def test_second_one_shows_the_window(self):
        self.start()
        self.await_hidden()
        self.assertEqual(self.ask().returncode, 0)
        self.await_window()


class FirstStart(case.DesktopTest):
    settings = None

    def test_is_told_by_the_icon_and_writes_the_settings(self):
        self.start()
        self.area.icon()
        self.await_hidden()
        self.assertEqual(stored(self.desktop, "Online"), '"is online."')
        self.assertEqual(stored(self.desktop, "ShowStartupScreen"), '"1"')
        self.assertTrue((self.desktop.documents / "Brenwick/Abbreviations.Txt").is_file())


class StartWithoutSessionBus(case.DesktopTest):
    bus = False

    def test_second_one_ends_with_a_word(self):
        first = self.start()
        self.await_window()
        second = self.ask()
        self.assertEqual((second.returncode, second.stdout), (0, ""))
        self.assertRegex(second.stderr, r"^brenwick: another Brenwick is running.*\n$")
        self.assertTrue(first.runs())
        self.assertTrue((self.desktop.runtime / "brenwick.lock").exists())

    def test_next_one_starts_after_the_first_has_been_killed(self):
        first = self.start()
        first.process.kill()
        first.await_end()
        self.start()
        self.await_window()

    def test_verbs_reach_nobody(self):
        self.start()
        for verb in ("--show", "--stop", "--repeat", "--mute", "--quit"):
            with self.subTest(verb):
                self.assertEqual(self.ask(verb).returncode, 1)


if __name__ == "__main__":
    case.main()
