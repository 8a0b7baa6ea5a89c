#!/usr/bin/env python3
"""Judges the JSON of strativo-cli by its schema: schema_test.py STRATIVO_CLI SOURCE_FOLDER"""
import copy
import glob
import html
import json
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import jsonschema

TOOL, SOURCE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
STANDARD = os.path.join(SOURCE, "data", "stdmat.lby")
USER = os.path.join(SOURCE, "data", "examples", "user.lby")
with open(os.path.join(SOURCE, "data", "strativo.schema.json")) as file:
    SCHEMA = json.load(file)

# What the schema cannot say; build refuses it on its own.
BEYOND_SCHEMA = {"duplicate-key", "cavity-mismatch", "slot-order", "user-library-missing",
                 "incomplete", "one-project"}


def validator(definition):
    """Of one of the schema's definitions; the references of the schema hold in it."""
    return jsonschema.Draft202012Validator({**SCHEMA, "anyOf": [{"$ref": f"#/$defs/{definition}"}]})


def run(*arguments, text=None):
    return subprocess.run([TOOL, "--standard", STANDARD, "--user-library", USER, *arguments],
                          input=text, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                          check=False)


def inputs():
    for pattern in ("fuzz/corpus/ConstructionFile/*", "fuzz/corpus/GlassImport/*",
                    "fuzz/corpus/WriteRead/*", "tests/golden/*/input.con", "data/examples/*.con"):
        found = sorted(glob.glob(os.path.join(SOURCE, pattern)))
        assert found, pattern
        yield from found


def places(value):
    """Every object and array of a document."""
    if isinstance(value, (dict, list)):
        yield value
        for item in value.values() if isinstance(value, dict) else value:
            yield from places(item)


def damaged(document, dice):
    """A copy with one value taken away, replaced or added."""
    changed = copy.deepcopy(document)
    holder = dice.choice([place for place in places(changed) if place])
    key = dice.choice(list(holder) if isinstance(holder, dict) else range(len(holder)))
    kind = dice.randrange(4)
    if kind == 0:
        del holder[key]
    elif kind == 1 and isinstance(holder, dict):
        holder[dice.choice(["x-more", "extra", "$schema", "names"])] = 1
    else:
        holder[key] = dice.choice([None, True, 0, 1, 2, 1.5, -1, 1e39, 40000, "", "A", "a'b", "a*b",
                                   "A/2D", "a\tb", "\u2265", "\u20ac", "!EOF", [], {}, [0] * 11])
    return changed


class Schema(unittest.TestCase):
    def test_is_a_schema(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)

    def test_holds_for_what_show_prints(self):
        shown = validator("shown")
        for path in inputs():
            with self.subTest(path):
                for project in json.loads(run("show", "--json", path).stdout):
                    shown.validate(project)

    def test_holds_for_lines_and_for_findings(self):
        files = list(inputs())
        for command, definition in (("show", "shown"), ("check", "checked")):
            lines = run(command, "--jsonl", *files).stdout.splitlines()
            self.assertEqual(len(lines), len(files))
            judge = validator(definition)
            for line in lines:
                judge.validate(json.loads(line))

    def test_of_the_engine_holds_for_an_export(self):
        with open(os.path.join(SOURCE, "tests", "golden", "cli", "epjson-excerpt.json")) as excerpt:
            judge = jsonschema.Draft7Validator(json.load(excerpt))
        for path in inputs():
            for side in ("outside", "inside"):
                result = run("export", "--format", "epjson", "--first-layer", side, path)
                if result.returncode == 3:
                    self.assertEqual(result.stdout, "")
                    continue
                model = json.loads(result.stdout)
                judge.validate(model)
                self.assert_references_hold(model)
        model["Material"] = {"Nothing": {}}
        self.assertFalse(judge.is_valid(model))

    def assert_references_hold(self, model):
        materials = [name for kind in ("Material", "Material:NoMass", "Material:AirGap")
                     for name in model.get(kind, {})]
        self.assertEqual(len({name.lower() for name in materials}), len(materials))
        for construction in model.get("Construction", {}).values():
            self.assertLessEqual(set(construction.values()), set(materials))

    def test_of_the_example_house_all_opaque_constructions_are_exported(self):
        house = os.path.join(SOURCE, "data", "examples", "house.con")
        project = json.loads(run("show", "--json", house).stdout)[0]
        result = run("export", "--format", "epjson", "--opaque-only", house)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        opaque = [c for c in project["constructions"] if c["type"] == 0]
        self.assertEqual(len(json.loads(result.stdout)["Construction"]), len(opaque))

    def test_holds_for_what_materials_prints(self):
        materials = validator("materials")
        materials.validate(json.loads(run("materials", "--json", STANDARD).stdout))
        materials.validate(json.loads(run("materials", "--user", "--json", USER).stdout))

    def test_can_fail(self):
        project = json.loads(run("show", "--json", next(inputs())).stdout)[0]
        del project["readToEnd"]
        self.assertFalse(validator("shown").is_valid(project))

    def test_holds_for_error_reports(self):
        report = validator("errorReport")
        with tempfile.TemporaryDirectory() as folder:
            for text in ("", "{", "[]", '{"a/b": 1, "a/b": 2}', '{"a": 1}',
                         '{"standardLibraryFile": "a"}'):
                result = run("build", "--json", "-", os.path.join(folder, "out.con"), text=text)
                report.validate(json.loads(result.stdout))

    def test_lines_of_many_processes_are_those_of_one(self):
        """The command of the manual, with GNU parallel."""
        manual = os.path.join(SOURCE, "docs", "manual", "many-files.html")
        with open(manual) as page:
            text = html.unescape(page.read())
        commands = re.findall(r"^(?:<pre>)?(find \. .* > all\.jsonl)(?:</pre>)?$", text, re.M)
        self.assertEqual(len(commands), 2, commands)
        environment = dict(os.environ, PATH=os.path.dirname(TOOL) + ":" + os.environ["PATH"])
        made = []
        with tempfile.TemporaryDirectory() as folder:
            houses = os.path.join(folder, "houses")
            os.mkdir(houses)
            shutil.copy(STANDARD, folder)
            shutil.copy(USER, houses)
            for number in range(40):
                shutil.copy(os.path.join(SOURCE, "data", "examples", "house.con"),
                            os.path.join(houses, f"house {number}.con"))
            for command in commands:
                subprocess.run(["bash", "-o", "pipefail", "-c", command], cwd=houses, check=True,
                               env=dict(environment, HOME=folder))
                with open(os.path.join(houses, "all.jsonl")) as lines:
                    made.append(lines.read())
        self.assertEqual(made[0].count("\n"), 40)
        self.assertEqual(made[0], made[1])

    def test_takes_what_build_takes(self):
        """Of documents damaged at random, but for what only build can tell."""
        dice = random.Random(16)
        judge = jsonschema.Draft202012Validator(SCHEMA)
        everything = os.path.join(SOURCE, "tests", "golden", "user-library", "input.con")
        glass = os.path.join(SOURCE, "tests", "golden", "glass", "input.con")
        documents = [json.loads(run("show", "--json", path).stdout)[0]
                     for path in (everything, glass)]
        taken = refused = 0
        for _ in range(400):
            document = damaged(dice.choice(documents), dice)
            result = run("build", "-n", "--json", "-", "out.con", text=json.dumps(document))
            rules = {error["rule"] for error in json.loads(result.stdout)["errors"]}
            if rules & BEYOND_SCHEMA:
                continue
            with self.subTest(json.dumps(document)[:2000], rules=rules):
                self.assertEqual(judge.is_valid(document), not rules)
            taken += not rules
            refused += bool(rules)
        self.assertGreater(min(taken, refused), 60)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
