#!/usr/bin/python3
"""What `cmake --install` and `cpack` make of the build.

usage: packaging_test.py BUILD [CLASS...]
"""
import configparser
import gzip
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest
import xml.etree.ElementTree

SOURCE = pathlib.Path(__file__).resolve().parents[2]
IDENTITY = "org.brenwick.Brenwick"
LANGUAGES = {"Deutsch", "English", "Español", "Français", "Italiano", "Nederlands", "Português"}
# Seconds. Nothing takes a tenth of it.
PATIENCE = 120

FILES = {
    "bin/brenwick", "bin/brenwick-rehearse", "libexec/brenwick/brenwick-voice",
    "share/brenwick/Abbreviations.Txt",
    f"share/applications/{IDENTITY}.desktop", f"share/metainfo/{IDENTITY}.metainfo.xml",
    f"share/icons/hicolor/scalable/apps/{IDENTITY}.svg",
    "share/bash-completion/completions/brenwick",
    "share/man/man1/brenwick.1.gz", "share/man/man1/brenwick-rehearse.1.gz",
    "share/doc/brenwick/changelog.gz", "share/doc/brenwick/NEWS.gz",
    "share/doc/brenwick/copyright",
    *(f"share/brenwick/Languages/{name}.TML" for name in LANGUAGES),
    *(f"share/brenwick/OrgLanguages/{name}.Txt" for name in LANGUAGES),
}


def run(*command, **options):
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                          check=False, timeout=PATIENCE, stdin=subprocess.DEVNULL, **options)
    if done.returncode != 0:
        raise AssertionError(f"{command}: exit status {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout + done.stderr


def files_below(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file()}


def version():
    return re.search(r"project\(Brenwick VERSION ([\d.]+)",
                     (SOURCE / "CMakeLists.txt").read_text(encoding="utf-8"))[1]


class Folder(unittest.TestCase):
    """A folder of the test's own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def environment(self):
        """A user who has nothing yet, without a screen or a bus."""
        home = self.folder / "home"
        (home / "run").mkdir(parents=True, mode=0o700, exist_ok=True)
        kept = {name: value for name, value in os.environ.items()
                if name == "PATH" or name.endswith("SAN_OPTIONS")}
        return {**kept, "HOME": str(home), "XDG_RUNTIME_DIR": str(home / "run"),
                "LANG": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen",
                "DBUS_SESSION_BUS_ADDRESS": "disabled:"}

    def tells_its_version(self, program):
        self.assertEqual(run(program, "--version", env=self.environment()),
                         f"{program.name} {version()}\n")
        self.assertIn("usage: " + program.name, run(program, "--help", env=self.environment()))

    def starts(self, prefix):
        """Started with the debug log, the program finds its languages below the prefix."""
        process = subprocess.Popen([prefix / "bin/brenwick", "--debug"], env=self.environment(),
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.PIPE, text=True)
        try:
            log = self.log_of(process)
            engines = self.children_of(process)
        finally:
            process.send_signal(signal.SIGTERM)
            errors = process.communicate(timeout=PATIENCE)[1]
        self.assertEqual(process.returncode, 0, errors)
        self.assertEqual(engines, [f"{prefix}/libexec/brenwick/brenwick-voice"])
        self.assertIn(f"Building language list from {prefix}/share/brenwick/Languages/", log)
        self.assertIn(f"Total languages : {len(LANGUAGES)} files", log)
        table = pathlib.Path(self.environment()["HOME"], "Documents/Brenwick/Abbreviations.Txt")
        self.assertEqual(table.read_bytes(),
                         (prefix / "share/brenwick/Abbreviations.Txt").read_bytes())

    def children_of(self, process):
        """The programs that it has started itself."""
        tasks = pathlib.Path(f"/proc/{process.pid}/task").glob("*/children")
        return [os.readlink(f"/proc/{child}/exe") for task in tasks
                for child in task.read_text(encoding="utf-8").split()]

    def log_of(self, process):
        """The debug log, once the program has come to the end of its start."""
        end = time.monotonic() + PATIENCE
        folder = pathlib.Path(self.environment()["HOME"]) / "Documents/Brenwick/DebugLogs"
        while time.monotonic() < end and process.poll() is None:
            text = "".join(log.read_text(encoding="utf-8") for log in folder.glob("*.log"))
            if "Startup - Completed" in text:
                return text
            time.sleep(0.01)
        self.fail(f"It did not start: status {process.poll()}, {process.stderr.read()}")


class Installed(Folder):
    def setUp(self):
        super().setUp()
        self.prefix = self.folder / "prefix"
        run("cmake", "--install", BUILD, "--prefix", self.prefix)

    def test_the_files(self):
        self.assertEqual(files_below(self.prefix), FILES)

    def test_the_programs_work(self):
        self.tells_its_version(self.prefix / "bin/brenwick")
        self.tells_its_version(self.prefix / "bin/brenwick-rehearse")
        self.starts(self.prefix)

    def test_the_rehearsal_has_the_installed_languages(self):
        shutil.rmtree(self.prefix / "share/brenwick/OrgLanguages")
        (self.prefix / "share/brenwick/Abbreviations.Txt").write_text("brb=from here\r\n")
        script = self.folder / "script"
        script.write_text('{"start":""}\n{"raise":"OnTextReceived","email":"a@x","text":"brb"}\n')
        told = run(self.prefix / "bin/brenwick-rehearse", script, env=self.environment())
        self.assertIn("from here", told)


class Described(Folder):
    """What a desktop reads."""

    def test_the_entry(self):
        entry = SOURCE / f"packaging/{IDENTITY}.desktop"
        told = run("desktop-file-validate", entry)
        self.assertNotIn("error", told)
        self.assertNotIn("warning", told)
        parser = configparser.ConfigParser(interpolation=None)
        parser.read(entry, encoding="utf-8")
        self.assertEqual(parser["Desktop Entry"]["Icon"], IDENTITY)
        for name in parser["Desktop Entry"]["Actions"].strip(";").split(";"):
            program, verb = parser[f"Desktop Action {name}"]["Exec"].split()
            self.assertEqual(program, "brenwick")
            self.assertIn(verb, run(BUILD / "brenwick", "--help", env=self.environment()))

    def test_the_metainfo(self):
        file = BUILD / f"packaging/{IDENTITY}.metainfo.xml"
        run("appstreamcli", "validate", "--no-net", file)
        root = xml.etree.ElementTree.parse(file).getroot()
        self.assertEqual(root.findtext("id"), IDENTITY)
        self.assertEqual(root.find("releases/release").get("version"), version())

    def test_the_icon_is_a_picture(self):
        icon = SOURCE / "src/qt/icons/brenwick.svg"
        root = xml.etree.ElementTree.parse(icon).getroot()
        self.assertEqual(root.tag, "{http://www.w3.org/2000/svg}svg")
        picture = self.folder / "icon.png"
        run("rsvg-convert", "--width=64", icon, "--output", picture)
        self.assertEqual(picture.read_bytes()[:8], b"\x89PNG\r\n\x1a\n")

    def test_the_manual(self):
        for page, program in (("brenwick.1", "brenwick"),
                              ("brenwick-rehearse.1", "brenwick-rehearse")):
            file = BUILD / "packaging" / page
            told = run("man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", file,
                       env={**self.environment(), "MANWIDTH": "80"})
            self.assertNotIn("warning", told)
            text = file.read_text(encoding="utf-8").replace("\\-", "-")
            for option in self.options_of(program):
                self.assertIn(option, text)
            self.assertEqual(gzip.open(f"{file}.gz").read(), file.read_bytes())

    def options_of(self, program):
        options = set(re.findall(r"--[a-z-]+",
                                 run(BUILD / program, "--help", env=self.environment())))
        self.assertIn("--help", options)
        return options


class Completed(Folder):
    """The completion of the command line in bash."""

    def complete(self, *words):
        script = """source "$1"; shift
            COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); COMPREPLY=()
            function=$(complete -p brenwick | sed 's/.*-F \\([^ ]*\\).*/\\1/')
            "$function"; printf '%s\\n' "${COMPREPLY[@]}" """
        told = run("bash", "-c", script, "bash", SOURCE / "packaging/brenwick.bash-completion",
                   "brenwick", *words)
        return set(told.split())

    def test_every_option(self):
        usage = run(BUILD / "brenwick", "--help", env=self.environment())
        self.assertEqual(self.complete(""), set(re.findall(r"--[a-z-]+", usage)))

    def test_what_fits(self):
        self.assertEqual(self.complete("--re"), {"--repeat"})
        self.assertEqual(self.complete("--nothing"), set())

    def test_the_number_of_a_sentence(self):
        self.assertEqual(self.complete("--repeat", ""), {"1", "2", "3", "4"})


class Packaged(Folder):
    """The Debian package."""

    def test_the_package(self):
        made = self.folder / "made"
        run("cpack", "-G", "DEB", "-B", made, cwd=BUILD)
        packages = list(made.glob("*.deb"))
        self.assertEqual(len(packages), 1)
        self.assertTrue(packages[0].name.startswith(f"brenwick_{version()}_"))
        self.look_at_fields(packages[0])
        root = self.folder / "root"
        run("dpkg-deb", "--extract", packages[0], root)
        self.assertEqual(files_below(root), {"usr/" + file for file in FILES})
        self.look_at_modes(packages[0])
        self.tells_its_version(root / "usr/bin/brenwick")
        self.starts(root / "usr")

    def look_at_fields(self, package):
        def field(name):
            return run("dpkg-deb", "--field", package, name).strip()

        self.assertEqual(field("Package"), "brenwick")
        self.assertEqual(field("Version"), version())
        self.assertEqual(field("Section"), "net")
        self.assertRegex(field("Maintainer"), r"^The Brenwick developers <\S+@\S+>$")
        self.assertRegex(field("Homepage"), r"^http://\S+/$")
        self.assertRegex(field("Description"), r"^reads your instant messages aloud\n .*\n")
        needed = {entry.split()[0] for entry in field("Depends").split(", ")}
        self.assertLessEqual({"espeak-ng-data", "libqt6svg6", "libespeak-ng1", "libqt6widgets6",
                              "libc6"}, needed)

    def look_at_modes(self, package):
        for line in run("dpkg-deb", "--contents", package).splitlines():
            mode, owner, *_, name = line.split()
            program = mode[0] == "d" or name.startswith(("./usr/bin/", "./usr/libexec/"))
            self.assertEqual(mode[1:], "rwxr-xr-x" if program else "rw-r--r--", line)
            self.assertEqual(owner, "root/root", line)


if __name__ == "__main__":
    BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
