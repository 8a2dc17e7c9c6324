"""A second, independent reader of word-processing packages: zipfile and ElementTree, nothing else.

It reads what the import tests compare: the text of the final view in paragraphs and tables, headers, footers, notes,
the look of each character, and the labels of list items. It is slow and obvious on purpose, and it knows nothing of
the program under test.
"""
from dataclasses import dataclass, field

from sheet_reader import Package, Unreadable, related
from text_numbers import Numbering
from text_styles import Styles, TableLook, Theme
from text_xml import attribute, child, children, integer, is_on, name, parse, value

SYMBOL = "\uFDD0"  # stands for the one character that a symbol font shows
CHARACTERS = {"w:tab": "\t", "w:ptab": "\t", "w:br": "\n", "w:cr": "\n", "w:noBreakHyphen": "\u2011",
              "w:softHyphen": "\u00AD", "w:sym": SYMBOL}
DRAWN = {"w:drawing", "w:pict", "w:object"}
UNSEEN = {"w:instrText", "w:delText", "w:delInstrText", "w:rt", "w:altChunk", "w:txbxContent"}
REMOVED = {"w:del", "w:moveFrom"}
NOTES = {"w:footnoteReference": "footnote", "w:endnoteReference": "endnote", "w:commentReference": "comment"}
NOTE_PARTS = (("footnotes", "w:footnote", "footnote"), ("endnotes", "w:endnote", "endnote"),
              ("comments", "w:comment", "comment"))
# What a paragraph may hold for a plain reader to see the same in it.
PLAIN = {"w:pPr", "w:r", "w:rPr", "w:t", "w:tab", "w:br", "w:cr", "w:bookmarkStart", "w:bookmarkEnd", "w:proofErr",
         "w:lastRenderedPageBreak"}


@dataclass
class Paragraph:
    style: str = ""  # the id that the paragraph names
    pieces: list = field(default_factory=list)  # (text, look) of what is seen
    unseen: list = field(default_factory=list)  # texts that are hidden or taken away
    item: tuple = None  # (list, level, label) of a list item
    mark_removed: bool = False
    is_plain: bool = False
    node: object = None

    @property
    def text(self):
        return "".join(text for text, _ in self.pieces)


@dataclass
class Cell:
    column: int
    columns: int
    rows: int = 1
    blocks: list = field(default_factory=list)
    continues: bool = False  # a merge goes on in it; its text stands in the merge's first cell
    raw_blocks: list = field(default_factory=list)  # its own ones, whatever is merged


@dataclass
class Row:
    cells: list = field(default_factory=list)
    has_gaps: bool = False  # places of the grid before or behind its cells
    is_removed: bool = False


@dataclass
class Table:
    rows: list = field(default_factory=list)
    node: object = None


@dataclass
class Section:
    first_block: int
    width: float = None
    height: float = None
    headers: dict = field(default_factory=dict)  # "default", "first", "even" -> blocks, as far as pages show them
    footers: dict = field(default_factory=dict)


class _Story:
    """The state of a walk over one part, or over one text box: fields that are open reach over paragraphs."""

    def __init__(self, document):
        self.document = document
        self.fields = []  # of each field that is open, whether its result has begun

    def blocks(self, node, table_props=None):
        for each in children(node):
            kind = name(each)
            if kind == "w:p":
                yield self.paragraph(each, table_props or {})
            elif kind == "w:tbl":
                yield self.table(each)
            elif not kind.endswith("Pr") and kind not in UNSEEN | REMOVED:
                yield from self.blocks(each, table_props)

    def paragraph(self, node, table_props):
        document, properties = self.document, child(node, "w:pPr")
        paragraph = Paragraph(style=value(properties, "w:pStyle") or "", node=node)
        mark = child(properties, "w:rPr")
        paragraph.mark_removed = child(mark, "w:del") is not None or child(mark, "w:moveFrom") is not None
        paragraph.is_plain = all(name(each) in PLAIN for each in _below(node))
        reference = document.numbering.reference(properties, paragraph.style)
        if reference and not self.is_gone_item(paragraph, node, mark):
            paragraph.item = (*reference, document.numbering.label(*reference))
        self.inline(node, paragraph, table_props, None, False)
        return paragraph

    def is_gone_item(self, paragraph, node, mark):
        """Items that the final view does not have are not counted."""
        if not paragraph.mark_removed:
            return False
        inserted = [each for each in node.iter() if name(each) in ("w:t", "m:t", "w:sym", "w:tab", "w:br", *DRAWN)]
        removed = [each for gone in node.iter() if name(gone) in REMOVED for each in gone.iter()]
        return mark is not None and all(each in removed for each in inserted)

    def inline(self, node, paragraph, table_props, run_props, is_removed):
        for each in children(node):
            kind = name(each)
            if kind == "w:fldChar":
                self.turn_field(attribute(each, "fldCharType"))
            elif kind in DRAWN:
                self.document.read_boxes(each, is_removed)
            elif kind == "w:delText":
                paragraph.unseen.append(each.text or "")
            elif kind in ("w:t", "m:t"):
                self.add(paragraph, table_props, run_props, each.text or "", is_removed)
            elif kind in CHARACTERS:
                self.add(paragraph, table_props, run_props, CHARACTERS[kind], is_removed)
            elif kind in NOTES:
                self.document.referred.add((NOTES[kind], attribute(each, "id")))
            elif kind in ("w:r", "m:r"):
                self.inline(each, paragraph, table_props, child(each, "w:rPr"), is_removed)
            elif not kind.endswith("Pr") and kind not in UNSEEN:
                self.inline(each, paragraph, table_props, run_props, is_removed or kind in REMOVED)

    def turn_field(self, kind):
        if kind == "begin":
            self.fields.append(False)
        elif kind == "separate" and self.fields:
            self.fields[-1] = True
        elif kind == "end" and self.fields:
            self.fields.pop()

    def add(self, paragraph, table_props, run_props, text, is_removed):
        look, is_hidden = self.document.styles.look(paragraph.style, run_props, table_props)
        if is_removed or is_hidden:
            paragraph.unseen.append(text)
        elif all(self.fields):
            paragraph.pieces.append((text, look))

    def table(self, node):
        table, look = Table(node=node), TableLook(self.document.styles, child(node, "w:tblPr"))
        rows = list(_gather(node, "w:tr"))
        above = {}  # column -> the cell whose vertical merge can go on there
        for index, row_node in enumerate(rows):
            row, reached = self.empty_row(row_node), {}
            cells = list(_gather(row_node, "w:tc"))
            column = integer(value(child(row_node, "w:trPr"), "w:gridBefore")) or 0
            for position, cell_node in enumerate(cells):
                properties = child(cell_node, "w:tcPr")
                cell = Cell(column, max(integer(value(properties, "w:gridSpan")) or 1, 1))
                props = look.props(index, len(rows), column, column if position == len(cells) - 1 else -1)
                cell.raw_blocks = list(self.blocks(cell_node, props))
                self.merge(cell, properties, row, above, reached)
                column += cell.columns
            above = reached
            table.rows.append(row)
        return table

    @staticmethod
    def empty_row(node):
        properties = child(node, "w:trPr")
        has_gaps = any(integer(value(properties, word)) for word in ("w:gridBefore", "w:gridAfter"))
        return Row(has_gaps=has_gaps, is_removed=child(properties, "w:del") is not None)

    @staticmethod
    def merge(cell, properties, row, above, reached):
        """Puts a cell into its row, or its text into the cell whose merge goes on in it."""
        vertical, across = child(properties, "w:vMerge"), child(properties, "w:hMerge")
        owner = None
        if vertical is not None and attribute(vertical, "val") != "restart":
            owner = above.get(cell.column)
            if owner is not None:
                owner.rows += 1
        elif across is not None and attribute(across, "val") != "restart" and row.cells:
            owner = row.cells[-1]
            owner.columns += cell.columns
        cell.continues = owner is not None
        if vertical is not None:
            reached[cell.column] = owner or cell
        if owner is None:
            cell.blocks = list(cell.raw_blocks)
        else:
            owner.blocks += cell.raw_blocks
        row.cells.append(cell)


def _gather(node, wanted):
    """Rows of a table or cells of a row, those in content controls and the like among them."""
    for each in children(node):
        kind = name(each)
        if kind == wanted:
            yield each
        elif not kind.endswith("Pr") and kind not in ("w:tblGrid", "w:p", "w:tbl"):
            yield from _gather(each, wanted)


def _below(node):
    for each in node:
        yield each
        if name(each) not in ("w:pPr", "w:rPr"):
            yield from _below(each)


def flatten(blocks):
    """All paragraphs of blocks, those of tables among them."""
    for block in blocks:
        if isinstance(block, Paragraph):
            yield block
        else:
            for row in block.rows:
                for cell in row.cells:
                    if not cell.continues:
                        yield from flatten(cell.blocks)


class TextReader:
    """Reads the text document of a package. blocks, sections, notes and boxes are there afterwards."""

    def __init__(self, source):
        self._package = Package(source)
        self._part = next((target for kind, target, external in self._package.relations("").values()
                           if kind == "officeDocument" and not external), None)
        if self._part is None:
            raise Unreadable("no main part")
        self._relations = self._package.relations(self._part)
        body = child(self._tree(self._part), "w:body")
        if body is None:
            raise Unreadable(f"{self._part} is no text document")
        self._settings = self._related("settings")
        theme = Theme(self._related("theme"), child(self._settings, "w:clrSchemeMapping"))
        self.styles = Styles(self._related("styles"), theme)
        self.referred = set()  # (kind, id) of the notes that stories refer to
        self.boxes = []  # the blocks of each text box that is seen
        self._restart_numbering()
        self.blocks = list(_Story(self).blocks(body))
        self.sections = list(self._read_sections(body))
        self.notes = self._read_notes()

    def _tree(self, part):
        return parse(self._package.read(part), part)

    def _related(self, wanted):
        part = next((target for kind, target, external in self._relations.values()
                     if kind == wanted and not external and self._package.has(target)), None)
        return self._tree(part) if part else None

    def _restart_numbering(self):
        self.numbering = Numbering(self._related("numbering"), self.styles)

    def read_boxes(self, drawn, is_removed):
        """Text boxes are stories of their own; each reader counts their items as it likes."""
        for each in children(drawn):
            if name(each) == "w:txbxContent":
                kept, self.numbering = self.numbering, Numbering(None, self.styles)
                blocks = list(_Story(self).blocks(each))
                self.numbering = kept
                if not is_removed:
                    self.boxes.append(blocks)
            else:
                self.read_boxes(each, is_removed)

    def _read_story(self, relation_id):
        _, target, external = self._relations.get(relation_id, ("", "", True))
        if external or not self._package.has(target):
            return []
        self._restart_numbering()
        return list(_Story(self).blocks(self._tree(target)))

    def _read_sections(self, body):
        """The sections; one that names no header of a kind goes on with that of the section before."""
        inherited, first = {}, 0
        has_even = child(self._settings, "w:evenAndOddHeaders")
        has_even = has_even is not None and is_on(attribute(has_even, "val"))
        ends = [(child(child(block.node, "w:pPr"), "w:sectPr"), index) for index, block in enumerate(self.blocks)
                if isinstance(block, Paragraph)]
        ends = [end for end in ends if end[0] is not None]
        ends.append((child(body, "w:sectPr"), len(self.blocks) - 1))
        for properties, last in ends:
            if properties is None:
                continue
            for each in children(properties):
                if name(each) in ("w:headerReference", "w:footerReference"):
                    kind = attribute(each, "type") or "default"
                    inherited[name(each)[2:8], kind] = self._read_story(related(each, "id"))
            yield self._make_section(properties, first, inherited, has_even)
            first = last + 1

    @staticmethod
    def _make_section(properties, first, inherited, has_even):
        title = child(properties, "w:titlePg")
        kinds = {"default": True, "first": title is not None and is_on(attribute(title, "val")), "even": has_even}
        size = child(properties, "w:pgSz")
        section = Section(first, *(integer(attribute(size, side)) for side in ("w", "h")))
        for kind, is_shown in kinds.items():
            if is_shown:
                section.headers[kind] = inherited.get(("header", kind), [])
                section.footers[kind] = inherited.get(("footer", kind), [])
        return section

    def _read_notes(self):
        """{(kind, id): blocks} of all notes but for separators."""
        notes = {}
        for word, element, kind in NOTE_PARTS:
            for each in children(self._related(word)):
                if name(each) == element and attribute(each, "type") in (None, "normal"):
                    self._restart_numbering()
                    notes[kind, attribute(each, "id")] = list(_Story(self).blocks(each))
        return notes
