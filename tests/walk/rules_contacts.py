"""The contacts: the menu that lists them, the pages, the file."""
from form import CONTACT_LISTS, RIGHT_BUTTON_UP, SORT_OPTIONS
from rules_life import Rule

MENU = ["mnuMute", "mnuSeparator", "mnuBuddies", "mPopRestore", "mPopExit"]

# The lines of a record in the contact list file, and what the last four may hold.
FIELDS = 7
GENDERS = {"M", "F", "?"}
FLAGS = {"", "True", "False"}
STATES = {str(code) for code in range(15)}


class TrayMenu(Rule):
    """The right button brings up the whole menu, after the window came to the front."""

    def look(self, step):
        wanted = step.alive and step.verb == "tray" and step.target == RIGHT_BUTTON_UP
        popups = step.all("popup")
        if len(popups) != (wanted and not step.has("ended")):
            yield f"{len(popups)} menus"
        for popup in popups:
            if {"window": "foreground"} not in step.effects[:step.effects.index(popup)]:
                yield "the menu came before the window"
            if [item["name"] for item in popup["items"]] != MENU:
                yield f"the menu is {popup['items']}"
            if self.world.muted is not None and popup["items"][0]["checked"] != self.world.muted:
                yield "the menu does not know whether the program is muted"


class Conversations(Rule):
    """A click on a contact opens a conversation when the menu said that they are online."""

    def __init__(self, world):
        super().__init__(world)
        self.items = {}

    def look(self, step):
        if step.starts():
            self.items = {0: {"enabled": True, "checked": False}}
        for popup in step.all("popup"):
            items = popup["items"][2].get("items", [])
            yield from self.look_at_items(items)
            self.items = dict(enumerate(items))
        if step.alive and step.clicks("mnuBuddiesOnLine"):
            yield from self.look_at_click(step, self.items.get(step.step["index"]))
        elif step.has("conversation"):
            yield "a conversation that nobody asked for"

    def look_at_items(self, items):
        if [item["index"] for item in items] != list(range(max(len(items), len(self.items)))):
            yield f"the contacts in the menu are numbered {[item['index'] for item in items]}"
        for item in items:
            if item["checked"] and not item["enabled"]:
                yield f"a contact who is online cannot be chosen: {item}"

    def look_at_click(self, step, item):
        if item is None:
            yield "a click on a contact who is not in the menu"
        elif not item["enabled"]:
            if step.effects:
                yield "a contact who cannot be chosen was"
        elif not item["checked"]:
            if step.effects != [{"beep": True}]:
                yield f"a contact who is not online, and no beep: {item}"
        elif not opens(step, item):
            yield f"the conversation is not with {item['caption']!r}"


def opens(step, item):
    """With the contact of the item, or with the free place that a deleted one leaves."""
    if [next(iter(effect)) for effect in step.effects] != ["conversation"]:
        return False
    address = step.effects[0]["conversation"]
    return address == "" or item["caption"].endswith(f"  ({address})")


class SayAgain(Rule):
    """The activate hotkey, pressed again, says everybody whom the menu has as online."""

    CHANGES = ("raise", "close", "start", "wait", "dblclick", "key", "click")

    def __init__(self, world):
        super().__init__(world)
        self.pressed = False  # and no time has gone by
        self.online = None  # how many; None: not known

    def look(self, step):
        if step.starts() or step.verb == "wait":
            self.pressed = False
        if step.verb in self.CHANGES:
            self.online = None
        for popup in step.all("popup"):
            self.online = [i["checked"] for i in popup["items"][2].get("items", [])].count(True)
        if not step.alive or not step.presses("ocxHotKeyActivateBW"):
            return
        count, most = len(step.sentences()), self.most()
        silent = not self.pressed and count == 0  # it may have been the first time
        if most not in (None, count) and not silent and not step.has("ended"):
            yield f"{count} sentences instead of {most}"
        self.pressed = True

    def most(self):
        """One sentence says that nobody is online, or that the user is not."""
        if self.online is None:
            return None
        return max(1, self.online) if self.world.online else 1


class Ignored(Rule):
    """Once all contacts are ignored, nothing of theirs is said."""

    ENDS = ("close", "start", "dblclick", "key")

    def __init__(self, world):
        super().__init__(world)
        self.listed = set()  # addresses that are in the list beyond doubt
        self.free_place = False  # a deleted contact's, where nobody knows who comes next
        self.ignored = set()

    def look(self, step):
        if step.starts():
            self.listed, self.free_place, self.ignored = set(), False, set()
        if not step.alive:
            return
        if step.verb in self.ENDS or step.clicks("cmdClearAll", "cmdBuddyNamesOK",
                                                 "cmdBuddyNamesDelete"):
            self.ignored = set()
        self.free_place = self.free_place or step.clicks("cmdBuddyNamesDelete")
        if step.clicks("cmdBuddyNamesDelete"):
            self.listed = set()
        if step.clicks("cmdSelectAll"):
            self.ignored = set(self.listed)
        if step.raises("OnTextReceived", "OnUserStateChanged", "OnUserStateFound"):
            yield from self.look_at_event(step)

    def look_at_event(self, step):
        address = step.step.get("email", "")
        notice = step.step.get("name", "").upper() == "HOTMAIL" and "text" in step.step
        if address in self.ignored and step.sentences() and not notice:
            yield f"{address} is ignored, and something was said"
        if step.raises("OnUserStateChanged", "OnUserStateFound"):
            self.free_place = self.free_place or address == ""
            if not self.free_place:
                self.listed.add(address)


class Lasting(Rule):
    """The contacts of a program that ends are those of its next start."""

    def __init__(self, world):
        super().__init__(world)
        self.fresh = False  # the list was just built anew
        self.kept = None  # its lines; None: not known

    def look(self, step):
        if step.verb == "show":
            if self.fresh and step.target == "lstBuddyNames":
                lines = sorted(without_line_ends(line) for line in step.effects[0]["items"])
                if self.kept not in (None, lines):
                    yield f"the contacts were {self.kept} and are {lines}"
                self.kept = lines
        else:
            self.fresh = step.alive and step.verb == "click" and step.target in SORT_OPTIONS
            restarts = step.verb == "close" or step.starts() and step.runs_after()
            if not (self.fresh or restarts or step.verb == "world"):
                self.kept = None


def without_line_ends(text):
    """As the file keeps it, where a line end would end the field."""
    return text.replace("\r", " ").replace("\n", " ")


class Pages(Rule):
    """Each line of a page has its four cells, the last with the address, in order."""

    def look(self, step):
        if step.verb != "show" or step.target not in CONTACT_LISTS:
            return
        lines = step.effects[0]["items"]
        for line in lines:
            if line.count("\t") < 4 or not line.endswith(")\t") or "\t(" not in line:
                yield f"a line is {line!r}"
        for a, b in zip(lines, lines[1:]):
            # Only of these is the order beyond doubt here.
            if a.isascii() and b.isascii() and a.upper() > b.upper():
                yield f"{a!r} stands before {b!r}"


def look_at_file(content):
    """What is wrong with a contact list file, or None."""
    try:
        text = content.decode("utf-8")
    except UnicodeDecodeError as error:
        return f"the contact list is not UTF-8: {error}"
    lines = text.removeprefix("\ufeff").split("\r\n")
    if lines.pop() != "" or len(lines) % FIELDS != 0 or any("\n" in line for line in lines):
        return "the contact list is not made of whole records"
    for first in range(0, len(lines), FIELDS):
        wrong = look_at_record(*lines[first:first + FIELDS])
        if wrong:
            return f"{wrong}: {lines[first:first + FIELDS]}"
    return None


def look_at_record(address, _name, own_name, gender, ignored, state, has_own_name):
    if not address:
        return "a contact without an address"
    if gender not in GENDERS or ignored not in FLAGS or has_own_name not in FLAGS:
        return "an unknown gender or flag"
    if state not in STATES:
        return "an unknown state"
    if own_name and has_own_name != "True":
        return "an own name that is not marked"
    return None


CONTACTS = [TrayMenu, Conversations, SayAgain, Ignored, Lasting, Pages]
