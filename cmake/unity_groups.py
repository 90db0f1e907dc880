#!/usr/bin/python3
"""Sorts .cpp files into groups that can be compiled as one file each.

usage: unity_groups.py MOST FILE...

Prints GROUP;FILE, one a line. A group has at most MOST files, and no file of it mentions a name that
another one has for itself: in an unnamed namespace or as a macro. So every name means in the group
what it means in its own file, though a name that this reader of C++ does not see as one may still
meet another; the compiler tells.
"""
import re
import sys
from pathlib import Path

NOT_CODE = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<!\w)\'(?:\\.|[^\'\\\n])+\'', re.DOTALL)
WORD = re.compile(r"\b[A-Za-z_]\w*\b")
MACRO = re.compile(r"^\s*#\s*define\s+(\w+)", re.MULTILINE)
UNNAMED = re.compile(r"\bnamespace\s*\{")
TYPE = re.compile(r"\b(?:class|struct|enum(?:\s+class)?|union)\s+(\w+)")
ALIAS = re.compile(r"\b(?:using|namespace)\s+(\w+)\s*=")
FUNCTION = re.compile(r"(\w+)\s*\(")
VARIABLE = re.compile(r"(\w+)\s*(?:\[[^\]]*\]\s*)*$")


def top_level(text, begin):
    """The declarations of a namespace that begins there, without what stands in their braces."""
    depth = 0
    kept = []
    for letter in text[begin:]:
        if letter == "{":
            depth += 1
            kept.append("{")
        elif letter == "}":
            depth -= 1
            if depth < 0:
                break
        elif depth == 0:
            kept.append(letter)
    return re.split("[;{]", "".join(kept))


def name_of(declaration):
    for pattern in (TYPE, ALIAS):
        if match := pattern.search(declaration):
            return match.group(1)
    head = declaration.split("=")[0].strip()
    match = FUNCTION.search(head) or VARIABLE.search(head)
    return match.group(1) if match else None


def names_and_words(text):
    """The names that a file has for itself, and all words in it."""
    code = NOT_CODE.sub(" ", text)
    names = set(MACRO.findall(code))
    code = re.sub(r"^\s*#.*$", "", code, flags=re.MULTILINE)
    for match in UNNAMED.finditer(code):
        names |= {name_of(declaration) for declaration in top_level(code, match.end())}
    return names - {None}, set(WORD.findall(code))


def groups(files, most):
    """Lists of files, each put into the first group that bears it."""
    made = []
    for file in files:
        names, words = names_and_words(Path(file).read_text(encoding="utf-8"))
        for group in made:
            if len(group["files"]) < most and not (names & group["words"] or group["names"] & words):
                break
        else:
            group = {"files": [], "names": set(), "words": set()}
            made.append(group)
        group["files"].append(file)
        group["names"] |= names
        group["words"] |= words
    return [group["files"] for group in made]


def main(arguments):
    if len(arguments) < 2 or not arguments[0].isdigit():
        print(__doc__, file=sys.stderr)
        return 2
    for number, group in enumerate(groups(arguments[1:], int(arguments[0]))):
        for file in group:
            print(f"{number};{file}")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
