"""Where the objects of a drawing part stand, read the slow and obvious way with ElementTree."""
import re
from dataclasses import dataclass, field

KINDS = {"pic": "picture", "sp": "shape", "cxnSp": "shape", "grpSp": "group", "graphicFrame": "other"}
ANCHORS = {"absoluteAnchor": "absolute", "oneCellAnchor": "oneCell", "twoCellAnchor": "twoCell"}
EMU_PER_POINT = 12700
QUARTER_UNITS = 90 * 60000


@dataclass
class Drawn:
    kind: str  # picture, shape, group or other
    anchor: str = ""  # absolute, oneCell, twoCell; "" outside of anchors
    start: tuple = ()  # (column, offset, row, offset), from 0 and in EMU
    end: tuple = ()
    point: tuple = ()  # x and y of an absolute anchor, in EMU
    size: tuple = ()  # width and height, in EMU
    rotation: int = 0  # in 60,000ths of a degree
    name: str = ""
    blip: str = ""  # relationship of a picture
    children: list = field(default_factory=list)

    @property
    def is_quarter_turned(self):
        return (self.rotation + QUARTER_UNITS // 2) // QUARTER_UNITS % 2 == 1


def local(node):
    return node.tag.rpartition("}")[2] if isinstance(node.tag, str) else ""


def child(node, *names):
    """The first descendant along the names, or None."""
    for name in names:
        node = next((each for each in node if local(each) == name), None) if node is not None else None
    return node


def objects(node):
    """The children of a node as a reader sees them that understands no extension."""
    for each in node:
        if local(each) == "AlternateContent":
            for fallback in each:
                if local(fallback) == "Fallback":
                    yield from objects(fallback)
        else:
            yield each


def read_drawing(tree):
    """The objects of all anchors, from back to front."""
    found = []
    for node in objects(tree):
        if local(node) in ANCHORS:
            found += [_read_anchored(node, each) for each in objects(node) if local(each) in KINDS]
        elif local(node) in KINDS:
            found.append(_read_object(node))
    return found


def _read_anchored(anchor, node):
    drawn = _read_object(node)
    drawn.anchor = ANCHORS[local(anchor)]
    start, end = child(anchor, "from"), child(anchor, "to")
    drawn.start = _marker(start) if start is not None else ()
    drawn.end = _marker(end) if end is not None else ()
    point, size = child(anchor, "pos"), child(anchor, "ext")
    drawn.point = _numbers(point, "x", "y") if point is not None else ()
    drawn.size = _numbers(size, "cx", "cy") if size is not None else ()
    return drawn


def _read_object(node):
    drawn = Drawn(KINDS[local(node)])
    for head in node:
        if local(head).startswith("nv"):
            props = child(head, "cNvPr")
            drawn.name = props.get("name", "") if props is not None else ""
    props = child(node, "grpSpPr" if drawn.kind == "group" else "spPr")
    transform = child(props, "xfrm") if props is not None else child(node, "xfrm")
    if transform is not None:
        drawn.rotation = int(transform.get("rot", "0")) % (4 * QUARTER_UNITS)
    blip = child(node, "blipFill", "blip")
    if blip is not None:
        drawn.blip = next((value for key, value in blip.attrib.items() if key.endswith(("}embed", "}link"))), "")
    drawn.children = [_read_object(each) for each in objects(node) if local(each) in KINDS]
    return drawn


def _marker(node):
    texts = [child(node, name) for name in ("col", "colOff", "row", "rowOff")]
    return tuple(_number(text.text if text is not None else "0") for text in texts)


def _numbers(node, *names):
    return tuple(_number(node.get(name, "0")) for name in names)


def _number(text):
    """EMU, from a whole number or a length in centimetres, inches or points."""
    match = re.fullmatch(r"\s*(-?[0-9.]+)(cm|mm|in|pt)?\s*", text or "0")
    if not match:
        return 0
    factor = {"cm": 360000, "mm": 36000, "in": 914400, "pt": EMU_PER_POINT, None: 1}[match[2]]
    return float(match[1]) * factor
