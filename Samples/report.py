"""The demonstration text: a report of a harbour's year, with headings, lists, a table, pictures and notes."""
from orders import theme
from package_parts import CONTENT_TYPES, HEAD, RELATIONS, png, relations
from xml.sax.saxutils import escape

WORDS = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"
NAMESPACES = (
    f'xmlns:w="{WORDS}" xmlns:r="{RELATIONS}" '
    'xmlns:wp="http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing" '
    'xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main" '
    'xmlns:pic="http://schemas.openxmlformats.org/drawingml/2006/picture" '
    'xmlns:v="urn:schemas-microsoft-com:vml"')
WORD_TYPE = "application/vnd.openxmlformats-officedocument.wordprocessingml."
LINK = "rId20"


def run(text, props=""):
    return f'<w:r>{f"<w:rPr>{props}</w:rPr>" if props else ""}<w:t xml:space="preserve">{escape(text)}</w:t></w:r>'


def paragraph(*content, style="", props=""):
    name = f'<w:pStyle w:val="{style}"/>' if style else ""
    return f'<w:p><w:pPr>{name}{props}</w:pPr>{"".join(content)}</w:p>'


def item(level, number, *content):
    return paragraph(*content, style="ListParagraph",
                     props=f'<w:numPr><w:ilvl w:val="{level}"/><w:numId w:val="{number}"/></w:numPr>')


def field(instruction, result):
    def mark(kind):
        return f'<w:r><w:fldChar w:fldCharType="{kind}"/></w:r>'
    return (f'{mark("begin")}<w:r><w:instrText xml:space="preserve"> {escape(instruction)} </w:instrText></w:r>'
            f'{mark("separate")}{result}{mark("end")}')


def heading(level, text, bookmark=None):
    begin, end = "", ""
    if bookmark is not None:
        begin = f'<w:bookmarkStart w:id="{bookmark}" w:name="_Toc{1000 + bookmark}"/>'
        end = f'<w:bookmarkEnd w:id="{bookmark}"/>'
    return paragraph(begin, run(text), end, style=f"Heading{level}")


def named_style(ident, name, inner, kind="paragraph", base="Normal", attributes=""):
    based = f'<w:basedOn w:val="{base}"/>' if base else ""
    return f'<w:style w:type="{kind}" w:styleId="{ident}"{attributes}><w:name w:val="{name}"/>{based}{inner}</w:style>'


def styles():
    fonts = '<w:rFonts w:asciiTheme="minorHAnsi" w:hAnsiTheme="minorHAnsi"/>'
    rows = [
        f'<w:docDefaults><w:rPrDefault><w:rPr>{fonts}<w:sz w:val="22"/></w:rPr></w:rPrDefault>'
        '<w:pPrDefault><w:pPr><w:spacing w:after="160" w:line="259" w:lineRule="auto"/></w:pPr></w:pPrDefault>'
        '</w:docDefaults>',
        named_style("Normal", "Normal", "", base="", attributes=' w:default="1"'),
        named_style("Title", "Title", '<w:pPr><w:spacing w:after="0"/></w:pPr><w:rPr><w:sz w:val="56"/></w:rPr>'),
        named_style("ListParagraph", "List Paragraph",
                    '<w:pPr><w:spacing w:after="60"/><w:ind w:left="720"/><w:contextualSpacing/></w:pPr>'),
        named_style("Header", "header", '<w:pPr><w:tabs><w:tab w:val="right" w:pos="9072"/></w:tabs></w:pPr>'),
        named_style("TOC1", "toc 1", '<w:pPr><w:tabs><w:tab w:val="right" w:leader="dot" w:pos="9062"/></w:tabs>'
                                     '<w:spacing w:after="60"/></w:pPr>'),
        named_style("TOC2", "toc 2", '<w:pPr><w:tabs><w:tab w:val="right" w:leader="dot" w:pos="9062"/></w:tabs>'
                                     '<w:spacing w:after="60"/><w:ind w:left="220"/></w:pPr>'),
        named_style("FootnoteText", "footnote text", '<w:rPr><w:sz w:val="20"/></w:rPr>'),
        named_style("Strong", "Strong", "<w:rPr><w:b/></w:rPr>", kind="character", base=""),
        named_style("Hyperlink", "Hyperlink", '<w:rPr><w:color w:val="0563C1" w:themeColor="hyperlink"/>'
                                              '<w:u w:val="single"/></w:rPr>', kind="character", base=""),
        named_style("FootnoteReference", "footnote reference", '<w:rPr><w:vertAlign w:val="superscript"/></w:rPr>',
                    kind="character", base=""),
    ]
    for level, size in ((1, 32), (2, 26)):
        rows.append(named_style(
            f"Heading{level}", f"heading {level}",
            f'<w:pPr><w:keepNext/><w:numPr><w:ilvl w:val="{level - 1}"/><w:numId w:val="1"/></w:numPr>'
            f'<w:spacing w:before="240" w:after="80"/><w:outlineLvl w:val="{level - 1}"/></w:pPr>'
            f'<w:rPr><w:b/><w:color w:val="2F5496" w:themeColor="accent1" w:themeShade="BF"/>'
            f'<w:sz w:val="{size}"/></w:rPr>'))
    lines = "".join(f'<w:{side} w:val="single" w:sz="4" w:color="8EAADB"/>'
                    for side in ("top", "left", "bottom", "right", "insideH", "insideV"))
    rows.append(named_style(
        "Grid", "Table Blue", f'<w:tblPr><w:tblStyleRowBandSize w:val="1"/><w:tblBorders>{lines}</w:tblBorders></w:tblPr>'
        '<w:tblStylePr w:type="firstRow"><w:rPr><w:b/><w:color w:val="FFFFFF"/></w:rPr>'
        '<w:tcPr><w:shd w:val="clear" w:color="auto" w:fill="4472C4"/></w:tcPr></w:tblStylePr>'
        '<w:tblStylePr w:type="band1Horz"><w:tcPr><w:shd w:val="clear" w:color="auto" w:fill="D9E2F3"/></w:tcPr>'
        '</w:tblStylePr>', kind="table", base=""))
    return f'{HEAD}<w:styles {NAMESPACES}>{"".join(rows)}</w:styles>'


def numbering():
    def level(index, form, text, left, hanging, extra=""):
        return (f'<w:lvl w:ilvl="{index}"><w:start w:val="1"/><w:numFmt w:val="{form}"/>{extra}'
                f'<w:lvlText w:val="{text}"/><w:lvlJc w:val="left"/>'
                f'<w:pPr><w:ind w:left="{left}" w:hanging="{hanging}"/></w:pPr></w:lvl>')

    headings = (level(0, "decimal", "%1.", 432, 432, '<w:pStyle w:val="Heading1"/>')
                + level(1, "decimal", "%1.%2.", 576, 576, '<w:pStyle w:val="Heading2"/>'))
    steps = level(0, "lowerLetter", "%1)", 720, 360) + level(1, "lowerRoman", "%2.", 1440, 360)
    bullets = level(0, "bullet", "\u2022", 720, 360) + level(1, "bullet", "\u25e6", 1440, 360)
    body = "".join(f'<w:abstractNum w:abstractNumId="{index}">{levels}</w:abstractNum>'
                   for index, levels in enumerate((headings, steps, bullets)))
    body += "".join(f'<w:num w:numId="{index + 1}"><w:abstractNumId w:val="{index}"/></w:num>' for index in range(3))
    body += ('<w:num w:numId="4"><w:abstractNumId w:val="1"/><w:lvlOverride w:ilvl="0">'
             '<w:startOverride w:val="1"/></w:lvlOverride></w:num>')
    return f'{HEAD}<w:numbering {NAMESPACES}>{body}</w:numbering>'


def picture(relation, name, width, height, anchored=False):
    """width and height in points."""
    size = f'cx="{width * 12700}" cy="{height * 12700}"'
    graphic = (
        '<a:graphic><a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/picture"><pic:pic><pic:nvPicPr>'
        f'<pic:cNvPr id="1" name="{name}"/><pic:cNvPicPr/></pic:nvPicPr><pic:blipFill><a:blip r:embed="{relation}"/>'
        f'<a:stretch><a:fillRect/></a:stretch></pic:blipFill><pic:spPr><a:xfrm><a:off x="0" y="0"/><a:ext {size}/>'
        '</a:xfrm><a:prstGeom prst="rect"><a:avLst/></a:prstGeom></pic:spPr></pic:pic></a:graphicData></a:graphic>')
    props = f'<wp:extent {size}/>{{}}<wp:docPr id="1" name="{name}"/>{graphic}'
    if not anchored:
        return f'<w:r><w:drawing><wp:inline>{props.format("")}</wp:inline></w:drawing></w:r>'
    return (
        '<w:r><w:drawing><wp:anchor simplePos="0" relativeHeight="1" behindDoc="0" locked="0" layoutInCell="1" '
        'allowOverlap="1"><wp:simplePos x="0" y="0"/><wp:positionH relativeFrom="margin"><wp:posOffset>4445000'
        '</wp:posOffset></wp:positionH><wp:positionV relativeFrom="paragraph"><wp:posOffset>0</wp:posOffset>'
        f'</wp:positionV>{props.format("<wp:wrapSquare wrapText=" + chr(34) + "left" + chr(34) + "/>")}</wp:anchor>'
        '</w:drawing></w:r>')


def table():
    def cell(text, width, props="", bold=""):
        return (f'<w:tc><w:tcPr><w:tcW w:w="{width}" w:type="dxa"/>{props}</w:tcPr>'
                f'{paragraph(run(text, bold), props="<w:spacing w:after=" + chr(34) + "0" + chr(34) + "/>")}</w:tc>')

    rows = [
        [cell("Quay", 2400), cell("Ships", 1800), cell("Tonnes", 1800)],
        [cell("North", 2400, '<w:vMerge w:val="restart"/>'), cell("211", 1800), cell("84,300", 1800)],
        [cell("", 2400, "<w:vMerge/>"), cell("198", 1800), cell("79,150", 1800)],
        [cell("South", 2400), cell("none: under repair", 3600, '<w:gridSpan w:val="2"/>', "<w:i/>")],
    ]
    grid = "".join(f'<w:gridCol w:w="{width}"/>' for width in (2400, 1800, 1800))
    body = "".join(f'<w:tr>{"".join(cells)}</w:tr>' for cells in rows)
    return ('<w:tbl><w:tblPr><w:tblStyle w:val="Grid"/><w:tblW w:w="6000" w:type="dxa"/><w:tblLook w:val="0420" '
            f'w:firstRow="1" w:noVBand="1"/></w:tblPr><w:tblGrid>{grid}</w:tblGrid>{body}</w:tbl>')


def contents():
    def entry(level, number, text, page, bookmark):
        return (f'<w:hyperlink w:anchor="_Toc{1000 + bookmark}">{run(f"{number} {text}")}'
                f'<w:r><w:tab/></w:r>{run(str(page))}</w:hyperlink>')

    begin = ('<w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText xml:space="preserve"> TOC \\o "1-2" \\h \\z '
             '\\u </w:instrText></w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r>')
    return (paragraph(begin, entry(1, "1.", "The year", 1, 1), style="TOC1")
            + paragraph(entry(2, "1.1.", "What came in", 1, 2), style="TOC2")
            + paragraph(entry(1, "2.", "What is to be done", 2, 3),
                        '<w:r><w:fldChar w:fldCharType="end"/></w:r>', style="TOC1"))


def body():
    change = 'w:id="9" w:author="M. Okafor" w:date="2024-05-01T10:00:00Z"'
    vml = ('<w:r><w:pict><v:shape style="width:36pt;height:18pt"><v:imagedata r:id="rId11"/></v:shape></w:pict></w:r>')
    return "".join((
        paragraph(run("A harbour\u2019s year"), style="Title"),
        paragraph(run("Report of the harbour office, "), run("2024", '<w:rStyle w:val="Strong"/>')),
        contents(),
        heading(1, "The year", 1),
        paragraph(run("The harbour was "), run("busier", "<w:i/>"), run(" than ever, and "),
                  run("colder", '<w:b/><w:color w:val="C00000"/>'), run("."),
                  '<w:r><w:rPr><w:rStyle w:val="FootnoteReference"/></w:rPr><w:footnoteReference w:id="1"/></w:r>',
                  run(" unseen", "<w:vanish/>")),
        heading(2, "What came in", 2),
        table(),
        paragraph(picture("rId10", "Chart of the tides", 96, 64), run(" The tides, beside a stamp: "), vml),
        paragraph(picture("rId11", "Seal", 48, 24, anchored=True),
                  run("A seal stands beside this paragraph, at the right margin.")),
        heading(1, "What is to be done", 3),
        item(0, 2, run("dredge the channel")),
        item(1, 2, run("north of the light")),
        item(1, 2, run("south of it")),
        item(0, 2, run("mend the "), f'<w:del {change}><w:r><w:delText>old </w:delText></w:r></w:del>',
             f'<w:ins {change}>{run("southern ")}</w:ins>', run("quay")),
        paragraph(run("And every month:")),
        item(0, 4, run("count the gulls")),
        item(0, 3, run("grey ones")),
        item(0, 3, run("all others")),
        paragraph(run("More at "), f'<w:hyperlink r:id="{LINK}">{run("the office", chr(60) + "w:rStyle w:val=" + chr(34) + "Hyperlink" + chr(34) + "/>")}</w:hyperlink>',
                  run(".")),
        paragraph(run("Signed,"), "<w:r><w:br/></w:r>", run("the harbour master"), props='<w:jc w:val="right"/>'),
        '<w:sectPr><w:headerReference w:type="default" r:id="rId12"/><w:footerReference w:type="default" r:id="rId13"/>'
        '<w:pgSz w:w="11906" w:h="16838"/><w:pgMar w:top="1417" w:right="1417" w:bottom="1134" w:left="1417" '
        'w:header="708" w:footer="708" w:gutter="0"/></w:sectPr>',
    ))


def parts():
    def part(root, inner):
        return f"{HEAD}<w:{root} {NAMESPACES}>{inner}</w:{root}>"

    blue = png(24, 16, lambda x, y: (40, 90 + 8 * y, 160 + 3 * x))
    seal = png(16, 8, lambda x, y: (192, 0, 0) if (x // 4 + y // 4) % 2 else (255, 230, 153))
    rows = [("rId1", "styles", "styles.xml"), ("rId2", "numbering", "numbering.xml"), ("rId3", "theme", "theme/theme1.xml"),
            ("rId4", "footnotes", "footnotes.xml"), ("rId10", "image", "media/tides.png"),
            ("rId11", "image", "media/seal.png"), ("rId12", "header", "header1.xml"), ("rId13", "footer", "footer1.xml"),
            (LINK, "hyperlink", "https://harbour.example/", "External")]
    kinds = [("document", "document.main"), ("styles", "styles"), ("numbering", "numbering"), ("footnotes", "footnotes"),
             ("header1", "header"), ("footer1", "footer")]
    overrides = "".join(f'<Override PartName="/word/{name}.xml" ContentType="{WORD_TYPE}{kind}+xml"/>' for name, kind in kinds)
    overrides += ('<Override PartName="/word/theme/theme1.xml" '
                  'ContentType="application/vnd.openxmlformats-officedocument.theme+xml"/>')
    note = paragraph('<w:r><w:footnoteRef/></w:r>', run(" By 1.5 \u00b0C."), style="FootnoteText")
    return {
        "[Content_Types].xml": (
            f'{HEAD}<Types xmlns="{CONTENT_TYPES}"><Default Extension="rels" '
            'ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
            '<Default Extension="xml" ContentType="application/xml"/><Default Extension="png" ContentType="image/png"/>'
            f'{overrides}</Types>'),
        "_rels/.rels": relations([("rId1", "officeDocument", "word/document.xml")]),
        "word/document.xml": part("document", f"<w:body>{body()}</w:body>"),
        "word/_rels/document.xml.rels": relations(rows),
        "word/styles.xml": styles(),
        "word/numbering.xml": numbering(),
        "word/theme/theme1.xml": theme(),
        "word/footnotes.xml": part("footnotes", f'<w:footnote w:id="1">{note}</w:footnote>'),
        "word/header1.xml": part("hdr", paragraph(run("Harbour office"), "<w:r><w:tab/></w:r>", run("2024"), style="Header")),
        "word/footer1.xml": part("ftr", paragraph(run("Page "), field("PAGE", run("1")), props='<w:jc w:val="center"/>')),
        "word/media/tides.png": blue,
        "word/media/seal.png": seal,
    }
