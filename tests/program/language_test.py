#!/usr/bin/python3
"""Another language for the window: at once when it is applied, and after the next start."""
import case
from servers import await_that


class Language(case.DesktopTest):
    def test_is_applied_at_once_and_kept(self):
        self.start()
        self.await_window()
        self.go_to("General")
        combo = self.controls.find("combo box")
        field = next(child for child in combo.children if child.role == "text")
        self.click(field)
        await_that(lambda: field.has("focused"), "the keyboard in the language box")
        self.screen.keys("ctrl+a")
        self.screen.type("deu")
        self.await_text(field, "Deutsch")
        self.click(self.controls.find("push button", "Set language"))
        self.controls.find("list item", "Allgemein")
        self.controls.find("check box", "Begrüßung durch Brenwick beim Start")
        self.area.icon()
        self.quit_and_start()
        self.assertEqual(case.stored(self.desktop, "Language"), '"Deutsch"')
        self.await_window()
        self.go_to("Allgemein")
        self.controls.find("check box", "Begrüßung durch Brenwick beim Start")


class StoredLanguage(case.DesktopTest):
    settings = {"General": {"Language": "Français"}}

    def test_speaks_to_the_user_from_the_start(self):
        self.start()
        window = self.await_window()
        self.assertNotIn("offline", window.title)
        self.controls.find("list item", "Général")


if __name__ == "__main__":
    case.main()
