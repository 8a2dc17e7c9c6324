#!/usr/bin/python3
"""Measures `qvfilter import` of text documents beside python-docx, which loads them and looks at each run.

Usage: bench_text_import.py QVFILTER [--runs 3] [--small]

CPU seconds (user and system) and peak memory of child processes; the contestants alternate, the median counts. Only
ratios between columns of one run mean anything on another machine. --small leaves out the largest document.
"""
import argparse
import pathlib
import statistics
import sys
import tempfile

from bench_import import Figures, Table, check_count, measure
from make_text_document import count_runs, write

SIZES = (1000, 10000, 100000)
GROWTH, TIME, MEMORY = 10.5, 1, 0.5

# What somebody does who wants the text: load, then look at each run.
PYTHON_DOCX = """
import sys, docx
runs = 0
for paragraph in docx.Document(sys.argv[1]).paragraphs:
    style = paragraph.style.name
    for run in paragraph.runs:
        runs += bool(run.text) and (run.bold, style) != (None, None)
print(runs)
"""

# The model is counted by a process of its own: what this one holds would count as its children's memory.
COUNT = """
import json, sys
blocks = json.load(open(sys.argv[1], encoding="utf-8"))["blocks"]
print(len(blocks), sum(len(block["runs"]) for block in blocks))
"""


def measure_document(options, path, paragraphs):
    """The median figures of each contestant on one document: {name: Figures}."""
    contestants = {"ours": [options.program, "import", path],
                   "python-docx": ["/usr/bin/python3", "-c", PYTHON_DOCX, path]}
    figures = {name: [] for name in contestants}
    for _ in range(options.runs):
        for name, command in contestants.items():
            found, text = measure(command)
            figures[name].append(found)
            if name != "ours":
                check_count(name, text, count_runs(paragraphs))
    return {name: Figures(*(statistics.median(column) for column in zip(*runs))) for name, runs in figures.items()}


def check_ours(options, path, folder, paragraphs):
    """One import whose model is counted: what is timed below reads every paragraph and run."""
    model = f"{folder}/model.json"
    measure([options.program, "import", path, "--model", model])
    found = measure(["/usr/bin/python3", "-c", COUNT, model])[1].split()
    expected = [str(paragraphs), str(count_runs(paragraphs))]
    if found != expected:
        sys.exit(f"the import holds {found} paragraphs and runs, not {expected}")


def report(table, results):
    for size, figures in results.items():
        ours, theirs = figures["ours"], figures["python-docx"]
        is_judged = size == SIZES[-1]
        table.add(f"import {size} paragraphs / python-docx", ours.seconds, theirs.seconds, "s", TIME if is_judged else None)
        table.add(f"import {size} paragraphs / python-docx, memory", ours.mebibytes, theirs.mebibytes, "MB",
                  MEMORY if is_judged else None)
    for small, large in zip(SIZES, SIZES[1:]):
        if large in results:
            table.add(f"import growth {small} -> {large} paragraphs", results[large]["ours"].seconds,
                      results[small]["ours"].seconds, "s", GROWTH)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program")
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--small", action="store_true")
    options = parser.parse_args()
    results = {}
    with tempfile.TemporaryDirectory() as folder:
        for paragraphs in SIZES[:-1] if options.small else SIZES:
            path = str(pathlib.Path(folder) / "document.docx")
            write(path, paragraphs)
            check_ours(options, path, folder, paragraphs)
            results[paragraphs] = measure_document(options, path, paragraphs)
    table = Table()
    report(table, results)
    return 1 if table.missed else 0


if __name__ == "__main__":
    sys.exit(main())
