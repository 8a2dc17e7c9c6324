"""Packages made to do harm, each with what the program must make of it. This half attacks the container.

A case is refused (status 1, one line), accepted (status 0, the report may hold messages), or either, where both are
honest answers. Whatever the answer: bounded time and memory, and no file touched beyond those that were named.
"""
import io
import pathlib
import struct
import sys
import zipfile
from dataclasses import dataclass
from typing import Callable

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "Samples"))
# pylint: disable=wrong-import-position
from package_parts import number, png, row, workbook, write_package

ACCEPTED, REFUSED, EITHER = {0}, {1}, {0, 1}
MEBIBYTE = 1 << 20
CENTRAL, LOCAL, END = b"PK\1\2", b"PK\3\4", b"PK\5\6"


@dataclass
class Case:
    name: str
    make: Callable[[], bytes]
    statuses: set
    says: str = ""  # a regular expression; the line on stderr, or one message of the report, must match
    compare: bool = False  # whether the slow reader must find the same in it
    like: Callable[[], bytes] = None  # a sound package in which the slow reader finds the same, where it refuses this
    is_long: bool = False  # only for builds that are optimised
    suffix: str = "xlsx"  # of the file's name; a "docx" is converted too


def packed(parts, store=()):
    """The bytes of a package; the parts named in store are not compressed."""
    stream = io.BytesIO()
    if not store:
        write_package(stream, parts)
        return stream.getvalue()
    with zipfile.ZipFile(stream, "w") as package:
        for name, body in parts.items():
            entry = zipfile.ZipInfo(name)
            entry.compress_type = zipfile.ZIP_STORED if name in store else zipfile.ZIP_DEFLATED
            package.writestr(entry, body)
    return stream.getvalue()


def plain(body=""):
    """The parts of a workbook with one sheet, whose only cell holds 1."""
    return workbook([("Sheet1", "visible", f'<sheetData>{row(1, [number("A1", 1)])}</sheetData>{body}')],
                    "<si><t>one</t></si>")


def sound():
    return packed(plain())


def with_entries(*names):
    return packed({**plain(), **{name: b"harm" for name in names}})


def repeated_entry():
    stream = io.BytesIO(packed(plain()))
    with zipfile.ZipFile(stream, "a") as package:
        package.writestr("XL/Workbook.xml", "<workbook/>")
    return stream.getvalue()


def blown_up(size):
    """A sheet followed by size blanks, which deflate by a factor of about a thousand."""
    parts = plain()
    parts["xl/worksheets/sheet1.xml"] += " " * size
    return packed(parts)


def renamed_entry(old, new):
    """Renames an entry to a name that no archiver would write; both have the same length."""
    return packed({**plain(), old: b"harm"}).replace(old.encode(), new)


def local_header(content, name):
    """The offset of the local header of an entry."""
    at = content.index(LOCAL)
    while content[at + 30:at + 30 + len(name)] != name.encode():
        at = content.index(LOCAL, at + 4)
    return at


def central_header(content, name):
    at = content.index(CENTRAL)
    while content[at + 46:at + 46 + len(name)] != name.encode():
        at = content.index(CENTRAL, at + 4)
    return at


def patched(name, local_offset, central_offset, form, value):
    """Sets one field in both headers of an entry."""
    content = bytearray(packed(plain()))
    struct.pack_into(form, content, local_header(content, name) + local_offset, value)
    struct.pack_into(form, content, central_header(content, name) + central_offset, value)
    return bytes(content)


def shortened_stream():
    """The compressed sheet lacks its second half, and the headers agree."""
    name = "xl/worksheets/sheet1.xml"
    whole = packed(plain())
    size = struct.unpack_from("<I", whole, local_header(whole, name) + 18)[0]
    return patched(name, 18, 20, "<I", size // 2)


def damaged_stream():
    name = "xl/worksheets/sheet1.xml"
    content = bytearray(packed(plain()))
    begin = local_header(content, name) + 30 + len(name)
    content[begin + 20:begin + 40] = bytes(20)
    return bytes(content)


def zip64_lie():
    """The sheet claims 2^62 bytes through a 64-bit field."""
    name = "xl/worksheets/sheet1.xml"
    content = bytearray(packed(plain()))
    at = central_header(content, name)
    extra = struct.pack("<HHQQ", 1, 16, 1 << 62, 1 << 62)
    struct.pack_into("<IIHH", content, at + 20, 0xFFFFFFFF, 0xFFFFFFFF, len(name), len(extra))
    content[at + 46 + len(name):at + 46 + len(name)] = extra
    end = content.rindex(END)
    size = struct.unpack_from("<I", content, end + 12)[0]
    struct.pack_into("<I", content, end + 12, size + len(extra))
    return bytes(content)


def entry_count_lie():
    content = bytearray(packed(plain()))
    struct.pack_into("<HH", content, content.rindex(END) + 8, 0xFFFE, 0xFFFE)
    return bytes(content)


def directory_beyond_file():
    content = bytearray(packed(plain()))
    struct.pack_into("<I", content, content.rindex(END) + 16, 0x7FFFFFFF)
    return bytes(content)


def overlapping_entries():
    """Two entries of the directory share the data of one: the quine-like bombs are built this way."""
    content = bytearray(packed({**plain(), "xl/copy_of_sheets/sheet1.xml": b"x"}))
    at = central_header(content, "xl/copy_of_sheets/sheet1.xml")
    struct.pack_into("<I", content, at + 42, local_header(content, "xl/worksheets/sheet1.xml"))
    return bytes(content)


def cut(offset_in_percent):
    content = packed({**plain(), "xl/media/image1.png": png(30, 30, lambda x, y: (x, y, 9))})
    return content[:len(content) * offset_in_percent // 100]


def without(*names):
    parts = plain()
    for name in names:
        del parts[name]
    return packed(parts)


SHEET, BOOK = "xl/worksheets/sheet1.xml", "xl/workbook.xml"
COMPOUND = bytes.fromhex("d0cf11e0a1b11ae1") + bytes(2048)

CASES = [
    Case("control", sound, ACCEPTED, compare=True),
    Case("control-stored", lambda: packed(plain(), store=(SHEET,)), ACCEPTED, compare=True),
    Case("empty-file", lambda: b"", REFUSED),
    Case("one-byte", lambda: b"P", REFUSED),
    Case("text-file", lambda: b"ref,value\nA1,1\n", REFUSED),
    Case("compound-file", lambda: COMPOUND, REFUSED),
    Case("empty-archive", lambda: END + bytes(18), REFUSED),
    Case("bomb-200-mebibytes", lambda: blown_up(200 * MEBIBYTE), REFUSED, "sheet1.xml"),
    Case("blanks-below-the-grace", lambda: blown_up(30 * MEBIBYTE), ACCEPTED, compare=True),
    Case("entries-at-limit", lambda: with_entries(*(f"x/{i}" for i in range(10000 - len(plain())))), ACCEPTED,
         compare=True),
    Case("entries-beyond-limit", lambda: with_entries(*(f"x/{i}" for i in range(10001 - len(plain())))), REFUSED,
         "10[,']?000"),
    Case("names-differ-in-case", repeated_entry, REFUSED, "(?i)workbook.xml"),
    Case("names-differ-in-slash", lambda: with_entries("xl\\workbook.xml"), REFUSED, "workbook.xml"),
    Case("name-leaves-package", lambda: with_entries("../harm.xml"), REFUSED, "harm.xml"),
    Case("name-leaves-from-within", lambda: with_entries("xl/../../harm.xml"), REFUSED, "harm.xml"),
    Case("name-leaves-by-backslash", lambda: with_entries("..\\..\\harm.xml"), REFUSED, "harm.xml"),
    Case("name-is-absolute", lambda: with_entries("/etc/harm"), EITHER),
    Case("name-has-drive", lambda: with_entries("C:\\harm.xml"), EITHER),
    Case("name-leaves-percent-encoded", lambda: with_entries("xl/%2e%2e/%2e%2e/harm.xml"), EITHER),
    Case("name-has-nul", lambda: renamed_entry("xl/harm_xml", b"xl/harm\0xml"), EITHER),
    Case("name-is-no-utf8", lambda: renamed_entry("xl/harm.xml", b"xl/h\xc3\x28.xml"), EITHER),
    Case("checksum-wrong", lambda: patched(SHEET, 14, 16, "<I", 0xDEADBEEF), REFUSED, "sheet1.xml"),
    Case("encrypted-flag", lambda: patched(SHEET, 6, 8, "<H", 1), REFUSED, "sheet1.xml"),
    Case("unknown-compression", lambda: patched(SHEET, 8, 10, "<H", 77), REFUSED, "sheet1.xml"),
    Case("size-said-too-small", lambda: patched(SHEET, 22, 24, "<I", 10), EITHER, like=sound),
    Case("size-said-too-large", lambda: patched(SHEET, 22, 24, "<I", 0x7FFFFFF0), EITHER, like=sound),
    Case("stream-shortened", shortened_stream, REFUSED, "sheet1.xml"),
    Case("stream-damaged", damaged_stream, REFUSED, "sheet1.xml"),
    Case("zip64-lie", zip64_lie, EITHER, like=sound),
    Case("entry-count-lie", entry_count_lie, EITHER),
    Case("directory-beyond-file", directory_beyond_file, REFUSED),
    Case("entries-overlap", overlapping_entries, EITHER),
    Case("bytes-before-archive", lambda: b"#!/bin/sh\n" + packed(plain()), EITHER),
    Case("bytes-after-archive", lambda: packed(plain()) + b"trailing" * 9, EITHER),
    Case("no-workbook", lambda: without(BOOK), REFUSED, "main part"),
    Case("no-package-relations", lambda: without("_rels/.rels"), EITHER, like=sound),
    Case("no-content-types", lambda: without("[Content_Types].xml"), EITHER),
    Case("no-workbook-relations", lambda: without("xl/_rels/workbook.xml.rels"), EITHER),
    Case("no-styles", lambda: without("xl/styles.xml"), ACCEPTED),
    Case("no-strings", lambda: without("xl/sharedStrings.xml"), ACCEPTED),
    Case("no-sheet", lambda: without(SHEET), EITHER, "sheet1.xml"),
    *(Case(f"cut-at-{percent}-percent", lambda percent=percent: cut(percent), REFUSED) for percent in range(3, 100, 6)),
]
