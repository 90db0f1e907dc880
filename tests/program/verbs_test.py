#!/usr/bin/python3
"""What another process asks of the running program: by its command line, and over D-Bus."""
import signal
import socket

import case
from accessible import call, connect
from gi.repository import GLib
from program import stored
from servers import await_that

NAME = "org.brenwick.Brenwick"
PATH = "/org/brenwick/Brenwick"


class Verbs(case.DesktopTest):
    def asked(self, *arguments):
        done = self.ask(*arguments)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_show(self):
        self.start()
        self.area.icon()
        self.screen.minimize(self.await_window())
        self.await_hidden()
        self.asked("--show")
        self.await_window()

    def test_mute_switches(self):
        self.start()
        self.await_window()
        self.go_to("Spoken")
        box = self.controls.find("check box", "Mute")
        self.asked("--mute")
        self.await_ticked(box)
        self.asked("--mute")
        self.await_ticked(box, False)

    def test_quit_ends_and_keeps_the_settings(self):
        program = self.start()
        self.asked("--mute")
        self.asked("--quit")
        self.assertEqual(program.await_end(), 0)
        self.assertEqual(stored(self.desktop, "Mute"), '"1"')

    def test_repeat(self):
        self.start()
        self.asked("--repeat", "4")
        # Nothing has been said yet, and the program goes on.
        self.asked("--show")
        self.await_window()

    def test_nobody_to_ask(self):
        for verb in ("--show", "--stop", "--repeat", "--mute", "--quit"):
            with self.subTest(verb):
                done = self.ask(verb)
                self.assertEqual((done.returncode, done.stdout), (1, ""))
                self.assertEqual(done.stderr,
                                 "brenwick: no Brenwick is running that could be asked\n")

    def test_a_program_that_hangs_is_told_of(self):
        program = self.start()
        program.signal(signal.SIGSTOP)
        try:
            self.assert_failed("the Brenwick that is running does not answer")
        finally:
            program.signal(signal.SIGCONT)

    def test_a_bus_that_hangs_is_told_of(self):
        with socket.socket(socket.AF_UNIX) as bus:
            path = self.desktop.runtime / "silent"
            bus.bind(str(path))
            bus.listen()
            self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={path}"
            self.assert_failed("the session bus does not answer")

    def assert_failed(self, why):
        """A verb fails at once, and a start when the user has read why."""
        done = self.ask("--mute")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertEqual(done.stderr, f"brenwick: {why}\n")
        start = self.launch()
        box = await_that(lambda: next((window for window in self.screen.windows()
                                       if window.pid == start.pid), None), "the message")
        self.assertEqual(box.title, "Brenwick")
        self.expected_words.append(f"brenwick: {why}")
        self.assertEqual(start.errors(), f"brenwick: {why}\n")
        self.screen.ask_to_close(box)
        self.assertEqual(start.await_end(), 1)

    def test_wrong_command_lines(self):
        for arguments in (["--repeat", "5"], ["--wat"], ["--mute", "--quit"], ["message.txt"]):
            with self.subTest(arguments):
                done = self.ask(*arguments)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertRegex(done.stderr, "^brenwick: .*\ntry brenwick --help\n$")


class OverTheBus(case.DesktopTest):
    settings = {"General": {"ShowStartupScreen": "1"}}

    def setUp(self):
        super().setUp()
        self.start()
        self.connection = connect(self.desktop.session_bus)

    def call(self, interface, method, arguments=None):
        return call(self.connection, NAME, PATH, interface, method, arguments)

    def test_activate_as_desktops_do(self):
        self.await_hidden()
        self.call("org.freedesktop.Application", "Activate", GLib.Variant("(a{sv})", ({},)))
        self.await_window()

    def test_tells_what_it_can_be_asked(self):
        told = self.call("org.freedesktop.DBus.Introspectable", "Introspect")[0]
        for method in ("Show", "Stop", "Repeat", "Mute", "Quit", "Activate"):
            self.assertIn(f'<method name="{method}">', told)

    def test_refuses_what_it_does_not_know(self):
        for method, arguments in (("Repeat", GLib.Variant("(i)", (5,))), ("Repeat", None),
                                  ("Show", GLib.Variant("(s)", ("now",))), ("Sing", None)):
            with self.subTest(method=method, arguments=arguments):
                with self.assertRaises(GLib.Error):
                    self.call(NAME, method, arguments)
        self.assertTrue(self.program.runs())


if __name__ == "__main__":
    case.main()
