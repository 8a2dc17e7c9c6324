"""What the charts and pivot tables of an import must have in common with openpyxl's, and what openpyxl alters.

Charts of a sheet are compared as a set, since the order in which they are drawn is not openpyxl's. How often each of
openpyxl's habits explains something is counted by its name, as for cells.
"""
import re

from compare_rules import Difference

# openpyxl's names of charts -> the model's. Those in three dimensions are drawn from the same data.
TYPES = {
    "areaChart": "area", "area3DChart": "area", "barChart": "bar", "bar3DChart": "bar", "bubbleChart": "bubble",
    "doughnutChart": "doughnut", "lineChart": "line", "line3DChart": "line", "ofPieChart": "pie", "pieChart": "pie",
    "pie3DChart": "pie", "radarChart": "radar", "scatterChart": "scatter", "stockChart": "stock",
    "surfaceChart": "surface", "surface3DChart": "surface",
}
# The order in which charts of one plot area are drawn, and so stand in the model.
DRAWN = ["area", "surface", "bar", "pie", "doughnut", "line", "stock", "radar", "scatter", "bubble"]


def compare_charts(model, book, counts):
    """All differences between the charts and pivot tables of an import and of openpyxl; counts[rule] grows."""
    for table, sheet in zip(model["tables"], book.worksheets):
        theirs = [chart_of(chart) for chart in sheet._charts]  # pylint: disable=protected-access
        for category, detail in _compare_sets(_charts(table), theirs, counts):
            yield Difference(table["name"], f"openpyxl {category}", detail)
        expected = sorted((pivot.name, _corners(pivot.location.ref))
                          for pivot in sheet._pivots)  # pylint: disable=protected-access
        got = sorted((pivot["name"], _corners(pivot["range"])) for pivot in table.get("pivotTables", []))
        if got == expected:
            _count(counts, "pivot table agrees", len(got))
        else:
            yield Difference(table["name"], "openpyxl pivots", f"expected {expected}, got {got}")


def _charts(table):
    return [frame for frame in table["frames"] if frame.get("kind") == "chart"]


def _count(counts, rule, times=1):
    if times:
        counts[rule] = counts.get(rule, 0) + times


def _compare_sets(ours, theirs, counts):
    if len(ours) != len(theirs):
        yield "charts", f"expected {len(theirs)}, got {len(ours)}"
        return
    for mine, other in zip(sorted(ours, key=_key), sorted(theirs, key=_key)):
        if mine.get("type") != other["type"]:
            yield "chart type", f"expected {other['type']}, got {mine.get('type')}"
        rule = explain_title(mine.get("title"), other)
        if rule:
            _count(counts, rule)
        else:
            yield "chart title", f"expected {other['title']!r}, got {mine.get('title')!r}"
        yield from _compare_series(mine, other, counts)


def _key(chart):
    return [chart.get("type", ""), [normalised(series.get("values")) for series in chart["series"]],
            chart.get("title") or ""]


def _compare_series(mine, other, counts):
    if len(mine["series"]) != len(other["series"]):
        yield "series", f"expected {len(other['series'])}, got {len(mine['series'])}"
        return
    usual = mine.get("type")
    first = {}  # the categories of each type of chart
    for series, expected in zip(mine["series"], other["series"]):
        kind = series.get("type", usual)
        if kind != expected["type"]:
            yield "series type", f"expected {expected['type']}, got {kind}"
        for key in ("name", "nameText", "values"):
            if normalised(series.get(key)) != normalised(expected.get(key)):
                yield f"series {key}", f"expected {expected.get(key)!r}, got {series.get(key)!r}"
        got, wanted = normalised(series.get("categories")), normalised(expected.get("categories"))
        first.setdefault(kind, wanted)
        if got == wanted:
            _count(counts, "series agrees")
        elif not wanted and got == first[kind]:
            _count(counts, "a series without categories takes those of its chart")
        else:
            yield "series categories", f"expected {wanted!r}, got {got!r}"


def explain_title(title, other):
    """The name of the rule under which both titles say the same; None where they do not."""
    if (title or None) == other["title"]:
        return "chart title agrees"
    names = [series.get("nameText") for series in other["series"]]
    if other["title"] is None and len(names) == 1 and title == names[0]:
        return "openpyxl gives a chart of one series no title"
    return None


def chart_of(chart):
    """openpyxl's chart in the form of the model."""
    charts = sorted(chart._charts, key=lambda one: DRAWN.index(TYPES[one.tagname]))  # pylint: disable=protected-access
    return {
        "type": TYPES[charts[0].tagname],
        "title": title_of(chart.title),
        "series": [series_of(series, TYPES[one.tagname]) for one in charts for series in one.ser],
    }


def title_of(title):
    """The text of a title; None where it has none, for openpyxl makes no difference between that and an empty one."""
    if title is None or title.tx is None:
        return None
    if title.tx.strRef is not None:
        return cached_text(title.tx.strRef)
    paragraphs = []
    for paragraph in title.tx.rich.p:
        pieces = list(paragraph.r or []) + ([paragraph.fld] if paragraph.fld else [])
        paragraphs.append("".join(piece.t or "" for piece in pieces))
    return "\n".join(paragraphs) or None


def series_of(series, kind):
    model = {"type": kind}
    if series.tx is not None and series.tx.strRef is not None:
        model["name"] = series.tx.strRef.f
        model["nameText"] = cached_text(series.tx.strRef)
    elif series.tx is not None:
        model["nameText"] = series.tx.v
    model["categories"] = reference_of(series.cat or series.xVal)
    model["values"] = reference_of(series.val or series.yVal)
    return model


def cached_text(reference):
    points = reference.strCache.pt if reference.strCache else []
    return " ".join(point.v or "" for point in points) if points else None


def reference_of(source):
    for kind in ("numRef", "strRef", "multiLvlStrRef"):
        reference = getattr(source, kind, None)
        if reference is not None:
            return reference.f
    return None


def normalised(reference):
    """The reference without needless quotes, or the empty text."""
    return re.sub(r"'([A-Za-z_][A-Za-z_.]*\d*)'!", r"\1!", (reference or "").strip())


def _corners(reference):
    first, _, last = reference.replace("$", "").partition(":")
    return first, last or first
