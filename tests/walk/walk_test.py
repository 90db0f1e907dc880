#!/usr/bin/python3
"""The walk itself: what it plays, how it shortens a failure, and what it tells."""
import contextlib
import io
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest
from unittest import mock

sys.dont_write_bytecode = True  # the source tree stays as it is
import generate  # noqa: E402
import program  # noqa: E402
import walk  # noqa: E402
from failure import failure_of  # noqa: E402
from judge import Verdict  # noqa: E402
from play import Played, play, to_lines  # noqa: E402
from shrink import Shrinker  # noqa: E402

# The kinds of control that each verb is for; every kind can be shown.
VERB_KINDS = {
    "click": {"Button", "CheckBox", "MenuItem", "MenuItemArray", "OptionButton"},
    "arrow": {"OptionButton"}, "type": {"TextBox", "ComboBox"}, "leave": {"TextBox", "ComboBox"},
    "select": {"ListBox", "ComboBox"}, "dblclick": {"ListBox"}, "key": {"ListBox", "ComboBox"},
    "keydown": {"ComboBox", "TextBox"}, "hotkey": {"HotKeyControl"}, "show": set(program.KINDS),
}


class Generated(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.steps = generate.script(7, 60000)
        cls.controls = {control.name: control for control in program.controls()}

    def of_verb(self, verb):
        return [step for step in self.steps if next(iter(step)) == verb]

    def test_the_sources_are_understood(self):
        self.assertGreater(len(self.controls), 100)
        self.assertEqual({control.kind for control in self.controls.values()}, set(program.KINDS))
        self.assertEqual(self.controls["txtSpokenMessages"].count, 4)
        self.assertEqual(self.controls["fraPage"].count, 16)
        self.assertEqual(len(program.events()), 31)
        self.assertEqual(program.events()["OnUserStateChanged"], ["email", "name", "state"])
        self.assertIn("previousInstance", program.world_members())
        self.assertIn("keydown", program.verbs())

    def test_same_seed_same_script(self):
        self.assertEqual(generate.script(3, 500), generate.script(3, 500))
        self.assertNotEqual(generate.script(3, 500), generate.script(4, 500))
        self.assertEqual(len(generate.script(3, 500)), 500)

    def test_every_verb(self):
        self.assertEqual({next(iter(step)) for step in self.steps}, program.verbs())

    def test_every_kind_of_control_with_every_verb_for_it(self):
        for verb, kinds in VERB_KINDS.items():
            named = {step[verb] for step in self.of_verb(verb)} - {"store", "window"}
            self.assertEqual({self.controls[name].kind for name in named}, kinds, verb)

    def test_every_control_with_every_verb_for_it(self):
        for verb, kinds in VERB_KINDS.items():
            of_element = verb != "select"  # there the index is a line's
            found = {(step[verb], of_element and step.get("index")) for step in self.of_verb(verb)}
            for control in self.controls.values():
                for target in control.targets() if control.kind in kinds else []:
                    self.assertIn((control.name, of_element and target.get("index")), found)

    def test_every_event_with_all_its_members(self):
        found = {}
        for step in self.of_verb("raise"):
            found.setdefault(step["raise"], set()).update(set(step) - {"raise"})
        self.assertEqual(found, {event: set(names) for event, names in program.events().items()})

    def test_every_member_of_the_world(self):
        found = {name for step in self.of_verb("world") for name in step["world"]}
        self.assertEqual(found, program.world_members())
        web = [step["world"]["web"] for step in self.of_verb("world") if "web" in step["world"]]
        self.assertEqual({kind if isinstance(kind, str) else "reply" for kind in web},
                         {"silent", "error", "reply"})

    def test_an_index_exactly_for_elements(self):
        for step in self.steps:
            verb = next(iter(step))
            if verb in VERB_KINDS and verb != "select" and step[verb] not in ("store", "window"):
                control = self.controls[step[verb]]
                if control.kind != "MenuItemArray":
                    index = {name: step[name] for name in step if name == "index"}
                    self.assertIn(index, control.targets(), step)

    def test_only_items_of_the_menu_that_are_there(self):
        people, items = set(), 1
        for step in self.steps:
            if "start" in step:
                people, items = set(), 1
            elif step.get("raise") in ("OnUserStateChanged", "OnUserStateFound"):
                people.add(step["email"])
            elif step.get("tray") == 517:
                items = max(items, len(people))
            elif step.get("click") == "mnuBuddiesOnLine":
                self.assertLess(step["index"], items)

    def test_numbers_and_texts_that_a_script_can_hold(self):
        for line in to_lines(self.steps[:5000]).splitlines():
            self.assertLess(len(line), 100000)
        to_lines(self.steps).encode("utf-8")


def step_of(number):
    return {"wait": number}


class Shrunk(unittest.TestCase):
    def shrink(self, steps, fails, seconds=1000):
        shrinker = Shrinker(fails, seconds)
        found = shrinker.shrink(steps)
        self.assertTrue(fails(found))
        return found, shrinker.tries

    def test_two_steps_in_their_order(self):
        def fails(steps):
            places = [i for i, step in enumerate(steps) if step == {"click": "cmdOK"}]
            return bool(places) and {"close": True} in steps[places[0]:]

        steps = [step_of(1)] * 700 + [{"close": True}, {"click": "cmdOK"}] + [step_of(2)] * 700 + [
            {"close": True}] + [step_of(3)] * 600
        found, tries = self.shrink(steps, fails)
        self.assertEqual(found, [{"click": "cmdOK"}, {"close": True}])
        self.assertLess(tries, 100)

    def test_many_steps_that_all_count(self):
        needed = [{"click": f"control{i}"} for i in range(9)]
        steps = [step for one in needed for step in [*[step_of(0)] * 20, one]]
        found, _ = self.shrink(steps, lambda steps: all(one in steps for one in needed))
        self.assertEqual(found, needed)

    def test_steps_that_count_only_together(self):
        def fails(steps):
            return steps.count({"close": True}) == steps.count({"start": ""}) > 0

        found, _ = self.shrink([{"start": ""}, {"close": True}] * 8, fails)
        self.assertEqual(len(found), 2)

    def test_an_early_step_before_the_last_start(self):
        def fails(steps):
            return {"click": "cmdOK"} in steps[:1] and len(steps) > 1

        found, _ = self.shrink([{"click": "cmdOK"}, *[{"start": ""}] * 50], fails)
        self.assertEqual(found, [{"click": "cmdOK"}, {"start": ""}])

    def test_values(self):
        def fails(steps):
            return any("(" in step.get("text", "") and step.get("raise") for step in steps)

        message = {"raise": "OnTextReceived", "email": "a@b", "text": "x" * 300 + "(" + "y" * 500}
        self.assertEqual(self.shrink([message], fails)[0],
                         [{"raise": "OnTextReceived", "text": "("}])

    def test_values_inside_values(self):
        def fails(steps):
            return any("b" in step.get("world", {}).get("voices", []) for step in steps)

        steps = [{"world": {"voices": ["a", "b", "c"], "now": "x", "web": {"reply": "y"}}}]
        self.assertEqual(self.shrink(steps, fails)[0], [{"world": {"voices": ["b"]}}])

    def test_numbers(self):
        found, _ = self.shrink([{"wait": 1000}], lambda steps: steps[0].get("wait", 0) > 5)
        self.assertIn(found[0]["wait"], range(6, 12))

    def test_what_was_found_when_the_time_is_over(self):
        now = [0]

        def fails(steps):
            now[0] += 1
            return {"close": True} in steps

        steps = [step_of(1)] * 500 + [{"close": True}] + [step_of(1)] * 500
        shrinker = Shrinker(fails, 5, clock=lambda: now[0])
        found = shrinker.shrink(steps)
        self.assertIn({"close": True}, found)
        self.assertLess(len(found), len(steps))
        self.assertLessEqual(shrinker.tries, 6)


class Failures(unittest.TestCase):
    STEPS = [{"wait": 0}]

    def rule(self, status=0, errors="", lines=('{"step":1}',), **files):
        complaint = failure_of(Played(status, errors, list(lines), **files), self.STEPS)[1]
        return complaint and complaint.rule

    def test_none(self):
        self.assertIsNone(self.rule())
        self.assertIsNone(self.rule(contacts=b"", files=("Brenwick.Lst", "DebugLogs")))

    def test_of_the_process(self):
        self.assertEqual(self.rule(status=None), "hang")
        self.assertEqual(self.rule(status=3, errors="script:1: x"), "exception")
        self.assertEqual(self.rule(status=2, errors="script:1: x"), "exit status 2")
        self.assertEqual(self.rule(status=-11), "exit status -11")
        self.assertEqual(self.rule(errors="a word"), "standard error")

    def test_of_the_sanitizers(self):
        stack = "\n #0 0x1 in std::find\n #1 0x2 in brenwick::Speech::Speak(int) Speech.cpp:1\n"
        self.assertEqual(self.rule(1, "==1==ERROR: AddressSanitizer: heap-use-after-free" + stack),
                         "AddressSanitizer: heap-use-after-free in brenwick::Speech::Speak")
        self.assertEqual(self.rule(1, "==1==ERROR: LeakSanitizer: detected memory leaks\n"),
                         "LeakSanitizer: detected")
        self.assertEqual(self.rule(1, "a.cpp:1:2: runtime error: signed integer overflow"),
                         "runtime error")

    def test_of_the_transcript(self):
        self.assertEqual(self.rule(lines=()), "transcript")
        self.assertEqual(self.rule(lines=('{"step":1}', '{"beep":true}')), "NothingWithoutCause")

    def test_what_went_wrong_before_a_wrong_step(self):
        self.assertEqual(self.rule(2, "script:1: x", ('{"step":1}', '{"beep":true}')),
                         "NothingWithoutCause")

    def test_of_the_files(self):
        self.assertEqual(self.rule(contacts=b"x"), "contact list")
        self.assertEqual(self.rule(files=("Brenwick.Lst.damaged-2004-01-10",)), "data folder")


# Stands in for brenwick-rehearse. What BEHAVIOUR makes of a step decides what happens.
TOOL = r'''#!/usr/bin/python3
import json, sys, time
kept, seen = [], set()
def write(effect): print(json.dumps(effect, separators=(",", ":")))
for number, line in enumerate(open(sys.argv[-1]), 1):
    step = json.loads(line)
    write({"step": number})
    BEHAVIOUR
'''
CRASH = '''
    if "arrow" in step: seen.add(1)
    if seen and step.get("close"):
        sys.stdout.flush()
        sys.exit("ERROR: AddressSanitizer: heap-use-after-free")
'''


class Whole(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "program").mkdir()
        self.tool = self.folder / "tool"

    def behave(self, code):
        self.tool.write_text(TOOL.replace("    BEHAVIOUR", code))
        self.tool.chmod(0o755)

    def walk(self, *arguments):
        done = subprocess.run([sys.executable, walk.__file__, str(self.tool), *arguments],
                              capture_output=True, text=True, check=False, timeout=100)
        self.assertEqual(done.stderr, "")
        return done.returncode, done.stdout

    def script(self, *steps):
        file = self.folder / "script"
        file.write_text("# a comment\n\n" + to_lines(steps), encoding="utf-8")
        return "--script", str(file)

    def test_a_crash_is_shortened_and_told(self):
        self.behave(CRASH)
        status, told = self.walk("--steps", "2000", "--seed", "5")
        self.assertEqual(status, 1)
        self.assertRegex(told, r'tries:\n\n\{"arrow": "opt\w+"\}\n\{"close": true\}\n\n')
        self.assertIn("AddressSanitizer: heap-use-after-free", told)

    def test_a_breach_is_shortened_and_told(self):
        self.behave('\n    if step.get("click") == "cmdOK": write({"beep": True})')
        status, told = self.walk(*self.script({"wait": 5}, {"click": "cmdOK"}, {"wait": 7}))
        self.assertEqual(status, 1)
        self.assertIn('tries:\n\n{"click": "cmdOK"}\n\n', told)
        self.assertIn('{"step":1}\n{"beep":true}\n', told)

    def test_a_walk_to_nobody_is_no_walk(self):
        options = walk.options_of([str(self.tool), "--steps", "10"])
        for alive, status in ((7, 1), (8, 0), (10, 0)):
            done = Played(0, "", []), Verdict(None, 10, alive), None
            with mock.patch.object(walk, "try_out", lambda *_, done=done: done), \
                    contextlib.redirect_stdout(io.StringIO()):
                self.assertEqual(walk.walk(options), status)

    def test_a_hang(self):
        self.behave("\n    time.sleep(60)")
        self.assertIsNone(play(self.tool, [{"wait": 0}], 0.3).status)

    def test_growth(self):
        script = self.script(*[{"wait": 1}] * 99, {"wait": 2})
        # The last step gives the time in which the memory is looked at.
        rest = '\n    if step["wait"] == 2: time.sleep(0.1)'
        self.behave(rest)
        self.assertEqual(self.walk("--growth", *script)[0], 0)
        self.behave("\n    kept.append(bytearray(10000))" + rest)
        status, told = self.walk("--growth", *script)
        self.assertEqual(status, 1)
        self.assertIn("KiB more", told)

    def test_the_same_steps_must_do_the_same(self):
        self.behave('\n    write({"status": None, "x": time.monotonic()})')
        played = play(self.tool, [{"wait": 0}], 30)
        with contextlib.redirect_stdout(io.StringIO()):
            error = walk.growth.measure(self.tool, [{"wait": 0}], played, 30)
        self.assertIn("did not do the same", error)

    def test_folders_have_a_fixed_name(self):
        self.behave('\n    write({"status": sys.argv[4]})')
        lines = play(self.tool, [{"wait": 0}], 30).lines
        self.assertEqual([json.loads(line) for line in lines],
                         [{"step": 1}, {"status": "FOLDER/documents"}])


if __name__ == "__main__":
    unittest.main()
