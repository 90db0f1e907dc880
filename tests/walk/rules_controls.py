"""What the controls and the store show."""
from form import KEPT_OPTIONS, KEPT_TEXTS, NOT_KEPT_BOX, PAGES
from rules_life import Rule

ROOT = "Software\\Brenwick"
RUN = "Software\\Microsoft\\Windows\\CurrentVersion\\Run"
TEXT_NUMBERS = {"ConversationsDaysToKeep", "DebugDaysToKeep"}
NOT_FLAGS = {"IntroductionText", "Language"} | TEXT_NUMBERS


class Selection(Rule):
    """What is selected is there."""

    def look(self, step):
        if step.verb != "show" or not step.effects:
            return
        shown = step.effects[0]
        if "index" in shown and not -1 <= shown["index"] < len(shown["items"]):
            yield f"line {shown['index']} of {len(shown['items'])} is selected"
        if "selStart" in shown and shown["selStart"] + shown["selLength"] > len(shown["text"]):
            yield f"more is selected than is there: {shown}"


class Combos(Rule):
    """A combo box shows its current entry, or the beginning of one."""

    def look(self, step):
        if step.verb != "show" or not step.target.startswith("cmb"):
            return
        shown = step.effects[0]
        if shown["index"] >= 0 and shown["items"][shown["index"]] != shown["text"]:
            yield f"the current entry and the text differ: {shown}"
        if shown["text"] and not any(e.startswith(shown["text"]) for e in shown["items"]):
            yield f"no entry begins with {shown['text']!r}"


class PageList(Rule):
    """A program that runs has its pages."""

    def look(self, step):
        if step.alive and step.verb == "show" and step.target == "lstMenu":
            if len(step.effects[0]["items"]) != len(PAGES):
                yield f"{len(step.effects[0]['items'])} pages"


class GroupChats(Rule):
    """They are switched by their box alone, each time the other way round."""

    def __init__(self, world):
        super().__init__(world)
        self.on = False  # of the world, which outlasts the program

    def look(self, step):
        told = [effect["groupChats"] for effect in step.all("groupChats")]
        wanted = []
        if step.alive and step.clicks("chkGroupChats"):
            self.on = not self.on
            wanted = [self.on]
        if told != wanted:
            yield f"group chats were switched {told} instead of {wanted}"


class Store(Rule):
    """What is stored has the form in which it is read."""

    def look(self, step):
        if step.verb != "show" or step.target != "store":
            return
        for key, values in step.effects[0]["keys"].items():
            for name, value in values.items():
                if not self.fits(key, name, value):
                    yield f"{key}: {name} is {value!r}"

    @staticmethod
    def fits(key, name, value):
        if key == ROOT:
            return name in ("Left", "Top") and isinstance(value, int) and value >= 0
        if not isinstance(value, str):
            return False
        if key == ROOT + "\\Grids":
            return value in ("E", "M", "C")
        if key == ROOT + "\\Text":
            return value != ""
        if key == ROOT + "\\Voices":
            return value in ("M", "F") if name == "Default Voice" else value != ""
        if key in (ROOT + "\\General", ROOT + "\\User"):
            return value != "" if name in NOT_FLAGS else value in ("0", "1")
        return key == RUN and name == "Brenwick" and value.endswith(".EXE")


class Restart(Rule):
    """A start changes nothing of what is stored but the window's place, and an end right after it
    stores again what the start has read."""

    def __init__(self, world):
        super().__init__(world)
        self.stored = None  # None: not known
        self.untouched = False  # since the start
        self.ended = False

    def look(self, step):
        if step.verb == "show" and step.target == "store":
            yield from self.look_at(step.effects[0]["keys"])
        elif step.starts() and step.runs_after():
            self.untouched = True
        elif step.alive and step.verb == "close" and self.untouched:
            self.untouched, self.ended = False, True
        elif step.verb not in ("world", "show"):
            self.stored, self.untouched = None, False

    def look_at(self, keys):
        stored = {key: values for key, values in keys.items() if key != ROOT}
        changed = difference(self.stored, stored) if self.stored is not None else {}
        if self.ended:
            changed = {name: values for name, values in changed.items()
                       if not may_change(name, values[0])}
        if changed:
            yield f"what is stored has changed: {changed}"
        # Before the first start nothing is stored, and all of it is written.
        self.stored, self.ended = stored if ROOT + "\\Text" in stored else None, False


def may_change(name, before):
    """A language or a voice may be gone, and a name between per cent signs is read for what it
    stands for."""
    return name.endswith(("Language", "Male Voice", "Female Voice")) or (
        isinstance(before, str) and before.count("%") > 1)


def difference(before, after):
    return {f"{key}: {name}": (before.get(key, {}).get(name), after.get(key, {}).get(name))
            for key in before.keys() | after.keys()
            for name in before.get(key, {}).keys() | after.get(key, {}).keys()
            if before.get(key, {}).get(name) != after.get(key, {}).get(name)}


class Kept(Rule):
    """What the user has set is set at the next start."""

    def __init__(self, world):
        super().__init__(world)
        self.values = {}  # of the controls that were shown and have not changed since
        self.ended = self.started = False

    def look(self, step):
        if step.verb == "show" and step.alive:
            yield from self.look_at(step.effects[0])
        elif step.alive and step.verb == "close":
            self.ended, self.started = True, False
        elif step.starts() and step.runs_after() and self.ended:
            self.ended, self.started = False, True
        elif step.verb not in ("world", "show"):
            self.values, self.ended, self.started = {}, False, False

    def look_at(self, shown):
        name = shown["show"]
        if not self.started and is_kept(shown):
            self.values[name] = as_kept(shown)
        elif self.started and name in self.values and self.values[name] != value_of(shown):
            yield f"{name} was {self.values[name]!r} and is {value_of(shown)!r}"


def value_of(shown):
    return shown["text"] if "text" in shown else shown["value"]


def as_kept(shown):
    return value_of(shown) if "value" in shown else shown["text"] or KEPT_TEXTS[shown["show"]]


def is_kept(shown):
    name = shown["show"]
    if name in KEPT_TEXTS:
        # What stands between per cent signs is read for what it stands for.
        return shown["text"].count("%") < 2
    return name in KEPT_OPTIONS or name.startswith("chk") and name != NOT_KEPT_BOX


CONTROLS = [Selection, Combos, PageList, GroupChats, Store, Restart, Kept]
