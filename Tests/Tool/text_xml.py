"""The markup of word-processing parts: short names for both dialects, and alternate content resolved."""
from functools import lru_cache
from xml.etree import ElementTree

from sheet_reader import Unreadable

WORD = ("http://schemas.openxmlformats.org/wordprocessingml/2006/main", "http://purl.oclc.org/ooxml/wordprocessingml/main")
PREFIXES = {
    **{uri: "w" for uri in WORD},
    "http://schemas.openxmlformats.org/officeDocument/2006/math": "m",
    "http://purl.oclc.org/ooxml/officeDocument/math": "m",
    "http://schemas.openxmlformats.org/drawingml/2006/main": "a",
    "http://purl.oclc.org/ooxml/drawingml/main": "a",
    "http://schemas.openxmlformats.org/markup-compatibility/2006": "mc",
}
MICROSOFT = "http://schemas.microsoft.com/office/"
# What a reader of 2013 understands beyond the standard, as far as it changes which branch holds the text.
UNDERSTOOD = {MICROSOFT + name for name in (
    "word/2010/wordprocessingShape", "word/2010/wordprocessingGroup", "word/2010/wordprocessingCanvas",
    "word/2010/wordprocessingInk", "word/2010/wordprocessingDrawing", "word/2010/wordml", "word/2012/wordml",
    "drawing/2010/main")} | {"urn:schemas-microsoft-com:vml", *PREFIXES}


def parse(content, part):
    """The root of a part. Choices carry the namespaces that they require, since the tree forgets prefixes."""
    parser = ElementTree.XMLPullParser(("start", "start-ns", "end-ns"))
    scopes, root = [], None
    try:
        parser.feed(content)
        parser.close()
        for event, what in parser.read_events():
            if event == "start-ns":
                scopes.append(what)
            elif event == "end-ns":
                scopes.pop()
            else:
                root = what if root is None else root
                if what.tag.endswith("}Choice"):
                    known = dict(scopes)
                    what.set("Requires", " ".join(known.get(each, "?") for each in what.get("Requires", "?").split()))
    except ElementTree.ParseError as error:
        raise Unreadable(f"{part}: {error}") from error
    return root


@lru_cache(maxsize=None)
def short_name(tag):
    uri, _, local = tag[1:].partition("}") if tag.startswith("{") else ("", "", tag)
    return f"{PREFIXES.get(uri, '?')}:{local}"


def name(node):
    """Such as "w:p"; "?:p" in a namespace that means nothing here, "" for comments and instructions."""
    return short_name(node.tag) if isinstance(node.tag, str) else ""


def attribute(node, local):
    """The value of an attribute of word processing, in either namespace; None without it."""
    if node is None:
        return None
    return next((node.get(f"{{{uri}}}{local}") for uri in WORD if f"{{{uri}}}{local}" in node.attrib), None)


def children(node):
    """The children that count: a branch stands for its alternate content."""
    for child in () if node is None else node:
        if name(child) != "mc:AlternateContent":
            yield child
            continue
        branch = next((each for each in child if is_understood(each)), None)
        if branch is None:
            branch = next((each for each in child if name(each) == "mc:Fallback"), None)
        yield from children(branch)


def is_understood(node):
    return name(node) == "mc:Choice" and all(uri in UNDERSTOOD for uri in node.get("Requires").split())


def child(node, wanted):
    """The first child of that short name, or None."""
    return next((each for each in children(node) if name(each) == wanted), None)


def value(node, wanted):
    """w:val of the first child of that name; None without either."""
    return attribute(child(node, wanted), "val")


def integer(text):
    try:
        return int(text)
    except (TypeError, ValueError):
        return None


def is_on(text):
    """A switch whose value is this; present without a value means on."""
    return text is None or text.strip().lower() not in ("0", "false", "off")
