#!/usr/bin/python3
"""What rehearse.py finds wrong, and what it lets pass."""
import pathlib
import subprocess
import sys
import tempfile
import unittest
from unittest import mock

sys.dont_write_bytecode = True  # the source tree stays as it is
import rehearse  # noqa: E402

# Stands in for brenwick-rehearse: writes the transcript and the files that lie beside the script.
TOOL = r'''#!/usr/bin/env python3
import pathlib, shutil, sys, time
documents, script = pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[-1])
made = script.with_name("made")
if made.is_dir():
    shutil.copytree(made, documents, dirs_exist_ok=True)
    for log in documents.rglob("*.log"):
        log.write_bytes(log.read_bytes().replace(b"DOCUMENTS", str(documents).encode()))
errors = script.with_name("errors")
if errors.exists():
    sys.stderr.write(errors.read_text())
if script.with_name("hang").exists():
    time.sleep(60)
program = "--program" in sys.argv and sys.argv[sys.argv.index("--program") + 1]
text = script.with_name("output").read_text().replace("DOCUMENTS", str(documents))
if program:
    text = text.replace("PROGRAM", (pathlib.Path(program) / "a").read_text())
sys.stdout.write(text)
status = script.with_name("status")
sys.exit(int(status.read_text()) if status.exists() else 0)
'''
STEP_1, STEP_2 = '{"step":1}', '{"step":2}'
A, B, C = '{"beep":1}', '{"beep":2}', '{"beep":3}'


class Mismatch(unittest.TestCase):
    def fits(self, expected, got):
        self.assertEqual(rehearse.mismatch(expected, got), "")

    def differs(self, expected, got):
        self.assertNotEqual(rehearse.mismatch(expected, got), "")

    def test_the_same_lines(self):
        self.fits([], [])
        self.fits([STEP_1, A, STEP_2], [STEP_1, A, STEP_2])

    def test_other_lines(self):
        self.differs([STEP_1, A], [STEP_1, B])
        self.differs([STEP_1, A], [STEP_1])
        self.differs([STEP_1], [STEP_1, A])
        self.differs([], [A])
        self.differs([A], [])
        self.differs([A, B], [B, A])

    def test_dots_stand_for_any_lines_of_a_step(self):
        for hidden in ([], [A], [A, B], [A, A, A]):
            self.fits([STEP_1, "...", STEP_2, C], [STEP_1, *hidden, STEP_2, C])
            self.fits([STEP_1, "...", C], [STEP_1, *hidden, C])
            self.fits([STEP_1, "..."], [STEP_1, *hidden])

    def test_dots_hide_no_later_line(self):
        self.differs([STEP_1, "...", STEP_2, A, B], [STEP_1, C, STEP_2, A])
        self.differs([STEP_1, "...", STEP_2, A], [STEP_1, C, STEP_2, A, B])
        self.differs([STEP_1, "...", STEP_2], [STEP_1, C])
        self.differs([STEP_1, "...", A, B], [STEP_1, C, A])

    def test_dots_end_at_the_first_line_that_fits(self):
        self.differs([STEP_1, "...", A, B], [STEP_1, A, C, A, B])

    def test_dots_end_with_their_step(self):
        self.differs([STEP_1, "...", A], [STEP_1, STEP_2, A])
        self.differs([STEP_1, "..."], [STEP_1, A, STEP_2])
        self.differs(["...", STEP_2], [STEP_1, STEP_2])

    def test_the_place_is_told(self):
        error = rehearse.mismatch([STEP_1, A, B], [STEP_1, A, C])
        self.assertIn("line 3", error)
        self.assertIn(B, error)
        self.assertIn(C, error)


class WholeRun(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.tool = self.folder / "tool"
        self.tool.write_text(TOOL)
        self.tool.chmod(0o755)
        self.write("a.jsonl", '{"start":""}\n{"wait":1}\n')
        self.write("output", f"{STEP_1}\n{A}\n{STEP_2}\n{B}\n")
        self.write("a.transcript", f"{STEP_1}\n...\n{STEP_2}\n{B}\n")

    def write(self, name, text):
        file = self.folder / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(text.encode())

    def run_it(self, *arguments):
        done = subprocess.run(
            [sys.executable, rehearse.__file__, str(self.tool), str(self.folder / "a.jsonl"),
             *arguments], capture_output=True, text=True, check=False, timeout=60)
        return done.returncode, done.stderr

    def passes(self):
        self.assertEqual(self.run_it(), (0, ""))

    def fails(self, *words):
        status, error = self.run_it()
        self.assertEqual(status, 1)
        for word in words:
            self.assertIn(word, error)

    def test_all_is_well(self):
        self.passes()

    def test_wrong_transcript(self):
        self.write("output", f"{STEP_1}\n{A}\n{STEP_2}\n{C}\n")
        self.fails("a.jsonl", "-" + B, "+" + C)

    def test_missing_transcript(self):
        (self.folder / "a.transcript").unlink()
        self.fails("a.transcript")

    def test_what_the_tool_says_is_a_failure(self):
        self.write("errors", "a warning\n")
        self.fails("a warning")

    def test_exit_status_of_the_tool(self):
        self.write("status", "3")
        self.fails("exit status 3")

    def test_tool_that_hangs(self):
        self.write("hang", "")
        with mock.patch.object(rehearse, "TIMEOUT", 0.2), self.assertRaises(SystemExit) as end:
            rehearse.play(str(self.tool), self.folder / "a.jsonl", self.folder / "run")
        self.assertIn("not done after", end.exception.code)

    LOG = "made/Brenwick/DebugLogs/20040110.log"

    def test_log(self):
        self.write(self.LOG, "2004-01-10 12:00:00 A : one\r\n2004-01-10 12:00:00 B : two\r\n"
                             "2004-01-10 12:00:00 C : three\r\n")
        self.write("a.log", "A : one\nB : two\n")
        self.passes()
        self.write("a.log", "B : two\nC : three\n")
        self.passes()
        for wrong in ("A : one\nC : three\n", "B : two\nA : one\n", "D : four\n", "one\n",
                      "C : three\nD : four\n"):
            self.write("a.log", wrong)
            self.fails("the debug log does not hold", wrong.splitlines()[0])

    def test_log_that_says_nothing(self):
        self.write(self.LOG, "2004-01-10 12:00:00 A : one\r\n")
        self.write("a.log", "")
        self.fails("a.log is empty")

    def test_log_that_was_not_written(self):
        self.write("a.log", "A : one\n")
        self.fails("no debug log")

    def test_files_afterwards(self):
        self.write("made/Brenwick/x", "one\r\n")
        self.write("a.after/Brenwick/x", "one\r\n")
        self.passes()
        self.write("a.after/Brenwick/x", "one\n")
        self.fails("x holds")
        self.write("a.after/Brenwick/y", "")
        (self.folder / "a.after/Brenwick/x").unlink()
        self.fails("y was not written")

    def test_documents_beforehand(self):
        self.write("a.documents/Brenwick/x", "before")
        self.write("a.after/Brenwick/x", "before")
        self.passes()

    def test_program_folder_of_its_own(self):
        self.write("program/a", "old")
        self.write("program/b", "")
        self.write("a.program/a", "new")
        self.write("output", f'{STEP_1}\n{STEP_2}\n{{"box":"PROGRAM"}}\n')
        self.write("a.transcript", f'{STEP_1}\n{STEP_2}\n{{"box":"new"}}\n')
        self.passes()

    def test_folder_of_the_run_has_a_fixed_name(self):
        self.write("output", f'{STEP_1}\n{STEP_2}\n{{"box":"DOCUMENTS"}}\n')
        self.write("a.transcript", f'{STEP_1}\n{STEP_2}\n{{"box":"FOLDER/documents"}}\n')
        self.passes()

    def test_folder_of_the_run_has_its_name_in_the_log_too(self):
        self.write(self.LOG, "2004-01-10 12:00:00 A DOCUMENTS/x\r\n")
        self.write("a.log", "A FOLDER/documents/x\n")
        self.passes()
        self.write("a.log", "A FOLDER/x\n")
        self.fails("the debug log does not hold")

    def test_unusual_line_ends_inside_a_text(self):
        line = '{"box":"a\u2028b\x0cc"}'
        self.write("output", f"{STEP_1}\n{STEP_2}\n{line}\n")
        self.write("a.transcript", f"{STEP_1}\n{STEP_2}\n{line}\n")
        self.passes()

    def test_update(self):
        self.assertEqual(self.run_it("--update"), (0, ""))
        self.assertEqual((self.folder / "a.transcript").read_text(),
                         f"{STEP_1}\n...\n{STEP_2}\n{B}\n")
        self.write("a.jsonl", '# whole start\n{"start":""}\n{"wait":1}\n')
        self.assertEqual(self.run_it("--update"), (0, ""))
        self.assertEqual((self.folder / "a.transcript").read_text(),
                         f"{STEP_1}\n{A}\n{STEP_2}\n{B}\n")


# Stands in for brenwick-rehearse-view: plays the output that lies beside each script.
TOGETHER = r'''#!/usr/bin/env python3
import json, pathlib, sys
assert sys.argv[1:] == ["--together"]
for line in sys.stdin:
    arguments = json.loads(line)
    script = pathlib.Path(arguments[-1])
    output = script.with_suffix(".output").read_text().replace("DOCUMENTS", arguments[1])
    if output == "crash":
        sys.exit("what it died of")
    errors = script.with_suffix(".errors")
    print(output, end="")
    print(json.dumps({"played": 3 if errors.exists() else 0,
                      "errors": errors.read_text() if errors.exists() else ""},
                     separators=(",", ":")))
'''


class Together(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.tool = self.folder / "tool"
        self.tool.write_text(TOGETHER)
        self.tool.chmod(0o755)
        for name, effect in (("a", A), ("b", '{"box":"DOCUMENTS"}')):
            self.write(name + ".jsonl", '{"wait":1}\n')
            self.write(name + ".output", f"{STEP_1}\n{effect}\n")
        self.write("a.transcript", f"{STEP_1}\n{A}\n")
        self.write("b.transcript", f'{STEP_1}\n{{"box":"FOLDER/documents"}}\n')

    def write(self, name, text):
        (self.folder / name).write_text(text)

    def run_it(self):
        done = subprocess.run(
            [sys.executable, rehearse.__file__, str(self.tool), str(self.folder / "a.jsonl"),
             str(self.folder / "b.jsonl"), "--together"],
            capture_output=True, text=True, check=False, timeout=60)
        return done.returncode, done.stderr

    def fails(self, *words):
        status, error = self.run_it()
        self.assertEqual(status, 1)
        for word in words:
            self.assertIn(word, error)

    def test_all_is_well(self):
        self.assertEqual(self.run_it(), (0, ""))

    def test_each_is_compared_with_its_own_transcript(self):
        self.write("b.transcript", f"{STEP_1}\n{A}\n")
        self.fails("b.jsonl", "FOLDER/documents")
        self.write("a.transcript", f"{STEP_1}\n{B}\n")
        self.fails("a.jsonl", "b.jsonl")

    def test_one_that_goes_wrong(self):
        self.write("a.errors", "what is wrong")
        self.fails("a.jsonl", "exit status 3", "what is wrong")

    def test_one_that_ends_the_process(self):
        self.write("b.output", "crash")
        self.fails("b.jsonl", "what it died of")


if __name__ == "__main__":
    unittest.main()
