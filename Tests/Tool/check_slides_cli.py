#!/usr/bin/python3
"""Holds `qvfilter import` and `preview` of presentations to their contract: keys, places, repeatability, media, damage.

Usage: check_slides_cli.py QVFILTER SAMPLES_FOLDER [unittest options]
"""
import os
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent.parent / "Samples"))
# pylint: disable=wrong-import-position
import deck
from cli_case import UUID, Case, main
from package_parts import write_package

# The documented keys of each object, in their order; others may stand between them.
KEYS = {
    "model": ["format", "slideWidth", "slideHeight", "masters", "layouts", "slides", "links", "media"],
    "layout": ["name", "master"],
    "slide": ["layout", "hidden", "notes", "shapes"],
    "shape": ["name", "kind", "placeholder", "x", "y", "width", "height", "rotation", "flipHorizontal", "flipVertical",
              "geometry", "fill", "text", "media", "children"],
    "media": ["id", "mimeType", "bytes"],
}


def box(shape):
    return [shape[key] for key in ("x", "y", "width", "height")]


class Model(Case):
    def assert_shapes(self, shapes, kinds):
        for shape in shapes:
            kinds.append(shape["kind"])
            self.assert_order(KEYS["shape"], shape)
            for key in KEYS["shape"][7:10]:
                self.assertIn(key, shape)
            self.assert_shapes(shape.get("children", []), kinds)

    def test_keys_keep_their_order(self):
        model, kinds = self.model_of(self.deck), []
        self.assertEqual([key for key in model if key in KEYS["model"]], KEYS["model"])
        for slide in model["slides"]:
            self.assert_order(KEYS["slide"], slide)
            self.assert_shapes(slide["shapes"], kinds)
        for kind, values in (("layout", model["layouts"]), ("media", model["media"])):
            for value in values:
                self.assert_order(KEYS[kind], value)
        self.assertEqual({kind: kinds.count(kind) for kind in kinds},
                         {"shape": 32, "group": 1, "connector": 2, "picture": 1, "table": 1, "chart": 1})

    def test_slides_are_told_with_what_they_are_made_after(self):
        model = self.model_of(self.deck)
        self.assertEqual((model["format"], model["slideWidth"], model["slideHeight"]), ("pptx", 960, 540))
        self.assertEqual(model["masters"], [{"name": "Harbour"}])
        self.assertEqual(model["layouts"], [{"name": "Title Slide", "master": "Harbour"},
                                            {"name": "Title and Content", "master": "Harbour"}])
        slides = model["slides"]
        self.assertEqual([slide["layout"] for slide in slides], ["Title Slide"] + ["Title and Content"] * 5)
        self.assertEqual([slide["hidden"] for slide in slides], [False] * 5 + [True])
        self.assertEqual([slide["notes"] for slide in slides if "notes" in slide],
                         ["Say that the southern quay opens again in spring.\nThe table counts ships that left."])
        self.assertEqual([slide.get("background") for slide in slides], [None] + ["FFFFFF"] * 5)
        self.assertEqual([slide.get("name") for slide in slides], [None, None, "Shapes", None, None, None])

    def test_placeholders_take_over_their_places_and_looks(self):
        title, body, footer, number = self.model_of(self.deck)["slides"][1]["shapes"]
        self.assertEqual([shape["placeholder"] for shape in (title, body, footer, number)],
                         ["title", "obj", "ftr", "sldNum"])
        self.assertEqual([box(shape) for shape in (title, body, footer, number)],
                         [[48, 32, 800, 70], [48, 120, 864, 360], [320, 500, 320, 26], [692, 500, 220, 26]])
        run = title["paragraphs"][0]["runs"][0]
        self.assertEqual([run[key] for key in ("text", "size", "color", "font")],
                         ["The year in short", 34, "0B3C5D", "Cambria"])
        items = [(paragraph["level"], paragraph.get("label")) for paragraph in body["paragraphs"]]
        self.assertEqual(items, [(0, "\u2022"), (1, "\u2013"), (1, "\u2013"), (0, "\u2022"), (0, "1."), (1, "a)"),
                                 (1, "b)"), (0, "2."), (0, None)])
        self.assertEqual(body["text"].split("\n")[-1], "More at the office.")
        self.assertIn({"text": "the office", "hyperlink": "https://harbour.example/"},
                      [{key: run[key] for key in ("text", "hyperlink") if key in run}
                       for run in body["paragraphs"][-1]["runs"]])

    def test_shapes_are_told_as_they_look(self):
        shapes = {shape["name"]: shape for shape in self.model_of(self.deck)["slides"][2]["shapes"]}
        self.assertEqual([shapes[name].get("geometry") for name in ("Gradient", "Shadow", "Boat", "Group 29")],
                         ["ooxml-roundRect", "ooxml-wedgeRoundRectCallout", "custom", None])
        self.assertEqual([shapes[name].get("fill") for name in ("Gradient", "Shadow", "Arc")],
                         [None, "EEF4F7", "5B8E7D"])
        self.assertEqual([name for name in shapes if shapes[name].get("shadow")], ["Shadow", "Turned", "From", "To"])
        self.assertEqual(shapes["Shadow"]["line"], {"width": 1.5, "color": "0E7C86"})
        self.assertEqual((shapes["Turned"]["rotation"], shapes["Mirrored"]["flipHorizontal"],
                          shapes["Dashed"]["flipVertical"], shapes["Group 29"]["rotation"]), (30, True, True, 15))
        self.assertEqual([round(turn) for turn in shapes["Turned in space"]["rotation3d"]],
                         [30, -46, -22])  # a camera turned by latitude 20 and longitude 310, in other axes
        self.assertEqual([box(child) for child in shapes["Group 29"]["children"]],
                         [[370, 290, 60, 60], [400, 345, 130, 45]])
        self.assertEqual(shapes["Boat"]["description"], "A boat with a red sail")
        self.assertIn("media", shapes["Seal"])

    def test_pictures_tables_and_charts_are_told(self):
        slides = self.model_of(self.deck)["slides"]
        picture, table = slides[3]["shapes"][1:3]
        self.assertEqual([round(picture["crop"][side], 5) for side in ("left", "top", "right", "bottom")],
                         [0.1, 0, 0.2, 0.25])
        self.assertEqual(table["rows"], [["Quay", "Ships", "Tonnes"], ["North", "211", "84,300"], ["198", "79,150"],
                                         ["South", "none: under repair"]])
        chart = slides[4]["shapes"][1]
        self.assertEqual((chart["type"], chart["title"], len(chart["series"])), ("bar", "Ships by season", 2))


class Runs(Case):
    def test_media_folder_holds_both_pictures(self):
        model = self.model_of(self.deck, "--media", "media")
        files = {path.name: path.read_bytes() for path in (self.folder / "media").iterdir()}
        parts = deck.parts()
        self.assertEqual([files.pop(entry["id"]) for entry in model["media"]],
                         [parts["ppt/media/seal.png"], parts["ppt/media/tides.png"]])
        self.assertEqual(files, {})

    def test_sequential_ids_make_two_runs_the_same(self):
        self.assertNotRegex(self.assert_two_runs_are_the_same(self.deck), UUID)

    def test_standard_input_is_read_as_a_file_is(self):
        self.assertEqual(self.model_of("-", stdin=self.deck.read_bytes()), self.model_of(self.deck))

    def test_page_is_written_whole(self):
        self.expect(0, "preview", self.deck, "-o", "page.html")
        page = (self.folder / "page.html").read_bytes()
        self.assertTrue(page.startswith(b"<!DOCTYPE html>") and page.endswith(b"</html>\n"))
        self.assertEqual(self.expect(0, "preview", self.deck, "-o", "-").stdout, page)
        self.assert_only("page.html")

    def test_neither_locale_nor_time_zone_matters(self):
        for arguments in (["import", self.deck, "--model", "-", "--ids", "sequential"],
                          ["preview", self.deck, "-o", "-"]):
            plain = self.expect(0, *arguments).stdout
            for change in ({"LC_ALL": "C"}, {"LC_ALL": "de_DE.UTF-8", "LANG": "de_DE.UTF-8"}, {"TZ": "Asia/Kathmandu"}):
                outcome = self.expect(0, *arguments, environment={**os.environ, **change})
                self.assertEqual((outcome.stdout, outcome.stderr), (plain, b""), change)
            self.assertEqual(self.expect(0, *arguments, environment={}).stdout, plain)

    def test_damaged_presentation_is_refused_and_other_damage_is_reported(self):
        for part, status in (("presentation", 1), ("slideMasters/slideMaster1", 0), ("slideLayouts/slideLayout2", 0),
                             ("slides/slide3", 0), ("notesSlides/notesSlide1", 0), ("charts/chart1", 0),
                             ("theme/theme1", 0), ("tableStyles", 0)):
            with self.subTest(part):
                parts = deck.parts()
                body = parts[f"ppt/{part}.xml"]
                parts[f"ppt/{part}.xml"] = body[:len(body) // 2]
                write_package(self.folder / "cut.pptx", parts)
                outcome = self.expect(status, "import", "cut.pptx", "--report", "-")
                self.assertIn(f"ppt/{part}.xml".encode(), outcome.stderr if status else outcome.stdout)
                self.assertEqual(outcome.stdout == b"", status == 1)


if __name__ == "__main__":
    main()
