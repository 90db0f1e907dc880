"""What people write and programs send: a small world in which things meet, and hostile values."""

# Address and display name. Few enough that events, lists and menus speak of the same people.
CONTACTS = [
    ("anna@example.org", "Anna"),
    ("john.smith@example.org", "John Smith"),
    ("maria.garcia@example.org", "Maria del Carmen García"),
    ("three.words@example.org", "Anna Maria Lee"),
    ("bigblue@example.org", "BigBlueSky"),
    ("SHOUT@example.org", "SHOUTING MAN"),
    ("shout@example.org", "shouting man"),
    ("bob@example.org", "bob"),
    ("bob@example.net", "bob"),
    ("spaces around@example.org ", "  Two  Spaces  "),
    (" leading@example.org", " Leading"),
    ("[brackets]@example.org", "[x] <b>Bold</b> & Co"),
    ("paren(thesis)@example.org", "Pat (home)"),
    ("close)paren@example.org", "Smile :)"),
    ("open(paren@example.org", "Sad :("),
    ("tab\tstop@example.org", "Tab\tStop"),
    ("line\r\nend@example.org", "Line\r\nEnd"),
    ("müller@example.org", "Jürgen Müller"),
    ("ΣΊΣΥΦΟΣ@example.org", "ΣΊΣΥΦΟΣ Σίσυφος"),
    ("жанна@example.org", "Жанна Иванова"),
    ("山田@example.org", "山田 太郎"),
    ("مريم@example.org", "مريم"),
    ("zoë\u0308@example.org", "Zoe\u0308 combining"),
    ("emoji@example.org", "👩‍👩‍👧 Family 😀"),
    ("dž@example.org", "ǅungla ßtraße ŉ"),
    ("\ufeffmark@example.org", "\ufeffMark"),
    ("hotmail@example.org", "Hotmail"),
    ("HOTMAIL@example.org", "HOTMAIL"),
    ("percent%PATH%@example.org", "100% %HOME% %a"),
    ("x" * 300 + "@example.org", "Long" * 80),
    ("noname@example.org", ""),
]
# A record without an address is a free place: from then on nobody new enters the list.
NOBODY = ("", "Nobody")

TEXTS = [
    "hello", "see you @ 8", "brb", "lol", "how r u?", ":-) :-( ;-)", "BRB afk", "gr8 2day",
    "<b>bold</b>", "a < b > c", "<<<>>>", "&amp; & &lt;", "</speak>", "<!-- -->", "]]>",
    "Really??? Yes!!! No... --- ***", "!!!!!!!!!!", "\"\"quoted\"\"", "  spaces  ", " ! ", "!!  !!",
    "/talk wake up", "/TALK", "/Talkative people", "/tal", " /talk", "/talk\r",
    "\r", "\rafter the line end", "two\r\nlines", "\n", "", " ", "\t", "=", "=b", "%a", "%a %a",
    "Großschreibung", "Σίσυφος", "日本語のテキスト", "😀😀😀", "e\u0301\u0301", "C:\\x\\..\\y",
    "http://brenwick.example/?a=b&c=d", "1.234,56", "A" * 200,
]
MAIL = [
    "Inbox-Unread: 0\r\nFolders-Unread: 0\r\n", "Inbox-Unread: 1\r\n", "INBOX-UNREAD: 7\r\n",
    "inbox-unread: 32767\r\n", "From: Ann Lee\r\nSubject: x\r\n", "FROM:BigBlue\r", "From: <a@b>\r",
    "Something else",
]
# Each ends the program with a report: a count that is no number, a sender without a line end.
BAD_MAIL = ["Inbox-Unread: many\r\n", "Inbox-Unread: 32768\r\n", "INBOX-UNREAD:", "From: nobody"]

KNOWN_STATES = [0, 1, 2, 6, 10, 14, 18, 34, 50, 66, 256, 512, 768, 1024]
STRANGE_STATES = [-1, 3, 4, 5, 7, 100, 65535, 2147483647, -2147483648]

NUMBERS = ["0", "1", "7", "10", "-10", "5", "100", "50", "365"]
ODD_NUMBERS = [
    "11", "-11", "101", "366", "-1", "2.5", "3.5", "-0.5", ".5", "+3", " 4 ", "1e3", "99999",
    "-99999", "32767", "32768", "9" * 400, "0." + "0" * 400 + "1", "12abc", "--5", "½", "٣", "0x10",
]
WORDS = ["", " ", "fast", "NaN", "inf", "-", "."]

VOICES = [["Mary", "Mike"], [], ["Mary"], ["Mike", "Mary", "Mary", "Bruce", "brück", "Œuvre", ""],
          [f"Voice {i}" for i in range(200)]]
PHRASES = ["is online.", "is away.", "", " ", "<away>", "is 100% %HOME%", "ist weg!!", "= away"]
# Into a combo box; a Backspace leaves only the beginning of an entry.
KEY_STROKES = ["Mary", "mi", "d", "Español", "eng", "e\b", "X", ".", "m\b", ""]
NAMES = ["", "Jane", "Jane Doe", " J ", "<J>"]
MOMENTS = ["2004-01-10T12:00:00", "2004-01-10T23:59:58", "2003-12-31T23:59:59",
           "2004-02-28T23:59:30", "2004-12-31T12:00:00", "1999-12-31T23:59:59",
           "9999-12-31T23:59:59", "0000-01-01T00:00:00"]
COMMAND_LINES = ["", "", "", "/DEBUG", "/debug", "/DEBUG ", "/x \"y", "日本"]
WEB = [
    "silent", "error",
    {"reply": "HTTP/1.1 200 OK\r\n\r\n3.1.0.201\r\n", "afterSteps": 3},
    {"reply": "HTTP/1.1 200 OK\r\n\r\n3.1.0.200\r\n"},
    {"reply": "HTTP/1.1 404 Not Found\r\nX: y\r\n\r\n<html>4.5</html>", "afterSteps": 999},
    {"reply": "\r\n\r\n"}, {"reply": "\r\n\r\n4", "afterSteps": 1500},
    {"reply": "\r\n\r\n3.1.0.201<b>!!!"}, {"reply": "\r\n\r\n" + "9." * 3000},
]
# Each ends the program with a report: no empty line, or a number beyond all bounds.
BAD_WEB = [{"reply": "HTTP/1.1 200 OK"}, {"reply": ""}, {"reply": "\r\n\r\n99999.1.1.1"}]
ADDRESSES = ["http://brenwick.example/new", "", "file:///etc/passwd", "a b\"c", "http://ü.example"]
OS = [["", ""], ["Linux 6.1", "Build: 1"], ["  spaced  ", " x "], ["<os>", "*"]]
CALLS = ["rate", "volume", "voice"]
SPEAK_CALL = "speak"  # without it the first sentence ends the program
ANSWERS = ["Yes", "No", "OK"]

LARGEST = 2147483647
FAR = 1000000000  # twips; farther than any screen
SMALLEST = -2147483648


def hostile(rng):
    """A text that nobody would write."""
    kind = rng.randrange(4)
    if kind == 0:
        return rng.choice(TEXTS[:30]) * rng.choice([10, 100, 400])
    if kind == 1:
        return "".join(chr(rng.randrange(0x20)) for _ in range(rng.randrange(1, 20))) + "x\x7f"
    if kind == 2:
        return "".join(any_character(rng) for _ in range(rng.randrange(1, 40)))
    return rng.choice(["<", ">", "/TALK", "!", "(", ")", "\r\n", "%a", " "]) * rng.randrange(1, 500)


def any_character(rng):
    """One of any plane; surrogates are no characters."""
    while True:
        code = rng.choice([rng.randrange(0x800), rng.randrange(0x10000), rng.randrange(0x110000)])
        if not 0xD800 <= code <= 0xDFFF:
            return chr(code)


def text(rng):
    return hostile(rng) if rng.random() < 0.03 else rng.choice(TEXTS)


def contact(rng):
    chance = rng.random()
    if chance < 0.002:
        return NOBODY
    if chance < 0.006:
        return hostile(rng), hostile(rng)
    address, name = rng.choice(CONTACTS)
    return address, rng.choice(CONTACTS)[1] if chance < 0.05 else name


def state(rng):
    chance = rng.random()
    if chance < 0.4:
        return 2  # so that somebody is online
    if chance < 0.95:
        return rng.choice(KNOWN_STATES)
    return rng.choice(STRANGE_STATES + [rng.randrange(SMALLEST, LARGEST + 1)])


def number_text(rng):
    chance = rng.random()
    if chance < 0.6:
        return rng.choice(NUMBERS)
    return rng.choice(ODD_NUMBERS) if chance < 0.9 else rng.choice(WORDS)


def days_text(rng):
    """Too large a number is kept and ends later runs too, so it is seldom."""
    return rng.choice(["1", "7", "30", "365"]) if rng.random() < 0.9 else number_text(rng)
