"""What the formats and links of an imported workbook must have in common with the slow reader and with openpyxl."""
from sheet_formats import LINES
from sheet_reader import reference

EDGES = ("left", "right", "top", "bottom")


def compare_formats(cells, sheet):
    """The borders and fonts of every cell; cells by their places."""
    for at, expected in sheet.cells.items():
        cell = cells.get(at, {})
        yield from _compare_border(at, cell.get("borders", {}), sheet.formats.border(expected.format))
        if cell:
            yield from _compare_font(at, cell, sheet.formats, expected.format)


def expected_links(sheet):
    """Place -> target, the last link winning; of a large range the cells that the sheet writes, and the first one."""
    found = {}
    for first, last, target in sheet.links:
        if (last[0] - first[0] + 1) * (last[1] - first[1] + 1) > 10000:
            found.update({at: target for at in sheet.cells
                          if first[0] <= at[0] <= last[0] and first[1] <= at[1] <= last[1]})
            found[first] = target
            continue
        found.update({(row, column): target for row in range(first[0], last[0] + 1)
                      for column in range(first[1], last[1] + 1)})
    return found


def compare_links(cells, sheet):
    """The links of every cell. Of the cells that a merge covers, only those that the sheet writes have any."""
    expected = expected_links(sheet)
    for at, cell in cells.items():
        if "hyperlink" in cell and at not in expected:
            yield "hyperlink", f"{reference(at)}: expected none, got {cell['hyperlink']!r}"
    for at, target in expected.items():
        got = cells.get(at, {}).get("hyperlink")
        if got != target and (at in sheet.cells or not _is_covered(at, sheet.merges)):
            yield "hyperlink", f"{reference(at)}: expected {target!r}, got {got!r}"


def _is_covered(at, merges):
    return any(first[0] <= at[0] <= last[0] and first[1] <= at[1] <= last[1] and at != first
               for first, last in merges)


def disagreements_over_links(sheet, theirs):
    """Where openpyxl has other links; theirs by their places. It puts those of covered cells on the first one."""
    expected = expected_links(sheet)
    for at in expected.keys() | theirs.keys():
        link = theirs.get(at)
        other = None  # also of a link that leads nowhere
        if link is not None and (link.target or link.location):
            other = (link.target or "") + ("#" + link.location if link.location else "")
        if expected.get(at) != other and not _is_covered(at, sheet.merges):
            yield "openpyxl hyperlink", f"{reference(at)}: {expected.get(at)!r}, openpyxl has {other!r}"


def _compare_border(at, lines, expected):
    if lines.keys() != expected.keys():
        yield "borders", f"{reference(at)}: expected {sorted(expected)}, got {sorted(lines)}"
        return
    for side, line in expected.items():
        got = lines[side]
        if (got["width"], got["style"]) != LINES.get(line.kind):
            yield "border line", f"{reference(at)}: {side} is {line.kind}, got {got}"
        if (line.rgb is None) != ("color" not in got) or (line.rgb and got["color"].upper() != line.rgb):
            yield "border color", f"{reference(at)}: {side} is {line.rgb!r}, got {got}"


def _compare_font(at, cell, formats, entry):
    """A cell without a font of its own has that of the first format."""
    font = formats.font(entry)
    if font is None:
        return
    if not cell.keys() & {"fontName", "fontSize", "fontColor", "bold", "italic"}:
        default = formats.font(0)
        if default != font:
            yield "font", f"{reference(at)}: expected {font}, got that of the first format, {default}"
        return
    for key, value in (("bold", font.bold), ("italic", font.italic)):
        if cell.get(key, False) != value:
            yield "font", f"{reference(at)}: expected {key} {value}, got {cell.get(key)}"
    if font.name is not None and cell.get("fontName") != font.name:
        yield "font", f"{reference(at)}: expected {font.name!r}, got {cell.get('fontName')!r}"
    if font.size is not None and abs(cell.get("fontSize", 0) - font.size) > 1e-4:
        yield "font", f"{reference(at)}: expected {font.size} points, got {cell.get('fontSize')}"


def explain_format(at, sheet, theirs, merged):
    """The rule under which openpyxl says of a cell's format what the slow reader does; else None, and both sides."""
    entry = sheet.cells[at].format
    mine = {side: line.kind for side, line in sheet.formats.border(entry).items() if side in EDGES}
    other = {}
    for side, strict in (("left", "start"), ("right", "end"), ("top", "top"), ("bottom", "bottom")):
        lines = [getattr(theirs.border, name) for name in (side, strict)]  # each under the name that the file has
        styles = [line.style for line in lines if line is not None and line.style not in (None, "none")]
        if styles:
            other[side] = styles[0]
    font = sheet.formats.font(entry)
    if font is not None and not _same_font(font, theirs.font):
        return None, f"{font}, openpyxl has {theirs.font.b, theirs.font.i, theirs.font.sz, theirs.font.name}"
    if mine == other:
        return "format agrees", ""
    return ("openpyxl spreads the borders of merged cells" if merged else None), f"{mine}, openpyxl has {other}"


def _same_font(font, theirs):
    return ((bool(theirs.b), bool(theirs.i)) == (font.bold, font.italic)
            and (font.name is None or theirs.name == font.name)
            and (font.size is None or theirs.sz == font.size))
