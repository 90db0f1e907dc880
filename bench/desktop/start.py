#!/usr/bin/python3
"""How long Brenwick takes from its start to its tray icon, and how much memory it has then, beside
an empty program with a window and a tray icon in the same run.

usage: start.py BRENWICK BENCH-EMPTYTRAY [RUNS]

Both are started in turn. The medians are compared: at most 1.5 times the time and 1.3 times the
resident memory is wanted. The exit status is 0 when both hold.
"""
import statistics
import sys

sys.dont_write_bytecode = True  # the source tree stays as it is
from world import World, status_of, wait_until_idle  # noqa: E402

MOST_TIME, MOST_MEMORY = 1.5, 1.3


def measure(world, command):
    """Milliseconds to the icon, and KiB resident when it has come to rest."""
    process, seconds = world.start(command)
    try:
        wait_until_idle(process)
        return seconds * 1000, status_of(process, "VmRSS"), status_of(process, "RssAnon")
    finally:
        process.terminate()
        process.wait()


def main():
    brenwick, empty = sys.argv[1], sys.argv[2]
    runs = int(sys.argv[3]) if len(sys.argv) > 3 else 11
    found = {brenwick: [], empty: []}
    with World() as world:
        for program in found:  # the files are in memory from here on
            measure(world, [program])
        for _ in range(runs):
            for program, results in found.items():
                results.append(measure(world, [program]))
    median = {program: [statistics.median(column) for column in zip(*results)]
              for program, results in found.items()}
    print(f"{'':14}{'ms to icon':>12}{'KiB resident':>14}{'of these own':>14}")
    for name, program in (("brenwick", brenwick), ("empty program", empty)):
        time, memory, own = median[program]
        print(f"{name:14}{time:12.1f}{memory:14.0f}{own:14.0f}")
    time, memory = (median[brenwick][i] / median[empty][i] for i in (0, 1))
    print(f"{'ratio':14}{time:12.2f}{memory:14.2f}")
    good = time <= MOST_TIME and memory <= MOST_MEMORY
    print(f"{'GOOD' if good else 'BAD'}: at most {MOST_TIME} and {MOST_MEMORY} wanted")
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
