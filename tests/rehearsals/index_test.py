#!/usr/bin/python3
"""The index of the rehearsals is current, and made as it should be."""
import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True  # the source tree stays as it is
import index  # noqa: E402


class Index(unittest.TestCase):
    def test_is_current(self):
        written = (index.ROOT / "INDEX.md").read_text(encoding="utf-8")
        self.assertEqual(written, index.index(index.ROOT), "tests/rehearsals/index.py writes it anew")

    def test_each_script_says_what_it_proves(self):
        for case in index.cases(index.ROOT):
            with self.subTest(case=case.name):
                self.assertRegex(index.purpose(case / index.SCRIPT), r"^\S.{10,}[.!?]$")


class Made(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def write(self, case, text):
        (self.root / case).mkdir(parents=True)
        (self.root / case / index.SCRIPT).write_text(text, encoding="utf-8")

    def test_of_the_first_comment_alone(self):
        self.write("b/two", '# Says\n# two.\n# world: x\n# Not this.\n{"start":""}\n')
        self.write("b/one", '# One.\n{"start":""}\n# Not this.\n')
        self.write("a/whole", '# All.\n# whole start\n{"start":""}\n')
        self.assertEqual(index.index(self.root).removeprefix(index.HEAD), """

## a

- [whole](a/whole/script.jsonl): All.

## b

- [one](b/one/script.jsonl): One.
- [two](b/two/script.jsonl): Says two.
""")


if __name__ == "__main__":
    unittest.main()
