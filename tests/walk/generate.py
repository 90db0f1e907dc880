"""A whole script from a seed: the same seed and length always give the same script."""
import random

import program
from scenes import Scenes
from steps import Steps


def script(seed, length):
    rng = random.Random(seed)
    steps = Steps(rng, program.controls(), program.events())
    scenes = Scenes(steps)
    made = [steps.start()]
    while len(made) < length:
        made += part(rng, steps, scenes)
    return made[:length]


def part(rng, steps, scenes):
    """What comes next. A start while the program runs does nothing, so it is never out of place:
    it ends the time after a report that nobody foresaw."""
    chance = rng.random()
    if chance < 0.06:
        return scenes.scene()
    return [steps.start()] if chance < 0.09 else [steps.step()]
