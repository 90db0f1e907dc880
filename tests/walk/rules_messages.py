"""What a message and a contact's state are said as."""
from form import SENTENCE_CONTROLS
from program import abbreviations
from rules_shown import ShownRule, cleaned

ONLINE = 2


class Sentences(ShownRule):
    """The name, the user's words and the message, with the first abbreviation that is in them."""

    def __init__(self, world):
        super().__init__(world)
        self.abbreviations = abbreviations()

    def look_after(self, step):
        said = [sentence["speak"] for sentence in step.sentences()]
        wanted = self.sentence_for(step.step)
        if said and wanted is not None and said != [self.finished(wanted)]:
            yield f"{said[0]!r} was said instead of {self.finished(wanted)!r}"

    def sentence_for(self, event):
        """None where the controls that decide were not all shown, or where not all letters of the
        name are the simple ones."""
        shown = [self.control(name) for name in SENTENCE_CONTROLS]
        name = event.get("name", "")
        if not all(shown) or self.ticked("chkUseMyNamesInsteadOfBuddyNames") or not is_simple(name):
            return None
        if event.get("raise") == "OnTextReceived" and name.upper() != "HOTMAIL":
            return self.message(name, event.get("text", ""))
        if event.get("raise") == "OnUserStateChanged" and event.get("state") == ONLINE:
            return f'{calmed(self.name(name))} {self.text("txtOnline")}'
        return None

    def message(self, name, text):
        words = text[5:] if text[:5].upper() == "/TALK" else text
        if not self.ticked("chkIntroduceUser"):
            return words
        return f'{self.name(name)} {self.text("txtSays")} {words}'

    def name(self, name):
        return split_capitals(name.split(" ")[0] if self.ticked("chkFirstName") else name)

    def ticked(self, name):
        return self.control(name)["value"] == 1

    def text(self, name):
        return self.control(name)["text"]

    def finished(self, sentence):
        for short, long in self.abbreviations:
            if short in sentence:
                return cleaned(sentence.replace(short, long, 1))
        return cleaned(sentence)


def is_simple(name):
    """Whether each letter has one counterpart in the other case, which everybody agrees on."""
    return all(character < "\u0500" and len(character.upper()) == len(character.lower()) == 1
               for character in name)


def split_capitals(name):
    """A space before each capital, but for names that are all capitals or have no letters."""
    if name == name.upper():
        return name
    result, previous = "", ""
    for character in name.strip(" "):
        if character.lower() != character and previous != " ":
            result += " "
        result += character
        previous = character
    return result


def calmed(name):
    """A shouted name with only its words' first letters large."""
    if name != name.upper():
        return name
    # Letter by letter: at the end of a word one of them would have a form of its own.
    return " ".join(word[:1] + "".join(letter.lower() for letter in word[1:])
                    for word in name.split(" "))


MESSAGES = [Sentences]
