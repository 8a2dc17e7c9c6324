#!/usr/bin/python3
"""The slow reader of texts in the clothes of the program: it proves that the comparisons see what they must see.

Usage: fake_text_import.py import FILE --model - | convert FILE OUT.txt
The variable QV_FAKE_DAMAGE names one thing to spoil in the output; see DAMAGES.
"""
import json
import os
import pathlib
import sys

from sheet_reader import Unreadable
from text_numbers import BULLET
from text_reader import SYMBOL, Paragraph, TextReader, flatten


def paragraph_model(paragraph, styles):
    model = {"kind": "paragraph", "text": paragraph.text.replace(SYMBOL, "*"), "runs": []}
    if styles.name_of(paragraph.style):
        model["style"] = styles.name_of(paragraph.style)
    if paragraph.item:
        list_id, level, label = paragraph.item
        model["numbering"] = {"list": list_id, "level": level, "text": "\u2022" if label is BULLET else label}
    for text, look in paragraph.pieces:
        run = {"text": text.replace(SYMBOL, "*"), "bold": look.bold, "italic": look.italic}
        run.update({} if look.size is None else {"size": look.size})
        run.update({} if look.color is None else {"color": look.color})
        model["runs"].append(run)
    model["runs"] += [{"text": text, "hidden": True} for text in paragraph.unseen]
    return model


def block_models(blocks, styles):
    return [paragraph_model(block, styles) if isinstance(block, Paragraph) else table_model(block, styles)
            for block in blocks]


def table_model(table, styles):
    return {"kind": "table", "rows": [
        [{"columnSpan": cell.columns, "rowSpan": cell.rows, "blocks": block_models(cell.blocks, styles)}
         for cell in row.cells if not cell.continues] for row in table.rows]}


def section_model(section, styles):
    model = {"firstBlock": section.first_block}
    model.update({key: side / 20 for key, side in (("width", section.width), ("height", section.height)) if side})
    for word, stories in (("headers", section.headers), ("footers", section.footers)):
        model[word] = {kind: block_models(blocks, styles) for kind, blocks in stories.items()}
    return model


def make_model(reader):
    styles = reader.styles
    notes = [{"id": key[1], "kind": key[0], "text": "\n".join(each.text for each in flatten(blocks) if each.text)}
             for key, blocks in reader.notes.items()]
    return {"format": "docx", "blocks": block_models(reader.blocks, styles),
            "sections": [section_model(section, styles) for section in reader.sections], "notes": notes,
            "boxes": [block_models(blocks, styles) for blocks in reader.boxes]}


def first(blocks, kind):
    return next(block for block in blocks if block["kind"] == kind)


def numbered(blocks):
    return next(block for block in blocks if "numbering" in block)


def set_in(owner, key, value):
    owner[key] = value


# name -> what to do with the model
DAMAGES = {
    "text_changed": lambda model: set_in(first(model["blocks"], "paragraph"), "text", "no such text"),
    "paragraph_lost": lambda model: model["blocks"].pop(1),
    "paragraph_invented": lambda model: model["blocks"].append({"kind": "paragraph", "text": "new", "runs": []}),
    "table_lost": lambda model: model["blocks"].remove(first(model["blocks"], "table")),
    "row_lost": lambda model: first(model["blocks"], "table")["rows"].pop(),
    "cell_lost": lambda model: first(model["blocks"], "table")["rows"][0].pop(),
    "span_changed": lambda model: set_in(first(model["blocks"], "table")["rows"][0][0], "columnSpan", 7),
    "cell_text_changed": lambda model: set_in(first(model["blocks"], "table")["rows"][0][0]["blocks"][0], "text", "new"),
    "section_lost": lambda model: model["sections"].pop(),
    "section_moved": lambda model: set_in(model["sections"][1], "firstBlock", 0),
    "page_changed": lambda model: set_in(model["sections"][0], "width", 1.0),
    "header_lost": lambda model: model["sections"][1]["headers"].pop("default"),
    "header_changed": lambda model: set_in(model["sections"][0]["headers"]["default"][0], "text", "new"),
    "footer_lost": lambda model: model["sections"][0]["footers"].pop("default"),
    "note_lost": lambda model: model["notes"].pop(),
    "note_invented": lambda model: model["notes"].append({"id": "9", "kind": "endnote", "text": "new"}),
    "box_lost": lambda model: model["boxes"].pop(),
    "bold_turned": lambda model: set_in(first(model["blocks"], "paragraph")["runs"][0], "bold", False),
    "italic_turned": lambda model: set_in(first(model["blocks"], "paragraph")["runs"][0], "italic", True),
    "size_changed": lambda model: set_in(first(model["blocks"], "paragraph")["runs"][0], "size", 99.0),
    "color_changed": lambda model: set_in(first(model["blocks"], "paragraph")["runs"][0], "color", "010203"),
    "run_lost": lambda model: first(model["blocks"], "paragraph")["runs"].pop(0),
    "hidden_shown": lambda model: set_in(first(model["blocks"], "paragraph")["runs"][-1], "hidden", False),
    "style_changed": lambda model: set_in(first(model["blocks"], "paragraph"), "style", "Normal"),
    "label_changed": lambda model: set_in(numbered(model["blocks"])["numbering"], "text", "7."),
    "label_lost": lambda model: numbered(model["blocks"]).pop("numbering"),
    "level_changed": lambda model: set_in(numbered(model["blocks"])["numbering"], "level", 8),
}


def plain_lines(blocks):
    for block in blocks:
        if isinstance(block, Paragraph):
            label = block.item[2] if block.item else ""
            yield f"{'-' if label is BULLET else label}\t{block.text}" if block.item else block.text
        else:
            for row in block.rows:
                yield "\t".join(" ".join(each.text for each in flatten(cell.blocks)) for cell in row.cells)


def main(command, path, *rest):
    try:
        reader = TextReader(path)
    except Unreadable as error:
        print(error, file=sys.stderr)
        return 1
    damage = os.environ.get("QV_FAKE_DAMAGE")
    if command == "convert":
        text = "\n".join(plain_lines(reader.blocks)).replace(SYMBOL, "*") + "\n"
        pathlib.Path(rest[0]).write_text(text.replace("ends", "begins") if damage else text, encoding="utf-8")
        return 0
    model = make_model(reader)
    if damage:
        DAMAGES[damage](model)
    json.dump(model, sys.stdout)
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
