#!/usr/bin/python3
"""Proves that compare_charts.py sees each kind of damage to charts and pivot tables, and is content with the rest."""
import copy
import types
import unittest

import openpyxl
from openpyxl.chart import BarChart, LineChart, PieChart, Reference, Series

from compare_charts import compare_charts

MODEL = {"tables": [{
    "name": "Data",
    "frames": [
        {"kind": "picture", "media": "a.png"},
        {"kind": "chart", "type": "pie", "title": "Share", "series": [
            {"nameText": "Share", "categories": "Data!$A$2:$A$4", "values": "Data!$B$2:$B$4"}]},
        {"kind": "chart", "type": "bar", "title": "Sales\n2025", "series": [
            {"name": "Data!B1", "categories": "Data!$A$2:$A$4", "values": "Data!$B$2:$B$4"},
            {"name": "Data!C1", "categories": "Data!$A$2:$A$4", "values": "Data!$C$2:$C$4"},
            {"type": "line", "values": "Data!$D$2:$D$4"}]},
    ],
    "pivotTables": [{"name": "Totals", "range": "A3:C20"}],
}]}


def make_book():
    book = openpyxl.Workbook()
    sheet = book.active
    sheet.title = "Data"
    bars = BarChart()
    bars.title = "Sales\n2025"
    for column in (2, 3):
        bars.series.append(Series(Reference(sheet, min_col=column, min_row=1, max_row=4), title_from_data=True))
    bars.series[0].cat = openpyxl.chart.data_source.AxDataSource(
        strRef=openpyxl.chart.data_source.StrRef(f="'Data'!$A$2:$A$4"))
    lines = LineChart()
    lines.series.append(Series(Reference(sheet, min_col=4, min_row=2, max_row=4)))
    pie = PieChart()
    pie.series.append(Series(Reference(sheet, min_col=2, min_row=2, max_row=4), title="Share"))
    pie.set_categories(Reference(sheet, min_col=1, min_row=2, max_row=4))
    bars += lines
    sheet.add_chart(bars)
    sheet.add_chart(pie)
    location = types.SimpleNamespace(ref="A3:C20")
    sheet._pivots.append(types.SimpleNamespace(name="Totals", location=location))  # pylint: disable=protected-access
    return book


def charts(model):
    return [frame for frame in model["tables"][0]["frames"] if frame["kind"] == "chart"]


DAMAGES = {
    "openpyxl charts": lambda model: model["tables"][0]["frames"].pop(),
    "openpyxl chart type": lambda model: charts(model)[0].update(type="area"),
    "openpyxl chart title": lambda model: charts(model)[1].update(title="Sales 2025"),
    "openpyxl series": lambda model: charts(model)[1]["series"].pop(),
    "openpyxl series type": lambda model: charts(model)[1]["series"][2].pop("type"),
    "openpyxl series name": lambda model: charts(model)[1]["series"][0].update(name="Data!B2"),
    "openpyxl series nameText": lambda model: charts(model)[0]["series"][0].update(nameText="Shares"),
    "openpyxl series values": lambda model: charts(model)[1]["series"][1].update(values="Data!$C$2:$C$5"),
    "openpyxl series categories": lambda model: charts(model)[0]["series"][0].pop("categories"),
    "openpyxl pivots": lambda model: model["tables"][0]["pivotTables"][0].update(range="A3:C21"),
}


class CompareCharts(unittest.TestCase):
    def categories(self, model):
        self.counts = {}
        return [difference.category for difference in compare_charts(model, make_book(), self.counts)]

    def test_honest_model_passes(self):
        self.assertEqual(self.categories(MODEL), [])
        self.assertEqual(self.counts, {
            "chart title agrees": 1, "openpyxl gives a chart of one series no title": 1, "series agrees": 3,
            "a series without categories takes those of its chart": 1, "pivot table agrees": 1})

    def test_each_damage_is_seen(self):
        for category, damage in DAMAGES.items():
            with self.subTest(category):
                model = copy.deepcopy(MODEL)
                damage(model)
                self.assertIn(category, self.categories(model))

    def test_lost_and_invented_pivot_tables_are_seen(self):
        for pivots in ([], MODEL["tables"][0]["pivotTables"] * 2, [{"name": "Other", "range": "A3:C20"}]):
            model = copy.deepcopy(MODEL)
            model["tables"][0]["pivotTables"] = pivots
            self.assertEqual(self.categories(model), ["openpyxl pivots"])

    def test_one_cell_is_a_range_of_itself(self):
        model = copy.deepcopy(MODEL)
        model["tables"][0]["pivotTables"][0]["range"] = "C4"
        book = make_book()
        book.active._pivots[0].location.ref = "$C$4:$C$4"  # pylint: disable=protected-access
        self.assertEqual(list(compare_charts(model, book, {})), [])


if __name__ == "__main__":
    unittest.main()
