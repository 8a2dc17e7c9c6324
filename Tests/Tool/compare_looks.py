#!/usr/bin/python3
"""Compares the look of each character and the label of each list item with a second, slow account of them.

Usage: compare_looks.py QVFILTER FOLDER EXPECTED_DIFFERENCES [--only NAME] [--jobs N]

Of each paragraph in the body and its tables: bold, italics, size and colour of each character that is seen, the name
of its style, and the level and label of a list item. EXPECTED_DIFFERENCES: see text_differences.py.
"""
import collections
import sys

from compare_texts import flat_blocks, same_text
from sheet_reader import Unreadable
from text_differences import Difference, compare_all, import_model, read_options
from text_numbers import BULLET
from text_reader import TextReader, flatten
from text_styles import Look

DEFAULT_SIZE = 10.0  # what word processors take where a document says nothing
CHANNEL_TOLERANCE = 2  # tints are rounded in more than one way


def model_paragraphs(blocks):
    """All paragraphs of the model's blocks, those in tables among them."""
    for block in flat_blocks(blocks):
        if block["kind"] == "paragraph":
            yield block
        else:
            for row in block.get("rows", []):
                for cell in row:
                    yield from model_paragraphs(cell["blocks"])


def is_seen(run):
    kind = run.get("change", {}).get("kind", "").lower()
    return not run.get("hidden") and not kind.startswith("del") and "from" not in kind


def run_look(run):
    return Look(run.get("bold", False), run.get("italic", False), run.get("size"), run.get("color"))


def same_size(expected, got):
    return (DEFAULT_SIZE if expected is None else expected) == (DEFAULT_SIZE if got is None else got)


def same_color(expected, got):
    if expected is None or got is None or not len(expected) == len(got) == 6:
        return expected == got
    return all(abs(int(expected[i:i + 2], 16) - int(got[i:i + 2], 16)) <= CHANNEL_TOLERANCE for i in (0, 2, 4))


SAME = {"bold": lambda a, b: a == b, "italic": lambda a, b: a == b, "size": same_size, "color": same_color}


def compare_runs(expected, got):
    """Differences between the pieces of a paragraph and the model's runs, one for each run of characters alike."""
    ours = [(character, look) for text, look in expected.pieces for character in text]
    theirs = [(character, run_look(run)) for run in got["runs"] if is_seen(run) for character in run.get("text", "")]
    if not same_text(expected.text, "".join(character for character, _ in theirs)):
        return [Difference("runs", f"{expected.text!r:.150} is {''.join(c for c, _ in theirs)!r:.150} in runs")]
    found, before = [], None
    for index, ((_, look), (_, other)) in enumerate(zip(ours, theirs)):
        if (look, other) != before:
            for word, is_same in SAME.items():
                if not is_same(getattr(look, word), getattr(other, word)):
                    found.append(Difference(word, f"{expected.text[index:index + 40]!r}: expected {getattr(look, word)}, "
                                                  f"got {getattr(other, word)}"))
        before = (look, other)
    return found


def compare_item(expected, got):
    numbering = got.get("numbering", {})
    label = numbering.get("text", "")
    _, level, wanted = expected.item or (None, None, "")
    if wanted is BULLET:
        if not label:
            yield Difference("label", f"{expected.text!r:.60}: has no label")
    elif label != wanted:
        yield Difference("label", f"{expected.text!r:.60}: expected {wanted!r}, got {label!r}")
    if expected.item and numbering.get("level") != level and (wanted or numbering):
        yield Difference("level", f"{expected.text!r:.60}: expected {level}, got {numbering.get('level')}")


def compare_style(expected, got, styles):
    """Styles are told by their names, whose case word processors do not mind; one that is not there is free."""
    wanted = styles.name_of(expected.style)
    if wanted is not None and got.get("style", "").lower() != wanted.lower():
        yield Difference("style", f"{expected.text!r:.60}: expected {wanted!r}, got {got.get('style')!r}")


def compare_model(model, reader):
    """The differences between the program's JSON and the slow account, and what was compared."""
    ours, theirs = list(flatten(reader.blocks)), list(model_paragraphs(model["blocks"]))
    if len(ours) != len(theirs):
        ours = [each for each in ours if each.text]
        theirs = [each for each in theirs if each["text"]]
    if len(ours) != len(theirs):
        return [Difference("paragraphs", f"expected {len(ours)} with text, got {len(theirs)}")], {}
    found, counts = [], collections.Counter()
    for expected, got in zip(ours, theirs):
        counts["paragraphs"] += 1
        counts["characters"] += len(expected.text)
        counts["labels"] += expected.item is not None
        found += compare_runs(expected, got)
        found += compare_item(expected, got)
        found += compare_style(expected, got, reader.styles)
    return found, counts


def compare_file(program, path):
    model, found = import_model(program, path)
    try:
        reader = TextReader(path)
    except Unreadable as error:
        return found + [Difference("slow reader", str(error))], {}
    return compare_model(model, reader) if model else (found, {})


if __name__ == "__main__":
    sys.exit(compare_all(read_options(__doc__.splitlines()[0]), compare_file))
