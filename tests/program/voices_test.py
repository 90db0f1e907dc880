#!/usr/bin/python3
"""The voice box completes what is typed from its list."""
import case
from servers import await_that


class TypeAhead(case.DesktopTest):
    def setUp(self):
        super().setUp()
        self.start()
        self.await_window()
        self.go_to("Voices")
        boxes = [control for control in self.controls.all() if control.role == "combo box"]
        self.assertEqual(len(boxes), 2, self.controls.told())
        # The male voice stands above the female one.
        self.combo = min(boxes, key=lambda box: box.rectangle[1])
        self.field = next(child for child in self.combo.children if child.role == "text")
        self.voices = [child.name for child in self.combo.children[0].children]
        self.before = self.field.text
        self.click(self.field)
        await_that(lambda: self.field.has("focused"), "the keyboard in the voice box")
        self.screen.keys("ctrl+a")
        await_that(lambda: self.field.selection == (0, len(self.before)), "all selected")

    def first_with(self, letters):
        return next(voice for voice in self.voices if voice.lower().startswith(letters))

    def await_completed(self, voice, typed):
        self.await_text(self.field, voice)
        await_that(lambda: self.field.selection == (typed, len(voice)),
                   f"all but the first {typed} letters selected", lambda: self.field.selection)

    def test_first_two_letters_select_the_first_entry_that_begins_with_them(self):
        self.screen.type("ge")
        self.await_completed(self.first_with("ge"), 2)

    def test_third_letter_replaces_what_was_completed(self):
        self.screen.type("en")
        self.await_completed(self.first_with("en"), 2)
        self.screen.type("g")
        self.await_completed(self.first_with("eng"), 3)

    def test_letter_that_matches_nothing_goes_away(self):
        self.screen.type("ge")
        voice = self.first_with("ge")
        self.await_completed(voice, 2)
        # The letter replaces what was completed, is not known, and goes.
        self.screen.type("q")
        self.await_text(self.field, voice[:2])
        self.screen.type(voice[2])
        self.await_completed(self.first_with(voice[:3].lower()), 3)

    def test_completed_voice_is_kept_over_a_restart(self):
        self.screen.type("ge")
        voice = self.first_with("ge")
        self.await_completed(voice, 2)
        self.assertNotEqual(voice, self.before)
        self.quit_and_start()
        self.assertEqual(case.stored(self.desktop, "Male Voice"), f'"{voice}"')
        self.await_window()
        self.go_to("Voices")
        boxes = [control for control in self.controls.all() if control.role == "combo box"]
        combo = min(boxes, key=lambda box: box.rectangle[1])
        self.assertEqual(next(child for child in combo.children if child.role == "text").text,
                         voice)


if __name__ == "__main__":
    case.main()
