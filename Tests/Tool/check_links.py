#!/usr/bin/python3
"""Compares what `qvfilter links` says of documents with the relationships that are in their packages.

Usage: check_links.py QVFILTER SAMPLES CORPUS

Every external relationship of every document of CORPUS and SAMPLES must be there once, with its kind, its part and
where it leads; nothing that it leads to may be opened. CORPUS may be missing.
"""
import json
import os
import pathlib
import re
import sys
import tempfile
import urllib.parse
import zipfile
from xml.etree import ElementTree

import file_trace
from tool_runner import allowance, run, skip

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent.parent / "Samples"))
# pylint: disable=wrong-import-position
from package_parts import relations, workbook, write_package

NAMESPACE = "{http://schemas.openxmlformats.org/package/2006/relationships}"
SCHEME = re.compile(r"[A-Za-z0-9+.-]{2,}:")
KEYS = ["kind", "part", "id", "target", "place", "file"]

# What the document in the folder "deep" says, and where it leads: (kind, target, place, file below the folder's own).
TARGETS = [
    ("externalLinkPath", "beside.xlsx", "found", "deep/beside.xlsx"),
    ("externalLinkPath", "file://beside.xlsx", "found", "deep/beside.xlsx"),
    ("externalLinkPath", "../above.xlsx", "found", "deep/../above.xlsx"),
    ("externalLinkPath", "none.xlsx", "missing", None),
    ("hyperlink", "two%20words.docx", "found", "deep/two words.docx"),
    ("hyperlink", "two%20words.docx#a%20place", "found", "deep/two words.docx"),
    ("hyperlink", "as%20is.docx", "found", "deep/as%20is.docx"),
    ("hyperlink", "number#1.docx", "found", "deep/number#1.docx"),
    ("hyperlink", "https://example.org/beside.xlsx", "remote", None),
    ("hyperlink", "mailto:a@example.org", "remote", None),
    ("hyperlink", "//host/share/beside.xlsx", "remote", None),
    ("hyperlink", "\\\\host\\share\\beside.xlsx", "remote", None),
    ("hyperlink", "#Sheet1!A1", "inside", None),
    ("hyperlink", "", "inside", None),
    ("hyperlink", "file:///C:\\beside.xlsx", "missing", None),
    ("hyperlink", "C:\\beside.xlsx", "missing", None),
    ("hyperlink", "FILE://beside.xlsx", "missing", None),
    ("hyperlink", "a\u00e9/b.xlsx", "missing", None),
    ("image", "picture.png", "found", "deep/picture.png"),
    ("attachedTemplate", "folder", "found", "deep/folder"),
    ("xlPathMissing", "x" * 5000, "missing", None),
]
FILES = ["beside.xlsx", "../above.xlsx", "two words.docx", "as%20is.docx", "number#1.docx", "picture.png"]


def source_of(part):
    """The part that has the relationships in part; None for other parts."""
    match = re.fullmatch(r"((?:.*/)?)_rels/([^/]*)\.rels", part, re.IGNORECASE)
    return match[1] + match[2] if match else None


def place_of(target, folder):
    if target == "" or target.startswith("#"):
        return "inside"
    scheme = SCHEME.match(target)
    if target.startswith(("//", "\\\\")) or (scheme and scheme[0].lower() != "file:"):
        return "remote"
    texts = [target, urllib.parse.unquote_to_bytes(target.split("#")[0]).decode("utf-8", "surrogateescape")]
    paths = [text[7:] if text.startswith("file://") else text for text in texts]
    for path in paths:
        if "\0" not in path and (os.path.exists(path) or os.path.exists(f"{folder}/{path}")):
            return "found"
    return "missing"


def read_links(path):
    """(kind, part, id, target, place) of each external relationship, in the order of the archive."""
    links = []
    with zipfile.ZipFile(path) as package:
        for part in package.namelist():
            source = source_of(part.replace("\\", "/"))
            if source is None:
                continue
            ids = set()
            try:
                elements = ElementTree.fromstring(package.read(part)).findall(NAMESPACE + "Relationship")
            except ElementTree.ParseError:
                continue
            for element in elements:
                kind, target, identifier = element.get("Type"), element.get("Target"), element.get("Id")
                if kind is None or target is None or identifier in ids:
                    continue
                ids.add(identifier)
                if element.get("TargetMode", "").lower() == "external":
                    links.append((kind.rsplit("/", 1)[-1], source, identifier or "", target,
                                  place_of(target, path.parent)))
    return links


class Checker:
    def __init__(self, program):
        self._program = os.path.realpath(program)
        self._allowance = allowance(program)
        self.problems = 0

    def ask(self, *arguments, **options):
        return run([self._program, "links", *map(str, arguments)], timeout=60 * self._allowance.time, **options)

    def expect(self, holds, *what):
        if not holds:
            self.problems += 1
            print(*(str(text)[:1000] for text in what))

    def links_of(self, path, *arguments, **options):
        outcome = self.ask(path, "--json", *arguments, **options)
        self.expect((outcome.status, outcome.stderr) == (0, b""), path, outcome.status, outcome.stderr)
        model = json.loads(outcome.stdout) if outcome.status == 0 else {"links": [], "messages": []}
        self.expect(list(model) == ["links", "messages"], path, list(model))
        for link in model["links"]:
            self.expect(list(link) == KEYS[:len(link)] and ("file" in link) == (link["place"] == "found"), path, link)
            file = pathlib.Path(options.get("cwd", "")) / link.get("file", "")
            self.expect(link["place"] != "found" or file.exists(), path, link)
        return model["links"]

    def check_document(self, path):
        """Returns how many links there are."""
        got = [tuple(link[key] for key in KEYS[:5]) for link in self.links_of(path)]
        expected = read_links(path)
        self.expect(got == expected, path.name, "\n  more:", set(got) - set(expected), "\n  less:",
                    set(expected) - set(got))
        lines = self.ask(path).stdout.decode().splitlines()
        self.expect(len(lines) >= 1 + len(expected) and lines[0].startswith(f"{path}: "[:200]), path, lines[:1])
        return len(expected)

    def check_untouched(self, path):
        """Nothing but the document is opened."""
        with tempfile.TemporaryDirectory() as folder:
            log = pathlib.Path(folder) / "calls"
            run(file_trace.command(log, [self._program, "links", str(path), "--json"]),
                timeout=60 * self._allowance.time, cwd=folder)
            libraries = pathlib.Path(self._program).parent.parent / "lib"
            found = file_trace.trespasses(log, [path, self._program, libraries], [])
            self.expect(not found, path.name, found)

    def check_made(self, folder):
        deep = folder / "deep"
        (deep / "folder").mkdir(parents=True)
        for name in FILES:
            (deep / name).write_bytes(b"no package")
        parts = workbook([("N", "visible", "<sheetData/>")])
        rows = [(f"r{index}", kind, target, "External") for index, (kind, target, *_) in enumerate(TARGETS)]
        parts["xl/worksheets/_rels/sheet1.xml.rels"] = relations(rows)
        path = deep / "book.xlsx"
        write_package(path, parts)
        expected = [(kind, target, place, str(folder / file) if file else None)
                    for kind, target, place, file in TARGETS]
        got = [(link["kind"], link["target"], link["place"], link.get("file")) for link in self.links_of(path)]
        for pair in zip(expected, got):
            self.expect(pair[0] == pair[1], "made: expected and got", *pair)
        self.expect(len(got) == len(expected), "made:", len(got), "links")
        self.check_document(path)
        if file_trace.STRACE:
            self.check_untouched(path)
        self.check_text(path)
        self.check_standard_input(path, deep)

    def check_text(self, path):
        lines = self.ask("book.xlsx", cwd=path.parent).stdout.decode().splitlines()
        self.expect(lines[0] == "book.xlsx: 21 links, 6 missing", lines[0])
        self.expect(lines[1] == "  found    externalLinkPath  beside.xlsx -> beside.xlsx  (xl/worksheets/sheet1.xml)",
                    lines[1])
        self.expect(lines[4] == "  missing  externalLinkPath  none.xlsx  (xl/worksheets/sheet1.xml)", lines[4])
        self.expect(len(lines) == 22 and max(map(len, lines)) < 300, "lines", len(lines))

    def check_standard_input(self, path, folder):
        content = path.read_bytes()
        here = self.links_of("-", stdin=content, cwd=folder)
        self.expect([link.get("file") for link in here[:4]] == ["beside.xlsx", "beside.xlsx", "../above.xlsx", None],
                    "standard input in the folder", here[:4])
        elsewhere = self.links_of("-", stdin=content, cwd=folder / "folder")
        self.expect(not any(link["target"].startswith("beside") and "file" in link for link in elsewhere),
                    "standard input elsewhere", elsewhere)

    def check_refusals(self, folder):
        cases = {"no.xlsx": b"no package", "empty.zip": None}
        (folder / "no.xlsx").write_bytes(cases["no.xlsx"])
        with zipfile.ZipFile(folder / "empty.zip", "w") as package:
            package.writestr("a.txt", "a")
        for name in [*cases, "missing.xlsx"]:
            outcome = self.ask(folder / name)
            self.expect(outcome.status == 1 and len(outcome.error_lines()) == 1 and not outcome.stdout, name,
                        outcome.status, outcome.stderr)
        self.expect(self.ask().status == 2, "without a file")
        self.expect(b"--json" in self.ask("--help").stdout, "--help")
        with open("/dev/full", "wb") as full:
            self.expect(self.ask(folder / "deep/book.xlsx", stdout=full).status == 4, "a full device")


def main(program, samples, corpus):
    checker = Checker(program)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name).resolve()
        checker.check_made(folder)
        checker.check_refusals(folder)
    paths = sorted(pathlib.Path(samples).glob("*.xlsx"))
    paths += sorted(path for kind in ("xlsx", "docx", "pptx") for path in (pathlib.Path(corpus) / kind).glob("*"))
    links = [checker.check_document(path.resolve()) for path in paths]
    print(f"{len(paths)} documents, {sum(links)} links, {checker.problems} problems")
    if checker.problems == 0 and not pathlib.Path(corpus).is_dir():
        return skip(f"no documents in {corpus}; the made ones are right")
    return 1 if checker.problems else 0


if __name__ == "__main__":
    if len(sys.argv) != 4:
        print(__doc__, file=sys.stderr)
        sys.exit(2)
    sys.exit(main(*sys.argv[1:]))
