#!/usr/bin/python3
"""Imports every workbook of a folder and compares the result with two other readers of the same file.

Usage: compare_corpus.py QVFILTER FOLDER EXPECTED_DIFFERENCES [--only NAME] [--jobs N]

FOLDER/xlsx holds the workbooks, or FOLDER itself. The slow reader beside this script decides; openpyxl must agree
with it, or a named rule must say what openpyxl alters. What differs all the same stands in EXPECTED_DIFFERENCES,
tab-separated: file, sheet (or "-"), category and count, reason. The list is exact: a row that does not occur any
more fails as a new difference does.
"""
import argparse
import collections
import concurrent.futures
import io
import json
import pathlib
import sys
import tempfile
import warnings
import zipfile

import openpyxl
import openpyxl.reader.drawings

from compare_charts import compare_charts
from compare_rules import Difference, OpenpyxlRules, compare_model
from sheet_names import model_names
from sheet_reader import Unreadable, WorkbookReader
from tool_runner import allowance, run, skip


class RawImage:
    """Stands in for openpyxl's pictures, which it drops unless another library decodes them."""
    format = "raw"

    def __init__(self, stream):
        self.content = stream.read()
        self.anchor = None


openpyxl.reader.drawings.PILImage = True
openpyxl.reader.drawings.Image = RawImage


# Openpyxl finds no sheets in the strict namespaces, nor parts behind backslashes; it gets the same package respelled.
STRICT = ((b"http://purl.oclc.org/ooxml/spreadsheetml/", b"http://schemas.openxmlformats.org/spreadsheetml/2006/"),
          (b"http://purl.oclc.org/ooxml/drawingml/", b"http://schemas.openxmlformats.org/drawingml/2006/"),
          (b"http://purl.oclc.org/ooxml/officeDocument/relationships",
           b"http://schemas.openxmlformats.org/officeDocument/2006/relationships"))


def respelled(path):
    """The package at path, its strict namespaces and backslashes replaced; or path itself, where it has none."""
    with zipfile.ZipFile(path) as package:
        parts = {name: package.read(name) for name in package.namelist()}
    if not any("\\" in name or b"purl.oclc.org/ooxml" in part for name, part in parts.items()):
        return path
    stream = io.BytesIO()
    with zipfile.ZipFile(stream, "w") as package:
        for name, part in parts.items():
            if name.endswith((".xml", ".rels")):
                for strict, usual in STRICT:
                    part = part.replace(strict, usual)
            package.writestr(name.replace("\\", "/"), part)
    return stream


def load(path, values):
    with warnings.catch_warnings():
        warnings.simplefilter("ignore")
        return openpyxl.load_workbook(respelled(path), data_only=values)


def import_file(program, path, folder):
    """The model and the report of an import, or the difference that its failure is."""
    model, report, media = folder / "model.json", folder / "report.json", folder / "media"
    command = [program, "import", str(path), "--model", str(model), "--report", str(report), "--media", str(media),
               "--ids", "sequential"]
    outcome = run(command, timeout=60 * allowance(program).time)
    if outcome.status != 0 or outcome.timed_out:
        why = "took too long" if outcome.timed_out else f"status {outcome.status}: {outcome.error_lines()[:3]}"
        return None, None, [Difference("", "import", why)]
    with open(model, encoding="utf-8") as file, open(report, encoding="utf-8") as messages:
        return json.load(file), json.load(messages), []


def compare_file(program, path):
    """All differences of one file, and how often each of openpyxl's rules was needed."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        model, report, found = import_file(program, path, folder)
        try:
            reader = WorkbookReader(path)
        except Unreadable as error:
            return found + [Difference("", "slow reader", str(error))], {}
        if model:
            found += compare_model(model, folder / "media", report, reader.sheets, reader.default_font)
    rules = OpenpyxlRules(reader.date1904)
    try:
        book = load(path, values=True)
        found += rules.compare(reader.sheets, book)
        if model and [table["name"] for table in model["tables"]] == [sheet.title for sheet in book.worksheets]:
            found += compare_charts(model, book, rules.counts)
        formulas = any(cell.has_formula for sheet in reader.sheets for cell in sheet.cells.values())
        if model and formulas and [table["name"] for table in model["tables"]] == model_names([s.name for s in reader.sheets]):
            found += rules.compare_formulas(model, load(path, values=False))
    except Exception as error:  # pylint: disable=broad-except
        # Openpyxl fails in many ways on files that others open; each one has its row in the list.
        found.append(Difference("", f"openpyxl fails with {type(error).__name__}", str(error)[:200]))
    return found, rules.counts


def summarise(found):
    """{(sheet, "category count"): first details}"""
    groups = collections.defaultdict(list)
    for difference in found:
        groups[difference.sheet or "-", difference.category].append(difference.detail)
    return {(sheet, f"{category} {len(details)}"): details[:5] for (sheet, category), details in groups.items()}


def read_expected(path):
    rows = {}
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line or line.startswith("#"):
            continue
        fields = line.split("\t")
        if len(fields) != 4 or not fields[3].strip():
            sys.exit(f"{path.name}:{number}: four fields are needed, and the last one gives the reason")
        rows[tuple(fields[:3])] = fields[3]
    return rows


def judge(name, found, expected):
    """Prints what is not expected, and what is expected in vain; returns how many there were."""
    wanted = {key[1:] for key in expected if key[0] == name}
    occurring = summarise(found)
    for (sheet, what), details in occurring.items():
        if (sheet, what) not in wanted:
            print(f"{name}\t{sheet}\t{what}")
            for detail in details:
                print(f"        {detail}"[:400])
    for sheet, what in sorted(wanted - occurring.keys()):
        print(f"{name}\t{sheet}\t{what}: is listed, but does not occur any more")
    return len(occurring.keys() ^ wanted)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program")
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("expected", type=pathlib.Path)
    parser.add_argument("--only", default="")
    parser.add_argument("--jobs", type=int, default=2)
    options = parser.parse_args()
    folder = options.folder / "xlsx" if (options.folder / "xlsx").is_dir() else options.folder
    paths = sorted(path for path in folder.glob("*.xls[xm]") if options.only in path.name)
    if not paths:
        return skip(f"no workbooks in {folder}")
    expected = read_expected(options.expected)
    wrong, rules = 0, collections.Counter()
    with concurrent.futures.ProcessPoolExecutor(options.jobs) as pool:
        for path, (found, counts) in zip(paths, pool.map(compare_file, [options.program] * len(paths), paths)):
            wrong += judge(path.name, found, expected)
            rules.update(counts)
    names = {path.name for path in folder.iterdir()}
    for key in expected:
        if key[0] not in names:
            wrong += 1
            print(f"{key[0]}: is listed, but there is no such file")
    print(f"{len(paths)} files, {sum(rules.values())} cells")
    for rule, count in rules.most_common():
        print(f"    {count:9} {rule}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
