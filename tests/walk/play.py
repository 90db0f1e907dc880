"""Plays a script with brenwick-rehearse and keeps all that it left behind."""
import dataclasses
import json
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import time

# Where flushing a file costs nothing; the program flushes what it saves at each end.
MEMORY = pathlib.Path("/dev/shm")

ENVIRONMENT = {"UBSAN_OPTIONS": "print_stacktrace=1", **os.environ, "TZ": "UTC"}


@dataclasses.dataclass
class Played:
    status: int  # of the process; None when it had to be ended
    errors: str
    lines: list  # of the transcript
    contacts: bytes = None  # the contact list file; None where there is none
    files: tuple = ()  # names in the data folder
    seconds: float = 0
    peak: int = 0  # the most memory that the process had, in KiB


def scratch():
    usable = MEMORY.is_dir() and os.access(MEMORY, os.W_OK)
    return tempfile.TemporaryDirectory(prefix="brenwick-walk-", dir=MEMORY if usable else None)


def to_lines(steps):
    return "".join(json.dumps(step, ensure_ascii=False) + "\n" for step in steps)


def play(tool, steps, timeout):
    with scratch() as name:
        folder = pathlib.Path(name)
        # The program writes languages into its folder, so it gets one of its own.
        shutil.copytree(pathlib.Path(tool).parent / "program", folder / "program")
        (folder / "script").write_text(to_lines(steps), encoding="utf-8", newline="")
        played = run(tool, folder, timeout)
        data = folder / "documents/Brenwick"
        if data.is_dir():
            played.files = tuple(sorted(path.name for path in data.iterdir()))
        if (data / "Brenwick.Lst").is_file():
            played.contacts = (data / "Brenwick.Lst").read_bytes()
        return played


def run(tool, folder, timeout):
    command = [str(tool), "--program", str(folder / "program"), "--documents",
               str(folder / "documents"), "--store", str(folder / "store.ini"),
               str(folder / "script")]
    begin = time.monotonic()
    with open(folder / "out", "wb") as out, open(folder / "errors", "wb") as errors:
        process = subprocess.Popen(command, stdout=out, stderr=errors,
                                   env=ENVIRONMENT)
        status, peak = wait_for(process, begin + timeout)
    text = (folder / "out").read_bytes().decode("utf-8", "replace").replace(str(folder), "FOLDER")
    errors = (folder / "errors").read_bytes().decode("utf-8", "replace")
    return Played(status, errors.replace(str(folder), "FOLDER"),
                  text.removesuffix("\n").split("\n") if text else [],
                  seconds=time.monotonic() - begin, peak=peak)


def wait_for(process, end):
    """The process's exit status, None when it was not done in time, and its peak of memory."""
    peak = 0
    while process.poll() is None:
        peak = max(peak, peak_of(process))
        if time.monotonic() > end:
            process.kill()
            process.wait()
            return None, peak
        time.sleep(0.005)
    return process.returncode, peak


def peak_of(process):
    """What the system counts for a process that has ended holds what its parent had, too."""
    try:
        status = pathlib.Path(f"/proc/{process.pid}/status").read_text(encoding="ascii")
    except OSError:
        return 0
    found = re.search(r"VmHWM:\s+(\d+) kB", status)
    return int(found[1]) if found else 0
