#!/usr/bin/python3
"""Small trees, each with one breach, that floors.py must find; and one without, which it must pass."""
import subprocess
import sys
import tempfile
import unittest
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

    def test_house_in_order(self):
        self.write("base/Text.cpp", '#include "base/Text.h"', "#include <string>",
                   '#include "base/CaseTable.inc"')
        self.write("controls/List.h", '#include "base/Text.h"')
        self.write("app/App.cpp", '#include "speech/Speaker.h"', '#include "controls/List.h"')
        self.write("desktop/Voice.cpp", "#include <espeak-ng/speak_lib.h>", "#include <unistd.h>")
        self.write("rehearsal/main.cpp", '#include "desktop/Voice.h"', '#include "app/App.h"')
        self.write("CMakeLists.txt", "# no source")
        self.assertEqual(floors.check(self.source), [])

    def test_room_above(self):
        self.write("forms/frmMain.h", "#pragma once", '#include "app/App.h"')
        self.assert_only_breach(
            "forms/frmMain.h:2: forms (floor 2) must not use app (floor 8) above it")

    def test_core_uses_a_world(self):
        self.write("app/App.cpp", '#include "desktop/Voice.h"')
        self.assert_only_breach(
            "app/App.cpp:1: app (floor 8) must not use desktop (floor 9) above it")

    def test_same_floor(self):
        self.write("speech/Speaker.cpp", ' #  include "contacts/List.h"')
        self.assert_only_breach(
            "speech/Speaker.cpp:1: speech must not use contacts, which is on the same floor")

    def test_same_floor_in_the_wrong_direction(self):
        self.write("base/Text.cpp", '#include "controls/List.h"')
        self.assert_only_breach(
            "base/Text.cpp:1: base must not use controls, which is on the same floor")

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

    def test_core_knows_no_foreign_header(self):
        for header in ("QString", "QtCore/QString", "nlohmann/json.hpp", "espeak-ng/speak_lib.h",
                       "unistd.h", "sys/stat.h", "windows.h", "string.h"):
            with self.subTest(header):
                self.write("logging/Log.cpp", "#include <string>", f"#include <{header}>")
                self.assert_only_breach("logging/Log.cpp:2: the core knows the standard library "
                                        f"only, not <{header}>")

    def test_foreign_header_in_quotation_marks(self):
        self.write("logging/Log.cpp", '#include "nlohmann/json.hpp"')
        self.assert_only_breach('logging/Log.cpp:1: "nlohmann" is no room of this house')

    def test_unknown_room(self):
        self.write("attic/Box.h")
        self.assert_only_breach('attic/Box.h:1: "attic" is no room of this house')

    def test_file_outside_the_rooms(self):
        self.write("main.cpp")
        self.assert_only_breach('main.cpp:1: "main.cpp" is no room of this house')

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
