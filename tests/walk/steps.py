"""Single random steps, one function a verb."""
import values
from form import CONTACT_LISTS, DAYS, LEFT_BUTTON_UP, LEFT_DOUBLE_CLICK, NUMBER_BOXES
from form import PAGES, RIGHT_BUTTON_UP, SPACE

# Both are slow or final, so that a step picks them seldom.
SELDOM_CLICKED = {"mPopExit", "cmdUpdate"}
TRAY_MESSAGES = [LEFT_BUTTON_UP, LEFT_DOUBLE_CLICK, *[RIGHT_BUTTON_UP] * 3, 512, 0, -1,
                 values.LARGEST, values.SMALLEST]
KEYS = [SPACE, SPACE, 8, 13, 46, 65, 109, 0, 0x10FFFF, -1, values.LARGEST, values.SMALLEST]
WAITS = [0, 1, 999, 1000, 3000, 59999, 60000, 120000]
DAY = 24 * 60 * 60 * 1000


class Steps:
    def __init__(self, rng, controls, events):
        self.rng = rng
        self.events = events
        self.by_kind = {}
        for control in controls:
            self.by_kind.setdefault(control.kind, []).append(control)
        self.weights = {
            "message": 14, "contact_state": 10, "other_event": 7, "click": 18, "type": 8,
            "leave": 4, "select": 9, "double_click": 4, "key": 3, "key_down": 1, "arrow": 2,
            "tray": 4, "hot_key": 4, "window": 3, "wait": 4, "show": 6, "world": 6, "start": 3,
            "close": 0.1,
        }

    def step(self):
        verb = self.rng.choices(list(self.weights), self.weights.values())[0]
        return getattr(self, verb)()

    def any_of(self, verb, *kinds):
        """The verb with a control of one of these kinds, or with an element of an array."""
        return self.with_index(verb, self.rng.choice(
            [control for kind in kinds for control in self.by_kind[kind]]))

    def named(self, verb, name):
        """The verb with the control of that name."""
        return self.with_index(verb, next(control for kind in self.by_kind.values()
                                          for control in kind if control.name == name))

    def with_index(self, verb, control):
        return {verb: control.name, **self.rng.choice(control.targets())}

    def message(self):
        chance = self.rng.random()
        if chance < 0.05:
            return self.mail(values.MAIL if chance < 0.048 else values.BAD_MAIL)
        address, name = values.contact(self.rng)
        step = {"raise": "OnTextReceived", "email": address, "name": name,
                "header": "MIME-Version: 1.0", "text": values.text(self.rng)}
        if self.rng.random() < 0.05:
            step.pop(self.rng.choice(["email", "name", "header", "text"]))
        return step

    def mail(self, notices):
        return {"raise": "OnTextReceived", "email": "hotmail@example.org",
                "name": self.rng.choice(["Hotmail", "HOTMAIL"]), "text": self.rng.choice(notices)}

    def contact_state(self):
        address, name = values.contact(self.rng)
        return {"raise": "OnUserStateChanged", "email": address, "name": name,
                "state": values.state(self.rng)}

    def other_event(self):
        event = self.rng.choice(list(self.events) + ["OnLocalStateChangeResult"] * 12 +
                                ["OnNewerClientAvailable"] * 3 + ["OnAppInviteReceived"] * 5)
        step = {"raise": event}
        for member in self.events[event]:
            step[member] = self.event_member(member)
        return step

    def event_member(self, member):
        if member == "state":
            return values.state(self.rng)
        if member == "email":
            return values.contact(self.rng)[0]
        if member == "name":
            return values.contact(self.rng)[1]
        return self.rng.choice(values.ADDRESSES) if member == "address" else values.text(self.rng)

    def click(self):
        step = self.any_of("click", "CheckBox", "CheckBox", "OptionButton", "Button", "MenuItem",
                           "MenuItemArray")
        if step["click"] in SELDOM_CLICKED and self.rng.random() < 0.8:
            return self.click()
        return step

    def arrow(self):
        return self.any_of("arrow", "OptionButton")

    def type(self):
        step = self.any_of("type", "TextBox", "TextBox", "ComboBox")
        if self.rng.random() < 0.3:
            step = {"type": self.rng.choice(NUMBER_BOXES)}
        return {**step, "text": self.typed(step["type"])}

    def typed(self, box):
        if box in DAYS:
            return values.days_text(self.rng)
        return values.number_text(self.rng) if box in NUMBER_BOXES else self.phrase(box)

    def phrase(self, box):
        if box.startswith("cmb"):
            return self.rng.choice(values.KEY_STROKES)
        return self.rng.choice(values.PHRASES) if self.rng.random() < 0.8 else values.text(self.rng)

    def leave(self):
        if self.rng.random() < 0.3:
            return {"leave": self.rng.choice(NUMBER_BOXES)}
        return self.any_of("leave", "TextBox", "ComboBox")

    def select(self):
        index = self.rng.choice([-1, 0, 1, 2, 5, 9, self.rng.randrange(30), values.LARGEST,
                                 values.SMALLEST])
        if self.rng.random() < 0.4:
            page = self.rng.choice([*CONTACT_LISTS.values(), self.rng.randrange(len(PAGES))])
            return {"select": "lstMenu", "index": page}
        return {**self.any_of("select", "ListBox", "ComboBox"), "index": index}

    def double_click(self):
        return self.any_of("dblclick", "ListBox")

    def key(self):
        return {**self.any_of("key", "ListBox", "ComboBox"), "code": self.rng.choice(KEYS)}

    def key_down(self):
        return {**self.any_of("keydown", "ComboBox", "TextBox"), "code": self.rng.choice(KEYS)}

    def tray(self):
        return {"tray": self.rng.choice(TRAY_MESSAGES)}

    def hot_key(self):
        return self.any_of("hotkey", "HotKeyControl")

    def window(self):
        edge = self.rng.choice([0, 15, 300, 1500, -1, -300, values.FAR, values.SMALLEST])
        return {"window": self.rng.choice(["minimize", "restore", {"move": [edge, 600]},
                                           {"move": [600, edge]}])}

    def wait(self):
        chance = self.rng.random()
        if chance < 0.9:
            return {"wait": self.rng.choice(WAITS)}
        return {"wait": DAY if chance < 0.995 else values.LARGEST}

    def show(self):
        if self.rng.random() < 0.2:
            return {"show": self.rng.choice(["store", "window"])}
        return self.any_of("show", *self.by_kind)

    def start(self):
        return {"start": self.rng.choice(values.COMMAND_LINES)}

    def close(self):
        return {"close": True}

    def world(self):
        choice = self.rng.choice
        members = {
            "now": lambda: choice(values.MOMENTS),
            "voices": lambda: choice(values.VOICES),
            "myStatus": lambda: values.state(self.rng),
            "myName": lambda: choice(values.NAMES),
            "development": lambda: self.rng.random() < 0.3,
            "previousInstance": lambda: self.rng.random() < 0.05,
            "answers": lambda: [choice(values.ANSWERS) for _ in range(self.rng.randrange(5))],
            "os": lambda: choice(values.OS),
            "refuse": lambda: [call for call in values.CALLS if self.rng.random() < 0.2],
            "web": lambda: choice(values.WEB),
        }
        names = self.rng.sample(list(members), self.rng.choice([1, 1, 1, 2, 4]))
        return {"world": {name: members[name]() for name in names}}
