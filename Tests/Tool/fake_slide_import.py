#!/usr/bin/python3
"""The slow reader of presentations in the clothes of the program: it proves that the comparison sees what it must.

Usage: fake_slide_import.py import FILE --model -
The variable QV_FAKE_DAMAGE names one thing to spoil in the output; see DAMAGES.
"""
import json
import os
import sys

from sheet_reader import Unreadable
from slide_reader import SlideReader


def shape_model(shape):
    place = shape.transform
    model = {"name": shape.name, "kind": shape.kind, **vars(place.box), "rotation": place.rotation,
             "flipHorizontal": place.flip_horizontal, "flipVertical": place.flip_vertical}
    if shape.placeholder and shape.kind == "shape":
        model["placeholder"], model["placeholderIndex"] = shape.placeholder
    if shape.text is not None:
        model["text"] = shape.text
        model["paragraphs"] = [{"text": text} for text in shape.text.split("\n")]
    if shape.cells is not None:
        model["rows"] = shape.cells
    if shape.children:
        model["children"] = [shape_model(each) for each in shape.children]
    return model


def make_model(reader):
    return {"format": "pptx", "slideWidth": reader.width, "slideHeight": reader.height, "slides": [
        {"layout": slide.layout, "hidden": slide.hidden, "notes": slide.notes,
         "shapes": [shape_model(shape) for shape in slide.shapes]} for slide in reader.slides]}


def named(model, name):
    """The first object of that name, in groups too."""
    stack = [shape for slide in reversed(model["slides"]) for shape in reversed(slide["shapes"])]
    while stack:
        shape = stack.pop()
        if shape["name"] == name:
            return shape
        stack += reversed(shape.get("children", []))
    raise KeyError(name)


def change(whose, **values):
    return lambda model: named(model, whose).update(values)


def move(whose, key, by):
    return lambda model: named(model, whose).update({key: named(model, whose)[key] + by})


# name -> what to do with the model
DAMAGES = {
    "slide_lost": lambda model: model["slides"].pop(),
    "slide_invented": lambda model: model["slides"].append(model["slides"][0]),
    "slides_swapped": lambda model: model["slides"].reverse(),
    "slide_narrowed": lambda model: model.update(slideWidth=model["slideWidth"] - 0.1),
    "slide_lowered": lambda model: model.update(slideHeight=model["slideHeight"] - 0.1),
    "slide_shown": lambda model: model["slides"][1].update(hidden=False),
    "slide_hidden": lambda model: model["slides"][0].update(hidden=True),
    "layout_renamed": lambda model: model["slides"][0].update(layout="Another"),
    "notes_changed": lambda model: model["slides"][0].update(notes="Say it."),
    "notes_lost": lambda model: model["slides"][0].pop("notes"),
    "notes_invented": lambda model: model["slides"][1].update(notes="new"),
    "shape_lost": lambda model: model["slides"][0]["shapes"].pop(),
    "shape_invented": lambda model: model["slides"][0]["shapes"].append(model["slides"][0]["shapes"][0]),
    "shapes_swapped": lambda model: model["slides"][0]["shapes"].reverse(),
    "name_changed": change("Plain", name="plain"),
    "kind_changed": change("Plain", kind="picture"),
    "moved_right": move("Plain", "x", 0.1),
    "moved_up": move("Plain", "y", -0.1),
    "widened": move("Plain", "width", 0.1),
    "raised": move("Plain", "height", 0.1),
    "place_lost": lambda model: named(model, "Plain").pop("x"),
    "place_no_number": change("Plain", x=float("nan")),
    "inherited_moved": move("Title", "x", 0.1),
    "turned": move("Plain", "rotation", 0.1),
    "turned_back": change("Turned", rotation=0.0),
    "turn_lost": lambda model: named(model, "Plain").pop("rotation"),
    "turn_no_number": change("Plain", rotation=float("nan")),
    "mirrored": change("Plain", flipHorizontal=True),
    "mirrored_back": change("Turned", flipVertical=False),
    "flip_lost": lambda model: named(model, "Plain").pop("flipVertical"),
    "placeholder_changed": change("Title", placeholder="ctrTitle"),
    "placeholder_lost": lambda model: named(model, "Title").pop("placeholder"),
    "placeholder_invented": change("Plain", placeholder="body", placeholderIndex=1),
    "index_changed": change("Title", placeholderIndex=7),
    "text_changed": change("Plain", text="plain Words\nand more"),
    "text_lost": lambda model: named(model, "Plain").pop("text"),
    "lines_joined": change("Plain", text="plain words and more"),
    "text_invented": change("picture", text="new"),
    "paragraph_lost": lambda model: named(model, "Plain")["paragraphs"].pop(),
    "cell_changed": lambda model: named(model, "frame")["rows"][1].reverse(),
    "cell_lost": lambda model: named(model, "frame")["rows"][0].pop(),
    "row_lost": lambda model: named(model, "frame")["rows"].pop(),
    "rows_joined": lambda model: named(model, "frame").update(rows=[sum(named(model, "frame")["rows"], [])]),
    "child_moved": move("Child", "y", 0.1),
    "child_lost": lambda model: named(model, "group")["children"].pop(),
    "child_changed": change("Child", text="new", paragraphs=[{"text": "new"}]),
    "children_lost": lambda model: named(model, "group").pop("children"),
    "grandchild_widened": move("Grandchild", "width", 0.1),
}


def main(_, path, *__):
    try:
        model = make_model(SlideReader(path))
    except Unreadable as error:
        print(error, file=sys.stderr)
        return 1
    damage = os.environ.get("QV_FAKE_DAMAGE")
    if damage:
        DAMAGES[damage](model)
    json.dump(model, sys.stdout)
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
