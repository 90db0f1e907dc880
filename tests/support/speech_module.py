#!/usr/bin/python3
"""An engine of speech-dispatcher that writes down what it should say, and does what the text says.

Its configuration file names the folder for its files: `voices` holds its voices, one a line, and
`said` is where it writes to. "[hold]" in a text is said until somebody stops it, "[hold once]" only
the first time, and at "[die]" the engine dies. "[mute]" is neither begun nor ended, and "[deaf]" is
held and not stopped.
"""

import os
import re
import sys
import xml.sax.saxutils

folder = open(sys.argv[1], encoding="utf-8").read().strip()


def put(*lines):
    sys.stdout.write("".join(line + "\n" for line in lines))
    sys.stdout.flush()


def note(line):
    descriptor = os.open(folder + "/said", os.O_WRONLY | os.O_APPEND | os.O_CREAT, 0o600)
    os.write(descriptor, (line + "\n").encode("utf-8"))
    os.close(descriptor)


def block():
    lines = []
    for line in sys.stdin:
        if line == ".\n":
            return lines
        lines.append(line.rstrip("\n").removeprefix(".") if line.startswith("..") else line.rstrip("\n"))
    sys.exit()


def held_once():
    try:
        os.close(os.open(folder + "/held", os.O_CREAT | os.O_EXCL))
        return True
    except FileExistsError:
        return False


class Engine:
    settings: dict = {}
    holding = False

    def say(self):
        text = xml.sax.saxutils.unescape(re.sub("<[^>]*>", "", "\n".join(block())))
        put("200 OK SPEAKING", *(["701 BEGIN"] if "[mute]" not in text else []))
        used = [self.settings.get(name, "") for name in ("synthesis_voice", "rate", "volume")]
        note("|".join([*used, text]))
        if "[die]" in text:
            os.remove(folder + "/module.pid")
            os._exit(1)
        self.holding = "[hold]" in text or ("[hold once]" in text and held_once())
        if not self.holding and "[mute]" not in text and "[deaf]" not in text:
            put("702 END")

    def obey(self, command):
        if command == "INIT":
            put("299-ready", "299 OK LOADED SUCCESSFULLY")
        elif command in ("AUDIO", "LOGLEVEL"):
            put("207 OK RECEIVING")
            block()
            put("203 OK SET")
        elif command == "SET":
            put("203 OK RECEIVING SETTINGS")
            self.settings.update(line.split("=", 1) for line in block())
            put("203 OK SETTINGS RECEIVED")
        elif command == "LIST VOICES":
            with open(folder + "/voices", encoding="utf-8") as voices:
                put(*("200-" + line.rstrip("\n") for line in voices), "200 OK VOICE LIST SENT")
        elif command in ("SPEAK", "CHAR", "KEY"):
            put("202 OK RECEIVING MESSAGE")
            self.say()
        elif command == "STOP":
            if self.holding:
                note("stopped")
                put("703 STOP")
            self.holding = False
        elif command == "QUIT":
            put("210 OK QUIT")
            sys.exit()
        else:
            put("300 ERR UNKNOWN COMMAND")


with open(folder + "/module.pid.new", "w", encoding="utf-8") as mine:
    mine.write(str(os.getpid()))
os.rename(folder + "/module.pid.new", folder + "/module.pid")
engine = Engine()
for line in iter(sys.stdin.readline, ""):
    engine.obey(line.rstrip("\n"))
