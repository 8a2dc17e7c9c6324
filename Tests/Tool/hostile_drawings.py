"""Packages whose drawings are made to do harm: far places, deep groups, and very many objects."""
from hostile_packages import ACCEPTED, EITHER, Case, packed
from hostile_parts import pictured
from package_parts import row, number

DRAWING, SHEET = "xl/drawings/drawing1.xml", "xl/worksheets/sheet1.xml"
FARTHEST = 27273042329600  # EMU


def drawn(content, sheet_data=""):
    """A workbook whose drawing has that content, and no pictures."""
    parts = pictured("../media/image1.png")
    head, _, _ = parts[DRAWING].partition("<xdr:oneCellAnchor>")
    parts[DRAWING] = f"{head}{content}</xdr:wsDr>"
    if sheet_data:
        before, _, rest = parts[SHEET].partition("<sheetData")
        parts[SHEET] = f"{before}<sheetData>{sheet_data}</sheetData>{rest[rest.index('<drawing'):]}"
    return packed(parts)


def place(name, column, x, row_number, y):
    return (f"<xdr:{name}><xdr:col>{column}</xdr:col><xdr:colOff>{x}</xdr:colOff><xdr:row>{row_number}</xdr:row>"
            f"<xdr:rowOff>{y}</xdr:rowOff></xdr:{name}>")


def anchored(content, first=(0, 0, 0, 0), last=(3, 0, 3, 0)):
    return (f"<xdr:twoCellAnchor>{place('from', *first)}{place('to', *last)}{content}<xdr:clientData/>"
            "</xdr:twoCellAnchor>")


def shape(transform=""):
    return f"<xdr:sp><xdr:spPr>{transform}</xdr:spPr></xdr:sp>"


def nested(depth):
    return drawn(anchored("<xdr:grpSp>" * depth + shape() + "</xdr:grpSp>" * depth))


def scattered(count):
    """Turned shapes all over a sheet whose last row has a height."""
    turned = shape('<a:xfrm rot="5400000"/>')
    places = ((7919 * i) % 1048000 for i in range(count))
    return drawn("".join(anchored(turned, (1, 0, at, 0), (5, 0, at + 200, 0)) for at in places),
                 f'{row(1, [number("A1", 1)])}<row r="1048576" ht="20" customHeight="1"/>')


def far_away():
    box = f'<a:off x="{FARTHEST}" y="-{FARTHEST}"/><a:ext cx="{FARTHEST}" cy="{FARTHEST}"/>'
    inner = f'<a:xfrm>{box}<a:chOff x="-{FARTHEST}" y="0"/><a:chExt cx="1" cy="1"/></a:xfrm>'
    groups = f"<xdr:grpSp><xdr:grpSpPr>{inner}</xdr:grpSpPr>" * 40
    deep = groups + shape(f"<a:xfrm>{box}</a:xfrm>") + "</xdr:grpSp>" * 40
    return drawn(anchored(deep, (16383, FARTHEST, 1048575, FARTHEST), (0, -FARTHEST, 0, -FARTHEST)))


CASES = [
    Case("drawing-groups-deep", lambda: nested(900), ACCEPTED, "deeper than 50 levels"),
    Case("drawing-groups-too-deep", lambda: nested(2000), EITHER),
    Case("drawing-objects-many", lambda: drawn(anchored(shape()) * 150000), ACCEPTED, "more than 100000 objects"),
    Case("drawing-objects-in-one-anchor", lambda: drawn(anchored(shape() * 200000)), ACCEPTED,
         "more than 100000 objects"),
    Case("drawing-messages-many", lambda: drawn(anchored(shape(), (0, "1.5", "x", 0)) * 20000), ACCEPTED,
         "19000 more times"),
    Case("drawing-scattered-over-the-grid", lambda: scattered(10000), ACCEPTED, compare=True),
    Case("drawing-far-away", far_away, ACCEPTED),
    Case("drawing-beyond-numbers", lambda: drawn(anchored(shape(), (10**30, 10**30, -1, "1e999cm"))), ACCEPTED,
         "is no row or column of a sheet"),
]
