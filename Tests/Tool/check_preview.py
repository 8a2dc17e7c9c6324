#!/usr/bin/python3
"""Opens previews in a browser, and compares what is seen with the model, in pixels.

Usage: check_preview.py QVFILTER SAMPLES_FOLDER [unittest options]
"""
import json
import pathlib
import re
import sys
import tempfile
import unittest

from browser import Browser, find_browser
from tool_runner import allowance, run, skip

PROGRAM, SAMPLES = "", pathlib.Path()
PIXELS_PER_POINT = 96 / 72
ROW_HEAD, COLUMN_HEAD = 36, 15  # points, as the manual says
WIDTH, HEIGHT = 1600, 1000
CELLS = """JSON.stringify([...document.querySelectorAll('section')].map(s => [...s.querySelectorAll('tbody tr')].map(
    r => [...r.querySelectorAll('td')].map(c => { const b = c.getBoundingClientRect();
        return [b.left + scrollX, b.top + scrollY, b.width, b.height, c.innerText]; }))))"""
FRAMES = """JSON.stringify([...document.querySelectorAll('section')].map(s => [...s.querySelectorAll('.sheet > .frame')].map(
    f => { const b = f.getBoundingClientRect(); return [b.left + scrollX, b.top + scrollY, b.width, b.height]; })))"""
ORIGIN = "JSON.stringify((b => [b.left, b.top])(document.querySelector('section:target .sheet, #s1 .sheet').getBoundingClientRect()))"


def reference(text):
    letters, digits = re.fullmatch(r"([A-Z]+)(\d+)", text).groups()
    column = 0
    for letter in letters:
        column = column * 26 + ord(letter) - 64
    return int(digits) - 1, column - 1


class Grid:
    """Where a sheet's cells must be, worked out from its model alone."""

    def __init__(self, table):
        self.rows, self.columns = table["rows"], table["columns"]
        self.lefts = self._edges(table["columnWidths"], table["defaultColumnWidth"], self.columns, ROW_HEAD)
        self.tops = self._edges(table["rowHeights"], table["defaultRowHeight"], self.rows, COLUMN_HEAD)
        self.spans = {}
        self.covered = set()
        for merge in table["merges"]:
            (top, left), (bottom, right) = map(reference, merge.split(":"))
            self.spans[top, left] = (bottom + 1, right + 1)
            self.covered |= {(r, c) for r in range(top, bottom + 1) for c in range(left, right + 1)} - {(top, left)}

    @staticmethod
    def _edges(sizes, default, count, start):
        edges = [start]
        for i in range(count):
            edges.append(edges[-1] + (sizes[i] if i < len(sizes) else default))
        return [edge * PIXELS_PER_POINT for edge in edges]

    def box(self, row, column):
        """Left, top, right and bottom in pixels from the sheet's corner."""
        end_row, end_column = self.spans.get((row, column), (row + 1, column + 1))
        return self.lefts[column], self.tops[row], self.lefts[end_column], self.tops[end_row]

    def cells(self):
        """The cells of each row that are not covered by a merge."""
        return [[(r, c) for c in range(self.columns) if (r, c) not in self.covered] for r in range(self.rows)]


class Preview(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.browser = cls.enterClassContext(Browser(find_browser(), WIDTH, HEIGHT))
        cls.model, cls.page = cls.make("orders.xlsx")
        cls.table = cls.model["tables"][0]
        cls.grid = Grid(cls.table)

    @classmethod
    def make(cls, name):
        page = pathlib.Path(cls.folder.name) / f"{name}.html"
        imported = run([PROGRAM, "import", str(SAMPLES / name), "--model", "-"], timeout=60 * allowance(PROGRAM).time)
        written = run([PROGRAM, "preview", str(SAMPLES / name), "-o", str(page)], timeout=60 * allowance(PROGRAM).time)
        assert imported.status == 0 and written.status == 0, (imported.stderr, written.stderr)
        return json.loads(imported.stdout), page

    def setUp(self):
        self.browser.open(self.page, scripts=False)

    def evaluate(self, expression):
        return json.loads(self.browser.evaluate(expression))

    def origin(self):
        return self.evaluate(ORIGIN)

    def assert_near(self, seen, expected, what):
        for name, a, b in zip(("left", "top", "right", "bottom"), seen, expected):
            self.assertAlmostEqual(a, b, delta=0.6, msg=f"{what}: {name}")

    def test_every_cell_lies_where_the_sizes_put_it(self):
        left, top = self.origin()
        rows = self.evaluate(CELLS)[0]
        expected = self.grid.cells()
        self.assertEqual([len(row) for row in rows], [len(row) for row in expected])
        for seen_row, expected_row in zip(rows, expected):
            for (x, y, width, height, _), place in zip(seen_row, expected_row):
                seen = (x - left, y - top, x - left + width, y - top + height)
                self.assert_near(seen, self.grid.box(*place), place)

    def test_every_value_is_read(self):
        texts = {place: cell[4] for row, places in zip(self.evaluate(CELLS)[0], self.grid.cells())
                 for cell, place in zip(row, places)}
        hidden = {r for r in range(self.grid.rows) if self.grid.tops[r] == self.grid.tops[r + 1]}
        for cell in self.table["cells"]:
            place = reference(cell["ref"])
            if place in self.grid.covered or place[0] in hidden or "value" not in cell:
                continue
            value = cell["value"]
            if "display" in cell:
                self.assertEqual(texts[place], cell["display"], cell["ref"])
            elif cell["type"] == "number":
                self.assertEqual(float(texts[place]), value, cell["ref"])
            elif cell["type"] == "boolean":
                self.assertEqual(texts[place], str(value).upper(), cell["ref"])
            else:
                self.assertEqual(texts[place].split(), value.split(), cell["ref"])

    def test_fills_and_borders_have_their_pixels(self):
        left, top = self.origin()
        pixels = self.browser.screenshot()
        fills = borders = 0
        for cell in self.table["cells"]:
            place = reference(cell["ref"])
            if place in self.grid.covered:
                continue
            x1, y1, x2, y2 = self.grid.box(*place)
            if y2 - y1 < 8 or x2 - x1 < 8 or y2 + top > HEIGHT or x2 + left > WIDTH:
                continue
            lines = cell.get("borders", {})
            if "fill" in cell:
                inside = 3 if "top" in lines else 1
                self.assertEqual(pixels.at(left + (x1 + x2) / 2, round(top + y1) + inside), cell["fill"], cell["ref"])
                fills += 1
            for side, beside, x, y in (("left", (place[0], place[1] - 1), round(left + x1), top + (y1 + y2) / 2),
                                       ("top", (place[0] - 1, place[1]), left + (x1 + x2) / 2, round(top + y1))):
                line = self.line_between(lines.get(side), beside, {"left": "right", "top": "bottom"}[side])
                if line and line["style"] == "solid":
                    self.assertEqual(pixels.at(x, y), line.get("color", "000000"), (cell["ref"], side))
                    borders += 1
        self.assertGreater(fills, 10)
        self.assertGreater(borders, 10)

    def line_between(self, own, beside, side):
        """The line on an edge: the cell's own one, unless that of the cell beside it is wider."""
        begin = next((first for first, end in self.grid.spans.items()
                      if first <= beside and beside[0] < end[0] and first[1] <= beside[1] < end[1]), beside)
        lines = next((cell.get("borders", {}) for cell in self.table["cells"] if reference(cell["ref"]) == begin), {})
        other = lines.get(side)
        return other if other and (not own or other["width"] > own["width"]) else own

    def test_frames_lie_where_their_anchors_put_them(self):
        left, top = self.origin()
        frames = self.table["frames"]
        boxes = self.evaluate(FRAMES)[0]
        self.assertEqual(len(boxes), len(frames))
        self.assertGreaterEqual(len(frames), 5)
        for (x, y, width, height), frame in zip(boxes, frames):
            box = frame["absolute"]
            centre = (box["x"] + box["width"] / 2, box["y"] + box["height"] / 2)
            size = (box["width"], box["height"])
            if round(frame.get("rotation", 0)) % 180 == 90:
                size = size[::-1]  # what is seen of it lies on its side
            expected = [(ROW_HEAD + centre[0] - size[0] / 2), (COLUMN_HEAD + centre[1] - size[1] / 2)]
            expected += [expected[0] + size[0], expected[1] + size[1]]
            self.assert_near((x - left, y - top, x - left + width, y - top + height),
                             [edge * PIXELS_PER_POINT for edge in expected], frame)

    def test_pictures_have_their_pixels(self):
        left, top = self.origin()
        turned = next(frame for frame in self.table["frames"] if frame.get("rotation") == 90)
        box = turned["absolute"]
        centre_x = left + (ROW_HEAD + box["x"] + box["width"] / 2) * PIXELS_PER_POINT
        centre_y = top + (COLUMN_HEAD + box["y"] + box["height"] / 2) * PIXELS_PER_POINT
        across, along = box["height"] / 2 * PIXELS_PER_POINT, box["width"] / 2 * PIXELS_PER_POINT
        pixels = self.browser.screenshot()
        # Its left half is red and its right half blue; turned clockwise, red is above.
        self.assertEqual(pixels.at(centre_x, centre_y - along * 0.8), "C80000")
        self.assertEqual(pixels.at(centre_x, centre_y + along * 0.8), "0000C8")
        for x, y in ((-across - 2, 0), (across + 2, 0), (0, -along - 2), (0, along + 2)):
            self.assertNotIn(pixels.at(centre_x + x, centre_y + y), ("C80000", "0000C8"), (x, y))
        for x, y in ((-across + 2, -along + 2), (across - 3, -along + 2)):
            self.assertEqual(pixels.at(centre_x + x, centre_y + y), "C80000", (x, y))
        mark = next(frame for frame in self.table["frames"] if frame["kind"] == "shape")["absolute"]
        x = left + (ROW_HEAD + mark["x"]) * PIXELS_PER_POINT
        y = top + (COLUMN_HEAD + mark["y"]) * PIXELS_PER_POINT
        self.assertEqual(pixels.at(x + 4, y + 4), "FF8800")

    def test_one_sheet_is_seen_and_the_keyboard_switches(self):
        shown = "JSON.stringify([...document.querySelectorAll('section')].filter(s => s.offsetHeight).map(s => s.id))"
        self.assertEqual(self.evaluate(shown), ["s1"])
        self.browser.press("Tab")
        self.browser.press("Tab")
        self.browser.press("Enter")
        self.assertEqual(self.evaluate(shown), ["s2"])
        self.assertEqual(self.evaluate("JSON.stringify(document.querySelector('#s2 h2').innerText)"), "Summary")

    def test_links_lead_where_they_may(self):
        links = self.evaluate("JSON.stringify([...document.querySelectorAll('section a')].map(a => a.getAttribute('href')))")
        self.assertEqual(links, ["https://example.org/mueller?a=1&b=2#contact", "#s2"])
        self.assertEqual(self.evaluate("JSON.stringify(document.scripts.length)"), 0)


def main(program, samples, *options):
    global PROGRAM, SAMPLES
    if not find_browser():
        return skip("chromium is not installed: ./dev test --interop installs it")
    PROGRAM, SAMPLES = program, pathlib.Path(samples).resolve()
    unittest.main(argv=["check_preview.py", *options])
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
