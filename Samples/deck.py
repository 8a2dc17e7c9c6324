"""The demonstration presentation: a harbour's year on slides, with lists, shapes, a picture, a table and a chart."""
from xml.sax.saxutils import escape, quoteattr

from package_parts import CHART_TYPE, CONTENT_TYPES, HEAD, RELATIONS, png, relations

SLIDES = "http://schemas.openxmlformats.org/presentationml/2006/main"
DRAWING = "http://schemas.openxmlformats.org/drawingml/2006/main"
CHART = "http://schemas.openxmlformats.org/drawingml/2006/chart"
TABLE = "http://schemas.openxmlformats.org/drawingml/2006/table"
NAMESPACES = f'xmlns:a="{DRAWING}" xmlns:r="{RELATIONS}" xmlns:p="{SLIDES}"'
SLIDE_TYPE = "application/vnd.openxmlformats-officedocument.presentationml."
THEME_TYPE = "application/vnd.openxmlformats-officedocument.theme+xml"
TABLE_STYLE = "{6B1D4C5A-3F1E-4E0B-9C55-2A7D5E8F9A01}"
WIDTH, HEIGHT = 960, 540  # of a slide; all lengths here are points

COLOURS = {"dk1": "1B2A33", "lt1": "FFFFFF", "dk2": "0B3C5D", "lt2": "EEF4F7", "accent1": "0E7C86",
           "accent2": "F2A541", "accent3": "D1495B", "accent4": "5B8E7D", "accent5": "3D5A80", "accent6": "9A7AA0",
           "hlink": "0563C1", "folHlink": "6B4C9A"}


def emu(points):
    return round(points * 12700)


def scheme(name, inner=""):
    return f'<a:schemeClr val="{name}">{inner}</a:schemeClr>' if inner else f'<a:schemeClr val="{name}"/>'


def solid(name, inner=""):
    return f"<a:solidFill>{scheme(name, inner)}</a:solidFill>"


def gradient(angle, *stops):
    inner = "".join(f'<a:gs pos="{position * 1000}">{colour}</a:gs>' for position, colour in stops)
    return f'<a:gradFill rotWithShape="1"><a:gsLst>{inner}</a:gsLst><a:lin ang="{angle * 60000}" scaled="0"/></a:gradFill>'


def line(width, fill, inner=""):
    return f'<a:ln w="{emu(width)}">{fill}{inner}</a:ln>'


def transform(box, attributes="", tag="a:xfrm", inner=""):
    x, y, width, height = (emu(value) for value in box)
    return f'<{tag}{attributes}><a:off x="{x}" y="{y}"/><a:ext cx="{width}" cy="{height}"/>{inner}</{tag}>'


def preset(name, **adjusts):
    guides = "".join(f'<a:gd name="{adjust}" fmla="val {value}"/>' for adjust, value in adjusts.items())
    return f'<a:prstGeom prst="{name}"><a:avLst>{guides}</a:avLst></a:prstGeom>'


def run(text, props="", attributes=""):
    return f'<a:r><a:rPr lang="en-GB"{attributes}>{props}</a:rPr><a:t>{escape(text)}</a:t></a:r>'


def paragraph(*content, props=""):
    return f'<a:p>{props}{"".join(content)}</a:p>'


def text_body(*paragraphs, props="<a:bodyPr/>", tag="p:txBody", levels=""):
    return f'<{tag}>{props}<a:lstStyle>{levels}</a:lstStyle>{"".join(paragraphs)}</{tag}>'


def shape(number, name, look="", text="", placeholder="", extra="", lock="", style=""):
    """look: what p:spPr holds; placeholder: the attributes of p:ph."""
    application = f"<p:nvPr><p:ph {placeholder}/></p:nvPr>" if placeholder else "<p:nvPr/>"
    return (f'<p:sp><p:nvSpPr><p:cNvPr id="{number}" name={quoteattr(name)}{extra}/><p:cNvSpPr{lock}/>{application}'
            f"</p:nvSpPr><p:spPr>{look}</p:spPr>{style}{text}</p:sp>")


def label(text, colour="lt1", size=14):
    """Text in the middle of a shape."""
    return text_body(paragraph(run(text, solid(colour), f' sz="{size * 100}"'), props='<a:pPr algn="ctr"/>'),
                     props='<a:bodyPr wrap="square" anchor="ctr"/>')


def tree(*shapes):
    return ('<p:spTree><p:nvGrpSpPr><p:cNvPr id="1" name=""/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr><p:grpSpPr><a:xfrm>'
            '<a:off x="0" y="0"/><a:ext cx="0" cy="0"/><a:chOff x="0" y="0"/><a:chExt cx="0" cy="0"/></a:xfrm></p:grpSpPr>'
            f'{"".join(shapes)}</p:spTree>')


def theme(name):
    slots = "".join(f'<a:{slot}><a:srgbClr val="{colour}"/></a:{slot}>' for slot, colour in COLOURS.items())
    fonts = "".join(f'<a:{kind}><a:latin typeface="{font}"/><a:ea typeface=""/><a:cs typeface=""/></a:{kind}>'
                    for kind, font in (("majorFont", "Cambria"), ("minorFont", "Calibri")))
    fill = solid("phClr")
    soft = gradient(90, (0, scheme("phClr", '<a:tint val="60000"/>')), (100, scheme("phClr")))
    deep = gradient(90, (0, scheme("phClr")), (100, scheme("phClr", '<a:shade val="60000"/>')))
    lines = "".join(f'<a:ln w="{emu(width)}" cap="flat" cmpd="sng">{fill}<a:prstDash val="solid"/></a:ln>'
                    for width in (0.5, 1.5, 3))
    plain = "<a:effectStyle><a:effectLst/></a:effectStyle>"
    raised = ('<a:effectStyle><a:effectLst><a:outerShdw blurRad="50800" dist="25400" dir="5400000" rotWithShape="0">'
              '<a:srgbClr val="000000"><a:alpha val="40000"/></a:srgbClr></a:outerShdw></a:effectLst></a:effectStyle>')
    return (f'{HEAD}<a:theme xmlns:a="{DRAWING}" name="{name}"><a:themeElements><a:clrScheme name="{name}">{slots}'
            f'</a:clrScheme><a:fontScheme name="{name}">{fonts}</a:fontScheme><a:fmtScheme name="{name}"><a:fillStyleLst>'
            f"{fill}{soft}{deep}</a:fillStyleLst><a:lnStyleLst>{lines}</a:lnStyleLst><a:effectStyleLst>{plain}{plain}"
            f"{raised}</a:effectStyleLst><a:bgFillStyleLst>{fill}{soft}{deep}</a:bgFillStyleLst></a:fmtScheme>"
            "</a:themeElements></a:theme>")


def text_level(number, left, hanging, size, colour, bullet, font="+mn-lt", before=6):
    return (f'<a:lvl{number}pPr marL="{emu(left)}" indent="{-emu(hanging)}" algn="l"><a:lnSpc><a:spcPct val="95000"/></a:lnSpc>'
            f'<a:spcBef><a:spcPts val="{before * 100}"/></a:spcBef>{bullet}<a:defRPr sz="{size * 100}">{solid(colour)}'
            f'<a:latin typeface="{font}"/></a:defRPr></a:lvl{number}pPr>')


def bullet_of(character, colour):
    return f'<a:buClr>{scheme(colour)}</a:buClr><a:buFont typeface="Arial"/><a:buChar char="{character}"/>'


def footers(first):
    """The date, the footer and the number of a slide; the number is a field."""
    number = '<a:p><a:fld id="{8A7D2F10-5C3B-4E6A-9D21-0F4B7C8E1A22}" type="slidenum"><a:rPr lang="en-GB"/><a:t>{}</a:t></a:fld></a:p>'
    return (("Date", 'type="dt" sz="half" idx="10"', paragraph(run("31 December 2024"))),
            ("Footer", 'type="ftr" sz="quarter" idx="11"', paragraph(run("Harbour office"))),
            ("Slide Number", 'type="sldNum" sz="quarter" idx="12"', number.replace("{}", str(first))))


def master():
    small = ('<a:lvl1pPr algn="{}"><a:defRPr sz="1100">' + solid("tx1", '<a:tint val="75000"/>') + "</a:defRPr></a:lvl1pPr>")
    boxes = (((48, 500, 220, 26), "l"), ((320, 500, 320, 26), "ctr"), ((692, 500, 220, 26), "r"))
    shapes = [
        shape(2, "Band", transform((0, 0, WIDTH, 18)) + preset("rect") + solid("accent1") + "<a:ln><a:noFill/></a:ln>"),
        shape(3, "Mark", transform((876, 0, 36, 44)) + preset("flowChartOffpageConnector") + solid("accent2")
              + "<a:ln><a:noFill/></a:ln>"),
        shape(4, "Title Placeholder", transform((48, 32, 800, 70)) + preset("rect"), text_body(
            paragraph(run("Titles")), props='<a:bodyPr vert="horz" lIns="0" anchor="ctr"><a:normAutofit/></a:bodyPr>'),
              'type="title"'),
        shape(5, "Text Placeholder", transform((48, 120, 864, 360)) + preset("rect"), text_body(
            paragraph(run("First level")), paragraph(run("Second level"), props='<a:pPr lvl="1"/>'),
            props='<a:bodyPr vert="horz" lIns="0"><a:normAutofit/></a:bodyPr>'), 'type="body" idx="1"'),
    ]
    for index, ((name, placeholder, inner), (box, align)) in enumerate(zip(footers(1), boxes), 6):
        of_master = placeholder.replace(f'idx="{index + 4}"', f'idx="{index - 4}"')
        shapes.append(shape(index, f"{name} Placeholder", transform(box) + preset("rect"), text_body(
            inner, props='<a:bodyPr vert="horz" anchor="ctr"/>', levels=small.format(align)), of_master))
    body = (text_level(1, 20, 20, 24, "tx1", bullet_of("\u2022", "accent1"), before=10)
            + text_level(2, 46, 18, 20, "tx1", bullet_of("\u2013", "accent2"))
            + text_level(3, 70, 16, 18, "tx1", bullet_of("\u2022", "accent1")))
    other = "".join(f'<a:lvl{level}pPr marL="{emu(36 * (level - 1))}"><a:defRPr sz="1800">{solid("tx1")}'
                    f'<a:latin typeface="+mn-lt"/></a:defRPr></a:lvl{level}pPr>' for level in (1, 2, 3))
    mapping = " ".join(f'{slot}="{colour}"' for slot, colour in (
        ("bg1", "lt1"), ("tx1", "dk1"), ("bg2", "lt2"), ("tx2", "dk2"), *((f"accent{i}", f"accent{i}") for i in range(1, 7)),
        ("hlink", "hlink"), ("folHlink", "folHlink")))
    return (f'{HEAD}<p:sldMaster {NAMESPACES}><p:cSld><p:bg><p:bgRef idx="1001">{scheme("bg1")}</p:bgRef></p:bg>'
            f'{tree(*shapes)}</p:cSld><p:clrMap {mapping}/><p:sldLayoutIdLst><p:sldLayoutId id="2147483649" r:id="rId1"/>'
            '<p:sldLayoutId id="2147483650" r:id="rId2"/></p:sldLayoutIdLst><p:txStyles><p:titleStyle>'
            f'{text_level(1, 0, 0, 34, "tx2", "<a:buNone/>", "+mj-lt", 0)}</p:titleStyle><p:bodyStyle>{body}</p:bodyStyle>'
            f"<p:otherStyle>{other}</p:otherStyle></p:txStyles></p:sldMaster>")


def layout(name, kind, content, background="", attributes=""):
    return (f'{HEAD}<p:sldLayout {NAMESPACES} type="{kind}"{attributes}><p:cSld name="{name}">{background}{content}</p:cSld>'
            "<p:clrMapOvr><a:masterClrMapping/></p:clrMapOvr></p:sldLayout>")


def title_layout():
    def levels(size, colour):
        return (f'<a:lvl1pPr marL="0" indent="0" algn="ctr"><a:buNone/><a:defRPr sz="{size * 100}">{solid(colour)}</a:defRPr>'
                "</a:lvl1pPr>")

    background = f'<p:bg><p:bgPr>{gradient(60, (0, scheme("tx2")), (100, scheme("accent1")))}<a:effectLst/></p:bgPr></p:bg>'
    wave = transform((-20, 400, WIDTH + 40, 200)) + preset("wave", adj1=12500, adj2=0)
    return layout("Title Slide", "title", tree(
        shape(2, "Water", wave + solid("accent4", '<a:alpha val="60000"/>') + "<a:ln><a:noFill/></a:ln>"),
        shape(3, "Title", transform((96, 130, 768, 120)), text_body(
            paragraph(run("The title")), props='<a:bodyPr anchor="b"/>', levels=levels(54, "bg1")), 'type="ctrTitle"'),
        shape(4, "Subtitle", transform((96, 262, 768, 60)), text_body(
            paragraph(run("What it is about")), levels=levels(24, "accent2")), 'type="subTitle" idx="1"')),
                  background, ' showMasterSp="0"')


def content_layout():
    placed = [shape(2, "Title", "", text_body(paragraph(run("The title"))), 'type="title"'),
              shape(3, "Content Placeholder", "", text_body(paragraph(run("First level"))), 'idx="1"')]
    placed += [shape(number, f"{name} Placeholder", "", text_body(inner), placeholder)
               for number, (name, placeholder, inner) in enumerate(footers(1), 4)]
    return layout("Title and Content", "obj", tree(*placed))


def slide(*shapes, name="", attributes=""):
    named = f' name="{name}"' if name else ""
    return (f"{HEAD}<p:sld {NAMESPACES}{attributes}><p:cSld{named}>{tree(*shapes)}</p:cSld>"
            "<p:clrMapOvr><a:masterClrMapping/></p:clrMapOvr></p:sld>")


def title(text):
    return shape(2, "Title 1", "", text_body(paragraph(run(text))), 'type="title"')


def foot(number):
    """The footer and the number, which the slide takes over."""
    return "".join(shape(identifier, f"{name} {identifier}", "", text_body(inner), placeholder)
                   for identifier, (name, placeholder, inner) in enumerate(footers(number)[1:], 91))


def opening():
    return slide(
        shape(2, "Title 1", "", text_body(paragraph(run("A harbour\u2019s year"))), 'type="ctrTitle"'),
        shape(3, "Subtitle 2", "", text_body(paragraph(run("Report of the harbour office, "), run("2024", "", ' b="1"'))),
              'type="subTitle" idx="1"'))


def lists():
    def numbered(level, kind, *content):
        indents = f'marL="{emu(46 if level else 26)}" indent="{-emu(26)}"'
        return paragraph(*content, props=f'<a:pPr {indents} lvl="{level}"><a:buFont typeface="+mj-lt"/>'
                                         f'<a:buAutoNum type="{kind}"/></a:pPr>')

    deeper = '<a:pPr lvl="1"/>'
    link = '<a:hlinkClick r:id="rId2"/>'
    body = text_body(
        paragraph(run("The harbour was "), run("busier", "", ' i="1"'), run(" than ever, and "),
                  run("colder", solid("accent3"), ' b="1"')),
        paragraph(run("409 ships at the north quay"), props=deeper),
        paragraph(run("none at the south quay: under repair"), props=deeper),
        paragraph(run("What is to be done")),
        numbered(0, "arabicPeriod", run("Dredge the channel")),
        numbered(1, "alphaLcParenR", run("north of the light")),
        numbered(1, "alphaLcParenR", run("south of it")),
        numbered(0, "arabicPeriod", run("Mend the southern quay")),
        paragraph(run("More at "), run("the office", link), run("."), props='<a:pPr marL="0" indent="0"><a:buNone/></a:pPr>'))
    return slide(title("The year in short"), shape(3, "Content 2", "", body, 'idx="1"'), foot(2))


def sail():
    """A boat whose sail is as wide as an adjust value says."""
    def point(x, y):
        return f'<a:pt x="{x}" y="{y}"/>'

    guides = "".join(f'<a:gd name="{name}" fmla="{formula}"/>' for name, formula in (
        ("deck", "*/ h 3 4"), ("reach", "*/ w adj 100000"), ("keel", "*/ w 1 5"), ("stern", "+- r 0 keel"),
        ("mast", "*/ w 45 100")))
    hull = (f'<a:path><a:moveTo>{point("l", "deck")}</a:moveTo><a:lnTo>{point("r", "deck")}</a:lnTo>'
            f'<a:quadBezTo>{point("r", "b")}{point("stern", "b")}</a:quadBezTo><a:lnTo>{point("keel", "b")}</a:lnTo>'
            f'<a:quadBezTo>{point("l", "b")}{point("l", "deck")}</a:quadBezTo><a:close/></a:path>')
    cloth = (f'<a:path fill="lighten"><a:moveTo>{point("mast", "t")}</a:moveTo><a:cubicBezTo>{point("reach", "t")}'
             f'{point("reach", "vc")}{point("r", "vc")}</a:cubicBezTo><a:lnTo>{point("mast", "vc")}</a:lnTo><a:close/></a:path>')
    mast = (f'<a:path fill="none"><a:moveTo>{point("mast", "t")}</a:moveTo><a:lnTo>{point("mast", "deck")}</a:lnTo></a:path>')
    return ('<a:custGeom><a:avLst><a:gd name="adj" fmla="val 70000"/></a:avLst><a:gdLst>' + guides + "</a:gdLst><a:ahLst/>"
            '<a:cxnLst><a:cxn ang="3cd4"><a:pos x="mast" y="t"/></a:cxn></a:cxnLst><a:rect l="l" t="deck" r="r" b="b"/>'
            f"<a:pathLst>{hull}{cloth}{mast}</a:pathLst></a:custGeom>")


def group():
    """Two shapes in coordinates of twice the size, turned together."""
    inner = (shape(31, "Sun", transform((0, 0, 120, 120)) + preset("sun", adj=25000) + solid("accent2"))
             + shape(32, "Sea", transform((60, 110, 260, 90)) + preset("doubleWave", adj1=8000, adj2=0) + solid("accent5"),
                     label("A group")))
    box = '<a:chOff x="0" y="0"/>' + f'<a:chExt cx="{emu(320)}" cy="{emu(200)}"/>'
    return ('<p:grpSp><p:nvGrpSpPr><p:cNvPr id="30" name="Group 29"/><p:cNvGrpSpPr/><p:nvPr/></p:nvGrpSpPr><p:grpSpPr>'
            f'{transform((370, 290, 160, 100), f" rot={chr(34)}{15 * 60000}{chr(34)}", inner=box)}</p:grpSpPr>{inner}</p:grpSp>')


def connector(number, name, box, geometry, look, ends="", attributes=""):
    return (f'<p:cxnSp><p:nvCxnSpPr><p:cNvPr id="{number}" name="{name}"/><p:cNvCxnSpPr>{ends}</p:cNvCxnSpPr><p:nvPr/>'
            f"</p:nvCxnSpPr><p:spPr>{transform(box, attributes)}{geometry}{look}</p:spPr></p:cxnSp>")


def shapes():
    none = "<a:ln><a:noFill/></a:ln>"
    style = (f'<p:style><a:lnRef idx="2">{scheme("accent5")}</a:lnRef><a:fillRef idx="3">{scheme("accent5")}</a:fillRef>'
             f'<a:effectRef idx="3">{scheme("accent5")}</a:effectRef><a:fontRef idx="minor">{scheme("lt1")}</a:fontRef></p:style>')
    shadow = ('<a:effectLst><a:outerShdw blurRad="63500" dist="50800" dir="2700000" algn="tl" rotWithShape="0">'
              '<a:srgbClr val="000000"><a:alpha val="45000"/></a:srgbClr></a:outerShdw></a:effectLst>')
    pattern = f'<a:pattFill prst="dkUpDiag"><a:fgClr>{scheme("accent3")}</a:fgClr><a:bgClr>{scheme("bg2")}</a:bgClr></a:pattFill>'
    camera = ('<a:scene3d><a:camera prst="orthographicFront"><a:rot lat="1200000" lon="18600000" rev="0"/></a:camera>'
              '<a:lightRig rig="threePt" dir="t"/></a:scene3d>')
    picture_fill = '<a:blipFill><a:blip r:embed="rId2"/><a:stretch><a:fillRect/></a:stretch></a:blipFill>'
    return slide(
        title("What shapes can be"),
        shape(10, "Gradient", transform((48, 124, 130, 84)) + preset("roundRect", adj=30000)
              + gradient(45, (0, scheme("accent1")), (60, scheme("accent2")), (100, scheme("accent3"))) + none, label("Gradient")),
        shape(11, "Pattern", transform((198, 124, 130, 84)) + preset("chevron", adj=35000) + pattern
              + line(1, solid("accent3"))),
        shape(12, "Shadow", transform((348, 124, 130, 66)) + preset("wedgeRoundRectCallout", adj1=-30000, adj2=90000, adj3=16667)
              + solid("bg2") + line(1.5, solid("accent1")) + shadow, label("Shadow", "tx1")),
        shape(13, "Arc", transform((508, 118, 96, 96)) + preset("blockArc", adj1=9000000, adj2=1800000, adj3=22000)
              + solid("accent4") + none),
        shape(14, "Boat", transform((636, 112, 110, 110)) + sail() + solid("accent3") + line(1.5, solid("tx2")),
              extra=' descr="A boat with a red sail"'),
        shape(15, "Turned in space", transform((780, 124, 120, 84)) + preset("rect") + solid("accent6") + none + camera,
              label("In space")),
        shape(16, "Turned", transform((60, 268, 130, 70), ' rot="1800000"') + preset("rightArrow", adj1=60000, adj2=45000),
              label("30\u00b0"), style=style),
        shape(17, "Mirrored", transform((226, 270, 90, 70), ' flipH="1"') + preset("rtTriangle") + solid("accent4", '<a:lumMod val="75000"/>')
              + line(2.25, solid("accent2")), extra=' title="Mirrored"'),
        group(),
        shape(18, "From", transform((580, 262, 110, 44)) + preset("flowChartTerminator"), label("From"), style=style),
        shape(19, "To", transform((790, 352, 110, 44)) + preset("flowChartProcess"), label("To"), style=style),
        connector(20, "Connector", (690, 284, 155, 68), preset("bentConnector2"),
                  line(1.5, solid("tx2"), '<a:tailEnd type="triangle"/>'),
                  '<a:stCxn id="18" idx="3"/><a:endCxn id="19" idx="0"/>'),
        connector(21, "Dashed", (60, 430, 460, 30), preset("line"),
                  line(3, solid("accent3"), '<a:prstDash val="lgDash"/><a:round/><a:headEnd type="oval" w="lg" len="lg"/>'
                                            '<a:tailEnd type="stealth" w="lg" len="lg"/>'), attributes=' flipV="1"'),
        shape(22, "Seal", transform((590, 400, 84, 84)) + preset("ellipse") + picture_fill + line(2, solid("accent2"))),
        foot(3), name="Shapes")


def picture(box):
    return ('<p:pic><p:nvPicPr><p:cNvPr id="4" name="Picture 3" descr="The tides of one week"/><p:cNvPicPr>'
            '<a:picLocks noChangeAspect="1"/></p:cNvPicPr><p:nvPr/></p:nvPicPr><p:blipFill><a:blip r:embed="rId2"/>'
            '<a:srcRect l="10000" r="20000" b="25000"/><a:stretch><a:fillRect/></a:stretch></p:blipFill>'
            f'<p:spPr>{transform(box)}{preset("rect")}{line(2, solid("accent1"))}</p:spPr></p:pic>')


def table(box):
    def cell(text, attributes="", align="l", props="", run_attributes=""):
        return (f'<a:tc{attributes}>{text_body(paragraph(run(text, "", run_attributes) if text else "", props=f"<a:pPr algn={chr(34)}{align}{chr(34)}/>"), tag="a:txBody")}'
                f'<a:tcPr anchor="ctr">{props}</a:tcPr></a:tc>')

    rows = (
        cell("Quay") + cell("Ships", align="r") + cell("Tonnes", align="r"),
        cell("North", ' rowSpan="2"') + cell("211", align="r") + cell("84,300", align="r"),
        cell("", ' vMerge="1"') + cell("198", align="r") + cell("79,150", align="r"),
        cell("South") + cell("none: under repair", ' gridSpan="2"', "ctr", solid("accent2", '<a:tint val="40000"/>'), ' i="1"')
        + cell("", ' hMerge="1"'),
    )
    grid = "".join(f'<a:gridCol w="{emu(width)}"/>' for width in (152, 150, 150))
    body = "".join(f'<a:tr h="{emu(36)}">{cells}</a:tr>' for cells in rows)
    return ('<p:graphicFrame><p:nvGraphicFramePr><p:cNvPr id="5" name="Table 4"/><p:cNvGraphicFramePr/><p:nvPr/>'
            f'</p:nvGraphicFramePr>{transform(box, tag="p:xfrm")}<a:graphic><a:graphicData uri="{TABLE}"><a:tbl>'
            f'<a:tblPr firstRow="1" bandRow="1"><a:tableStyleId>{TABLE_STYLE}</a:tableStyleId></a:tblPr><a:tblGrid>{grid}'
            f"</a:tblGrid>{body}</a:tbl></a:graphicData></a:graphic></p:graphicFrame>")


def table_styles():
    edges = "".join(f'<a:{side}>{line(1, solid("accent1"))}</a:{side}>'
                    for side in ("left", "right", "top", "bottom", "insideH", "insideV"))
    whole = (f'<a:wholeTbl><a:tcTxStyle><a:fontRef idx="minor"/>{scheme("dk1")}</a:tcTxStyle><a:tcStyle><a:tcBdr>{edges}'
             f'</a:tcBdr><a:fill>{solid("lt1")}</a:fill></a:tcStyle></a:wholeTbl>')
    band = (f'<a:band1H><a:tcStyle><a:tcBdr/><a:fill>{solid("accent1", chr(60) + "a:tint val=" + chr(34) + "20000" + chr(34) + "/>")}'
            "</a:fill></a:tcStyle></a:band1H>")
    first = (f'<a:firstRow><a:tcTxStyle b="on"><a:fontRef idx="minor"/>{scheme("lt1")}</a:tcTxStyle><a:tcStyle><a:tcBdr/>'
             f'<a:fill>{solid("accent1")}</a:fill></a:tcStyle></a:firstRow>')
    return (f'{HEAD}<a:tblStyleLst xmlns:a="{DRAWING}" def="{TABLE_STYLE}"><a:tblStyle styleId="{TABLE_STYLE}" '
            f'styleName="Harbour">{whole}{band}{first}</a:tblStyle></a:tblStyleLst>')


def tides():
    caption = shape(6, "Caption", transform((48, 356, 360, 30)) + preset("rect") + "<a:noFill/>", text_body(
        paragraph(run("The tides of one week", "", ' sz="1400" i="1"'))), lock=' txBox="1"')
    return slide(title("Tides and quays"), picture((48, 130, 360, 220)), table((452, 130, 452, 144)), caption, foot(4))


def chart():
    def cached(kind, formula, cache, values):
        points = "".join(f'<c:pt idx="{i}"><c:v>{value}</c:v></c:pt>' for i, value in enumerate(values))
        form = "<c:formatCode>General</c:formatCode>" if cache == "numCache" else ""
        return (f'<c:{kind}><c:f>{formula}</c:f><c:{cache}>{form}<c:ptCount val="{len(values)}"/>{points}</c:{cache}>'
                f"</c:{kind}>")

    def series(index, column, name, colour, values):
        return (f'<c:ser><c:idx val="{index}"/><c:order val="{index}"/>'
                f'<c:tx>{cached("strRef", f"Sheet1!${column}$1", "strCache", (name,))}</c:tx>'
                f'<c:spPr>{solid(colour)}</c:spPr><c:invertIfNegative val="0"/>'
                f'<c:cat>{cached("strRef", "Sheet1!$A$2:$A$5", "strCache", ("Spring", "Summer", "Autumn", "Winter"))}</c:cat>'
                f'<c:val>{cached("numRef", f"Sheet1!${column}$2:${column}$5", "numCache", values)}</c:val></c:ser>')

    heading = paragraph(run("Ships by season", "", ' sz="1600" b="1"'), props="<a:pPr><a:defRPr/></a:pPr>")
    columns = series(0, "B", "2023", "accent2", (84, 121, 97, 52)) + series(1, "C", "2024", "accent1", (96, 138, 104, 71))
    axes = ("<c:catAx><c:axId val=\"1\"/><c:scaling><c:orientation val=\"minMax\"/></c:scaling><c:delete val=\"0\"/>"
            '<c:axPos val="b"/><c:crossAx val="2"/></c:catAx><c:valAx><c:axId val="2"/><c:scaling><c:orientation val="minMax"/>'
            '</c:scaling><c:delete val="0"/><c:axPos val="l"/><c:majorGridlines/><c:crossAx val="1"/></c:valAx>')
    return (f'{HEAD}<c:chartSpace xmlns:c="{CHART}" xmlns:a="{DRAWING}" xmlns:r="{RELATIONS}"><c:chart><c:title><c:tx><c:rich>'
            f'<a:bodyPr/>{heading}</c:rich></c:tx><c:overlay val="0"/></c:title><c:autoTitleDeleted val="0"/><c:plotArea>'
            f'<c:layout/><c:barChart><c:barDir val="col"/><c:grouping val="clustered"/><c:varyColors val="0"/>{columns}'
            f'<c:gapWidth val="80"/><c:axId val="1"/><c:axId val="2"/></c:barChart>{axes}</c:plotArea><c:legend>'
            '<c:legendPos val="b"/><c:overlay val="0"/></c:legend><c:plotVisOnly val="1"/></c:chart></c:chartSpace>')


def seasons():
    frame = ('<p:graphicFrame><p:nvGraphicFramePr><p:cNvPr id="4" name="Chart 3"/><p:cNvGraphicFramePr/><p:nvPr/>'
             f'</p:nvGraphicFramePr>{transform((48, 120, 560, 360), tag="p:xfrm")}<a:graphic><a:graphicData uri="{CHART}">'
             f'<c:chart xmlns:c="{CHART}" r:id="rId2"/></a:graphicData></a:graphic></p:graphicFrame>')
    remark = shape(5, "Remark", transform((640, 170, 260, 160)) + preset("snip1Rect", adj=20000) + solid("bg2")
                   + line(1, solid("accent1")), text_body(
                       paragraph(run("Every season was better than the year before.", solid("tx1"), ' sz="2000"')),
                       paragraph(run("Back to the start", '<a:hlinkClick r:id="rId3" action="ppaction://hlinksldjump"/>',
                                     ' sz="1400"')),
                       props='<a:bodyPr lIns="182880" rIns="182880" anchor="ctr"/>'))
    return slide(title("Ships by season"), frame, remark, foot(5))


def spare():
    body = text_body(paragraph(run("The quay was closed in May")), paragraph(run("for eleven days"), props='<a:pPr lvl="1"/>'))
    return slide(title("Kept for questions"), shape(3, "Content 2", "", body, 'idx="1"'), attributes=' show="0"')


def notes_master():
    body = shape(3, "Notes Placeholder", transform((54, 342, 432, 324)) + preset("rect"),
                 text_body(paragraph(run("Notes"))), 'type="body" idx="1"')
    image = shape(2, "Slide Image Placeholder", transform((54, 54, 432, 243)) + preset("rect"), "", 'type="sldImg" idx="2"')
    mapping = " ".join(f'{slot}="{colour}"' for slot, colour in (
        ("bg1", "lt1"), ("tx1", "dk1"), ("bg2", "lt2"), ("tx2", "dk2"), *((f"accent{i}", f"accent{i}") for i in range(1, 7)),
        ("hlink", "hlink"), ("folHlink", "folHlink")))
    return (f'{HEAD}<p:notesMaster {NAMESPACES}><p:cSld><p:bg><p:bgRef idx="1001">{scheme("bg1")}</p:bgRef></p:bg>'
            f"{tree(image, body)}</p:cSld><p:clrMap {mapping}/></p:notesMaster>")


def notes():
    body = text_body(paragraph(run("Say that the southern quay opens again in spring.")),
                     paragraph(run("The table counts ships that "), run("left", "", ' i="1"'), run(".")))
    return (f'{HEAD}<p:notes {NAMESPACES}><p:cSld>'
            f'{tree(shape(2, "Slide Image 1", "", "", "type=" + quoteattr("sldImg")), shape(3, "Notes 2", "", body, "type=" + quoteattr("body") + " idx=" + quoteattr("1")))}'
            "</p:cSld><p:clrMapOvr><a:masterClrMapping/></p:clrMapOvr></p:notes>")


def presentation(count):
    slide_ids = "".join(f'<p:sldId id="{255 + number}" r:id="rId{10 + number}"/>' for number in range(1, count + 1))
    levels = "".join(f'<a:lvl{level}pPr marL="{emu(36 * (level - 1))}" algn="l"><a:defRPr sz="1800" lang="en-GB">{solid("tx1")}'
                     f'<a:latin typeface="+mn-lt"/></a:defRPr></a:lvl{level}pPr>' for level in range(1, 10))
    return (f'{HEAD}<p:presentation {NAMESPACES}><p:sldMasterIdLst><p:sldMasterId id="2147483648" r:id="rId1"/></p:sldMasterIdLst>'
            f'<p:notesMasterIdLst><p:notesMasterId r:id="rId2"/></p:notesMasterIdLst><p:sldIdLst>{slide_ids}</p:sldIdLst>'
            f'<p:sldSz cx="{emu(WIDTH)}" cy="{emu(HEIGHT)}"/><p:notesSz cx="{emu(HEIGHT)}" cy="{emu(720)}"/>'
            f"<p:defaultTextStyle>{levels}</p:defaultTextStyle></p:presentation>")


def content_types(count):
    overrides = [("presentation", "presentation.main"), ("slideMasters/slideMaster1", "slideMaster"),
                 ("slideLayouts/slideLayout1", "slideLayout"), ("slideLayouts/slideLayout2", "slideLayout"),
                 ("notesMasters/notesMaster1", "notesMaster"), ("notesSlides/notesSlide1", "notesSlide"),
                 ("tableStyles", "tableStyles")]
    overrides += [(f"slides/slide{number}", "slide") for number in range(1, count + 1)]
    kinds = [(name, f"{SLIDE_TYPE}{kind}+xml") for name, kind in overrides]
    kinds += [("theme/theme1", THEME_TYPE), ("theme/theme2", THEME_TYPE), ("charts/chart1", CHART_TYPE)]
    inner = "".join(f'<Override PartName="/ppt/{name}.xml" ContentType="{kind}"/>' for name, kind in kinds)
    return (f'{HEAD}<Types xmlns="{CONTENT_TYPES}"><Default Extension="rels" '
            'ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
            '<Default Extension="xml" ContentType="application/xml"/><Default Extension="png" ContentType="image/png"/>'
            f"{inner}</Types>")


def parts():
    title_page, content = "../slideLayouts/slideLayout1.xml", "../slideLayouts/slideLayout2.xml"
    pages = (
        (opening(), title_page, ()),
        (lists(), content, (("rId2", "hyperlink", "https://harbour.example/", "External"),)),
        (shapes(), content, (("rId2", "image", "../media/seal.png"),)),
        (tides(), content, (("rId2", "image", "../media/tides.png"), ("rId3", "notesSlide", "../notesSlides/notesSlide1.xml"))),
        (seasons(), content, (("rId2", "chart", "../charts/chart1.xml"), ("rId3", "slide", "slide1.xml"))),
        (spare(), content, ()),
    )
    package = {
        "[Content_Types].xml": content_types(len(pages)),
        "_rels/.rels": relations([("rId1", "officeDocument", "ppt/presentation.xml")]),
        "ppt/presentation.xml": presentation(len(pages)),
        "ppt/_rels/presentation.xml.rels": relations(
            [("rId1", "slideMaster", "slideMasters/slideMaster1.xml"), ("rId2", "notesMaster", "notesMasters/notesMaster1.xml"),
             ("rId3", "theme", "theme/theme1.xml"), ("rId4", "tableStyles", "tableStyles.xml")]
            + [(f"rId{10 + number}", "slide", f"slides/slide{number}.xml") for number in range(1, len(pages) + 1)]),
        "ppt/tableStyles.xml": table_styles(),
        "ppt/theme/theme1.xml": theme("Harbour"),
        "ppt/theme/theme2.xml": theme("Notes"),
        "ppt/slideMasters/slideMaster1.xml": master(),
        "ppt/slideMasters/_rels/slideMaster1.xml.rels": relations(
            [("rId1", "slideLayout", title_page), ("rId2", "slideLayout", content), ("rId3", "theme", "../theme/theme1.xml")]),
        "ppt/slideLayouts/slideLayout1.xml": title_layout(),
        "ppt/slideLayouts/slideLayout2.xml": content_layout(),
        "ppt/notesMasters/notesMaster1.xml": notes_master(),
        "ppt/notesMasters/_rels/notesMaster1.xml.rels": relations([("rId1", "theme", "../theme/theme2.xml")]),
        "ppt/notesSlides/notesSlide1.xml": notes(),
        "ppt/notesSlides/_rels/notesSlide1.xml.rels": relations(
            [("rId1", "notesMaster", "../notesMasters/notesMaster1.xml"), ("rId2", "slide", "../slides/slide4.xml")]),
        "ppt/charts/chart1.xml": chart(),
        "ppt/media/tides.png": png(144, 96, lambda x, y: (40, 90 + y, 160 + x // 2) if y > 38 + x // 16 % 3 * 12
                                   else (238, 220 - y, 150)),
        "ppt/media/seal.png": png(16, 16, lambda x, y: (192, 0, 0) if (x // 4 + y // 4) % 2 else (255, 230, 153)),
    }
    for number in (1, 2):
        package[f"ppt/slideLayouts/_rels/slideLayout{number}.xml.rels"] = relations(
            [("rId1", "slideMaster", "../slideMasters/slideMaster1.xml")])
    for number, (body, layout_part, others) in enumerate(pages, 1):
        package[f"ppt/slides/slide{number}.xml"] = body
        package[f"ppt/slides/_rels/slide{number}.xml.rels"] = relations([("rId1", "slideLayout", layout_part), *others])
    return package
