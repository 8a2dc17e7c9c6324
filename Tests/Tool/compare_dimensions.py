"""Widths of columns and heights of rows: what the file says, in points, against the imported table."""
import math

WIDEST_DIGIT = {("Calibri", "11"): 7, ("Arial", "10"): 7}  # pixels at 96 dots per inch


def points_of_width(characters, digit):
    """Through whole pixels, as the format defines it."""
    pixels = math.floor((256 * characters + math.floor(128 / digit)) / 256 * digit)
    return pixels * 0.75


def compare_dimensions(table, sheet, default_font):
    """Yields (category, detail) for each list that differs; only fonts whose digits are known are looked at."""
    yield from _compare_rows(table, sheet)
    digit = WIDEST_DIGIT.get(default_font)
    if digit is not None:
        yield from _compare_columns(table, sheet, digit)


def _compare_rows(table, sheet):
    default = float(sheet.defaults.get("defaultRowHeight", "0") or 0)
    if sheet.defaults.get("zeroHeight") in ("1", "true"):
        default = 0.0
    elif default and not _same(table["defaultRowHeight"], default):
        yield "default height", f"expected {default}, got {table['defaultRowHeight']}"
    got = table["rowHeights"]
    for row, (height, hidden) in sheet.rows.items():
        expected = 0.0 if hidden else height
        if expected is None:
            continue
        value = got[row - 1] if row <= len(got) else table["defaultRowHeight"]
        if not _same(value, expected):
            yield "height", f"row {row}: expected {expected}, got {value}"


def _compare_columns(table, sheet, digit):
    got = table["columnWidths"]
    for first, last, width, hidden in sheet.columns:
        if width is None and not hidden:
            continue
        expected = 0.0 if hidden else points_of_width(width, digit)
        for column in {first, last}:
            value = got[column - 1] if 1 <= column <= len(got) else table["defaultColumnWidth"]
            if 1 <= column and not _same(value, expected):
                yield "width", f"column {column}: expected {expected}, got {value}"


def _same(value, expected):
    return math.isclose(value, expected, rel_tol=1e-6, abs_tol=1e-9)
