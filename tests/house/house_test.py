"""Each rule of house.py finds what it is for, and only that, in a small tree made here."""

import os
import subprocess
import sys
import tempfile
import unittest

import house


class HouseTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name
        for room in house.MAY_INCLUDE:
            self.write(f"src/{room}/Room.h", '#include "model/Project.h"\n' if room == "ui" else "")

    def write(self, path, text):
        path = os.path.join(self.root, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)

    def findings(self, rule):
        return list(house.RULES[rule](self.root))

    def assert_include(self, room, line, *faults):
        self.write(f"src/{room}/Case.cpp", line + "\n")
        expected = [f"src/{room}/Case.cpp:1: {line.split()[-1]}: {fault}" for fault in faults]
        self.assertEqual(self.findings("rooms"), expected)
        os.remove(os.path.join(self.root, f"src/{room}/Case.cpp"))

    def test_rooms_include_downwards(self):
        self.assert_include("calc", '#include "model/Layer.h"')
        self.assert_include("files", '#include "edit/GlassTypes.h"')
        self.assert_include("cli", '#include "project/FileCommands.h"')

    def test_rooms_do_not_include_upwards_or_sideways(self):
        self.assert_include("calc", '#include "edit/GlassTypes.h"',
                            "room calc may not include room edit")
        self.assert_include("port", '#  include "model/Project.h"',
                            "room port may not include room model")
        self.assert_include("cli", '#include "ui/STRATVMD.h"',
                            "room cli may not include room ui")
        self.assert_include("project", '#include "cli/Session.h"',
                            "room project may not include room cli")
        self.assert_include("ui", '#include "exchange/Fault.h"',
                            "room ui may not include room exchange")

    def test_includes_are_written_from_the_source_folder(self):
        for name in ('"Layer.h"', '"../model/Layer.h"'):
            self.assert_include("model", f"#include {name}",
                                "includes of the tree's own files are written from src/")

    def test_only_the_windows_know_qt(self):
        for header in ("<QString>", "<QtWidgets/QLabel>", "<qglobal.h>"):
            self.assert_include("ui", f"#include {header}")
            for room in ("model", "project", "cli"):
                self.assert_include(room, f"#include {header}", "only room ui knows Qt")

    def test_libraries_belong_to_one_room(self):
        self.assert_include("cli", "#include <nlohmann/json.hpp>")
        self.assert_include("files", "#include <nlohmann/json.hpp>",
                            "room files may not know this library")
        self.assert_include("files", "#include <sys/stat.h>")
        self.assert_include("files", "#include <vector>")

    def test_a_file_outside_the_rooms_is_found(self):
        self.write("src/extra/Case.h", "")
        self.assertEqual(self.findings("rooms"), ["src/extra/Case.h: not in one of the rooms"])

    def test_an_empty_tree_does_not_pass(self):
        with tempfile.TemporaryDirectory() as empty:
            missing = list(house.check_rooms(empty))
        self.assertEqual(len(missing), len(house.MAY_INCLUDE))

    def test_file_length(self):
        self.write("src/model/Long.cpp", "//\n" * house.MAX_LINES)
        self.assertEqual(self.findings("sizes"), [])
        self.write("src/model/Long.cpp", "//\n" * (house.MAX_LINES + 1))
        self.assertEqual(self.findings("sizes"), ["src/model/Long.cpp: 601 lines, more than 600"])

    def test_words(self):
        bad = {
            "a path of one machine": ["/ro" "ot/x", "see /wo" "rk/y", "/ho" "me/anna/src/strativo"],
            "a package mirror": ["http://deb.deb" "ian.org/x", "archive.ubun" "tu.com"],
            "a package registry": ["https://py" "pi.org/simple"],
            "unfinished work": ["// TO" "DO later", "FIX" "ME"],
            "an unresolved merge": ["<<<<" "<<< HEAD"],
        }
        for meaning, lines in bad.items():
            for line in lines:
                self.write("docs/text.md", "fine\n" + line + "\n")
                findings = self.findings("words")
                self.assertEqual(len(findings), 1, line)
                self.assertTrue(findings[0].startswith(f"docs/text.md:2: {meaning}: "), findings)

    def test_words_that_are_fine(self):
        self.write("docs/text.md", "build/home/anna/x/y, strativo-test-XXXXXX, Debian, data/root/x\n")
        self.write("build/x.txt", "// TO" "DO\n")
        self.assertEqual(self.findings("words"), [])

    def test_exit_status(self):
        def status(*arguments):
            command = [sys.executable, "-B", house.__file__, *arguments]
            return subprocess.run(command, capture_output=True, check=False).returncode

        self.assertEqual(status("rooms", self.root), 0)
        self.write("src/model/Case.cpp", "#include <QString>\n")
        self.assertEqual(status("rooms", self.root), 1)
        self.assertNotEqual(status("no-such-rule", self.root), 0)


if __name__ == "__main__":
    unittest.main()
