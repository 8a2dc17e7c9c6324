#!/usr/bin/python3
"""Proves that the comparisons of text documents see what they must see: fake_text_import.py plays the program."""
import io
import os
import pathlib
import shutil
import sys
import tempfile
import unittest

import text_parts as parts
from fake_text_import import DAMAGES
from hostile_packages import packed
from text_numbers import Numbering
from text_reader import TextReader, flatten
from text_styles import Look, Styles, Theme
from text_xml import parse
from tool_runner import run

HERE = pathlib.Path(__file__).resolve().parent

# What each damage must be called, by the script that must see it.
TEXTS = {
    "text_changed": "text 1", "paragraph_lost": "missing 1", "paragraph_invented": "invented 1", "table_lost": "missing 1",
    "row_lost": "rows 1", "cell_lost": "cells 1", "span_changed": "spans 1", "cell_text_changed": "text 1",
    "section_lost": "sections 1", "section_moved": "first block 1", "page_changed": "page 1",
    "header_lost": "header missing 1", "header_changed": "header text 1", "footer_lost": "footer missing 1",
    "note_lost": "note missing 1", "note_invented": "note invented 1", "box_lost": "text box 1",
}
LOOKS = {
    "bold_turned": "bold 1", "italic_turned": "italic 1", "size_changed": "size 1", "color_changed": "color 1",
    "run_lost": "runs 1", "hidden_shown": "runs 1", "style_changed": "style 1", "label_changed": "label 1",
    "label_lost": "label 1", "level_changed": "level 1",
}


def section(*references, width=12240):
    lines = "".join(f'<w:{kind}Reference w:type="{pages}" r:id="{part}"/>' for kind, pages, part in references)
    return f'<w:sectPr>{lines}<w:pgSz w:w="{width}" w:h="15840"/></w:sectPr>'


def sample():
    """A document with one of everything that is compared."""
    box = f"<w:txbxContent>{parts.paragraph('in a box')}</w:txbxContent>"
    body = (
        parts.paragraph(parts.run("It begins", '<w:color w:val="336699"/>'), parts.run("hidden", "<w:vanish/>"),
                        properties='<w:pStyle w:val="Heading1"/>')
        + parts.paragraph("then", '<w:r><w:footnoteReference w:id="2"/></w:r>',
                          f"<w:r><w:pict><v:shape><v:textbox>{box}</v:textbox></v:shape></w:pict></w:r>",
                          properties=section(("header", "default", "header1"), ("footer", "default", "footer1")))
        + parts.item("one") + parts.item("two")
        + parts.table([parts.cell(parts.paragraph("wide"), '<w:gridSpan w:val="2"/>'), parts.cell(parts.paragraph("c"))],
                      [parts.cell(parts.paragraph(text)) for text in "def"])
        + parts.paragraph("and ends") + section())
    return parts.document(
        body, styles=parts.style("Heading1", "heading 1", "<w:rPr><w:b/><w:sz w:val='32'/></w:rPr>"),
        numbering=parts.lists(parts.level(0)), header1=parts.paragraph("above"), footer1=parts.paragraph("below"),
        footnotes=f'<w:footnote w:id="2">{parts.paragraph("a note")}</w:footnote>')


class Compare(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.expected = self.folder / "expected.tsv"
        (self.folder / "sample.docx").write_bytes(packed(sample()))

    def compare(self, script, damage="", rows="", environment=()):
        self.expected.write_text("# file, what, reason\n" + rows, encoding="utf-8")
        return run([sys.executable, str(HERE / script), str(HERE / "fake_text_import.py"), str(self.folder),
                    str(self.expected), "--jobs", "1"],
                   environment={**os.environ, "QV_FAKE_DAMAGE": damage, **dict(environment)})

    def suite(self):
        """An environment whose office suite writes what the fake program would."""
        tools = self.folder / "bin"
        tools.mkdir()
        script = ('for file in "$@"; do case $file in *.docx) "$QV_PYTHON" "$QV_FAKE" convert "$file" '
                  '"$6/$(basename "$file" .docx).txt";; esac; done')
        (tools / "soffice").write_text(f"#!/bin/sh\nunset QV_FAKE_DAMAGE\n{script}\n", encoding="utf-8")
        (tools / "soffice").chmod(0o755)
        return {"PATH": f"{tools}:{os.environ['PATH']}", "QV_PYTHON": sys.executable,
                "QV_FAKE": str(HERE / "fake_text_import.py")}

    def test_honest_import_passes(self):
        for script, counted in (("compare_texts.py", b"1 text boxes"), ("compare_looks.py", b"2 labels")):
            with self.subTest(script):
                outcome = self.compare(script)
                self.assertEqual((outcome.status, outcome.stderr), (0, b""), outcome.stdout)
                self.assertIn(counted.replace(b"1 text boxes", b"1 text boxes"), outcome.stdout)

    def test_each_damage_is_seen(self):
        self.assertEqual(TEXTS.keys() | LOOKS.keys(), DAMAGES.keys())
        for script, damages in (("compare_texts.py", TEXTS), ("compare_looks.py", LOOKS)):
            for damage, category in damages.items():
                with self.subTest(damage):
                    outcome = self.compare(script, damage)
                    self.assertEqual((outcome.status, outcome.stderr), (1, b""), outcome.stdout)
                    self.assertIn(f"sample.docx\t{category}\n", outcome.stdout.decode())

    def test_lost_words_are_seen(self):
        suite = self.suite()
        outcome = self.compare("compare_plain_text.py", environment=suite.items())
        self.assertEqual((outcome.status, outcome.stderr), (0, b""), outcome.stdout)
        self.assertIn(b"14 words alike", outcome.stdout)
        outcome = self.compare("compare_plain_text.py", "any", environment=suite.items())
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"sample.docx\twords here only 1\n", outcome.stdout)
        self.assertIn(b"sample.docx\twords there only 1\n", outcome.stdout)

    def test_failed_import_is_seen(self):
        outcome = self.compare("compare_texts.py", "no such damage")
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"sample.docx\timport 1", outcome.stdout)

    def test_listed_difference_passes_and_must_occur(self):
        row = "sample.docx\ttext 1\ta reason\n"
        self.assertEqual(self.compare("compare_texts.py", "text_changed", row).status, 0)
        outcome = self.compare("compare_texts.py", "", row)
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"sample.docx\ttext 1: is listed, but does not occur any more", outcome.stdout)

    def test_list_is_exact(self):
        outcome = self.compare("compare_texts.py", "", "gone.docx\ttext 1\tgone\n")
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"gone.docx: is listed, but there is no such file", outcome.stdout)
        outcome = self.compare("compare_texts.py", "", "sample.docx\ttext 1\n")
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"expected.tsv:2: three fields are needed", outcome.stderr)

    def test_empty_folder_and_lack_of_a_suite_are_skipped_by_name(self):
        shutil.rmtree(self.folder / "docx", ignore_errors=True)
        outcome = self.compare("compare_plain_text.py", environment={"PATH": "/nowhere"}.items())
        self.assertEqual(outcome.status, 77)
        self.assertIn(b"SKIPPED: no other office suite", outcome.stdout)
        (self.folder / "sample.docx").unlink()
        outcome = self.compare("compare_texts.py")
        self.assertEqual(outcome.status, 77)
        self.assertIn(b"SKIPPED: no text documents in ", outcome.stdout)


class Reader(unittest.TestCase):
    """The slow reader itself, where the corpus does not ask."""

    def read(self, body, **rest):
        return TextReader(io.BytesIO(packed(parts.document(body, **rest))))

    def text(self, inner):
        return next(flatten(self.read(parts.paragraph(inner)).blocks)).text

    def test_final_view(self):
        field = '<w:r><w:fldChar w:fldCharType="{}"/></w:r>'
        for inner, text in (
                (f"<w:ins>{parts.run('in')}</w:ins><w:del><w:r><w:delText>out</w:delText></w:r></w:del>", "in"),
                (f"<w:moveFrom>{parts.run('out')}</w:moveFrom><w:moveTo>{parts.run('in')}</w:moveTo>", "in"),
                (field.format("begin") + "<w:r><w:instrText>CODE</w:instrText></w:r>" + parts.run("code")
                 + field.format("separate") + parts.run("result") + field.format("end") + parts.run("!"), "result!"),
                ("<w:r><w:ruby><w:rt>" + parts.run("above") + "</w:rt><w:rubyBase>" + parts.run("base")
                 + "</w:rubyBase></w:ruby></w:r>", "base"),
                ('<w:r><mc:AlternateContent><mc:Choice Requires="wps"><w:t>choice</w:t></mc:Choice><mc:Fallback>'
                 "<w:t>fallback</w:t></mc:Fallback></mc:AlternateContent></w:r>", "choice"),
                ('<w:r><mc:AlternateContent><mc:Choice Requires="none"><w:t>choice</w:t></mc:Choice><mc:Fallback>'
                 "<w:t>fallback</w:t></mc:Fallback></mc:AlternateContent></w:r>", "fallback"),
                ("<w:r><w:t>a</w:t><w:tab/><w:br/><w:noBreakHyphen/><w:softHyphen/></w:r>", "a\t\n\u2011\u00AD"),
                ("<m:oMath><m:f><m:num><m:r><m:t>1</m:t></m:r></m:num></m:f></m:oMath>", "1")):
            with self.subTest(text):
                self.assertEqual(self.text(inner), text)

    def test_toggles_turn_each_other_over(self):
        styles = Styles(parse(parts.part("styles", parts.style("P", "p", "<w:rPr><w:b/></w:rPr>")
                                         + parts.style("C", "c", "<w:rPr><w:b/></w:rPr>", "character")).encode(), "styles"))
        for direct, is_bold in (("", True), ('<w:rStyle w:val="C"/>', False), ('<w:rStyle w:val="C"/><w:b/>', True),
                                ('<w:b w:val="0"/>', False)):
            with self.subTest(direct):
                node = parse(parts.part("rPr", direct).encode(), "run")
                self.assertEqual(styles.look("P", node, {})[0], Look(is_bold, False, None, None))

    def test_labels_count_and_restart(self):
        levels = parts.level(0) + parts.level(1, "%1.%2", "lowerLetter") + parts.level(2, "(%3)", "upperRoman", start="4")
        numbering = Numbering(parse(parts.part("numbering", parts.lists(levels)).encode(), "numbering"))
        labels = [numbering.label("1", at) for at in (0, 1, 1, 2, 0, 1, 2, 2)]
        self.assertEqual(labels, ["1.", "1.a", "1.b", "(IV)", "2.", "2.a", "(IV)", "(V)"])
        self.assertEqual(Numbering(parse(parts.part("numbering", parts.lists(levels)).encode(), "numbering")).label("1", 2),
                         "(IV)")

    def test_theme_colors_are_tinted_and_shaded(self):
        scheme = '<a:accent1><a:srgbClr val="4F81BD"/></a:accent1><a:dk1><a:sysClr val="x" lastClr="000000"/></a:dk1>'
        theme = Theme(parse(parts.part("theme", f"<a:clrScheme>{scheme}</a:clrScheme>").encode(), "theme"))
        self.assertEqual(theme.color("accent1", None, "BF"), "376092")
        self.assertEqual(theme.color("text1", "80", None), "7F7F7F")
        self.assertIsNone(theme.color("accent2", None, None))


if __name__ == "__main__":
    unittest.main()
