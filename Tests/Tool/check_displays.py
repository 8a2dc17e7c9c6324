#!/usr/bin/python3
"""Shows values by every number format of the workbooks in a folder, here and in another office suite.

Usage: check_displays.py QVFILTER FOLDER DIFFERENCES. DIFFERENCES lists, by code and value, what is shown otherwise there
and why. Two differences of dates are rules instead: days before March 1900, where spreadsheets count a 29th of February
1900 and have no days before the first while that suite counts from 30 December 1899, and days beyond the year 9999.
"""
import csv
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import zipfile
from xml.etree import ElementTree

import openpyxl
from openpyxl.utils import get_column_letter

from tool_runner import skip

VALUES = [-1234.5678, -1, -0.4, 0, 0.5, 1, 12, 1234.5678, 44197.75, 1e10, "text"]
DATE_PARTS = re.compile(r"[ydme]", re.IGNORECASE)
BYTES_MAX = 64 << 20
# Comma, quotes, UTF-8, from the first line on, US English, unquoted texts, no guessing of numbers, cells as they are shown.
CSV_FILTER = "csv:Text - txt - csv (StarCalc):44,34,76,1,,1033,false,false,true"


def codes_of(path):
    """The codes of a workbook's number formats; nothing for what is no sound package."""
    try:
        with zipfile.ZipFile(path) as package:
            info = package.getinfo("xl/styles.xml")
            if info.file_size < BYTES_MAX:
                for element in ElementTree.fromstring(package.read(info)).iter():
                    if element.tag.endswith("}numFmt") and element.get("formatCode"):
                        yield element.get("formatCode")
    except (zipfile.BadZipFile, ElementTree.ParseError, EOFError, KeyError, NotImplementedError, RuntimeError):
        return


def write(path, codes):
    book = openpyxl.Workbook()
    sheet = book.active
    for row, code in enumerate(codes, 1):
        for column, value in enumerate(VALUES, 1):
            cell = sheet.cell(row, column, value)
            cell.number_format = code
    book.save(path)


def shown_there(suite, path, folder):
    subprocess.run([suite, f"-env:UserInstallation=file://{folder}/profile", "--headless", "--convert-to", CSV_FILTER,
                    "--outdir", folder, path], capture_output=True, timeout=300, check=True)
    with open(pathlib.Path(folder) / "displays.csv", encoding="utf-8", newline="") as file:
        return list(csv.reader(file))


def shown_here(program, path, folder):
    model = pathlib.Path(folder) / "model.json"
    subprocess.run([program, "import", path, "--model", model], capture_output=True, timeout=60, check=True)
    cells = json.loads(model.read_text(encoding="utf-8"))["tables"][0]["cells"]
    return {cell["ref"]: cell.get("display", shortest(cell["value"])) for cell in cells if "value" in cell}


def shortest(value):
    return value if isinstance(value, str) else f"{value:.15g}"


def is_date_apart(code, value):
    """Whether the two count days differently there: outside of March 1900 to 9999, by a code with parts of dates."""
    bare = re.sub(r'"[^"]*"|\\.|\[[^\]]*\]', "", code.split(";")[0])
    is_time = re.search("[hs]", bare, re.IGNORECASE) is not None
    has_date = DATE_PARTS.search(re.sub("General|E[+-]", "", bare)) is not None
    return value != "text" and ((value < 61 and has_date) or (value < 0 and is_time) or (value > 2958465 and (has_date or is_time)))


def main(program, folder, differences):
    suite = shutil.which("soffice")
    if not suite:
        return skip("no other office suite is installed")
    codes = sorted({code for path in pathlib.Path(folder).rglob("*.xls[xm]") for code in codes_of(path)})
    if not codes:
        return skip(f"no workbooks with number formats in {folder}")
    known = {}
    for line in pathlib.Path(differences).read_text(encoding="utf-8").splitlines():
        if not line.startswith("#"):
            code, value, here, there, _ = line.split("\t")
            known[code, value] = (here, there)
    with tempfile.TemporaryDirectory() as scratch:
        path = str(pathlib.Path(scratch) / "displays.xlsx")
        write(path, codes)
        there = shown_there(suite, path, scratch)
        here = shown_here(program, path, scratch)
    found, apart, unlisted = {}, 0, 0
    for row, code in enumerate(codes):
        for column, value in enumerate(VALUES):
            ours = here.get(f"{get_column_letter(column + 1)}{row + 1}", "")
            theirs = there[row][column] if row < len(there) and column < len(there[row]) else ""
            if ours.strip() == theirs.strip():  # blanks at an end, which are as wide as a character, come and go
                continue
            if is_date_apart(code, value):
                apart += 1
            else:
                found[repr(code), repr(value)] = (repr(ours), repr(theirs))
    for place, texts in found.items():
        if known.get(place) != texts:
            unlisted += 1
            print("\t".join((*place, *texts)))
    for place in known.keys() - found.keys():
        print(f"{place} is shown alike, and is listed")
    total = len(codes) * len(VALUES)
    print(f"{len(codes)} codes, {total} values, {len(found)} shown otherwise, and {apart} days that count differently")
    return 0 if not unlisted and known.keys() == found.keys() else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
