"""A second, independent reader of spreadsheet packages: zipfile and ElementTree, nothing else.

It reads what the import tests compare: sheets, values with their types, merges and pictures. It is slow and
obvious on purpose, and it knows nothing of the program under test.
"""
import datetime
import posixpath
import re
import zipfile
from dataclasses import dataclass, field
from xml.etree import ElementTree

from drawing_reader import read_drawing
from sheet_formats import Formats, number

MAX_ROWS, MAX_COLUMNS = 1048576, 16384
RELATIONS = ("http://schemas.openxmlformats.org/officeDocument/2006/relationships",
             "http://purl.oclc.org/ooxml/officeDocument/relationships")
MAIN = ("http://schemas.openxmlformats.org/spreadsheetml/2006/main", "http://purl.oclc.org/ooxml/spreadsheetml/main")
DRAWING = ("http://schemas.openxmlformats.org/drawingml/2006/main", "http://purl.oclc.org/ooxml/drawingml/main")
REFERENCE = re.compile(r"\$?([A-Za-z]{1,3})\$?([0-9]{1,7})\Z")
ESCAPE = re.compile(r"_x([0-9A-Fa-f]{4})_")
DATE = re.compile(r"(?:(\d{4})-(\d{2})-(\d{2}))?T?(?:(\d{2}):(\d{2})(?::(\d{2})(\.\d+)?)?)?Z?\Z")


class Unreadable(Exception):
    """The package holds no workbook that could be read."""


@dataclass
class Cell:
    kind: str = ""  # number, text, boolean, error; "" without a value
    value: object = None
    raw: str = ""  # the text of a number as it is written
    formula: str = ""  # as it is written; "" for the follower of a shared formula
    has_formula: bool = False
    format: int = 0
    is_bad: bool = False  # the value is not what its type says; what can be kept of it is kept as text


@dataclass
class Picture:
    name: str
    content: bytes


@dataclass
class Sheet:
    name: str
    visible: bool
    cells: dict = field(default_factory=dict)  # (row, column), both from 1 -> Cell
    merges: list = field(default_factory=list)  # ((row, column), (row, column)), both corners inside
    refused_merges: int = 0
    pictures: list = field(default_factory=list)
    drawn: list = field(default_factory=list)  # what the drawing shows, see drawing_reader
    stored_blips: set = field(default_factory=set)  # the relationships of its pictures that are there
    bad_places: int = 0  # rows and cells whose place nobody can read, or beyond the grid
    columns: list = field(default_factory=list)  # (first, last, width in characters or None, hidden)
    rows: dict = field(default_factory=dict)  # row -> (height in points or None, hidden)
    defaults: dict = field(default_factory=dict)  # the attributes of sheetFormatPr
    formats: Formats = field(default_factory=Formats)
    links: list = field(default_factory=list)  # ((row, column), (row, column), target), both corners inside
    rows_named: int = 0  # the last row and column that a row, cell, column or merge names
    columns_named: int = 0

    def name_place(self, row, column):
        self.rows_named = max(self.rows_named, row)
        self.columns_named = max(self.columns_named, column)


class Package:
    """Parts by name: any case, either slash; relationships by the part that owns them."""

    def __init__(self, source):
        try:
            self._zip = zipfile.ZipFile(source)
        except (zipfile.BadZipFile, OSError) as error:
            raise Unreadable(str(error)) from error
        self._names = {}
        for name in self._zip.namelist():
            self._names.setdefault(name.replace("\\", "/").lstrip("/").lower(), name)

    def has(self, name):
        return name.lower() in self._names

    def read(self, name):
        if not self.has(name):
            raise Unreadable(f"no part {name}")
        try:
            return self._zip.read(self._names[name.lower()])
        except (zipfile.BadZipFile, OSError, EOFError, RuntimeError) as error:
            raise Unreadable(f"{name}: {error}") from error

    def open(self, name):
        if not self.has(name):
            raise Unreadable(f"no part {name}")
        return self._zip.open(self._names[name.lower()])

    def tree(self, name):
        try:
            return ElementTree.fromstring(self.read(name))
        except ElementTree.ParseError as error:
            raise Unreadable(f"{name}: {error}") from error

    def relations(self, part):
        """id -> (last word of the type, target part or URL, whether external)."""
        folder, base = posixpath.split(part)
        name = posixpath.join(folder, "_rels", base + ".rels")
        if not self.has(name):
            return {}
        found = {}
        for node in self.tree(name):
            target = node.get("Target", "")
            external = node.get("TargetMode") == "External"
            if not external:
                target = target.replace("\\", "/")
                target = posixpath.normpath(posixpath.join("/" + folder, target)).lstrip("/")
            found[node.get("Id")] = (node.get("Type", "").rpartition("/")[2], target, external)
        return found


def local(node):
    return node.tag.rpartition("}")[2] if isinstance(node.tag, str) else ""


def related(node, name):
    """The value of an attribute such as r:id, in either namespace of relationships."""
    return next((node.get(f"{{{space}}}{name}") for space in RELATIONS if node.get(f"{{{space}}}{name}")), None)


def column_number(letters):
    number = 0
    for letter in letters.upper():
        number = number * 26 + ord(letter) - ord("A") + 1
    return number


def column_letters(number):
    letters = ""
    while number:
        number, rest = divmod(number - 1, 26)
        letters = chr(ord("A") + rest) + letters
    return letters


def place(text):
    """(row, column) of a reference such as "B7", clipped by nothing; or None."""
    match = REFERENCE.match(text)
    if not match or int(match[2]) == 0:
        return None
    return int(match[2]), column_number(match[1])


def reference(cell):
    return f"{column_letters(cell[1])}{cell[0]}"


def positive(text):
    """A number that is not negative, or None for anything else."""
    try:
        value = float(text)
    except (TypeError, ValueError):
        return None
    return value if 0 <= value < float("inf") else None


def decode(text):
    """Resolves the escapes _xHHHH_ of the format's strings; pairs of surrogates become one character."""
    if "_x" not in text:
        return text
    text = ESCAPE.sub(lambda match: chr(int(match[1], 16)), text)
    return text.encode("utf-16-le", "surrogatepass").decode("utf-16-le", "replace")


def rich_text(node):
    """The text of an si or is element: its own t and those of its runs, without phonetic hints."""
    pieces = []
    for child in node:
        if local(child) == "t":
            pieces.append(child.text or "")
        elif local(child) == "r":
            pieces += [run.text or "" for run in child if local(run) == "t"]
    return decode("".join(pieces))


def serial(text, date1904):
    """The serial number of an ISO 8601 date, time or both; or None."""
    match = DATE.match(text)
    if not match or not text:
        return None
    year, month, day, hour, minute, second, fraction = match.groups()
    days = 0.0
    try:
        if year:
            epoch = datetime.date(1904, 1, 1) if date1904 else datetime.date(1899, 12, 30)
            days = (datetime.date(int(year), int(month), int(day)) - epoch).days
            if not date1904 and 0 < days < 61:
                days -= 1
    except ValueError:
        return None
    seconds = int(hour or 0) * 3600 + int(minute or 0) * 60 + int(second or 0) + float(fraction or 0)
    return days + seconds / 86400


class WorkbookReader:
    """Reads every worksheet of a package, in the order of the workbook. Sheets of charts are no tables."""

    def __init__(self, source):
        self._package = Package(source)
        self.date1904 = False
        self.sheets = []
        self.default_font = ("", "")  # name and size, as written
        main = [target for kind, target, external in self._package.relations("").values()
                if kind == "officeDocument" and not external]
        if not main:
            raise Unreadable("no main part")
        self._read_workbook(main[0])

    def _read_workbook(self, part):
        tree = self._package.tree(part)
        if local(tree) != "workbook":
            raise Unreadable(f"{part} is no workbook")
        relations = self._package.relations(part)
        self._strings = []
        formats = Formats()
        for kind, target, _ in relations.values():
            if kind == "sharedStrings" and self._package.has(target):
                self._strings = [rich_text(node) for node in self._package.tree(target) if local(node) == "si"]
            elif kind == "styles" and self._package.has(target):
                self._read_default_font(self._package.tree(target))
                formats = Formats(self._package.tree(target))
        entries = []
        for node in tree:
            if local(node) == "workbookPr":
                self.date1904 = node.get("date1904") in ("1", "true", "on")
            elif local(node) == "sheets":
                entries = [entry for entry in node if local(entry) == "sheet"]
        for entry in entries:
            kind, target, _ = relations.get(related(entry, "id"), ("", "", False))
            if kind == "worksheet" and self._package.has(target):
                sheet = Sheet(entry.get("name"), entry.get("state", "visible") == "visible", formats=formats)
                _SheetReader(self._package, target, self._strings, self.date1904, sheet).read()
                self.sheets.append(sheet)


    def _read_default_font(self, styles):
        fonts = next((node for node in styles if local(node) == "fonts"), [])
        parts = {local(node): node.get("val") for node in next(iter(fonts), [])}
        self.default_font = (parts.get("name", ""), parts.get("sz", ""))


class _SheetReader:
    def __init__(self, package, part, strings, date1904, sheet):
        self._package, self._part = package, part
        self._strings, self._date1904, self._sheet = strings, date1904, sheet
        self._row = self._column = 0

    def read(self):
        relations = self._package.relations(self._part)
        try:
            self._read_events(relations)
        except ElementTree.ParseError as error:
            raise Unreadable(f"{self._part}: {error}") from error

    def _read_events(self, relations):
        """Walks the part once and forgets each row after reading it, since sheets can be large."""
        stack = []
        with self._package.open(self._part) as stream:
            for event, node in ElementTree.iterparse(stream, ("start", "end")):
                name = local(node)
                if event == "start":
                    stack.append(node)
                    if name == "row" and len(stack) == 3 and local(stack[1]) == "sheetData":
                        self._start_row(node)
                    continue
                stack.pop()
                if name == "c" and len(stack) == 3 and local(stack[2]) == "row":
                    self._read_cell(node)
                    stack[-1].remove(node)
                elif name == "row" and len(stack) == 2:
                    stack[-1].remove(node)
                elif name == "mergeCells":
                    self._read_merges(node)
                elif name == "hyperlink":
                    self._read_link(node, relations)
                elif name == "col":
                    self._read_column(node)
                elif name == "sheetFormatPr":
                    self._sheet.defaults = dict(node.attrib)
                elif name == "drawing" and len(stack) == 1:
                    kind, target, external = relations.get(related(node, "id"), ("", "", True))
                    if kind == "drawing" and not external and self._package.has(target):
                        self._read_pictures(target)

    def _read_column(self, node):
        first, last, width = node.get("min", ""), node.get("max", ""), node.get("width")
        if re.fullmatch("[0-9]{1,5}", first) and re.fullmatch("[0-9]{1,5}", last):
            last = min(int(last), MAX_COLUMNS)
            if 1 <= int(first) <= last:
                self._sheet.name_place(0, last)
                self._sheet.columns.append((int(first), last, positive(width), node.get("hidden") in ("1", "true")))

    def _start_row(self, node):
        text = node.get("r")
        number = int(text) if re.fullmatch("[0-9]{1,18}", text or "") else 0
        if number == 0:  # a row without a number, or with a bad one, follows the one before
            self._sheet.bad_places += text is not None
            number = self._row + 1
        self._row, self._column = number, 0
        if number <= MAX_ROWS:
            self._sheet.name_place(number, 0)
            self._sheet.rows[number] = (positive(node.get("ht")), node.get("hidden") in ("1", "true"))

    def _read_cell(self, node):
        where = node.get("r")
        at = (self._row, self._column + 1) if where is None else place(where)
        if at is None:  # a cell with a bad reference follows the one before
            self._sheet.bad_places += 1
            at = (self._row, self._column + 1)
        self._column = at[1]
        if at[0] > MAX_ROWS or at[1] > MAX_COLUMNS:
            self._sheet.bad_places += 1
            return
        cell, text = Cell(format=number(node.get("s"))), None
        for child in node:
            name = local(child)
            if name == "f":
                cell.has_formula, cell.formula = True, child.text or ""
            elif name == "v":
                text = child.text or ""
            elif name == "is" and node.get("t") == "inlineStr":
                cell.kind, cell.value = "text", rich_text(child)
        if text is not None:
            self._set_value(cell, node.get("t", "n"), text)
        self._sheet.cells[at] = cell
        self._sheet.name_place(*at)

    def _set_value(self, cell, kind, text):
        if kind == "str":
            cell.kind, cell.value = "text", decode(text)
            return
        cell.raw = text.strip(" \t\r\n")
        if kind == "e" and cell.raw:
            cell.kind, cell.value = "error", cell.raw
        elif kind == "inlineStr" or not cell.raw:
            return
        elif kind == "n" and self._number(cell.raw) is not None:
            cell.kind, cell.value = "number", self._number(cell.raw)
        elif kind == "s" and re.fullmatch("[0-9]{1,9}", cell.raw) and int(cell.raw) < len(self._strings):
            cell.kind, cell.value = "text", self._strings[int(cell.raw)]
        elif kind == "b" and cell.raw in ("0", "1", "true", "false"):
            cell.kind, cell.value = "boolean", cell.raw in ("1", "true")
        elif kind == "d" and serial(cell.raw, self._date1904) is not None:
            cell.kind, cell.value = "number", serial(cell.raw, self._date1904)
        else:
            cell.is_bad = True
            if kind != "s":
                cell.kind, cell.value = "text", decode(cell.raw)

    @staticmethod
    def _number(text):
        if not re.fullmatch(r"[-+]?(\d+\.?\d*|\.\d+)([eE][-+]?\d+)?", text, re.ASCII):
            return None
        value = float(text)
        return value if abs(value) != float("inf") else None

    def _read_merges(self, node):
        """The first rectangle to claim a cell keeps it; what reaches beyond the grid is clipped."""
        claimed = {}
        for child in node:
            if local(child) != "mergeCell":
                continue
            corners = [place(corner) for corner in child.get("ref", "").split(":")]
            if not 1 <= len(corners) <= 2 or None in corners:
                self._sheet.refused_merges += 1
                continue
            first = tuple(min(pair) for pair in zip(*corners))
            last = tuple(max(pair) for pair in zip(*corners))  # one corner alone is both
            last = (min(last[0], MAX_ROWS), min(last[1], MAX_COLUMNS))
            if first == last:
                continue  # one cell: there is nothing to merge
            if first[0] > last[0] or first[1] > last[1] or _overlaps(claimed, first, last):
                self._sheet.refused_merges += 1
                continue
            self._sheet.merges.append((first, last))
            self._sheet.name_place(*last)

    def _read_link(self, node, relations):
        corners = [place(corner) for corner in node.get("ref", "").split(":")]
        if not 1 <= len(corners) <= 2 or None in corners:
            return
        first = tuple(min(pair) for pair in zip(*corners))
        last = tuple(max(pair) for pair in zip(*corners))
        target = relations.get(related(node, "id"), ("", "", False))[1]
        if node.get("location"):
            target += "#" + node.get("location")
        if target:
            self._sheet.links.append((first, last, target))
            self._sheet.name_place(*last)

    def _read_pictures(self, part):
        relations = self._package.relations(part)
        tree = self._package.tree(part)
        self._sheet.drawn = read_drawing(tree)
        self._sheet.stored_blips = {
            key for key, (kind, target, external) in relations.items()
            if kind == "image" and not external and self._package.has(target)}
        for node in tree.iter():
            if local(node) != "pic":
                continue
            fill = next((child for child in node if local(child) == "blipFill"), None)
            blip = next((child for child in fill if local(child) == "blip"), None) if fill is not None else None
            embedded = related(blip, "embed") if blip is not None else None
            kind, target, external = relations.get(embedded, ("", "", True))
            if kind == "image" and not external and self._package.has(target):
                self._sheet.pictures.append(Picture(target, self._package.read(target)))


def _overlaps(claimed, first, last):
    """Claims the rectangle, unless an earlier one shares a cell with it. claimed: row band -> rectangles."""
    bands = range(first[0] >> 10, (last[0] >> 10) + 1)
    for band in bands:
        for other_first, other_last in claimed.get(band, ()):
            if (first[0] <= other_last[0] and other_first[0] <= last[0]
                    and first[1] <= other_last[1] and other_first[1] <= last[1]):
                return True
    for band in bands:
        claimed.setdefault(band, []).append((first, last))
    return False
