#!/usr/bin/python3
"""Holds `qvfilter convert` to its contract: what it writes of the demonstration text, exit statuses, what it leaves.

Usage: check_convert.py QVFILTER SAMPLES_FOLDER [unittest options]
"""
import json
import pathlib
import re
import shutil
import sys
import urllib.parse

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent.parent / "Samples"))
# pylint: disable=wrong-import-position
import deck
import report
from cli_case import UUID, Case, main
from package_parts import write_package

TEXT = """\
A harbour\u2019s year
Report of the harbour office, 2024
1. The year\t1
1.1. What came in\t1
2. What is to be done\t2
1. The year
The harbour was busier than ever, and colder.[1]
1.1. What came in
Quay\tShips\tTonnes
North\t211\t84,300
198\t79,150
South\tnone: under repair
 The tides, beside a stamp:\x20
A seal stands beside this paragraph, at the right margin.
2. What is to be done
a) dredge the channel
i. north of the light
ii. south of it
b) mend the southern quay
And every month:
a) count the gulls
\u2022 grey ones
\u2022 all others
More at the office.
Signed,
the harbour master

[1] By 1.5 \u00b0C.
"""

SLIDES_TEXT = """\
A harbour\u2019s year
Report of the harbour office, 2024

The year in short
\u2022 The harbour was busier than ever, and colder
\u2013 409 ships at the north quay
\u2013 none at the south quay: under repair
\u2022 What is to be done
1. Dredge the channel
a) north of the light
b) south of it
2. Mend the southern quay
More at the office.
Harbour office
2

What shapes can be
Gradient
Shadow
In space
30\u00b0
A group
From
To
Harbour office
3

Tides and quays
Quay\tShips\tTonnes
North\t211\t84,300
198\t79,150
South\tnone: under repair
The tides of one week
Harbour office
4
Notes:
Say that the southern quay opens again in spring.
The table counts ships that left.

Ships by season
Every season was better than the year before.
Back to the start
Harbour office
5

Kept for questions
\u2022 The quay was closed in May
\u2013 for eleven days
"""

# {} stand for the places of pictures.
SLIDES_MARKDOWN = """\
## A harbour\u2019s year

Report of the harbour office, **2024**

## The year in short

- The harbour was *busier* than ever, and **colder**
  - 409 ships at the north quay
  - none at the south quay: under repair
- What is to be done
1. Dredge the channel
   - a) north of the light
   - b) south of it
2. Mend the southern quay

More at [the office](<https://harbour.example/>).

Harbour office

2

## What shapes can be

Gradient

Shadow

In space

30\u00b0

A group

From

To

Harbour office

3

## Tides and quays

![The tides of one week](<{}>)

| **Quay** | **Ships** | **Tonnes** |
| --- | --- | --- |
| North | 211 | 84,300 |
|  | 198 | 79,150 |
| South | *none: under repair* |

*The tides of one week*

Harbour office

4

> Say that the southern quay opens again in spring.
>
> The table counts ships that *left*.

## Ships by season

Every season was better than the year before.

Back to the start

Harbour office

5

## Kept for questions

- The quay was closed in May
  - for eleven days
"""

MARKDOWN = """\
# A harbour\u2019s year

Report of the harbour office, **2024**

1\\. The year 1

1\\.1. What came in 1

2\\. What is to be done 2

# 1. The year

The harbour was *busier* than ever, and **colder**.[^1]

## 1.1. What came in

| **Quay** | **Ships** | **Tonnes** |
| --- | --- | --- |
| North | 211 | 84,300 |
|  | 198 | 79,150 |
| South | *none: under repair* |

![Chart of the tides](<{}>) The tides, beside a stamp: ![picture](<{}>)

![Seal](<{}>)A seal stands beside this paragraph, at the right margin.

# 2. What is to be done

- a) dredge the channel
  - i. north of the light
  - ii. south of it
- b) mend the southern quay

And every month:

- a) count the gulls
- grey ones
- all others

More at [the office](<https://harbour.example/>).

Signed,\\
the harbour master

[^1]: By 1.5 \u00b0C.
"""

PICTURE = re.compile(r"!\[[^]]*\]\(<([^>]*)>\)")


def without_ids(text):
    """The same text for the same structure, whatever the identifiers are."""
    known = {}
    return UUID.sub(lambda match: known.setdefault(match[0], f"uuid{len(known) + 1}"), text)


class Text(Case):
    def convert(self, source, name, *arguments, **options):
        outcome = self.expect(0, "convert", source, name, *arguments, **options)
        self.assertEqual((outcome.stdout, outcome.stderr), (b"", b""))
        return (self.folder / name).read_bytes().decode("utf-8")

    def test_plain_text_is_what_a_reader_sees(self):
        self.assertEqual(self.convert(self.report, "report.txt"), TEXT)
        self.assertEqual(self.convert("-", "stdin.TXT", stdin=self.report.read_bytes()), TEXT)
        self.assert_only("report.txt", "stdin.TXT")

    def test_markdown_without_a_folder_names_the_pictures(self):
        expected = re.sub(r"!\[([^]]*)\]\(<\{\}>\)", r"\\[\1\\]", MARKDOWN)
        self.assertEqual(self.convert(self.report, "report.md"), expected)
        self.assertIn("\\[Chart of the tides\\] The tides", expected)
        self.assert_only("report.md")

    def test_markdown_links_to_the_pictures_of_the_folder(self):
        parts = report.parts()
        pictures = [parts[f"word/media/{name}.png"] for name in ("tides", "seal", "seal")]
        for output, media in (("report.md", "pictures"), ("a/report.md", "pictures"), ("report.md", "a/b/pictures/"),
                              ("a/report.md", "a/pictures"), ("a/b/report.md", "two words"), ("a/report.md", ".")):
            with self.subTest((output, media)):
                (self.folder / "a/b").mkdir(parents=True, exist_ok=True)
                folder = (self.folder / output).parent
                text = self.convert(self.report, output, "--media", media)
                links = [urllib.parse.unquote(link) for link in PICTURE.findall(text)]
                self.assertEqual(PICTURE.sub(lambda match: match[0].replace(match[1], "{}"), text), MARKDOWN)
                self.assertFalse([link for link in links if pathlib.PurePosixPath(link).is_absolute()])
                self.assertEqual([(folder / link).read_bytes() for link in links], pictures)
                kept = [path.resolve() for path in (self.folder / media).iterdir() if path.suffix == ".png"]
                self.assertEqual(sorted(kept), sorted({(folder / link).resolve() for link in links}))
                self.assertEqual(len(kept), 2)
                for path in self.folder.iterdir():
                    if path.is_dir():
                        shutil.rmtree(path)
                    else:
                        path.unlink()

    def test_slides_are_told_one_by_one(self):
        self.assertEqual(self.convert(self.deck, "deck.txt"), SLIDES_TEXT)
        self.assertEqual(self.convert(self.deck, "deck.md"),
                         SLIDES_MARKDOWN.replace("![The tides of one week](<{}>)", "\\[Picture 3\\]"))
        text = self.convert(self.deck, "deck.md", "--media", "pictures")
        self.assertEqual(PICTURE.sub(lambda match: match[0].replace(match[1], "{}"), text), SLIDES_MARKDOWN)
        self.assertEqual([(self.folder / link).read_bytes() for link in PICTURE.findall(text)],
                         [deck.parts()["ppt/media/tides.png"]])
        self.assert_only("deck.txt", "deck.md", "pictures")

    def test_page_is_that_of_preview(self):
        for document in (self.report, self.orders, self.deck):
            page = self.expect(0, "preview", document, "-o", "-").stdout
            self.assertEqual(self.convert(document, "page.html").encode(), page)
            self.assertEqual(self.convert(document, "page.html", "--media", "media").encode(), page)
            self.assertTrue(list((self.folder / "media").iterdir()))
            shutil.rmtree(self.folder / "media")

    def test_json_is_the_model_of_import(self):
        for document in (self.report, self.orders, self.deck):
            model = self.expect(0, "import", document, "--model", "-").stdout.decode()
            self.assertNotEqual(without_ids(model), model)
            self.assertEqual(without_ids(self.convert(document, "model.json")), without_ids(model))
        self.convert(self.report, "model.json", "--media", "media")
        media = json.loads((self.folder / "model.json").read_bytes())["media"]
        self.assertEqual({path.name: path.stat().st_size for path in (self.folder / "media").iterdir()},
                         {entry["id"]: entry["bytes"] for entry in media})

    def test_workbooks_have_no_text(self):
        for extension in (".txt", ".md", ".MD"):
            outcome = self.expect(2, "convert", self.orders, f"orders{extension}", "--media", "media", "--report", "-")
            self.assertEqual(outcome.error_lines(), [
                f"qvfilter: a workbook cannot be converted to {extension.lower()}, only to .html and .json"])
            self.assertEqual(outcome.stdout, b"")
            self.assert_only()

    def test_same_document_gives_the_same_bytes(self):
        for document in (self.report, self.deck):
            for extension in ("txt", "md", "html"):
                name = f"out.{extension}"
                self.assertEqual(self.convert(document, name), self.convert(document, name), (document, name))

    def test_report_is_that_of_import(self):
        for document in (self.report, self.orders, self.deck, self.samples / "bad-values.xlsx"):
            told = self.expect(0, "import", document, "--report", "-").stdout
            self.convert(document, "page.html", "--report", "report.json")
            self.assertEqual((self.folder / "report.json").read_bytes(), told)
            outcome = self.expect(0, "convert", document, "page.html", "--report", "-")
            self.assertEqual((outcome.stdout, outcome.stderr), (told, b""))
        self.assertGreaterEqual(len(json.loads(told)["messages"]), 10)
        self.assert_only("page.html", "report.json")


class Usage(Case):
    def test_wrong_usage_is_status_2_and_says_why_on_stderr(self):
        for arguments in ([], [self.report], [self.report, "out"], [self.report, "out.docx"], [self.report, "-"],
                          [self.report, "out.txt.gz"], [self.report, "out.md", "out.txt"],
                          [self.report, "out.md", "--model", "x"], [self.report, "out.json", "--report", "./out.json"]):
            with self.subTest(arguments):
                outcome = self.expect(2, "convert", *arguments)
                self.assertEqual(outcome.stdout, b"")
                self.assertTrue(outcome.stderr.strip())
                self.assert_only()
        outcome = self.expect(2, "convert", self.report, "out.docx")
        for extension in (b".txt", b".md", b".html", b".json"):
            self.assertIn(extension, outcome.stderr)

    def test_help_is_on_stdout(self):
        self.assertIn(b"convert", self.expect(0, "--help").stdout)
        outcome = self.expect(0, "convert", "--help")
        for word in (b"IN", b"OUT", b"--media", b"--report", b"--follow-links", b".txt", b".md", b".html", b".json"):
            self.assertIn(word, outcome.stdout)
        self.assertEqual(outcome.stderr, b"")

    def test_output_does_not_replace_the_document(self):
        shutil.copy(self.report, self.folder / "in.md")
        (self.folder / "link.txt").symlink_to("in.md")
        for arguments in (["in.md"], ["./none/../in.md"], [self.folder / "in.md"], ["link.txt"],
                          ["out.md", "--report", "in.md"]):
            with self.subTest(arguments):
                self.expect(2, "convert", "in.md", *arguments)
                self.assert_only("in.md", "link.txt")
        self.assertEqual((self.folder / "in.md").read_bytes(), self.report.read_bytes())


class Failures(Case):
    def test_unwritable_output_is_status_4_and_leaves_nothing(self):
        (self.folder / "file").write_bytes(b"")
        (self.folder / "folder.md").mkdir()
        (self.folder / "full.txt").symlink_to("/dev/full")
        there = ("file", "folder.md", "full.txt")
        for output in ("nowhere/out.md", "file/out.txt", "folder.md", "full.txt"):
            with self.subTest(output):
                outcome = self.expect(4, "convert", self.report, output, "--media", "media", "--report", "report.json")
                self.assertIn(output.partition("/")[0].encode(), outcome.stderr)
                self.assertEqual(outcome.stdout, b"")
                self.assert_only(*there)
                self.assertEqual(list((self.folder / "folder.md").iterdir()), [])
        for arguments in (["--report", "nowhere/report.json"], ["--report", "/dev/full"], ["--media", "file"],
                          ["--media", "file/media"]):
            with self.subTest(arguments):
                self.expect(4, "convert", self.report, "out.md", *arguments)
                self.assert_only(*there)
        self.assertEqual((self.folder / "file").read_bytes(), b"")

    def test_old_output_is_replaced_whole_or_not_at_all(self):
        (self.folder / "out.md").write_bytes(b"x" * 1000000)
        (self.folder / "harm.docx").write_bytes(self.report.read_bytes()[:3000])
        self.expect(1, "convert", "harm.docx", "out.md")
        self.expect(4, "convert", self.report, "out.md", "--report", "/dev/full")
        self.assertEqual((self.folder / "out.md").stat().st_size, 1000000)
        self.expect(0, "convert", self.report, "out.md")
        self.assertLess((self.folder / "out.md").stat().st_size, 10000)
        self.assert_only("harm.docx", "out.md")

    def test_bad_input_is_status_1_and_leaves_nothing(self):
        cut = report.parts()
        cut["word/document.xml"] = cut["word/document.xml"][:3000]
        write_package(self.folder / "cut.docx", cut)
        cut = deck.parts()
        cut["ppt/presentation.xml"] = cut["ppt/presentation.xml"][:1000]
        write_package(self.folder / "slides.pptx", cut)
        (self.folder / "harm.docx").write_bytes(b"no package")
        for name, said in (("none.docx", "none.docx"), ("harm.docx", "harm.docx"),
                           ("cut.docx", 'part "word/document.xml" is not well-formed XML'),
                           ("slides.pptx", 'part "ppt/presentation.xml" is not well-formed XML')):
            for extension in (".txt", ".md", ".html", ".json"):
                with self.subTest((name, extension)):
                    outcome = self.expect(1, "convert", name, f"out{extension}", "--media", "media", "--report", "-")
                    self.assertIn(said.encode(), outcome.stderr)
                    self.assertEqual(outcome.stdout, b"")
                    self.assert_only("cut.docx", "harm.docx", "slides.pptx")

    def test_names_are_printed_harmlessly(self):
        outcome = self.expect(1, "convert", "no\x1b[31m\nwhere.docx", "out.md")
        self.assertNotIn(b"\x1b", outcome.stderr)
        self.expect(4, "convert", self.report, "no\x1b\nwhere/out.md")
        self.assert_only()


if __name__ == "__main__":
    main()
