#!/usr/bin/python3
"""The pages of the main window, by mouse and by keyboard, and all that can be ticked on them."""
import case
from program import AUTOSTART, stored
from servers import await_that

# Each page in the order of the list, with something that only it shows.
PAGES = [
    ("General", "check box", "Start with Windows"),
    ("Spoken", "check box", "Finish sentence"),
    ("Text", "push button", "Emoticons"),
    ("Voices", "radio button", None),
    ("Buddynames", "radio button", "Name"),
    ("Ignore", "push button", "Select all"),
    ("Gender", "radio button", "Name"),
    ("Spoken words", "tree", None),
    ("Save settings", "push button", "Remove"),
    ("Website", "push button", "Check now"),
    ("Log options", "check box", "Debug to logfile"),
    ("Repeat", "check box", "Use repeat hotkeys"),
    ("About", "label", None),
]

# Every check box of a page of settings, with the name under which it is stored.
BOXES = {
    "General": {"Introduce the Brenwick on startup": "Introduce",
                "Don't show this dialog on startup": "ShowStartupScreen"},
    "Spoken": {"Mute": "Mute", "Introduce user": "IntroduceUser",
               "Only say users firstname": "FirstName", "Use my own names": "UseMyNames",
               "Do not speak message, only state": "NoMessageOnlyUserState",
               "Notify user state information": "NotifyUserState",
               "Notify me on e-mail arrival": "NotifyNewEmail",
               "Finish sentence": "FinishSentence",
               "Use SCROLL-LOCK to stop speaking": "ScrollLock"},
    "Website": {"Check for newer Brenwick": "CheckNewVersionsBrenwick",
                "Check for newer Windows Messenger": "CheckNewVersionsMessenger"},
    "Log options": {"Log conversations": "SaveConversations",
                    "Automatically delete conversation logs": "ConversationCleanUp",
                    "Debug to logfile": "Debug",
                    "Automatically delete debug logs": "DebugCleanUp"},
    "Repeat": {"Use repeat hotkeys": "UseRepeatHotkeys"},
}


class Pages(case.DesktopTest):
    def setUp(self):
        super().setUp()
        self.start()
        self.await_window()

    def assert_shows(self, page, role, name):
        self.await_page(page)
        await_that(lambda: self.controls.is_shown(role, name), f"{role} {name} on {page}",
                   self.controls.told)

    def test_by_mouse(self):
        for page in PAGES:
            with self.subTest(page[0]):
                self.click(self.controls.find("list item", page[0]))
                self.assert_shows(*page)

    def test_by_keyboard(self):
        self.click(self.controls.find("list item", "General"))
        self.assert_shows(*PAGES[0])
        for page in PAGES[1:]:
            with self.subTest(page[0]):
                self.screen.keys("Down")
                self.assert_shows(*page)
        self.screen.keys("Home")
        self.assert_shows(*PAGES[0])

    def test_shows_one_page_at_a_time(self):
        self.go_to("Website")
        self.controls.find("push button", "Check now")
        self.go_to("General")
        await_that(lambda: not self.controls.is_shown("push button", "Check now"),
                   "the page before out of sight")

    def test_list_is_reached_by_tab_from_each_page(self):
        for page, _, _ in PAGES:
            with self.subTest(page):
                self.go_to(page)
                chosen = self.controls.find("list item", page)
                seen = []
                for _ in range(40):
                    self.screen.keys("Tab")
                    focused = self.focused()
                    if focused in seen:
                        break
                    seen.append(focused)
                self.assertIn(chosen.path, seen)

    def focused(self):
        return await_that(lambda: next((control.path for control in self.controls.all()
                                        if control.has("focused")), None), "a focus")


class CheckBoxes(case.DesktopTest):
    def setUp(self):
        super().setUp()
        self.start()
        self.await_window()
        self.area.icon()

    def press_space_on(self, box):
        """By the keyboard alone, from the page list."""
        for _ in range(40):
            self.screen.keys("Tab")
            await_that(lambda: any(control.has("focused") for control in self.controls.all()),
                       "a focus")
            if box.has("focused"):
                self.screen.keys("space")
                return
        self.fail(f"{box} is not reached by the Tab key")

    def test_change_by_keyboard_and_are_kept_over_a_restart(self):
        for page, boxes in BOXES.items():
            shown = {}
            self.go_to(page)
            for name in boxes:
                with self.subTest(name):
                    box = self.controls.find("check box", name)
                    before = box.has("checked")
                    self.press_space_on(box)
                    self.await_ticked(box, not before)
                    shown[name] = not before
            self.quit_and_start()
            self.area.icon().click()
            self.await_window()
            self.go_to(page)
            for name, ticked in shown.items():
                with self.subTest(name + " after the restart"):
                    box = self.controls.find("check box", name)
                    self.assertEqual(box.has("checked"), ticked)
                    self.assertEqual(stored(self.desktop, boxes[name]), f'"{int(ticked)}"')


class StartWithTheDesktop(case.DesktopTest):
    def test_writes_its_entry_and_takes_it_away(self):
        self.start()
        self.await_window()
        self.go_to("General")
        box = self.controls.find("check box", "Start with Windows")
        entry = self.desktop.config / AUTOSTART
        self.assertFalse(box.has("checked"))
        self.assertFalse(entry.exists())
        self.click(box)
        self.await_ticked(box)
        await_that(entry.exists, "the entry")
        text = entry.read_text(encoding="utf-8")
        self.assertIn(f'\nExec="{case.PROGRAM}"\n', text)
        self.assertIn("\nType=Application\n", text)
        self.quit_and_start()
        self.await_window()
        self.go_to("General")
        box = self.controls.find("check box", "Start with Windows")
        self.assertTrue(box.has("checked"))
        self.click(box)
        self.await_ticked(box, False)
        await_that(lambda: not entry.exists(), "no entry")


if __name__ == "__main__":
    case.main()
