#!/usr/bin/python3
"""The icon in the notification area: what it shows, and what its clicks and its menu do."""
import case
from program import CONTACTS, stored
from servers import await_that

ONLINE, AWAY = "10", "12"


def contact(email, name, status):
    return "\r\n".join([email, name, "", "?", "False", status, "False", ""])


class Icon(case.DesktopTest):
    def setUp(self):
        super().setUp()
        lst = self.desktop.documents / CONTACTS
        lst.parent.mkdir()
        lst.write_text(contact("ann@example.org", "Ann & Co", ONLINE) +
                       contact("bob@example.org", "Bob", AWAY), encoding="utf-8", newline="")
        self.start()
        self.window = self.await_window()
        self.icon = self.area.icon()

    def line(self, caption):
        lines = self.icon.open_menu()
        found = [line for line in lines if line.caption.replace("_", "") == caption]
        self.assertEqual(len(found), 1, [line.caption for line in lines])
        return found[0]

    def test_tooltip_tells_version_and_state(self):
        self.assertEqual(self.icon.tooltip, "Brenwick, 3.1.0200 (offline) ")

    def test_menu_has_its_lines_in_their_order(self):
        lines = [line.caption.replace("_", "") if not line.separator else "-"
                 for line in self.icon.open_menu()]
        self.assertEqual(lines, ["Mute", "-", "Buddies", "Restore", "Exit"])

    def test_left_click_brings_the_hidden_window_back_in_its_place(self):
        place = self.screen.move(self.window, 200, 150)
        self.screen.minimize(self.window)
        self.await_hidden()
        self.icon.click()
        window = self.await_window()
        self.assertEqual(self.screen.place(window), place)

    def test_left_click_brings_a_covered_window_to_the_front(self):
        self.desktop.start(["/usr/bin/xmessage", "in front"])
        other = await_that(lambda: next((window for window in self.screen.windows()
                                         if window.title == "xmessage"), None), "another window")
        self.screen.activate(other)
        self.icon.click()
        self.await_window()

    def test_restore(self):
        self.screen.minimize(self.window)
        self.await_hidden()
        self.line("Restore").choose()
        self.await_window()

    def test_exit(self):
        self.line("Exit").choose()
        self.assertEqual(self.program.await_end(), 0)
        self.assertEqual(stored(self.desktop, "Online"), '"is online."')

    def test_mute_is_ticked_while_muted_and_ends_it(self):
        self.go_to("Spoken")
        box = self.controls.find("check box", "Mute")
        speaking = self.icon.picture
        self.click(box)
        await_that(lambda: self.icon.picture != speaking, "the icon of the muted program")
        line = self.line("Mute")
        self.assertTrue(line.ticked)
        line.choose()
        self.await_ticked(box, False)
        await_that(lambda: self.icon.picture == speaking, "the icon of before")
        self.assertFalse(self.line("Mute").ticked)

    def test_buddies_are_listed(self):
        # While the user is signed out, nobody's state is known.
        told = [(line.caption.replace("_", ""), line.enabled, line.ticked)
                for line in self.line("Buddies").lines]
        self.assertEqual(told, [("Ann & Co is in an unknown state.  (ann@example.org)", False, False),
                                ("Bob is in an unknown state.  (bob@example.org)", False, False)])


class MenuWhileHidden(case.DesktopTest):
    settings = {"General": {"ShowStartupScreen": "1"}}

    def test_opens_and_acts(self):
        self.start()
        lines = self.area.icon().open_menu()
        self.assertEqual(len(lines), 5)
        lines[-1].choose()
        self.assertEqual(self.program.await_end(), 0)


class NoNotificationArea(case.DesktopTest):
    area_at_start = False

    def test_window_minimizes_to_the_task_bar(self):
        self.start()
        self.screen.minimize(self.await_window())
        window = self.await_minimized()
        self.assertTrue(window.taskbar)
        self.screen.activate(window)
        self.await_window()

    def test_ok_button_minimizes_to_the_task_bar(self):
        self.start()
        self.await_window()
        self.click(self.controls.find("push button", "OK"))
        self.assertTrue(self.await_minimized().taskbar)

    def test_area_that_comes_later_takes_the_window(self):
        self.start()
        self.screen.minimize(self.await_window())
        self.await_minimized()
        area = case.NotificationArea(self.desktop)
        icon = area.icon()
        self.await_hidden()
        icon.click()
        self.await_window()

    def test_area_that_goes_gives_the_window_back(self):
        area = case.NotificationArea(self.desktop)
        self.start()
        area.icon()
        self.screen.minimize(self.await_window())
        self.await_hidden()
        area.go()
        window = self.await_minimized()
        self.assertTrue(window.taskbar)
        self.screen.activate(window)
        self.await_window()

    def test_icon_is_in_an_area_that_comes_again(self):
        area = case.NotificationArea(self.desktop)
        self.start()
        area.icon()
        area.go()
        case.NotificationArea(self.desktop).icon()


class StartInTaskBar(case.DesktopTest):
    area_at_start = False
    settings = {"General": {"ShowStartupScreen": "1"}}

    def test_of_a_desktop_without_notification_area(self):
        self.start()
        window = self.await_minimized()
        self.assertTrue(window.taskbar)
        self.screen.activate(window)
        self.await_window()


if __name__ == "__main__":
    case.main()
