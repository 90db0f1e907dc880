"""What follows from controls that the script looked at, and that nothing has changed since."""
import decimal
import re

from form import DAYS, ENABLED_BY, FRAME_COUNT, GROUPS, NUMBER_BOXES, PAGES, RATES, TESTS
from rules_life import Rule
from rules_speech import PUNCTUATION

NUMBER = re.compile(r" *([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+))")


class ShownRule(Rule):
    """A rule about controls that were shown since the last step that was no "show"."""

    def __init__(self, world):
        super().__init__(world)
        self.shown = {}
        self.last = None  # the step before them

    def look(self, step):
        if step.verb == "show":
            if step.alive:
                self.shown[(step.target, step.step.get("index"))] = step.effects[0]
                yield from self.look_at_shown()
            return
        if step.alive:
            yield from self.look_after(step)
        self.shown, self.last = {}, step

    def look_at_shown(self):
        return ()

    def look_after(self, _step):
        return ()

    def control(self, name, index=None):
        return self.shown.get((name, index))


class Dependents(ShownRule):
    """What a box switches on can be used exactly while it is ticked."""

    def look_at_shown(self):
        for (name, index), shown in self.shown.items():
            box = self.control(ENABLED_BY.get(name))
            if box and shown["enabled"] != (box["value"] == 1):
                yield f"{name} {index} does not follow {box['show']}"
            if name in DAYS and shown["locked"] == shown["enabled"]:
                yield f"{name} is enabled and locked, or neither"


class Groups(ShownRule):
    """Of the options of a group exactly one is chosen."""

    def look_at_shown(self):
        for group in GROUPS:
            shown = [self.control(name) for name in group]
            if all(shown) and [option["value"] for option in shown].count(True) != 1:
                yield f"of {group} not exactly one is chosen"


class Frames(ShownRule):
    """The page that is selected shows, and no other."""

    def look_at_shown(self):
        frames = [self.control("fraPage", index) for index in range(FRAME_COUNT)]
        pages = self.control("lstMenu")
        if not all(frames) or not pages or not pages["enabled"] or pages["index"] < 0:
            return
        visible = [index for index, frame in enumerate(frames) if frame["visible"]]
        # A script can use what stands on a page that does not show, and so bring up a second one.
        if self.last and self.last.verb == "select" and self.last.target == "lstMenu":
            if visible != [PAGES[pages["index"]]]:
                yield f"the pages {visible} show instead of {PAGES[pages['index']]}"


class Leaving(ShownRule):
    """A bad number is beeped at when its box is left; bad days become a week."""

    def look_after(self, step):
        box = self.control(step.target) if step.verb == "leave" else None
        if not box or not box["enabled"] or step.target not in NUMBER_BOXES:
            return
        wanted = what_leaving_does(step.target, box["text"])
        if wanted != ("report" if step.reports() else "beep" if step.has("beep") else "nothing"):
            yield f"{step.target} was left with {box['text']!r}, {wanted} was to come"


def what_leaving_does(name, text):
    if name in DAYS and text:
        match = NUMBER.fullmatch(text.strip(" "))
        if not match:
            return "report"
        return "nothing" if 1 <= decimal.Decimal(match[1]) <= 365 else "beep"
    lowest, highest = (-10, 10) if name in RATES else (0, 100)
    good = name not in DAYS and lowest <= leading_number(text) <= highest
    return "nothing" if good else "beep"


def leading_number(text):
    """Rounded, halves to the even neighbour; 0 for what begins with no number."""
    match = NUMBER.match(text)
    if not match:
        return 0
    return decimal.Decimal(match[1]).to_integral_value(decimal.ROUND_HALF_EVEN)


class Tests(ShownRule):
    """A test of a voice says the introduction in that voice's rate and volume."""

    def look_after(self, step):
        if not step.clicks(*TESTS) or len(step.sentences()) != 1:
            return
        gender = step.target.removeprefix("cmdSpeedTest")
        said = step.sentences()[0]
        introduction = self.control("txtIntroductionText")
        if introduction and said["speak"] != cleaned(introduction["text"]):
            yield f"{introduction['text']!r} was said as {said['speak']!r}"
        for call, box, lowest in (("rate", "Speed", -10), ("volume", "Volume", 0)):
            shown = self.control(f"txtTalk{box}{gender}")
            number = leading_number(shown["text"]) if shown else None
            highest = 10 if call == "rate" else 100
            if shown and call not in self.world["refuse"] and lowest <= number <= highest:
                if said[call] != number:
                    yield f"{call} {said[call]} instead of {number}"


def cleaned(text):
    """As the engine is to get it: brackets rounded, trimmed, punctuation once."""
    result = ""
    for character in text.replace("<", "(").replace(">", ")").strip(" "):
        if character not in PUNCTUATION or result[-1:] != character:
            result += character
    return result


SHOWN = [Dependents, Groups, Frames, Leaving, Tests]
