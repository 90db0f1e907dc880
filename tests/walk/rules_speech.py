"""What is said, and how."""
from form import TESTS
from rules_life import Rule
from world import PURGE

QUEUE, INTERRUPT = 9, 11
PUNCTUATION = set("!@#$%^&*()_+-=~`{[}]|\\:;'<,>.?/")
PLACES = 4  # of the history of what was said

# What says a sentence, and the most of them; what stands in none of these says nothing.
SAYING_EVENTS = {"OnTextReceived": 1, "OnUserStateChanged": 1, "OnAppInviteReceived": 1,
                 "OnFileTransferInviteReceived": 1, "OnNewerClientAvailable": 1,
                 "OnLocalStateChangeResult": 2}


def most_sentences(step):
    if step.starts():
        return 2  # the introduction, and a newer version
    if step.presses("ocxHotKeyActivateBW"):
        return None  # everybody who is online
    if step.verb == "raise":
        return SAYING_EVENTS.get(step.target, 0)
    return 1 if step.clicks(*TESTS, "cmdUpdate") or step.presses("ocxSpeakMsg1") else 0


def is_forced(step):
    """Said although the program is muted or the user signed out."""
    if step.raises("OnTextReceived"):
        return step.step.get("text", "")[:5].upper() == "/TALK"
    return (step.clicks(*TESTS) or step.presses("ocxHotKeyActivateBW") or
            step.raises("OnLocalStateChangeResult", "OnNewerClientAvailable"))


class Engine(Rule):
    """The engine is told only what it can take."""

    def look(self, step):
        for said in step.all("speak"):
            if not -10 <= said["rate"] <= 10:
                yield f"rate {said['rate']}"
            if not 0 <= said["volume"] <= 100:
                yield f"volume {said['volume']}"
            if said["flags"] not in (PURGE, QUEUE, INTERRUPT):
                yield f"flags {said['flags']}"
            if said["flags"] == PURGE and said["speak"]:
                yield "words with the flag that silences"
            if said["voice"] not in self.world["voices"] and not self.may_lack_voice(said):
                yield f"voice {said['voice']!r} of {self.world['voices']}"
        if step.has("speak") and "speak" in self.world["refuse"]:
            yield "an engine that refuses to speak spoke"

    def may_lack_voice(self, said):
        """The engine's voice went while the program ran, or it never had one."""
        return said["voice"] == "" and (not self.world["voices"] or self.world.new_voices)


class SafeText(Rule):
    """No markup reaches the engine; punctuation is not repeated, and nothing stands around it."""

    def look(self, step):
        for said in step.sentences():
            text = said["speak"]
            if "<" in text or ">" in text:
                yield f"markup is said: {text!r}"
            if text != text.strip(" "):
                yield f"spaces around what is said: {text!r}"
            if any(a == b and a in PUNCTUATION for a, b in zip(text, text[1:])):
                yield f"repeated punctuation is said: {text!r}"


class Occasion(Rule):
    """Only some events are said, most of them once, and none while mute or sign-out forbids it."""

    def look(self, step):
        count, most = len(step.sentences()), most_sentences(step)
        if most is not None and count > most:
            yield f"{count} sentences, at most {most} are to be said"
        if not count or is_forced(step):
            return
        if step.starts():
            if step.purges():
                yield "a start that mutes said something"
            return
        if self.world.muted:
            yield "something was said while muted"
        if not self.world.online:
            yield "something was said while signed out"
        if step.raises("OnTextReceived") and step.step.get("text", "")[:1] in ("", "\r"):
            yield "a message without words was said"


class Heard(Rule):
    """A test of a voice is always heard."""

    def look(self, step):
        if step.alive and step.clicks(*TESTS) and "speak" not in self.world["refuse"]:
            if len(step.sentences()) != 1:
                yield "a test of a voice was not heard"


class Purging(Rule):
    """Only mute and its hotkey silence the engine."""

    def look(self, step):
        if step.purges() and not (step.starts() or step.clicks("chkMute") or
                                  step.presses("ocxHotKeySilent")):
            yield "the engine was silenced"


class Flags(Rule):
    """Whether sentences queue changes only with its box, its default, and the user's own state."""

    def __init__(self, world):
        super().__init__(world)
        self.flags = None  # not known

    def look(self, step):
        if step.starts() or step.clicks("chkFinishSentence", "cmdDefaults"):
            self.flags = None
        elif step.alive and step.own_state() is not None:
            self.flags = QUEUE
        for said in step.sentences():
            if said["flags"] != (self.flags or said["flags"]):
                yield f"flags {said['flags']} instead of {self.flags}"
            self.flags = said["flags"]


class History(Rule):
    """The newest four sentences can be said again and are shown; saying again keeps their order."""

    def __init__(self, world):
        super().__init__(world)
        self.places = [""] * PLACES

    def look(self, step):
        said = [sentence["speak"] for sentence in step.sentences()]
        if step.starts():
            self.places = [""] * PLACES
        if step.presses("ocxSpeakMsg1"):
            if said and said[0] != self.places[step.step["index"]]:
                yield f"{said[0]!r} was said again instead of {self.places[step.step['index']]!r}"
            return
        for sentence in said:
            self.places = [sentence, *self.places[:-1]]
        if step.alive and step.verb == "show" and step.target == "txtSpokenMessages":
            shown = step.effects[0]["text"]
            if shown != self.places[step.step["index"]]:
                yield f"{shown!r} is shown instead of {self.places[step.step['index']]!r}"


class SpokenWords(Rule):
    """The list of spoken words has every sentence that was said since the start, in order."""

    def __init__(self, world):
        super().__init__(world)
        self.said = []

    def look(self, step):
        if step.starts():
            self.said = []
        self.said += [sentence["speak"] for sentence in step.sentences()]
        if step.alive and step.verb == "show" and step.target == "lstMessages":
            lines = iter(step.effects[0]["items"])
            for text in self.said:
                if not any(line == text or line.endswith(": " + text) for line in lines):
                    yield f"{text!r} was said and is not listed"
                    return


SPEECH = [Engine, SafeText, Occasion, Heard, Purging, Flags, History, SpokenWords]
