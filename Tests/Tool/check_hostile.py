#!/usr/bin/python3
"""Feeds packages that were made to do harm to the program, and watches it.

Usage: check_hostile.py QVFILTER [--only NAME] [--kind xlsx|docx|pptx] [--keep FOLDER]
Each package is imported, and asked for its links; text documents and presentations become a page, Markdown and plain text too. They are
made anew in a temporary folder; --keep writes them to FOLDER for a closer look.
"""
import argparse
import io
import pathlib
import re
import sys
import tempfile

import file_trace
import hostile_drawings
import hostile_packages
import hostile_parts
import hostile_slides
import hostile_texts
from compare_rules import compare_model
from compare_slides import compare_model as compare_slides
from compare_texts import compare_model as compare_texts
from sheet_reader import WorkbookReader
from slide_reader import SlideReader
from text_reader import TextReader
from tool_runner import allowance
from watched_import import Watcher

OUTPUTS = ("page.html", "text.md", "text.txt")


def problems_of(case, watcher, path):
    """What is wrong with the program's answer to one case."""
    content = case.make()
    path.write_bytes(content)

    def compare(verdict, media):
        if not case.compare and not case.like:
            return []
        if case.suffix == "pptx":
            return [str(tuple(found)) for found in compare_slides(verdict.model, SlideReader(io.BytesIO(content))).found]
        if case.suffix == "docx":
            return [str(tuple(found)) for found in compare_texts(verdict.model, TextReader(io.BytesIO(content))).found]
        sheets = WorkbookReader(io.BytesIO(case.like() if case.like else content)).sheets
        return [str(tuple(found)) for found in compare_model(verdict.model, media, verdict.report, sheets)]

    verdict = watcher.watch(path, compare)
    problems = verdict.problems + [f"links: {problem}" for problem in watcher.watch_links(path).problems]
    for output in OUTPUTS if case.suffix != "xlsx" else ():
        problems += [f"{output}: {problem}" for problem in watcher.watch_output(path, output).problems]
    if verdict.status not in case.statuses:
        problems.append(f"expected status {sorted(case.statuses)}, got {verdict.status}: {verdict.line[:300]!r}")
    said = [verdict.line] if verdict.status == 1 else verdict.messages
    if case.says and not any(re.search(case.says, text) for text in said):
        problems.append(f"expected to hear {case.says!r}, heard {said[:5]}")
    return problems


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program")
    parser.add_argument("--only", default="")
    parser.add_argument("--kind", choices=("xlsx", "docx", "pptx"), help="one kind of package alone, so that several run at once")
    parser.add_argument("--keep", type=pathlib.Path)
    options = parser.parse_args()
    modules = (hostile_packages, hostile_parts, hostile_drawings, hostile_texts, hostile_slides)
    cases = [case for module in modules for case in module.CASES
             if options.only in case.name and options.kind in (None, case.suffix)]
    if not file_trace.STRACE:
        print("strace is not installed: system calls are not watched")
    if not allowance(options.program).optimised:
        print("left out in this build:", *(case.name for case in cases if case.is_long))
        cases = [case for case in cases if not case.is_long]
    watcher, wrong = Watcher(options.program), 0
    with tempfile.TemporaryDirectory() as name:
        folder = options.keep or pathlib.Path(name)
        folder.mkdir(parents=True, exist_ok=True)
        for case in cases:
            path = folder / f"{case.name}.{case.suffix}"
            problems = problems_of(case, watcher, path)
            wrong += bool(problems)
            for problem in problems:
                print(f"{case.name}: {problem}"[:1200])
            if not options.keep:
                path.unlink()
    print(f"{len(cases)} packages, {wrong} of them with problems")
    return 1 if wrong or not cases else 0


if __name__ == "__main__":
    sys.exit(main())
