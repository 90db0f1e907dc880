#!/usr/bin/python3
"""How often an idle Brenwick wakes up.

usage: idle.py BRENWICK [SECONDS]

Counts, thread by thread, how often the process gave up the processor because it had to wait, for
two minutes. It may wake for its one-minute timer and for nothing else; a wake-up can count twice,
for the timer and for what it lets other threads do. The exit status is 0 when it does not.
"""
import pathlib
import sys
import time

sys.dont_write_bytecode = True  # the source tree stays as it is
from world import World, cpu_of, wait_until_idle  # noqa: E402

SECONDS = 120
TIMER = 60
# The first tick of the timer deletes the logs that are too old, once a day.
SETTLED = TIMER + 5
# Waits that one tick of the timer may need.
WAITS_A_TICK = 2


def waits(process):
    """How often each thread has waited, by its number."""
    counted = {}
    for status in pathlib.Path(f"/proc/{process.pid}/task").glob("*/status"):
        text = status.read_text(encoding="utf-8")
        name = text.split("Name:")[1].split("\n")[0].strip()
        counted[int(status.parent.name)] = (
            name, int(text.split("voluntary_ctxt_switches:")[1].split()[0]))
    return counted


def main():
    seconds = int(sys.argv[2]) if len(sys.argv) > 2 else SECONDS
    with World() as world:
        process, _ = world.start([sys.argv[1]])
        try:
            time.sleep(SETTLED)
            wait_until_idle(process)
            before, worked = waits(process), cpu_of(process)
            time.sleep(seconds)  # what is measured is that nothing happens
            after, worked = waits(process), cpu_of(process) - worked
        finally:
            process.terminate()
            process.wait()
    total = 0
    for thread, (name, count) in sorted(after.items()):
        count -= before.get(thread, (name, 0))[1]
        total += count
        print(f"{name:20}{count:6}")
    most = WAITS_A_TICK * (seconds // TIMER + 1)
    print(f"{'together':20}{total:6}  in {seconds} s, {worked} clock ticks of work")
    print(f"{'GOOD' if total <= most else 'BAD'}: at most {most} wanted")
    return 0 if total <= most else 1


if __name__ == "__main__":
    sys.exit(main())
