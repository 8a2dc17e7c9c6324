#!/usr/bin/python3
"""Holds `qvfilter import` to its contract: exit statuses, streams, outputs, order of keys, repeatability.

Text documents have check_text_cli.py, presentations check_slides_cli.py; what it prints for a person has
check_summary.py, and `qvfilter convert` has check_convert.py.

Usage: check_cli.py QVFILTER SAMPLES_FOLDER [unittest options]
"""
import json
import os
import pathlib
import random
import shutil
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent.parent / "Samples"))
# pylint: disable=wrong-import-position
import hostile_packages
import hostile_parts
from cli_case import UUID, Case, main
from package_parts import number, png, row, workbook, write_package
from tool_runner import allowance, run

# The documented keys of each object, in their order; others may stand between them.
KEYS = {
    "model": ["format", "tables", "links", "media"],
    "table": ["id", "name", "rows", "columns", "visible", "defaultColumnWidth", "defaultRowHeight", "columnWidths",
              "rowHeights", "cells", "merges", "frames", "pivotTables"],
    "cell": ["ref", "type", "value", "formula", "format", "hyperlink", "fill", "borders", "bold", "italic", "fontSize",
             "fontColor", "fontName"],
    "frame": ["kind", "media", "mimeType", "anchor", "absolute", "rotation"],
    "anchor": ["type", "from", "to"],
    "media": ["id", "mimeType", "bytes"],
}
OPTIONAL = {"pivotTables"} | set(KEYS["cell"][1:]) | set(KEYS["frame"][1:]) | {"to"}


class Usage(Case):
    def test_wrong_usage_is_status_2_and_says_why_on_stderr(self):
        for arguments in ([], ["improt", self.orders], ["import"], ["import", self.orders, "--modle", "x"],
                          ["import", self.orders, "--ids", "random"], ["import", self.orders, "--model"],
                          ["import", self.orders, self.orders],
                          ["import", self.orders, "--model", "-", "--report", "-"]):
            with self.subTest(arguments):
                outcome = self.expect(2, *arguments)
                self.assertEqual(outcome.stdout, b"")
                self.assertTrue(outcome.stderr.strip())
                self.assert_only()

    def test_help_is_on_stdout(self):
        outcome = self.expect(0, "--help")
        self.assertIn(b"import", outcome.stdout)
        self.assertEqual(outcome.stderr, b"")
        outcome = self.expect(0, "import", "--help")
        for option in (b"--model", b"--report", b"--media", b"--ids"):
            self.assertIn(option, outcome.stdout)

    def test_version_is_one_line(self):
        outcome = self.expect(0, "--version")
        self.assertRegex(outcome.stdout.decode(), r"\A(qvfilter )?\d+\.\d+\.\d+\n\Z")


class Input(Case):
    def test_missing_file_is_named(self):
        outcome = self.expect(1, "import", "no such.xlsx", "--model", "model.json")
        self.assertIn(b"no such.xlsx", outcome.stderr)
        self.assert_only()

    def test_folder_is_no_document(self):
        (self.folder / "folder.xlsx").mkdir()
        self.expect(1, "import", "folder.xlsx", "--model", "model.json")
        self.assert_only("folder.xlsx")

    def test_refused_input_leaves_old_outputs_alone(self):
        (self.folder / "harm.xlsx").write_bytes(b"no package")
        for name in ("model.json", "report.json"):
            (self.folder / name).write_text("old", encoding="utf-8")
        self.expect(1, "import", "harm.xlsx", "--model", "model.json", "--report", "report.json", "--media", "media")
        self.assert_only("harm.xlsx", "model.json", "report.json")
        self.assertEqual((self.folder / "model.json").read_text(encoding="utf-8"), "old")
        self.assertEqual((self.folder / "report.json").read_text(encoding="utf-8"), "old")

    def test_standard_input_is_read_as_a_file_is(self):
        self.assertEqual(self.model_of("-", stdin=self.orders.read_bytes()), self.model_of(self.orders))
        self.expect(1, "import", "-", "--model", "-", stdin=b"")
        self.expect(1, "import", "-", "--model", "-", stdin=self.orders.read_bytes()[:3000])
        closed = run(["sh", "-c", f'exec "{self.program}" import - <&-'], timeout=60 * allowance(self.program).time)
        self.assertEqual((closed.status, closed.stdout), (1, b""))
        self.assertEqual(closed.error_lines(), ["qvfilter: standard input: cannot be read"])

    def test_name_of_the_file_does_not_matter(self):
        model = self.model_of(self.orders)
        for name in ("Bücher & mehr.xlsx", "no extension", "wrong.docx", "a\nb.xlsx"):
            shutil.copy(self.orders, self.folder / name)
            self.assertEqual(self.model_of(name), model, name)
        shutil.copy(self.orders, self.folder / "-x.xlsx")
        outcome = self.expect(0, "import", "--model", "-", "--ids", "sequential", "--", "-x.xlsx")
        self.assertEqual(json.loads(outcome.stdout), model)


class Output(Case):
    def test_model_and_report_on_stdout_are_the_files(self):
        self.expect(0, "import", self.orders, "--model", "model.json", "--report", "report.json", "--ids", "sequential")
        for option in ("model", "report"):
            outcome = self.expect(0, "import", self.orders, f"--{option}", "-", "--ids", "sequential")
            self.assertEqual(outcome.stdout, (self.folder / f"{option}.json").read_bytes())
            self.assertTrue(outcome.stdout.endswith(b"\n"))
            self.assertEqual(outcome.stderr, b"")
        self.assert_only("model.json", "report.json")

    def test_old_outputs_are_replaced_whole(self):
        (self.folder / "model.json").write_bytes(b"x" * 1000000)
        outcome = self.expect(0, "import", self.orders, "--model", "model.json", "--ids", "sequential")
        self.assertEqual(outcome.stdout, b"")
        self.assertEqual(json.loads((self.folder / "model.json").read_bytes()), self.model_of(self.orders))

    def test_unwritable_outputs_are_status_4_and_leave_nothing(self):
        (self.folder / "file").write_bytes(b"")
        (self.folder / "folder").mkdir()
        for option in ("--model", "--report"):
            for target in ("nowhere/out.json", "file/out.json", "folder"):
                with self.subTest((option, target)):
                    outcome = self.expect(4, "import", self.orders, option, target)
                    self.assertIn(target.partition("/")[0].encode(), outcome.stderr)
                    self.assertEqual(outcome.stdout, b"")
                    self.assert_only("file", "folder")
                    self.assertEqual(list((self.folder / "folder").iterdir()), [])
        for target in ("file", "file/media"):
            self.expect(4, "import", self.orders, "--media", target)
            self.assert_only("file", "folder")
        self.assertEqual((self.folder / "file").read_bytes(), b"")

    def test_one_unwritable_output_keeps_all_from_appearing(self):
        for arguments in (["--model", "/dev/full", "--report", "report.json"],
                          ["--model", "model.json", "--report", "/dev/full"],
                          ["--model", "model.json", "--report", "nowhere/report.json"]):
            with self.subTest(arguments):
                self.expect(4, "import", self.orders, *arguments, "--media", "new/media")
                self.assert_only()

    def test_failure_is_one_line_whatever_the_names(self):
        for name in ("no\nwhere", "no\x1b[31mwhere", b"no\xff\nwhere".decode("utf-8", "surrogateescape")):
            (self.folder / f"{name} is a file").write_bytes(b"")
            for arguments in ([name], [self.orders, "--model", f"{name}/out"],
                              [self.orders, "--media", f"{name} is a file"]):
                outcome = self.call("import", *arguments)
                self.assertIn(outcome.status, (1, 4))
                self.assertEqual(len(outcome.error_lines()), 1, outcome.stderr)
                self.assertNotIn(b"\x1b", outcome.stderr)

    def test_outputs_do_not_replace_one_another_nor_the_document(self):
        shutil.copy(self.orders, self.folder / "in.xlsx")
        (self.folder / "link").symlink_to("in.xlsx")
        for arguments in (["--model", "out", "--report", "out"], ["--model", "out", "--report", "./none/../out"],
                          ["--model", "in.xlsx"], ["--report", self.folder / "in.xlsx"], ["--model", "link"]):
            with self.subTest(arguments):
                self.expect(2, "import", "in.xlsx", *arguments)
                self.assert_only("in.xlsx", "link")
        self.assertEqual((self.folder / "in.xlsx").read_bytes(), self.orders.read_bytes())
        self.expect(0, "import", "in.xlsx", "--model", "/dev/null", "--report", "/dev/null")

    def test_symbolic_link_stays_and_its_file_is_replaced(self):
        (self.folder / "deep").mkdir()
        (self.folder / "deep/old.json").write_text("old", encoding="utf-8")
        for target in ("deep/old.json", "deep/new.json", self.folder / "deep/other.json"):
            link = self.folder / "link.json"
            link.symlink_to(target)
            self.expect(0, "import", self.orders, "--model", "link.json")
            self.assertTrue(link.is_symlink())
            self.assertEqual(json.loads((self.folder / target).read_bytes())["format"], "xlsx")
            link.unlink()
        self.assertEqual(len(list((self.folder / "deep").iterdir())), 3)

    def test_media_can_be_the_folder_of_the_caller(self):
        for name in (".", "./", "../here", "new/."):
            here = self.folder / "here"
            here.mkdir()
            self.expect(0, "import", self.orders, "--model", "-", "--media", name, cwd=here)
            files = [path.name for path in here.rglob("*") if path.is_file()]
            self.assertEqual(len(files), 3, (name, files))
            shutil.rmtree(here)

    def test_picture_that_breaks_off_is_not_kept_with_or_without_a_folder(self):
        package = bytearray(hostile_packages.packed(hostile_parts.pictured("../media/image1.png")))
        name = "xl/media/image1.png"
        package[hostile_packages.local_header(package, name) + 14] ^= 0xFF  # the checksum
        package[hostile_packages.central_header(package, name) + 16] ^= 0xFF
        (self.folder / "broken.xlsx").write_bytes(package)
        kept = self.model_of("broken.xlsx", "--media", "media")
        self.assertEqual(kept, self.model_of("broken.xlsx"))
        self.assertEqual(kept["media"], [])
        self.assertEqual(list((self.folder / "media").iterdir()), [])

    def test_full_device_is_status_4(self):
        with open("/dev/full", "wb") as full:
            for arguments in (["--model", "-"], ["--report", "-"], []):
                self.expect(4, "import", self.orders, *arguments, stdout=full)

    def test_closed_pipe_is_status_4(self):
        for arguments in (["--model", "-"], ["--report", "-"], []):
            end, begin = os.pipe()
            os.close(end)
            try:
                self.expect(4, "import", self.orders, *arguments, stdout=begin)
            finally:
                os.close(begin)

    def test_media_folder_holds_what_the_model_names(self):
        (self.folder / "deep").mkdir()
        self.expect(0, "import", self.orders, "--model", "model.json", "--media", "deep/media", "--ids", "sequential")
        model = json.loads((self.folder / "model.json").read_bytes())
        files = {path.name: path.stat().st_size for path in (self.folder / "deep/media").iterdir()}
        self.assertEqual(files, {entry["id"]: entry["bytes"] for entry in model["media"]})
        self.assertEqual([entry["mimeType"] for entry in model["media"]], ["image/png", "image/jpeg", "image/png"])
        self.assert_only("deep", "model.json")

    def test_without_media_folder_no_picture_is_left(self):
        self.model_of(self.orders)
        self.assert_only()


class Model(Case):
    def assert_keys(self, kind, value):
        self.assert_order(KEYS[kind], value)
        for key in KEYS[kind]:
            if key not in OPTIONAL:
                self.assertIn(key, value, kind)

    def test_keys_keep_their_order(self):
        model = self.model_of(self.orders)
        self.assert_keys("model", model)
        for table in model["tables"]:
            self.assert_keys("table", table)
            for cell in table["cells"]:
                self.assert_keys("cell", cell)
            for frame in table["frames"]:
                self.assert_keys("frame", frame)
                if "anchor" in frame:
                    self.assert_keys("anchor", frame["anchor"])
        for entry in model["media"]:
            self.assert_keys("media", entry)

    def test_numbers_read_back_to_the_same_double(self):
        source = random.Random(20240229)
        texts = ["0.1", "0.10000000000000001", "1e-7", "4.9406564584124654E-324", "1.7976931348623157e308",
                 "123456789012345678", "9007199254740993", "-0.5", "5e-324", "2.2250738585072011e-308", "1E+2", "+7",
                 "00012", ".5", "5."]
        texts += [repr(source.uniform(-1, 1) * 10 ** source.randint(-300, 300)) for _ in range(2000)]
        texts += [f"{source.getrandbits(62)}" for _ in range(200)]
        body = "".join(row(index, [number(f"A{index}", text)]) for index, text in enumerate(texts, 1))
        write_package(self.folder / "numbers.xlsx", workbook([("N", "visible", f"<sheetData>{body}</sheetData>")]))
        cells = self.model_of("numbers.xlsx")["tables"][0]["cells"]
        self.assertEqual([float(cell["value"]) for cell in cells], [float(text) for text in texts])

    def test_sequential_ids_make_two_runs_the_same(self):
        self.assertRegex(self.assert_two_runs_are_the_same(self.orders), r'"id": ?"id\d+"')

    def test_ids_are_uuids_otherwise(self):
        for arguments in ([], ["--ids", "uuid"]):
            runs = [self.expect(0, "import", self.orders, "--model", "-", *arguments) for _ in range(2)]
            models = [json.loads(outcome.stdout) for outcome in runs]
            ids = [[table["id"] for table in model["tables"]] for model in models]
            for table_id in ids[0] + ids[1]:
                self.assertRegex(table_id, UUID)
            self.assertEqual(len(set(ids[0] + ids[1])), 6)

    def test_neither_locale_nor_time_zone_matters(self):
        plain = self.expect(0, "import", self.orders, "--model", "-", "--ids", "sequential").stdout
        for change in ({"LC_ALL": "C"}, {"LC_ALL": "C.UTF-8"}, {"LC_ALL": "de_DE.UTF-8", "LANG": "de_DE.UTF-8"},
                       {"TZ": "Asia/Kathmandu"}, {"LC_ALL": "no such locale"}):
            environment = {**os.environ, **change}
            outcome = self.expect(0, "import", self.orders, "--model", "-", "--ids", "sequential",
                                  environment=environment)
            self.assertEqual(outcome.stdout, plain, change)
            self.assertEqual(outcome.stderr, b"")

    def test_works_without_any_environment(self):
        self.expect(0, "import", self.orders, "--model", "-", environment={})

    def test_bad_values_are_reported_and_the_rest_is_there(self):
        outcome = self.expect(0, "import", self.samples / "bad-values.xlsx", "--report", "-")
        report = json.loads(outcome.stdout)
        self.assertEqual(list(report), ["messages", "leftOut"])
        self.assertGreaterEqual(len(report["messages"]), 10)
        for message in report["messages"]:
            self.assertEqual(list(message), ["message", "text", "arguments"])
            for argument in message["arguments"]:
                self.assertIn(argument, message["message"])

    def test_linked_picture_is_followed_only_when_asked_and_only_beside_the_document(self):
        parts = hostile_parts.pictured("beside.png", "External", "r:link", "")
        outside = hostile_parts.pictured("../outside.png", "External", "r:link", "")
        (self.folder / "documents").mkdir()
        picture = png(2, 2, lambda x, y: (x, y, 0))
        for name, package in (("documents/beside.xlsx", parts), ("documents/outside.xlsx", outside)):
            write_package(self.folder / name, package)
        for name in ("outside.png", "documents/beside.png"):
            (self.folder / name).write_bytes(picture)
        for name, option, count in (("beside", [], 0), ("beside", ["--follow-links"], 1),
                                    ("outside", ["--follow-links"], 0)):
            with self.subTest((name, option)):
                model = self.model_of(f"documents/{name}.xlsx", "--media", "media", *option)
                self.assertEqual(len(model["media"]), count)
                kept = list((self.folder / "media").glob("*")) if (self.folder / "media").exists() else []
                self.assertEqual([path.read_bytes() for path in kept], [picture] * count)
                shutil.rmtree(self.folder / "media", ignore_errors=True)


if __name__ == "__main__":
    main()
