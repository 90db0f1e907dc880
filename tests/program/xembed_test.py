#!/usr/bin/python3
"""The icon in a notification area of the older kind, which swallows windows of the X server."""
import re

import case
from screen import RIGHT
from servers import await_that


class OlderArea(case.DesktopTest):
    area_at_start = False

    def setUp(self):
        super().setUp()
        self.trayer = self.desktop.start(["/usr/bin/trayer", "--edge", "bottom", "--align", "left",
                                          "--SetDockType", "true"])
        self.start()
        self.window = self.await_window()

    def tree(self):
        """All windows of the screen."""
        return self.screen.run("/usr/bin/xwininfo", "-root", "-tree")

    def middle_of_icon(self):
        """Of the program's window inside the area's, which is waited for."""
        def look():
            panel = re.search(r'(0x[0-9a-f]+) "panel"', self.tree())
            if panel is None:
                return None
            icon = re.search(r'"brenwick".*? (\d+)x(\d+)\+-?\d+\+-?\d+ +\+(\d+)\+(\d+)',
                             self.screen.run("/usr/bin/xwininfo", "-id", panel[1], "-tree"))
            return [int(number) for number in icon.groups()] if icon else None
        width, height, x, y = await_that(look, "an icon in the area", self.tree)
        return x + width // 2, y + height // 2

    def test_left_click_brings_the_window_back(self):
        icon = self.middle_of_icon()
        self.screen.minimize(self.window)
        self.await_hidden()
        self.screen.click(*icon)
        self.await_window()

    def test_right_click_opens_the_menu(self):
        self.screen.click(*self.middle_of_icon(), RIGHT)
        # A menu is a window of the screen itself, which nobody manages.
        await_that(lambda: re.search(r'^ {5}0x[0-9a-f]+ "brenwick": \("brenwick" "brenwick"\)',
                                     self.tree(), re.MULTILINE), "the menu", self.tree)
        self.screen.keys("Up", "Return")
        self.assertEqual(self.program.await_end(), 0)

    def test_area_that_goes_gives_the_window_back(self):
        self.middle_of_icon()
        self.screen.minimize(self.window)
        self.await_hidden()
        self.desktop.stop(self.trayer)
        self.await_minimized()


if __name__ == "__main__":
    case.main()
