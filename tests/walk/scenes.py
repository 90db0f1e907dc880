"""Steps that belong together: what no single random step would bring about."""
import values
from form import CONTACT_LISTS, ENABLED_BY, FRAME_COUNT, GROUPS, NUMBER_BOXES, PAGES, SPACE
from form import KEPT_OPTIONS, KEPT_TEXTS, RIGHT_BUTTON_UP, SENTENCE_CONTROLS
from form import SORT_OPTIONS

ANOTHER_START = {"previousInstance": False, "refuse": [], "web": "silent"}


class Scenes:
    def __init__(self, steps):
        self.steps = steps
        self.rng = steps.rng
        # Those with a start in them are seldom: starts and ends take half the time even so.
        self.weights = {
            "open_contact": 6, "edit_contact": 4, "leave_number": 4, "say_again": 2,
            "test_voice": 2, "hear": 6, "look_at_boxes": 2, "look_at_pages": 1, "debug_off": 1,
            "ignore_all": 1, "version_check": 1, "buddies_menu": 0.8, "restart": 0.4,
            "restart_with_settings": 0.8, "restart_with_contacts": 0.4, "languages": 0.4,
            "bad_days": 0.3, "bad_mail": 0.2, "silent_engine": 0.2, "second_instance": 0.2,
        }

    def scene(self):
        name = self.rng.choices(list(self.weights), self.weights.values())[0]
        return getattr(self, name)()

    def page_of_contacts(self, name):
        return [{"select": "lstMenu", "index": CONTACT_LISTS[name]},
                {"select": name, "index": self.rng.randrange(12)}]

    def open_contact(self):
        """A line of a list opened, by mouse or by keyboard."""
        name = self.rng.choice(list(CONTACT_LISTS))
        opened = self.rng.choice([{"dblclick": name}, {"key": name, "code": SPACE}])
        return self.page_of_contacts(name) + [opened] * self.rng.choice([1, 2])

    def edit_contact(self):
        own_name = self.rng.choice(["Mum", "", " Boss ", values.contact(self.rng)[1]])
        end = self.rng.choices(["cmdBuddyNamesOK", "cmdBuddyNamesCancel", "cmdBuddyNamesDelete"],
                               [10, 3, 1])[0]
        gender = self.rng.choice(["optBuddyNamesMale", "optBuddyNamesFemale"])
        return self.page_of_contacts("lstBuddyNames") + [
            {"dblclick": "lstBuddyNames"},
            {"type": "txtBuddyNamesFriendlyName", "text": own_name},
            {"click": gender}, {"click": end}]

    def buddies_menu(self):
        """The menu of contacts after a start, with as many of its items as there must be."""
        people = self.rng.sample(values.CONTACTS, self.rng.randrange(1, 12))
        events = ["OnUserStateChanged", "OnUserStateFound"]
        states = [{"raise": self.rng.choice(events), "email": address, "name": name,
                   "state": values.state(self.rng)} for address, name in people]
        clicks = [{"click": "mnuBuddiesOnLine", "index": self.rng.randrange(len(people))}
                  for _ in range(4)]
        return [{"close": True}, {"world": ANOTHER_START}, self.steps.start(), *states,
                {"tray": RIGHT_BUTTON_UP}, *clicks]

    def restart(self):
        """What is stored outlasts the program."""
        return [self.rng.choice([{"close": True}, {"click": "mPopExit"}]), {"show": "store"},
                {"world": ANOTHER_START}, self.steps.start(), {"show": "store"}, {"close": True},
                {"show": "store"}, self.steps.start()]

    def restart_with_settings(self):
        """What is typed and chosen outlasts the program, too."""
        typed = self.rng.sample(list(KEPT_TEXTS), 3)
        boxes = [control.name for control in self.steps.by_kind["CheckBox"]]
        shown = [{"show": name} for name in
                 typed + boxes + self.rng.sample(KEPT_OPTIONS, 3)]
        return [{"type": name, "text": self.steps.typed(name)} for name in typed] + [
            *shown, {"close": True}, {"world": ANOTHER_START}, self.steps.start(), *shown]

    def restart_with_contacts(self):
        look = [{"click": self.rng.choice(SORT_OPTIONS)}, {"show": "lstBuddyNames"}]
        return look + [{"close": True}, {"world": ANOTHER_START}, self.steps.start()] + look

    def version_check(self):
        bad = self.rng.random() < 0.1
        web = self.rng.choice(values.BAD_WEB if bad else values.WEB)
        check = [{"world": {"web": web, "answers": [self.rng.choice(values.ANSWERS)] * 2}},
                 {"click": "cmdUpdate"}, {"show": "txtWebVersion"}]
        return check + ([{"world": {"web": "silent"}}, self.steps.start()] if bad else [])

    def bad_days(self):
        box = self.rng.choice(["Conversations", "Debug"])
        name = f"txtLog{box}DaysToKeep"
        return [{"type": name, "text": self.rng.choice(values.WORDS)}, {"leave": name},
                self.steps.start(), {"type": name, "text": "7"}]

    def bad_mail(self):
        return [self.steps.mail(values.BAD_MAIL), self.steps.start()]

    def silent_engine(self):
        """An engine that cannot speak: the first sentence is the program's last."""
        return [{"world": {"refuse": [values.SPEAK_CALL]}}, self.steps.message(),
                self.steps.hot_key(), {"world": {"refuse": []}}, self.steps.start()]

    def second_instance(self):
        return [{"world": {"previousInstance": True}}, {"close": True}, self.steps.start(),
                {"world": {"previousInstance": False}}, self.steps.start()]

    def say_again(self):
        key = {"hotkey": "ocxHotKeyActivateBW"}
        between = self.rng.choice([{"tray": RIGHT_BUTTON_UP}, {"wait": 500}, {"wait": 5000}])
        return [key, between, key]

    def ignore_all(self):
        people = [self.rng.choice(values.CONTACTS) for _ in range(4)]
        events = [{"raise": "OnUserStateChanged", "email": address, "name": name, "state": state}
                  for state in (1, 2) for address, name in people]
        messages = [{"raise": "OnTextReceived", "email": address, "name": name,
                     "text": self.rng.choice(["hello", "/talk hello"])} for address, name in people]
        return events[:4] + [{"click": "cmdSelectAll"}] + messages + events[4:] + [
            {"click": "cmdClearAll"}]

    def test_voice(self):
        gender = self.rng.choice(["Male", "Female"])
        boxes = [f"txtTalkSpeed{gender}", f"txtTalkVolume{gender}", "txtIntroductionText"]
        typed = [{"type": box, "text": self.steps.typed(box)} for box in boxes]
        return typed + [{"show": box} for box in boxes] + [{"click": f"cmdSpeedTest{gender}"}]

    def hear(self):
        """A message or a state, with all that decides how it is said."""
        boxes = ["chkIntroduceUser", "chkFirstName", "chkNotifyUserState", "chkDoNotSpeakMessage"]
        address, name = self.rng.choice(values.CONTACTS)
        words = " ".join(self.rng.choice(values.TEXTS) for _ in range(self.rng.choice([1, 2, 3])))
        event = self.rng.choice([
            {"raise": "OnTextReceived", "email": address, "name": name, "text": words},
            {"raise": "OnUserStateChanged", "email": address, "name": name, "state": 2}])
        return [{"raise": "OnLocalStateChangeResult", "state": 2}, {"world": {"answers": ["Yes"]}},
                {"click": "cmdDefaults", "index": 2}, {"click": self.rng.choice(boxes)},
                *[{"show": control} for control in SENTENCE_CONTROLS], event]

    def leave_number(self):
        box = self.rng.choice(NUMBER_BOXES)
        return [{"type": box, "text": self.steps.typed(box)}, {"show": box}, {"leave": box}]

    def look_at_pages(self):
        select = {"select": "lstMenu", "index": self.rng.randrange(len(PAGES))}
        frames = [{"show": "fraPage", "index": index} for index in range(FRAME_COUNT)]
        return [select, {"show": "lstMenu"}, *frames]

    def look_at_boxes(self):
        """Boxes with what they switch on, and groups of options."""
        boxes = [({"show": box}, self.steps.named("show", dependent))
                 for dependent, box in ENABLED_BY.items()]
        groups = [[{"show": option} for option in group] for group in GROUPS]
        return [step for part in self.rng.sample(boxes + groups, 3) for step in part]

    def debug_off(self):
        """A start has debugging on, whatever its box says; its box switches it off."""
        return [{"click": "chkDebug"}, {"click": "chkDebug"}]

    def languages(self):
        return [{"world": {"development": True, "previousInstance": False, "refuse": []}},
                {"close": True}, self.steps.start(),
                {"select": "cmbOrgLanguage", "index": self.rng.randrange(7)},
                {"click": "cmdOrgLanguage"},
                {"select": "cmbLanguage", "index": self.rng.randrange(7)},
                {"click": "cmdLanguage"}, {"world": {"development": False}}]
