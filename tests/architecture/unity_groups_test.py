#!/usr/bin/python3
"""Which files the quick build compiles together, and which it keeps apart."""
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "cmake"))
import unity_groups  # noqa: E402


class GroupsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def grouped(self, *texts, most=10):
        files = []
        for number, text in enumerate(texts):
            file = self.folder / f"{number}.cpp"
            file.write_text(text, encoding="utf-8")
            files.append(str(file))
        return [[int(Path(file).stem) for file in group]
                for group in unity_groups.groups(files, most)]

    def test_files_that_share_nothing(self):
        self.assertEqual(self.grouped("int a;", "int b;", "int c;"), [[0, 1, 2]])

    def test_no_more_than_asked_for(self):
        self.assertEqual(self.grouped("int a;", "int b;", "int c;", most=2), [[0, 1], [2]])

    def test_one_name_in_two_unnamed_namespaces(self):
        for one in ("constexpr int kWait = 3;", "const char* kWait[] = {};", "struct kWait {};",
                    "enum class kWait { A };", "using kWait = int;", "int kWait(int a) { return a; }",
                    "template <typename T>\nbool kWait(T a) {\n  return a;\n}"):
            with self.subTest(one):
                text = "namespace x {\nnamespace {\n" + one + "\n}\n}\n"
                self.assertEqual(self.grouped(text, "namespace {\nint kWait;\n}"), [[0], [1]])

    def test_own_name_that_another_file_only_mentions(self):
        own = "namespace {\nint Wait() { return 1; }\n}"
        self.assertEqual(self.grouped(own, "void f() { clock.Wait(); }"), [[0], [1]])
        self.assertEqual(self.grouped("void f() { clock.Wait(); }", own), [[0], [1]])

    def test_mention_in_a_comment_or_a_text(self):
        own = "namespace {\nint Wait() { return 1; }\n}"
        self.assertEqual(self.grouped(own, '// Wait\n/* Wait */ const char* a = "Wait";'), [[0, 1]])

    def test_names_inside_of_what_a_file_has_for_itself(self):
        own = "namespace {\nstruct Own {\n  int inner;\n};\nvoid F() { int local = 1; }\n}"
        self.assertEqual(self.grouped(own, "int inner; int local;"), [[0, 1]])

    def test_macro(self):
        self.assertEqual(self.grouped("#define LIMIT 3\n", "int LIMIT;"), [[0], [1]])


if __name__ == "__main__":
    unittest.main()
