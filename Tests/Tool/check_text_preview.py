#!/usr/bin/python3
"""Opens the preview of the demonstration text in a browser, and compares what is seen with what it was made from.

Usage: check_text_preview.py QVFILTER SAMPLES_FOLDER [unittest options]
"""
import json
import pathlib
import sys
import tempfile
import unittest

from browser import Browser, find_browser
from tool_runner import allowance, run, skip

PROGRAM, SAMPLES = "", pathlib.Path()
PIXELS_PER_POINT = 96 / 72
WIDTH, HEIGHT = 1200, 1800
PAGE_WIDTH, PAGE_HEIGHT = 595.3, 841.9  # points, as all lengths below
LEFT, TOP, RIGHT = 70.85, 70.85, 70.85
HEADER = 35.4
LABELS = [("1.", "The year"), ("1.1.", "What came in"), ("2.", "What is to be done"), ("a)", "dredge the channel"),
          ("i.", "north of the light"), ("ii.", "south of it"), ("b)", "mend the southern quay"),
          ("a)", "count the gulls"), ("\u2022", "grey ones"), ("\u2022", "all others")]
# From the left edge of the text to that of the label, and to that of what follows it.
INDENTS = [(0, 21.6), (0, 28.8), (0, 21.6), (18, 36), (54, 72), (54, 72), (18, 36), (18, 36), (18, 36), (18, 36)]
ENTRIES = [("1. The year", "1"), ("1.1. What came in", "1"), ("2. What is to be done", "2")]

# What scripts of the tests share. Boxes are left, top, right and bottom in pixels of the whole page.
HELPERS = """
const all = (selector, root = document) => [...root.querySelectorAll(selector)];
const box = b => [b.left + scrollX, b.top + scrollY, b.right + scrollX, b.bottom + scrollY];
const of = e => box(e.getBoundingClientRect());
const texts = root => { const found = [], walker = document.createTreeWalker(root, NodeFilter.SHOW_TEXT);
    while (walker.nextNode()) if (walker.currentNode.data.trim()) found.push(walker.currentNode); return found; };
const lines = node => { const range = document.createRange(); range.selectNodeContents(node);
    return [...range.getClientRects()].map(box); };
const look = node => { const e = node.nodeType === 3 ? node.parentElement : node, s = getComputedStyle(e);
    return {size: parseFloat(s.fontSize), bold: s.fontWeight >= 600, italic: s.fontStyle === 'italic', color: s.color,
        underline: s.textDecorationLine.includes('underline'), font: s.fontFamily, align: s.textAlign}; };
const paragraphs = (root = document) => all('p,h1,h2,h3,h4,h5,h6', root);
const find = text => paragraphs(document.querySelector('.text')).find(p => p.textContent.includes(text));
const run = (text, root) => texts(root || find(text)).find(t => t.data.includes(text));
"""


def colour(css):
    """What a computed colour is as six hexadecimal digits."""
    inner = css[css.index("(") + 1:css.index(")")].replace(",", " ").split()
    return "".join(f"{int(part):02X}" for part in inner[:3]) if len(inner) < 4 or float(inner[3]) else "none"


class TextPreview(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.page = pathlib.Path(folder.name) / "report.html"
        written = run([PROGRAM, "preview", str(SAMPLES / "report.docx"), "-o", str(cls.page)],
                      timeout=60 * allowance(PROGRAM).time)
        assert written.status == 0, written.stderr
        cls.browser = cls.enterClassContext(Browser(find_browser(), WIDTH, HEIGHT))
        cls.browser.open(cls.page, scripts=False)

    def evaluate(self, body):
        """What the body of a function returns, with the helpers above at hand."""
        return json.loads(self.browser.evaluate(f"JSON.stringify((() => {{ {HELPERS} {body} }})())"))

    def paper(self):
        return self.evaluate("return of(document.querySelector('section.page'))")

    def look(self, text):
        return self.evaluate(f"return look(run({json.dumps(text)}))")

    def assert_points(self, pixels, points, what):
        self.assertAlmostEqual(pixels, points * PIXELS_PER_POINT, delta=1, msg=what)

    def test_paper_has_its_size_and_margins(self):
        left, top, right, bottom = self.paper()
        self.assert_points(right - left, PAGE_WIDTH, "width")
        self.assertGreaterEqual(bottom - top, PAGE_HEIGHT * PIXELS_PER_POINT - 1)
        text = self.evaluate("return of(document.querySelector('section.page > .text'))")
        self.assert_points(text[0] - left, LEFT, "left margin")
        self.assert_points(right - text[2], RIGHT, "right margin")
        self.assert_points(text[1] - top, TOP, "top margin")
        self.assertLess(abs((left + right) / 2 - WIDTH / 2), 10)

    def test_header_stands_above_the_text_and_the_footer_below(self):
        left, top, right, bottom = self.paper()
        header, text, footer = self.evaluate(
            "return ['header', '.text', 'footer'].map(s => of(document.querySelector(`section.page > ${s}`)))")
        self.assertLessEqual(header[3], text[1] + 0.5)
        self.assertGreaterEqual(footer[1], text[3] - 0.5)
        self.assertAlmostEqual(footer[3], bottom, delta=1)
        first = self.evaluate("return of(paragraphs(document.querySelector('header'))[0])")
        self.assert_points(first[1] - top, HEADER, "from the edge to the header")
        words = self.evaluate("return texts(document.querySelector('header')).map(t => [t.data, ...lines(t)[0]])")
        self.assertEqual([word[0] for word in words], ["Harbour office", "2024"])
        self.assert_points(words[0][1] - left, LEFT, "left part of the header")
        self.assert_points(right - words[1][3], RIGHT, "right part of the header")
        footer = self.evaluate("const p = paragraphs(document.querySelector('footer'))[0];"
                               "return [p.textContent, look(p).align, ...lines(p)[0]]")
        self.assertEqual(footer[:2], ["Page 1", "center"])
        self.assertAlmostEqual((footer[2] + footer[4]) / 2, (left + right) / 2, delta=1)

    def test_headings_are_headings_and_look_like_it(self):
        headings = self.evaluate("return all('h1,h2,h3', document.querySelector('.text')).map(h => {"
                                 "const t = texts(h).pop(); return [h.tagName, t.data, look(t)]; })")
        self.assertEqual([(tag, text) for tag, text, _ in headings],
                         [("H1", "The year"), ("H2", "What came in"), ("H1", "What is to be done")])
        for (tag, text, look) in headings:
            self.assertAlmostEqual(look["size"], {"H1": 16, "H2": 13}[tag] * PIXELS_PER_POINT, delta=0.1, msg=text)
            self.assertTrue(look["bold"], text)
            self.assertEqual(colour(look["color"]), "2F5496", text)

    def test_runs_look_as_their_styles_say(self):
        title = self.look("A harbour\u2019s year")
        self.assertAlmostEqual(title["size"], 28 * PIXELS_PER_POINT, delta=0.1)
        self.assertFalse(title["bold"])
        for text, bold, italic, rgb in (("Report of", False, False, "000000"), ("busier", False, True, "000000"),
                                        ("colder", True, False, "C00000"), ("than ever", False, False, "000000")):
            look = self.look(text)
            self.assertEqual((look["bold"], look["italic"], colour(look["color"])), (bold, italic, rgb), text)
            self.assertAlmostEqual(look["size"], 11 * PIXELS_PER_POINT, delta=0.1, msg=text)
            self.assertIn("Calibri", look["font"])
        self.assertTrue(self.evaluate("return look(run('2024', find('Report of'))).bold"))

    def test_labels_are_true_and_stand_left_of_the_text(self):
        items = self.evaluate(
            "return all('.label', document.querySelector('.text')).map(l => { const p = l.parentElement;"
            "const after = texts(p).filter(t => !l.contains(t));"
            "return [l.textContent, after.map(t => t.data).join(''), of(l), lines(after[0])[0]]; })")
        self.assertEqual([(label, text) for label, text, _, _ in items], LABELS)
        left = self.paper()[0]
        for (label, text, own, following), (of_label, of_text) in zip(items, INDENTS):
            self.assert_points(own[0] - left, LEFT + of_label, f"label {label!r} of {text!r}")
            self.assert_points(following[0] - left, LEFT + of_text, f"text {text!r}")
            self.assertLessEqual(own[2], following[0] + 0.5)

    def test_table_has_its_cells_widths_and_merges(self):
        rows = self.evaluate("return all('table tr').map(r => all('td,th', r).map(c => "
                             "[c.innerText.trim(), c.rowSpan, c.colSpan, ...of(c)]))")
        self.assertEqual([[cell[0] for cell in row] for row in rows],
                         [["Quay", "Ships", "Tonnes"], ["North", "211", "84,300"], ["198", "79,150"],
                          ["South", "none: under repair"]])
        self.assertEqual([[cell[1:3] for cell in row] for row in rows],
                         [[[1, 1]] * 3, [[2, 1], [1, 1], [1, 1]], [[1, 1]] * 2, [[1, 1], [1, 2]]])
        for cell, width in zip(rows[0], (120, 90, 90)):
            self.assert_points(cell[5] - cell[3], width, f"column of {cell[0]}")
        self.assertAlmostEqual(rows[1][0][6], rows[2][0][6], delta=1, msg="North ends where the row below does")
        self.assertAlmostEqual(rows[3][1][3], rows[0][1][3], delta=1, msg="the last cell begins with its first column")
        self.assertAlmostEqual(rows[3][1][5], rows[0][2][5], delta=1, msg="and ends with its last one")

    def test_table_style_colours_head_and_bands(self):
        fills = self.evaluate("return all('table tr').map(r => all('td,th', r).map(c => "
                              "[getComputedStyle(c).backgroundColor, look(texts(c)[0])]))")
        seen = [[colour(fill) for fill, _ in row] for row in fills]
        self.assertEqual(seen, [["4472C4"] * 3, ["D9E2F3"] * 3, ["none"] * 2, ["D9E2F3"] * 2])
        for row, looks in enumerate(fills):
            for _, look in looks:
                self.assertEqual((look["bold"], colour(look["color"])),
                                 (True, "FFFFFF") if row == 0 else (False, "000000"))
        self.assertTrue(fills[3][1][1]["italic"])
        pixels = self.browser.screenshot()
        for row, expected in ((0, "4472C4"), (1, "D9E2F3"), (2, "FFFFFF")):
            box = self.evaluate(f"return of(all('table tr')[{row}].lastElementChild)")
            self.assertEqual(pixels.at(box[2] - 4, box[3] - 4), expected, row)
        edge = self.evaluate("return getComputedStyle(all('table td')[4]).borderTopColor")
        self.assertEqual(colour(edge), "8EAADB")

    def test_pictures_are_there_in_their_sizes_and_colours(self):
        pictures = self.evaluate("return all('img').map(i => [i.alt, i.complete, i.naturalWidth, ...of(i)])")
        self.assertEqual([picture[0] for picture in pictures], ["Chart of the tides", "Picture", "Seal"])
        sizes = ((96, 64), (36, 18), (48, 24))
        for (name, complete, width, *box), size, natural in zip(pictures, sizes, (24, 16, 16)):
            self.assertTrue(complete, name)
            self.assertEqual(width, natural, name)
            self.assert_points(box[2] - box[0], size[0], f"width of {name}")
            self.assert_points(box[3] - box[1], size[1], f"height of {name}")
        tides, _, seal = (picture[3:] for picture in pictures)
        self.assert_points(self.paper()[2] - seal[2], RIGHT, "the seal at the right margin")
        pixels = self.browser.screenshot()
        self.assertEqual(pixels.at((tides[0] + tides[2]) / 2, (tides[1] + tides[3]) / 2)[:2], "28")
        square = (seal[2] - seal[0]) / 4
        for x, expected in ((0.5, "FFE699"), (1.5, "C00000"), (2.5, "FFE699")):
            self.assertEqual(pixels.at(seal[0] + x * square, seal[1] + square / 2), expected, x)

    def test_changes_are_shown_as_they_end_and_hidden_text_is_not(self):
        text = self.evaluate("return document.body.textContent")
        self.assertNotIn("unseen", text)
        self.assertEqual(self.evaluate("return texts(find('mend the')).map(t => t.data).join('')"),
                         "b)mend the southern quay")
        self.assertEqual(self.evaluate("return all('ins').map(i => [i.textContent, i.title])"),
                         [["southern ", "M. Okafor, 2024-05-01T10:00:00Z"]])
        self.assertIn("1 piece of text deleted or moved away by tracked changes is not shown", text)

    def test_links_lead_out_and_into_the_page(self):
        link = self.evaluate("const a = run('the office').parentElement.closest('a');"
                             "return [a.getAttribute('href'), a.textContent, look(run('the office'))]")
        self.assertEqual(link[:2], ["https://harbour.example/", "the office"])
        self.assertEqual(colour(link[2]["color"]), "0563C1")
        note = self.evaluate("const a = document.querySelector('.text sup a');"
                             "const n = document.querySelector(a.getAttribute('href'));"
                             "return [a.textContent, n.textContent, n.querySelector('a').getAttribute('href'),"
                             "'#' + a.id, of(n)[1] > of(a)[1]]")
        self.assertEqual(note[0], "1")
        self.assertRegex(note[1], r"\A1\s*By 1\.5 \u00b0C\.\s*\Z")
        self.assertEqual(note[2], note[3])
        self.assertTrue(note[4])

    def test_table_of_contents_leads_to_the_headings(self):
        entries = self.evaluate(
            "return paragraphs(document.querySelector('nav')).map(p => { const links = all('a', p);"
            "const targets = [...new Set(links.map(a => a.getAttribute('href')))];"
            "const heading = document.getElementById(targets[0].slice(1)).closest('h1,h2');"
            "return [links.map(a => a.textContent), targets.length,"
            "texts(heading).map(t => t.data).join(' '), ...lines(texts(p).pop())[0]]; })")
        self.assertEqual([tuple(links) for links, *_ in entries], ENTRIES)
        for (text, page), (_, targets, heading, _, _, right, _) in zip(ENTRIES, entries):
            self.assertEqual((targets, heading), (1, text))
            self.assert_points(self.paper()[2] - right, RIGHT + 0.5, f"page {page} of {text}")

    def test_signature_stands_at_the_right(self):
        words = self.evaluate("return texts(find('Signed,')).flatMap(t => lines(t).map(l => [t.data, ...l]))")
        self.assertEqual([word[0] for word in words], ["Signed,", "the harbour master"])
        self.assertGreater(words[1][2], words[0][2])
        for text, _, _, right, _ in words:
            self.assert_points(self.paper()[2] - right, RIGHT, text)

    def test_page_needs_nothing_else_and_does_nothing(self):
        self.assertEqual(self.evaluate("return document.scripts.length"), 0)
        policy = self.evaluate("return all('meta[http-equiv=\"Content-Security-Policy\"]').map(m => m.content)")
        self.assertEqual(len(policy), 1)
        self.assertTrue(policy[0].startswith("default-src 'none';"), policy)
        self.assertEqual(self.evaluate("return performance.getEntriesByType('resource').map(e => e.name.slice(0, 80))"
                                       ".filter(name => !name.startsWith('data:'))"), [])
        self.assertTrue(self.evaluate("return all('[src]').every(e => e.getAttribute('src').startsWith('data:'))"))
        self.assertEqual(self.evaluate("return document.title"), "report.docx")


def main(program, samples, *options):
    global PROGRAM, SAMPLES
    if not find_browser():
        return skip("chromium is not installed: ./dev test --interop installs it")
    PROGRAM, SAMPLES = program, pathlib.Path(samples).resolve()
    unittest.main(argv=["check_text_preview.py", *options])
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
