#!/usr/bin/python3
"""The slow reader in the clothes of the program: it proves that the comparison sees what it must see.

Usage: fake_import.py import FILE --model OUT --report OUT --media DIR --ids sequential
The variable QV_FAKE_DAMAGE names one thing to spoil in the output; see DAMAGES.
"""
import argparse
import hashlib
import json
import math
import os
import pathlib
import sys

import openpyxl

from compare_charts import chart_of
from compare_dimensions import points_of_width
from compare_drawings import drawn_box, sums
from compare_formats import expected_links
from sheet_formats import LINES
from sheet_reader import Unreadable, WorkbookReader, reference


def add_links(cells, sheet):
    """Links of the cells that the sheet writes, and cells for the others."""
    for at, target in expected_links(sheet).items():
        cells.setdefault(at, {"ref": reference(at)})["hyperlink"] = target


def format_model(formats, entry):
    """Borders and font; the font of the first format is written out too."""
    model, font = {}, formats.font(entry)
    for side, line in formats.border(entry).items():
        width, style = LINES[line.kind]
        color = {} if line.rgb is None else {"color": line.rgb or "000000"}
        model.setdefault("borders", {})[side] = {"width": width, **color, "style": style}
    if font is not None:
        model.update(bold=font.bold, italic=font.italic)
        model.update({} if font.size is None else {"fontSize": float(font.size)})
        model.update({} if font.name is None else {"fontName": font.name})
    return model


def cell_model(at, cell, formats):
    model = {"ref": reference(at)}
    if cell.kind:
        model.update(type=cell.kind, value=cell.value)
    if cell.has_formula:
        model["formula"] = cell.formula
    model.update(format_model(formats, cell.format))
    return model


def sizes(sheet):
    """The heights of the leading rows and the widths of the leading columns; 0 for hidden ones."""
    default = float(sheet.defaults.get("defaultRowHeight", 15))
    heights = [default] * max(sheet.rows, default=0)
    for row, (height, hidden) in sheet.rows.items():
        heights[row - 1] = 0.0 if hidden else default if height is None else height
    widths = [48.0] * max((last for _, last, _, _ in sheet.columns), default=0)
    for first, last, width, hidden in sheet.columns:
        for column in range(first, last + 1):
            widths[column - 1] = 0.0 if hidden else 48.0 if width is None else points_of_width(width, 7)
    return {"defaultColumnWidth": 48.0, "defaultRowHeight": default, "columnWidths": widths, "rowHeights": heights}


def frame_model(drawn, sheet, names, charts):
    """A picture takes the next name, and a chart the next chart."""
    def place(marker):
        return {"ref": reference((int(marker[2]) + 1, int(marker[0]) + 1)), "x": marker[1] / 12700,
                "y": marker[3] / 12700}
    model = {"kind": drawn.kind, "name": drawn.name}
    if drawn.kind == "other":
        model.update(kind="chart", **charts.pop(0))
    if drawn.kind == "picture":
        model["media"] = names.pop(0)
    model["anchor"] = {"type": drawn.anchor, "from": place(drawn.start)}
    if drawn.end:
        model["anchor"]["to"] = place(drawn.end)
    table = sizes(sheet)
    axes = (sums(table["columnWidths"], table["defaultColumnWidth"]),
            sums(table["rowHeights"], table["defaultRowHeight"]))
    x, y, width, height = drawn_box(drawn, axes)
    if drawn.is_quarter_turned:
        x, y, width, height = x + (width - height) / 2, y + (height - width) / 2, height, width
    model["absolute"] = {"x": x, "y": y, "width": width, "height": height}
    if drawn.rotation:
        model["rotation"] = drawn.rotation / 60000
    return model


def sheet_model(number, sheet, media, charts):
    names = []
    cells = {at: cell_model(at, cell, sheet.formats) for at, cell in sheet.cells.items()}
    add_links(cells, sheet)
    for picture in sheet.pictures:
        names.append(hashlib.sha256(picture.content).hexdigest() + pathlib.PurePosixPath(picture.name).suffix)
        media[names[-1]] = picture.content
    frames = [frame_model(drawn, sheet, names, charts) for drawn in sheet.drawn
              if drawn.kind != "picture" or drawn.blip in sheet.stored_blips]
    return {
        "id": f"id{number}", "name": sheet.name,
        "rows": max([at[0] for at in sheet.cells] + [1]), "columns": max([at[1] for at in sheet.cells] + [1]),
        "visible": sheet.visible, **sizes(sheet),
        "cells": [cells[at] for at in sorted(cells)],
        "merges": [f"{reference(first)}:{reference(last)}" for first, last in sheet.merges],
        "frames": frames,
    }


def valued(model, kind):
    return next((cell for table in model["tables"] for cell in table["cells"] if cell.get("type") == kind), None)


def one_ulp(model, _):
    cell = valued(model, "number")
    cell["value"] = math.nextafter(cell["value"], math.inf)


def trailing_blank(model, _):
    valued(model, "text")["value"] += " "


def number_as_text(model, _):
    valued(model, "number")["type"] = "text"


def boolean_flipped(model, _):
    cell = valued(model, "boolean")
    cell["value"] = not cell["value"]


def error_as_text(model, _):
    valued(model, "error")["type"] = "text"


def cell_lost(model, _):
    model["tables"][0]["cells"].remove(valued(model, "number"))


def cell_invented(model, _):
    model["tables"][0]["cells"].append({"ref": "Z99", "type": "number", "value": 1})


def cell_twice(model, _):
    model["tables"][0]["cells"].append(dict(model["tables"][0]["cells"][-1]))


def cells_unordered(model, _):
    model["tables"][0]["cells"].reverse()


def formula_lost(model, _):
    next(cell for cell in model["tables"][0]["cells"] if cell.pop("formula", None))


def formula_altered(model, _):
    cell = next(cell for cell in model["tables"][0]["cells"] if "formula" in cell)
    cell["formula"] += "+1"


def bordered(model, key="width"):
    return next(line for table in model["tables"] for cell in table["cells"]
                for line in cell.get("borders", {}).values() if key in line)


def border_lost(model, _):
    next(cell for cell in model["tables"][0]["cells"] if cell.pop("borders", None))


def border_thicker(model, _):
    bordered(model)["width"] += 0.75


def border_dotted(model, _):
    bordered(model)["style"] = "dotted"


def border_recolored(model, _):
    bordered(model, "color")["color"] = "123456"


def bold_lost(model, _):
    next(cell for cell in model["tables"][0]["cells"] if cell["bold"])["bold"] = False


def font_enlarged(model, _):
    model["tables"][0]["cells"][0]["fontSize"] += 0.5


def font_renamed(model, _):
    model["tables"][0]["cells"][0]["fontName"] += "x"


def sheet_renamed(model, _):
    model["tables"][0]["name"] += "s"


def sheets_swapped(model, _):
    model["tables"].reverse()


def sheet_shown(model, _):
    model["tables"][-1]["visible"] ^= True


def rows_short(model, _):
    model["tables"][0]["rows"] = 1


def height_altered(model, _):
    model["tables"][0]["rowHeights"][0] += 0.25


def width_altered(model, _):
    model["tables"][0]["columnWidths"][0] += 0.75


def hidden_row_shown(model, _):
    heights = model["tables"][0]["rowHeights"]
    heights[heights.index(0.0)] = 15.0


def merge_lost(model, _):
    model["tables"][0]["merges"].pop()


def merges_reordered(model, _):
    model["tables"][0]["merges"].reverse()


def picture_lost(model, _):
    frames = model["tables"][0]["frames"]
    frames.remove(next(frame for frame in frames if frame["kind"] == "picture"))


def picture_altered(_, media):
    name = next(iter(media))
    media[name] = media[name][:-1] + b"?"


def frame_as_shape(model, _):
    model["tables"][0]["frames"][0]["kind"] = "shape"


def frame_renamed(model, _):
    model["tables"][0]["frames"][0]["name"] += "!"


def anchor_moved(model, _):
    model["tables"][0]["frames"][0]["anchor"]["from"]["x"] += 0.5


def anchor_retyped(model, _):
    model["tables"][0]["frames"][0]["anchor"]["type"] = "absolute"


def frame_stretched(model, _):
    model["tables"][0]["frames"][0]["absolute"]["width"] += 0.5


def frame_turned(model, _):
    model["tables"][0]["frames"][0]["rotation"] = 90.0


def silence(_model, _media):
    """Leaves the model as it is: main() drops the messages."""


DAMAGES = {function.__name__: function for function in (
    one_ulp, trailing_blank, number_as_text, boolean_flipped, error_as_text, cell_lost, cell_invented, cell_twice,
    cells_unordered, formula_lost, formula_altered, border_lost, border_thicker, border_dotted, border_recolored,
    bold_lost, font_enlarged, font_renamed, sheet_renamed, sheets_swapped, sheet_shown, rows_short,
    height_altered, width_altered, hidden_row_shown, merge_lost, merges_reordered, picture_lost, picture_altered,
    frame_as_shape, frame_renamed, anchor_moved, anchor_retyped, frame_stretched, frame_turned, silence)}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("command", choices=["import"])
    parser.add_argument("file")
    parser.add_argument("--model", required=True)
    parser.add_argument("--report", required=True)
    parser.add_argument("--media", required=True)
    parser.add_argument("--ids")
    options = parser.parse_args()
    try:
        sheets = WorkbookReader(options.file).sheets
    except Unreadable as error:
        print(error, file=sys.stderr)
        return 1
    media, lost = {}, 0
    charts = [[] for _ in sheets]
    if any(drawn.kind == "other" for sheet in sheets for drawn in sheet.drawn):
        charts = [[chart_of(chart) for chart in sheet._charts]  # pylint: disable=protected-access
                  for sheet in openpyxl.load_workbook(options.file).worksheets]
    tables = [sheet_model(number, sheet, media, charts[number - 1]) for number, sheet in enumerate(sheets, 1)]
    model = {"format": "xlsx", "tables": tables, "links": [], "media": []}
    lost = sum(cell.is_bad for sheet in sheets for cell in sheet.cells.values())
    damage = os.environ.get("QV_FAKE_DAMAGE")
    if damage:
        DAMAGES[damage](model, media)
    model["media"] = [{"id": name, "bytes": len(content)} for name, content in media.items()]
    folder = pathlib.Path(options.media)
    folder.mkdir(parents=True, exist_ok=True)
    for name, content in media.items():
        (folder / name).write_bytes(content)
    pathlib.Path(options.model).write_text(json.dumps(model), encoding="utf-8")
    if damage == "silence":
        lost = -sum(sheet.refused_merges + sheet.bad_places for sheet in sheets)
    messages = [{"message": "bad value", "text": "bad value", "arguments": []}] * (lost + sum(sheet.refused_merges + sheet.bad_places for sheet in sheets))
    pathlib.Path(options.report).write_text(json.dumps({"messages": messages, "leftOut": []}), encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
