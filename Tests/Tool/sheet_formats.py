"""The formats of cells, read by the slow reader: fonts and borders by the number that a cell names.

Each entry of the table of cell formats counts as it stands, whatever its flags and its named style say.
"""
from collections import namedtuple

SIDES = {"left": "left", "start": "left", "right": "right", "end": "right", "top": "top", "bottom": "bottom"}
# Kind of line -> width in points and pattern, as the model has them.
LINES = {"thin": (0.75, "solid"), "medium": (1.5, "solid"), "thick": (2.25, "solid"), "double": (2.25, "double"),
         "hair": (0.75, "hair"), "dotted": (0.75, "dotted"), "dashed": (0.75, "dashed"), "dashDot": (0.75, "dashDot"),
         "dashDotDot": (0.75, "dashDotDot"), "mediumDashed": (1.5, "dashed"), "mediumDashDot": (1.5, "dashDot"),
         "mediumDashDotDot": (1.5, "dashDotDot"), "slantDashDot": (1.5, "slantDashDot")}
Font = namedtuple("Font", "bold italic size name")  # in points; None where there is none that can be
Line = namedtuple("Line", "kind rgb")  # rgb: six digits; "" where another colour than that is named; None for none
TRUE = (None, "1", "true", "on")  # of an element that switches something on by being there


def local(node):
    return node.tag.rpartition("}")[2] if isinstance(node.tag, str) else ""


def children(node, name):
    return [child for child in node if local(child) == name] if node is not None else []


def first(node, name):
    return next(iter(children(node, name)), None)


def number(text, default=0):
    return int(text) if text is not None and text.isdecimal() and text.isascii() else default


def read_font(node):
    def switch(name):
        found = first(node, name)
        return found is not None and found.get("val") in TRUE

    def value(name):
        found = first(node, name)
        return None if found is None else found.get("val")

    try:
        size = float(value("sz") or "")
    except ValueError:
        size = None
    return Font(switch("b"), switch("i"), size if size and 0 < size < 409.6 else None, value("name"))


def read_line(node):
    color = first(node, "color")
    if color is None or color.get("auto") in ("1", "true"):
        rgb = None
    else:
        text = color.get("rgb", "")
        rgb = text[-6:].upper() if len(text) in (6, 8) and color.get("tint") is None else ""
    return Line(node.get("style", "none"), rgb)


def read_border(node):
    lines = {SIDES[local(side)]: read_line(side) for side in node if local(side) in SIDES}
    diagonal = first(node, "diagonal")
    if diagonal is not None:
        for name in ("diagonalUp", "diagonalDown"):
            if node.get(name) in ("1", "true", "on"):
                lines[name] = read_line(diagonal)
    return {side: line for side, line in lines.items() if line.kind in LINES}


class Formats:
    """What a styles part says; of no part, one format that says nothing."""

    def __init__(self, tree=None):
        self._fonts = [read_font(node) for node in children(first(tree, "fonts"), "font")]
        self._borders = [read_border(node) for node in children(first(tree, "borders"), "border")]
        self._entries = [(number(node.get("fontId")), number(node.get("borderId")))
                         for node in children(first(tree, "cellXfs"), "xf")]

    def font(self, entry):
        """The font of a format; None where there is none to be found."""
        index = self._entries[entry][0] if entry < len(self._entries) else -1
        return self._fonts[index] if 0 <= index < len(self._fonts) else None

    def border(self, entry):
        index = self._entries[entry][1] if entry < len(self._entries) else -1
        return self._borders[index] if 0 <= index < len(self._borders) else {}
