#!/usr/bin/env python3
"""Holds the checks of .ci to what they say: each finds what was planted for it, and nothing where all is well.

Usage: test_checks.py ROOT of the project; each check runs over a small tree of its own.
"""
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECKS = pathlib.Path(sys.argv.pop(1)).resolve() / ".ci"


class Tree(unittest.TestCase):
    """A folder with a few files, known to git."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        subprocess.run(["git", "init", "-q", self.root], check=True)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        subprocess.run(["git", "-C", self.root, "add", "-A"], check=True)

    def run_check(self, script, *arguments):
        run = subprocess.run([sys.executable, CHECKS / script, self.root, *arguments], stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, encoding="utf-8", check=False)
        return run.returncode, run.stdout.splitlines()


class Words(Tree):
    def test_finds_each_kind(self):
        rows = ["// TO" "DO later", "see /wo" "rk/main", "as Part" " 3.2 says", "TEST(A, DISA" "BLED_b)"]
        for row in rows:
            with self.subTest(row):
                self.write("a.cpp", f"int x;\n{row}\n")
                status, lines = self.run_check("check_words.py")
                self.assertEqual(status, 1)
                self.assertEqual(len(lines), 1)
                self.assertTrue(lines[0].startswith("a.cpp:2: '"), lines)

    def test_leaves_the_rest_alone(self):
        self.write("a.cpp", "// the todo list, homework/main, ECMA-376 Part 1, Part 1 18.3, XXXXXX, specific\n")
        self.write("b.bin", "")
        (self.root / "b.bin").write_bytes(b"\xff\xfeTO" b"DO")
        self.assertEqual(self.run_check("check_words.py"), (0, []))


class Families(Tree):
    def test_compares_the_table_with_the_folder(self):
        self.write("FilterUtils/FU_New.h", "")
        self.write("FilterUtils/FU_Twice.h", "")
        self.write("FilterUtils/README.md", "| `FU_Gone` | x |\n| `FU_Twice` | x |\n| `FU_Twice` | y |\n")
        status, lines = self.run_check("check_families.py")
        self.assertEqual(status, 1)
        self.assertEqual([line.split(": ")[0:2] for line in lines], [
            ["FilterUtils/README.md:1", "FU_New has no row"],
            ["FilterUtils/README.md:1", "FU_Gone is not in the folder"],
            ["FilterUtils/README.md:3", "FU_Twice has a second row"]])

    def test_accepts_one_row_each(self):
        self.write("FilterUtils/FU_One.h", "")
        self.write("FilterUtils/README.md", "| `FU_One` | x |\n")
        self.assertEqual(self.run_check("check_families.py"), (0, []))


class Registered(Tree):
    def test_finds_what_nothing_builds(self):
        for folder in ("Tests", "Benchmarks", "Fuzz"):
            self.write(f"{folder}/CMakeLists.txt", "qv_test(A/OneTest.cpp)\n# qv_test(A/TwoTest.cpp)\n")
        self.write("Tests/A/OneTest.cpp", "")
        self.assertEqual(self.run_check("check_registered.py"), (0, []))
        self.write("Tests/A/TwoTest.cpp", "")
        status, lines = self.run_check("check_registered.py")
        self.assertEqual((status, lines[0].split(": ")[0]), (1, "Tests/A/TwoTest.cpp:1"))


class Layers(Tree):
    def check_include(self, name, include):
        self.write("layers.json", json.dumps({
            "Lower": {"folder": "Lower", "uses": "", "uses_privately": ""},
            "Upper": {"folder": "Upper", "uses": "", "uses_privately": "Lower"}}))
        self.write(name, f"#include <{include}>\n")
        return self.run_check("check_layers.py", self.root / "layers.json")

    def test_lets_a_source_include_what_is_private(self):
        self.assertEqual(self.check_include("Upper/a.cpp", "Lower/b.h"), (0, []))

    def test_refuses_it_in_a_header(self):
        status, lines = self.check_include("Upper/a.h", "Lower/b.h")
        self.assertEqual((status, lines[0].split(": ")[0]), (1, "Upper/a.h:1"))

    def test_refuses_the_way_up(self):
        status, lines = self.check_include("Lower/a.cpp", "Upper/b.h")
        self.assertEqual((status, lines[0].split(": ")[0]), (1, "Lower/a.cpp:1"))

    def test_refuses_climbing(self):
        self.assertEqual(self.check_include("Lower/a.cpp", "../Upper/b.h")[0], 1)


if __name__ == "__main__":
    unittest.main()
