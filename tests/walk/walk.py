#!/usr/bin/python3
"""Plays a random walk through the whole program and judges what it does.

usage: walk.py BRENWICK-REHEARSE [--steps N] [--seed S] [--growth] [--script FILE]
               [--shrink SECONDS]

A script of N steps is made from the seed S, every verb of the rehearsal among them, and played.
Whatever the walk meets, the program goes on or reports as it should: it does not crash, leaks
nothing, and keeps to the rules in rules_*.py. A walk that fails prints the shortest script that
shows the failure, and the exit status is 1.

--growth   plays the same walk four times in one go, too; that may take no more memory
--script   plays and judges this script instead
--shrink   how long a shorter script is looked for
"""
import argparse
import json
import pathlib
import sys

sys.dont_write_bytecode = True  # the source tree stays as it is
import generate  # noqa: E402
import growth  # noqa: E402
from failure import failure_of, last_step  # noqa: E402
from play import play, to_lines  # noqa: E402
from shrink import Shrinker  # noqa: E402

# Of the steps that can reach a running program; below it the walk plays to nobody.
LEAST_ALIVE = 0.8
# Steps of a crashed walk that may be missing at the end of its transcript.
UNWRITTEN = 500


def timeout_for(steps):
    """Seconds. In the slowest build a step takes a tenth of it."""
    return 30 + len(steps) / 150


def try_out(tool, steps):
    """What was played, the verdict, and the complaint that makes it a failure, or None."""
    played = play(tool, steps, timeout_for(steps))
    return played, *failure_of(played, steps)


def shortest(tool, steps, played, complaint, seconds):
    def fails(candidate):
        found = try_out(tool, candidate)[2]
        return found is not None and found.rule == complaint.rule

    shrinker = Shrinker(fails, seconds)
    end = complaint.step or last_step(played) + UNWRITTEN
    if end < len(steps) and shrinker.still_fails(steps[:end]):
        steps = steps[:end]
    return shrinker.shrink(steps), shrinker.tries


def tell_failure(tool, steps, played, complaint, options):
    print(f"{complaint.rule}: step {complaint.step or '?'} of {len(steps)}: {complaint.what}")
    found, tries = shortest(tool, steps, played, complaint, options.shrink)
    played, _, complaint = try_out(tool, found)
    print(f"\nThe shortest script that shows it, after {tries} tries:\n\n{to_lines(found)}")
    print("What it did:\n" + "\n".join(played.lines[-20:]))
    print(f"\n{complaint.rule}: {complaint.what}" if complaint else "\nIt does not fail each time.")


def read_script(file):
    lines = file.read_text(encoding="utf-8").split("\n")
    return [json.loads(line) for line in lines if line.strip() and not line.startswith("#")]


def options_of(arguments):
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("tool", type=pathlib.Path)
    parser.add_argument("--steps", type=int, default=20000)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--growth", action="store_true")
    parser.add_argument("--script", type=pathlib.Path)
    parser.add_argument("--shrink", type=float, default=120, metavar="SECONDS")
    return parser.parse_args(arguments)


def walk(options):
    """The exit status."""
    steps = read_script(options.script) if options.script else (
        generate.script(options.seed, options.steps))
    played, verdict, complaint = try_out(options.tool, steps)
    print(f"{options.script or f'seed {options.seed}'}: {len(steps)} steps in "
          f"{played.seconds:.1f} s, {verdict.share_alive():.0%} alive, at most "
          f"{played.peak // 1024} MiB; reports: {dict(verdict.reports)}")
    if complaint:
        tell_failure(options.tool, steps, played, complaint, options)
        return 1
    if not options.script and verdict.share_alive() < LEAST_ALIVE:
        print(f"Less than {LEAST_ALIVE:.0%} of the steps met a running program.")
        return 1
    if not options.growth:
        return 0
    error = growth.measure(options.tool, steps, played, timeout_for(steps))
    print(error, end="")
    return 1 if error else 0


if __name__ == "__main__":
    sys.exit(walk(options_of(sys.argv[1:])))
