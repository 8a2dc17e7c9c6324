"""What runs of text look like by a second, slow account: each layer of formats is merged anew for each run.

ECMA-376 Part 1, 17.7.2 and 17.7.3: document defaults, table style, paragraph style, character style, what is set
directly. A toggle that is on in an odd number of the three styles is on.
"""
import colorsys
from collections import namedtuple

from text_xml import attribute, child, children, integer, is_on, name, value

Look = namedtuple("Look", "bold italic size color")  # size in points or None, colour in hexadecimal or None
TOGGLES = ("b", "i", "vanish")
MAPPING = {"dark1": "dk1", "light1": "lt1", "dark2": "dk2", "light2": "lt2", "hyperlink": "hlink",
           "followedHyperlink": "folHlink", **{f"accent{i}": f"accent{i}" for i in range(1, 7)}}
NAMED = {"text1": ("t1", "dark1"), "background1": ("bg1", "light1"), "text2": ("t2", "dark2"),
         "background2": ("bg2", "light2")}
LOOK_BITS = {"firstRow": 0x20, "lastRow": 0x40, "firstColumn": 0x80, "lastColumn": 0x100, "noHBand": 0x200, "noVBand": 0x400}


class Theme:
    """Colours by the names that text gives them."""

    def __init__(self, theme=None, mapping=None):
        self._scheme, self._mapping = {}, mapping
        for node in theme.iter() if theme is not None else ():
            if name(node) == "a:clrScheme":
                self._scheme = {name(each)[2:]: self._read(each) for each in node}
                break

    @staticmethod
    def _read(node):
        for each in node:
            rgb = each.get("lastClr") if name(each) == "a:sysClr" else each.get("val")
            return (rgb or "").upper()
        return ""

    def color(self, theme_name, tint, shade):
        """Hexadecimal; None where the theme has no such colour."""
        if theme_name in NAMED:
            word, default = NAMED[theme_name]
            theme_name = attribute(self._mapping, word) or default
        rgb = self._scheme.get(MAPPING.get(theme_name, ""))
        if not rgb:
            return None
        hue, light, full = colorsys.rgb_to_hls(*(int(rgb[i:i + 2], 16) / 255 for i in (0, 2, 4)))
        if shade is not None:
            light *= int(shade, 16) / 255
        elif tint is not None:
            light = light * int(tint, 16) / 255 + 1 - int(tint, 16) / 255
        return "".join(f"{round(part * 255):02X}" for part in colorsys.hls_to_rgb(hue, light, full))


class Styles:
    """The styles of a document, by their ids."""

    def __init__(self, root=None, theme=None):
        self._theme = theme or Theme()
        self.by_id, self._defaults_of = {}, {}
        for node in children(root):
            if name(node) == "w:style":
                self.by_id[attribute(node, "styleId") or ""] = node
                if attribute(node, "default") is not None and is_on(attribute(node, "default")):
                    self._defaults_of[attribute(node, "type")] = attribute(node, "styleId")
        defaults = child(child(child(root, "w:docDefaults"), "w:rPrDefault"), "w:rPr")
        self._defaults = self.run_props(defaults)

    def run_props(self, node):
        """{name: value} of what an rPr sets: switches as booleans, sz in points, color in hexadecimal or None."""
        props = {}
        is_complex = any(name(each) in ("w:rtl", "w:cs") and is_on(attribute(each, "val")) for each in children(node))
        for each in children(node):
            word = name(each)[2:]
            if is_complex and word in ("b", "i", "sz", "bCs", "iCs", "szCs"):  # which have others for such scripts
                word = {"bCs": "b", "iCs": "i", "szCs": "sz"}.get(word)
            if word in TOGGLES:
                props[word] = is_on(attribute(each, "val"))
            elif word == "sz" and integer(attribute(each, "val")) is not None:
                props[word] = integer(attribute(each, "val")) / 2
            elif word == "color":
                props[word] = self._color(each)
        return props

    def _color(self, node):
        rgb = None
        if attribute(node, "themeColor") is not None:
            rgb = self._theme.color(attribute(node, "themeColor"), attribute(node, "themeTint"), attribute(node, "themeShade"))
        written = (attribute(node, "val") or "auto").lstrip("#").upper()
        return rgb or (None if written == "AUTO" else written)

    def chain(self, style_id, kind):
        """The style nodes from the outermost ancestor on; the default one of its kind where the id names none."""
        node = self.by_id.get(style_id)
        if node is None or attribute(node, "type") != kind:
            node = self.by_id.get(self._defaults_of.get(kind))
        found = []
        while node is not None and node not in found and attribute(node, "type") == kind:
            found.append(node)
            node = self.by_id.get(value(node, "w:basedOn"))
        return found[::-1]

    def style_props(self, style_id, kind):
        merged = {}
        for node in self.chain(style_id, kind):
            merged.update(self.run_props(child(node, "w:rPr")))
        return merged

    def name_of(self, style_id):
        node = self.by_id.get(style_id)
        return value(node, "w:name") if node is not None else None

    def look(self, paragraph_style, direct, table_props):
        """The look of a run whose rPr is direct, and whether it is hidden."""
        run_style = value(direct, "w:rStyle")
        styles = [table_props, self.style_props(paragraph_style, "paragraph"), self.style_props(run_style, "character")]
        own = self.run_props(direct)
        size = color = None
        for layer in (self._defaults, *styles, own):
            size, color = layer.get("sz", size), layer.get("color", color)
        bold, italic, hidden = (own.get(word, self._defaults.get(word, False) or sum(
            layer.get(word, False) for layer in styles) % 2 == 1) for word in TOGGLES)
        return Look(bold, italic, size, color), hidden


class TableLook:
    """What a table's style says of the runs of its cells."""

    def __init__(self, styles, properties):
        self._styles = styles
        self._chain = styles.chain(value(properties, "w:tblStyle"), "table")
        self._look = self._read_look(child(properties, "w:tblLook"))
        self._bands = [self._band("w:tblStyleRowBandSize"), self._band("w:tblStyleColBandSize")]

    @staticmethod
    def _read_look(node):
        try:
            bits = int(attribute(node, "val") or "0", 16)
        except ValueError:
            bits = 0
        return {word: is_on(attribute(node, word)) if attribute(node, word) is not None else bool(bits & bit)
                for word, bit in LOOK_BITS.items()}

    def _band(self, word):
        found = [integer(value(child(node, "w:tblPr"), word)) for node in self._chain]
        return next((size for size in reversed(found) if size is not None), 1)

    def _parts(self, row, rows, column, last_column):
        """The parts of the table that hold a cell, those that win last."""
        on = self._look
        edges = {"firstRow": on["firstRow"] and row == 0, "lastRow": on["lastRow"] and row == rows - 1,
                 "firstCol": on["firstColumn"] and column == 0, "lastCol": on["lastColumn"] and column == last_column}
        if not on["noVBand"] and self._bands[1] > 0 and not edges["firstCol"] and not edges["lastCol"]:
            yield f"band{1 + (column - on['firstColumn']) // self._bands[1] % 2}Vert"
        if not on["noHBand"] and self._bands[0] > 0 and not edges["firstRow"] and not edges["lastRow"]:
            yield f"band{1 + (row - on['firstRow']) // self._bands[0] % 2}Horz"
        yield from (word for word, holds in edges.items() if holds)
        for word, first, second in (("nwCell", "firstRow", "firstCol"), ("neCell", "firstRow", "lastCol"),
                                    ("swCell", "lastRow", "firstCol"), ("seCell", "lastRow", "lastCol")):
            if edges[first] and edges[second]:
                yield word

    def props(self, row, rows, column, last_column):
        merged = {}
        for node in self._chain:
            merged.update(self._styles.run_props(child(node, "w:rPr")))
        for part in self._parts(row, rows, column, last_column):
            for node in self._chain:
                for each in children(node):
                    if name(each) == "w:tblStylePr" and attribute(each, "type") == part:
                        merged.update(self._styles.run_props(child(each, "w:rPr")))
        return merged
