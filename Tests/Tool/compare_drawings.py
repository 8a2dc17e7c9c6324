"""Frames of a sheet: what its drawing says, in points, against the imported table."""
import math
import re

from drawing_reader import EMU_PER_POINT

MAX_COLUMNS, MAX_ROWS = 16384, 1048576


def compare_drawings(table, sheet, stored):
    """Yields (category, detail) for each frame that differs. stored says whether a picture could be kept."""
    drawn = list(_shown(sheet.drawn, stored))
    frames = table["frames"]
    kinds = [each.kind for each in drawn]
    if kinds != [frame["kind"].replace("chart", "other") for frame in frames]:
        yield "frames", f"expected {kinds[:20]}, got {[frame['kind'] for frame in frames][:20]}"
        return
    sizes = (sums(table["columnWidths"], table["defaultColumnWidth"]),
             sums(table["rowHeights"], table["defaultRowHeight"]))
    for each, frame in zip(drawn, frames):
        where = f"{each.kind} {each.name!r}"
        yield from ((category, f"{where}: {detail}") for category, detail in _compare_frame(each, frame, sizes))


def _shown(drawn, stored):
    """Pictures that cannot be kept have no frames, nor have groups of nothing else."""
    for each in drawn:
        if each.kind == "group" and not list(_shown(each.children, stored)):
            continue
        if each.kind != "picture" or stored(each):
            yield each


def _compare_frame(drawn, frame, sizes):
    if frame.get("name", "") != drawn.name:
        yield "frame name", f"got {frame.get('name')!r}"
    if not math.isclose(frame.get("rotation", 0), drawn.rotation / 60000, rel_tol=1e-6, abs_tol=1e-6):
        yield "rotation", f"expected {drawn.rotation / 60000}, got {frame.get('rotation', 0)}"
    if not drawn.anchor:
        return
    box = drawn_box(drawn, sizes)
    if drawn.is_quarter_turned:
        x, y, width, height = box
        box = (x + (width - height) / 2, y + (height - width) / 2, height, width)
    else:
        yield from _compare_anchor(drawn, frame["anchor"])
    got = tuple(frame["absolute"].get(key, 0) for key in ("x", "y", "width", "height"))
    if not all(math.isclose(a, b, rel_tol=1e-5, abs_tol=0.01) for a, b in zip(box, got)):
        yield "frame box", f"expected {box}, got {got}"


def _compare_anchor(drawn, anchor):
    if anchor["type"] != drawn.anchor:
        yield "anchor type", f"expected {drawn.anchor}, got {anchor['type']}"
        return
    if drawn.anchor == "absolute":
        if not _same((anchor["x"], anchor["y"]), [value / EMU_PER_POINT for value in drawn.point]):
            yield "anchor", f"expected {drawn.point} EMU, got {anchor}"
        return
    for key, marker in (("from", drawn.start), ("to", drawn.end)):
        if key in anchor:
            expected = _clipped(marker)
            got = (*_cell(anchor[key]["ref"]), anchor[key]["x"], anchor[key]["y"])
            wanted = (expected[0], expected[2], expected[1] / EMU_PER_POINT, expected[3] / EMU_PER_POINT)
            if not _same(got, wanted):
                yield "anchor", f"{key}: expected {wanted}, got {anchor[key]}"


def _clipped(marker):
    column, x, row, y = marker or (0, 0, 0, 0)
    return min(max(column, 0), MAX_COLUMNS - 1), x, min(max(row, 0), MAX_ROWS - 1), y


def _cell(ref):
    letters, digits = re.fullmatch("([A-Z]+)([0-9]+)", ref).groups()
    column = 0
    for letter in letters:
        column = column * 26 + ord(letter) - ord("A") + 1
    return column - 1, int(digits) - 1


def drawn_box(drawn, sizes):
    """x, y, width and height in points, before any turn."""
    if drawn.anchor == "absolute":
        return tuple(value / EMU_PER_POINT for value in (*drawn.point, *drawn.size))
    start = _point(_clipped(drawn.start), sizes)
    if drawn.anchor == "oneCell":
        return (*start, *(value / EMU_PER_POINT for value in drawn.size))
    ends = zip(_clipped(drawn.start)[::2], _clipped(drawn.end)[::2], start, _point(_clipped(drawn.end), sizes))
    return (*start, *((second - first) * (1 if low <= high else -1) for low, high, first, second in ends))


def _point(marker, sizes):
    columns, rows = sizes
    return columns(int(marker[0])) + marker[1] / EMU_PER_POINT, rows(int(marker[2])) + marker[3] / EMU_PER_POINT


def sums(explicit, default):
    """A function from an index to the sum of the sizes before it."""
    sums = [0.0]
    for size in explicit:
        sums.append(sums[-1] + size)
    return lambda index: sums[index] if index < len(sums) else sums[-1] + (index + 1 - len(sums)) * default


def _same(first, second):
    return len(first) == len(second) and all(
        math.isclose(a, b, rel_tol=1e-6, abs_tol=1e-4) for a, b in zip(first, second))
