"""A second, independent reader of presentations: zipfile and ElementTree, nothing else.

It reads what the comparison of slides needs: the slides in order, and of each object its name, kind, effective place,
rotation, flips and text. It is slow and obvious on purpose, and knows nothing of the program under test.
"""
from dataclasses import dataclass, field

from sheet_reader import Package, Unreadable, local, related
from text_xml import parse

EMU = 12700
KINDS = {"sp": "shape", "pic": "picture", "grpSp": "group", "cxnSp": "connector", "graphicFrame": "other",
         "contentPart": "other"}
MARKUP = "{http://schemas.openxmlformats.org/markup-compatibility/2006}"
# What a reader of the standard's vocabularies understands: nothing beyond them.
STANDARD = ("http://schemas.openxmlformats.org/", "http://purl.oclc.org/ooxml/")
UNDERSTOOD = ("http://schemas.microsoft.com/office/drawing/2010/main",)
TITLES = ("title", "ctrTitle")
BY_TYPE = (*TITLES, "dt", "ftr", "sldNum")  # found by their type where no index helps
OWN_KINDS = ("dt", "ftr", "sldNum", "hdr")


@dataclass
class Box:
    """In points; one that nothing gives a size has no width and no height."""
    x: float
    y: float
    width: float
    height: float


@dataclass
class Transform:
    box: Box = None
    child_box: Box = None
    rotation: float = 0.0
    flip_horizontal: bool = False
    flip_vertical: bool = False


@dataclass
class Shape:
    name: str
    kind: str
    transform: Transform
    text: str = None  # None where it has no text body
    placeholder: tuple = None  # type and index
    cells: list = None  # of a table, row by row
    children: list = field(default_factory=list)


@dataclass
class Slide:
    part: str
    layout: str
    shapes: list
    hidden: bool
    notes: str


def child(node, *path):
    """The first child element of that local name, and so on down; None where there is none."""
    for name in path:
        node = next((each for each in node if isinstance(each.tag, str) and local(each) == name), None) if node is not None else None
    return node


def number(node, name):
    text = node.get(name, "0") if node is not None else "0"
    try:
        return int(text)
    except ValueError:
        return 0


def read_box(transform, offset, extent):
    offset, extent = child(transform, offset), child(transform, extent)
    if offset is None or extent is None:
        return None
    return Box(number(offset, "x") / EMU, number(offset, "y") / EMU, max(number(extent, "cx"), 0) / EMU,
               max(number(extent, "cy"), 0) / EMU)


def read_transform(node):
    """None where the object says nothing of its place."""
    if node is None:
        return None
    box = read_box(node, "off", "ext")
    if box is None:
        return None
    return Transform(box, read_box(node, "chOff", "chExt"), number(node, "rot") % 21600000 / 60000,
                     node.get("flipH") in ("1", "true"), node.get("flipV") in ("1", "true"))


def is_understood(uri):
    return uri.startswith(STANDARD) or uri in UNDERSTOOD


def branch(node):
    """What of an alternate content is meant for a reader of the standard."""
    for each in node:
        if each.tag == MARKUP + "Choice" and each.get("Requires").split() and all(
                map(is_understood, each.get("Requires").split())):
            return each
    return child(node, "Fallback")


def visible(node):
    """The children of a node as a reader of the standard sees them."""
    for each in node if node is not None else ():
        if each.tag == MARKUP + "AlternateContent":
            yield from visible(branch(each))
        elif isinstance(each.tag, str):
            yield each


def read_text(body):
    """The paragraphs of a text body, joined; line breaks are line feeds too."""
    if body is None:
        return None
    lines = []
    for paragraph in visible(body):
        if local(paragraph) != "p":
            continue
        text = ""
        for piece in visible(paragraph):
            if local(piece) in ("r", "fld"):
                run = child(piece, "t")
                text += "" if run is None or run.text is None else run.text
            elif local(piece) == "br":
                text += "\n"
            elif local(piece) == "m":
                text += "".join(each.text or "" for each in piece.iter() if isinstance(each.tag, str) and local(each) == "t")
        lines.append(text)
    return "\n".join(lines)


def read_placeholder(node):
    properties = next((each for each in node if isinstance(each.tag, str) and local(each).startswith("nv")), None)
    found = child(properties, "nvPr", "ph")
    return None if found is None else (found.get("type", "obj"), number(found, "idx"))


def read_name(node):
    properties = next((each for each in node if isinstance(each.tag, str) and local(each).startswith("nv")), None)
    found = child(properties, "cNvPr")
    return "" if found is None else found.get("name", "")


def own_transform(node):
    properties = child(node, "spPr")
    if local(node) == "grpSp":
        properties = child(node, "grpSpPr")
    return read_transform(child(node, "xfrm") if local(node) == "graphicFrame" else child(properties, "xfrm"))


def read_cells(table):
    """The texts of a table's cells, those that merged ones cover left out."""
    rows = []
    for row in visible(table):
        if local(row) == "tr":
            rows.append([read_text(child(cell, "txBody")) or "" for cell in visible(row) if local(cell) == "tc"
                         and cell.get("hMerge") not in ("1", "true") and cell.get("vMerge") not in ("1", "true")])
    return rows


class Place:
    """How the coordinates of a group's children become those of the slide."""

    def __init__(self, scale=(1, 1), shift=(0, 0)):
        self.scale, self.shift = scale, shift

    def apply(self, box, is_turned):
        """The box on the slide; one of an object that lies on its side is scaled as it is seen."""
        wide, high = self.scale
        centre = ((box.x + box.width / 2) * wide + self.shift[0], (box.y + box.height / 2) * high + self.shift[1])
        if is_turned:
            wide, high = high, wide
        size = (box.width * wide, box.height * high)
        return Box(centre[0] - size[0] / 2, centre[1] - size[1] / 2, *size)

    def inside(self, box, child_box):
        """box: of the group on the slide."""
        wide = box.width / child_box.width if child_box.width else 1
        high = box.height / child_box.height if child_box.height else 1
        return Place((wide, high), (box.x - child_box.x * wide, box.y - child_box.y * high))


class SlideReader:
    """Reads a package; slides, size, and hidden ones in the order of the presentation."""

    def __init__(self, source):
        self._package = Package(source)
        self._trees = {}
        main = self._target("", "officeDocument")
        if main is None:
            raise Unreadable("there is no main part")
        root = self._tree(main)
        size = child(root, "sldSz")
        self.width = (number(size, "cx") or 9144000) / EMU
        self.height = (number(size, "cy") or 6858000) / EMU
        relations = self._package.relations(main)
        self.slides = []
        for entry in child(root, "sldIdLst") if child(root, "sldIdLst") is not None else ():
            kind, part, external = relations.get(related(entry, "id"), ("", "", True))
            if kind == "slide" and not external and self._package.has(part):
                self.slides.append(self._read_slide(part))

    def _tree(self, part):
        if part not in self._trees:
            self._trees[part] = parse(self._package.read(part), part)
        return self._trees[part]

    def _target(self, part, wanted):
        for kind, target, external in self._package.relations(part).values():
            if kind == wanted and not external and self._package.has(target):
                return target
        return None

    def _read_slide(self, part):
        layout = self._target(part, "slideLayout")
        master = self._target(layout, "slideMaster") if layout else None
        root = self._tree(part)
        shapes = [self._read_shape(node, part, (layout, master), Place()) for node in visible(child(root, "cSld", "spTree"))
                  if local(node) in KINDS]
        name = child(self._tree(layout), "cSld").get("name") if layout else ""
        if layout and not name:
            name = layout.rpartition("/")[2].rpartition(".")[0]  # one without a name is called as its part
        return Slide(part, name, shapes, root.get("show") in ("0", "false"), self._read_notes(part))

    def _read_notes(self, part):
        notes = self._target(part, "notesSlide")
        if notes is None:
            return ""
        for node in visible(child(self._tree(notes), "cSld", "spTree")):
            placeholder = read_placeholder(node) if local(node) == "sp" else None
            if placeholder and placeholder[0] == "body":
                return read_text(child(node, "txBody")) or ""
        return ""

    def _placeholders(self, part):
        for node in visible(child(self._tree(part), "cSld", "spTree")) if part else ():
            placeholder = read_placeholder(node) if local(node) in KINDS else None
            if placeholder:
                yield placeholder, own_transform(node)

    def _inherited(self, placeholder, layout, master):
        """The place that a layout, or else its master, gives to a placeholder."""
        candidates = list(self._placeholders(layout))
        source = next((each for each in candidates if each[0][1] == placeholder[1]), None)
        same = TITLES if placeholder[0] in TITLES else (placeholder[0],)
        if placeholder[0] in BY_TYPE and (source is None or source[0][0] not in same):
            source = next((each for each in candidates if each[0][0] in same), source)
        if source is None:
            return None
        if source[1] is not None:
            return source[1]
        kind = source[0][0]
        group = TITLES if kind in TITLES else (kind,) if kind in OWN_KINDS else None
        for (other, _), transform in self._placeholders(master):
            if other in group if group else other not in (*TITLES, *OWN_KINDS):
                return transform
        return None

    @staticmethod
    def _placed(transform, place):
        if transform is None:
            return Transform(Box(0, 0, None, None))
        is_turned = 45 <= transform.rotation < 135 or 225 <= transform.rotation < 315
        return Transform(place.apply(transform.box, is_turned), None, transform.rotation, transform.flip_horizontal,
                         transform.flip_vertical)

    def _read_shape(self, node, part, above, place):
        """above: the layout and the master of the part."""
        kind, placeholder = KINDS[local(node)], read_placeholder(node)
        transform = own_transform(node)
        if transform is None and placeholder:
            transform = self._inherited(placeholder, *above)
        placed = self._placed(transform, place)
        shape = Shape(read_name(node), kind, placed, placeholder=placeholder)
        if local(node) == "sp":
            shape.text = read_text(child(node, "txBody"))
        elif local(node) == "graphicFrame":
            self._read_frame(child(node, "graphic", "graphicData"), shape, part)
        elif local(node) == "grpSp":
            inner = place
            if transform and transform.child_box:
                inner = place.inside(placed.box, transform.child_box)
            shape.children = [self._read_shape(each, part, above, inner) for each in visible(node) if local(each) in KINDS]
        return shape

    def _read_frame(self, data, shape, part):
        for node in visible(data):
            if local(node) == "tbl":
                shape.kind, shape.cells = "table", read_cells(node)
            elif local(node) == "chart" and data.get("uri", "").endswith("/chart"):
                shape.kind = "chart"
            elif local(node) == "relIds":
                shape.children = self._read_diagram(related(node, "dm"), part, shape.transform.box)

    def _read_diagram(self, data_id, part, box):
        """What a diagram was last drawn as: its data names a relationship of the slide, which leads to the shapes."""
        relations = self._package.relations(part)
        data = relations.get(data_id, ("", "", True))[1]
        if not self._package.has(data):
            return []
        drawn = next((each for each in self._tree(data).iter()
                      if isinstance(each.tag, str) and local(each) == "dataModelExt"), None)
        drawing = relations.get(drawn.get("relId"), ("", "", True))[1] if drawn is not None else ""
        if not self._package.has(drawing):
            return []
        return [self._read_shape(node, drawing, (None, None), Place(shift=(box.x, box.y)))
                for node in visible(child(self._tree(drawing), "spTree")) if local(node) in KINDS]
