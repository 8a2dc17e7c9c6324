#!/usr/bin/python3
"""Feeds the damaged, encrypted and hostile documents of a corpus to the program, and watches it.

Usage: check_bad.py QVFILTER CORPUS EXPECTATIONS

Each is imported, and asked for its links. EXPECTATIONS is about imports, tab-separated: file, status, a part of the
line on stderr (status 1) or of one message of the report (status 0; "-" where the file is sound in what is read), why.
Every file of CORPUS/bad has its row.
"""
import pathlib
import sys

import file_trace
from tool_runner import skip
from watched_import import Watcher


def read_rows(path):
    rows = {}
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line or line.startswith("#"):
            continue
        fields = line.split("\t")
        if len(fields) != 4 or fields[1] not in ("0", "1") or not all(fields):
            sys.exit(f"{path.name}:{number}: file, status 0 or 1, text and reason are needed")
        rows[fields[0]] = (int(fields[1]), fields[2])
    return rows


def problems_of(path, watcher, row):
    verdict = watcher.watch(path)
    problems = verdict.problems + [f"links: {problem}" for problem in watcher.watch_links(path).problems]
    said = [verdict.line.strip()] if verdict.status == 1 else verdict.messages
    if row is None:
        return problems + [f"has no row; got status {verdict.status}, heard {said[:3]}"]
    status, text = row
    if verdict.status != status:
        problems.append(f"expected status {status}, got {verdict.status}: {verdict.line[:300]!r}")
    elif (text == "-") != (not said) or (text != "-" and not any(text in line for line in said)):
        problems.append(f"expected to hear {text!r}, heard {said[:5]}")
    return problems


def main(program, corpus, expectations):
    paths = sorted((pathlib.Path(corpus) / "bad").glob("*"))
    if not paths:
        return skip(f"no documents in {corpus}/bad")
    if not file_trace.STRACE:
        print("strace is not installed: system calls are not watched")
    rows, watcher, wrong = read_rows(pathlib.Path(expectations)), Watcher(program), 0
    for path in paths:
        problems = problems_of(path.resolve(), watcher, rows.pop(path.name, None))
        wrong += bool(problems)
        for problem in problems:
            print(f"{path.name}: {problem}"[:1200])
    for name in rows:
        wrong += 1
        print(f"{name}: has a row, but there is no such file")
    print(f"{len(paths)} documents, {wrong} problems")
    return 1 if wrong else 0


if __name__ == "__main__":
    if len(sys.argv) != 4:
        print(__doc__, file=sys.stderr)
        sys.exit(2)
    sys.exit(main(*sys.argv[1:]))
