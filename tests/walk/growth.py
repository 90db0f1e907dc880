"""Whether memory grows with the length of a walk."""
from play import play

TIMES = 4
# KiB. The same walk differs by up to 600 from one time to the next: by the pages of files that the
# system counts to the process. With 6,000 steps, of which 18,000 more are played, each of these may
# leave less than 60 bytes behind.
MOST_GROWTH = 1024


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
