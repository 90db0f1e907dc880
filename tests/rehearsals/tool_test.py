#!/usr/bin/python3
"""The command line of brenwick-rehearse: what it takes, what it refuses, and how it says so.

usage: tool_test.py BRENWICK-REHEARSE [UNITTEST-ARGUMENT...]
"""
import json
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import unittest

TOOL = ""
START = {"start": ""}
TIMEOUT = 60


def lines_of(steps):
    """A script of objects, raw lines and raw bytes."""
    raw = [step if isinstance(step, bytes) else
           (step if isinstance(step, str) else json.dumps(step)).encode() for step in steps]
    return b"".join(line + b"\n" for line in raw)


class ToolTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.temporary = self.folder / "temporary"
        self.temporary.mkdir()
        self.environment = {**os.environ, "TMPDIR": str(self.temporary), "LC_ALL": "C.UTF-8"}

    def run_tool(self, *arguments, script=b""):
        return subprocess.run([TOOL, *map(str, arguments)], input=script, capture_output=True,
                              env=self.environment, timeout=TIMEOUT, check=False)

    def play(self, *steps, options=()):
        """The transcript of a script that can be carried out."""
        done = self.run_tool(*options, script=lines_of(steps))
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return [json.loads(line) for line in done.stdout.decode().splitlines()]

    def refused(self, *steps):
        """What the tool says about a script whose last line is wrong."""
        done = self.run_tool(script=lines_of(steps))
        self.assertEqual(done.returncode, 2, done)
        message = done.stderr.decode()
        self.assertTrue(message.startswith(f"-:{len(steps)}: "), message)
        self.assertEqual(message.count("\n"), 1, message)
        return message.split(": ", 1)[1].strip()

    def nothing_left(self):
        self.assertEqual(list(self.temporary.iterdir()), [])


class CommandLine(ToolTest):
    def test_script_from_a_file(self):
        script = self.folder / "a.jsonl"
        script.write_bytes(lines_of([{"wait": 0}]))
        done = self.run_tool(script)
        self.assertEqual((done.returncode, done.stdout), (0, b'{"step":1}\n'))

    def test_script_from_standard_input(self):
        for arguments in [(), ("-",)]:
            done = self.run_tool(*arguments, script=b'{"wait":0}\n')
            self.assertEqual((done.returncode, done.stdout), (0, b'{"step":1}\n'))

    def test_wrong_line_of_a_file_is_named(self):
        script = self.folder / "a.jsonl"
        script.write_bytes(b'# comment\n\n{"wait":0}\n{"wat":0}\n{"wait":0}\n')
        done = self.run_tool(script)
        self.assertEqual(done.returncode, 2)
        self.assertEqual(done.stderr.decode(), f'{script}:4: unknown verb "wat"\n')
        self.assertEqual(done.stdout, b'{"step":1}\n')
        self.nothing_left()

    def test_help_and_version(self):
        for option in ("--help", "-h"):
            done = self.run_tool(option)
            self.assertEqual((done.returncode, done.stderr), (0, b""))
            for word in ("--program", "--documents", "--store", "--voice", "--wav", "--realtime",
                         "--transcript", "--sound-device", "--version", "SCRIPT"):
                self.assertIn(word, done.stdout.decode())
        done = self.run_tool("--version")
        self.assertEqual(done.returncode, 0)
        self.assertRegex(done.stdout.decode(), r"^brenwick-rehearse \d+\.\d+\.\d+\n$")

    def test_wrong_options(self):
        for arguments in [("--nonsense",), ("--program",), ("--documents",), ("--store",),
                          ("--wav",), ("--voice", "parrot"), ("--transcript", "xml"), ("a", "b")]:
            done = self.run_tool(*arguments)
            self.assertEqual((done.returncode, done.stdout), (2, b""), arguments)
            self.assertIn("--help", done.stderr.decode())

    def missing(self, *arguments):
        done = self.run_tool(*arguments)
        self.assertEqual((done.returncode, done.stdout), (1, b""), arguments)
        self.assertTrue(done.stderr.startswith(b"brenwick-rehearse: "), done.stderr)
        self.assertEqual(done.stderr.count(b"\n"), 1, done.stderr)
        self.nothing_left()
        return done.stderr.decode()

    def test_missing_script(self):
        message = self.missing(self.folder / "none.jsonl")
        self.assertIn("none.jsonl", message)
        self.assertIn("No such file", message)

    def test_folder_instead_of_a_script(self):
        self.assertIn(str(self.folder), self.missing(self.folder))

    def test_missing_program_folder(self):
        self.assertIn("/no/such/program", self.missing("--program", "/no/such/program"))

    def test_unwritable_wav(self):
        self.assertIn("/no/such/a.wav", self.missing("--wav", "/no/such/a.wav"))

    def test_no_place_for_the_temporary_folder(self):
        self.environment["TMPDIR"] = "/no/such/folder"
        self.assertIn("/no/such/folder", self.missing())

    def test_transcript_that_cannot_be_written(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([TOOL], input=lines_of([START]), stdout=full,
                                  stderr=subprocess.PIPE, env=self.environment, timeout=TIMEOUT,
                                  check=False)
        self.assertEqual(done.returncode, 1)
        self.assertIn("transcript", done.stderr.decode())
        self.nothing_left()

    def test_program_that_reports_a_failure_is_no_failure_of_the_tool(self):
        transcript = self.play(START, {"wait": 5}, options=("--program", self.folder))
        boxes = [effect for effect in transcript if "box" in effect]
        self.assertEqual([box["icon"] for box in boxes], ["critical"])
        self.assertEqual(transcript[-2:], [{"ended": True}, {"step": 2}])


class Script(ToolTest):
    def test_blank_lines_and_comments_are_no_steps(self):
        transcript = self.play("", "   ", "\t", "# {", '{"wait":0}', "#", '{"wait":0}')
        self.assertEqual(transcript, [{"step": 1}, {"step": 2}])

    def test_cr_lf(self):
        done = self.run_tool(script=b'# c\r\n\r\n{"wait":0}\r\n{"wait":0}\r\n')
        self.assertEqual((done.returncode, done.stdout), (0, b'{"step":1}\n{"step":2}\n'))
        done = self.run_tool(script=b'# c\r\n\r\n{"wait":"x"}\r\n')
        self.assertEqual(done.returncode, 2)
        self.assertTrue(done.stderr.startswith(b"-:3: "), done.stderr)

    def test_last_line_without_its_end(self):
        self.assertEqual(self.run_tool(script=b'{"wait":0}').stdout, b'{"step":1}\n')

    def test_empty_script(self):
        self.assertEqual(self.play(), [])

    def test_lines_that_are_no_objects(self):
        for line in ["[]", "1", '"start"', "null", "true", "{", "}", '{"wait":0', '{"wait":0}}',
                     '{"wait":0} {"wait":0}', "{'wait':0}", "nonsense", "\x00", '{"wait":}']:
            with self.subTest(line=line):
                self.refused(line)

    def test_invalid_utf8_is_read_as_replacement_characters(self):
        raw = b'{"type":"txtSays","text":"a\xff\xc3b"}'
        transcript = self.play(START, raw, {"show": "txtSays"})
        self.assertEqual(transcript[-1]["text"], "a\ufffd\ufffdb")

    def test_lone_surrogates(self):
        for text in (r"\ud800", r"\udc00", r"\ud800\ud800", r"a\ud83dz"):
            with self.subTest(text=text):
                self.refused('{"type":"txtSays","text":"' + text + '"}')

    def test_characters_beyond_the_first_plane_and_nul(self):
        transcript = self.play(START, r'{"type":"txtSays","text":"\ud83d\ude00\u0000x"}',
                               {"show": "txtSays"})
        self.assertEqual(transcript[-1]["text"], "\U0001F600\0x")

    def test_deep_nesting(self):
        for opening, closing in (("[", "]"), ('{"a":', "}")):
            for depth in (10_000, 200_000):
                inner = opening * depth + ("1" if opening != "[" else "") + closing * depth
                self.refused(inner)
                self.refused('{"world":' + inner + "}")
                self.refused('{"raise":"OnTextReceived","text":' + inner + "}")
                self.refused(opening * depth)

    def test_huge_numbers(self):
        for number in ("2147483648", "-2147483649", "9223372036854775808", "1e3", "1.0", "1e999",
                       "-1e999", "9" * 400):
            with self.subTest(number=number[:20]):
                self.refused('{"tray":' + number + "}")
                self.refused('{"wait":' + number + "}")
        self.play(START, {"tray": 2147483647}, {"tray": -2147483648},
                  {"key": "cmbVoiceMale", "code": 2147483647},
                  {"keydown": "cmbVoiceMale", "code": -2147483648},
                  {"raise": "OnUserStateChanged", "email": "a", "state": -2147483648},
                  {"window": {"move": [2147483647, -2147483648]}},
                  {"world": {"myStatus": -2147483648}}, {"wait": 2147483647})

    def test_long_line(self):
        text = "x" * 1_000_000
        transcript = self.play(START, {"type": "txtSays", "text": text}, {"show": "txtSays"})
        self.assertEqual(transcript[-1]["text"], text)

    def test_exactly_one_verb(self):
        self.assertIn("verb", self.refused({}))
        self.assertIn('"wat"', self.refused({"wat": 1}))
        self.assertIn("two verbs", self.refused({"wait": 1, "tray": 514}))
        self.assertIn('"wait" stands twice', self.refused('{"wait":1,"wait":2}'))
        self.assertIn('"text" stands twice',
                      self.refused('{"type":"txtSays","text":"a","text":"b"}'))

    def test_unknown_members(self):
        for step in [{"world": {"weather": 1}}, {"start": "", "index": 0},
                     {"close": True, "text": ""}, {"click": "cmdOK", "text": "x"},
                     {"raise": "OnLogoff", "email": "a"},
                     {"raise": "OnTextReceived", "state": 2},
                     {"raise": "OnUserStateChanged", "text": "a"},
                     {"wait": 1, "ms": 1}, {"show": "store", "index": 0},
                     {"show": "window", "index": 0}, {"tray": 514, "index": 0},
                     {"window": {"move": [1, 2], "size": 1}},
                     {"world": {"web": {"reply": "", "after": 1}}}]:
            with self.subTest(step=step):
                self.refused(step)

    def test_unknown_names(self):
        self.assertIn("cmdNone", self.refused({"click": "cmdNone"}))
        self.assertIn("OnNothing", self.refused({"raise": "OnNothing"}))
        self.assertIn("cmdok", self.refused({"click": "cmdok"}))
        for verb in ("click", "arrow", "leave", "dblclick", "hotkey", "show"):
            self.assertIn("nobody", self.refused({verb: "nobody"}))
        for verb in ("key", "keydown"):
            self.assertIn("nobody", self.refused({verb: "nobody", "code": 65}))
        self.assertIn("nobody", self.refused({"type": "nobody", "text": ""}))
        self.assertIn("nobody", self.refused({"select": "nobody", "index": 0}))

    def test_indices_of_control_arrays(self):
        self.assertIn("needs", self.refused({"click": "cmdDefaults"}))
        self.assertIn("no index 3", self.refused({"click": "cmdDefaults", "index": 3}))
        self.assertIn("takes no", self.refused({"click": "cmdOK", "index": 0}))
        self.refused({"click": "cmdDefaults", "index": -1})
        self.refused({"click": "cmdOK", "index": -1})
        self.play({"click": "cmdDefaults", "index": 2}, {"click": "mnuBuddiesOnLine", "index": 0})

    def test_control_of_the_wrong_kind(self):
        for step in [{"click": "lstMenu"}, {"click": "txtSays"}, {"arrow": "chkMute"},
                     {"type": "chkMute", "text": ""}, {"select": "txtSays", "index": 0},
                     {"dblclick": "cmbLanguage"}, {"hotkey": "cmdOK"}]:
            with self.subTest(step=step):
                self.refused(step)

    def test_error_message_stays_on_one_line_and_tells_a_terminal_nothing(self):
        message = self.refused({"click": "a\nb\u001b[2Jc"})
        self.assertNotIn("\x1b", message)


OF_EVERY_TYPE = {"text": "x", "number": 1, "fraction": 1.5, "flag": True, "list": [], "object": {},
                 "null": None}


class Types(ToolTest):
    """Each argument is given a value of each type that it does not take, running and not."""

    ARGUMENTS = [
        ({"start": ""}, "start", "text"),
        ({"close": True}, "close", "flag"),
        ({"raise": "OnLogoff"}, "raise", "text"),
        *[({"raise": "OnTextReceived"}, name, "text")
          for name in ("email", "name", "header", "text")],
        ({"raise": "OnUserStateChanged"}, "email", "text"),
        ({"raise": "OnUserStateChanged"}, "name", "text"),
        ({"raise": "OnUserStateChanged"}, "state", "number"),
        ({"raise": "OnLocalStateChangeResult"}, "state", "number"),
        ({"raise": "OnAppInviteReceived"}, "email", "text"),
        ({"raise": "OnAppInviteReceived"}, "name", "text"),
        ({"raise": "OnAppInviteReceived"}, "appName", "text"),
        ({"raise": "OnFileTransferInviteReceived"}, "email", "text"),
        ({"raise": "OnFileTransferInviteReceived"}, "name", "text"),
        ({"raise": "OnFileTransferInviteReceived"}, "fileName", "text"),
        ({"raise": "OnNewerClientAvailable"}, "address", "text"),
        ({"click": "cmdDefaults", "index": 0}, "click", "text"),
        ({"click": "cmdDefaults", "index": 0}, "index", "number"),
        ({"arrow": "optMale"}, "arrow", "text"),
        ({"type": "txtSays", "text": ""}, "type", "text"),
        ({"type": "txtSays", "text": ""}, "text", "text"),
        ({"type": "cmbVoiceMale", "text": ""}, "text", "text"),
        ({"type": "txtSpokenMessages", "text": "", "index": 0}, "index", "number"),
        ({"leave": "txtSays"}, "leave", "text"),
        ({"leave": "txtSpokenMessages", "index": 0}, "index", "number"),
        ({"select": "lstMenu", "index": 0}, "select", "text"),
        ({"select": "lstMenu", "index": 0}, "index", "number"),
        ({"dblclick": "lstMenu"}, "dblclick", "text"),
        ({"key": "lstMenu", "code": 65}, "key", "text"),
        ({"key": "lstMenu", "code": 65}, "code", "number"),
        ({"keydown": "cmbLanguage", "code": 65}, "keydown", "text"),
        ({"keydown": "cmbLanguage", "code": 65}, "code", "number"),
        ({"tray": 1}, "tray", "number"),
        ({"hotkey": "ocxSpeakMsg1", "index": 0}, "hotkey", "text"),
        ({"hotkey": "ocxSpeakMsg1", "index": 0}, "index", "number"),
        ({"window": "restore"}, "window", ""),
        ({"wait": 1}, "wait", "number"),
        ({"show": "cmdDefaults", "index": 0}, "show", "text"),
        ({"show": "cmdDefaults", "index": 0}, "index", "number"),
        ({"world": {}}, "world", "object"),
    ]
    # Missing ones of these are an error; the others have a meaning without.
    NEEDED = [{"type": "txtSays"}, {"type": "cmbVoiceMale"}, {"select": "lstMenu"},
              {"key": "lstMenu"}, {"keydown": "cmbLanguage"}, {"world": {"web": {}}}]

    WORLD = {"now": "text", "voices": "list", "myStatus": "number", "myName": "text",
             "development": "flag", "previousInstance": "flag", "answers": "list", "os": "list",
             "refuse": "list", "web": "", "sources": "list", "engines": "list",
             "applications": "list"}

    def test_every_argument_of_every_verb(self):
        for step, member, wanted in self.ARGUMENTS:
            for kind, value in OF_EVERY_TYPE.items():
                if kind == wanted:
                    continue
                with self.subTest(step=step, member=member, kind=kind):
                    self.refused({**step, member: value})

    def test_every_argument_while_the_program_runs(self):
        for step, member, wanted in self.ARGUMENTS:
            kind = "number" if wanted == "text" else "text"
            with self.subTest(step=step, member=member):
                self.refused(START, {**step, member: OF_EVERY_TYPE[kind]})

    def test_missing_arguments(self):
        for step in self.NEEDED:
            with self.subTest(step=step):
                self.refused(step)

    def test_every_member_of_the_world(self):
        for member, wanted in self.WORLD.items():
            for kind, value in OF_EVERY_TYPE.items():
                if kind == wanted:
                    continue
                with self.subTest(member=member, kind=kind):
                    self.refused({"world": {member: value}})

    def test_values_of_the_world(self):
        for world in [{"voices": [1]}, {"answers": ["Maybe"]}, {"answers": [True]},
                      {"sources": [1]}, {"sources": [{"name": "x"}]},
                      {"sources": [{"name": "x", "state": "well"}]},
                      {"engines": [{"name": "x", "state": "off", "more": 1}]},
                      {"engines": [{"name": 1, "state": "off"}]},
                      {"applications": ["x"]}, {"applications": [{"name": "x"}]},
                      {"applications": [{"name": "x", "on": 1}]}, {"os": ["one"]}, {"os": ["1", "2", "3"]}, {"os": [1, 2]},
                      {"refuse": ["everything"]}, {"refuse": [1]}, {"web": "slow"},
                      {"web": {"reply": 1}}, {"web": {"reply": "", "afterSteps": "1"}},
                      {"web": {"reply": "", "afterSteps": 0}}, {"web": {"afterSteps": 1}}]:
            with self.subTest(world=world):
                self.refused({"world": world})

    def test_moments(self):
        for now in ["", "2004-01-10", "2004-01-10 12:00:00", "2004-1-1T1:2:3", "04-01-10T12:00:00",
                    "2004-02-30T12:00:00", "2004-13-01T12:00:00", "2004-01-10T24:00:00",
                    "2004-01-10T12:60:00", "2004-01-10T12:00:60", "2004-01-10T12:00:00Z",
                    " 2004-01-10T12:00:00", "+004-01-10T12:00:00", "2004-01-10T12:00:00\0"]:
            with self.subTest(now=now):
                self.refused({"world": {"now": now}})
        self.play({"world": {"now": "0001-01-01T00:00:00"}}, START,
                  {"world": {"now": "9999-12-31T23:59:59"}}, {"wait": 120000})

    def test_values_of_the_window(self):
        for window in ["maximize", {"move": [1]}, {"move": [1, 2, 3]}, {"move": ["1", 2]},
                       {"move": 1}, {"move": [1.5, 2]}, {"move": [2147483648, 0]}]:
            with self.subTest(window=window):
                self.refused({"window": window})

    def test_close_is_true_and_waiting_never_negative(self):
        self.refused({"close": False})
        self.refused({"wait": -1})


class Folders(ToolTest):
    SCRIPT = [{"world": {"myName": "Jane"}}, START, {"show": "txtDocumentsAndSettings"},
              {"show": "cmbLanguage"}, {"show": "store"}, {"show": "window"}, {"wait": 60000},
              {"raise": "OnTextReceived", "email": "a@b", "name": "Ann", "text": "hi"},
              {"close": True}]

    def test_two_runs_give_the_same_bytes(self):
        runs = {self.run_tool(script=lines_of(self.SCRIPT)).stdout for _ in range(3)}
        self.assertEqual(len(runs), 1)
        self.assertNotIn(str(self.temporary).encode(), runs.pop())

    def test_folders_of_the_user_stand_in_the_transcript_as_they_are(self):
        documents = self.folder / "documents"
        transcript = self.play(START, {"show": "txtDocumentsAndSettings"},
                               options=("--documents", documents))
        self.assertEqual(transcript[-1]["text"], str(documents / "Brenwick"))

    def test_files_are_listed_by_name(self):
        items = self.play(START, {"show": "cmbLanguage"})[-1]["items"]
        self.assertGreater(len(items), 1)
        self.assertEqual(items, sorted(items))

    def test_temporary_folder_is_removed(self):
        for steps in (self.SCRIPT, self.SCRIPT[:2], self.SCRIPT[:2] + ["nonsense"]):
            self.run_tool(script=lines_of(steps))
            self.nothing_left()

    def interrupted_by(self, number):
        tool = subprocess.Popen([TOOL, "--realtime"], stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                env=self.environment)
        tool.stdin.write(lines_of([START, {"wait": 3600000}]))
        tool.stdin.flush()
        while b'{"step":2}' not in tool.stdout.readline():
            pass
        self.assertNotEqual(list(self.temporary.iterdir()), [])
        tool.send_signal(number)
        tool.communicate(timeout=TIMEOUT)
        self.assertEqual(tool.returncode, -number)
        self.nothing_left()

    def test_interruption_leaves_nothing_behind(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(signal=number):
                self.interrupted_by(number)

    def test_reader_that_goes_away(self):
        tool = subprocess.Popen([TOOL], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, env=self.environment)
        tool.stdout.close()
        tool.stdout = None
        _, errors = tool.communicate(lines_of([{"show": "window"}] * 10000), timeout=TIMEOUT)
        self.assertEqual((tool.returncode, errors), (-signal.SIGPIPE, b""))
        self.nothing_left()

    def test_documents_are_kept(self):
        documents = self.folder / "documents"
        for _ in range(2):
            self.play(START, options=("--documents", documents))
        logs = list((documents / "Brenwick/DebugLogs").glob("*.log"))
        self.assertEqual(len(logs), 1)
        self.assertEqual(logs[0].read_bytes().count(b"Startup - Completed"), 2)

    def test_store_is_kept(self):
        store = self.folder / "store.ini"
        store.write_text('[Software\\Brenwick\\General]\n"Introduce" = "1"\n'
                         '"Left" = dword:00000010\n')
        options = ("--store", store)
        for _ in range(2):
            keys = self.play({"show": "store"}, options=options)[-1]["keys"]
            self.assertIn("Software\\Brenwick\\General", keys)

    def test_same_files_at_the_next_start(self):
        self.play(START, {"close": True}, START, {"show": "txtDocumentsAndSettings"})


class Voice(ToolTest):
    def test_real_voice_into_a_wav_file(self):
        wav = self.folder / "a.wav"
        transcript = self.play({"world": {"voices": ["Nobody"]}}, START,
                               options=("--voice", "espeak-ng", "--wav", wav))
        spoken = [effect for effect in transcript if "speak" in effect]
        self.assertIn("eSpeak NG", spoken[0]["voice"])
        self.assertEqual(wav.read_bytes()[:4], b"RIFF")
        self.assertGreater(wav.stat().st_size, 20000)

    def test_wav_needs_no_word_about_the_voice(self):
        wav = self.folder / "a.wav"
        self.play(START, options=("--wav", wav))
        self.assertGreater(wav.stat().st_size, 20000)

    def test_sound_device_is_told_by_the_exit_status(self):
        done = self.run_tool("--sound-device")
        self.assertIn(done.returncode, (0, 1))
        self.assertEqual(done.stdout, b"")

    def test_realtime_takes_its_time_and_changes_no_byte(self):
        script = lines_of([START, {"wait": 300}])
        plain = self.run_tool(script=script).stdout
        began = os.times().elapsed
        self.assertEqual(self.run_tool("--realtime", script=script).stdout, plain)
        self.assertGreater(os.times().elapsed - began, 0.25)


class Readable(ToolTest):
    def read(self, *steps, **environment):
        self.environment.update(environment)
        done = self.run_tool("--transcript", "readable", script=lines_of(steps))
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return done.stdout.decode().splitlines()

    def test_who_says_what_and_in_which_voice(self):
        lines = self.read(START, {"wait": 2000}, {
            "raise": "OnTextReceived", "email": "t@x", "name": "Tom Miller", "text": "hello"})
        self.assertRegex(lines[-2], r"^12:00:02    Tom Miller    writes: hello$")
        self.assertRegex(lines[-1], r'^12:00:02  ♪ Brenwick      "Tom says hello" +M(ary|ike)$')

    def test_states_are_words(self):
        for state, word in ((1, "offline"), (2, "online"), (10, "busy"), (34, "away"),
                            (18, "idle"), (50, "on the phone"), (66, "out to lunch"),
                            (77, "in state 77")):
            line = self.read({"raise": "OnUserStateChanged", "name": "Ann", "state": state})[0]
            self.assertTrue(line.endswith("is " + word), line)

    def test_controls_are_called_by_their_captions(self):
        lines = self.read({"click": "chkMute"}, {"click": "mnuMute"}, {"click": "cmdEmoticons"},
                          {"type": "txtSays", "text": "sagt"})
        self.assertEqual([line.split("You           ")[1] for line in lines],
                         ['tick "Mute"', 'choose "Mute"', 'press "Emoticons"',
                          'type "sagt" into "Says"'])

    def test_nothing_for_a_terminal_in_a_file(self):
        lines = self.read(START, {"raise": "OnTextReceived", "name": "\u001b[31mX\u202e",
                                  "text": "a\u001b]0;b\u0007c\r\nd\u009b2J"})
        text = "\n".join(lines)
        self.assertFalse(re.search("[\x00-\x09\x0b-\x1f\x7f-\x9f\u202e]", text), text)

    def test_wrong_types_are_told_as_in_json(self):
        for step in [{"raise": "OnUserStateChanged", "state": "x"}, {"click": 7},
                     {"select": "lstMenu", "index": "x"}, {"hotkey": "cmdOK"}, {"window": []},
                     {"tray": "x"}, {"raise": 5}, {"type": "x", "text": None}]:
            with self.subTest(step=step):
                done = self.run_tool("--transcript", "readable", script=lines_of([step]))
                self.assertEqual(done.returncode, 2)
                self.assertTrue(done.stderr.startswith(b"-:1: "), done.stderr)

    def on_a_terminal(self, **environment):
        reader, writer = os.openpty()
        self.environment.pop("NO_COLOR", None)
        self.environment.update({"TERM": "xterm", **environment})
        subprocess.run([TOOL, "--transcript", "readable"], input=lines_of([START]), stdout=writer,
                       env=self.environment, timeout=TIMEOUT, check=True)
        text = os.read(reader, 65536)
        os.close(reader)
        os.close(writer)
        return text

    def test_colours_on_a_terminal_unless_they_are_not_wanted(self):
        self.assertIn(b"\x1b[", self.on_a_terminal())
        self.assertNotIn(b"\x1b[", self.on_a_terminal(NO_COLOR="1"))


if __name__ == "__main__":
    TOOL = sys.argv.pop(1)
    unittest.main()
