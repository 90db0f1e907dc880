"""Message boxes, the main window, the status window, the pointer and the tray icon."""
import re

from form import CONTACT_LISTS, LEFT_BUTTON_UP, LEFT_DOUBLE_CLICK, NUMBER_BOXES
from rules_life import Rule, is_report

TIP_LENGTH = 64
TITLES = {"Brenwick", "Spanish"}
# Where a contact is opened, and where a contact is edited.
FOCUS_OF_CONTACTS = {*CONTACT_LISTS, "txtBuddyNamesFriendlyName"}


class Boxes(Rule):
    """Each box takes one of the script's answers, and can give it."""

    def look(self, step):
        for box in step.boxes():
            answers = self.world["answers"]
            wanted = answers.pop(0) if answers else ""
            if box["buttons"] == "OK":
                wanted = "OK"
            elif wanted != "Yes":
                wanted = "No"
            if box["answer"] != wanted:
                yield f"a box was answered {box['answer']} instead of {wanted}"
            if box["icon"] not in ("critical", "question", "exclamation", "information"):
                yield f"icon {box['icon']}"
            if box["title"] not in TITLES and not is_report(box):
                yield f"a box titled {box['title']!r}"


class StatusWindow(Rule):
    """The status window is gone when a step is over."""

    def look(self, step):
        shown = step.all("status")
        if shown and shown[-1]["status"] is not None:
            yield f"the status window stays with {shown[-1]['status']!r}"


class Pointer(Rule):
    """The hourglass is gone when a step is over, unless the program is."""

    def look(self, step):
        shown = step.all("pointer")
        if shown and shown[-1]["pointer"] == "hourglass" and step.runs_after():
            yield "the hourglass stays"


class MainWindow(Rule):
    """The window is put away when it is minimized and when the program ends, and comes back."""

    def __init__(self, world):
        super().__init__(world)
        self.shown = False

    def look(self, step):
        if step.starts():
            self.shown = False
        minimized = False
        for effect in step.all("window"):
            state = effect["window"]
            minimized = state == "minimized" or minimized and state != "hidden"
            self.shown = {"shown": True, "hidden": False}.get(state, self.shown)
        if minimized:
            yield "the window was minimized and not hidden"
        if step.has("ended") and self.shown:
            yield "the program ended and its window shows"
        if self.is_restored(step) and not self.shown:
            yield "the window was called and does not show"

    @staticmethod
    def is_restored(step):
        called = step.verb == "tray" and step.target in (LEFT_BUTTON_UP, LEFT_DOUBLE_CLICK)
        return step.alive and (called or step.clicks("mPopRestore"))


class Tray(Rule):
    """The icon comes with the start and goes with the end; its tip is the caption, cut to fit."""

    def __init__(self, world):
        super().__init__(world)
        self.caption = ""
        self.there = False

    def look(self, step):
        if step.starts():
            self.caption, self.there = "", False
        for effect in step.effects if step.verb != "show" else []:
            self.caption = effect.get("caption", self.caption)
            if "tray" in effect:
                yield from self.look_at_icon(step, effect)
        if step.starts() and step.runs_after() and not self.there:
            yield "the program started without an icon"

    def look_at_icon(self, step, effect):
        if effect["tray"] == "add":
            if self.there or not step.starts():
                yield "an icon was added"
            self.there = True
        elif effect["tray"] == "modify" and not self.there:
            yield "an icon that is not there was changed"
        elif effect["tray"] == "delete" and not step.has("ended"):
            yield "the icon was taken away"
        if effect["tray"] != "delete" and effect["tip"] != self.caption[:TIP_LENGTH]:
            yield f"the tip is {effect['tip']!r}, the caption {self.caption!r}"


class Focus(Rule):
    """The focus goes back to a box with a bad number, and to what a contact was opened from."""

    def look(self, step):
        for effect in step.all("focus"):
            if effect["focus"] not in FOCUS_OF_CONTACTS and not (
                    step.verb == "leave" and step.target == effect["focus"]):
                yield f"the focus went to {effect['focus']}"
        if step.has("beep") and not step.clicks("mnuBuddiesOnLine"):
            back = {"focus": step.target}
            if step.verb != "leave" or step.target not in NUMBER_BOXES or back not in step.effects:
                yield "a beep"


class Keys(Rule):
    """The only key that the program presses is Backspace, in a combo box."""

    def look(self, step):
        for effect in step.all("sendkeys"):
            if effect["sendkeys"] != "{BACKSPACE}" or not (
                    step.verb in ("type", "key", "keydown") and step.target.startswith("cmb")):
                yield f"keys were sent: {effect['sendkeys']}"


class WindowShown(Rule):
    """The size of the window is its own, and the caption names the program."""

    def look(self, step):
        for effect in step.all("caption"):
            if step.verb != "show" and not re.search("Brenwick", effect["caption"]):
                yield f"the caption is {effect['caption']!r}"
        if step.verb == "show" and step.target == "window":
            size = (step.effects[0]["width"], step.effects[0]["height"])
            if size not in ((0, 0), (5829, 4200)):
                yield f"the window measures {size}"


SCREEN = [Boxes, StatusWindow, Pointer, MainWindow, Tray, Focus, Keys, WindowShown]
