#!/usr/bin/python3
"""Proves that compare_corpus.py sees each kind of damage: it must be content with honest imports and nothing else.

Usage: test_compare.py SAMPLES_FOLDER
"""
import os
import pathlib
import shutil
import sys
import tempfile
import unittest

from fake_import import DAMAGES
from tool_runner import run

HERE = pathlib.Path(__file__).resolve().parent
SAMPLES = pathlib.Path(sys.argv.pop(1) if len(sys.argv) > 1 else HERE.parent.parent / "Samples")

# Which sample shows the damage, and the category under which it must be reported.
CATEGORIES = {
    "one_ulp": "value 1", "trailing_blank": "value 1", "number_as_text": "type 1", "boolean_flipped": "value 1",
    "error_as_text": "type 1", "cell_lost": "type 1", "cell_invented": "invented 1", "cell_twice": "order 1",
    "cells_unordered": "order", "formula_lost": "formula 1", "formula_altered": "formula text 1",
    "border_lost": "borders 1", "border_thicker": "border line 1", "border_dotted": "border line 1",
    "border_recolored": "border color 1", "bold_lost": "font 1", "font_enlarged": "font 1", "font_renamed": "font 1",
    "sheet_renamed": "sheets 1", "sheets_swapped": "sheets 1", "sheet_shown": "visible 1", "rows_short": "rows 1",
    "height_altered": "height 1", "width_altered": "width 1", "hidden_row_shown": "height 1",
    "merge_lost": "merges 1", "merges_reordered": "merges 1", "picture_lost": "pictures 1",
    "picture_altered": "pictures 1", "frame_as_shape": "frames 1", "frame_renamed": "frame name 1",
    "anchor_moved": "anchor 1", "anchor_retyped": "anchor type 1", "frame_stretched": "frame box 1",
    "frame_turned": "rotation 1", "silence": "silence 1",
}


class Compare(unittest.TestCase):
    def setUp(self):
        self._folder = tempfile.TemporaryDirectory()
        self.addCleanup(self._folder.cleanup)
        self.folder = pathlib.Path(self._folder.name)
        self.expected = self.folder / "expected.tsv"

    def compare(self, sample, rows="", damage=""):
        shutil.copy(SAMPLES / sample, self.folder)
        self.expected.write_text("# file, sheet, what, reason\n" + rows, encoding="utf-8")
        return run([sys.executable, str(HERE / "compare_corpus.py"), str(HERE / "fake_import.py"), str(self.folder),
                    str(self.expected), "--jobs", "1"], environment={**os.environ, "QV_FAKE_DAMAGE": damage})

    def test_honest_import_passes(self):
        outcome = self.compare("orders.xlsx")
        self.assertEqual((outcome.status, outcome.stderr), (0, b""), outcome.stdout)
        self.assertIn(b"1 files, ", outcome.stdout)

    def test_each_damage_is_seen(self):
        self.assertEqual(CATEGORIES.keys(), DAMAGES.keys())
        refusals = "bad-values.xlsx\t-\topenpyxl fails with ValueError 1\tits colours\n"
        for damage, category in CATEGORIES.items():
            sample, rows = ("bad-values.xlsx", refusals) if damage == "silence" else ("orders.xlsx", "")
            with self.subTest(damage):
                outcome = self.compare(sample, rows, damage)
                self.assertEqual((outcome.status, outcome.stderr), (1, b""), outcome.stdout)
                self.assertIn(f"\t{category}", outcome.stdout.decode())
            (self.folder / sample).unlink()

    def test_failed_import_is_seen(self):
        outcome = self.compare("orders.xlsx", damage="no such damage")
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"orders.xlsx\t-\timport 1", outcome.stdout)

    def test_listed_difference_passes_and_must_occur(self):
        row = "overlaps.xlsx\t-\topenpyxl fails with ValueError 1\tmerges beyond the grid\n"
        self.assertEqual(self.compare("overlaps.xlsx", row).status, 0)
        outcome = self.compare("overlaps.xlsx", row + "overlaps.xlsx\tOverlaps\tmerges 1\tin vain\n")
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"overlaps.xlsx\tOverlaps\tmerges 1: is listed, but does not occur any more", outcome.stdout)

    def test_listed_file_must_exist(self):
        outcome = self.compare("orders.xlsx", "gone.xlsx\t-\tsheets 1\tgone\n")
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"gone.xlsx: is listed, but there is no such file", outcome.stdout)

    def test_row_needs_a_reason(self):
        outcome = self.compare("orders.xlsx", "orders.xlsx\t-\tsheets 1\n")
        self.assertEqual(outcome.status, 1)
        self.assertIn(b"expected.tsv:2: four fields are needed", outcome.stderr)

    def test_count_is_part_of_the_row(self):
        row = "orders.xlsx\tOrders\tvalue 2\tone too many\n"
        self.assertEqual(self.compare("orders.xlsx", row, "one_ulp").status, 1)

    def test_empty_folder_is_skipped_by_name(self):
        self.expected.write_text("", encoding="utf-8")
        outcome = run([sys.executable, str(HERE / "compare_corpus.py"), "none", str(self.folder), str(self.expected)])
        self.assertEqual(outcome.status, 77)
        self.assertIn(b"SKIPPED: no workbooks in ", outcome.stdout)


if __name__ == "__main__":
    unittest.main()
