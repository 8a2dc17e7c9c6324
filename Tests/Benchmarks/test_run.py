#!/usr/bin/python3
"""Proves that the table of benchmark ratios pairs names, scales units and sees missed bars."""
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

RUN = pathlib.Path(__file__).resolve().parent.parent.parent / "Benchmarks" / "run.py"


class Run(unittest.TestCase):
    def table(self, figures, status, **counters):
        """The table's lines, as lists of words, for a program with these figures: name -> (time, unit)."""
        entries = [{"name": f"{name}_{kind}", "run_name": name, "run_type": "aggregate", "aggregate_name": kind,
                    "aggregate_unit": "time", "cpu_time": time * factor, "time_unit": unit, "peakMemory": 7, **counters}
                   for name, (time, unit) in figures.items() for kind, factor in (("mean", 99), ("median", 1))]
        with tempfile.TemporaryDirectory() as folder:
            program = pathlib.Path(folder) / "bin" / "ThingBenchmark"
            program.parent.mkdir()
            program.write_text(f"#!/bin/sh\ncat <<'END'\n{json.dumps({'benchmarks': entries})}\nEND\n", encoding="utf-8")
            program.chmod(0o755)
            done = subprocess.run([sys.executable, RUN, folder], stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False,
                                  encoding="utf-8")
        self.assertEqual(done.returncode, status, done.stdout + done.stderr)
        return [line.split() for line in done.stdout.splitlines()], done.stderr

    def test_pairs_are_found_and_judged(self):
        lines, _ = self.table({"a/ours": (50, "us"), "a/reference": (0.1, "ms"), "b/ours/10": (3, "ns"),
                               "b/reference/10": (2, "ns"), "b/reference-plain/10": (6, "ns"), "alone": (1, "ns")}, 1)
        self.assertEqual(lines[1:6], [
            "Thing: a 50 us 100 us 0.500 1.0 ok peakMemory 7 / 7".split(),
            "Thing: b/10 3 ns 2 ns 1.500 1.0 MISSED peakMemory 7 / 7".split(),
            "Thing: b-plain/10 3 ns 6 ns 0.500 1.0 ok peakMemory 7 / 7".split(),
            "Thing: alone 1 ns peakMemory 7".split(),
            "3 pairs, 1 bars missed".split()])

    def test_items_have_their_cost(self):
        lines, _ = self.table({"a/ours": (1, "ns"), "a/reference": (1, "ns"), "alone": (2, "ns")}, 0, items_per_second=4e6)
        self.assertEqual(lines[1:3], ["Thing: a 1 ns 1 ns 1.000 1.0 ok 250 ns an item peakMemory 7 / 7".split(),
                                      "Thing: alone 2 ns 250 ns an item peakMemory 7".split()])

    def test_all_bars_kept_is_status_0(self):
        self.table({"a/ours": (1, "ns"), "a/reference": (1, "ns")}, 0)

    def test_reference_without_ours_is_an_error(self):
        _, errors = self.table({"a/reference": (1, "ns")}, 1)
        self.assertIn("a/reference has no a/ours", errors)


if __name__ == "__main__":
    unittest.main()
