#!/usr/bin/python3
"""Writes a workbook of any size for measuring; the same arguments give the same sheet.

Usage: make_workbook.py OUT.xlsx --rows N [--columns 20] [--merges 200] [--formats 8]

Of each 20 columns, 12 hold numbers, 6 shared strings and 2 formulas with their stored values. Merges lie to the right
of the data, two cells each. --formats is how many cell formats there are; the cells use them all in turn.
"""
import argparse
import sys
import zipfile

MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
RELATIONS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
TYPE = "application/vnd.openxmlformats-officedocument.spreadsheetml."
HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
STRING_COUNT = 5000
MAX_ROWS = 1048576


def column_letters(number):
    letters = ""
    while number:
        number, rest = divmod(number - 1, 26)
        letters = chr(ord("A") + rest) + letters
    return letters


def cell(ref, kind, style, value, row):
    if kind < 12:
        # Whole numbers, prices and long fractions by turns, as sheets of accounts have them.
        text = (value % 100000, f"{value % 10000000 / 100:.2f}", repr(value / 4294967291))[kind % 3]
        return f'<c r="{ref}" s="{style}"><v>{text}</v></c>'
    if kind < 18:
        return f'<c r="{ref}" s="{style}" t="s"><v>{value % STRING_COUNT}</v></c>'
    return f'<c r="{ref}" s="{style}"><f>SUM(A{row}:C{row})*{kind}</f><v>{value / 1000}</v></c>'


def sheet(rows, columns, merges, formats):
    """The worksheet, in pieces of some rows each."""
    yield f'{HEAD}<worksheet xmlns="{MAIN}" xmlns:r="{RELATIONS}"><dimension ref="A1:{column_letters(columns)}{rows}"/>'
    yield '<sheetFormatPr defaultRowHeight="15"/>'
    yield '<cols><col min="1" max="20" width="12.7109375" customWidth="1"/></cols>'
    yield "<sheetData>"
    letters = [column_letters(number) for number in range(1, columns + 1)]
    value, style = 1, 0
    for row in range(1, rows + 1):
        cells = []
        for index, letter in enumerate(letters):
            value = value * 1103515245 + 12345 & 0x7FFFFFFF  # a generator whose numbers no library changes
            cells.append(cell(f"{letter}{row}", index % 20, style, value, row))
            style = style + 1 if style + 1 < formats else 0
        yield f'<row r="{row}" spans="1:{columns}">{"".join(cells)}</row>'
    yield "</sheetData>"
    if merges:
        yield f'<mergeCells count="{merges}">'
        for index in range(merges):
            pair, row = divmod(index, min(rows, MAX_ROWS))
            first = column_letters(columns + 2 + 2 * pair)
            yield f'<mergeCell ref="{first}{row + 1}:{column_letters(columns + 3 + 2 * pair)}{row + 1}"/>'
        yield "</mergeCells>"
    yield "</worksheet>"


def styles(formats):
    """formats different cell formats, from 8 number formats, 8 fonts and as many fills as that takes."""
    codes = "".join(f'<numFmt numFmtId="{164 + i}" formatCode="#,##0.{"0" * (i + 1)}"/>' for i in range(8))
    fonts = "".join(f'<font>{"<b/>" * (i & 1)}{"<i/>" * (i >> 1 & 1)}<sz val="{11 + (i >> 2)}"/>'
                    f'<color rgb="FF{i * 1118481:06X}"/><name val="Calibri"/></font>' for i in range(8))
    fill_count = (formats + 63) // 64
    fills = "".join(f'<fill><patternFill patternType="solid"><fgColor rgb="FF{i * 2654435761 & 0xFFFFFF:06X}"/>'
                    "</patternFill></fill>" for i in range(1, fill_count + 1))
    formatted = "".join(f'<xf numFmtId="{164 + i % 8}" fontId="{i // 8 % 8}" fillId="{2 + i // 64}" borderId="0" '
                        'xfId="0" applyNumberFormat="1" applyFont="1" applyFill="1"/>' for i in range(formats))
    return (f'{HEAD}<styleSheet xmlns="{MAIN}"><numFmts count="8">{codes}</numFmts><fonts count="8">{fonts}</fonts>'
            f'<fills count="{fill_count + 2}"><fill><patternFill patternType="none"/></fill>'
            f'<fill><patternFill patternType="gray125"/></fill>{fills}</fills>'
            "<borders><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
            '<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>'
            f'<cellXfs count="{formats}">{formatted}</cellXfs>'
            '<cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles></styleSheet>')


def write(path, rows, columns=20, merges=200, formats=8):
    strings = "".join(f"<si><t>Customer {i * 7919 % STRING_COUNT} of the shop</t></si>" for i in range(STRING_COUNT))
    relation = '<Relationship Id="{}" Type="' + RELATIONS + '/{}" Target="{}"/>'
    overrides = (("workbook", "sheet.main"), ("worksheets/sheet1", "worksheet"), ("styles", "styles"),
                 ("sharedStrings", "sharedStrings"))
    types = "".join(f'<Override PartName="/xl/{name}.xml" ContentType="{TYPE}{kind}+xml"/>' for name, kind in overrides)
    parts = {
        "[Content_Types].xml": f'<Types xmlns="{PACKAGE}/content-types"><Default Extension="rels" ContentType='
                               '"application/vnd.openxmlformats-package.relationships+xml"/>'
                               f'<Default Extension="xml" ContentType="application/xml"/>{types}</Types>',
        "_rels/.rels": f'<Relationships xmlns="{PACKAGE}/relationships">'
                       + relation.format("rId1", "officeDocument", "xl/workbook.xml") + "</Relationships>",
        "xl/workbook.xml": f'<workbook xmlns="{MAIN}" xmlns:r="{RELATIONS}"><sheets>'
                           '<sheet name="Data" sheetId="1" r:id="rId1"/></sheets></workbook>',
        "xl/_rels/workbook.xml.rels": f'<Relationships xmlns="{PACKAGE}/relationships">'
                                      + relation.format("rId1", "worksheet", "worksheets/sheet1.xml")
                                      + relation.format("rId2", "styles", "styles.xml")
                                      + relation.format("rId3", "sharedStrings", "sharedStrings.xml")
                                      + "</Relationships>",
        "xl/styles.xml": styles(formats)[len(HEAD):],
        "xl/sharedStrings.xml": f'<sst xmlns="{MAIN}" count="{STRING_COUNT}" uniqueCount="{STRING_COUNT}">'
                                f"{strings}</sst>",
    }
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=6) as package:
        for name, text in parts.items():
            package.writestr(zipfile.ZipInfo(name), HEAD + text, zipfile.ZIP_DEFLATED)
        entry = zipfile.ZipInfo("xl/worksheets/sheet1.xml")
        entry.compress_type = zipfile.ZIP_DEFLATED
        with package.open(entry, "w") as stream:
            pending = []
            for piece in sheet(rows, columns, merges, formats):
                pending.append(piece)
                if len(pending) == 500:
                    stream.write("".join(pending).encode())
                    pending.clear()
            stream.write("".join(pending).encode())


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("out")
    parser.add_argument("--rows", type=int, required=True)
    parser.add_argument("--columns", type=int, default=20)
    parser.add_argument("--merges", type=int, default=200)
    parser.add_argument("--formats", type=int, default=8)
    options = parser.parse_args()
    write(options.out, options.rows, options.columns, options.merges, options.formats)
    return 0


if __name__ == "__main__":
    sys.exit(main())
