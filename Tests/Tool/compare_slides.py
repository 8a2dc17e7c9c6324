#!/usr/bin/python3
"""Imports every presentation of a folder and compares its slides with another reader of the same file.

Usage: compare_slides.py QVFILTER FOLDER EXPECTED_DIFFERENCES [--only NAME] [--jobs N]

FOLDER/pptx holds the presentations, or FOLDER itself. Compared are the slides' number, order, size, layouts, notes and
whether they are hidden, and of each object its name, kind, place, size, rotation, flips, placeholder and text, and
the same of what groups and diagrams consist of. The slow reader beside this script decides. EXPECTED_DIFFERENCES: see
text_differences.py.
"""
import collections
import sys

from sheet_reader import Unreadable
from slide_reader import SlideReader
from text_differences import Difference, compare_all, import_model, read_options

POINTS = 0.01  # what places may differ by
KEYS = ("x", "y", "width", "height")


def is_far(expected, got):
    """Places are of single precision: six digits of them are right."""
    if expected is None or got is None:
        return expected is not got
    return not abs(expected - got) <= max(POINTS, abs(expected) * 1e-5)  # nor is what is no number


def placeholder_of(got):
    return (got["placeholder"], got.get("placeholderIndex")) if "placeholder" in got else None


class SlideComparison:
    """Gathers the differences of one presentation, and counts what was compared."""

    def __init__(self):
        self.found, self.counts = [], collections.Counter()

    def differ(self, category, detail):
        self.found.append(Difference(category, detail))

    def presentation(self, expected, model):
        for key, value in (("slideWidth", expected.width), ("slideHeight", expected.height)):
            if is_far(value, model.get(key)):
                self.differ("slide size", f"{key}: expected {value}, got {model.get(key)}")
        if len(expected.slides) != len(model["slides"]):
            self.differ("slides", f"expected {len(expected.slides)}, got {len(model['slides'])}")
            return
        for index, (slide, got) in enumerate(zip(expected.slides, model["slides"]), 1):
            self.slide(slide, got, f"slide {index}")

    def slide(self, expected, got, where):
        self.counts["slides"] += 1
        for category, value, other in (("layout", expected.layout, got.get("layout", "")),
                                       ("hidden", expected.hidden, got.get("hidden")),
                                       ("notes", expected.notes.strip(), got.get("notes", "").strip())):
            if value != other:
                self.differ(category, f"{where}: expected {value!r:.150}, got {other!r:.150}")
        self.shapes(expected.shapes, got["shapes"], where)

    def shapes(self, expected, got, where):
        if [each.name for each in expected] != [each.get("name", "") for each in got]:
            self.differ("shapes", f"{where}: expected {[each.name for each in expected]}, "
                                  f"got {[each.get('name', '') for each in got]}")
            return
        for shape, other in zip(expected, got):
            self.shape(shape, other, f"{where}, {shape.name!r}")

    def shape(self, expected, got, where):
        self.counts["objects"] += 1
        if got["kind"] != expected.kind:
            self.differ("kind", f"{where}: expected {expected.kind}, got {got['kind']}")
        place = expected.transform.box
        if any(is_far(getattr(place, key), got.get(key)) for key in KEYS):
            self.differ("place", f"{where}: expected {place}, got {[got.get(key) for key in KEYS]}")
        for key, value in (("flipHorizontal", expected.transform.flip_horizontal),
                           ("flipVertical", expected.transform.flip_vertical)):
            if got.get(key) != value:
                self.differ("flip", f"{where}: {key}, expected {value}")
        if not abs(got.get("rotation", -1) - expected.transform.rotation) <= 0.001:
            self.differ("rotation", f"{where}: expected {expected.transform.rotation}, got {got.get('rotation')}")
        if expected.kind == "shape" and placeholder_of(got) != expected.placeholder:
            self.differ("placeholder", f"{where}: expected {expected.placeholder}, got {placeholder_of(got)}")
        self.text(expected, got, where)
        self.shapes(expected.children, got.get("children", []), where)

    def text(self, expected, got, where):
        if expected.cells is not None:
            self.counts["cells"] += sum(map(len, expected.cells))
            if expected.cells != got.get("rows"):
                self.differ("cells", f"{where}: expected {expected.cells!r:.180}, got {got.get('rows')!r:.180}")
        text = expected.text or ""
        self.counts["characters"] += len(text)
        of_paragraphs = "\n".join(each["text"] for each in got.get("paragraphs", ()))
        for other in (got.get("text", ""), of_paragraphs):
            if other != text:
                self.differ("text", f"{where}: expected {text!r:.180}, got {other!r:.180}")
                break


def compare_model(model, reader):
    comparison = SlideComparison()
    comparison.presentation(reader, model)
    return comparison


def compare_file(program, path):
    try:
        reader = SlideReader(path)
    except Unreadable as error:
        return [Difference("reader", str(error))], {}
    model, failures = import_model(program, path)
    if model is None:
        return failures, {}
    comparison = compare_model(model, reader)
    return comparison.found, dict(comparison.counts)


if __name__ == "__main__":
    sys.exit(compare_all(read_options(__doc__), compare_file, ("pptx", "*.ppt[xm]", "presentations")))
