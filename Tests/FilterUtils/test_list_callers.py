#!/usr/bin/env python3
"""Holds list_callers.py to what it says: each way in which its table can be wrong is one message, and a right one none.

Usage: test_list_callers.py
"""
import pathlib
import tempfile
import unittest

import list_callers


def make_function(name, is_called=False):
    function = list_callers.Function(name, name.split("(")[0])
    function.is_called = is_called
    return function


class Judging(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.write("FilterUtils/FU_A.h", "class A\n{\npublic:\n    virtual void draw();\n};\nvoid inner();\nvoid outer();\n")
        self.write("FilterUtils/FU_A.cpp", "void inner()\n{\n}\n\nvoid outer()\n{\n    inner(); // and not lone()\n}\n")
        self.write("Filters/B.h", "#include <FilterUtils/FU_A.h>\n")
        self.write("Filters/B.cpp", "#include <Filters/B.h>\n    outer();\n")
        self.write("Filters/C.cpp", "    outer(); // of its own: it includes no header of the library\n")
        self.functions = [make_function("QV::FilterUtils::outer(int)", True),
                          make_function("QV::FilterUtils::outer(long)"),
                          make_function("QV::FilterUtils::inner()"),
                          make_function("QV::FilterUtils::lone()"),
                          make_function("QV::FilterUtils::A::draw()")]
        self.rows = {"QV::FilterUtils::outer": "caller\tan overload",
                     "QV::FilterUtils::inner()": "library\touter: half of it",
                     "QV::FilterUtils::lone": "exporter\t`x`",
                     "QV::FilterUtils::A::draw": "virtual\tA::draw: by whoever has an A"}

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def judge(self):
        table = self.root / "table.tsv"
        table.write_text("# a comment\n" + "".join(f"{name}\t{row}\n" for name, row in self.rows.items()), encoding="utf-8")
        rows, faults = list_callers.read_table(table)
        return faults + list_callers.judge(self.functions, rows, list_callers.Sources(self.root))[0]

    def expect(self, *messages):
        faults = self.judge()
        self.assertEqual(len(faults), len(messages), faults)
        for message in messages:
            self.assertTrue(any(message in fault for fault in faults), faults)

    def test_a_right_table_has_no_faults(self):
        self.expect()

    def test_a_function_without_a_row(self):
        del self.rows["QV::FilterUtils::lone"]
        self.expect("nobody calls QV::FilterUtils::lone()")

    def test_a_row_of_what_is_called(self):
        self.functions[3].is_called = True
        self.expect("called now: QV::FilterUtils::lone()")

    def test_a_caller_row_of_which_all_is_called(self):
        self.functions[1].is_called = True
        self.expect("called now: QV::FilterUtils::outer(int)")

    def test_a_row_of_what_is_gone(self):
        self.functions.pop(3)
        self.expect("no longer exported: QV::FilterUtils::lone")

    def test_two_rows_of_one_function(self):
        self.rows["QV::FilterUtils::lone()"] = "exporter\t`x`"
        self.expect("already: QV::FilterUtils::lone()")

    def test_rows_that_do_not_parse_explain_nothing(self):
        for row, message in (("exporter\t", "not a name"), ("exporter", "not a name"), ("writer\tx", "none of exporter")):
            with self.subTest(row):
                self.rows["QV::FilterUtils::lone"] = row
                self.expect(message, "nobody calls QV::FilterUtils::lone()")

    def test_the_callers_of_library_rows(self):
        for reason, message in (("nothing: x", "nothing is no exported function"),
                                ("inner: x", "as its own caller"),
                                ("draw: x", "draw is no exported function")):
            with self.subTest(reason):
                self.rows["QV::FilterUtils::inner()"] = "library\t" + reason
                self.expect(message)

    def test_a_library_row_of_what_the_library_does_not_call(self):
        self.rows["QV::FilterUtils::lone"] = "library\touter: x"
        self.expect("has the name lone beyond its definition")

    def test_a_virtual_row_without_a_base(self):
        self.rows["QV::FilterUtils::A::draw"] = "virtual\tA::paint: x"
        self.expect("no header declares A::paint virtual")

    def test_callers_are_files_that_include_the_header(self):
        sources = list_callers.Sources(self.root)
        self.assertEqual(sources.callers(self.functions[0]), ["Filters/B.cpp"])


class Names(unittest.TestCase):
    def test_are_taken_apart(self):
        for path, short, identifier, scope in (
                ("QV::FilterUtils::A<std::vector<int> >::add<int>", "QV::FilterUtils::A::add", "add", "A"),
                ("QV::FilterUtils::A::~A", "QV::FilterUtils::A::~A", "A", "A"),
                ("QV::FilterUtils::A::operator()", "QV::FilterUtils::A::operator()", "A", "A"),
                ("QV::numCast<int, long>", "QV::numCast", "numCast", None)):
            with self.subTest(path):
                function = list_callers.Function(path + "(int)", path)
                self.assertEqual((function.path, function.identifier, function.scope), (short, identifier, scope))
                self.assertTrue(function.is_named(short) and function.is_named(path + "(int)"))


if __name__ == "__main__":
    unittest.main()
