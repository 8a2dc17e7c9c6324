#!/usr/bin/env python3
"""Fails where a tracked file holds words that do not belong in this project.

Usage: check_words.py ROOT. The patterns are written with a character class each, so that they do not match themselves.
"""
import pathlib
import re
import subprocess
import sys

RULES = [
    (r"\b(T[O]DO|F[I]XME|X[X]X|H[A]CK)\b", "an unfinished place", "finish it, or describe the limit as it is"),
    (r"(?<![\w.~-])/(w[o]rk|f[a]rm|h[o]me|r[o]ot)/\w|(?<!\w)/tm[p]/b[r]ief", "a path of one machine",
     "name it relative to the repository"),
    (r"\bParts? \d+\.\d|\bsp[e]c\.md\b|\bthe sp[e]c\b", "a document that is not here",
     "say what holds, or cite the public standard"),
    (r"\bDISABLED_\w|EXPECT_TRUE\(tr[u]e\)|\bSUCC[E]ED\(\)", "a test that tests nothing", "assert something or remove it"),
]


def tracked(root):
    output = subprocess.run(["git", "-C", root, "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
                            check=True, stdout=subprocess.PIPE).stdout
    return [pathlib.Path(root) / name for name in output.decode().split("\0") if name]


def findings(path, shown):
    try:
        text = path.read_text(encoding="utf-8")
    except (UnicodeDecodeError, FileNotFoundError, IsADirectoryError):
        return  # a picture, a seed or a workbook; or removed but still in the index
    for number, line in enumerate(text.splitlines(), 1):
        for pattern, what, remedy in RULES:
            match = re.search(pattern, line)
            if match:
                yield f"{shown}:{number}: '{match[0]}' is {what}: {remedy}"


def main(root):
    found = [text for path in tracked(root) for text in findings(path, path.relative_to(root))]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
