"""The preview of the demonstration presentation in a browser: boxes, colours and words of its slides, for tests."""
import base64
import json
import pathlib
import tempfile
import unittest

from browser import Browser, Pixels, find_browser
from slide_looks import distance
from tool_runner import allowance, run

PIXELS_PER_POINT = 96 / 72
WINDOW = (1312, 4800)  # pixels; so wide that slides have their true size
WIDTH, HEIGHT = 960, 540  # of a slide in points

# What scripts of the tests share. Boxes are left, top, right and bottom in pixels of the whole page.
HELPERS = """
const all = (selector, root = document) => [...root.querySelectorAll(selector)];
const box = b => [b.left + scrollX, b.top + scrollY, b.right + scrollX, b.bottom + scrollY];
const of = e => box(e.getBoundingClientRect());
const section = number => all('section')[number - 1];
const slide = number => section(number).querySelector(':scope > svg');
const named = (number, name) => all('[data-name]', slide(number)).find(e => e.dataset.name === name);
const join = boxes => [0, 1, 2, 3].map(i => Math[i < 2 ? 'min' : 'max'](...boxes.map(b => b[i])));
const texts = root => { const found = [], walker = document.createTreeWalker(root, NodeFilter.SHOW_TEXT);
    while (walker.nextNode()) if (/[^\\s\u2060]/.test(walker.currentNode.data)) found.push(walker.currentNode);
    return found; };
const range = node => { const r = document.createRange(); r.selectNodeContents(node); return of(r); };
const look = node => { const e = node.parentElement, s = getComputedStyle(e), p = e.closest('p');
    return {size: parseFloat(s.fontSize) * p.getBoundingClientRect().width / p.offsetWidth, bold: s.fontWeight >= 600,
        italic: s.fontStyle === 'italic', underline: !!e.closest('a') || s.textDecorationLine.includes('underline'),
        color: s.color, font: s.fontFamily, align: getComputedStyle(p).textAlign}; };
"""


def colour(css):
    """What a computed colour is as six hexadecimal digits."""
    inner = css[css.index("(") + 1:css.index(")")].replace(",", " ").split()
    return "".join(f"{int(part):02X}" for part in inner[:3]) if len(inner) < 4 or float(inner[3]) else "none"


class SlidesPage(unittest.TestCase):
    """Tests of the page in a browser; each may look at it, and leaves it as it was."""
    program, samples = "", pathlib.Path()

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.page = pathlib.Path(folder.name) / "deck.html"
        written = run([cls.program, "preview", str(cls.samples / "deck.pptx"), "-o", str(cls.page)],
                      timeout=60 * allowance(cls.program).time)
        assert written.status == 0, written.stderr
        cls.browser = cls.enterClassContext(Browser(find_browser(), *WINDOW))
        cls.browser.open(cls.page, scripts=False)
        cls.slides = cls.evaluate("return all('section > svg').map(of)")
        cls.seen = {}  # slide -> its pixels

    @classmethod
    def evaluate(cls, body):
        """What the body of a function returns, with the helpers above at hand."""
        return json.loads(cls.browser.evaluate(f"JSON.stringify((() => {{ {HELPERS} {body} }})())"))

    def points(self, slide, box):
        """A box of the page as left, top, right and bottom on a slide."""
        left, top = self.slides[slide - 1][:2]
        return [(value - origin) / PIXELS_PER_POINT for value, origin in zip(box, (left, top, left, top))]

    def at(self, slide, x, y):
        if slide not in self.seen:
            left, top = self.slides[slide - 1][:2]
            clip = {"x": round(left), "y": round(top), "width": WIDTH * PIXELS_PER_POINT,
                    "height": HEIGHT * PIXELS_PER_POINT}
            picture = self.browser.call("Page.captureScreenshot", format="png", clip={**clip, "scale": 1})["data"]
            self.seen[slide] = Pixels(base64.b64decode(picture))
        return self.seen[slide].at(x * PIXELS_PER_POINT, y * PIXELS_PER_POINT)

    def assert_near(self, found, expected, points=1 / PIXELS_PER_POINT, msg=None):
        self.assertEqual(len(found), len(expected), msg)
        for value, wanted in zip(found, expected):
            self.assertAlmostEqual(value, wanted, delta=points, msg=f"{msg}: {found}, expected {expected}")

    def assert_colours(self, slide, rows, tolerance=0):
        """rows: what, x, y, colour."""
        for what, x, y, expected in rows:
            with self.subTest(what):
                found = self.at(slide, x, y)
                self.assertLessEqual(distance(found, expected), tolerance, f"{found}, expected {expected}")

    def paragraph(self, slide, text):
        """Of the paragraph that holds a text: its box, that of the words, and their look."""
        box, words, look = self.evaluate(
            f"const p = all('p', slide({slide})).find(p => p.textContent.includes({json.dumps(text)}));"
            f"return [of(p), range(p), look(texts(p).find(t => t.data.includes({json.dumps(text)})))]")
        return self.points(slide, box), self.points(slide, words), look

    def assert_look(self, look, size, rgb, font="Calibri", **rest):
        self.assertAlmostEqual(look["size"], size * PIXELS_PER_POINT, delta=0.1)
        self.assertEqual(colour(look["color"]), rgb)
        self.assertIn(font, look["font"])
        for key, value in rest.items():
            self.assertEqual(look[key], value, key)
