#!/usr/bin/python3
"""Every header of src/ is one that clang-tidy looks into."""
import re
import unittest
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]


class TidyTest(unittest.TestCase):
    def setUp(self):
        text = (SOURCE / ".clang-tidy").read_text(encoding="utf-8")
        self.filter = re.compile(re.search(r"HeaderFilterRegex: '(.*)'", text)[1])
        headers = sorted((SOURCE / "src").rglob("*.h"))
        self.headers = [header.relative_to(SOURCE / "src") for header in headers]
        self.assertTrue(self.headers)

    def test_headers_under_their_own_names(self):
        for header in self.headers:
            self.assertRegex(f"/home/anna/brenwick/src/{header}", self.filter)

    def test_headers_under_the_names_of_their_rooms(self):
        for header in self.headers:
            room = "-".join(header.parts[:-1])
            self.assertRegex(f"/home/anna/build/clang/rooms/room-{room}/{header}", self.filter)

    def test_headers_of_others(self):
        for name in ("/usr/include/unistd.h", "/usr/include/c++/12/bits/stl_vector.h",
                     "/usr/include/x86_64-linux-gnu/qt6/QtCore/qstring.h"):
            self.assertNotRegex(name, self.filter)


if __name__ == "__main__":
    unittest.main()
