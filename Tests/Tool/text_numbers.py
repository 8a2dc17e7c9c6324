"""The labels of list items by a second account (ECMA-376 Part 1, 17.9), for the items of one story in their order."""
import re

from text_xml import attribute, child, children, integer, is_on, name, value

LEVELS = 9
ROMAN = ((1000, "m"), (900, "cm"), (500, "d"), (400, "cd"), (100, "c"), (90, "xc"), (50, "l"), (40, "xl"), (10, "x"),
         (9, "ix"), (5, "v"), (4, "iv"), (1, "i"))
SUFFIXES = {1: "st", 2: "nd", 3: "rd"}
BULLET = object()  # stands for any label that is not empty


def letters(number):
    return chr(ord("a") + (number - 1) % 26) * ((number - 1) // 26 + 1)


def roman(number):
    text = ""
    for size, letter in ROMAN:
        text += letter * (number // size)
        number %= size
    return text


def ordinal(number):
    return f"{number}{'th' if number % 100 in (11, 12, 13) else SUFFIXES.get(number % 10, 'th')}"


FORMATS = {
    "decimal": str, "decimalZero": lambda number: f"{number:02}", "lowerLetter": letters, "lowerRoman": roman,
    "upperLetter": lambda number: letters(number).upper(), "upperRoman": lambda number: roman(number).upper(),
    "ordinal": ordinal, "none": lambda number: "",
}


def format_number(number, kind):
    """The number as a format writes it; None for a format that is not known here."""
    if kind not in FORMATS:
        return None
    return str(number) if number < 1 and kind.endswith(("Letter", "Roman")) else FORMATS[kind](number)


class Level:
    def __init__(self, node=None):
        start = integer(value(node, "w:start"))
        self.start = 0 if start is None and node is not None else 1 if start is None else start
        self.kind = value(node, "w:numFmt") or "decimal"
        self.text = value(node, "w:lvlText") or ""
        self.restart = integer(value(node, "w:lvlRestart"))
        self.style = value(node, "w:pStyle")
        legal = child(node, "w:isLgl")
        self.is_legal = legal is not None and is_on(attribute(legal, "val"))


class Numbering:
    """The lists of a document; label() must be asked for each item once, in their order."""

    def __init__(self, root=None, styles=None):
        self._styles = styles
        self._abstract, self._lists = {}, {}
        for node in children(root):
            if name(node) == "w:abstractNum":
                self._abstract.setdefault(attribute(node, "abstractNumId"), node)
        self._nodes = {}
        for node in children(root):
            if name(node) == "w:num":
                self._nodes.setdefault(attribute(node, "numId"), node)
        for list_id, node in self._nodes.items():
            self._lists[list_id] = self._resolve(list_id, node)
        self._counts, self._begun = {}, set()

    def _resolve(self, list_id, node):
        """Tag, levels by number, and starts that the list overrides."""
        abstract_id = value(node, "w:abstractNumId")
        definition = self._definition(abstract_id, {list_id})
        levels = {integer(attribute(each, "ilvl")): Level(each) for each in children(definition) if name(each) == "w:lvl"}
        starts = {}
        for each in children(node):
            if name(each) != "w:lvlOverride":
                continue
            at = integer(attribute(each, "ilvl"))
            if child(each, "w:lvl") is not None:
                levels[at] = Level(child(each, "w:lvl"))
            start = integer(value(each, "w:startOverride"))
            if start is not None:
                starts[at] = start
        return abstract_id, levels, starts

    def _definition(self, abstract_id, seen):
        """The abstract list, or the one behind the list style that it names."""
        node = self._abstract.get(abstract_id)
        style = self._styles.by_id.get(value(node, "w:numStyleLink")) if self._styles and node is not None else None
        target = value(child(child(style, "w:pPr"), "w:numPr"), "w:numId") if style is not None else None
        if target is None or target in seen or target not in self._nodes:
            return node
        return self._definition(value(self._nodes[target], "w:abstractNumId"), seen | {target})

    def reference(self, paragraph_props, style_id):
        """(list, level) of a paragraph; None where it is no item."""
        chain = self._styles.chain(style_id, "paragraph")[::-1] if self._styles else []
        nodes = [(paragraph_props, None)] + [(child(node, "w:pPr"), node) for node in chain]
        list_id = level = None
        for props, style in nodes:
            numbering = child(props, "w:numPr")
            if list_id is None:
                list_id = value(numbering, "w:numId")
            if level is None:
                level = self._level_of_style(list_id, style, numbering)
        if list_id is None or list_id == "0" or list_id not in self._lists:
            return None
        return list_id, min(level or 0, LEVELS - 1)

    def _level_of_style(self, list_id, style, numbering):
        if style is not None and numbering is not None:
            wanted = value(numbering, "w:numId") or list_id or self._inherited_list(style)
            for at, level in self._lists.get(wanted, (None, {}, {}))[1].items():
                if level.style is not None and level.style == attribute(style, "styleId"):
                    return at
        return integer(value(numbering, "w:ilvl"))

    def _inherited_list(self, style):
        chain = self._styles.chain(attribute(style, "styleId"), "paragraph")[::-1]
        found = (value(child(child(node, "w:pPr"), "w:numPr"), "w:numId") for node in chain)
        return next((each for each in found if each is not None), None)

    def label(self, list_id, at):
        """The label of the next item; BULLET where only its presence can be told."""
        tag, levels, starts = self._lists[list_id]
        counts = self._counts.setdefault(tag, {})
        if (list_id, at) not in self._begun and at in starts:
            counts.pop(at, None)
        self._begun.add((list_id, at))
        counts[at] = counts[at] + 1 if at in counts else self._start(levels, starts, at)
        for upper in range(at):  # an item begins the levels above it that have none yet, as word processors do
            counts.setdefault(upper, self._start(levels, starts, upper))
        for deeper in range(at + 1, LEVELS):
            restart = levels[deeper].restart if deeper in levels else None
            if restart is None or (restart != 0 and at < restart):
                counts.pop(deeper, None)
        return self._write(levels, starts, counts, at)

    @staticmethod
    def _start(levels, starts, at):
        return starts.get(at, levels.get(at, Level()).start)

    def _write(self, levels, starts, counts, at):
        level = levels.get(at)
        if level is None:
            return f"{counts[at]}."
        if level.kind == "bullet":
            return BULLET if level.text else ""
        pieces = []
        for piece in re.split(r"(%[1-9])", level.text):
            if not re.fullmatch(r"%[1-9]", piece):
                pieces.append(piece)
                continue
            upper = int(piece[1]) - 1
            if upper > at:  # a level below has no number here
                continue
            number = counts.get(upper, self._start(levels, starts, upper))
            kind = "decimal" if level.is_legal else levels.get(upper, Level()).kind
            pieces.append(format_number(number, kind))
        return BULLET if None in pieces else "".join(pieces)
