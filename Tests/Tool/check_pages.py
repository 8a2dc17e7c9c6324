#!/usr/bin/python3
"""Previews every document of a folder, and holds each page to what a page may be: whole, well-formed, harmless, small.

Usage: check_pages.py QVFILTER FOLDER... A folder may hold workbooks and text documents, or xlsx, docx and bad folders
of them.
"""
import html.parser
import pathlib
import re
import sys

from tool_runner import GIB, allowance, run, skip

VOID = {"meta", "col", "img", "br", "link", "input", "hr"}
FORBIDDEN = {"script", "iframe", "object", "embed", "link", "form", "base", "audio", "video", "foreignobject"}
LINK = re.compile(r"(https?://|mailto:|#[sbnr]\d+$)", re.IGNORECASE)
PICTURE = re.compile(r"data:image/(png|jpeg|gif|bmp|webp|svg\+xml);base64,[A-Za-z0-9+/]*={0,2}$")
BYTES_MAX = 200 << 20
SUFFIXES = (".xlsx", ".xlsm", ".docx", ".docm", ".dotx", ".zip")
NOTHING = (b"There are no sheets with cells here.", b"There is no text here.")  # what a page without sections says


class Page(html.parser.HTMLParser):
    """Notes whatever a page must not have."""

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.open, self.faults, self.ids, self.targets, self.sections = [], [], set(), set(), 0

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if tag in FORBIDDEN:
            self.faults.append(f"<{tag}>")
        for name, value in attrs:
            if name.startswith("on") or (value and re.search(r"javascript:|expression\(|url\(", value, re.IGNORECASE)):
                self.faults.append(f"<{tag} {name}={value[:60]!r}>")
        if "href" in attributes:
            if not LINK.match(attributes["href"]):
                self.faults.append(f"a link to {attributes['href'][:60]!r}")
            if attributes["href"].startswith("#"):
                self.targets.add(attributes["href"][1:])
        if tag == "img" and not PICTURE.match(attributes.get("src", "")):
            self.faults.append(f"a picture from {attributes.get('src', '')[:60]!r}")
        if "id" in attributes:
            if attributes["id"] in self.ids:
                self.faults.append(f"the id {attributes['id']!r} twice")
            self.ids.add(attributes["id"])
        self.sections += tag == "section"
        if tag not in VOID:
            self.open.append(tag)

    def handle_startendtag(self, tag, attrs):
        self.handle_starttag(tag, attrs)
        if tag not in VOID:
            self.open.pop()

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> without its begin")

    def finish(self):
        self.close()
        if self.open:
            self.faults.append(f"left open: {self.open}")
        for target in self.targets - self.ids:
            self.faults.append(f"a link to {target!r}, which is not there")
        return self.faults


def list_documents(folder):
    for name in (".", "xlsx", "docx", "bad"):
        yield from sorted(path for path in (folder / name).glob("*") if path.suffix in SUFFIXES)


def check(program, path, limits):
    outcome = run([program, "preview", str(path), "-o", "-"], timeout=60 * limits.time,
                  limit_memory=0 if limits.instrumented else 4 * GIB)
    if outcome.timed_out or outcome.status not in (0, 1):
        return [f"ended with {outcome.status}: {outcome.error_lines()[:3]}"], False
    if outcome.status == 1:
        faults = [] if len(outcome.error_lines()) == 1 and not outcome.stdout else ["not one line on stderr alone"]
        return faults, False
    if len(outcome.stdout) > BYTES_MAX:
        return [f"a page of {len(outcome.stdout)} bytes"], True
    page = Page()
    page.feed(outcome.stdout.decode("utf-8"))
    faults = page.finish()
    if page.sections == 0 and not any(text in outcome.stdout for text in NOTHING):
        faults.append("no sheet and no page")
    return faults, True


def main(program, *folders):
    documents = [path for folder in map(pathlib.Path, folders) if folder.is_dir() for path in list_documents(folder)]
    if not documents:
        return skip(f"no documents in {', '.join(folders)}")
    limits, failed, pages = allowance(program), 0, 0
    for path in documents:
        faults, is_page = check(program, path, limits)
        pages += is_page
        if faults:
            failed += 1
            print(f"{path.name}: {'; '.join(faults[:5])}")
    print(f"{len(documents)} documents, {pages} pages, {failed} with faults")
    return 1 if failed or not pages else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
