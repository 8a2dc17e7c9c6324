"""What every sample is made of: a zip with fixed time stamps, boilerplate parts, and two small pictures."""
import struct
import zipfile
import zlib
from xml.sax.saxutils import escape, quoteattr

TRANSITIONAL = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
STRICT = "http://purl.oclc.org/ooxml/spreadsheetml/main"
RELATIONS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
STRICT_RELATIONS = "http://purl.oclc.org/ooxml/officeDocument/relationships"
PACKAGE_RELATIONS = "http://schemas.openxmlformats.org/package/2006/relationships"
CONTENT_TYPES = "http://schemas.openxmlformats.org/package/2006/content-types"
SPREADSHEET = "application/vnd.openxmlformats-officedocument.spreadsheetml."
CHART_TYPE = "application/vnd.openxmlformats-officedocument.drawingml.chart+xml"
DRAWING_TYPE = "application/vnd.openxmlformats-officedocument.drawing+xml"
HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'

STYLES = (
    '<fonts count="1"><font><sz val="11"/><name val="Calibri"/></font></fonts>'
    '<fills count="2"><fill><patternFill patternType="none"/></fill>'
    '<fill><patternFill patternType="gray125"/></fill></fills>'
    '<borders count="1"><border><left/><right/><top/><bottom/><diagonal/></border></borders>'
    '<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>'
    '<cellXfs count="2"><xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/>'
    '<xf numFmtId="14" fontId="0" fillId="0" borderId="0" xfId="0" applyNumberFormat="1"/></cellXfs>'
    '<cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles>'
)


def png(width, height, pixel):
    """The bytes of an RGB picture; pixel(x, y) gives (red, green, blue)."""
    rows = b"".join(b"\0" + bytes(value for x in range(width) for value in pixel(x, y)) for y in range(height))

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows, 0)) + chunk(b"IEND", b""))


def jpeg():
    """The bytes of a light grey picture of 8 x 8 pixels: one block, of which only the mean is coded."""
    def segment(marker, body):
        return bytes((0xFF, marker)) + struct.pack(">H", len(body) + 2) + body

    means = bytes((0, 1, 5, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0))
    return (b"\xff\xd8" + segment(0xE0, b"JFIF\0\1\1\0\0\1\0\1\0\0")
            + segment(0xDB, b"\0" + bytes([8] * 64))
            + segment(0xC0, struct.pack(">BHHBBBB", 8, 8, 8, 1, 1, 0x11, 0))
            + segment(0xC4, b"\0" + means + bytes(range(12)))
            + segment(0xC4, b"\x10" + bytes([1] + [0] * 15) + b"\0")
            + segment(0xDA, bytes((1, 1, 0, 0, 63, 0)))
            # The mean, 72 above the middle: class 7 (11110), its bits (1001000); end of block (0); padding.
            + bytes((0b11110100, 0b10000111)) + b"\xff\xd9")


def write_package(path, parts):
    """Writes parts (name -> text or bytes) in their order; the same parts give the same bytes."""
    with zipfile.ZipFile(path, "w") as package:
        for name, body in parts.items():
            entry = zipfile.ZipInfo(name, (1980, 1, 1, 0, 0, 0))
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            package.writestr(entry, body)


def relations(rows, base=RELATIONS):
    """rows: (id, last word of the type, target) or (id, word, target, "External")."""
    lines = []
    for row in rows:
        mode = ' TargetMode="External"' if len(row) > 3 else ""
        lines.append(f'<Relationship Id="{row[0]}" Type="{base}/{row[1]}" Target={quoteattr(row[2])}{mode}/>')
    return f'{HEAD}<Relationships xmlns="{PACKAGE_RELATIONS}">{"".join(lines)}</Relationships>'


def content_types(sheet_count, extra=()):
    """extra: (part name, content type)."""
    overrides = [("/xl/workbook.xml", SPREADSHEET + "sheet.main+xml"), ("/xl/styles.xml", SPREADSHEET + "styles+xml"),
                 ("/xl/sharedStrings.xml", SPREADSHEET + "sharedStrings+xml")]
    overrides += [(f"/xl/worksheets/sheet{i}.xml", SPREADSHEET + "worksheet+xml") for i in range(1, sheet_count + 1)]
    defaults = [("rels", "application/vnd.openxmlformats-package.relationships+xml"), ("xml", "application/xml"),
                ("png", "image/png"), ("jpeg", "image/jpeg")]
    lines = [f'<Default Extension="{extension}" ContentType="{kind}"/>' for extension, kind in defaults]
    lines += [f'<Override PartName="{name}" ContentType="{kind}"/>' for name, kind in overrides + list(extra)]
    return f'{HEAD}<Types xmlns="{CONTENT_TYPES}">{"".join(lines)}</Types>'


def workbook(sheets, strings="", styles=STYLES, properties="", main=TRANSITIONAL, base=RELATIONS, extra_types=()):
    """The parts of a workbook. sheets: (name, state, inner XML of the worksheet); strings: the si elements."""
    rows, parts, lines = [], {}, []
    for number, (name, state, body) in enumerate(sheets, 1):
        hidden = f' state="{state}"' if state != "visible" else ""
        lines.append(f'<sheet name={quoteattr(name)} sheetId="{number}"{hidden} r:id="rId{number}"/>')
        rows.append((f"rId{number}", "worksheet", f"worksheets/sheet{number}.xml"))
        parts[f"xl/worksheets/sheet{number}.xml"] = (
            f'{HEAD}<worksheet xmlns="{main}" xmlns:r="{base}">{body}</worksheet>')
    last = len(sheets)
    rows += [(f"rId{last + 1}", "styles", "styles.xml"), (f"rId{last + 2}", "sharedStrings", "sharedStrings.xml")]
    return {
        "[Content_Types].xml": content_types(last, extra_types),
        "_rels/.rels": relations([("rId1", "officeDocument", "xl/workbook.xml")], base),
        "xl/workbook.xml": f'{HEAD}<workbook xmlns="{main}" xmlns:r="{base}">{properties}'
                           f'<sheets>{"".join(lines)}</sheets></workbook>',
        "xl/_rels/workbook.xml.rels": relations(rows, base),
        "xl/styles.xml": f'{HEAD}<styleSheet xmlns="{main}">{styles}</styleSheet>',
        "xl/sharedStrings.xml": f'{HEAD}<sst xmlns="{main}">{strings}</sst>',
        **parts,
    }


def number(ref, value, style=0, formula=""):
    return f'<c r="{ref}"{_style(style)}>{_formula(formula)}<v>{value}</v></c>'


def shared(ref, index, style=0):
    return f'<c r="{ref}"{_style(style)} t="s"><v>{index}</v></c>'


def typed(ref, kind, value, style=0, formula=""):
    return f'<c r="{ref}"{_style(style)} t="{kind}">{_formula(formula)}<v>{escape(value)}</v></c>'


def inline(ref, inner, style=0):
    return f'<c r="{ref}"{_style(style)} t="inlineStr"><is>{inner}</is></c>'


def row(index, cells, attributes=""):
    return f'<row r="{index}"{" " + attributes if attributes else ""}>{"".join(cells)}</row>'


def merges(*refs):
    cells = "".join(f'<mergeCell ref="{ref}"/>' for ref in refs)
    return f'<mergeCells count="{len(refs)}">{cells}</mergeCells>'


def _style(style):
    return f' s="{style}"' if style else ""


def _formula(formula):
    return f"<f>{escape(formula)}</f>" if formula else ""
