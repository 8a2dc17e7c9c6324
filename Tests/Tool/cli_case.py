"""What the tests of the program's command line share: a fresh folder for each, and calls that expect an exit status."""
import json
import os
import pathlib
import re
import sys
import tempfile
import unittest

from tool_runner import allowance, run

UUID = re.compile(r"[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}")


class Case(unittest.TestCase):
    program, samples = "", pathlib.Path()

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()
        self.orders = self.samples / "orders.xlsx"
        self.report = self.samples / "report.docx"
        self.deck = self.samples / "deck.pptx"

    def call(self, *arguments, **options):
        options.setdefault("timeout", 60 * allowance(self.program).time)
        options.setdefault("cwd", self.folder)
        return run([self.program, *map(str, arguments)], **options)

    def expect(self, status, *arguments, **options):
        outcome = self.call(*arguments, **options)
        self.assertEqual(outcome.status, status, (arguments, outcome.stdout[:500], outcome.stderr[:500]))
        if status in (1, 4):
            self.assertEqual(len(outcome.error_lines()), 1, outcome.stderr)
            self.assertTrue(outcome.stderr.endswith(b"\n"))
        return outcome

    def model_of(self, *arguments, **options):
        outcome = self.expect(0, "import", *arguments, "--model", "-", "--ids", "sequential", **options)
        self.assertEqual(outcome.stderr, b"")
        return json.loads(outcome.stdout)

    def assert_only(self, *names):
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), sorted(names))

    def assert_order(self, expected, value):
        """Of the expected keys, value has those that it has in that order; others may stand between them."""
        keys = [key for key in value if key in expected]
        self.assertEqual(keys, [key for key in expected if key in value], value.keys())

    def assert_two_runs_are_the_same(self, document):
        """Imports with sequential ids; gives the text of the model."""
        names = [("model.json", "report.json", "media"), ("model2.json", "report2.json", "media2")]
        for model, report, media in names:
            self.expect(0, "import", document, "--model", model, "--report", report, "--media", media,
                        "--ids", "sequential")
        for first, second in list(zip(*names))[:2]:
            self.assertEqual((self.folder / first).read_bytes(), (self.folder / second).read_bytes())
        media = [{path.name: path.read_bytes() for path in (self.folder / name).iterdir()} for *_, name in names]
        self.assertEqual(*media)
        return (self.folder / "model.json").read_text(encoding="utf-8")


def main():
    """Runs the tests of the calling script, whose arguments are the program, the folder of samples, and options."""
    Case.program, Case.samples = os.path.realpath(sys.argv[1]), pathlib.Path(sys.argv[2]).resolve()
    del sys.argv[1:3]
    unittest.main()
