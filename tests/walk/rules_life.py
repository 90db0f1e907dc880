"""What a transcript is made of, and when the program may end."""
from world import REPORT_FAILED, REPORT_TITLE

# The members of each effect, by its first.
EFFECTS = {
    "speak": {"speak", "flags", "voice", "rate", "volume"},
    "box": {"box", "title", "icon", "buttons", "answer"},
    "status": {"status"}, "beep": {"beep"}, "pointer": {"pointer"}, "caption": {"caption"},
    "window": {"window"}, "tray": {"tray", "tip"}, "popup": {"popup", "items"},
    "conversation": {"conversation"}, "open": {"open"}, "sendkeys": {"sendkeys"},
    "focus": {"focus", "index"}, "connect": {"connect"}, "send": {"send"}, "ended": {"ended"},
    "groupChats": {"groupChats"},
}

# The reports that a user can bring about: procedure and number, and the verb that does.
FORESEEN = {
    # Days to keep that are no number, or too large a one.
    "txtLogConversationsDaysToKeep_LostFocus 13": "leave",
    "txtLogDebugDaysToKeep_LostFocus 13": "leave",
    "tmrOnceADay_Timer 6": "wait",
    # A mail notice without a count, with too large a one, or without a line end.
    "oMessenger_OnTextReceived 13": "raise",
    "oMessenger_OnTextReceived 6": "raise",
    "oMessenger_OnTextReceived 5": "raise",
    # A language without a readable source, such as the one with no name.
    "GenerateLaguageKey 53": "click",
    # A language of which only the beginning was typed.
    "ReadLanguage 65534": "click",
}
# An answer without an empty line, or with a number beyond all bounds.
OF_THE_SERVER = {"WebGetVersionInfo 5", "UpdateCheck 6"}
# A sentence that the engine refuses.
OF_THE_ENGINE = {"Speak 5"}


class Rule:
    def __init__(self, world):
        self.world = world


class Vocabulary(Rule):
    """Every effect is one that the transcript knows."""

    def look(self, step):
        for effect in step.effects:
            kind = next(iter(effect))
            if kind != "show" and not set(effect) <= EFFECTS.get(kind, set()):
                yield f"unknown effect {effect}"
        shown = len(step.all("show"))
        if shown != (step.verb == "show") or shown and len(step.effects) != 1:
            yield f"{shown} controls shown"


class NothingWithoutCause(Rule):
    """What does not reach the program has no effect, nor has what it only takes note of."""

    def look(self, step):
        if not step.effects or step.verb == "show":
            return
        if step.verb == "world":
            yield "the world changed, and the program did something"
        elif not step.alive and step.verb != "start":
            yield "the program is not there and did something"
        elif step.alive and step.verb == "start":
            yield "a second start of a running program did something"
        elif step.verb == "raise" and len(step.step) == 1 and not may_be_bare(step.target):
            yield f"{step.target} is only traced, but something happened"


def may_be_bare(event):
    """Whether an event has members, all of which a script may leave out."""
    return event in {"OnTextReceived", "OnUserStateChanged", "OnUserStateFound",
                     "OnLocalStateChangeResult", "OnAppInviteReceived",
                     "OnFileTransferInviteReceived", "OnNewerClientAvailable"}


class Ending(Rule):
    """The program ends when it is told to, and after exactly one report; at no other time."""

    def look(self, step):
        ends = len(step.all("ended"))
        if ends > 1 or ends and "ended" not in step.effects[-1]:
            yield "something happened after the end"
        reports = [box for box in step.boxes() if is_report(box)]
        if len(reports) > 1:
            yield "more than one error report"
        if reports and not ends:
            yield "the program went on after an error report"
        if ends and not reports and not self.told_to_end(step):
            yield "the program ended, and nobody had told it to"
        if not ends and self.is_closed(step):
            yield "the program was closed and did not end"

    def told_to_end(self, step):
        return self.is_closed(step) or step.starts() and self.world["previousInstance"]

    @staticmethod
    def is_closed(step):
        return step.alive and (step.verb == "close" or step.clicks("mPopExit"))


def is_report(box):
    told = REPORT_TITLE.fullmatch(box["title"]) is not None or box["box"] == REPORT_FAILED
    return told and box["icon"] == "critical"


class SecondInstance(Rule):
    """A second instance ends at once."""

    def look(self, step):
        if step.starts() and self.world["previousInstance"] and step.effects != [{"ended": True}]:
            yield "another one runs already, and the program did more than end"


class Reports(Rule):
    """Every report is one that the user, the client, the server or the engine brought about."""

    def look(self, step):
        for box in step.boxes():
            if is_report(box) and not step.reports():
                yield f"a report that says nothing: {box}"
        for report in step.reports():
            if not self.foreseen(step, report):
                yield f"nobody foresaw the report {report}: {step.boxes()[-1]['box']!r}"

    def foreseen(self, step, report):
        if report in OF_THE_ENGINE:
            return "speak" in self.world["refuse"]
        if report in OF_THE_SERVER:
            return isinstance(self.world["web"], dict)
        return step.verb == FORESEEN.get(report)


LIFE = [Vocabulary, NothingWithoutCause, Ending, SecondInstance, Reports]
