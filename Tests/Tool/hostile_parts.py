"""The other half of the hostile packages: the container is sound, and its parts are made to do harm."""
from hostile_packages import ACCEPTED, BOOK, EITHER, REFUSED, SHEET, Case, packed, plain
from package_parts import (DRAWING_TYPE, HEAD, RELATIONS, content_types, inline, number, png, relations, row, shared,
                           typed, workbook)

PARTS = {
    "content-types": "[Content_Types].xml", "package-relations": "_rels/.rels", "workbook": BOOK,
    "workbook-relations": "xl/_rels/workbook.xml.rels", "sheet": SHEET, "strings": "xl/sharedStrings.xml",
    "styles": "xl/styles.xml", "drawing": "xl/drawings/drawing1.xml",
    "sheet-relations": "xl/worksheets/_rels/sheet1.xml.rels",
    "drawing-relations": "xl/drawings/_rels/drawing1.xml.rels",
}
LAUGHS = "".join(f'<!ENTITY l{i} "{f"&l{i - 1};" * 10 if i else "ha"}">' for i in range(9))
DOCTYPES = {
    "doctype": "<!DOCTYPE x>",
    "laughs": f"<!DOCTYPE x [{LAUGHS}]>",
    "file-entity": '<!DOCTYPE x [<!ENTITY e SYSTEM "file:///etc/passwd">]>',
    "outer-subset": '<!DOCTYPE x SYSTEM "http://127.0.0.1:9/harm.dtd">',
    "parameter-entity": '<!DOCTYPE x [<!ENTITY % p SYSTEM "file:///etc/passwd"> %p;]>',
}
ENTITIES = {"laughs": "&l8;", "file-entity": "&e;"}


def sheet(inner, strings="<si><t>one</t></si>", **rest):
    """A package with one sheet of that content."""
    return packed(workbook([("Sheet1", "visible", inner)], strings, **rest))


def cells(*of_first_row):
    return sheet(f"<sheetData>{row(1, of_first_row)}</sheetData>")


def pictured(target, mode="", source="r:embed", picture_name="xl/media/image1.png"):
    """A workbook with one picture, whose relationship points to target."""
    parts = plain('<drawing r:id="rId1"/>')
    parts["[Content_Types].xml"] = content_types(1, [("/xl/drawings/drawing1.xml", DRAWING_TYPE)])
    anchor = ("<xdr:oneCellAnchor><xdr:from><xdr:col>1</xdr:col><xdr:colOff>0</xdr:colOff><xdr:row>1</xdr:row>"
              '<xdr:rowOff>0</xdr:rowOff></xdr:from><xdr:ext cx="914400" cy="914400"/><xdr:pic><xdr:nvPicPr>'
              '<xdr:cNvPr id="2" name="../../harm"/><xdr:cNvPicPr/></xdr:nvPicPr><xdr:blipFill>'
              f'<a:blip {source}="rId1"/></xdr:blipFill><xdr:spPr/></xdr:pic><xdr:clientData/></xdr:oneCellAnchor>')
    parts["xl/drawings/drawing1.xml"] = (
        f'{HEAD}<xdr:wsDr xmlns:xdr="http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing" '
        f'xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" xmlns:r="{RELATIONS}">{anchor}</xdr:wsDr>')
    parts["xl/worksheets/_rels/sheet1.xml.rels"] = relations([("rId1", "drawing", "../drawings/drawing1.xml")])
    last = (mode,) if mode else ()
    parts["xl/drawings/_rels/drawing1.xml.rels"] = relations([("rId1", "image", target, *last)])
    if picture_name:
        parts[picture_name] = png(3, 3, lambda x, y: (80 * x, 80 * y, 0))
    return parts


def with_doctype(part, kind):
    """The part gets a document type after its declaration, and an entity in its first text or attribute."""
    parts = pictured("../media/image1.png")
    head, _, body = parts[part].partition("?>\n")
    entity = ENTITIES.get(kind, "")
    if entity and "</" in body:
        at = body.rindex("</")
        body = body[:at] + entity + body[at:]
    parts[part] = f"{head}?>\n{DOCTYPES[kind]}\n{body}"
    return packed(parts)


def nested(part, depth):
    parts = pictured("../media/image1.png")
    at = parts[part].rindex("</")
    parts[part] = parts[part][:at] + "<x>" * depth + "</x>" * depth + parts[part][at:]
    return packed(parts)


def attributes(count):
    many = " ".join(f'a{i}="1"' for i in range(count))
    return sheet(f'<sheetData><row r="1" {many}><c r="A1"><v>1</v></c></row></sheetData>')


def recoded(declared, encoding, part=SHEET):
    """The part in another encoding, with the name that its declaration gives."""
    parts = plain()
    text = parts[part].replace("UTF-8", declared)
    parts[part] = text.encode(encoding)
    return packed(parts)


def raw_sheet(before, after):
    parts = plain()
    parts[SHEET] = parts[SHEET].encode().replace(before, after)
    return packed(parts)


def many_merges(count):
    refs = "".join(f'<mergeCell ref="A{i}:B{i}"/>' for i in range(1, count + 1))
    return sheet(f'<sheetData>{row(1, [number("A1", 1)])}</sheetData><mergeCells>{refs}</mergeCells>')


def one_merge(ref):
    return sheet(f'<sheetData>{row(1, [number("A1", 1)])}</sheetData><mergeCells><mergeCell ref="{ref}"/></mergeCells>')


def related_workbook(*rows):
    parts = plain()
    parts["xl/_rels/workbook.xml.rels"] = relations(rows)
    return packed(parts)


def formula(text):
    return cells(f'<c r="A1"><f>{text}</f><v>1</v></c>', number("B1", 2))


def many_formulas(count, pattern):
    """Cells downwards from A1, each with the formula that its number makes of the pattern."""
    return sheet("<sheetData>" + "".join(f'<row r="{i}"><c r="A{i}"><f>{pattern.format(i)}</f><v>1</v></c></row>'
                                         for i in range(1, count + 1)) + "</sheetData>")


def linked_grid():
    return packed(plain('<hyperlinks><hyperlink ref="A1:XFD1048576" location="Sheet1!A1"/></hyperlinks>'))


def spread_columns(count):
    column = '<col min="1" max="16384" width="9" customWidth="1"/>'
    return sheet(f"<cols>{column * count}</cols><sheetData>{row(1, [number('A1', 1)])}</sheetData>")


DECLARED = b'<dimension ref="A1:XFD1048576"/>'
LIES = '<sst count="4294967295" uniqueCount="4294967295"'


def lying_counts():
    parts = plain()
    parts["xl/sharedStrings.xml"] = parts["xl/sharedStrings.xml"].replace("<sst", LIES)
    parts["xl/styles.xml"] = parts["xl/styles.xml"].replace('count="1"', 'count="2147483647"')
    return packed(parts)


def long_text(length):
    return sheet(f'<sheetData>{row(1, [inline("A1", f"<t>{chr(97) * length}</t>"), shared("B1", 0)])}</sheetData>',
                 f"<si><t>{'ä' * length}</t></si>")


BEYOND = "(?i)A1048577|XFE1"

CASES = [
    Case("pictured-control", lambda: packed(pictured("../media/image1.png")), ACCEPTED, compare=True),
    *(Case(f"{kind}-in-{name}", lambda part=part, kind=kind: with_doctype(part, kind),
           EITHER if "drawing" in name or name == "sheet-relations" else REFUSED)
      for name, part in PARTS.items() for kind in DOCTYPES),
    *(Case(f"deep-{name}", lambda part=part: nested(part, 200000), EITHER) for name, part in PARTS.items()),
    Case("attributes-100000", lambda: attributes(100000), EITHER),
    Case("attribute-twice", lambda: raw_sheet(b'r="A1"', b'r="A1" r="A1"'), EITHER, "sheet1.xml"),
    Case("utf-16", lambda: recoded("UTF-16", "utf-16"), ACCEPTED, compare=True),
    Case("utf-8-with-mark", lambda: recoded("UTF-8", "utf-8-sig"), ACCEPTED, compare=True),
    Case("utf-32", lambda: recoded("UTF-32", "utf-32"), REFUSED, "sheet1.xml"),
    Case("utf-7", lambda: recoded("UTF-7", "utf-7"), REFUSED, "sheet1.xml"),
    Case("latin-9", lambda: recoded("ISO-8859-15", "iso8859-15"), REFUSED, "sheet1.xml"),
    Case("ebcdic", lambda: recoded("IBM037", "cp037"), REFUSED, "sheet1.xml"),
    Case("encoding-unknown", lambda: recoded("x-harm", "utf-8"), EITHER, "sheet1.xml"),
    Case("utf-16-said-utf-8-written", lambda: recoded("UTF-16", "utf-8"), EITHER),
    Case("utf-8-broken", lambda: raw_sheet(b"<v>1<", b"<v>\xc3\x28<"), EITHER, "sheet1.xml"),
    Case("utf-8-surrogate", lambda: raw_sheet(b"<v>1<", b"<v>\xed\xa0\x80<"), EITHER, "sheet1.xml"),
    Case("nul-in-text", lambda: raw_sheet(b"<v>1<", b"<v>1\0<"), EITHER, "sheet1.xml"),
    Case("nul-by-reference", lambda: raw_sheet(b"<v>1<", b"<v>&#0;<"), EITHER, "sheet1.xml"),
    Case("not-closed", lambda: raw_sheet(b"</worksheet>", b""), EITHER, "sheet1.xml"),
    Case("two-roots", lambda: raw_sheet(b"</worksheet>", b"</worksheet><worksheet/>"), EITHER, "sheet1.xml"),
    Case("empty-part", lambda: packed({**plain(), SHEET: b""}), EITHER, "sheet1.xml"),
    Case("sheet-is-no-sheet", lambda: packed({**plain(), SHEET: b"<html/>"}), EITHER, "sheet1.xml|worksheet"),
    Case("comment-in-value", lambda: raw_sheet(b"<v>1<", b"<v>1<!-- 9 -->2<"), ACCEPTED, compare=True),
    Case("cdata-in-value", lambda: raw_sheet(b"<v>1<", b"<v><![CDATA[1]]>2<"), ACCEPTED, compare=True),
    Case("instruction-in-value", lambda: raw_sheet(b"<v>1<", b"<v>1<?harm 9?>2<"), ACCEPTED, compare=True),
    Case("dimension-of-the-grid", lambda: raw_sheet(b"<sheetData>", DECLARED + b"<sheetData>"), ACCEPTED, compare=True),
    Case("last-cell-of-the-grid", lambda: sheet(f'<sheetData>{row(1, [number("A1", 1)])}'
                                               f'{row(1048576, [number("XFD1048576", 2)])}</sheetData>'),
         ACCEPTED, compare=True),
    Case("cell-below-the-grid", lambda: sheet(f'<sheetData>{row(1, [number("A1", 1)])}'
                                             f'{row(1048577, [number("A1048577", 2)])}</sheetData>'),
         ACCEPTED, "1048577", compare=True),
    Case("cell-right-of-the-grid", lambda: cells(number("A1", 1), number("XFE1", 2)), ACCEPTED, "XFE1", compare=True),
    Case("cell-far-away", lambda: cells(number("A1", 1), number("ZZZZZZZ99999999999", 2)), ACCEPTED,
         "ZZZZZZZ99999999999", compare=True),
    Case("row-zero", lambda: sheet(f'<sheetData>{row(0, [number("A0", 1)])}{row(1, [number("A1", 1)])}</sheetData>'),
         ACCEPTED, "0", compare=True),
    Case("row-negative", lambda: sheet(f'<sheetData>{row(-5, ["<c><v>1</v></c>"])}'
                                       f'{row(1, [number("A1", 1)])}</sheetData>'),
         ACCEPTED, "-5", compare=True),
    Case("string-beyond-table", lambda: cells(shared("A1", 1), number("B1", 2)), ACCEPTED, "1", compare=True),
    Case("string-negative", lambda: cells(shared("A1", -1), number("B1", 2)), ACCEPTED, "-1", compare=True),
    Case("string-huge", lambda: cells(shared("A1", 10**30), number("B1", 2)), ACCEPTED, "1" + "0" * 30, compare=True),
    Case("style-beyond-table", lambda: cells(number("A1", 1, 99), number("B1", 2)), ACCEPTED, "99", compare=True),
    Case("style-negative", lambda: cells(number("A1", 1, -7), number("B1", 2)), ACCEPTED, "-7", compare=True),
    Case("style-huge", lambda: cells(number("A1", 1, 10**30), number("B1", 2)), ACCEPTED, compare=True),
    Case("number-hexadecimal", lambda: cells(number("A1", "0x10"), number("B1", 2)), ACCEPTED, "0x10", compare=True),
    Case("number-infinite", lambda: cells(number("A1", "INF"), number("B1", "NaN"), number("C1", 2)), ACCEPTED,
         "INF", compare=True),
    Case("number-overflows", lambda: cells(number("A1", "1e400"), number("B1", 2)), ACCEPTED, "1e400", compare=True),
    Case("number-of-10000-digits", lambda: cells(number("A1", "1" * 10000), number("B1", 2)), ACCEPTED, compare=True),
    Case("boolean-odd", lambda: cells(typed("A1", "b", "2"), number("B1", 2)), ACCEPTED, "2", compare=True),
    Case("merges-of-100000-rows", lambda: many_merges(100000), ACCEPTED, compare=True),
    Case("merges-of-a-million-rows", lambda: many_merges(1000000), EITHER, is_long=True),
    Case("merge-of-the-grid", lambda: one_merge("A1:XFD1048576"), ACCEPTED, compare=True),
    Case("merge-beyond-the-grid", lambda: one_merge("B2:ZZZZ99999999"), ACCEPTED),
    Case("hyperlink-on-the-grid", linked_grid, ACCEPTED, compare=True),
    Case("columns-declared-again-and-again", lambda: spread_columns(20000), ACCEPTED, compare=True),
    Case("column-far-away", lambda: sheet('<cols><col min="1" max="4294967295" width="9"/></cols><sheetData>'
                                         f'{row(1, [number("A1", 1)])}</sheetData>'), ACCEPTED),
    Case("counts-lie", lying_counts, ACCEPTED, compare=True),
    Case("formula-deep", lambda: formula("(" * 100000 + "1" + ")" * 100000), ACCEPTED),
    Case("formula-deep-calls", lambda: formula("ABS(" * 50000 + "1" + ")" * 50000), ACCEPTED),
    Case("formula-long", lambda: formula("1" + "+1" * 500000), ACCEPTED),
    Case("formula-deep-signs", lambda: formula("-" * 100000 + "1"), ACCEPTED),
    Case("formulas-of-200000-documents", lambda: many_formulas(200000, "[{}.xlsx]S!A1"), ACCEPTED),
    Case("formulas-of-200000-numbers", lambda: many_formulas(200000, "[{}]S!A1"), ACCEPTED,
         "Formulas refer to document 1,"),
    Case("text-at-limit", lambda: long_text(32767), ACCEPTED, compare=True),
    Case("text-beyond-limit", lambda: long_text(100000), ACCEPTED, compare=True),
    Case("sheet-name-leaves", lambda: packed(workbook([("../../harm", "visible", "<sheetData/>")])), ACCEPTED,
         "Table name '../../harm' is invalid", compare=True),
    Case("relation-leaves-package", lambda: related_workbook(("rId1", "worksheet", "../../../../etc/passwd")), EITHER,
         "passwd"),
    Case("relation-to-file", lambda: related_workbook(("rId1", "worksheet", "file:///etc/passwd")), EITHER, "passwd"),
    Case("relation-external", lambda: related_workbook(("rId1", "worksheet", "file:///etc/passwd", "External")),
         EITHER),
    Case("relations-external-20000", lambda: related_workbook(
        ("rId1", "worksheet", "worksheets/sheet1.xml"),
        *((f"x{i}", "hyperlink", f"../{i}.xlsx", "External") for i in range(20000))), ACCEPTED),
    Case("relation-to-itself", lambda: related_workbook(("rId1", "worksheet", "workbook.xml")), EITHER, "workbook.xml"),
    Case("relation-ids-twice", lambda: related_workbook(("rId1", "worksheet", "worksheets/sheet1.xml"),
                                                        ("rId1", "worksheet", "workbook.xml")), EITHER),
    Case("picture-external", lambda: packed(pictured("file:///etc/passwd", "External", "r:link", "")), ACCEPTED,
         compare=True),
    Case("picture-embedded-external", lambda: packed(pictured("file:///etc/passwd", "External", picture_name="")),
         ACCEPTED, compare=True),
    Case("picture-outside", lambda: packed(pictured("../../../../../../etc/passwd", picture_name="")), ACCEPTED,
         "passwd", compare=True),
    Case("picture-is-its-drawing", lambda: packed(pictured("drawing1.xml")), ACCEPTED),
    Case("picture-name-encoded", lambda: packed(pictured(
        "../media/..%2f..%2fharm.png", picture_name="xl/media/..%2f..%2fharm.png")), EITHER),
    Case("picture-extension-long", lambda: packed(pictured(
        "../media/a." + "b" * 300, picture_name="xl/media/a." + "b" * 300)), EITHER),
    Case("picture-extension-odd", lambda: packed(pictured(
        "../media/a.;rm -r ~", picture_name="xl/media/a.;rm -r ~")), EITHER),
]
