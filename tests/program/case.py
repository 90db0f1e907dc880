"""What all tests of the whole program on a desktop have in common."""
import os
import pathlib
import subprocess
import sys
import unittest

from accessible import Controls
from program import Program, stored, write_store
from screen import LEFT, Screen
from servers import LIMIT, PrivateDesktop, await_that
from tray import NotificationArea

TITLE = "Brenwick, "
# Of a user who has settings already, and wants to see the window at the start.
SETTINGS = {"General": {"ShowStartupScreen": "0", "Introduce": "0", "Language": "English"},
            "Text": {"Online": "is online."}}
PROGRAM = ""
PICTURES = pathlib.Path()


class DesktopTest(unittest.TestCase):
    bus = True
    area_at_start = True  # a notification area that is there before the program
    # The settings before the first start, over those of SETTINGS; None for a user's very first.
    settings = {}

    def setUp(self):
        self.desktop = PrivateDesktop(self.bus)
        self.addCleanup(self.desktop.end)
        self.screen = Screen(self.desktop.environment)
        self.area = None
        self.programs = []
        self.expected_words = []
        if self.settings is not None:
            write_store(self.desktop, {key: {**SETTINGS.get(key, {}), **self.settings.get(key, {})}
                                       for key in {**SETTINGS, **self.settings}})
        if self.bus and self.area_at_start:
            self.area = NotificationArea(self.desktop)

    def tearDown(self):
        """What the program says on its error output is a failure, unless it was expected."""
        if self.has_failed():
            self._look()
        for program in self.programs:
            program.put_away()
        for program in self.programs:
            words = [line for line in program.errors().splitlines()
                     if line not in self.expected_words]
            self.assertEqual(words, [], "the program's error output")

    def has_failed(self):
        """Whether the test itself has, as seen from its clean-up."""
        result = self._outcome.result
        return any(getattr(test, "test_case", test) is self
                   for test, _ in result.failures + result.errors)

    def _look(self):
        """Keeps a picture of the screen of a test that has failed."""
        PICTURES.mkdir(parents=True, exist_ok=True)
        picture = PICTURES / (self.id().replace("__main__.", "") + ".png")
        self.screen.screenshot(picture)
        print(f"the screen at the end: {picture}", file=sys.stderr)

    # The program

    def start(self, *arguments):
        """Starts the program and waits until its start is over."""
        program = self.launch(*arguments)
        program.await_started()
        return program

    def launch(self, *arguments):
        program = Program(self.desktop, PROGRAM, arguments)
        self.programs.append(program)
        self.program = program
        self.controls = Controls(self.desktop, program.pid) if self.bus else None
        return program

    def ask(self, *arguments):
        """Runs the program beside the one that runs, to its end."""
        return subprocess.run([PROGRAM, *arguments], env=self.desktop.environment,
                              capture_output=True, timeout=LIMIT, check=False, text=True)

    def quit_and_start(self):
        self.assertEqual(self.ask("--quit").returncode, 0)
        self.assertEqual(self.program.await_end(), 0)
        self.start()

    # Its window

    def main_window(self):
        """The main window as the window manager knows it; None while it is hidden."""
        for window in self.screen.windows():
            if window.pid == self.program.pid and window.title.startswith(TITLE):
                return window
        return None

    def window_shows(self):
        window = self.main_window()
        return window if window and not window.minimized else None

    def await_window(self):
        """The main window on the screen, with the keyboard."""
        window = await_that(self.window_shows, "the main window on the screen", self._windows)
        self.await_keyboard(window)
        return window

    def await_keyboard(self, window):
        await_that(lambda: self.screen.active() == window.id, f"the keyboard for {window.title}",
                   self._windows)

    def await_hidden(self):
        await_that(lambda: self.main_window() is None, "no main window", self._windows)

    def await_minimized(self):
        def minimized():
            window = self.main_window()
            return window if window and window.minimized else None
        return await_that(minimized, "the main window in the task bar", self._windows)

    def _windows(self):
        return f"The windows are {self.screen.windows()}."

    # Its pages and controls

    def go_to(self, page):
        """Opens a page by its line in the page list."""
        self.click(self.controls.find("list item", page))
        self.await_page(page)

    def await_page(self, page):
        await_that(lambda: self.controls.find("list item", page).has("selected"),
                   f"the page {page}")

    def click(self, control, button=LEFT, times=1):
        self.screen.click(*self.resting_place(control), button, times)

    def resting_place(self, control):
        """The middle of the control once it stays where it is: a page that has just been opened is
        still being laid out."""
        places = [None]

        def rests():
            places.append(control.middle)
            return places[-1] if places[-1] == places[-2] else None
        return await_that(rests, f"a place of {control}", lambda: repr(places[1:]))

    def await_text(self, control, text):
        await_that(lambda: control.text == text, f"the text {text!r}", lambda: repr(control.text))

    def await_ticked(self, control, ticked=True):
        await_that(lambda: control.has("checked") == ticked,
                   f"{control} {'ticked' if ticked else 'not ticked'}")

    def await_stored(self, name, value):
        await_that(lambda: stored(self.desktop, name) == value, f"{name} = {value} in the store",
                   lambda: f"It is {stored(self.desktop, name)}.")


def main():
    global PROGRAM, PICTURES
    if len(sys.argv) < 3:
        sys.exit(f"usage: {sys.argv[0]} BRENWICK FOLDER-FOR-PICTURES [UNITTEST-ARGUMENT...]")
    PROGRAM, PICTURES = os.path.abspath(sys.argv[1]), pathlib.Path(sys.argv[2])
    unittest.main(module="__main__", argv=[sys.argv[0], *sys.argv[3:]])
