"""A step with what it brought about, and what the script has made of the world by then."""
import re

REPORT_TITLE = re.compile(r"Unexpected Error! Version: \d+\.\d+\.\d{4,}")
REPORT = re.compile(r"Error \((-?\d+)\) : (.*)\r\n\r\nModule: (\w+)\r\nProcedure: (\w+)\r\n\r\n",
                    re.DOTALL)
REPORT_FAILED = "Error in ErrorHandler"
SIGNED_IN = {2, 6, 10, 14, 18, 34, 50, 66}
PURGE = 2  # the flag that silences the engine


class Step:
    def __init__(self, number, step, effects, alive):
        self.number = number
        self.step = step
        self.verb = next(iter(step))
        self.target = step[self.verb]
        self.effects = effects
        self.alive = alive

    def all(self, kind):
        """The effects of that kind, in order."""
        return [effect for effect in self.effects if kind in effect]

    def has(self, kind):
        return any(kind in effect for effect in self.effects)

    def sentences(self):
        return [effect for effect in self.all("speak") if effect["flags"] != PURGE]

    def purges(self):
        return [effect for effect in self.all("speak") if effect["flags"] == PURGE]

    def boxes(self):
        return [effect for effect in self.effects if "box" in effect]

    def reports(self):
        """The error reports, as "PROCEDURE NUMBER"."""
        found = []
        for box in self.boxes():
            match = REPORT.fullmatch(box["box"]) if REPORT_TITLE.fullmatch(box["title"]) else None
            if match:
                found.append(f"{match[4]} {match[1]}")
        return found

    def clicks(self, *names):
        return self.verb == "click" and self.target in names

    def raises(self, *events):
        return self.verb == "raise" and self.target in events

    def presses(self, *names):
        return self.verb == "hotkey" and self.target in names

    def starts(self):
        """The program was started and did not find another one."""
        return self.verb == "start" and not self.alive

    def runs_after(self):
        return (self.alive or self.verb == "start") and not self.has("ended")

    def own_state(self):
        return self.step.get("state", 0) if self.raises("OnLocalStateChangeResult") else None

    def says_yes(self):
        return any(box["answer"] == "Yes" for box in self.boxes())


class World:
    """The script's world, and of the program what the transcript tells beyond doubt."""

    def __init__(self):
        self.members = {"voices": ["Mary", "Mike"], "myStatus": 2, "previousInstance": False,
                        "answers": [], "refuse": [], "web": "silent"}
        self.running = False
        self.online = False
        self.muted = False  # None: not known
        self.new_voices = False  # since the start

    def __getitem__(self, member):
        return self.members[member]

    def before(self, step):
        if step.verb == "world":
            self.members.update({name: value for name, value in step.target.items()})
            self.members["answers"] = list(self.members["answers"])
            self.new_voices = self.new_voices or "voices" in step.target
        elif step.starts():
            self.online = self["myStatus"] in SIGNED_IN
            self.new_voices = False

    def after(self, step):
        self.running = step.runs_after()
        if step.alive and step.own_state() is not None:
            self.online = step.own_state() in SIGNED_IN
        self.muted = self.mute_after(step)

    def mute_after(self, step):
        """Mute silences the engine when it is switched on, and in no other step that changes it."""
        if step.starts() or step.clicks("chkMute") and step.alive:
            return None if "speak" in self["refuse"] else bool(step.purges())
        if step.alive and (step.clicks("mnuMute") or resets_spoken_page(step)):
            return False
        return self.muted


def resets_spoken_page(step):
    return step.clicks("cmdDefaults") and step.step["index"] == 2 and step.says_yes()
