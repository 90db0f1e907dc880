"""Whether a walk failed: by its process, by its transcript, or by the files it left behind."""
import json
import re

from judge import Complaint, Verdict, judge
from rules_contacts import look_at_file

SANITIZER = re.compile(r"ERROR: (\w+Sanitizer: [\w-]+)|(runtime error): ")
OWN_FRAME = re.compile(r"#\d+ \S+ in (brenwick::[\w:~]+)")
DATA_FOLDER = {"Abbreviations.Txt", "Brenwick.Lst", "Conversations", "DebugLogs", "MkDebug.Tmp"}

# Exit statuses of the tool.
DONE, WRONG, EXCEPTION = 0, 2, 3


def failure_of(played, steps):
    """The verdict, and the complaint that makes it a failure, or None."""
    complaint = of_process(played)
    if complaint and played.status != WRONG:
        return Verdict(), complaint
    # A step that cannot be carried out may only follow from what went wrong before.
    verdict = judge(steps[:last_step(played)] if complaint else steps, played.lines)
    return verdict, verdict.complaint or complaint or of_files(played)


def of_process(played):
    step = last_step(played)
    if played.status is None:
        return Complaint("hang", f"not done after {played.seconds:.0f} s", step)
    found = SANITIZER.search(played.errors)
    if found:
        frame = OWN_FRAME.search(played.errors, found.end())
        where = " in " + frame[1] if frame else ""
        return Complaint((found[1] or found[2]) + where, played.errors)
    if played.status == EXCEPTION:
        return Complaint("exception", played.errors, step)
    if played.status != DONE:
        return Complaint(f"exit status {played.status}", played.errors, step)
    return Complaint("standard error", played.errors) if played.errors else None


def of_files(played):
    if played.contacts is not None:
        wrong = look_at_file(played.contacts)
        if wrong:
            return Complaint("contact list", wrong)
    unknown = set(played.files) - DATA_FOLDER
    return Complaint("data folder", f"it holds {sorted(unknown)}") if unknown else None


def last_step(played):
    """The number of the last step that the transcript has, 0 for none."""
    for line in reversed(played.lines):
        if line.startswith('{"step":') and line.endswith("}"):
            return json.loads(line)["step"]
    return 0
