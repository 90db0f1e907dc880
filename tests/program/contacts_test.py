#!/usr/bin/python3
"""The contact pages, from a line of their lists to the file of the contacts."""
import case
from program import CONTACTS
from servers import await_that

SPACE = "space"


def record(email, name, own="", gender="?", ignore="False", status="9"):
    return [email, name, own, gender, ignore, status, str(bool(own))]


ANN = record("ann@example.org", "Ann")
BOB = record("bob@example.org", "Bob", own="Bobby", gender="M")


class Contacts(case.DesktopTest):
    settings = {"User": {"UseMyNames": "1"}}

    def setUp(self):
        super().setUp()
        self.file = self.desktop.documents / CONTACTS
        self.file.parent.mkdir()
        lines = [field + "\r\n" for contact in (ANN, BOB) for field in contact]
        self.file.write_text("".join(lines), encoding="utf-8", newline="")
        self.start()
        self.await_window()

    def lines(self):
        """The cells of all lines, each with its place on the screen."""
        return [line for line in self.controls.all() if line.role == "tree item"]

    def cell(self, email):
        """The contact's line."""
        return self.controls.find("tree item", f"({email})")

    def records(self):
        """The contacts in the file after the end of the program."""
        self.assertEqual(self.ask("--quit").returncode, 0)
        self.assertEqual(self.program.await_end(), 0)
        lines = self.file.read_bytes().decode("utf-8").split("\r\n")
        self.assertEqual(lines.pop(), "")
        return [lines[at:at + 7] for at in range(0, len(lines), 7)]

    def open(self, email):
        self.go_to("Buddynames")
        self.click(self.cell(email), times=2)
        self.controls.find("push button", "Cancel")
        return self.controls.find("text", "Name")


class ContactInfo(Contacts):
    def test_own_name_gender_and_ignore_reach_the_file(self):
        name = self.open(ANN[0])
        # The own name has the keyboard, with all of it selected.
        await_that(lambda: name.has("focused"), "the keyboard in the own name")
        self.screen.type("Annie")
        self.await_text(name, "Annie")
        ignore = self.controls.find("check box", "Ignore")
        self.click(ignore)
        self.await_ticked(ignore)
        male = self.controls.find("radio button", "M")
        self.click(male)
        self.await_ticked(male)
        self.click(self.ok_of_page())
        self.controls.find("radio button", "Contact")
        self.assertEqual(self.records(),
                         [record("ann@example.org", "Ann", own="Annie", gender="M",
                                 ignore="True"), BOB])

    def test_typing_replaces_the_own_name(self):
        name = self.open(BOB[0])
        self.await_text(name, "Bobby")
        await_that(lambda: name.has("focused"), "the keyboard in the own name")
        self.screen.type("Rob")
        self.await_text(name, "Rob")

    def test_cancel_changes_nothing(self):
        name = self.open(BOB[0])
        await_that(lambda: name.has("focused"), "the keyboard in the own name")
        self.screen.type("Rob")
        self.await_text(name, "Rob")
        self.click(self.controls.find("push button", "Cancel"))
        self.controls.find("radio button", "Contact")
        self.assertEqual(self.records(), [ANN, BOB])

    def test_delete_takes_the_contact_out_of_the_file(self):
        self.open(ANN[0])
        self.click(self.controls.find("push button", "Delete"))
        self.controls.find("radio button", "Contact")
        self.assertEqual(self.records(), [BOB])

    def test_page_list_waits(self):
        self.open(ANN[0])
        self.assertFalse(self.controls.find("list").has("enabled"))
        self.click(self.controls.find("list item", "About"))
        self.assertTrue(self.controls.is_shown("push button", "Delete"))
        self.click(self.controls.find("push button", "Cancel"))
        self.go_to("About")

    def test_opens_with_the_space_key(self):
        self.go_to("Buddynames")
        self.click(self.cell(BOB[0]))
        self.screen.keys(SPACE)
        self.await_text(self.controls.find("text", "Name"), "Bobby")

    def ok_of_page(self):
        """There are two: the window's own below the page, and the page's."""
        found = await_that(lambda: [control for control in self.controls.all()
                                    if control.role == "push button" and control.name == "OK"],
                           "the button OK")
        return min(found, key=lambda button: button.rectangle[1])


class OwnNamesUnused(Contacts):
    settings = {}

    def test_own_name_cannot_be_changed(self):
        self.assertFalse(self.open(BOB[0]).has("enabled"))


class Switches(Contacts):
    def ignored(self, email):
        """What the Ignore page tells of the contact."""
        row = self.cell(email).rectangle[1]
        return [line.name for line in self.lines() if line.rectangle[1] == row]

    def test_space_switches_ignore(self):
        self.go_to("Ignore")
        before = self.ignored(ANN[0])
        self.click(self.cell(ANN[0]))
        self.screen.keys(SPACE)
        await_that(lambda: self.ignored(ANN[0]) != before, "another word", self.controls.told)
        self.assertEqual([contact[4] for contact in self.records()], ["True", "False"])

    def test_double_click_switches_ignore_and_back(self):
        self.go_to("Ignore")
        before = self.ignored(BOB[0])
        self.click(self.cell(BOB[0]), times=2)
        await_that(lambda: self.ignored(BOB[0]) != before, "another word", self.controls.told)
        self.screen.keys(SPACE)
        await_that(lambda: self.ignored(BOB[0]) == before, "the word of before",
                   self.controls.told)

    def test_switched_line_stays_what_it_was_for_a_screen_reader(self):
        self.go_to("Ignore")
        line, before = self.cell(ANN[0]), self.ignored(ANN[0])
        name = line.name
        self.click(line)
        self.screen.keys(SPACE)
        await_that(lambda: self.ignored(ANN[0]) != before, "another word", self.controls.told)
        # A line that was made anew would be asked in vain.
        self.assertEqual(line.name, name)
        self.assertTrue(line.has("selected"))

    def test_other_keys_do_not_switch(self):
        self.go_to("Ignore")
        self.click(self.cell(ANN[0]))
        self.screen.keys("x", "Return", "Down", "Up")
        self.assertEqual([contact[4] for contact in self.records()], ["False", "False"])

    def test_select_all(self):
        self.go_to("Ignore")
        self.click(self.controls.find("push button", "Select all"))
        self.assertEqual([contact[4] for contact in self.records()], ["True", "True"])

    def test_gender_of_nobody_knows_turns_female_and_then_male(self):
        self.go_to("Gender")
        self.click(self.cell(ANN[0]), times=2)
        self.screen.keys(SPACE)
        self.assertEqual([contact[3] for contact in self.records()], ["M", "M"])


if __name__ == "__main__":
    case.main()
