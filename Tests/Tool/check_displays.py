#!/usr/bin/python3
"""Shows values by every number format of the documents in a folder, here and in another office suite.

Usage: check_displays.py QVFILTER FOLDER DIFFERENCES. Two workbooks hold the same cells, one with days from 1904, one with
days from 1900. DIFFERENCES lists, by date system (or "both"), code and value, what is shown otherwise there and why; fewer than
2 % of each workbook may be. Two things are no differences: what can't be shown is "########" here and "#FMT" there, and days 0 to
60 from 1900, where spreadsheets have a 29th of February 1900 and that suite counts from 30 December 1899, are not compared.
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
import zlib
from xml.etree import ElementTree

import openpyxl
from openpyxl.utils import get_column_letter
from openpyxl.utils.datetime import CALENDAR_MAC_1904, CALENDAR_WINDOWS_1900

from tool_runner import skip

VALUES = [-1234.5678, -1, -0.4, 0, 0.5, 1, 12, 1234.5678, 44197.75, 1e10, "text"]
DATE_PARTS = re.compile(r"[ydmeg]", re.IGNORECASE)
SYSTEMS = ("1904", "1900")
BYTES_MAX = 64 << 20
LISTED_MAX = 0.02
NOT_SHOWN = {"########", "#FMT"}
# Comma, quotes, UTF-8, from the first line on, US English, unquoted texts, no guessing of numbers, cells as they are shown.
CSV_FILTER = "csv:Text - txt - csv (StarCalc):44,34,76,1,,1033,false,false,true"


def codes_of(path):
    """The number format codes of a document's styles, tables and charts; nothing for what is no sound package."""
    try:
        with zipfile.ZipFile(path) as package:
            for info in package.infolist():
                if info.filename.endswith(".xml") and info.file_size < BYTES_MAX:
                    yield from codes_of_part(package, info)
    except (zipfile.BadZipFile, NotImplementedError, OSError):
        return


def codes_of_part(package, info):
    try:
        data = package.read(info)
        for element in ElementTree.fromstring(data).iter() if b"formatCode" in data else ():
            name = element.tag.rpartition("}")[2]
            code = element.get("formatCode") if name == "numFmt" else element.text if name == "formatCode" else None
            if code:
                yield code
    except (zipfile.BadZipFile, zlib.error, ElementTree.ParseError, EOFError, NotImplementedError, RuntimeError):
        return


def write(path, codes, epoch):
    book = openpyxl.Workbook()
    book.epoch = epoch
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


def has_date(code):
    bare = re.sub(r'"[^"]*"|\\.|\[[^\]]*\]', "", code.split(";")[0])
    return DATE_PARTS.search(re.sub("General|E[+-]|AM/PM|h+[^a-z]*m+|m+[^a-z]*s", "", bare, flags=re.IGNORECASE)) is not None


def is_alike(ours, theirs):
    # Blanks at an end, which are as wide as a character, come and go.
    return ours.strip() == theirs.strip() or (ours in NOT_SHOWN and theirs in NOT_SHOWN)


def compare(program, suite, codes, system):
    """What is shown otherwise in one of the date systems: {(system, code, value): (here, there)}, as Python writes them."""
    with tempfile.TemporaryDirectory() as scratch:
        path = str(pathlib.Path(scratch) / "displays.xlsx")
        write(path, codes, CALENDAR_MAC_1904 if system == "1904" else CALENDAR_WINDOWS_1900)
        there = shown_there(suite, path, scratch)
        here = shown_here(program, path, scratch)
    found, apart = {}, 0
    for row, code in enumerate(codes):
        for column, value in enumerate(VALUES):
            ours = here.get(f"{get_column_letter(column + 1)}{row + 1}", "")
            theirs = there[row][column] if row < len(there) and column < len(there[row]) else ""
            if is_alike(ours, theirs):
                continue
            if system == "1900" and value != "text" and 0 <= value < 61 and has_date(code):
                apart += 1
            else:
                found[system, repr(code), repr(value)] = (repr(ours), repr(theirs))
    total = len(codes) * len(VALUES)
    print(f"from {system}: {len(codes)} codes, {total} values, {len(found)} shown otherwise ({len(found) / total:.1%}), "
          f"and {apart} days up to the 60th")
    return found, len(found) < LISTED_MAX * total


def main(program, folder, differences):
    suite = shutil.which("soffice")
    if not suite:
        return skip("no other office suite is installed")
    codes = sorted({code for path in pathlib.Path(folder).rglob("*.[xdp]*") for code in codes_of(path)})
    if not codes:
        return skip(f"no documents with number formats in {folder}")
    known = {}
    for line in pathlib.Path(differences).read_text(encoding="utf-8").splitlines():
        if not line.startswith("#"):
            systems, code, value, here, there, _ = line.split("\t")
            for system in SYSTEMS if systems == "both" else (systems,):
                known[system, code, value] = (here, there)
    found, are_few = {}, True
    for system in SYSTEMS:
        differing, is_few = compare(program, suite, codes, system)
        found.update(differing)
        are_few = are_few and is_few
    unlisted = [place for place, texts in found.items() if known.get(place) != texts]
    for place in unlisted:
        print("\t".join((*place, *found[place])))
    for place in known.keys() - found.keys():
        print(f"{place} is shown alike, and is listed")
    return 0 if are_few and not unlisted and known.keys() == found.keys() else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
