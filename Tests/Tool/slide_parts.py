"""What presentations in tests are made of: the parts of a package, from the inner XML of each."""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "Samples"))
# pylint: disable=wrong-import-position
from package_parts import CONTENT_TYPES, HEAD, RELATIONS, relations

MAIN = "http://schemas.openxmlformats.org/presentationml/2006/main"
DRAWING = "http://schemas.openxmlformats.org/drawingml/2006/main"
KIND = "application/vnd.openxmlformats-officedocument.presentationml."
NAMESPACES = " ".join(f'xmlns:{prefix}="{uri}"' for prefix, uri in {
    "p": MAIN, "a": DRAWING, "r": RELATIONS, "mc": "http://schemas.openxmlformats.org/markup-compatibility/2006",
    "c": "http://schemas.openxmlformats.org/drawingml/2006/chart",
    "dgm": "http://schemas.openxmlformats.org/drawingml/2006/diagram",
}.items())
NAMES = ("bg1", "tx1", "bg2", "tx2", "accent1", "accent2", "accent3", "accent4", "accent5", "accent6", "hlink", "folHlink")
THEME_NAMES = {"bg1": "lt1", "tx1": "dk1", "bg2": "lt2", "tx2": "dk2"}
MAPPING = " ".join(f'{name}="{THEME_NAMES.get(name, name)}"' for name in NAMES)
COLOURS = "".join(f'<a:{THEME_NAMES.get(name, name)}><a:srgbClr val="{i * 0x141414:06X}"/></a:{THEME_NAMES.get(name, name)}>'
                  for i, name in enumerate(NAMES))
FILLS = '<a:solidFill><a:schemeClr val="phClr"/></a:solidFill>' * 3
LINES = f'<a:ln w="9525">{FILLS[:len(FILLS) // 3]}</a:ln>' * 3
THEME = (f'{HEAD}<a:theme {NAMESPACES} name="T"><a:themeElements><a:clrScheme name="c">{COLOURS}</a:clrScheme><a:fontScheme '
         'name="f"><a:majorFont><a:latin typeface="Sans"/></a:majorFont><a:minorFont><a:latin typeface="Serif"/>'
         f'</a:minorFont></a:fontScheme><a:fmtScheme name="m"><a:fillStyleLst>{FILLS}</a:fillStyleLst><a:lnStyleLst>{LINES}'
         '</a:lnStyleLst><a:effectStyleLst><a:effectStyle/></a:effectStyleLst>'
         f'<a:bgFillStyleLst>{FILLS}</a:bgFillStyleLst></a:fmtScheme></a:themeElements></a:theme>')
TREE = '<p:nvGrpSpPr><p:cNvPr id="1" name=""/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr><p:grpSpPr/>'
PRESENTATION, SLIDE = "ppt/presentation.xml", "ppt/slides/slide1.xml"
SLIDE_LINKS = "ppt/slides/_rels/slide1.xml.rels"


def part(root, shapes, inner="", before=""):
    """A slide, layout or master: its shapes, what stands before them and after them."""
    return (f"{HEAD}<p:{root} {NAMESPACES}><p:cSld>{before}<p:spTree>{TREE}{shapes}</p:spTree></p:cSld>{inner}</p:{root}>")


def presentation(*slides, links=(), master="", layout="", styles="", size='cx="9144000" cy="6858000"', notes="", extra=""):
    """The parts of a presentation with one layout, and a slide for each text of shapes.

    links are further rows for package_parts.relations, of the first slide; styles is what stands in p:txStyles.
    """
    kinds = {"ppt/presentation.xml": "presentation.main", "ppt/slideMasters/slideMaster1.xml": "slideMaster",
             "ppt/slideLayouts/slideLayout1.xml": "slideLayout",
             **{f"ppt/slides/slide{i}.xml": "slide" for i in range(1, len(slides) + 1)}}
    overrides = "".join(f'<Override PartName="/{name}" ContentType="{KIND}{kind}+xml"/>' for name, kind in kinds.items())
    entries = "".join(f'<p:sldId id="{255 + i}" r:id="s{i}"/>' for i in range(1, len(slides) + 1))
    parts = {
        "[Content_Types].xml": f'{HEAD}<Types xmlns="{CONTENT_TYPES}"><Default Extension="rels" ContentType='
                               '"application/vnd.openxmlformats-package.relationships+xml"/><Default Extension="xml" '
                               'ContentType="application/xml"/><Default Extension="png" ContentType="image/png"/>'
                               f"{overrides}</Types>",
        "_rels/.rels": relations([("rId1", "officeDocument", PRESENTATION)]),
        PRESENTATION: f'{HEAD}<p:presentation {NAMESPACES}><p:sldMasterIdLst><p:sldMasterId id="1" r:id="m1"/>'
                      f"</p:sldMasterIdLst><p:sldIdLst>{entries}</p:sldIdLst><p:sldSz {size}/>{extra}</p:presentation>",
        "ppt/_rels/presentation.xml.rels": relations([
            ("m1", "slideMaster", "slideMasters/slideMaster1.xml"), ("t1", "theme", "theme/theme1.xml"),
            *((f"s{i}", "slide", f"slides/slide{i}.xml") for i in range(1, len(slides) + 1))]),
        "ppt/theme/theme1.xml": THEME,
        "ppt/slideMasters/slideMaster1.xml": part("sldMaster", master, f"<p:clrMap {MAPPING}/><p:sldLayoutIdLst><p:sldLayoutId "
                                                  f'id="2" r:id="l1"/></p:sldLayoutIdLst><p:txStyles>{styles}</p:txStyles>'),
        "ppt/slideMasters/_rels/slideMaster1.xml.rels": relations([
            ("l1", "slideLayout", "../slideLayouts/slideLayout1.xml"), ("t1", "theme", "../theme/theme1.xml")]),
        "ppt/slideLayouts/slideLayout1.xml": part("sldLayout", layout),
        "ppt/slideLayouts/_rels/slideLayout1.xml.rels": relations([
            ("m1", "slideMaster", "../slideMasters/slideMaster1.xml")]),
    }
    for i, shapes in enumerate(slides, 1):
        rows = [("l1", "slideLayout", "../slideLayouts/slideLayout1.xml"), *(links if i == 1 else ())]
        if notes and i == 1:
            rows.append(("n1", "notesSlide", "../notesSlides/notesSlide1.xml"))
            parts["ppt/notesSlides/notesSlide1.xml"] = part("notes", notes)
        parts[f"ppt/slides/slide{i}.xml"] = part("sld", shapes)
        parts[f"ppt/slides/_rels/slide{i}.xml.rels"] = relations(rows)
    return parts


def transform(x=0, y=0, width=914400, height=914400, attributes="", inner=""):
    return f'<a:xfrm {attributes}><a:off x="{x}" y="{y}"/><a:ext cx="{width}" cy="{height}"/>{inner}</a:xfrm>'


def paragraph(text, properties="", run_properties=""):
    return f"<a:p>{properties}<a:r>{run_properties}<a:t>{text}</a:t></a:r></a:p>"


def shape(text="", properties=None, name="shape", placeholder="", body="<a:bodyPr/>", style=""):
    """properties: the inside of p:spPr; none: a rectangle of an inch. text: paragraphs, or plain text."""
    if properties is None:
        properties = transform() + '<a:prstGeom prst="rect"/>'
    paragraphs = text if text.startswith("<") else paragraph(text)
    return (f'<p:sp><p:nvSpPr><p:cNvPr id="2" name="{name}"/><p:cNvSpPr/><p:nvPr>{placeholder}</p:nvPr></p:nvSpPr>'
            f"<p:spPr>{properties}</p:spPr>{style}<p:txBody>{body}{paragraphs}</p:txBody></p:sp>")


def group(inner, properties=None):
    properties = transform(inner='<a:chOff x="0" y="0"/><a:chExt cx="914400" cy="914400"/>') if properties is None else properties
    return (f'<p:grpSp><p:nvGrpSpPr><p:cNvPr id="3" name="group"/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr>'
            f"<p:grpSpPr>{properties}</p:grpSpPr>{inner}</p:grpSp>")


def picture(relation="rIdP", crop="", link="r:embed"):
    return ('<p:pic><p:nvPicPr><p:cNvPr id="4" name="picture"/><p:cNvPicPr/><p:nvPr/></p:nvPicPr><p:blipFill>'
            f'<a:blip {link}="{relation}"/>{crop}<a:stretch><a:fillRect/></a:stretch></p:blipFill><p:spPr>{transform()}'
            '<a:prstGeom prst="rect"/></p:spPr></p:pic>')


def frame(inner, uri="table"):
    return ('<p:graphicFrame><p:nvGraphicFramePr><p:cNvPr id="5" name="frame"/><p:cNvGraphicFramePr/><p:nvPr/>'
            '</p:nvGraphicFramePr><p:xfrm><a:off x="0" y="0"/><a:ext cx="914400" cy="914400"/></p:xfrm><a:graphic>'
            f'<a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/{uri}">{inner}</a:graphicData>'
            "</a:graphic></p:graphicFrame>")


def cell(text="", attributes="", properties=""):
    return f"<a:tc {attributes}><a:txBody><a:bodyPr/>{paragraph(text)}</a:txBody><a:tcPr>{properties}</a:tcPr></a:tc>"


def table(*rows, columns=2):
    """rows: the cells of each."""
    widths = '<a:gridCol w="457200"/>' * columns
    lines = "".join(f'<a:tr h="370840">{"".join(cells)}</a:tr>' for cells in rows)
    return frame(f"<a:tbl><a:tblPr/><a:tblGrid>{widths}</a:tblGrid>{lines}</a:tbl>")


def geometry(paths="", guides="", values="", rectangle=""):
    return (f"{transform()}<a:custGeom><a:avLst>{values}</a:avLst><a:gdLst>{guides}</a:gdLst><a:cxnLst/>{rectangle}"
            f"<a:pathLst>{paths}</a:pathLst></a:custGeom>")
