#!/usr/bin/python3
"""Holds `qvfilter import` and `preview` of text documents to their contract: keys, repeatability, media, exit statuses.

Usage: check_text_cli.py QVFILTER SAMPLES_FOLDER [unittest options]
"""
import os
import pathlib
import shutil
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent.parent / "Samples"))
# pylint: disable=wrong-import-position
import report
from cli_case import UUID, Case, main
from package_parts import write_package

# The documented keys of each object, in their order; others may stand between them.
KEYS = {
    "model": ["format", "blocks", "sections", "styles", "notes", "links", "media"],
    "paragraph": ["kind", "style", "alignment", "text", "numbering", "bookmarks", "outlineLevel", "runs"],
    "numbering": ["list", "level", "text"],
    "run": ["text", "bold", "italic", "size", "color", "font", "hidden", "hyperlink", "media", "change"],
    "change": ["kind", "author", "date"],
    "table": ["kind", "columnWidths", "rows"],
    "cell": ["columnSpan", "rowSpan", "blocks"],
    "tableOfContents": ["kind", "levels", "styles", "blocks"],
    "section": ["firstBlock", "width", "height", "margins", "headers", "footers"],
    "margins": ["left", "top", "right", "bottom"],
    "style": ["name", "type", "parent"],
    "note": ["id", "kind", "text"],
    "media": ["id", "mimeType", "bytes"],
}


class Model(Case):
    def assert_blocks(self, blocks, kinds):
        for block in blocks:
            kinds.append(block["kind"])
            self.assert_order(KEYS[block["kind"]], block)
            for kind, values in (("numbering", [block.get("numbering", {})]), ("run", block.get("runs", [])),
                                 ("change", [run.get("change", {}) for run in block.get("runs", [])])):
                for value in values:
                    self.assert_order(KEYS[kind], value)
            for cell in (cell for row in block.get("rows", []) for cell in row):
                self.assertEqual([key for key in cell if key in KEYS["cell"]], KEYS["cell"])
                self.assert_blocks(cell["blocks"], kinds)
            self.assert_blocks(block.get("blocks", []), kinds)

    def test_keys_of_a_text_keep_their_order(self):
        model, kinds = self.model_of(self.report), []
        self.assertEqual([key for key in model if key in KEYS["model"]], KEYS["model"])
        self.assert_blocks(model["blocks"], kinds)
        self.assertEqual([kinds.count(kind) for kind in ("paragraph", "table", "tableOfContents")], [31, 1, 1])
        section = model["sections"][0]
        for kind, value in [("section", section), ("margins", section["margins"]), ("note", model["notes"][0])]:
            self.assertEqual([key for key in value if key in KEYS[kind]], KEYS[kind])
        for kind, values in (("style", model["styles"]), ("media", model["media"])):
            for value in values:
                self.assert_order(KEYS[kind], value)

    def test_text_is_told_as_it_is_seen(self):
        model = self.model_of(self.report)
        blocks = model["blocks"]
        self.assertEqual(model["format"], "docx")
        labels = [(block["numbering"]["text"], block["numbering"]["level"]) for block in blocks if "numbering" in block]
        self.assertEqual(labels, [("1.", 0), ("1.1.", 1), ("2.", 0), ("a)", 0), ("i.", 1), ("ii.", 1), ("b)", 0),
                                  ("a)", 0), ("\u2022", 0), ("\u2022", 0)])
        headings = [(block["style"], block["outlineLevel"], block["text"])
                    for block in blocks if "outlineLevel" in block]
        self.assertEqual(headings, [("heading 1", 0, "The year"), ("heading 2", 1, "What came in"),
                                    ("heading 1", 0, "What is to be done")])
        self.assertEqual(blocks[0]["style"], "Title")
        mended = next(block for block in blocks if "mend" in block.get("text", ""))
        self.assertEqual(mended["text"], "mend the southern quay")
        self.assertEqual([run["change"]["kind"] for run in mended["runs"] if "change" in run], ["deleted", "inserted"])
        self.assertEqual((blocks[-1]["text"], blocks[-1]["alignment"]), ("Signed,\nthe harbour master", "right"))
        table = next(block for block in blocks if block["kind"] == "table")
        self.assertEqual(table["columnWidths"], [120, 90, 90])
        self.assertEqual([[(cell["blocks"][0]["text"], cell["columnSpan"], cell["rowSpan"]) for cell in row]
                          for row in table["rows"]],
                         [[("Quay", 1, 1), ("Ships", 1, 1), ("Tonnes", 1, 1)],
                          [("North", 1, 2), ("211", 1, 1), ("84,300", 1, 1)], [("198", 1, 1), ("79,150", 1, 1)],
                          [("South", 1, 1), ("none: under repair", 2, 1)]])
        contents = next(block for block in blocks if block["kind"] == "tableOfContents")
        self.assertEqual((contents["levels"], [entry["text"] for entry in contents["blocks"]]),
                         ([1, 2], ["1. The year\t1", "1.1. What came in\t1", "2. What is to be done\t2"]))
        section = model["sections"][0]
        self.assertEqual(section["headers"]["default"][0]["text"], "Harbour office\t2024")
        self.assertEqual(section["footers"]["default"][0]["text"], "Page 1")
        self.assertAlmostEqual(section["width"], 595.3, places=3)
        self.assertEqual([note["kind"] for note in model["notes"]], ["footnote"])


class Runs(Case):
    def test_media_folder_holds_both_pictures_of_a_text(self):
        model = self.model_of(self.report, "--media", "media")
        files = {path.name: path.read_bytes() for path in (self.folder / "media").iterdir()}
        parts = report.parts()
        self.assertEqual([files.pop(entry["id"]) for entry in model["media"]],
                         [parts["word/media/tides.png"], parts["word/media/seal.png"]])
        self.assertEqual(files, {})
        self.assertEqual([entry["mimeType"] for entry in model["media"]], ["image/png"] * 2)
        runs = [run for block in model["blocks"] for run in block.get("runs", []) if "media" in run]
        self.assertEqual([run["media"] for run in runs], [model["media"][i]["id"] for i in (0, 1, 1)])

    def test_sequential_ids_make_two_runs_the_same(self):
        text = self.assert_two_runs_are_the_same(self.report)
        self.assertRegex(text, r'"list": ?"id\d+"')
        self.assertNotRegex(text, UUID)

    def test_ids_are_uuids_otherwise(self):
        texts = [self.expect(0, "import", self.report, "--model", "-").stdout.decode() for _ in range(2)]
        ids = [set(UUID.findall(text)) for text in texts]
        self.assertEqual([len(found) for found in ids], [6, 6], "four lists and two pictures")
        self.assertFalse(ids[0] & ids[1])

    def test_standard_input_is_read_as_a_file_is(self):
        self.assertEqual(self.model_of("-", stdin=self.report.read_bytes()), self.model_of(self.report))
        page = self.expect(0, "preview", "-", "-o", "-", stdin=self.report.read_bytes()).stdout
        of_file = self.expect(0, "preview", self.report, "-o", "-").stdout
        self.assertEqual(page.replace(b"<title>qvfilter</title>", b"<title>report.docx</title>", 1), of_file)

    def test_name_of_the_file_does_not_matter(self):
        model = self.model_of(self.report)
        for name in ("report.xlsx", "no extension", "two words & \u00e4.docx"):
            shutil.copy(self.report, self.folder / name)
            self.assertEqual(self.model_of(name), model, name)

    def test_page_is_written_whole(self):
        self.expect(0, "preview", self.report, "-o", "page.html")
        page = (self.folder / "page.html").read_bytes()
        self.assertTrue(page.startswith(b"<!DOCTYPE html>") and page.endswith(b"</html>\n"))
        self.assertEqual(self.expect(0, "preview", self.report, "-o", "-").stdout, page)
        self.assertEqual(page.count(b'<section class="page '), 2, "the pages, and the notes")
        self.expect(4, "preview", self.report, "-o", "nowhere/page.html")
        self.expect(2, "preview", self.report, "-o", self.report)
        self.assert_only("page.html")

    def test_neither_locale_nor_time_zone_matters(self):
        for arguments in (["import", self.report, "--model", "-", "--ids", "sequential"],
                          ["preview", self.report, "-o", "-"]):
            plain = self.expect(0, *arguments).stdout
            for change in ({"LC_ALL": "C"}, {"LC_ALL": "de_DE.UTF-8", "LANG": "de_DE.UTF-8"}, {"TZ": "Asia/Kathmandu"}):
                outcome = self.expect(0, *arguments, environment={**os.environ, **change})
                self.assertEqual((outcome.stdout, outcome.stderr), (plain, b""), change)
            self.assertEqual(self.expect(0, *arguments, environment={}).stdout, plain)

    def test_damaged_text_is_refused_and_other_damage_is_reported(self):
        for part, status in (("document", 1), ("styles", 0), ("numbering", 0), ("footnotes", 0), ("header1", 0)):
            with self.subTest(part):
                parts = report.parts()
                body = parts[f"word/{part}.xml"]
                parts[f"word/{part}.xml"] = body[:len(body) // 2]
                write_package(self.folder / "cut.docx", parts)
                outcome = self.expect(status, "import", "cut.docx", "--report", "-")
                self.assertIn(f"word/{part}.xml".encode(), outcome.stderr if status else outcome.stdout)
                self.assertEqual(outcome.stdout == b"", status == 1)


if __name__ == "__main__":
    main()
