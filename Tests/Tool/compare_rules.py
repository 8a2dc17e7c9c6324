"""What an imported workbook must have in common with the slow reader and with openpyxl, and what openpyxl alters.

Each difference is (sheet, category, detail). Openpyxl's own habits are rules with a name; how often each one
explains a cell is counted, so that a rule that hides too much shows.
"""
import collections
import datetime
import hashlib
import math
import pathlib
import re
from collections import namedtuple

from compare_dimensions import compare_dimensions
from compare_drawings import compare_drawings
from compare_formats import compare_formats, compare_links, disagreements_over_links, explain_format
from sheet_names import model_names
from sheet_reader import MAX_COLUMNS, MAX_ROWS, column_letters, decode, place, reference

Difference = namedtuple("Difference", "sheet category detail")
MESSAGES = 1000  # so many of one kind are due at most
MILLISECOND = 1 / 86400000


def compare_model(model, media_folder, report, sheets, default_font=("", "")):
    """Compares the program's JSON with what the slow reader read.

    What the report says was left out is no difference: the loss is told, not hidden.
    """
    tables = model["tables"]
    names = [table["name"] for table in tables]
    expected = model_names([sheet.name for sheet in sheets])
    if names != expected:
        return [Difference("", "sheets", f"expected {expected}, got {names}")]
    found = _compare_media(model, media_folder)
    for table, sheet in zip(tables, sheets):
        found += [Difference(sheet.name, *rest) for rest in _compare_table(table, media_folder, sheet, report["leftOut"])]
        found += [Difference(sheet.name, *rest) for rest in compare_dimensions(table, sheet, default_font)]
        found += [Difference(sheet.name, *rest) for rest in compare_drawings(
            table, sheet, lambda drawn, stored=sheet.stored_blips: drawn.blip in stored)]
    bad = sum(cell.is_bad for sheet in sheets for cell in sheet.cells.values())
    bad += sum(sheet.refused_merges + sheet.bad_places for sheet in sheets)
    if len(report["messages"]) < min(bad, MESSAGES):
        found.append(Difference("", "silence", f"{bad} bad values, but {len(report['messages'])} messages"))
    return found


def _compare_media(model, folder):
    for entry in model["media"]:
        path = pathlib.Path(folder) / entry["id"]
        if not path.is_file() or path.stat().st_size != entry["bytes"]:
            return [Difference("", "media", f"{entry['id']} is not there with {entry['bytes']} bytes")]
    return []


def _compare_table(table, folder, sheet, left_out):
    if table["visible"] != sheet.visible:
        yield "visible", f"expected {sheet.visible}"
    valued = [at for at, cell in sheet.cells.items() if cell.kind or cell.has_formula]
    for key, index, named in (("rows", 0, sheet.rows_named), ("columns", 1, sheet.columns_named)):
        least, most = max([at[index] for at in valued], default=0), max(named, 1)
        if not least <= table[key] <= most:
            yield key, f"expected {least} to {most}, got {table[key]}"
    yield from _compare_cells(table["cells"], sheet)
    yield from compare_formats({place(cell["ref"]): cell for cell in table["cells"]}, sheet)
    yield from compare_links({place(cell["ref"]): cell for cell in table["cells"]}, sheet)
    if not any(kind.startswith("formulas") for kind in left_out):
        yield from _compare_formulas(table["cells"], sheet.cells)
    merges = list(_merges_within(table, sheet.merges))
    if table["merges"] != merges:
        yield "merges", f"expected {merges[:20]}, got {table['merges'][:20]}"
    expected = [hashlib.sha256(picture.content).hexdigest() for picture in sheet.pictures]
    got = [_digest(pathlib.Path(folder) / name) for name in _pictures(table["frames"])]
    if expected != got:
        yield "pictures", f"expected {len(expected)}: {expected[:4]}, got {len(got)}: {got[:4]}"


def _merges_within(table, merges):
    """The rectangles as text. One over whole columns or rows ends with the table, which it does not make larger."""
    for first, last in merges:
        if first[0] == 1 and last[0] == MAX_ROWS:
            last = (table["rows"], last[1])
        if first[1] == 1 and last[1] == MAX_COLUMNS:
            last = (last[0], table["columns"])
        if first != last:
            yield f"{reference(first)}:{reference(last)}"


def _pictures(frames):
    for frame in frames:
        if frame.get("kind") == "picture" and "media" in frame:
            yield frame["media"]
        yield from _pictures(frame.get("children", []))


def _digest(path):
    return hashlib.sha256(path.read_bytes()).hexdigest() if path.is_file() else f"no file {path.name}"


def _compare_cells(cells, sheet):
    got, last, expected = {}, (0, 0), sheet.cells
    for cell in cells:
        at = place(cell["ref"])
        if at <= last:
            yield "order", f"{cell['ref']} after {reference(last)}"
        got[at], last = cell, at
    for at, cell in got.items():
        if at not in expected and not any(
                first[0] <= at[0] <= end[0] and first[1] <= at[1] <= end[1] for first, end, _ in sheet.links):
            yield "invented", f"{cell}"
    for at, cell in expected.items():
        yield from _compare_cell(at, got.get(at, {}), cell)


def _compare_cell(at, got, cell):
    if got.get("type", "") != cell.kind:
        yield "type", f"{reference(at)}: expected {cell.kind or 'none'} {cell.value!r}, got {got}"
    elif cell.kind and not same_value(cell, got["value"]):
        yield "value", f"{reference(at)}: expected {cell.value!r}, got {got['value']!r}"


def _compare_formulas(cells, expected):
    got = {place(cell["ref"]): cell.get("formula") for cell in cells}
    for at, cell in expected.items():
        formula = got.get(at)
        if cell.has_formula != (formula is not None):
            yield "formula", f"{reference(at)}: expected {cell.formula if cell.has_formula else None!r}, got {formula!r}"
        elif cell.formula and not same_formula(cell.formula, formula):
            yield "formula text", f"{reference(at)}: expected {cell.formula!r}, got {formula!r}"


def same_value(cell, value):
    if cell.kind == "number":
        if isinstance(value, bool) or not isinstance(value, (int, float)):
            return False
        if re.match(r"\d+[-:]", cell.raw):  # an ISO date: the order of its sums is free
            return math.isclose(value, cell.value, rel_tol=0, abs_tol=MILLISECOND / 10)
        return float(value) == cell.value and math.copysign(1, value) == math.copysign(1, cell.value)
    return type(value) is type(cell.value) and value == cell.value


def same_formula(first, second):
    return normalised(first) == normalised(second)


def normalised(formula):
    """The formula without what no reader can see: blanks and case outside of texts, a leading "=" or "+"."""
    pieces = re.split(r'("(?:[^"]|"")*"|\'(?:[^\']|\'\')*\')', formula.lstrip("=+"))
    return "".join(piece if index % 2 else re.sub(r"\s+", "", piece).upper() for index, piece in enumerate(pieces))


def _describe(anchor):
    """An anchor of openpyxl as (type, column, offset, row, offset) or (type, x, y)."""
    start = getattr(anchor, "_from", None)
    if start is None:
        return ("absolute", anchor.pos.x, anchor.pos.y)
    kind = "twoCell" if hasattr(anchor, "to") else "oneCell"
    return (kind, start.col, start.colOff, start.row, start.rowOff)


def _describe_drawn(drawn):
    return ("absolute", *drawn.point) if drawn.anchor == "absolute" else (drawn.anchor, *drawn.start)


class OpenpyxlRules:
    """Compares the slow reader with openpyxl; counts[rule] says how many cells each rule explained."""

    def __init__(self, date1904):
        self._date1904 = date1904
        self.counts = {}

    def compare(self, sheets, book):
        names = [sheet.title for sheet in book.worksheets]
        expected = [sheet.name for sheet in sheets]
        if names != expected:
            return [Difference("", "openpyxl sheets", f"expected {expected}, got {names}")]
        found = []
        for sheet, other in zip(sheets, book.worksheets):
            found += [Difference(sheet.name, *rest) for rest in self._compare_sheet(sheet, other)]
        return found

    def compare_formulas(self, model, book):
        """Compares the program's formulas, shared ones among them, with openpyxl's."""
        for table, other in zip(model["tables"], book.worksheets):
            for cell in table["cells"]:
                theirs = other._cells.get(place(cell["ref"]))  # pylint: disable=protected-access
                if "formula" not in cell or theirs is None or theirs.data_type != "f" or theirs.value == "=":
                    continue
                if same_formula(theirs.value, cell["formula"]):
                    self._count("formula agrees")
                else:
                    yield Difference(table["name"], "openpyxl formula",
                                     f"{cell['ref']}: expected {theirs.value!r}, got {cell['formula']!r}")

    def _compare_sheet(self, sheet, other):
        if (other.sheet_state == "visible") != sheet.visible:
            yield "openpyxl visible", other.sheet_state
        theirs = {at: cell for at, cell in other._cells.items()  # pylint: disable=protected-access
                  if cell.value is not None}
        merged = set(sheet.merges)
        for at, cell in sheet.cells.items():
            rule = self._explain(at, cell, theirs.pop(at, None), merged, other)
            if rule is None:
                yield "openpyxl value", f"{reference(at)}: read {cell.kind} {cell.value!r}"
            else:
                self._count(rule)
        yield from self._compare_formats(sheet, other, merged)
        links = {at: cell.hyperlink for at, cell in other._cells.items()  # pylint: disable=protected-access
                 if cell.hyperlink}
        yield from disagreements_over_links(sheet, links)
        for at in theirs:
            yield "openpyxl cell", f"{column_letters(at[1])}{at[0]}: {theirs[at].value!r}"
        ranges = {((r.min_row, r.min_col), (r.max_row, r.max_col)) for r in other.merged_cells.ranges}
        if ranges != merged:
            yield "openpyxl merges", f"they lack {sorted(merged - ranges)[:9]}, have {sorted(ranges - merged)[:9]}"
        images = [hashlib.sha256(image.content).hexdigest()
                  for image in other._images]  # pylint: disable=protected-access
        ours = [hashlib.sha256(picture.content).hexdigest() for picture in sheet.pictures]
        if sorted(images) != sorted(ours):
            yield "openpyxl pictures", f"expected {len(ours)}, got {len(images)}"
        yield from self._compare_anchors(sheet, other)
        yield from self._compare_sizes(sheet, other)

    def _compare_anchors(self, sheet, other):
        """Openpyxl keeps the anchors of pictures and charts; of a group, that of the one picture it finds there."""
        theirs = [_describe(each.anchor) for each in other._images]  # pylint: disable=protected-access
        ours = [_describe_drawn(drawn) for drawn in sheet.drawn
                if drawn.anchor and any(each.kind == "picture" and each.blip in sheet.stored_blips
                                        for each in (drawn, *drawn.children))]
        charts = [_describe(each.anchor) for each in other._charts]  # pylint: disable=protected-access
        frames = [_describe_drawn(drawn) for drawn in sheet.drawn if drawn.kind == "other" and drawn.anchor]
        if sorted(theirs) != sorted(ours):
            yield "openpyxl picture anchors", f"expected {sorted(ours)[:3]}, got {sorted(theirs)[:3]}"
        if collections.Counter(charts) - collections.Counter(frames):
            yield "openpyxl chart anchors", f"expected {sorted(frames)[:3]}, got {sorted(charts)[:3]}"
        for _ in theirs + charts:
            self._count("anchor agrees")

    def _compare_sizes(self, sheet, other):
        """Heights and widths that the file gives; where columns overlap, openpyxl keeps others."""
        for row, (height, _) in sheet.rows.items():
            if height is not None:
                theirs = other.row_dimensions[row].height if row in other.row_dimensions else None
                if theirs is None or not math.isclose(theirs, height, rel_tol=1e-9, abs_tol=1e-9):
                    yield "openpyxl height", f"row {row}: expected {height}, got {theirs}"
                else:
                    self._count("height agrees")
        widths = {(each.min, min(each.max, MAX_COLUMNS)): each.width for each in other.column_dimensions.values()
                  if each.min is not None}
        for first, last, width, _ in sheet.columns:
            if width is not None:
                theirs = widths.get((first, last))
                if theirs is None or not math.isclose(theirs, width, rel_tol=1e-9, abs_tol=1e-9):
                    yield "openpyxl width", f"columns {first} to {last}: expected {width}, got {theirs}"
                else:
                    self._count("width agrees")

    def _compare_formats(self, sheet, other, merged):
        covered = {(row, column) for first, last in merged if (last[0] - first[0] + 1) * (last[1] - first[1] + 1) < 100000
                   for row in range(first[0], last[0] + 1) for column in range(first[1], last[1] + 1)}
        for at in sheet.cells:
            theirs = other._cells.get(at)  # pylint: disable=protected-access
            if theirs is None or type(theirs).__name__ == "MergedCell":
                continue
            rule, detail = explain_format(at, sheet, theirs, at in covered)
            if rule is None:
                yield "openpyxl format", f"{reference(at)}: {detail}"
            else:
                self._count(rule)

    def _count(self, rule):
        self.counts[rule] = self.counts.get(rule, 0) + 1

    def _explain(self, at, cell, theirs, merged, other):
        """The name of the rule under which both sides say the same; None when they do not."""
        value = None if theirs is None else theirs.value
        if value is None:
            if not cell.kind:
                return "no value"
            if cell.kind == "text" and cell.value == "":
                return "empty text is none to openpyxl"
            covered = type(other._cells.get(at)).__name__ == "MergedCell"  # pylint: disable=protected-access
            return "merged cells lose their values in openpyxl" if covered and merged else None
        if cell.kind in ("text", "error") and isinstance(value, str):
            if value == cell.value:
                return f"{cell.kind} agrees"
            escaped = cell.kind == "text" and (decode(value) == cell.value or value == cell.value.replace("x005F_", ""))
            return "openpyxl keeps escapes" if escaped else None
        if cell.kind == "boolean":
            return "boolean agrees" if value is cell.value else None
        if cell.kind != "number":
            return None
        return self._explain_number(cell, value)

    def _explain_number(self, cell, value):
        if isinstance(value, (int, float)) and not isinstance(value, bool):
            return "number agrees" if float(value) == cell.value else None
        if value == "#VALUE!":
            return "openpyxl refuses the date" if cell.value < 0 or cell.value > 2958465 else None
        number = self._serial(value)
        if number is not None and not self._date1904 and 60 <= cell.value < 61 and round(cell.value - number, 7) == 1:
            return "openpyxl has no 29th of February 1900"
        if number is not None and math.isclose(number, cell.value, rel_tol=0, abs_tol=1.01 * MILLISECOND):
            return f"openpyxl makes a {type(value).__name__} of it"
        return None

    def _serial(self, value):
        if isinstance(value, datetime.timedelta):
            return value.total_seconds() / 86400
        if isinstance(value, datetime.time):
            return (value.hour * 3600 + value.minute * 60 + value.second + value.microsecond / 1e6) / 86400
        if not isinstance(value, datetime.date):
            return None
        if not isinstance(value, datetime.datetime):
            value = datetime.datetime(value.year, value.month, value.day)
        epoch = datetime.datetime(1904, 1, 1) if self._date1904 else datetime.datetime(1899, 12, 30)
        days = (value - epoch).total_seconds() / 86400
        return days if self._date1904 or not 0 < days < 61 else days - 1
