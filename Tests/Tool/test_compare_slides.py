#!/usr/bin/python3
"""Proves that the comparison of presentations sees what it must see: fake_slide_import.py plays the program."""
import collections
import io
import json
import os
import pathlib
import sys
import tempfile
import unittest
from dataclasses import astuple

import slide_parts as parts
from compare_slides import compare_model
from fake_slide_import import DAMAGES, make_model
from hostile_packages import packed
from package_parts import relations
from sheet_reader import Unreadable
from slide_reader import SlideReader
from tool_runner import run

HERE = pathlib.Path(__file__).resolve().parent
POINT = 12700
LAYOUT = "ppt/slideLayouts/slideLayout1.xml"
LINES = parts.paragraph("plain words") + parts.paragraph("and more")

# What each damage must be called.
SEEN = {
    "slide_lost": "slides 1", "slide_invented": "slides 1", "slides_swapped": "hidden 2, notes 2, shapes 2",
    "slide_narrowed": "slide size 1", "slide_lowered": "slide size 1", "slide_shown": "hidden 1",
    "slide_hidden": "hidden 1", "layout_renamed": "layout 1",
    "notes_changed": "notes 1", "notes_lost": "notes 1", "notes_invented": "notes 1", "shape_lost": "shapes 1",
    "shape_invented": "shapes 1", "shapes_swapped": "shapes 1", "name_changed": "shapes 1", "kind_changed": "kind 1",
    "moved_right": "place 1", "moved_up": "place 1", "widened": "place 1", "raised": "place 1", "place_lost": "place 1",
    "place_no_number": "place 1", "inherited_moved": "place 1", "turned": "rotation 1", "turned_back": "rotation 1",
    "turn_lost": "rotation 1", "turn_no_number": "rotation 1", "mirrored": "flip 1", "mirrored_back": "flip 1",
    "flip_lost": "flip 1", "placeholder_changed": "placeholder 1", "placeholder_lost": "placeholder 1",
    "placeholder_invented": "placeholder 1", "index_changed": "placeholder 1", "text_changed": "text 1",
    "text_lost": "text 1", "lines_joined": "text 1", "text_invented": "text 1", "paragraph_lost": "text 1",
    "cell_changed": "cells 1", "cell_lost": "cells 1", "row_lost": "cells 1", "rows_joined": "cells 1",
    "child_moved": "place 1", "child_lost": "shapes 1", "child_changed": "text 1", "children_lost": "shapes 1",
    "grandchild_widened": "place 1",
}


def at(x, y, width, height, attributes="", child_box=None):
    """The place of a shape, in points; child_box: of a group."""
    inner = ""
    if child_box:
        left, top, wide, high = (value * POINT for value in child_box)
        inner = f'<a:chOff x="{left}" y="{top}"/><a:chExt cx="{wide}" cy="{high}"/>'
    return parts.transform(x * POINT, y * POINT, width * POINT, height * POINT, attributes, inner)


def room(attributes, properties="", name="shape"):
    return parts.shape(properties=properties, name=name, placeholder=f"<p:ph {attributes}/>")


def sample():
    """A presentation with one of everything that is compared; its second slide is hidden."""
    child = parts.shape("inside", at(10, 10, 20, 20), "Child")
    grandchild = parts.shape("", at(1, 1, 2, 2), "Grandchild")
    first = (
        room('type="title"', name="Title") + parts.shape(LINES, at(30, 40, 50, 60), "Plain")
        + parts.shape("", at(5, 5, 20, 10, 'rot="2700000" flipV="1"'), "Turned")
        + parts.group(child + parts.group(grandchild), at(100, 100, 80, 80, child_box=(0, 0, 40, 40))) + parts.picture()
        + parts.table(*([parts.cell(text) for text in row] for row in ("ab", "cd", "ef")))
        + parts.shape("the last", at(0, 0, 9, 9), "Last"))
    package = parts.presentation(
        first, parts.shape("hidden", at(1, 2, 3, 4), "Only"), layout=room('type="title"', at(7, 8, 9, 10)),
        notes=parts.shape("Say why.", placeholder='<p:ph type="body" idx="1"/>'))
    package[LAYOUT] = package[LAYOUT].replace("<p:cSld>", '<p:cSld name="The layout">')
    package["ppt/slides/slide2.xml"] = package["ppt/slides/slide2.xml"].replace("<p:sld ", '<p:sld show="0" ')
    return package


class Compare(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.expected = self.folder / "expected.tsv"
        (self.folder / "sample.pptx").write_bytes(packed(sample()))

    def compare(self, damage="", rows=""):
        self.expected.write_text("# file, what, reason\n" + rows, encoding="utf-8")
        return run([sys.executable, str(HERE / "compare_slides.py"), str(HERE / "fake_slide_import.py"),
                    str(self.folder),
                    str(self.expected), "--jobs", "1"], environment={**os.environ, "QV_FAKE_DAMAGE": damage})

    def test_honest_import_passes(self):
        outcome = self.compare()
        self.assertEqual((outcome.status, outcome.stderr), (0, b""), outcome.stdout)
        self.assertEqual(outcome.stdout, b"1 files, 6 cells, 40 characters, 11 objects, 2 slides\n")

    def test_each_damage_is_seen(self):
        self.assertEqual(SEEN.keys(), DAMAGES.keys())
        reader = SlideReader(self.folder / "sample.pptx")
        for damage, category in SEEN.items():
            with self.subTest(damage):
                model = json.loads(json.dumps(make_model(reader)))
                DAMAGES[damage](model)
                found = collections.Counter(each.category for each in compare_model(model, reader).found)
                self.assertEqual(", ".join(f"{what} {count}" for what, count in found.items()), category)
        outcome = self.compare("moved_right")
        self.assertEqual((outcome.status, outcome.stderr), (1, b""), outcome.stdout)
        self.assertIn(b"sample.pptx\tplace 1\n        slide 1, 'Plain': expected Box(x=30.0,", outcome.stdout)

    def test_failed_import_is_seen(self):
        outcome = self.compare("no such damage")
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"sample.pptx\timport 1", outcome.stdout)

    def test_listed_difference_passes_and_must_occur(self):
        row = "sample.pptx\ttext 1\ta reason\n"
        self.assertEqual(self.compare("text_changed", row).status, 0)
        outcome = self.compare("", row)
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"sample.pptx\ttext 1: is listed, but does not occur any more", outcome.stdout)


class Reader(unittest.TestCase):
    """The slow reader itself, where the corpus does not ask."""

    def read(self, shapes, **rest):
        return self.shapes_of(parts.presentation(shapes, **rest))

    @staticmethod
    def shapes_of(package):
        return SlideReader(io.BytesIO(packed(package))).slides[0].shapes

    def assert_box(self, shape, expected):
        found = astuple(shape.transform.box)
        for value, wanted in zip(found, expected):
            self.assertTrue(value is wanted if wanted is None else abs(value - wanted) < 1e-9,
                            f"{found}, expected {expected}")

    def test_placeholders_find_their_places(self):
        here, there, other = at(1, 2, 3, 4), at(5, 6, 7, 8), at(9, 9, 9, 9)
        of = {here: (1, 2, 3, 4), there: (5, 6, 7, 8), other: (9, 9, 9, 9), "": (0, 0, None, None)}
        for why, own, layout, master, expected in (
                ("its own", room('idx="1"', here), room('idx="1"', there), room('idx="1"', there), here),
                ("by index", room('idx="3"'), room('idx="1"', other) + room('idx="3"', here), "", here),
                ("by index before type", room('type="body" idx="3"'),
                 room('type="body" idx="1"', other) + room('type="pic" idx="3"', here), "", here),
                ("no index is 0", room(""), room('idx="1"', other) + room("", here), "", here),
                ("by type: titles are of one kind", room('type="ctrTitle"'),
                 room('type="body"', other) + room('type="title"', here), "", here),
                ("by type: footers of another index", room('type="ftr" idx="5"'), room('type="ftr" idx="11"', here), "",
                 here),
                ("the type of a footer is before its index", room('type="ftr" idx="10"'),
                 room('type="dt" idx="10"', other) + room('type="ftr" idx="11"', here), "", here),
                ("bodies need their index", room('type="body" idx="5"'), room('type="body" idx="11"', other), "", ""),
                ("of the layout before the master", room('type="title"'), room('type="title"', here),
                 room('type="title"', there), here),
                ("of the master, by type", room('type="title"'), room('type="title"'),
                 room('type="body" idx="1"', other) + room('type="title"', there), there),
                ("of the master: any content is its body", room('idx="7"'), room('idx="7"'),
                 room('type="title"', other) + room('type="dt"', other) + room('type="body" idx="1"', there), there),
                ("of the master: a footer by its type", room('type="ftr" idx="11"'), room('type="ftr" idx="11"'),
                 room('type="body" idx="11"', other) + room('type="ftr" idx="3"', there), there),
                ("not of the master past the layout", room('type="title"'), "", room('type="title"', other), "")):
            with self.subTest(why):
                self.assert_box(self.read(own, layout=layout, master=master)[0], of[expected])

    def test_turns_and_flips_are_inherited_with_the_place(self):
        above = room('type="title"', at(1, 2, 3, 4, 'rot="-5400000" flipH="1"'))
        found = self.read(room('type="title"'), layout=above)[0]
        self.assertEqual((found.transform.rotation, found.transform.flip_horizontal, found.transform.flip_vertical),
                         (270, True, False))

    def test_groups_scale_what_is_in_them(self):
        leaf = parts.shape(properties=at(10, 20, 30, 40))
        inner = parts.group(leaf, at(0, 0, 50, 50, child_box=(0, 0, 100, 100)))  # a half
        for why, shapes, expected in (
                ("scaled and shifted", parts.group(leaf, at(100, 200, 60, 20, child_box=(10, 20, 30, 40))),
                 (100, 200, 60, 20)),
                ("twice", parts.group(inner, at(100, 100, 200, 100, child_box=(0, 0, 50, 50))), (120, 120, 60, 40)),
                ("without a width of its own", parts.group(leaf, at(5, 5, 60, 80, child_box=(0, 0, 0, 40))),
                 (15, 45, 30, 80)),
                ("without coordinates", parts.group(leaf, ""), (10, 20, 30, 40))):
            with self.subTest(why):
                found = self.read(shapes)
                while found[0].children:
                    found = found[0].children
                self.assert_box(found[0], expected)

    def test_child_on_its_side_is_scaled_as_it_is_seen(self):
        for degrees, expected in ((0, (0, 0, 40, 20)), (44.9, (0, 0, 40, 20)), (45, (10, -10, 20, 40)),
                                  (90, (10, -10, 20, 40)), (134.9, (10, -10, 20, 40)), (135, (0, 0, 40, 20)),
                                  (180, (0, 0, 40, 20)), (224.9, (0, 0, 40, 20)), (225, (10, -10, 20, 40)),
                                  (270, (10, -10, 20, 40)), (314.9, (10, -10, 20, 40)), (315, (0, 0, 40, 20))):
            with self.subTest(degrees):
                leaf = parts.shape(properties=at(0, 0, 20, 20, f'rot="{round(degrees * 60000)}"'))
                found = self.read(parts.group(leaf, at(0, 0, 80, 40, child_box=(0, 0, 40, 40))))[0].children[0]
                self.assert_box(found, expected)
                self.assertAlmostEqual(found.transform.rotation, degrees)

    def test_alternate_content_is_resolved(self):
        choice = ('<mc:AlternateContent xmlns:x="{}"><mc:Choice Requires="x">{}</mc:Choice>'
                  "<mc:Fallback>{}</mc:Fallback></mc:AlternateContent>").format
        known, unknown = "http://schemas.microsoft.com/office/drawing/2010/main", "urn:unknown"
        one, two = parts.shape(name="one"), parts.shape(name="two") + parts.picture()
        for uri, names in ((known, ["one"]), (unknown, ["two", "picture"]), (parts.DRAWING, ["one"])):
            with self.subTest(uri):
                self.assertEqual([each.name for each in self.read(choice(uri, one, two))], names)
                grouped = self.read(parts.group(choice(uri, one, two)))[0].children
                self.assertEqual([each.name for each in grouped], names)
        run_of = "<a:r><a:t>{}</a:t></a:r>".format
        for uri, text in ((known, "one"), (unknown, "two")):
            said = f"<a:p>{choice(uri, run_of('one'), run_of('two'))}</a:p>"
            self.assertEqual(self.read(parts.shape(said))[0].text, text)

    def test_text_is_what_is_seen(self):
        for inner, text in (
                ("<a:r><a:t>a</a:t></a:r><a:r><a:rPr b='1'/><a:t>b</a:t></a:r>", "ab"),
                ("<a:r><a:t>a</a:t></a:r><a:br/><a:r><a:t>b</a:t></a:r>", "a\nb"),
                ('<a:fld id="{0}" type="slidenum"><a:rPr/><a:t>7</a:t></a:fld><a:endParaRPr/>', "7"),
                ("<a:r/>", ""), ("<a:r><a:t/></a:r>", "")):
            with self.subTest(text):
                self.assertEqual(self.read(parts.shape(f"<a:p>{inner}</a:p>"))[0].text, text)
        self.assertEqual(self.read(parts.shape("<a:p/><a:p/>"))[0].text, "\n")
        self.assertIsNone(self.read(parts.picture())[0].text)

    def test_cells_under_merged_ones_are_left_out(self):
        rows = ([parts.cell("a", 'gridSpan="2"'), parts.cell("x", 'hMerge="1"')],
                [parts.cell("b", 'rowSpan="2"'), parts.cell("c", 'vMerge="0"')],
                [parts.cell("x", 'vMerge="true"'), parts.cell("d")])
        self.assertEqual(self.read(parts.table(*rows))[0].cells, [["a"], ["b", "c"], ["d"]])

    def test_objects_have_their_kinds(self):
        line = parts.picture().replace("p:pic>", "p:cxnSp>").replace("nvPicPr", "nvCxnSpPr")
        for shapes, kind in ((parts.shape(), "shape"), (parts.picture(), "picture"), (parts.group(""), "group"),
                             (line, "connector"), (parts.table([parts.cell()]), "table"),
                             (parts.frame('<c:chart r:id="rId9"/>', "chart"), "chart"),
                             (parts.frame("<dgm:x/>", "diagram"), "other")):
            with self.subTest(kind):
                self.assertEqual([each.kind for each in self.read(shapes)], [kind])

    def test_diagrams_are_what_they_were_drawn_as(self):
        drawn = parts.shape("drawn", at(3, 4, 5, 6), "one") + parts.shape("", at(0, 0, 1, 1), "two")
        frame = parts.frame('<dgm:relIds r:dm="d1"/>', "diagram").replace('<a:off x="0" y="0"/>',
                                                                        f'<a:off x="{100 * POINT}" y="{200 * POINT}"/>')
        package = parts.presentation(frame, links=[("d1", "diagramData", "../diagrams/data1.xml"),
                                                   ("d2", "diagramDrawing", "../diagrams/drawing1.xml")])
        package["ppt/diagrams/data1.xml"] = (
            '<d:dataModel xmlns:d="urn:d"><d:ext><d:dataModelExt relId="d2"/></d:ext></d:dataModel>')
        package["ppt/diagrams/drawing1.xml"] = f"<p:drawing {parts.NAMESPACES}><p:spTree>{drawn}</p:spTree></p:drawing>"
        found = self.shapes_of(package)[0]
        self.assertEqual([(each.name, each.text) for each in found.children], [("one", "drawn"), ("two", "")])
        self.assert_box(found.children[0], (103, 204, 5, 6))
        for name in ("data", "drawing"):
            with self.subTest(f"no {name}"):
                rest = {part: body for part, body in package.items() if part != f"ppt/diagrams/{name}1.xml"}
                self.assertEqual(self.shapes_of(rest)[0].children, [])

    def test_slides_stand_in_the_order_of_the_list(self):
        package = parts.presentation(*(parts.shape(name=name) for name in "abc"))
        links = "ppt/_rels/presentation.xml.rels"
        package[links] = package[links].replace('Id="s1"',
                                                'Id="s9"').replace('Id="s3"', 'Id="s1"').replace('Id="s9"', 'Id="s3"')
        slides = SlideReader(io.BytesIO(packed(package))).slides
        self.assertEqual([(slide.shapes[0].name, slide.hidden) for slide in slides],
                         [("c", False), ("b", False), ("a", False)])

    def test_slides_know_their_layout_notes_and_whether_they_are_hidden(self):
        slides = SlideReader(io.BytesIO(packed(sample()))).slides
        self.assertEqual([(each.layout, each.notes, each.hidden) for each in slides],
                         [("The layout", "Say why.", False), ("The layout", "", True)])
        unnamed = SlideReader(io.BytesIO(packed(parts.presentation("")))).slides
        self.assertEqual([(each.layout, each.notes, each.hidden) for each in unnamed], [("slideLayout1", "", False)])

    def test_size_has_a_default_and_no_main_part_is_told(self):
        for size, expected in (('cx="9144000" cy="6858000"', (720, 540)), ("", (720, 540)),
                               ('cx="12700" cy="25400"', (1, 2))):
            reader = SlideReader(io.BytesIO(packed(parts.presentation("", size=size))))
            self.assertEqual((reader.width, reader.height), expected)
        package = {**parts.presentation(""), "_rels/.rels": relations([])}
        with self.assertRaisesRegex(Unreadable, "there is no main part"):
            SlideReader(io.BytesIO(packed(package)))


if __name__ == "__main__":
    unittest.main()
