"""Looks at a transcript step by step and tells what the program should not have done."""
import collections
import dataclasses
import json

from rules_contacts import CONTACTS
from rules_controls import CONTROLS
from rules_life import LIFE
from rules_messages import MESSAGES
from rules_screen import SCREEN
from rules_shown import SHOWN
from rules_speech import SPEECH
from rules_web import WEB
from world import Step, World

RULES = LIFE + SPEECH + SCREEN + CONTACTS + CONTROLS + SHOWN + MESSAGES + WEB


@dataclasses.dataclass(frozen=True)
class Complaint:
    rule: str
    what: str
    step: int = 0  # where it showed, counted from 1; 0 when no step can be named


@dataclasses.dataclass
class Verdict:
    complaint: Complaint = None  # the first; None when all is well
    steps: int = 0
    alive: int = 0  # steps that reached a running program
    reports: collections.Counter = dataclasses.field(default_factory=collections.Counter)

    def share_alive(self):
        return self.alive / self.steps if self.steps else 1.0


def judge(script, lines):
    """The verdict about a script that was carried out to its end."""
    verdict = Verdict()
    try:
        look_at_steps(script, lines, verdict)
        if not verdict.complaint and verdict.steps != len(script):
            raise Unreadable("it ends before the script")
    except Unreadable as wrong:
        verdict.complaint = Complaint("transcript", str(wrong), verdict.steps)
    return verdict


def look_at_steps(script, lines, verdict):
    world = World()
    rules = [rule(world) for rule in RULES]
    for number, effects in steps_of(lines):
        step = Step(number, script[number - 1], effects, world.running)
        verdict.steps += 1
        verdict.alive += step.alive
        verdict.complaint = look(rules, world, step)
        if verdict.complaint:
            return
        verdict.reports.update(step.reports())


def look(rules, world, step):
    """The first complaint of any rule. The world changes before they look, the program after."""
    world.before(step)
    for rule in rules:
        what = next(rule.look(step), None)
        if what:
            return Complaint(type(rule).__name__, what, step.number)
    world.after(step)
    return None


class Unreadable(Exception):
    """A transcript that is none."""


def steps_of(lines):
    """Each step's number with its effects."""
    number, effects = 0, []
    for line in lines:
        effect = parse(line)
        if "step" in effect:
            if number:
                yield number, effects
            if effect != {"step": number + 1}:
                raise Unreadable(f"after step {number} comes {line}")
            number, effects = number + 1, []
        elif not number:
            raise Unreadable(f"before the first step stands {line}")
        else:
            effects.append(effect)
    if number:
        yield number, effects


def parse(line):
    try:
        effect = json.loads(line)
    except ValueError as error:
        raise Unreadable(f"not JSON: {line[:200]}") from error
    if not isinstance(effect, dict) or not effect:
        raise Unreadable(f"not an effect: {line[:200]}")
    return effect
