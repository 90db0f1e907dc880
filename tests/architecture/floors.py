#!/usr/bin/python3
"""Checks that src/ is the house that docs/architecture.md draws.

usage: floors.py SOURCE_FOLDER

Every folder of src/ is a room on a floor, and a room may hold rooms of its own. A room may use the
rooms on the floors below it that its row in ROOMS allows, never one above and never in a circle.
Beside the standard library it includes only the headers that its row names. What a room uses stands
in the table of src/CMakeLists.txt too, neither more nor less. No file is longer than MOST_LINES, no
folder holds more than MOST_FILES, and no room of src/ more than a fifth of the lines.
Each breach is printed as FILE:LINE: what is wrong; the exit status is then 1.
"""
import re
import sys
from pathlib import Path

# Kinds of headers that are not the standard library's, by their names.
FOREIGN = {
    "Qt's D-Bus": re.compile(r"QDBus\w*$|QtDBus"),
    "Qt": re.compile(r"Q[A-Z]\w*$|Qt\w*(/|$)"),
    "D-Bus": re.compile(r"dbus/"),
    "X11": re.compile(r"(xcb|X11)/"),
    "ALSA": re.compile(r"alsa/"),
    "PulseAudio": re.compile(r"pulse/"),
    "eSpeak NG": re.compile(r"espeak-ng/"),
    "sonic": re.compile(r"sonic\.h$"),
    "JSON": re.compile(r"nlohmann/"),
    "POSIX": re.compile(r"(unistd|fcntl|poll|pwd|spawn|signal|dlfcn|netdb|termios)\.h$"
                        r"|(arpa|netinet|sys)/\w+\.h$"),
    "Windows": re.compile(r"(windows|objbase|shlobj|shellapi|sapi|winsock2|mmsystem|io)\.h$"),
}

CORE = {"base", "platform", "logging", "language", "settings", "speech", "contacts", "messenger", "web",
        "controls", "forms", "pages", "app"}
SHARED = {"files", "voice", "sources"}


class Room:
    """One row: the floor, the rooms it may use (None: all on lower floors), and foreign headers."""

    def __init__(self, floor, uses=None, foreign=()):
        self.floor = floor
        self.uses = uses
        self.foreign = set(foreign)


# What lies behind the point orders rooms of one floor; without it they do not know each other.
ROOMS = {
    "base": Room(0),
    "platform": Room(1),
    "logging": Room(2),
    "language": Room(3),
    "settings": Room(4),
    "speech": Room(5), "contacts": Room(5),
    "messenger": Room(6), "web": Room(6),
    "files": Room(7, {"base", "platform"}),
    "voice": Room(7, {"base", "platform"}),
    "sources": Room(7, {"base", "platform"}),
    "controls": Room(8, {"base"}),
    "forms": Room(8.1, {"base", "controls"}),
    "pages": Room(9, CORE),
    "app": Room(10, CORE),
    "espeak": Room(11, {"base", "voice"}, {"eSpeak NG", "sonic"}),
    "linux": Room(11, CORE | SHARED, {"POSIX", "D-Bus"}),
    "linux/notifications": Room(11.1, CORE | SHARED | {"linux"}, {"POSIX", "D-Bus"}),
    "linux/quiet": Room(11.1, CORE | SHARED | {"linux"}, {"POSIX", "D-Bus"}),
    "linux/speechd": Room(11.1, CORE | SHARED | {"linux"}, {"POSIX"}),
    "linux/engine": Room(11.1, CORE | SHARED | {"linux"}, {"POSIX"}),
    "linux/sound": Room(11.1, CORE | SHARED | {"linux"}, {"POSIX", "ALSA", "PulseAudio"}),
    "qt": Room(11, CORE, {"Qt"}),
    "qt/views": Room(11.1, CORE | {"qt"}, {"Qt"}),
    "desktop/bus": Room(11.8, set(), {"Qt", "Qt's D-Bus"}),
    "desktop/x11": Room(11.8),
    "desktop/engine": Room(11.8, {"base", "voice", "espeak", "linux", "linux/engine"}, {"POSIX"}),
    "desktop/feed": Room(11.9, None, {"Qt", "Qt's D-Bus"}),
    "desktop/purple": Room(11.9, None, {"Qt", "Qt's D-Bus"}),
    "desktop/hotkeys": Room(11.9, None, {"Qt", "Qt's D-Bus", "X11"}),
    "desktop/tray": Room(11.9, None, {"Qt", "Qt's D-Bus", "X11"}),
    "desktop": Room(12, None, {"Qt", "Qt's D-Bus", "X11", "POSIX"}),
    "windows": Room(12, CORE | SHARED, {"Windows"}),
    "rehearsal/voice": Room(11.9, {"voice", "espeak", "linux/sound"}),
    "rehearsal": Room(12, CORE | {"files", "voice", "rehearsal/voice"}, {"JSON"}),
}

# One system's half of a contract, in the rooms that every system shares: what its file name ends in,
# and the headers that it may include.
HALVES = {"-posix.cpp": "POSIX", "-win32.cpp": "Windows"}

# Breaches that are known and wait to be mended: the room, and what it must not use or know.
KNOWN = set()

MOST_LINES = 400
MOST_FILES = 45
# A room with fewer lines is not too big, however little there is beside it.
SMALL_ROOM = 2000

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
TABLE_ROW = re.compile(r"^\s*brenwick_room\(([^)]*)\)", re.MULTILINE)
TABLE_WORDS = {"USES", "SHOWS", "LIBRARIES", "READS_FIRST", "EXCEPT"}


def includes(text):
    """Yields line number, quoted name and bracketed name of each #include."""
    for number, line in enumerate(text.splitlines(), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1), match.group(2)


def room_of(name):
    """The folder of a file, as text: "linux/sound" of "linux/sound/SoundDevice.h"."""
    return "/".join(Path(name).parts[:-1])


def breach_of_floors(room, used):
    if used not in ROOMS:
        return f'"{used}" is no room of this house'
    if used == room or (room, used) in KNOWN:
        return None
    above, below = ROOMS[room], ROOMS[used]
    if below.floor > above.floor:
        return f"{room} (floor {above.floor}) must not use {used} (floor {below.floor}) above it"
    if below.floor == above.floor:
        return f"{room} must not use {used}, which is on the same floor"
    if above.uses is not None and used not in above.uses:
        return f"{room} must not use {used}: its row does not name it"
    return None


def foreign_headers(room, name):
    """The kinds of foreign headers that a file of a room may include."""
    kinds = set(ROOMS[room].foreign)
    if room in SHARED:
        kinds |= {kind for ending, kind in HALVES.items() if name.endswith(ending)}
    # A program asks the system that it runs on; its room does not.
    if name == "main.cpp" and room == "rehearsal":
        kinds.add("POSIX")
    return kinds


def breach_of_foreign(room, name, header):
    if header in STANDARD_HEADERS:
        return None
    kind = next((kind for kind, pattern in FOREIGN.items() if pattern.match(header)), None)
    if kind in foreign_headers(room, name) or (room, kind) in KNOWN:
        return None
    if kind is None:
        return f"nobody knows <{header}>: no kind in FOREIGN fits"
    return f"{room} must not know {kind}: <{header}>"


def breach_of_include(room, name, quoted, bracketed):
    """What is wrong with one #include of a file in a room, or None."""
    if quoted is not None:
        if "/" not in quoted or quoted.startswith("."):
            return f'"{quoted}" must name its room: "{room}/..."'
        return breach_of_floors(room, room_of(quoted))
    if bracketed is None:
        return "an #include must name its file"
    if room_of(bracketed) in ROOMS:
        return f'<{bracketed}> is a file of ours and belongs in quotation marks'
    return breach_of_foreign(room, name, bracketed)


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
    room = room_of(name)
    text = path.read_text(encoding="utf-8")
    for number, quoted, bracketed in includes(text):
        breach = breach_of_include(room, path.name, quoted, bracketed)
        if breach:
            yield f"{name}:{number}: {breach}"
        used = room_of(quoted or "")
        # A main.cpp is the program of its room, and the table tells what that is linked with.
        if used in ROOMS and used != room and path.name != "main.cpp":
            uses.setdefault(room, set()).add(used)
    lines = len(text.splitlines())
    if lines > MOST_LINES and path.suffix not in GENERATED:
        yield f"{name}:{lines}: a file has {MOST_LINES} lines at the most"


def check_sizes(source, files):
    """Folders with too many files, and rooms with too many of the lines."""
    folders = {}
    lines = {}
    for path in files:
        name = path.relative_to(source)
        folders[name.parent] = folders.get(name.parent, 0) + 1
        if path.suffix not in GENERATED:
            count = len(path.read_text(encoding="utf-8").splitlines())
            lines[name.parts[0]] = lines.get(name.parts[0], 0) + count
    for folder, count in sorted(folders.items()):
        if count > MOST_FILES:
            yield f"{folder}:1: a folder has {MOST_FILES} source files at the most, not {count}"
    for room, count in sorted(lines.items()):
        if count > max(SMALL_ROOM, sum(lines.values()) / 5):
            yield f"{room}:1: {count} lines are more than a fifth of all"


def table_of(text):
    """What each room uses by the table of src/CMakeLists.txt, with the line of its row."""
    table = {}
    text = re.sub("#.*", "", text)
    for match in TABLE_ROW.finditer(text):
        room, *words = match.group(1).split()
        used = set()
        part = None
        for word in words:
            if word in TABLE_WORDS:
                part = word
            elif part == "USES":
                used.add(word)
        # Rows of one room for several configurations count together.
        line = text.count("\n", 0, match.start(1)) + 1
        table[room] = (line, used | table.get(room, (line, set()))[1])
    return table


def check_table(source, uses, rooms):
    """Where the table of src/CMakeLists.txt is not what the files include."""
    file = source / "CMakeLists.txt"
    if not file.exists():
        return
    table = table_of(file.read_text(encoding="utf-8"))
    for room in sorted(rooms - set(table)):
        yield f"CMakeLists.txt:1: the room {room} has no row"
    for room, (line, told) in sorted(table.items()):
        included = uses.get(room, set())
        for used in sorted(included - told):
            yield f"CMakeLists.txt:{line}: {room} includes {used}: add it to USES of its row"
        for used in sorted(told - included):
            yield f"CMakeLists.txt:{line}: {room} includes nothing of {used}: take it out of its row"


def check(source):
    """All breaches in the tree below `source`, as lines of text."""
    breaches = []
    uses = {}
    rooms = set()
    files = sorted(path for path in source.rglob("*") if path.suffix in SOURCES)
    if not files:
        breaches.append(f"{source}: there are no sources")
    for path in files:
        name = path.relative_to(source)
        room = room_of(name)
        if room not in ROOMS:
            breaches.append(f'{name}:1: "{room or name}" is no room of this house')
            continue
        if path.name != "main.cpp":
            rooms.add(room)
        breaches += check_file(source, path, uses)
    breaches += check_sizes(source, files)
    breaches += check_table(source, uses, rooms)
    round_trip = circle({room: {one for one in used if (room, one) not in KNOWN}
                         for room, used in uses.items()})
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
