"""The lint settings find what they are for, and accept the names that windows bring with them:
style_test.py ROOT, where the settings lie."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = sys.argv.pop(1)


class StyleTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = folder.name
        os.makedirs(os.path.join(self.root, "src/ui"))
        os.makedirs(os.path.join(self.root, "src/calc"))
        for name in (".clang-tidy", "src/ui/.clang-tidy", ".clang-format"):
            shutil.copy(os.path.join(ROOT, name), os.path.join(self.root, name))

    def run_tool(self, room, text, *command):
        path = os.path.join(self.root, "src", room, "Case.cpp")
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        at = command.index("FILE")
        command = [*command[:at], path, *command[at + 1:]]
        return subprocess.run(command, capture_output=True, text=True, check=False)

    def lint(self, room, text):
        """Names of the checks that find something, with the name they complain about."""
        result = self.run_tool(room, text, "clang-tidy", "--quiet", "FILE", "--", "-std=c++20")
        self.assertNotIn("clang-diagnostic", result.stdout)
        found = re.findall(r"error: .*?'([^']*)'.* \[([\w-]+)(?:,|\])", result.stdout)
        self.assertEqual(result.returncode != 0, bool(found), result.stdout)
        return [(check, name) for name, check in found]

    def test_function_length(self):
        body = "    ++value;\n"
        text = "int Count(int value) {{\n{}    return value;\n}}\n"
        self.assertEqual(self.lint("calc", text.format(body * 58)), [])
        self.assertEqual(self.lint("calc", text.format(body * 60)),
                         [("readability-function-size", "Count")])

    def test_names(self):
        naming = "readability-identifier-naming"
        for text, bad in (("void readFile();", "readFile"),
                          ("void ReadFile(int line_count);", "line_count"),
                          ("struct layer_slot {};", "layer_slot"),
                          ("struct Layer { int Slot; };", "Slot"),
                          ("class Layer { int slot_; };", "slot_"),
                          ("enum class Kind { Opaque };", "Opaque"),
                          ("struct Window { void Edit_Click(); };", "Edit_Click")):
            self.assertEqual(self.lint("calc", text + "\n"), [(naming, bad)], text)
        good = ("struct Layer { int slotNumber; void ReadFile(int lineCount); int begin(); };\n"
                "enum class Kind { opaque };\n")
        self.assertEqual(self.lint("calc", good), [])

    def test_names_in_windows(self):
        naming = "readability-identifier-naming"
        good = ("struct Ui { int EditThick; int MatOption_0; };\n"
                "class Window { void EditThick_KeyPress(); void Edit_PBefore_Click(); };\n")
        self.assertEqual(self.lint("ui", good), [])
        for text, bad in (("class Window { void editThick_KeyPress(); };", "editThick_KeyPress"),
                          ("class Window { void edit(); };", "edit"),
                          ("class Window { int EditThick; };", "EditThick")):
            self.assertEqual(self.lint("ui", text + "\n"), [(naming, bad)], text)

    def test_format(self):
        command = ("clang-format", "--dry-run", "-Werror", "FILE")
        self.assertEqual(self.run_tool("calc", "int* a;\n", *command).returncode, 0)
        self.assertNotEqual(self.run_tool("calc", "int *a;\n", *command).returncode, 0)


if __name__ == "__main__":
    unittest.main()
