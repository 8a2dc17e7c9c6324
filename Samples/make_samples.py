#!/usr/bin/python3
"""Writes the sample documents beside this script, or checks that they are what it would write.

Usage: make_samples.py [--check]. The bytes depend on this script alone: no clock, no locale, no environment.
"""
import io
import pathlib
import sys
import zipfile

import deck
import orders
import report
from package_parts import (STRICT, STRICT_RELATIONS, inline, merges, number, row, shared, typed, workbook,
                           write_package)

FOLDER = pathlib.Path(__file__).resolve().parent


def strict():
    """The strict namespaces throughout, and a date written as text of type "d"."""
    body = ("<sheetData>"
            + row(1, [shared("A1", 0), typed("B1", "d", "2024-02-29T12:00:00.000", 1)])
            + row(2, [typed("A2", "b", "1"), number("B2", 45351.5, 1)])
            + "</sheetData>" + merges("A3:B4"))
    return workbook([("Strict", "visible", body)], "<si><t>strict</t></si>", main=STRICT, base=STRICT_RELATIONS,
                    properties='<workbookPr dateCompatibility="0"/>')


def no_refs():
    """Neither rows nor cells say where they are; one row and one cell do, and counting goes on from there."""
    body = ("<sheetData><row><c><v>1</v></c><c><v>2</v></c></row>"
            '<row><c t="inlineStr"><is><t>third cell follows</t></is></c><c/><c><v>3</v></c></row>'
            '<row r="5"><c><v>4</v></c><c r="D5"><v>5</v></c><c><v>6</v></c></row>'
            "<row><c><v>7</v></c></row></sheetData>")
    return workbook([("Counted", "visible", body)])


def date1904():
    body = ("<sheetData>"
            + row(1, [number("A1", 0, 1), number("B1", 43889.5, 1), number("C1", 43889.5)])
            + row(2, [typed("A2", "d", "1904-01-02", 1), typed("B2", "d", "12:00:00", 1)])
            + "</sheetData>")
    return workbook([("Since 1904", "visible", body)], properties='<workbookPr date1904="1"/>')


def overlaps():
    """The first merge to claim a cell keeps it; merges reach beyond the grid, lie on one cell, or stand backwards."""
    body = ("<sheetData>" + row(1, [number("A1", 1), number("B1", 2), number("C1", 3)])
            + row(2, [number("A2", 4), number("B2", 5), number("C2", 6)]) + "</sheetData>"
            + merges("A1:B2", "B2:C3", "C1:D1", "A5:A1048577", "B5:XFE6", "E1", "F1:F1", "H4:G3", "A1:B2",
                     "not a range", "B10:XFD10", "C20:C1048576"))
    return workbook([("Overlaps", "visible", body)])


def bad_values():
    """Each bad value costs itself and one message, never its neighbours."""
    styles = (
        '<fonts count="2"><font><sz val="11"/><name val="Calibri"/></font>'
        '<font><b val="maybe"/><sz val="big"/><color rgb="GREEN"/><name val="Calibri"/></font></fonts>'
        '<fills count="4"><fill><patternFill patternType="none"/></fill>'
        '<fill><patternFill patternType="gray125"/></fill>'
        '<fill><patternFill patternType="solid"><fgColor rgb="12345"/></patternFill></fill>'
        '<fill><patternFill patternType="solid"><fgColor theme="77" tint="x"/></patternFill></fill></fills>'
        '<borders count="1"><border><left style="wavy"><color indexed="-3"/></left></border></borders>'
        '<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>'
        '<cellXfs count="4"><xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/>'
        '<xf numFmtId="0" fontId="1" fillId="2" borderId="0" xfId="0"/>'
        '<xf numFmtId="999" fontId="0" fillId="3" borderId="0" xfId="0"/>'
        '<xf numFmtId="0" fontId="9" fillId="9" borderId="9" xfId="9"/></cellXfs>')
    body = ('<cols><col min="1" max="2" width="wide"/><col min="0" max="1" width="3"/><col min="3" max="3" width="20"/>'
            '<col min="5" max="4" width="9"/></cols><sheetData>'
            + row(1, [number("A1", 1, 1), number("B1", 2, 2), number("C1", 3, 3)], 'ht="tall"')
            + row(2, [typed("A2", "b", "maybe"), shared("B2", 99), shared("C2", -1), number("D2", "1,5")])
            + row(3, [typed("A3", "d", "soon"), typed("B3", "riddle", "7"), number("C3", 4, 4000),
                      number("D3", 5, "x"), number("not a ref", 6), number("XFE3", 7)])
            + row(4, [inline("A4", "<t>kept</t>"), typed("B4", "e", "#REF!"), number("C4", "1e999")])
            + row("zero", [number("A5", 8)])
            + row(6, [number("A6", 9)]) + "</sheetData>")
    return workbook([("Bad values", "visible", body)], "<si><t>only one</t></si>", styles)


SAMPLES = {
    "orders.xlsx": orders.parts,
    "report.docx": report.parts,
    "deck.pptx": deck.parts,
    "strict.xlsx": strict,
    "no-refs.xlsx": no_refs,
    "date1904.xlsx": date1904,
    "overlaps.xlsx": overlaps,
    "bad-values.xlsx": bad_values,
}


def contents(source):
    with zipfile.ZipFile(source) as package:
        return {name: package.read(name) for name in package.namelist()}


def main(arguments):
    if arguments not in ([], ["--check"]):
        print(__doc__, file=sys.stderr)
        return 2
    stale = 0
    for name, make in SAMPLES.items():
        fresh = io.BytesIO()
        write_package(fresh, make())
        if not arguments:
            (FOLDER / name).write_bytes(fresh.getvalue())
        elif not (FOLDER / name).exists() or contents(FOLDER / name) != contents(fresh):
            stale += 1
            print(f"{name}: is not what make_samples.py writes; run it again")
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
