#!/usr/bin/python3
"""Where the main window stands, and that it is there again after the next start."""
import os
import signal

import case
from program import stored
from servers import await_that

TWIPS = 15  # to a pixel
FRAME = 30  # pixels: no frame of the test's window manager is wider


class Place(case.DesktopTest):
    def dword(self, pixels):
        return f"dword:{pixels * TWIPS}"

    def await_place(self, window, place):
        """A window is on the screen before its frame is where it belongs.

        A window that comes back has no frame yet. Whether its place is taken for that of the frame
        or of what is inside depends on what Qt and the window manager have heard of each other by
        then, so it may stand a frame higher.
        """
        def near():
            now = self.screen.place(window)
            return (abs(now.x - place.x) <= FRAME and abs(now.y - place.y) <= FRAME
                    and (now.width, now.height) == (place.width, place.height))
        await_that(near, f"the window at {place}", lambda: repr(self.screen.place(window)))

    def minimize_and_bring_back(self):
        self.screen.minimize(self.main_window())
        self.await_hidden()
        self.area.icon().click()
        return self.await_window()

    def test_is_stored_and_kept_over_a_restart(self):
        self.start()
        self.area.icon()
        place = self.screen.move(self.await_window(), 240, 170)
        window = self.minimize_and_bring_back()
        self.await_stored("Left", self.dword(place.x))
        self.await_stored("Top", self.dword(place.y))
        self.await_place(window, place)
        self.quit_and_start()
        self.await_place(self.await_window(), place)

    def test_is_where_it_was_however_late_the_window_manager_is(self):
        self.start()
        self.area.icon()
        window = self.await_window()
        place = self.screen.move(window, 240, 170)
        ok = self.controls.find("push button", "OK")
        manager = self.desktop.window_manager.process.pid
        os.kill(manager, signal.SIGSTOP)
        try:
            # Without the mouse, whose clicks wait for the window manager.
            ok.press()
            await_that(lambda: not self.screen.is_mapped(window), "the window gone")
            self.assertEqual(self.ask("--show").returncode, 0)
        finally:
            os.kill(manager, signal.SIGCONT)
        self.await_place(self.await_window(), place)

    def test_follows_the_hand_and_stays(self):
        self.start()
        window = self.await_window()
        for x in range(200, 260, 20):
            place = self.screen.move(window, x, x)
        self.screen.activate(window)
        self.go_to("About")
        self.await_place(window, place)

    def test_left_of_the_screen_is_stored_as_its_edge(self):
        self.start()
        self.area.icon()
        place = self.screen.move(self.await_window(), -50, 170)
        self.assertLess(place.x, 0)
        window = self.minimize_and_bring_back()
        self.await_stored("Left", "dword:0")
        self.await_stored("Top", self.dword(place.y))
        await_that(lambda: abs(self.screen.place(window).x) <= FRAME, "the window at the edge")

    def test_of_a_hidden_window_is_kept_over_a_restart(self):
        self.start()
        self.area.icon()
        place = self.screen.move(self.await_window(), 240, 170)
        self.screen.minimize(self.main_window())
        self.await_hidden()
        self.quit_and_start()
        self.await_place(self.await_window(), place)


class StoredPlace(case.DesktopTest):
    settings = {"": {"Left": 1500, "Top": 3000}}

    def test_is_taken_at_the_start(self):
        self.start()
        window = self.await_window()
        await_that(lambda: self.screen.place(window)[:2] == (100, 200), "the window at its place",
                   lambda: repr(self.screen.place(window)))
        self.assertEqual(stored(self.desktop, "Left"), "dword:1500")


class OkButton(case.DesktopTest):
    def test_puts_the_window_into_the_tray(self):
        self.start()
        self.area.icon()
        self.await_window()
        self.click(self.controls.find("push button", "OK"))
        self.await_hidden()
        self.assertTrue(self.program.runs())


if __name__ == "__main__":
    case.main()
