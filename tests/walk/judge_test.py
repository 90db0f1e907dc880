#!/usr/bin/python3
"""Every rule finds the breach that was planted for it, and lets the same walk pass without it."""
import json
import sys
import unittest

sys.dont_write_bytecode = True  # the source tree stays as it is
import judge  # noqa: E402
from rules_contacts import look_at_file  # noqa: E402
from rules_shown import cleaned, leading_number, what_leaving_does  # noqa: E402

START = ({"start": ""}, [{"caption": "Brenwick"}, {"tray": "add", "tip": "Brenwick"}])
CLOSE = ({"close": True}, [{"ended": True}])
MUTE = ({"click": "chkMute"}, [{"speak": "", "flags": 2, "voice": "Mary", "rate": 0, "volume": 0}])
MESSAGE = {"raise": "OnTextReceived", "email": "a", "name": "b", "text": "c"}
STATE = {"raise": "OnUserStateChanged", "email": "a", "name": "b", "state": 2}
AGAIN = {"hotkey": "ocxHotKeyActivateBW"}
HASH = "Software\\Brenwick"


def say(text="c", **other):
    return {"speak": text, "flags": 9, "voice": "Mary", "rate": 0, "volume": 100, **other}


def box(text="?", **other):
    return {"box": text, "title": "Brenwick", "icon": "information", "buttons": "OK",
            "answer": "OK", **other}


def report(procedure, number=5):
    text = f"Error ({number}) : Bad\r\n\r\nModule: frmMain\r\nProcedure: {procedure}\r\n\r\n"
    return box(text, title="Unexpected Error! Version: 3.1.0200", icon="critical")


def popup(*people, names=("mnuMute", "mnuSeparator", "mnuBuddies", "mPopRestore", "mPopExit")):
    items = [{"name": name, "checked": False, "enabled": True} for name in names]
    items[2]["items"] = [{"index": at, "caption": f"N  ({address})", "enabled": enabled,
                          "checked": checked}
                         for at, (address, enabled, checked) in enumerate(people)]
    return [{"window": "foreground"}, {"popup": "mPopupSys", "items": items}]


def menu(*people, **other):
    return ({"tray": 517}, popup(*(people or [("a", True, False)]), **other))


def show(name, element=None, **properties):
    step = {"show": name} if element is None else {"show": name, "index": element}
    return (step, [{"show": name, "enabled": True, **properties}])


def store(**values):
    keys = {f"{HASH}\\{key}": value for key, value in values.items()}
    return show("store", keys={f"{HASH}\\Text": {"Online": "x"}, **keys})


def pages(*visible, selected=3):
    frames = [show("fraPage", index, visible=index in visible) for index in range(16)]
    lines = [str(number) for number in range(13)]
    return [({"select": "lstMenu", "index": selected}, []),
            show("lstMenu", index=selected, items=lines), *frames]


def complaint(*walk):
    """The rule that finds something in a walk of steps and what they brought about, or None."""
    lines = []
    for number, (_, effects) in enumerate(walk, 1):
        lines += [json.dumps(effect) for effect in [{"step": number}, *effects]]
    found = judge.judge([step for step, _ in walk], lines).complaint
    return found and found.rule


def sentence(event, said, introduce=1, first=1, own=0):
    return [START, show("chkIntroduceUser", value=introduce),
            show("chkFirstName", value=first, enabled=introduce == 1),
            show("chkUseMyNamesInsteadOfBuddyNames", value=own), show("txtSays", text="says"),
            show("txtOnline", text=" on. "), (event, [say(said)])]


SKY = {**MESSAGE, "name": "BigBlue Sky", "text": "<a lol>"}
DELETED = ({"click": "cmdBuddyNamesDelete"}, [{"focus": "lstBuddyNames"}])
SORTED = ({"click": "optBuddyNamesSortName"}, [])
NO_PHRASE = {f"{HASH}\\Text": {"Online": ""}}

# By rule: walks without a fault, and the same with one.
GOOD = {
    "Vocabulary": [[START], [show("window", width=0, height=0)]],
    "NothingWithoutCause": [[(MESSAGE, [])], [START, ({"raise": "OnLogoff"}, [])],
                            [START, ({"start": ""}, [])]],
    "Ending": [[START, CLOSE], [START, ({"click": "mPopExit"}, [{"ended": True}])],
               [START, (MESSAGE, [report("oMessenger_OnTextReceived"), {"ended": True}])]],
    "SecondInstance": [[({"world": {"previousInstance": True}}, []),
                        ({"start": ""}, [{"ended": True}])]],
    "Reports": [[START, ({"leave": "txtLogDebugDaysToKeep"},
                         [report("txtLogDebugDaysToKeep_LostFocus", 13), {"ended": True}])]],
    "Engine": [[START, (MESSAGE, [say(rate=-10, volume=0)])],
               [({"world": {"voices": []}}, []), START, (MESSAGE, [say(voice="")])]],
    "SafeText": [[START, (MESSAGE, [say('(b) a-b "" é')])]],
    "Occasion": [[START, MUTE, (MESSAGE, [])],
                 [START, MUTE, ({**MESSAGE, "text": "/talk c"}, [say(" c".strip())])]],
    "Heard": [[START, ({"click": "cmdSpeedTestMale"}, [say()])]],
    "Purging": [[START, ({"hotkey": "ocxHotKeySilent"}, [say("", flags=2)])]],
    "Flags": [[START, (MESSAGE, [say(flags=11)]),
               ({"raise": "OnLocalStateChangeResult", "state": 2}, [say(flags=9)])]],
    "History": [[START, (MESSAGE, [say("x")]), (MESSAGE, [say("y")]),
                 ({"hotkey": "ocxSpeakMsg1", "index": 1}, [say("x")]),
                 show("txtSpokenMessages", 0, text="y")]],
    "SpokenWords": [[START, (MESSAGE, [say("x")]), (MESSAGE, [say("y")]),
                     show("lstMessages", items=["**", "Muted: x", "z", "y"], index=-1)]],
    "Boxes": [[({"world": {"answers": ["Yes"]}}, []), START,
               ({"click": "cmdDefaults", "index": 0},
                [box(buttons="YesNo", answer="Yes"), box(buttons="YesNo", answer="No")])]],
    "StatusWindow": [[START, ({"wait": 0}, [{"status": "x"}, {"status": None}])]],
    "Pointer": [[START, (MESSAGE, [{"pointer": "hourglass"}, {"pointer": "default"}])],
                [START, ({"close": True}, [{"pointer": "hourglass"}, {"ended": True}])]],
    "MainWindow": [[START, ({"window": "minimize"},
                            [{"window": "minimized"}, {"window": "hidden"}]),
                    ({"click": "mPopRestore"}, [{"window": "shown"}]),
                    ({"close": True}, [{"window": "hidden"}, {"ended": True}])]],
    "Tray": [[START, ({"wait": 0}, [{"caption": "Brenwick" + "x" * 80},
                                    {"tray": "modify", "tip": "Brenwick" + "x" * 56}])]],
    "Focus": [[START, ({"leave": "txtTalkSpeedMale"},
                       [{"beep": True}, {"focus": "txtTalkSpeedMale"}])]],
    "Keys": [[START, ({"type": "cmbVoiceMale", "text": "x"}, [{"sendkeys": "{BACKSPACE}"}])]],
    "WindowShown": [[START, show("window", width=5829, height=4200)]],
    "TrayMenu": [[START, menu()]],
    "Conversations": [[START, menu(("a@b", True, True), ("c", True, False), ("d", False, False)),
                       ({"click": "mnuBuddiesOnLine", "index": 0}, [{"conversation": "a@b"}]),
                       ({"click": "mnuBuddiesOnLine", "index": 1}, [{"beep": True}]),
                       ({"click": "mnuBuddiesOnLine", "index": 2}, [])]],
    "SayAgain": [[START, (AGAIN, []), menu(("a", True, True), ("b", True, True)),
                  (AGAIN, [say("x"), say("y")])],
                 [START, menu(("a", True, True), ("b", True, True)), (AGAIN, [])]],
    "Ignored": [[START, (STATE, []), ({"click": "cmdSelectAll"}, []), (MESSAGE, []),
                 ({"click": "cmdClearAll"}, []), (MESSAGE, [say()])],
                [START, DELETED, (STATE, []), ({"click": "cmdSelectAll"}, []), (MESSAGE, [say()])]],
    "Lasting": [[START, SORTED, show("lstBuddyNames", items=["A\r\nB\t\t\t(a)\t"], index=-1), CLOSE,
                 START, SORTED, show("lstBuddyNames", items=["A  B\t\t\t(a)\t"], index=-1)]],
    "Pages": [[show("lstGender", items=["a\tF\t\t(x)\t", "B\tF\t\t(y)\t"], index=0)]],
    "Selection": [[show("lstMenu", items=["a"], index=0)],
                  [show("txtOnline", text="abc", selStart=1, selLength=2)]],
    "Combos": [[show("cmbLanguage", items=["Deutsch", "English"], index=-1, text="Eng")]],
    "PageList": [[START, show("lstMenu", items=["x"] * 13, index=0)]],
    "GroupChats": [[({"click": "chkGroupChats"}, []), START,
                    ({"click": "chkGroupChats"}, [{"groupChats": True}]), CLOSE, START,
                    ({"click": "chkGroupChats"}, [{"groupChats": False}])]],
    "Store": [[store(Grids={"GenderSort": "E"}, Voices={"Default Voice": "M", "Male Voice": "x"},
                     General={"Introduce": "1", "Language": "x"}, User={"DebugDaysToKeep": "7"})],
              [show("store", keys={HASH: {"Left": 0, "Top": 5}})]],
    "Restart": [[store(), START, store(), CLOSE, store()],
                [store(), START, ({"click": "chkIntroduce"}, []), CLOSE,
                 store(General={"Introduce": "0"})],
                [START, ({"click": "chkIntroduce"}, []), store(), CLOSE,
                 store(General={"Introduce": "0"})],
                [START, CLOSE, store(General={"Language": "Eng"}), START, CLOSE,
                 store(General={"Language": "Deutsch"})]],
    "Kept": [[START, show("chkMute", value=1), show("txtSays", text=""), CLOSE, START,
              show("chkMute", value=1), show("txtSays", text=" ")],
             [START, show("txtSays", text="%HOME%"), CLOSE, START, show("txtSays", text="x")],
             [START, show("chkMute", value=1), ({"click": "chkMute"}, []), CLOSE, START,
              show("chkMute", value=0)]],
    "Dependents": [[START, show("chkIntroduce", value=1),
                    show("txtIntroductionText", text="")],
                   [START, show("txtLogDebugDaysToKeep", text="7", enabled=False, locked=True)]],
    "Groups": [[START, show("optMale", value=True), show("optFemale", value=False)]],
    "Frames": [[START, *pages(3)]],
    "Leaving": [[START, show("txtTalkSpeedMale", text="2.5"),
                 ({"leave": "txtTalkSpeedMale"}, [])]],
    "Tests": [[START, show("txtIntroductionText", text=" <a>!! "),
               show("txtTalkSpeedMale", text="3.5"),
               ({"click": "cmdSpeedTestMale"}, [say("(a)!", rate=4)])],
              [START, show("txtTalkVolumeMale", text="101"),
               ({"click": "cmdSpeedTestMale"}, [say(volume=50)])]],
    "Sentences": [sentence(SKY, "Big Blue says (a laughing out loud)"),
                  sentence(SKY, "Big Blue Sky says (a laughing out loud)", first=0),
                  sentence(SKY, "(a laughing out loud)", introduce=0),
                  sentence({**SKY, "text": "/talk hi"}, "Big Blue says  hi"),
                  sentence({**STATE, "name": "BIG SKY"}, "Big  on."),
                  sentence({**STATE, "name": "BIG SKY"}, "Big Sky  on.", first=0),
                  sentence({**STATE, "name": "ΣΊΣΥΦΟΣ"}, "Σίσυφοσ  on."),
                  sentence({**STATE, "name": "日本 Ltd"}, "x"),
                  sentence({**SKY, "name": "Hotmail"}, "x"), sentence(SKY, "x", own=1)],
    "Request": [[({"world": {"web": {"reply": "x"}}}, []), START,
                 ({"click": "cmdUpdate"}, [
                     {"connect": {"host": "h", "port": 80}},
                     {"send": "GET /download/version.txt HTTP/1.1\r\nHost: h\r\n"
                              "Connection: close\r\nAccept: */*\r\n\r\n"}])]],
    "Opening": [[START, ({"click": "cmdWebSite"}, [{"open": "http://h"}])],
                [({"world": {"answers": ["Yes"]}}, []), START,
                 ({"raise": "OnNewerClientAvailable", "address": "x"},
                  [box(buttons="YesNo", answer="Yes"), {"open": "x"}])]],
    "Caption": [[START, show("cmdUpdate", caption="Check now")]],
}

BAD = {
    "Vocabulary": [[START, ({"wait": 0}, [{"smell": 1}])], [START, (MESSAGE, [{**say(), "x": 1}])],
                   [({"show": "window"}, [])]],
    "NothingWithoutCause": [[(MESSAGE, [say()])],
                            [START, ({"raise": "OnLogoff"}, [{"beep": True}])], [START, START],
                            [START, CLOSE, (MESSAGE, [say()])],
                            [START, ({"world": {}}, [{"beep": True}])]],
    "Ending": [[START, ({"wait": 0}, [{"ended": True}])], [START, ({"close": True}, [])],
               [START, ({"close": True}, [{"ended": True}, {"status": None}])],
               [START, (MESSAGE, [report("oMessenger_OnTextReceived")])],
               [START, (MESSAGE, [report("oMessenger_OnTextReceived")] * 2 + [{"ended": True}])]],
    "SecondInstance": [[({"world": {"previousInstance": True}}, []),
                        ({"start": ""}, [{"status": None}, {"ended": True}])]],
    "Reports": [[START, ({"wait": 0}, [report("FormSave"), {"ended": True}])],
                [START, (MESSAGE, [report("Speak"), {"ended": True}])],
                [START, ({"click": "cmdUpdate"}, [report("UpdateCheck", 6), {"ended": True}])],
                [START, (MESSAGE, [box("Error in ErrorHandler", icon="critical"),
                                   {"ended": True}])]],
    "Engine": [[START, (MESSAGE, [say(**wrong)])]
               for wrong in ({"rate": 11}, {"rate": -11}, {"volume": 101}, {"volume": -1},
                             {"flags": 8}, {"voice": "Bob"}, {"voice": ""})] +
              [[START, ({"click": "chkMute"}, [say("x", flags=2)])],
               [({"world": {"refuse": ["speak"]}}, []), START, (MESSAGE, [say()])]],
    "SafeText": [[START, (MESSAGE, [say(text)])] for text in ("a<b", "a>b", " a", "a ", "a!!")],
    "Occasion": [[START, MUTE, (MESSAGE, [say()])], [START, ({"wait": 0}, [say()])],
                 [START, (MESSAGE, [say(), say()])], [START, ({**MESSAGE, "text": ""}, [say()])],
                 [START, ({**MESSAGE, "text": "\rx"}, [say()])],
                 [({"world": {"myStatus": 1}}, []), START, (MESSAGE, [say()])]],
    "Heard": [[START, ({"click": "cmdSpeedTestMale"}, [])]],
    "Purging": [[START, (MESSAGE, [say("", flags=2)])]],
    "Flags": [[START, (MESSAGE, [say(flags=11)]), (MESSAGE, [say(flags=9)])],
              [START, ({"raise": "OnLocalStateChangeResult", "state": 2}, [say(flags=11)])]],
    "History": [[START, (MESSAGE, [say("x")]), (MESSAGE, [say("y")]),
                 ({"hotkey": "ocxSpeakMsg1", "index": 1}, [say("y")])],
                [START, (MESSAGE, [say("x")]),
                 show("txtSpokenMessages", 1, text="x")],
                [START, (MESSAGE, [say("x")]), CLOSE, START,
                 ({"hotkey": "ocxSpeakMsg1", "index": 0}, [say("x")])]],
    "SpokenWords": [[START, (MESSAGE, [say("x")]), (MESSAGE, [say("y")]),
                     show("lstMessages", items=["y", "x"], index=-1)]],
    "Boxes": [[START, ({"wait": 0}, [box(buttons="YesNo", answer="Yes")])],
              [START, ({"wait": 0}, [box(icon="smile")])],
              [START, ({"wait": 0}, [box(title="?")])]],
    "StatusWindow": [[START, ({"wait": 0}, [{"status": "x"}])]],
    "Pointer": [[START, (MESSAGE, [{"pointer": "hourglass"}])]],
    "MainWindow": [[START, ({"window": "minimize"}, [{"window": "minimized"}])],
                   [START, ({"tray": 514}, [{"window": "shown"}]), CLOSE],
                   [START, ({"tray": 514}, [])]],
    "Tray": [[START, ({"wait": 0}, [{"caption": "Brenwick x"}, {"tray": "modify", "tip": "y"}])],
             [({"start": ""}, [{"caption": "Brenwick"}])],
             [START, ({"wait": 0}, [{"tray": "delete", "tip": "Brenwick"}])],
             [START, ({"wait": 0}, [{"tray": "add", "tip": "Brenwick"}])]],
    "Focus": [[START, ({"leave": "txtTalkSpeedMale"}, [{"beep": True}])],
              [START, ({"wait": 0}, [{"focus": "cmdOK"}])],
              [START, ({"wait": 0}, [{"beep": True}])]],
    "Keys": [[START, ({"type": "cmbVoiceMale", "text": "x"}, [{"sendkeys": "x"}])],
             [START, ({"type": "txtOnline", "text": "x"}, [{"sendkeys": "{BACKSPACE}"}])]],
    "WindowShown": [[START, show("window", width=1, height=1)],
                    [START, ({"wait": 0}, [{"caption": "x"}])]],
    "TrayMenu": [[START, ({"tray": 517}, [])], [START, ({"tray": 517}, menu()[1][1:])],
                 [START, menu(names=("mnuBuddies", "mnuMute", "mnuSeparator"))],
                 [START, ({"tray": 514}, [{"window": "shown"}, *menu()[1]])],
                 [START, MUTE, menu()]],
    "Conversations": [[START, menu(("a@b", True, checked)),
                       ({"click": "mnuBuddiesOnLine", "index": 0}, effects)]
                      for checked, effects in ((True, [{"conversation": "c@d"}]), (True, []),
                                               (False, [{"conversation": "a@b"}]), (False, []))] +
                     [[START, menu(("a", False, True))],
                      [START, (MESSAGE, [{"conversation": "a"}])],
                      [START, menu(("a", True, True), ("b", True, True)), menu(("a", True, True))]],
    "SayAgain": [[START, (AGAIN, []), menu(("a", True, True), ("b", True, True)),
                  (AGAIN, [say("x")])],
                 [START, (AGAIN, []), menu(), (AGAIN, [])]],
    "Ignored": [[START, (STATE, []), ({"click": "cmdSelectAll"}, []), (MESSAGE, [say()])],
                [START, (STATE, []), ({"click": "cmdSelectAll"}, []), (STATE, [say()])]],
    "Lasting": [[START, SORTED, show("lstBuddyNames", items=["A\t\t\t(a)\t"], index=-1), CLOSE,
                 START, SORTED, show("lstBuddyNames", items=[], index=-1)]],
    "Pages": [[show("lstGender", items=[line], index=0)] for line in ("a", "a\tb\tc\t(d)")] +
             [[show("lstGender", items=["B\t\t\t(x)\t", "a\t\t\t(y)\t"], index=0)]],
    "Selection": [[show("lstMenu", items=["a"], index=1)], [show("lstMenu", items=["a"], index=-2)],
                  [show("txtOnline", text="abc", selStart=2, selLength=2)]],
    "Combos": [[show("cmbLanguage", items=["Deutsch"], index=0, text="Deut")],
               [show("cmbLanguage", items=["Deutsch"], index=-1, text="E")]],
    "PageList": [[START, show("lstMenu", items=["x"] * 12, index=0)]],
    "GroupChats": [[START, ({"click": "chkGroupChats"}, [])],
                   [START, ({"click": "chkGroupChats"}, [{"groupChats": False}])],
                   [START, ({"click": "chkMute"}, [{"groupChats": True}])]],
    "Store": [[show("store", keys=keys)]
              for keys in ({HASH: {"Left": -1}}, {HASH: {"Top": "5"}}, NO_PHRASE,
                           {HASH + "\\Grids": {"GenderSort": "x"}}, {HASH + "\\New": {"x": "y"}},
                           {HASH + "\\Voices": {"Default Voice": "f"}},
                           {HASH + "\\User": {"Mute": "2"}})],
    "Restart": [[store(), START, store(General={"Introduce": "0"})],
                [store(), START, CLOSE, store(General={"Introduce": "0"})]],
    "Kept": [[START, show("chkMute", value=1), CLOSE, START, show("chkMute", value=0)],
             [START, show("optMale", value=True), CLOSE, START, show("optMale", value=False)],
             [START, show("txtSays", text=""), CLOSE, START, show("txtSays", text="")]],
    "Dependents": [[START, show("chkIntroduce", value=0),
                    show("txtIntroductionText", text="")],
                   [START, show("txtLogDebugDaysToKeep", text="7", enabled=True, locked=True)]],
    "Groups": [[START, show("optMale", value=both), show("optFemale", value=both)]
               for both in (True, False)],
    "Frames": [[START, *pages(*visible)] for visible in ([], [4], [3, 4])],
    "Leaving": [[START, show("txtTalkSpeedMale", text=text),
                 ({"leave": "txtTalkSpeedMale"}, effects)]
                for text, effects in (("10.6", []),
                                      ("10", [{"beep": True}, {"focus": "txtTalkSpeedMale"}]))],
    "Tests": [[START, show(name, text=text),
               ({"click": "cmdSpeedTestMale"}, [say("x")])]
              for name, text in (("txtIntroductionText", "y"), ("txtTalkSpeedMale", "3"),
                                 ("txtTalkVolumeMale", "99"))],
    "Sentences": [sentence(SKY, "BigBlue says (a laughing out loud)"), sentence(SKY, "Big Blue"),
                  sentence(SKY, "Big Blue says (a lol)"), sentence(STATE, "b says")],
    "Request": [[START, ({"click": "cmdUpdate"}, [{"connect": {"host": "h", "port": 81}}])],
                [START, ({"wait": 0}, [{"connect": {"host": "h", "port": 80}}])],
                [START, ({"click": "cmdUpdate"}, [{"connect": {"host": "h", "port": 80}}] * 2)],
                [START, ({"click": "cmdUpdate"}, [{"connect": {"host": "h", "port": 80}},
                                                  {"send": "GET"}])]],
    "Opening": [[START, ({"click": "cmdWebSite"}, [])], [START, (MESSAGE, [{"open": "x"}])],
                [START, ({"raise": "OnNewerClientAvailable", "address": "x"}, [{"open": "x"}])]],
    "Caption": [[START, show("cmdUpdate", caption="12")]],
}


class Rules(unittest.TestCase):
    def test_every_rule_has_its_walks(self):
        names = {rule.__name__ for rule in judge.RULES}
        self.assertEqual(set(GOOD), names)
        self.assertEqual(set(BAD), names)

    def test_what_is_right_passes(self):
        for name, walks in GOOD.items():
            for number, walk in enumerate(walks):
                with self.subTest(rule=name, walk=number):
                    self.assertIsNone(complaint(*walk))

    def test_what_is_wrong_is_found(self):
        for name, walks in BAD.items():
            for number, walk in enumerate(walks):
                with self.subTest(rule=name, walk=number):
                    self.assertEqual(complaint(*walk), name)


class Transcript(unittest.TestCase):
    def judged(self, *lines):
        return judge.judge([{"start": ""}, {"wait": 0}], list(lines))

    def test_whole(self):
        verdict = self.judged('{"step":1}', '{"caption":"Brenwick"}',
                              '{"tray":"add","tip":"Brenwick"}', '{"step":2}')
        self.assertIsNone(verdict.complaint)
        self.assertEqual((verdict.steps, verdict.alive), (2, 1))

    def test_what_is_no_transcript(self):
        first = ['{"step":1}', *map(json.dumps, START[1])]
        for lines in (["x"], ['{"step":1}', "[]"], ['{"step":2}'], ['{"beep":true}'], [], first,
                      [*first, '{"step":1}'], ['{"step":1,"x":2}']):
            with self.subTest(lines=lines):
                self.assertEqual(self.judged(*lines).complaint.rule, "transcript")

    def test_reports_are_counted(self):
        lines = [json.dumps(effect) for effect in (
            {"step": 1}, *START[1], {"step": 2}, report("tmrOnceADay_Timer", 6), {"ended": True})]
        self.assertEqual(self.judged(*lines).reports, {"tmrOnceADay_Timer 6": 1})


class Numbers(unittest.TestCase):
    def test_leading_number(self):
        for text, number in (("2.5", 2), ("3.5", 4), ("-0.5", 0), ("12abc", 12), ("x", 0), ("", 0),
                             (" 4", 4), (".6", 1), ("1e3", 1), ("+3", 3), ("-", 0), ("٣", 0)):
            self.assertEqual(leading_number(text), number, text)

    def test_leaving_a_box_of_days(self):
        for text, what in (("1", "nothing"), ("365", "nothing"), ("0", "beep"), ("366", "beep"),
                           ("365.5", "beep"), ("", "beep"), (" ", "report"), ("7x", "report"),
                           (" 7 ", "nothing")):
            self.assertEqual(what_leaving_does("txtLogDebugDaysToKeep", text), what, text)

    def test_cleaned_text(self):
        for text, result in ((" a ", "a"), ("<<a>>", "(a)"), ("a  b", "a  b"), ("--..aa", "-.aa")):
            self.assertEqual(cleaned(text), result)


class ContactFile(unittest.TestCase):
    RECORD = ["a@b", "Ann", "", "?", "", "10", ""]

    def wrong(self, *fields, end="\r\n"):
        return look_at_file("".join(field + end for field in fields).encode())

    def test_whole_records(self):
        self.assertIsNone(self.wrong())
        self.assertIsNone(self.wrong(*self.RECORD, "c", "", "own", "F", "True", "0", "True"))
        self.assertIsNone(look_at_file("\ufeff".encode() + b"a\r\n\r\n\r\nM\r\n\r\n1\r\n\r\n"))

    def test_what_is_wrong(self):
        self.assertIsNotNone(self.wrong(*self.RECORD[:-1]))
        self.assertIsNotNone(self.wrong(*self.RECORD, end="\n"))
        self.assertIsNotNone(look_at_file(b"\xff"))
        self.assertIsNotNone(look_at_file(b"a\r\nb"))
        for place, value in ((0, ""), (1, "a\nb"), (2, "own"), (3, "m"), (4, "true"), (5, "15"),
                             (5, ""), (6, "1")):
            fields = [value if at == place else field for at, field in enumerate(self.RECORD)]
            self.assertIsNotNone(self.wrong(*fields), fields)


if __name__ == "__main__":
    unittest.main()
