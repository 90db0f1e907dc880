"""Whether memory grows with the length of a walk."""
from play import play

TIMES = 4
# KiB. The steps that are played again would have to leave next to nothing each: with 4,000 of them
# it is 40 bytes. What the allocator itself leaves between what is used was never 200 KiB.
MOST_GROWTH = 512


def measure(tool, steps, played, timeout):
    """What is wrong when the walk is played several times in one process, "" when all is well."""
    again = play(tool, steps * TIMES, timeout * TIMES)
    print(f"once {played.peak} KiB, {TIMES} times {again.peak} KiB")
    if again.status != 0 or again.errors:
        return f"played {TIMES} times: exit status {again.status}\n{again.errors}"
    if again.lines[:len(played.lines)] != played.lines:
        return "The same steps did not do the same.\n"
    if again.peak - played.peak > MOST_GROWTH:
        return f"Played {TIMES} times it takes {again.peak - played.peak} KiB more.\n"
    return ""
