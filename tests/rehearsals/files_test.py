#!/usr/bin/python3
"""The files of the rehearsals: nothing stands twice, and nothing lies about unused."""
import collections
import pathlib
import re
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True  # the source tree stays as it is
import index  # noqa: E402

# Bytes. A file of no more may stand twice: a world of its own would be longer.
FEW = 12
PARTS = {index.SCRIPT, "transcript", "log", "store", "before", "after", "program"}
WORLD = re.compile(r"^# (?:world|afterwards|copy|holds): ([^/\n]+?)(?:/.*)?$", re.MULTILINE)


def data_files(root):
    """All files of cases and worlds."""
    folders = [*index.cases(root), root / "worlds"]
    return sorted(file for folder in folders for file in folder.rglob("*") if file.is_file())


def copies(root):
    """Groups of files that hold the same."""
    by_content = collections.defaultdict(list)
    for file in data_files(root):
        by_content[file.read_bytes()].append(str(file.relative_to(root)))
    return [names for content, names in by_content.items() if len(content) > FEW and len(names) > 1]


def strays(root):
    """What lies in the folder of a case, or on top of worlds/, and is no part of either."""
    found = [str(part.relative_to(root)) for case in index.cases(root) for part in case.iterdir()
             if part.name not in PARTS]
    return found + [str(part.relative_to(root)) for part in (root / "worlds").glob("*")
                    if not part.is_dir()]


def unused_worlds(root):
    named = {name for case in index.cases(root)
             for name in WORLD.findall((case / index.SCRIPT).read_text(encoding="utf-8"))}
    return sorted({world.name for world in (root / "worlds").iterdir()} - named)


class Files(unittest.TestCase):
    def test_no_two_are_alike(self):
        self.assertEqual(copies(index.ROOT), [])

    def test_nothing_belongs_nowhere(self):
        self.assertEqual(strays(index.ROOT), [])

    def test_each_world_is_used(self):
        self.assertEqual(unused_worlds(index.ROOT), [])


class Finds(unittest.TestCase):
    """What the tests above would find."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.write("a/one/script.jsonl", "# One.\n# world: used\n# copy: copied/store to store.ini\n")
        self.write("a/one/transcript", "the transcript of one\n")
        self.write("worlds/used/store", "a store of few words\n")
        self.write("worlds/copied/store", "a store of other words\n")

    def write(self, name, text):
        file = self.root / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def test_nothing_where_all_is_well(self):
        self.assertEqual([copies(self.root), strays(self.root), unused_worlds(self.root)], [[], [], []])

    def test_a_copy(self):
        self.write("worlds/used/before/x", "the transcript of one\n")
        self.write("a/one/before/y", "few bytes\n")
        self.write("a/one/before/z", "few bytes\n")
        self.assertEqual(copies(self.root), [["a/one/transcript", "worlds/used/before/x"]])

    def test_a_stray(self):
        self.write("a/one/transcript.jsonl", "")
        self.write("worlds/README", "")
        self.assertEqual(strays(self.root), ["a/one/transcript.jsonl", "worlds/README"])

    def test_an_unused_world(self):
        self.write("worlds/other/store", "")
        self.assertEqual(unused_worlds(self.root), ["other"])


if __name__ == "__main__":
    unittest.main()
