#!/usr/bin/python3
"""Plays a rehearsal and compares what the program did with what is expected of it.

usage: rehearse.py BRENWICK-REHEARSE SCRIPT.jsonl... [--update | --together]

Beside SCRIPT.jsonl may stand:
  SCRIPT.transcript   the expected transcript; a line "..." stands for what comes before the first
                      line that is like the next one expected, within the effects of one step
  SCRIPT.log          lines that stand together, in this order, in the debug log of the
                      rehearsal's first day, without date and time
  SCRIPT.documents/   the documents folder before the start
  SCRIPT.store        the file behind the settings before the start
  SCRIPT.after/       files that the documents folder must hold afterwards, byte for byte
  SCRIPT.program/     files put over a copy of the program folder
In transcript and log the folder of the run, which is another at each run, is called FOLDER.

--together plays all scripts in one process, which must know that option (brenwick-rehearse-view
does).

--update writes the transcript anew, with "..." for what happens during "start" unless the script
has a comment "# whole start".
"""
import argparse
import difflib
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile


# Seconds. No rehearsal takes a tenth of it; one that hangs is told as such.
TIMEOUT = 50


def beside(script, ending):
    return script.with_name(script.stem + ending)


def split_lines(text):
    """The lines between line feeds; splitlines() would also split at other characters."""
    return text.removesuffix("\n").split("\n") if text else []


def prepare(tool, script, folder):
    """Puts the files of a rehearsal in place; the arguments with which it is played."""
    folder.mkdir(exist_ok=True)
    documents = folder / "documents"
    if beside(script, ".documents").is_dir():
        shutil.copytree(beside(script, ".documents"), documents)
    if beside(script, ".store").is_file():
        shutil.copy(beside(script, ".store"), folder / "store.ini")
    arguments = ["--documents", str(documents), "--store", str(folder / "store.ini")]
    if beside(script, ".program").is_dir():
        program = folder / "program"
        shutil.copytree(pathlib.Path(tool).parent / "program", program)
        shutil.copytree(beside(script, ".program"), program, dirs_exist_ok=True)
        arguments += ["--program", str(program)]
    return arguments + [str(script)]


def run(command, name, text="", timeout=TIMEOUT):
    try:
        return subprocess.run(command, input=text.encode(), capture_output=True, check=False,
                              timeout=timeout)
    except subprocess.TimeoutExpired:
        sys.exit(f"{name}: not done after {timeout} seconds")


def transcript(script, status, text, errors):
    """The lines of a rehearsal that went well."""
    if status != 0 or errors:
        sys.exit(f"{script.name}: exit status {status}\n{errors}\n{text[-3000:]}")
    return split_lines(text)


def play(tool, script, folder):
    done = run([tool, *prepare(tool, script, folder)], script.name, timeout=TIMEOUT)
    text = done.stdout.decode("utf-8").replace(str(folder), "FOLDER")
    return transcript(script, done.returncode, text, done.stderr.decode("utf-8", "replace"))


def play_together(tool, scripts, folders):
    """The transcript of each script."""
    commands = "".join(json.dumps(prepare(tool, *pair)) + "\n" for pair in zip(scripts, folders))
    done = run([tool, "--together"], "together", commands, TIMEOUT + len(scripts))
    errors = done.stderr.decode("utf-8", "replace")
    lines = split_lines(done.stdout.decode("utf-8"))
    begin, transcripts = 0, []
    for end, line in enumerate(lines):
        if line.startswith('{"played":'):
            script, folder = scripts[len(transcripts)], folders[len(transcripts)]
            played = json.loads(line)
            text = "\n".join(lines[begin:end]).replace(str(folder), "FOLDER")
            transcripts.append(transcript(script, played["played"], text, played["errors"]))
            begin = end + 1
    if len(transcripts) < len(scripts):
        rest = "\n".join(lines[begin:])
        transcript(scripts[len(transcripts)], done.returncode or "?", rest, errors)
    if done.returncode != 0 or errors:
        sys.exit(f"{tool}: exit status {done.returncode}\n{errors}")
    return transcripts


def mismatch(expected, got):
    """Where the lines stop to fit, as a text; empty when they fit to the end."""
    at, skipping = 0, False
    for number, line in enumerate(expected, 1):
        if line == "...":
            skipping = True
            continue
        while skipping and at < len(got) and got[at] != line and not is_step(got[at]):
            at += 1
        if at == len(got) or got[at] != line:
            found = got[at] if at < len(got) else "the end"
            return f"line {number} of the expected transcript is\n  {line}\nbut there was\n  {found}"
        at, skipping = at + 1, False
    while skipping and at < len(got) and not is_step(got[at]):
        at += 1
    return "" if at == len(got) else f"nothing more was expected, but there was\n  {got[at]}"


def is_step(line):
    return line.startswith('{"step":')


def collapsed(script, lines):
    """The transcript with "..." for the effects of "start"."""
    text = script.read_text(encoding="utf-8")
    if "# whole start" in text:
        return lines
    steps = [json.loads(line) for line in text.splitlines()
             if line.strip() and not line.lstrip().startswith("#")]
    result, hiding = [], False
    for line in lines:
        effect = json.loads(line)
        if "step" in effect:
            hiding = "start" in steps[effect["step"] - 1]
            result += [line, "..."] if hiding else [line]
        elif not hiding:
            result.append(line)
    return result


def compare_transcript(script, lines):
    file = beside(script, ".transcript")
    if not file.exists():
        return f"there is no {file.name}; --update writes it"
    expected = split_lines(file.read_text(encoding="utf-8"))
    error = mismatch(expected, lines)
    if not error:
        return ""
    return error + "\n" + "\n".join(difflib.unified_diff(
        expected, collapsed(script, lines), "expected", "got", lineterm=""))


def compare_log(script, folder):
    file = beside(script, ".log")
    if not file.exists():
        return ""
    wanted = split_lines(file.read_text(encoding="utf-8"))
    if not wanted:
        return f"{file.name} is empty"
    logs = sorted((folder / "documents/Brenwick/DebugLogs").glob("*.log"))
    if not logs:
        return "no debug log was written"
    raw = logs[0].read_bytes().decode("utf-8").replace(str(folder), "FOLDER").split("\r\n")
    lines = [line.split(" ", 2)[2] if line.count(" ") > 1 else line for line in raw]
    for i in range(len(lines) - len(wanted) + 1):
        if lines[i:i + len(wanted)] == wanted:
            return ""
    return "the debug log does not hold:\n" + "\n".join(wanted) + "\nbut:\n" + "\n".join(lines)


def compare_files(script, folder):
    wanted = beside(script, ".after")
    for file in sorted(path for path in wanted.rglob("*") if path.is_file()):
        made = folder / "documents" / file.relative_to(wanted)
        if not made.is_file():
            return f"{file.relative_to(wanted)} was not written"
        if made.read_bytes() != file.read_bytes():
            return f"{file.relative_to(wanted)} holds\n{made.read_bytes()}"
    return ""


def check(script, lines, folder):
    """What is not as it should be, as a text; empty when all is well."""
    return (compare_transcript(script, lines) or compare_log(script, folder) or
            compare_files(script, folder))


def update(script, lines):
    text = "\n".join(collapsed(script, lines)) + "\n"
    beside(script, ".transcript").write_text(text, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("tool")
    parser.add_argument("scripts", type=pathlib.Path, nargs="+", metavar="script")
    parser.add_argument("--update", action="store_true")
    parser.add_argument("--together", action="store_true")
    options = parser.parse_args()
    os.environ["TZ"] = "UTC"
    with tempfile.TemporaryDirectory() as name:
        folders = [pathlib.Path(name) / str(number) for number in range(len(options.scripts))]
        if options.together:
            played = play_together(options.tool, options.scripts, folders)
        else:
            played = [play(options.tool, *pair) for pair in zip(options.scripts, folders)]
        if options.update:
            for script, lines in zip(options.scripts, played):
                update(script, lines)
            return
        errors = [f"{script.name}: {error}" for script, lines, folder
                  in zip(options.scripts, played, folders)
                  if (error := check(script, lines, folder))]
    if errors:
        sys.exit("\n".join(errors))


if __name__ == "__main__":
    main()
