#!/usr/bin/python3
"""Checks that src/ is the house that docs/architecture.md draws.

usage: floors.py SOURCE_FOLDER

Every folder of src/ is a room on a floor. A room may use the rooms on the floors below its own,
never one above and never in a circle; on one floor only as SAME_FLOOR allows. The rooms of the core
know the standard library and each other, nothing else. No file is longer than MOST_LINES.
Each breach is printed as FILE:LINE: what is wrong; the exit status is then 1.
"""
import re
import sys
from pathlib import Path

FLOORS = {
    "base": 0, "controls": 0,
    "platform": 1,
    "forms": 2,
    "logging": 3,
    "language": 4,
    "settings": 5,
    "speech": 6, "contacts": 6,
    "messenger": 7, "web": 7,
    "pages": 8,
    "app": 9,
    "files": 10, "voice": 10, "sources": 10, "espeak": 10, "linux": 10, "qt": 10, "desktop": 10,
    "rehearsal": 10, "windows": 10,
}

# (user, used): what a room may use of its own floor.
WORLDS = {"files", "voice", "sources", "espeak", "linux", "qt", "desktop", "rehearsal", "windows"}
SAME_FLOOR = {("controls", "base")} | {(user, used) for user in WORLDS for used in WORLDS}

# The rooms that may know a toolkit and an operating system are WORLDS.

MOST_LINES = 400

SOURCES = {".h", ".cpp", ".inc"}
GENERATED = {".inc"}

STANDARD_HEADERS = set("""
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono
    cinttypes climits clocale cmath codecvt compare complex concepts condition_variable coroutine
    csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque
    exception execution filesystem format forward_list fstream functional future initializer_list
    iomanip ios iosfwd iostream istream iterator latch limits list locale map memory memory_resource
    mutex new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator
    semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf
    string string_view syncstream system_error thread tuple type_traits typeindex typeinfo
    unordered_map unordered_set utility valarray variant vector version
""".split())

INCLUDE = re.compile(r'\s*#\s*include\b\s*(?:"([^"]+)"|<([^>]+)>)?')


def includes(text):
    """Yields line number, quoted name and bracketed name of each #include."""
    for number, line in enumerate(text.splitlines(), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1), match.group(2)


def breach_of_floors(room, used):
    if used not in FLOORS:
        return f'"{used}" is no room of this house'
    if used == room or FLOORS[used] < FLOORS[room]:
        return None
    if FLOORS[used] > FLOORS[room]:
        return f"{room} (floor {FLOORS[room]}) must not use {used} (floor {FLOORS[used]}) above it"
    if (room, used) not in SAME_FLOOR:
        return f"{room} must not use {used}, which is on the same floor"
    return None


def breach_of_include(room, quoted, bracketed):
    """What is wrong with one #include of a room, or None."""
    if quoted is not None:
        if "/" not in quoted or quoted.startswith("."):
            return f'"{quoted}" must name its room: "{room}/..."'
        return breach_of_floors(room, quoted.split("/")[0])
    if bracketed is None:
        return "an #include must name its file"
    if bracketed.split("/")[0] in FLOORS:
        return f'<{bracketed}> is a file of ours and belongs in quotation marks'
    if room not in WORLDS and bracketed not in STANDARD_HEADERS:
        return f"the core knows the standard library only, not <{bracketed}>"
    return None


def circle(uses):
    """The rooms along one circle of uses, the first repeated at the end, or None."""
    done = set()

    def walk(room, path):
        if room in path:
            return path[path.index(room):] + [room]
        if room in done:
            return None
        for used in sorted(uses.get(room, ())):
            found = walk(used, path + [room])
            if found:
                return found
        done.add(room)
        return None

    for room in sorted(uses):
        found = walk(room, [])
        if found:
            return found
    return None


def check_file(source, path, uses):
    """The breaches in one file; what its room uses is added to `uses`."""
    name = path.relative_to(source)
    room = name.parts[0]
    text = path.read_text(encoding="utf-8")
    for number, quoted, bracketed in includes(text):
        breach = breach_of_include(room, quoted, bracketed)
        if breach:
            yield f"{name}:{number}: {breach}"
        used = (quoted or "").split("/")[0]
        if used in FLOORS and used != room:
            uses.setdefault(room, set()).add(used)
    lines = len(text.splitlines())
    if lines > MOST_LINES and path.suffix not in GENERATED:
        yield f"{name}:{lines}: a file has {MOST_LINES} lines at the most"


def check(source):
    """All breaches in the tree below `source`, as lines of text."""
    breaches = []
    uses = {}
    files = sorted(path for path in source.rglob("*") if path.suffix in SOURCES)
    if not files:
        breaches.append(f"{source}: there are no sources")
    for path in files:
        room = path.relative_to(source).parts[0]
        if room not in FLOORS:
            breaches.append(f'{path.relative_to(source)}:1: "{room}" is no room of this house')
            continue
        breaches += check_file(source, path, uses)
    round_trip = circle({room: used - WORLDS for room, used in uses.items()})
    if round_trip:
        breaches.append("the rooms use each other in a circle: " + " -> ".join(round_trip))
    return breaches


def main(arguments):
    if len(arguments) != 1:
        print(__doc__, file=sys.stderr)
        return 2
    breaches = check(Path(arguments[0]))
    for breach in breaches:
        print(breach)
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
