"""What a walk can meet, read from the program's sources: controls, verbs, events, the world."""
import dataclasses
import pathlib
import re

SOURCES = pathlib.Path(__file__).resolve().parents[2] / "src"

KINDS = ("Button", "CheckBox", "ComboBox", "Frame", "HotKeyControl", "Label", "ListBox", "MenuItem",
         "MenuItemArray", "OptionButton", "TextBox", "Timer", "Winsock")


@dataclasses.dataclass(frozen=True)
class Control:
    kind: str
    name: str
    count: int = 0  # of the elements of a control array; 0 for a control of its own

    def targets(self):
        """How a script names the control, or each element of the array."""
        if self.count == 0:
            return [{}]
        return [{"index": index} for index in range(self.count)]


def read(path):
    return (SOURCES / path).read_text(encoding="utf-8")


def controls():
    """The controls of the main window. Of a menu that grows only the first item is known."""
    text = read("forms/frmMain.h")
    kind = "|".join(sorted(KINDS, key=len, reverse=True))
    single = re.findall(rf"^  ({kind}) (\w+)\{{", text, re.MULTILINE)
    arrays = re.findall(rf"^  std::array<({kind}), \w+> (\w+)\{{\{{(.*?)^  \}}\}};", text,
                        re.MULTILINE | re.DOTALL)
    found = [Control(kind, name, 1 if kind == "MenuItemArray" else 0) for kind, name in single]
    found += [Control(kind, name, body.count(f'"{name}"')) for kind, name, body in arrays]
    return found + connections(text)


def connections(text):
    """Each is shown by three controls (forms/ConnectionControls.h)."""
    kinds = re.findall(r"std::array<ConnectionControls, (\d+)> \w+\{\{\s+\{\w+\(\w+\), \"(\w+)\"", text)
    return [Control(kind, prefix + name, int(count)) for count, name in kinds
            for kind, prefix in (("Label", "lbl"), ("TextBox", "txt"), ("Button", "cmdTest"))]


def verbs():
    return set(re.findall(r'^      \{"(\w+)", \{', read("rehearsal/Script.cpp"), re.MULTILINE))


def events():
    """The events of the messenger's client, with the members that a script gives them."""
    text = read("rehearsal/MessengerScript.cpp")
    found = {name: [] for name in re.findall(r'^ +"(On\w+)",$', text, re.MULTILINE)}
    for name, members in re.findall(r'\{"(On\w+)", \{\{(.*?)\}', text):
        found[name] = re.findall(r'"(\w+)"', members)
    return found


def world_members():
    return set(re.findall(r'name == "(\w+)"', read("rehearsal/RehearsalWorld.cpp")))


def abbreviations():
    """The rows of the table that a new user gets: what is replaced, and by what."""
    text = (SOURCES.parent / "languages/Abbreviations.Txt").read_text(encoding="utf-8")
    return [line.split("=", 1) for line in text.splitlines() if line.strip(" ")]
