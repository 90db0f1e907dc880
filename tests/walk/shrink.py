"""Finds the shortest script that still shows a failure."""
import time


class Shrinker:
    """fails: whether a script still shows the failure. Whatever the time, what was found by its
    end counts."""

    def __init__(self, fails, seconds, clock=time.monotonic):
        self.fails = fails
        self.clock = clock
        self.end = clock() + seconds
        self.tries = 0

    def shrink(self, steps):
        steps = self.from_a_start(steps)
        while True:
            before = steps
            steps = self.simpler(self.fewer(steps))
            if steps == before:
                return steps

    def still_fails(self, steps):
        if self.clock() > self.end:
            return False
        self.tries += 1
        return self.fails(steps)

    def from_a_start(self, steps):
        """Without what comes before a start near the end, if the failure does not need it."""
        starts = [i for i, step in enumerate(steps) if "start" in step]
        back = 1
        while back <= len(starts):
            if self.still_fails(steps[starts[-back]:]):
                return steps[starts[-back]:]
            back *= 4
        return steps

    def fewer(self, steps):
        """Without every step that is not needed: large parts first, then ever smaller ones."""
        size = max(1, len(steps) // 2)
        while True:
            steps, removed = self.without_parts(steps, size)
            if size == 1 and not removed:
                return steps
            size = max(1, size // 2)

    def without_parts(self, steps, size):
        removed = False
        end = len(steps)
        # From the end: what a step needs stands before it.
        while end > 0:
            rest = steps[:max(0, end - size)] + steps[end:]
            if rest and self.still_fails(rest):
                steps, removed = rest, True
            end -= size
        return steps, removed

    def simpler(self, steps):
        """Each step with its values as simple as they may be."""
        for at in range(len(steps)):
            found = True
            while found:
                found = False
                for candidate in simpler_steps(steps[at]):
                    tried = steps[:at] + [candidate] + steps[at + 1:]
                    if self.still_fails(tried):
                        steps, found = tried, True
                        break
        return steps


def simpler_steps(step):
    """The step without one of its values, or with a simpler one."""
    verb = next(iter(step))
    for member in step:
        if member != verb and member not in ("index", "code"):
            yield {name: value for name, value in step.items() if name != member}
        if member != verb or verb in ("start", "wait", "world"):
            for value in simpler_values(step[member]):
                yield {**step, member: value}


def simpler_values(value):
    if isinstance(value, dict):
        yield from simpler_members(value)
    elif isinstance(value, (str, list)):
        yield from shorter(value)
    elif isinstance(value, int) and not isinstance(value, bool) and value != 0:
        yield from dict.fromkeys([0, value // 2 if value > 0 else -(-value // 2)])


def simpler_members(members):
    for name in members:
        yield {other: value for other, value in members.items() if other != name}
        for value in simpler_values(members[name]):
            yield {**members, name: value}


def shorter(value):
    """Without any of its parts, from halves down to parts of which there are 32."""
    size = len(value)
    while size and len(value) <= 32 * size:
        yield from (value[:at] + value[at + size:] for at in range(0, len(value), size))
        size //= 2
