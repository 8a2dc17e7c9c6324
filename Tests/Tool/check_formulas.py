#!/usr/bin/python3
"""Reads every formula of the workbooks in a folder and prints it again: the text must come back.

Usage: check_formulas.py ROUNDTRIP FOLDER EXCEPTIONS. ROUNDTRIP takes formulas from standard input, each ended by a zero
byte, and gives "=" and a text, or "?", for each. Quotes around names of tables that need none count for nothing:
programs differ in where they put them. EXCEPTIONS lists formulas that do not come back, with the reason; at
most one formula in 200 may stay without a tree.
"""
import pathlib
import re
import subprocess
import sys
import zipfile
from xml.etree import ElementTree

from compare_rules import normalised

FORMULAS = {"f", "definedName", "formula", "formula1", "formula2"}
PARTS = re.compile(r"xl/(worksheets/[^/]+|charts/[^/]+|workbook)\.xml$")
BYTES_MAX = 64 << 20
SHARE_MAX = 0.005


def formulas_of(path):
    """The texts of all formulas; nothing for what is no sound package."""
    try:
        with zipfile.ZipFile(path) as package:
            for info in package.infolist():
                if PARTS.match(info.filename) and info.file_size < BYTES_MAX:
                    for element in ElementTree.fromstring(package.read(info)).iter():
                        if element.tag.rpartition("}")[2] in FORMULAS and (element.text or "").strip():
                            yield element.text
    except (zipfile.BadZipFile, ElementTree.ParseError, EOFError, NotImplementedError, RuntimeError):
        return


def comparable(formula):
    """The formula without blanks and case, needless quotes, and the table of a lost reference."""
    text = re.sub(r"'((?:\[\w+\])?[\w.:]+)'!", r"\1!", formula.strip())
    text = normalised(text)
    return re.sub(r"(?:'[^']*'|\w+)!#REF!", "#REF!", text)


def is_same(formula, printed):
    return comparable(printed) in (comparable(formula), f"({comparable(formula)})")


def round_trip(program, formulas):
    done = subprocess.run([program], input="".join(text + "\0" for text in formulas).encode(), capture_output=True,
                          timeout=300, check=True)
    return done.stdout.decode().split("\0")[:-1]


def main(program, folder, exceptions):
    paths = sorted(pathlib.Path(folder).rglob("*.xls[xm]"))
    if not paths:
        print(f"skipped: no workbooks in {folder}")
        return 77
    known = dict(line.split("\t") for line in pathlib.Path(exceptions).read_text(encoding="utf-8").splitlines()
                 if not line.startswith("#"))
    formulas = sorted({text for path in paths for text in formulas_of(path)})
    results = round_trip(program, formulas)
    if len(results) != len(formulas):
        print(f"{len(formulas)} formulas gave {len(results)} results")
        return 1
    unread = [text for text, result in zip(formulas, results) if result == "?"]
    changed = {text: result for text, result in zip(formulas, results) if not is_same(text, result[1:])}
    for text, result in changed.items():
        if repr(text) not in known:
            print(f"{text!r} came back as {result!r}")
    for text in known.keys() - {repr(text) for text in changed}:
        print(f"{text} comes back, and is no exception")
    print(f"{len(formulas)} formulas, {len(unread)} without a tree, {len(changed)} not the same")
    is_good = changed.keys() <= {text for text in changed if repr(text) in known} and len(known) == len(changed)
    return 0 if is_good and len(unread) <= SHARE_MAX * len(formulas) else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
