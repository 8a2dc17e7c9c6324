#!/usr/bin/python3
"""Holds the summary that `qvfilter import` prints for a person to what the document holds.

Usage: check_summary.py QVFILTER SAMPLES_FOLDER [unittest options]
"""
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent.parent / "Samples"))
# pylint: disable=wrong-import-position
import deck
import report
from cli_case import Case, main
from package_parts import STYLES, relations, workbook, write_package
from tool_runner import allowance

REPORT = """\
: a text document of 31 paragraphs in 1 section
  headings    items   tables pictures   shapes    notes bookmarks  changes
         3       10        1        3        0        1         0        2
It begins:
  A harbour\u2019s year
  Report of the harbour office, 2024
  1. The year 1
  1.1. What came in 1
  2. What is to be done 2
  1. The year
"""

DECK = """\
: a presentation of 6 slides of 960 x 540 points
  masters layouts   shapes connectors pictures  tables  charts  others   notes  hidden
        1       2       32          2        1       1       1       0       1       1
It begins:
  1. A harbour\u2019s year
  2. The year in short
  3. What shapes can be
  4. Tides and quays
  5. Ships by season
  6. Kept for questions (hidden)
"""


class Workbooks(Case):
    def test_summary_keeps_to_its_lines_whatever_the_names(self):
        parts = workbook([("a\u009b31m\u0085b&c", "visible", "<sheetData/>")])
        parts["xl/workbook.xml"] = parts["xl/workbook.xml"].replace("b&amp;c", "b&#10;c")
        write_package(self.folder / "names.xlsx", parts)
        text = self.expect(0, "import", "names.xlsx").stdout.decode()
        self.assertIn("\\x0Ac", text)
        for harm in ("\u009b", "\u0085"):
            self.assertNotIn(harm, text)

    def test_summary_is_for_a_person(self):
        outcome = self.expect(0, "import", self.orders)
        text = outcome.stdout.decode()
        for word in ("Orders", "Summary", "Rates 2024"):
            self.assertIn(word, text)
        self.assertNotIn("\x1b", text)
        self.assertNotIn("\r", text)
        self.assertEqual(outcome.stderr, b"")
        self.assert_only()

    def summary_of(self, *sheets):
        write_package(self.folder / "beginning.xlsx", workbook(sheets))
        return self.expect(0, "import", "beginning.xlsx").stdout.decode()

    def test_summary_shows_the_first_cells_as_a_spreadsheet_does(self):
        text = self.expect(0, "import", self.orders).stdout.decode()
        self.assertIn("\nOrders begins:\n  Orders 2024\n"
                      "  Day          Customer        Pieces  Price      Total      Paid\n"
                      "   2024-01-01  課長                   3  19.99 EUR  59.97 EUR  TRUE\n"
                      "   2024-02-29  Müller & Söhne      12   4.50 EUR  54.00 EUR  FALSE\n", text)

    def test_summary_cuts_what_it_shows_of_cells(self):
        def cell(text):
            return f"<c t='inlineStr'><is><t>{text}</t></is></c>"
        wide = cell("a" * 20) + cell("\u00e4" * 21) + cell("a\u009b31mb&#10;c") + "<c/>" + "<c><v>1</v></c>" * 9
        rows = f"<row/><row>{wide}</row>" + "<row><c><v>2</v></c></row>" * 9
        text = self.summary_of(("Secret", "hidden", "<sheetData><row><c><v>7</v></c></row></sheetData>"),
                               ("Empty", "visible", "<sheetData/>"),
                               ("Wide", "visible", f"<sheetData>{rows}</sheetData>"))
        shown = "  " + "a" * 20 + "  " + "\u00e4" * 19 + "\u2026" + "  a\\xC2\\x9B31mb" + "  1" * 3
        self.assertIn(f"\nWide begins:\n{shown}\n" + f"  {2:>20}\n" * 3 + "No messages.\n", text)
        self.assertNotIn("Secret begins", text)

    def test_summary_shows_what_a_reader_sees(self):
        def cell(place, text):
            return f"<c r='{place}' t='inlineStr'><is><t>{text}</t></is></c>"
        columns = "<cols><col min='2' max='2' hidden='1' width='9' customWidth='1'/></cols>"
        rows = ("<row r='1' hidden='1'><c r='A1'><v>666</v></c></row>"
                f"<row r='2'>{cell('A2', '12&quot; C:&#92;tmp')}<c r='B2'><v>667</v></c><c r='C2'><v>3</v></c></row>"
                f"<row r='3'>{cell('A3', '&#10;below')}</row>"
                + "<row r='4'>" + "".join(f"<c r='{c}4'><v>4</v></c>" for c in "CDEFG") + "</row>"
                "<row r='5'><c r='Z5'><v>5</v></c></row><row r='6'><c r='C6'><v>6</v></c></row>")
        text = self.summary_of(("Seen", "visible", f"{columns}<sheetData>{rows}</sheetData>"))
        self.assertIn("\nSeen begins:\n"
                      '  12" C:\\tmp  3\n' + " " * 14 + "4  4  4  4  4\n" + " " * 14 + "6\nNo messages.\n", text)

    def test_summary_looks_at_no_more_than_it_may_show(self):
        styles = STYLES.replace("<cellXfs", "<numFmts><numFmt numFmtId='164' formatCode=';;;'/></numFmts><cellXfs"
                                ).replace('numFmtId="14"', 'numFmtId="164"')
        cells = "<row><c t='s' s='1'><v>0</v></c></row>" * 20_000
        write_package(self.folder / "unseen.xlsx", workbook([("Unseen", "visible", f"<sheetData>{cells}</sheetData>")],
                                                            f"<si><t>{'x' * 8_000_000}</t></si>", styles))
        outcome = self.expect(0, "import", "unseen.xlsx", timeout=15 * allowance(self.program).time)
        self.assertNotIn(b"begins", outcome.stdout)

    def test_summary_of_empty_sheets_shows_no_cells(self):
        self.assertNotIn("begins", self.summary_of(("Empty", "visible", "<sheetData><row><c/></row></sheetData>")))


class TextDocuments(Case):
    def summary_of(self, body):
        """body: what stands before the properties of the last section."""
        parts = report.parts()
        whole = parts["word/document.xml"]
        begin, end = whole.index("<w:body>") + len("<w:body>"), whole.index("<w:sectPr>")
        parts["word/document.xml"] = whole[:begin] + body + whole[end:]
        write_package(self.folder / "text.docx", parts)
        outcome = self.expect(0, "import", "text.docx")
        self.assertEqual(outcome.stderr, b"")
        return outcome.stdout.decode()

    def test_summary_counts_what_there_is_and_shows_the_beginning(self):
        text = self.expect(0, "import", self.report).stdout.decode()
        self.assertTrue(text.startswith(f"{self.report}{REPORT}"), text)
        self.assertNotIn("colder", text)
        self.assert_only()

    def test_summary_goes_by_what_is_seen(self):
        change = 'w:id="1" w:author="a" w:date="2024-05-01T10:00:00Z"'
        text = self.summary_of(
            report.paragraph() + report.paragraph(report.run("hidden", "<w:vanish/>"))
            + report.paragraph(f"<w:del {change}><w:r><w:delText>gone</w:delText></w:r></w:del>")
            + report.paragraph('<w:bookmarkStart w:id="1" w:name="place"/>', report.run("First"), "<w:r><w:br/></w:r>",
                               report.run("line"), '<w:bookmarkEnd w:id="1"/>')
            + report.item(0, 2, report.run("x" * 200)) + report.paragraph(report.run("a\u009b31mb")))
        self.assertIn(": a text document of 6 paragraphs in 1 section\n", text)
        self.assertIn(f"\n  {0:>8} {1:>8} {0:>8} {0:>8} {0:>8} {0:>8} {1:>9} {1:>8}\n", text)
        self.assertIn("\nIt begins:\n  First\n  a) " + "x" * 72 + "\u2026\n  a\\xC2\\x9B31mb\n", text)
        for word in ("hidden", "gone", "line\n"):
            self.assertNotIn(word, text)

    def test_summary_shows_six_lines(self):
        text = self.summary_of("".join(report.paragraph(report.run(f"line {i}")) for i in range(1, 9)))
        self.assertIn("\nIt begins:\n" + "".join(f"  line {i}\n" for i in range(1, 7)) + "No messages.\n", text)
        self.assertNotIn("line 7", text)

    def test_summary_of_a_document_without_text_shows_no_beginning(self):
        text = self.summary_of(report.paragraph())
        self.assertIn(": a text document of 1 paragraph in 1 section\n", text)
        self.assertNotIn("It begins", text)

    def test_summary_names_what_was_left_out_once(self):
        props = '<w:tabs><w:tab w:val="right" w:leader="dot" w:pos="9062"/></w:tabs>'
        text = self.summary_of(report.paragraph(report.run("one"), props=props) * 2)
        self.assertIn("\nLeft out: leaders of tabs\nNo messages.\n", text)


class Presentations(Case):
    def summary_of(self, *slides, size=(960, 540)):
        """slides: the shapes of each, and its attributes."""
        parts = {name: body for name, body in deck.parts().items() if not name.startswith("ppt/slides/")}
        parts["[Content_Types].xml"] = deck.content_types(len(slides))
        for number, (shapes, attributes) in enumerate(slides, 1):
            parts[f"ppt/slides/slide{number}.xml"] = deck.slide(shapes, attributes=attributes)
            parts[f"ppt/slides/_rels/slide{number}.xml.rels"] = relations(
                [("rId1", "slideLayout", "../slideLayouts/slideLayout2.xml")])
        parts["ppt/_rels/presentation.xml.rels"] = relations(
            [("rId1", "slideMaster", "slideMasters/slideMaster1.xml")]
            + [(f"rId{10 + number}", "slide", f"slides/slide{number}.xml") for number in range(1, len(slides) + 1)])
        parts["ppt/presentation.xml"] = deck.presentation(len(slides)).replace(
            f'cx="{deck.emu(deck.WIDTH)}" cy="{deck.emu(deck.HEIGHT)}"',
            f'cx="{deck.emu(size[0])}" cy="{deck.emu(size[1])}"')
        write_package(self.folder / "slides.pptx", parts)
        outcome = self.expect(0, "import", "slides.pptx")
        self.assertEqual(outcome.stderr, b"")
        return outcome.stdout.decode()

    def test_summary_counts_what_is_on_the_slides_and_shows_their_titles(self):
        text = self.expect(0, "import", self.deck).stdout.decode()
        self.assertTrue(text.startswith(f"{self.deck}{DECK}"), text)
        self.assert_only()

    def test_summary_goes_by_what_is_seen(self):
        hidden = deck.shape(9, "Unseen", extra=' hidden="1"', text=deck.text_body(deck.paragraph(deck.run("unseen"))))
        text = self.summary_of((deck.title("x" * 200) + hidden, ""), (deck.title(" "), ' show="0"'),
                               (deck.title("a\u009b31mb") + deck.group(), ""), size=(400, 300.5))
        self.assertIn(": a presentation of 3 slides of 400 x 300.5 points\n", text)
        self.assertIn(f"\n  {1:>7} {2:>7} {5:>8} {0:>10} {0:>8} {0:>7} {0:>7} {0:>7} {0:>7} {1:>7}\n", text)
        self.assertIn("\nIt begins:\n  1. " + "x" * 75 + "\u2026\n  2. (no title) (hidden)\n"
                      "  3. a\\xC2\\x9B31mb\n", text)
        self.assertNotIn("unseen", text)

    def test_summary_shows_six_titles(self):
        text = self.summary_of(*[(deck.title(f"slide {i}"), "") for i in range(1, 9)])
        self.assertIn("\nIt begins:\n" + "".join(f"  {i}. slide {i}\n" for i in range(1, 7)), text)
        self.assertNotIn("slide 7", text)

    def test_summary_of_no_slides_shows_no_beginning(self):
        text = self.summary_of()
        self.assertIn(": a presentation of 0 slides of 960 x 540 points\n", text)
        self.assertNotIn("It begins", text)


if __name__ == "__main__":
    main()
