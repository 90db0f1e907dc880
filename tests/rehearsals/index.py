#!/usr/bin/python3
"""Writes INDEX.md: what each rehearsal proves, from the first comment of its script.

usage: index.py
"""
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent
SCRIPT = "script.jsonl"
# A comment of one word and a colon tells the player something; see player/Case.cpp.
DIRECTIVE = re.compile(r"# ([a-z]+: .*|whole start)$")

HEAD = """# The rehearsals

What each case proves, made by `index.py` of the first comments of the scripts. docs/rehearsal.md tells
how a script is written, docs/adding.md how a case is added.
"""


def purpose(script):
    """The first comment of a script as one line; empty where there is none."""
    words = []
    for line in script.read_text(encoding="utf-8").splitlines():
        if not line.startswith("#") or DIRECTIVE.match(line):
            break
        words.append(line.removeprefix("#").strip())
    return " ".join(words)


def cases(root):
    """The folders of all cases, by name."""
    return sorted(script.parent for script in root.rglob(SCRIPT))


def index(root):
    lines, subject = [HEAD], None
    for case in cases(root):
        name = case.relative_to(root)
        if str(name.parent) != subject:
            subject = str(name.parent)
            lines.append("## The whole\n" if subject == "." else f"\n## {subject}\n")
        lines.append(f"- [{name.name}]({name}/{SCRIPT}): {purpose(case / SCRIPT)}")
    return "\n".join(lines) + "\n"


def main():
    (ROOT / "INDEX.md").write_text(index(ROOT), encoding="utf-8")


if __name__ == "__main__":
    main()
