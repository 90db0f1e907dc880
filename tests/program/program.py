"""The program under test, started as a user or the desktop starts it."""
import os
import pathlib
import re
import shutil
import signal
import subprocess

from servers import LIMIT, Failed, await_that

STORE = "brenwick/store.ini"
CONTACTS = "Brenwick/Brenwick.Lst"
AUTOSTART = "autostart/brenwick.desktop"
STARTED = "Startup - Completed"


def stored(desktop, name):
    """A value of the store as the file writes it, such as "1" in its quotes; None without one."""
    file = desktop.config / STORE
    text = file.read_text(encoding="utf-8") if file.exists() else ""
    found = re.search(rf"^{re.escape(name)} = (.*)$", text, re.MULTILINE)
    return found[1] if found else None


def write_store(desktop, settings):
    """Writes the settings: texts, and numbers that are stored as such, by key and name."""
    file = desktop.config / STORE
    file.parent.mkdir(mode=0o700, parents=True, exist_ok=True)
    lines = []
    for key, values in settings.items():
        lines.append(f"[Software\\Brenwick{key and chr(92)}{key}]")
        lines += [f"{name} = dword:{value}" if isinstance(value, int) else f'{name} = "{value}"'
                  for name, value in values.items()]
    file.write_text("\n".join(lines) + "\n", encoding="utf-8")


def debug_log(desktop):
    logs = sorted((desktop.documents / "Brenwick/DebugLogs").glob("*.log"))
    return "".join(log.read_text(encoding="utf-8") for log in logs)


def with_engine(desktop, file, script):
    """The program once more, with a shell script in the place of its engine. The script may use the
    engine by the name of ENGINE."""
    built = pathlib.Path(file).parent
    folder = desktop.folder / "built"
    folder.mkdir()
    (folder / "program").symlink_to(built / "program")
    engine = folder / "brenwick-voice"
    engine.write_text(f'#!/bin/sh\nENGINE="{built / engine.name}"\n{script}\n', encoding="utf-8")
    engine.chmod(0o755)
    return shutil.copy(file, folder)


class Program:
    """One run of the program."""

    def __init__(self, desktop, file, arguments=()):
        self.desktop = desktop
        self.completed = debug_log(desktop).count(STARTED)
        self.server = desktop.start([file, *arguments], stdout=subprocess.PIPE)
        # Its words are for this run alone.
        self.words = self.server.log
        self.before = self.words.stat().st_size
        self.process = self.server.process
        self.pid = self.process.pid

    def await_started(self):
        def started():
            if self.process.poll() is not None:
                raise Failed(f"the program ended with {self.process.returncode} instead of "
                             f"starting: {self.errors()}")
            return debug_log(self.desktop).count(STARTED) > self.completed
        await_that(started, "the end of the start", self.errors)

    def errors(self):
        """What the program said on its error output."""
        with open(self.words, "rb") as file:
            file.seek(self.before)
            return file.read().decode("utf-8", "replace")

    def await_end(self):
        """The exit status."""
        try:
            return self.process.wait(LIMIT)
        except subprocess.TimeoutExpired:
            raise Failed(f"the program has not ended within {LIMIT} seconds") from None

    def signal(self, number):
        self.process.send_signal(number)

    def runs(self):
        return self.process.poll() is None

    def engines(self):
        """The processes of the speech engine that it has started."""
        tasks = pathlib.Path(f"/proc/{self.pid}/task").glob("*/children")
        children = [int(child) for task in tasks
                    for child in task.read_text(encoding="utf-8").split()]
        return [child for child in children
                if os.readlink(f"/proc/{child}/exe").endswith("/brenwick-voice")]

    def put_away(self):
        """At the end of a test; what a program says at its end counts as well."""
        if self.runs():
            self.signal(signal.SIGTERM)
            self.await_end()
        self.process.stdout.close()
