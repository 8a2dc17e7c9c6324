#!/usr/bin/python3
"""Imports every text document of a folder and compares its texts with two other readers of the same file.

Usage: compare_texts.py QVFILTER FOLDER EXPECTED_DIFFERENCES [--only NAME] [--jobs N]

FOLDER/docx holds the documents, or FOLDER itself. Compared are the paragraphs and tables of the body, the pages of
sections with their headers and footers, notes, and text boxes. The slow reader beside this script decides; python-docx
must agree with it about paragraphs that hold nothing but text. EXPECTED_DIFFERENCES: see text_differences.py.
"""
import collections
import difflib
import sys

import docx
from docx.oxml.ns import qn
from docx.text.paragraph import Paragraph as DocxParagraph

from sheet_reader import Unreadable
from text_differences import Difference, compare_all, import_model, read_options
from text_reader import SYMBOL, Paragraph, TextReader, flatten

KINDS = ("default", "first", "even")


def flat_blocks(blocks):
    """The model's blocks, those of tables of contents among them."""
    for block in blocks:
        if block["kind"] == "tableOfContents":
            yield from flat_blocks(block.get("blocks", []))
        else:
            yield block


def same_text(expected, got):
    if SYMBOL not in expected:
        return expected == got
    return len(expected) == len(got) and all(a in (b, SYMBOL) for a, b in zip(expected, got))


def is_gone(block):
    """Whether the final view may do without the block: a paragraph that was taken away, and its mark."""
    return isinstance(block, Paragraph) and block.mark_removed and not block.text


class TextComparison:
    """Gathers the differences of one document, and counts what was compared."""

    def __init__(self):
        self.found, self.counts = [], collections.Counter()

    def differ(self, category, detail):
        self.found.append(Difference(category, detail))

    def blocks(self, expected, got, where):
        """Compares a story; where is the beginning of categories: "" for the body, else such as "header "."""
        expected, got = list(expected), list(flat_blocks(got))
        if len(expected) != len(got):
            expected = [block for block in expected if not is_gone(block)]
        if len(expected) == len(got):
            for pair in zip(expected, got):
                self.block(*pair, where)
        else:
            self.align(expected, got, where)

    def align(self, expected, got, where):
        """Finds what is missing and what is too much, and compares the rest."""
        ours = [block.text if isinstance(block, Paragraph) else None for block in expected]
        theirs = [block.get("text") if block["kind"] == "paragraph" else None for block in got]
        for word, a, b, c, d in difflib.SequenceMatcher(None, ours, theirs, False).get_opcodes():
            if word == "equal" or b - a == d - c:
                for pair in zip(expected[a:b], got[c:d]):
                    self.block(*pair, where)
                continue
            for text in ours[a:b]:
                self.differ(f"{where}missing", repr(text)[:300])
            for text in theirs[c:d]:
                self.differ(f"{where}invented", repr(text)[:300])

    def block(self, expected, got, where):
        kind = "paragraph" if isinstance(expected, Paragraph) else "table"
        if got["kind"] != kind:
            self.differ(f"{where}kind", f"expected {kind}, got {str(got)[:200]}")
        elif kind == "table":
            self.table(expected, got, where)
        else:
            self.counts[f"{where}paragraphs"] += 1
            self.counts["characters"] += len(expected.text)
            if not same_text(expected.text, got["text"]):
                self.differ(f"{where}text", f"expected {expected.text!r:.180}, got {got['text']!r:.180}")

    def table(self, expected, got, where):
        self.counts[f"{where}tables"] += 1
        theirs = [row for row in got["rows"] if row]
        rows = [row for row in expected.rows if any(not cell.continues for cell in row.cells)]
        if len(rows) != len(theirs):
            rows = [row for row in rows if not row.is_removed]
        if len(rows) != len(theirs):
            self.differ(f"{where}rows", f"expected {len(rows)}, got {len(theirs)}")
            return
        columns = max((row.cells[-1].column + row.cells[-1].columns for row in rows), default=0)
        for index, (row, cells) in enumerate(zip(rows, theirs)):
            ours = [cell for cell in row.cells if not cell.continues]
            if row.has_gaps or row.cells[-1].column + row.cells[-1].columns < columns:
                # Whether places without a cell are listed is free.
                ours = [cell for cell in ours if any(each.text for each in flatten(cell.blocks))]
                cells = [cell for cell in cells if any(has_text(block) for block in flat_blocks(cell["blocks"]))]
            if len(ours) != len(cells):
                self.differ(f"{where}cells", f"row {index}: expected {len(ours)}, got {len(cells)}")
                continue
            for cell, other in zip(ours, cells):
                self.cell(cell, other, f"row {index}", where)

    def cell(self, expected, got, place, where):
        self.counts[f"{where}cells"] += 1
        spans = (got.get("columnSpan", 1), got.get("rowSpan", 1))
        if spans != (expected.columns, expected.rows):
            self.differ(f"{where}spans", f"{place}: expected {(expected.columns, expected.rows)}, got {spans}")
        if len(expected.blocks) == len([*flat_blocks(got["blocks"])]) or len(expected.blocks) == len(expected.raw_blocks):
            self.blocks(expected.blocks, got["blocks"], where)
            return
        # Empty paragraphs of the cells that a merge covers need not follow its text.
        kept = [block for block in expected.blocks if not isinstance(block, Paragraph) or block.text]
        self.blocks(kept, [block for block in flat_blocks(got["blocks"]) if has_text(block)], where)

    def sections(self, expected, model):
        got = model["sections"]
        if len(got) != len(expected) and (expected or len(got) > 1):
            self.differ("sections", f"expected {len(expected)}, got {len(got)}")
            return
        firsts = [0]  # flat index by the index of a block
        for block in model["blocks"]:
            firsts.append(firsts[-1] + len(list(flat_blocks([block]))))
        for section, other in zip(expected, got):
            self.counts["sections"] += 1
            for key, twips in (("width", section.width), ("height", section.height)):
                if twips is not None and abs(other.get(key, -1) - twips / 20) > 0.01:
                    self.differ("page", f"expected {key} {twips / 20}, got {other.get(key)}")
            if firsts[other["firstBlock"]] != section.first_block and len(firsts) > 1:
                self.differ("first block", f"expected {section.first_block}, got {firsts[other['firstBlock']]}")
            for kind in KINDS:
                self.blocks(section.headers.get(kind, []), other.get("headers", {}).get(kind, []), "header ")
                self.blocks(section.footers.get(kind, []), other.get("footers", {}).get(kind, []), "footer ")

    def notes(self, reader, model):
        """Notes that the text refers to must be there, others may be."""
        got = collections.Counter((note["kind"], note["text"]) for note in model["notes"])
        for key, blocks in sorted(reader.notes.items()):
            self.counts["notes"] += 1
            text = "\n".join(each.text for each in flatten(blocks) if each.text)
            if got[key[0], text]:
                got[key[0], text] -= 1
            elif key in reader.referred:
                self.differ("note missing", f"{key[0]} {text!r:.300}")
        for (kind, text), count in got.items():
            if count:
                self.differ("note invented", f"{kind} {text!r:.300}")

    def boxes(self, reader, model):
        """Text boxes may stand anywhere in the model, as long as their texts do."""
        texts = set(all_texts(model))
        for blocks in reader.boxes:
            self.counts["text boxes"] += 1
            for paragraph in flatten(blocks):
                if paragraph.text.strip() and not any(same_text(paragraph.text, text) for text in texts):
                    self.differ("text box", f"nowhere: {paragraph.text!r:.300}")

    def plain(self, reader, path):
        """Holds the slow reader against python-docx, where that sees all there is."""
        try:
            document = docx.Document(str(path))
        except Exception:  # pylint: disable=broad-except
            self.counts["files that python-docx cannot read"] += 1  # strict ones, and those with odd parts
            return
        nodes = [node for node in document.element.body.iter(qn("w:p")) if is_in_flow(node)]
        ours = list(_in_file_order(reader.blocks))
        if len(nodes) != len(ours):
            self.differ("python-docx paragraphs", f"expected {len(ours)}, got {len(nodes)}")
            return
        for node, paragraph in zip(nodes, ours):
            if not paragraph.is_plain or paragraph.unseen or paragraph.node.find(".//" + qn("w:p")) is not None:
                continue
            text = DocxParagraph(node, document).text
            self.counts["paragraphs as in python-docx"] += 1
            if text != paragraph.text:
                self.differ("python-docx text", f"expected {paragraph.text!r:.180}, got {text!r:.180}")


def has_text(block):
    if block["kind"] == "table":
        return any(has_text(each) for row in block["rows"] for cell in row for each in flat_blocks(cell["blocks"]))
    return bool(block.get("text"))


def all_texts(value):
    if isinstance(value, dict):
        if isinstance(value.get("text"), str):
            yield value["text"]
            yield from value["text"].split("\n")
        for each in value.values():
            yield from all_texts(each)
    elif isinstance(value, list):
        for each in value:
            yield from all_texts(each)


def is_in_flow(node):
    """Whether a paragraph stands in the body or its tables, and not in a text box."""
    return not any(each.tag == qn("w:txbxContent") for each in node.iterancestors())


def _in_file_order(blocks):
    for block in blocks:
        if isinstance(block, Paragraph):
            yield block
        else:
            for row in block.rows:
                for cell in row.cells:
                    yield from _in_file_order(cell.raw_blocks)


def compare_model(model, reader):
    """The differences between the program's JSON and the slow reader, and what was compared."""
    comparison = TextComparison()
    comparison.blocks(reader.blocks, model["blocks"], "")
    comparison.sections(reader.sections, model)
    comparison.notes(reader, model)
    comparison.boxes(reader, model)
    return comparison


def compare_file(program, path):
    model, found = import_model(program, path)
    try:
        reader = TextReader(path)
    except Unreadable as error:
        return found + [Difference("slow reader", str(error))], {}
    comparison = compare_model(model, reader) if model else TextComparison()
    comparison.plain(reader, path)
    return found + comparison.found, comparison.counts


if __name__ == "__main__":
    sys.exit(compare_all(read_options(__doc__.splitlines()[0]), compare_file))
