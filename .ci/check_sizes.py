#!/usr/bin/env python3
"""Advises where a file or a function has grown long. Never fails: length alone is no reason to split.

Usage: check_sizes.py ROOT. Relies on .clang-format, which puts the braces of a function outside a class alone in the
first column.
"""
import pathlib
import subprocess
import sys

FILE_LINES = 400
FUNCTION_LINES = 50


def long_functions(lines):
    begin = None
    for number, line in enumerate(lines, 1):
        if line == "{":
            begin = number
        elif line.startswith("}"):
            if begin and line == "}" and number - begin - 1 > FUNCTION_LINES:
                yield begin, number - begin - 1
            begin = None


def main(root):
    names = subprocess.run(["git", "-C", root, "ls-files", "*.h", "*.cpp", "*.py"], check=True,
                           stdout=subprocess.PIPE, encoding="utf-8").stdout.split()
    for name in names:
        lines = (pathlib.Path(root) / name).read_text(encoding="utf-8").splitlines()
        if len(lines) > FILE_LINES:
            print(f"{name}:1: {len(lines)} lines: look for a seam, where helpers or includes fall into two groups")
        for number, length in long_functions(lines):
            print(f"{name}:{number}: a function of {length} lines: look for parsing, deciding and writing in one")


if __name__ == "__main__":
    main(sys.argv[1])
