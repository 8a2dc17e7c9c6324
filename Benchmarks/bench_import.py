#!/usr/bin/python3
"""Measures `qvfilter import` beside openpyxl's load of the same workbooks, and beside the floor.

Usage: bench_import.py QVFILTER [--floor INFLATE_EXPAT_FLOOR] [--runs 3] [--small]

CPU seconds (user and system) and peak memory of child processes; the contestants alternate, the median counts. Only
ratios between columns of one run mean anything on another machine. --small leaves out the largest workbooks.
"""
import argparse
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
from collections import namedtuple

from make_workbook import write

Figures = namedtuple("Figures", "seconds mebibytes")
Workbook = namedtuple("Workbook", "name rows merges formats")

COLUMNS = 20
WORKBOOKS = (
    Workbook("10k cells", 500, 200, 8),
    Workbook("100k cells", 5000, 200, 8),
    Workbook("1M cells", 50000, 200, 8),
    Workbook("1M cells, 40k merges", 50000, 40000, 8),
    Workbook("1M cells, 8k formats", 50000, 200, 8000),
)

# What somebody does who wants the values: load, then look at each cell.
OPENPYXL = """
import sys, openpyxl
sheet = openpyxl.load_workbook(sys.argv[1], data_only=True).worksheets[0]
print(sum(cell.value is not None for row in sheet.iter_rows() for cell in row))
"""


def measure(command):
    """CPU seconds and peak memory of one run of command, and what it printed."""
    with tempfile.TemporaryFile() as out:
        child = subprocess.Popen(command, stdout=out)
        _, code, usage = os.wait4(child.pid, 0)
        child.returncode = os.waitstatus_to_exitcode(code)
        if child.returncode:
            sys.exit(f"{command} ended with {child.returncode}")
        out.seek(0)
        return Figures(usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024), out.read().decode()


def check_count(who, text, cells):
    """A contestant that reads less must not win."""
    if str(cells) not in text.split():
        sys.exit(f"{who} did not find {cells} cells: {text[:200]}")


def measure_workbook(options, path, folder, cells):
    """The median figures of each contestant on one workbook: {name: Figures}."""
    contestants = {"ours": [options.program, "import", path, "--report", f"{folder}/report.json"],
                   "openpyxl": ["/usr/bin/python3", "-c", OPENPYXL, path]}
    if options.floor:
        contestants["floor"] = [options.floor, path]
    figures = {name: [] for name in contestants}
    for _ in range(options.runs):
        for name, command in contestants.items():
            found, text = measure(command)
            figures[name].append(found)
            if name != "ours":
                check_count(name, text, cells)
    return {name: Figures(*(statistics.median(column) for column in zip(*runs))) for name, runs in figures.items()}


def check_ours(options, path, folder, cells):
    """One import whose model is counted: what is timed below reads every cell."""
    model = f"{folder}/model.json"
    measure([options.program, "import", path, "--model", model])
    with open(model, "rb") as file:
        found = file.read().count(b'"ref"')
    if found < cells:
        sys.exit(f"the import holds {found} of {cells} cells")


class Table:
    """Prints one line per comparison and remembers whether a bar was missed."""

    def __init__(self):
        self.missed = 0
        print(f"{'name':44} {'ours':>12} {'reference':>12} {'ratio':>8} {'bar':>8}")

    def add(self, name, ours, reference, unit, bar):
        """A line about ours / reference, which must not exceed the bar; None where there is no bar."""
        ratio = ours / reference
        verdict = "" if bar is None else "ok" if ratio <= bar else "MISSED"
        self.missed += verdict == "MISSED"
        print(f"{name:44} {ours:9.3f} {unit:2} {reference:9.3f} {unit:2} {ratio:8.3f} {'' if bar is None else bar:>8} "
              f"{verdict}", flush=True)


def report(table, results):
    for name, figures in results.items():
        largest = name == "1M cells"
        ours, theirs = figures["ours"], figures["openpyxl"]
        table.add(f"import {name} / openpyxl", ours.seconds, theirs.seconds, "s", 0.1 if largest else None)
        table.add(f"import {name} / openpyxl, memory", ours.mebibytes, theirs.mebibytes, "MB", 0.5 if largest else None)
        if "floor" in figures:
            table.add(f"import {name} / inflate+expat floor", ours.seconds, figures["floor"].seconds, "s",
                      1.5 if largest else None)
    for small, large in (("10k cells", "100k cells"), ("100k cells", "1M cells")):
        if large in results:
            table.add(f"import growth {small} -> {large}", results[large]["ours"].seconds,
                      results[small]["ours"].seconds, "s", 10.5)
    for more in ("1M cells, 40k merges", "1M cells, 8k formats"):
        if more in results:
            table.add(f"import {more} / without", results[more]["ours"].seconds, results["1M cells"]["ours"].seconds,
                      "s", 1.15)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program")
    parser.add_argument("--floor")
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--small", action="store_true")
    options = parser.parse_args()
    results = {}
    with tempfile.TemporaryDirectory() as folder:
        for book in WORKBOOKS:
            if options.small and book.rows > 5000:
                continue
            path = str(pathlib.Path(folder) / "workbook.xlsx")
            write(path, book.rows, COLUMNS, book.merges, book.formats)
            check_ours(options, path, folder, book.rows * COLUMNS)
            results[book.name] = measure_workbook(options, path, folder, book.rows * COLUMNS)
    table = Table()
    report(table, results)
    return 1 if table.missed else 0


if __name__ == "__main__":
    sys.exit(main())
