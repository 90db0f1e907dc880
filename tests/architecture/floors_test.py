#!/usr/bin/python3
"""Small trees, each with one breach, that floors.py must find; and one without, which it must pass."""
import subprocess
import sys
import tempfile
import unittest
import unittest.mock
from pathlib import Path

import floors


class FloorsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.source = Path(folder.name) / "src"
        self.source.mkdir()

    def write(self, name, *lines):
        path = self.source / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text("".join(line + "\n" for line in lines), encoding="utf-8")

    def assert_only_breach(self, expected):
        self.assertEqual(floors.check(self.source), [expected])

    def write_table(self, *rows):
        self.write("CMakeLists.txt", "# brenwick_room(attic)", *rows)

    def test_house_in_order(self):
        self.write("base/Text.cpp", '#include "base/Text.h"', "#include <string>",
                   '#include "base/CaseTable.inc"')
        self.write("controls/List.h", '#include "base/Text.h"')
        self.write("app/App.cpp", '#include "speech/Speaker.h"', '#include "controls/List.h"')
        self.write("linux/sound/SoundDevice.cpp", "#include <alsa/asoundlib.h>",
                   "#include <unistd.h>", '#include "voice/SoundOutput.h"')
        self.write("qt/views/ListView.cpp", "#include <QTreeView>", '#include "qt/Strings.h"')
        self.write("desktop/Desktop.cpp", '#include "desktop/tray/TrayHost.h"')
        self.write("desktop/tray/TrayHost.h", "#include <QDBusMessage>", "#include <xcb/xcb.h>")
        self.write("files/FileCalls-posix.cpp", "#include <sys/stat.h>")
        self.write("files/FileCalls-win32.cpp", "#include <windows.h>")
        self.write_table(
            "brenwick_room(base)", "brenwick_room(controls USES base)",
            "brenwick_room(files)", "brenwick_room(app USES controls", "  speech)",
            "brenwick_room(linux/sound USES voice LIBRARIES ALSA::ALSA)",
            "brenwick_room(qt/views USES qt SHOWS Qt6::Widgets)",
            "brenwick_room(desktop/tray)", "brenwick_room(desktop USES desktop/tray)")
        self.assertEqual(floors.check(self.source), [])

    def test_room_above(self):
        self.write("forms/frmMain.h", "#pragma once", '#include "app/App.h"')
        self.assert_only_breach(
            "forms/frmMain.h:2: forms (floor 8.1) must not use app (floor 10) above it")

    def test_core_uses_a_world(self):
        self.write("app/App.cpp", '#include "desktop/Voice.h"')
        self.assert_only_breach(
            "app/App.cpp:1: app (floor 10) must not use desktop (floor 12) above it")

    def test_same_floor(self):
        self.write("speech/Speaker.cpp", ' #  include "contacts/List.h"')
        self.assert_only_breach(
            "speech/Speaker.cpp:1: speech must not use contacts, which is on the same floor")

    def test_second_level_rooms_of_one_floor(self):
        self.write("linux/speechd/Start.cpp", '#include "linux/engine/EngineProcess.h"')
        self.assert_only_breach("linux/speechd/Start.cpp:1: linux/speechd must not use "
                                "linux/engine, which is on the same floor")

    def test_room_uses_one_of_its_own_rooms_that_stands_on_it(self):
        self.write("linux/Bus.cpp", '#include "linux/engine/EngineProcess.h"')
        self.assert_only_breach("linux/Bus.cpp:1: linux (floor 11) must not use linux/engine "
                                "(floor 11.1) above it")

    def test_lower_room_that_the_row_does_not_name(self):
        for room, used in (("sources", "messenger"), ("voice", "settings"), ("files", "logging"),
                           ("app", "voice"), ("rehearsal", "linux"), ("rehearsal", "qt"),
                           ("windows", "linux"), ("qt", "sources"), ("linux/engine", "espeak"),
                           ("controls", "platform"), ("espeak", "files")):
            with self.subTest(f"{room} {used}"):
                breach = floors.breach_of_floors(room, used)
                self.assertIn(f"{room} must not use {used}", breach)

    def test_circle(self):
        self.write("controls/List.h", '#include "base/Text.h"')
        self.write("base/Text.cpp", '#include "controls/List.h"')
        self.assertIn("the rooms use each other in a circle: base -> controls -> base",
                      floors.check(self.source))

    def test_circle_over_three_rooms(self):
        self.write("app/App.cpp", '#include "web/Version.h"')
        self.write("web/Version.h", '#include "base/Text.h"')
        self.write("base/Text.cpp", '#include "app/App.h"')
        self.assertIn("the rooms use each other in a circle: app -> web -> base -> app",
                      floors.check(self.source))

    def test_core_knows_the_standard_library_alone(self):
        for header, kind in {"QString": "Qt", "QtCore/QString": "Qt", "nlohmann/json.hpp": "JSON",
                             "espeak-ng/speak_lib.h": "eSpeak NG", "unistd.h": "POSIX",
                             "sys/stat.h": "POSIX", "windows.h": "Windows"}.items():
            with self.subTest(header):
                self.write("logging/Log.cpp", "#include <string>", f"#include <{header}>")
                self.assert_only_breach(f"logging/Log.cpp:2: logging must not know {kind}: "
                                        f"<{header}>")

    def test_foreign_headers_of_other_rows(self):
        for room, header in (("qt", "QDBusConnection"), ("qt/views", "unistd.h"),
                             ("qt", "xcb/xcb.h"), ("linux", "QString"), ("linux", "alsa/asoundlib.h"),
                             ("linux/sound", "dbus/dbus.h"), ("espeak", "unistd.h"),
                             ("espeak", "alsa/asoundlib.h"), ("sources", "dbus/dbus.h"),
                             ("desktop", "dbus/dbus.h"), ("rehearsal", "QString"),
                             ("windows", "unistd.h"), ("voice", "sonic.h")):
            with self.subTest(f"{room} {header}"):
                breach = floors.breach_of_foreign(room, "File.cpp", header)
                self.assertIn(f"{room} must not know", breach)
                self.assertIn(f"<{header}>", breach)

    def test_system_of_the_other_half(self):
        self.write("files/FileCalls-win32.cpp", "#include <dlfcn.h>", "#include <windows.h>")
        self.write("files/FileCalls-posix.cpp", "#include <windows.h>", "#include <dlfcn.h>")
        self.write("base/Text-posix.cpp", "#include <dlfcn.h>")
        with unittest.mock.patch.object(floors, "KNOWN", set()):
            self.assertEqual(floors.check(self.source), [
                "base/Text-posix.cpp:1: base must not know POSIX: <dlfcn.h>",
                "files/FileCalls-posix.cpp:1: files must not know Windows: <windows.h>",
                "files/FileCalls-win32.cpp:1: files must not know POSIX: <dlfcn.h>"])

    def test_system_of_a_program(self):
        self.write("rehearsal/main.cpp", "#include <unistd.h>")
        self.assertEqual(floors.check(self.source), [])
        self.write("base/main.cpp", "#include <unistd.h>")
        self.write("rehearsal/Script.cpp", "#include <unistd.h>")
        self.assertEqual(floors.check(self.source), [
            "base/main.cpp:1: base must not know POSIX: <unistd.h>",
            "rehearsal/Script.cpp:1: rehearsal must not know POSIX: <unistd.h>"])

    def test_header_of_no_kind(self):
        self.write("desktop/Voice.cpp", "#include <string.h>")
        self.assert_only_breach("desktop/Voice.cpp:1: nobody knows <string.h>: no kind in FOREIGN fits")

    def test_foreign_header_in_quotation_marks(self):
        self.write("logging/Log.cpp", '#include "nlohmann/json.hpp"')
        self.assert_only_breach('logging/Log.cpp:1: "nlohmann" is no room of this house')

    def test_use_that_the_table_lacks(self):
        self.write("app/App.cpp", '#include "web/Version.h"', '#include "base/Text.h"')
        self.write_table("brenwick_room(app USES base)")
        self.assert_only_breach(
            "CMakeLists.txt:2: app includes web: add it to USES of its row")

    def test_use_of_the_table_alone(self):
        self.write("app/App.cpp", '#include "base/Text.h"')
        self.write_table("brenwick_room(app", "  USES base web)")
        self.assert_only_breach(
            "CMakeLists.txt:2: app includes nothing of web: take it out of its row")

    def test_rows_for_two_configurations(self):
        self.write("app/App.cpp", '#include "base/Text.h"', '#include "web/Version.h"')
        self.write_table("if(ON)", "  brenwick_room(app USES base web)", "else()",
                         "  brenwick_room(app USES base EXCEPT App.cpp)", "endif()")
        self.assertEqual(floors.check(self.source), [])

    def test_room_without_a_row_in_the_table(self):
        self.write("app/App.cpp", "#include <string>")
        self.write_table()
        self.assert_only_breach("CMakeLists.txt:1: the room app has no row")

    def test_program_of_a_room_is_no_use_of_the_room(self):
        self.write("desktop/main.cpp", '#include "app/App.h"')
        self.write_table("brenwick_room(desktop)")
        self.assertEqual(floors.check(self.source), [])
        self.write("desktop/main.cpp", '#include "rehearsal/Script.h"')
        self.assertIn("must not use rehearsal", floors.check(self.source)[0])

    def test_folder_with_too_many_files(self):
        for number in range(45):
            self.write(f"base/File{number}.h", "#pragma once")
        self.assertEqual(floors.check(self.source), [])
        self.write("base/Another.cpp", "#include <string>")
        self.assert_only_breach("base:1: a folder has 45 source files at the most, not 46")

    def test_room_with_more_than_a_fifth_of_the_lines(self):
        for number in range(6):
            self.write(f"desktop/tray/File{number}.h", *["//"] * 350)
            for room in ("app", "base", "linux", "qt"):
                self.write(f"{room}/File{number}.h", *["//"] * 350)
        self.assertEqual(floors.check(self.source), [])
        self.write("desktop/File.h", *["//"] * 10)
        self.write("desktop/Table.inc", *["//"] * 10000)
        self.assert_only_breach("desktop:1: 2110 lines are more than a fifth of all")

    def test_unknown_room(self):
        self.write("attic/Box.h")
        self.assert_only_breach('attic/Box.h:1: "attic" is no room of this house')

    def test_file_outside_the_rooms(self):
        self.write("main.cpp")
        self.assert_only_breach('main.cpp:1: "main.cpp" is no room of this house')

    def test_folder_of_a_room_that_is_no_room(self):
        self.write("linux/attic/Box.h")
        self.assert_only_breach('linux/attic/Box.h:1: "linux/attic" is no room of this house')

    def test_include_without_its_room(self):
        self.write("app/App.cpp", '#include "App.h"', '#include "../web/Version.h"')
        self.assertEqual(floors.check(self.source), [
            'app/App.cpp:1: "App.h" must name its room: "app/..."',
            'app/App.cpp:2: "../web/Version.h" must name its room: "app/..."'])

    def test_our_own_file_in_brackets(self):
        self.write("base/Text.cpp", "#include <app/App.h>")
        self.assert_only_breach(
            "base/Text.cpp:1: <app/App.h> is a file of ours and belongs in quotation marks")

    def test_include_by_macro(self):
        self.write("base/Text.cpp", "#include HEADER")
        self.assert_only_breach("base/Text.cpp:1: an #include must name its file")

    def test_longest_file(self):
        self.write("base/Text.cpp", *["//"] * 400)
        self.write("base/CaseTable.inc", *["//"] * 401)
        self.assertEqual(floors.check(self.source), [])

    def test_file_too_long(self):
        self.write("desktop/Voice.cpp", *["//"] * 401)
        self.assert_only_breach("desktop/Voice.cpp:401: a file has 400 lines at the most")

    def test_empty_tree(self):
        self.assert_only_breach(f"{self.source}: there are no sources")

    def test_exit_status(self):
        self.write("base/Text.cpp", "#include <string>")
        self.assertEqual(self.run_tool().returncode, 0)
        self.write("base/Text.cpp", "#include <unistd.h>")
        result = self.run_tool()
        self.assertEqual(result.returncode, 1)
        self.assertIn("base/Text.cpp:1:", result.stdout)

    def run_tool(self):
        return subprocess.run([sys.executable, floors.__file__, self.source], text=True,
                              stdout=subprocess.PIPE, check=False)


if __name__ == "__main__":
    unittest.main()
