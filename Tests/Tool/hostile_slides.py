"""Presentations made to do harm: deep, circular, very long, very many, misplaced."""
from hostile_packages import ACCEPTED, EITHER, REFUSED, Case, packed
from hostile_parts import DOCTYPES, ENTITIES
from package_parts import RELATIONS, STRICT_RELATIONS, png
from slide_parts import (DRAWING, HEAD, MAIN, NAMESPACES, PRESENTATION, SLIDE, SLIDE_LINKS, cell, frame, geometry, group, paragraph,
                         part, picture, presentation, shape, table, transform)

SAID = "It is said"
PICTURE = ("rIdP", "image", "../media/image1.png")
STRICT = "http://purl.oclc.org/ooxml/"
MASTER, LAYOUT = "ppt/slideMasters/slideMaster1.xml", "ppt/slideLayouts/slideLayout1.xml"
TITLE = '<p:ph type="title"/>'


def slides(name, inner, statuses=ACCEPTED, says="", **rest):
    """A case whose first slide holds inner and a shape that must not get lost; or a function that gives the parts."""
    def make():
        return packed(inner() if callable(inner) else presentation(inner + shape(SAID)))

    return Case(name, make, set(statuses), says, suffix="pptx", **rest)


def full():
    """A presentation with every part that is read."""
    return {**presentation(shape(SAID, properties="", placeholder=TITLE) + picture() + table([cell("a"), cell("b")]),
                           links=[PICTURE], master=shape("above", placeholder=TITLE), notes=shape(
                               "note", placeholder='<p:ph type="body"/>')), "ppt/media/image1.png": png(9, 9, lambda x, y: (x, y, 0))}


def altered(name, change):
    """The full presentation, one part of which was changed."""
    def make():
        parts = full()
        parts[name] = change(parts[name])
        return parts
    return make


def with_doctype(kind):
    def change(content):
        head, _, body = content.partition("?>\n")
        at = body.rindex("</")
        return f"{head}?>\n{DOCTYPES[kind]}\n{body[:at]}{ENTITIES.get(kind, '')}{body[at:]}"
    return change


def deepened(content):
    at = content.rindex("</")
    return content[:at] + "<x>" * 200000 + "</x>" * 200000 + content[at:]


def nested(begin, inner, end, depth):
    return begin * depth + inner + end * depth


def many(count, pattern):
    return "".join(pattern.format(i) for i in range(count))


def strict():
    parts = full()
    for name, content in parts.items():
        if name != "[Content_Types].xml" and isinstance(content, str):
            parts[name] = content.replace(MAIN, STRICT + "presentationml/main").replace(
                DRAWING, STRICT + "drawingml/main").replace(RELATIONS, STRICT_RELATIONS)
    return parts


def without(name):
    def make():
        parts = full()
        del parts[name]
        return parts
    return make


def pictured(inner, content=None, **rest):
    def make():
        return {**presentation(inner + shape(SAID), links=[PICTURE], **rest), "ppt/media/image1.png":
                png(60, 60, lambda x, y: (x, y, x * y % 251)) if content is None else content}
    return make


def formula(text, count=1):
    return shape(SAID, properties=geometry(
        '<a:path w="10" h="10"><a:moveTo><a:pt x="g0" y="0"/></a:moveTo><a:lnTo><a:pt x="10" y="10"/></a:lnTo></a:path>',
        many(count, f'<a:gd name="g{{}}" fmla="{text}"/>')))


def path(*commands, attributes=""):
    return shape(SAID, properties=geometry(f"<a:path {attributes}>{''.join(commands)}</a:path>"))


def coloured(inner):
    return shape(SAID, properties=f'{transform()}<a:prstGeom prst="rect"/>{inner}')


def solid(changes):
    return coloured(f'<a:solidFill><a:srgbClr val="336699">{changes}</a:srgbClr></a:solidFill>')


def listed(properties, count=1):
    return shape("".join(paragraph(SAID, f"<a:pPr {properties}</a:pPr>") for _ in range(count)))


def circle(name, kind, target):
    """A part whose relationship of a kind leads back to itself."""
    def make():
        parts = full()
        folder, _, base = name.rpartition("/")
        links = f"{folder}/_rels/{base}.rels"
        parts[links] = parts[links].replace(kind, target)
        return parts
    return make


def repeated(count, text=SAID):
    """A presentation that shows one slide very often."""
    parts = presentation(shape(text))
    parts[PRESENTATION] = parts[PRESENTATION].replace("<p:sldIdLst>", "<p:sldIdLst>" + '<p:sldId id="256" r:id="s1"/>' * count)
    return parts


def referred(kind, content, shapes):
    """A presentation whose shapes refer to one part of a kind, "rIdX"."""
    def make():
        return {**presentation(shape(SAID) + shapes, links=[("rIdX", kind, "../other/other1.xml")]),
                "ppt/other/other1.xml": f"{HEAD}{content}"}
    return make


def inherited(commands, guides=""):
    """A presentation of many shapes that take over an outline of the layout."""
    return presentation(shape(SAID) + shape("", "", placeholder=BODY) * 3000, layout=shape("", geometry(
        f'<a:path w="9" h="9">{commands}</a:path>', guides), placeholder=BODY))


def styled(inner):
    """A presentation of many tables in one style."""
    looks = '<a:tblPr><a:tableStyleId>{S}</a:tableStyleId></a:tblPr>'
    parts = presentation(shape(SAID) + table([cell("x")]).replace("<a:tblPr/>", looks) * 2000)
    parts["ppt/tableStyles.xml"] = (f'{HEAD}<a:tblStyleLst {NAMESPACES}><a:tblStyle styleId="{{S}}"><a:wholeTbl><a:tcStyle><a:fill>'
                                    f"{inner}</a:fill></a:tcStyle></a:wholeTbl></a:tblStyle></a:tblStyleLst>")
    parts[LINKS] = parts[LINKS].replace("</Relationships>", f'<Relationship Id="ts" Type="{RELATIONS}/tableStyles" '
                                        'Target="tableStyles.xml"/></Relationships>')
    return parts


MILLION = 1000000
LINKS = "ppt/_rels/presentation.xml.rels"
BODY = '<p:ph type="body"/>'
OFTEN = "referred to too often"
SERIES = "<c:ser><c:val><c:numRef><c:f>S!A1</c:f></c:numRef></c:val></c:ser>"
NUMBERED = 'lvl="{}"><a:buAutoNum type="arabicPeriod"/>'
HARM = "&quot;&gt;&lt;/style&gt;&lt;/svg&gt;&lt;script&gt;alert(1)&lt;/script&gt;"
PARTS = (PRESENTATION, MASTER, LAYOUT, SLIDE, "ppt/theme/theme1.xml", "ppt/notesSlides/notesSlide1.xml")
MOVE = '<a:moveTo><a:pt x="{0}" y="{0}"/></a:moveTo>'
FAR = "27273042316900"

CASES = [
    slides("slides-control", full, compare=True),
    slides("slides-strict", strict, compare=True),
    *(slides(f"slides-{kind}-in-{name.rpartition('/')[2]}", altered(name, with_doctype(kind)),
             REFUSED if name == PRESENTATION else EITHER)
      for name in PARTS for kind in (DOCTYPES if name == PRESENTATION else ENTITIES)),
    *(slides(f"slides-deep-{name.rpartition('/')[2]}", altered(name, deepened), EITHER) for name in PARTS),
    *(slides(f"slides-without-{name.rpartition('/')[2]}", without(name), REFUSED if name == PRESENTATION else ACCEPTED)
      for name in PARTS),
    slides("slides-master-of-itself", circle(MASTER, "../slideLayouts/slideLayout1.xml", "slideMaster1.xml")),
    slides("slides-layout-of-itself", circle(LAYOUT, "../slideMasters/slideMaster1.xml", "slideLayout1.xml")),
    slides("slides-layout-is-slide", circle(SLIDE, "../slideLayouts/slideLayout1.xml", "slide1.xml")),
    slides("slides-notes-are-slide", circle(SLIDE, "../notesSlides/notesSlide1.xml", "slide1.xml")),
    slides("slides-one-many-times", lambda: repeated(100000)),
    slides("slides-one-long-many-times", lambda: repeated(10000, "x" * 500000), says=OFTEN),
    slides("slides-chart-shown-often", referred(
        "chart", f"<c:chartSpace {NAMESPACES}><c:chart><c:plotArea><c:barChart>{SERIES * 9000}</c:barChart></c:plotArea></c:chart>"
        "</c:chartSpace>", frame('<c:chart r:id="rIdX"/>', "chart") * 5000), says=OFTEN),
    slides("slides-diagram-shown-often", referred(
        "diagramData", f'<dgm:dataModel {NAMESPACES}>{"<dgm:pt/>" * 50000}</dgm:dataModel>',
        frame('<dgm:relIds r:dm="rIdX"/>', "diagram") * 5000), says=OFTEN),
    slides("slides-outline-shown-often", lambda: inherited(MOVE.format(0) + '<a:lnTo><a:pt x="9" y="9"/></a:lnTo>' * 20000)),
    slides("slides-guides-used-often", lambda: inherited(MOVE.format(0), many(9000, '<a:gd name="g{}" fmla="*/ w h 5"/>'))),
    slides("slides-table-style-long", lambda: styled('<a:solidFill><a:srgbClr val="336699">' + '<a:lumMod val="99000"/>' * 20000
                                                     + "</a:srgbClr></a:solidFill>"), says="Table style"),
    slides("slides-font-name-long", lambda: presentation(shape(SAID) * 5000, styles='<p:otherStyle><a:lvl1pPr><a:defRPr><a:latin '
                                                         f'typeface="{"f" * MILLION}"/></a:defRPr></a:lvl1pPr></p:otherStyle>'),
           says="Name of a font is cut"),
    slides("slides-link-long-of-shapes", lambda: presentation(
        (shape(SAID).replace('name="shape"/>', 'name="shape"><a:hlinkClick r:id="h"/></p:cNvPr>')) * 5000,
        links=[("h", "hyperlink", "https://" + "x" * MILLION, "External")]), says="Hyperlink of more than"),
    slides("slides-many", lambda: presentation(*[shape(SAID)] * 3000), compare=True),
    slides("slides-none", presentation),
    slides("slides-size-none", lambda: presentation(shape(SAID), size='cx="0" cy="-5"')),
    slides("slides-size-huge", lambda: presentation(shape(SAID), size=f'cx="{FAR}" cy="99999999999999999999"')),
    slides("slides-groups-deep-50", nested(group("@").split("@")[0], shape(SAID), group("@").split("@")[1], 50), compare=True),
    slides("slides-groups-deep", nested(group("@").split("@")[0], shape(SAID), group("@").split("@")[1], 300), EITHER),
    slides("slides-groups-growing", nested(group("@", transform(
        inner='<a:chOff x="0" y="0"/><a:chExt cx="1" cy="1"/>')).split("@")[0], shape(SAID), "</p:grpSp>", 90)),
    slides("slides-groups-of-nothing", group(shape(SAID), transform(
        inner='<a:chOff x="0" y="0"/><a:chExt cx="0" cy="0"/>')) * 20, compare=True),
    slides("slides-choices-deep", nested("<mc:AlternateContent><mc:Fallback>", shape(SAID),
                                         "</mc:Fallback></mc:AlternateContent>", 300), EITHER),
    slides("slides-choices-many", "<mc:AlternateContent>" + '<mc:Choice Requires="x"><p:sp/></mc:Choice>' * 50000
           + f"<mc:Fallback>{shape(SAID)}</mc:Fallback></mc:AlternateContent>", compare=True),
    slides("slides-shapes-many", shape("x") * 30000, compare=True),
    slides("slides-shapes-empty", "<p:sp/><p:pic/><p:grpSp/><p:cxnSp/><p:graphicFrame/>" * 1000),
    slides("slides-places-far", shape(SAID, transform(FAR, "-" + FAR, FAR, FAR, 'rot="2147483647" flipH="1"'))),
    slides("slides-places-no-numbers", shape(SAID, transform("x", "1e9", "NaN", "", 'rot="left"'))),
    slides("slides-index-huge", shape(SAID, "", placeholder='<p:ph type="body" idx="99999999999999999999"/>')),
    slides("slides-type-unknown", shape(SAID, placeholder='<p:ph type="harm" idx="-1"/>')),
    slides("slides-placeholders-many", lambda: presentation(
        many(20000, shape("x", "", placeholder='<p:ph type="body" idx="{}"/>')),
        layout=many(20000, shape("", placeholder='<p:ph type="body" idx="{}"/>'))), says="too many placeholders"),
    slides("slides-names-of-markup", shape(HARM, name=HARM)),
    slides("slides-name-long", shape(SAID, name="n" * 5 * MILLION)),
    slides("slides-text-long", shape("x" * 10 * MILLION), is_long=True),
    slides("slides-paragraphs-many", shape(paragraph("x") * 200000), is_long=True),
    slides("slides-runs-many", shape("<a:p>" + "<a:r><a:t>x</a:t></a:r>" * 200000 + "</a:p>"), is_long=True),
    slides("slides-levels-wrong", listed('lvl="9">') + listed('lvl="-1">') + listed('lvl="x">') + listed('lvl="4294967296">')),
    slides("slides-numbers-huge", listed('lvl="8"><a:buAutoNum type="romanUcPeriod" startAt="2147483647"/>', 20)
           + listed('lvl="0"><a:buAutoNum type="alphaLcParenBoth" startAt="-7"/>', 20)
           + listed('lvl="0"><a:buAutoNum type="harm" startAt="x"/>', 3)),
    slides("slides-numbers-many", listed(NUMBERED.format(3), 50000), is_long=True),
    slides("slides-bullets-all-different", shape("".join(
        paragraph("x", f'<a:pPr lvl="{i % 9}"><a:buChar char="{i}"/></a:pPr>') for i in range(30000))), is_long=True),
    slides("slides-sizes-wrong", shape(paragraph(SAID, run_properties='<a:rPr sz="999999999" baseline="9999999"/>')
                                       + paragraph(SAID, run_properties='<a:rPr sz="-5"/>')
                                       + paragraph(SAID, '<a:pPr marL="99999999999" indent="-99999999999"/>'))),
    slides("slides-spacing-wrong", shape(paragraph(SAID, '<a:pPr><a:lnSpc><a:spcPct val="-100000"/></a:lnSpc><a:spcBef>'
                                                   '<a:spcPct val="99999999999"/></a:spcBef></a:pPr>'))),
    slides("slides-insets-wrong", shape(SAID, body='<a:bodyPr lIns="99999999999" tIns="-5" numCol="4000000000" rot="x">'
                                        '<a:normAutofit fontScale="0" lnSpcReduction="100000000"/></a:bodyPr>')),
    slides("slides-formula-unknown", formula("harm w h")),
    slides("slides-formula-of-itself", formula("*/ g0 g1 1", 5)),
    slides("slides-formula-by-nothing", formula("*/ w h 0") + formula("mod 0 0 0") + formula("sqrt -1") + formula("tan cd4")
           + formula("at2 0 0") + formula("pin 5 1 -5") + formula("cos 1e300 1e300") + formula("?: x")),
    slides("slides-formulas-many", formula("+- w 1 0", 50000)),
    slides("slides-formula-long", formula("+- " + "9" * 100000 + " 1 0")),
    slides("slides-path-long", path(*[MOVE.format(i) for i in range(150000)], attributes='w="100" h="100"'), is_long=True),
    slides("slides-path-without-begin", path('<a:lnTo><a:pt x="1" y="1"/></a:lnTo>', "<a:close/>", "<a:arcTo/>",
                                             '<a:cubicBezTo><a:pt x="1" y="1"/></a:cubicBezTo>', "<a:quadBezTo/>", "<a:harm/>")),
    slides("slides-path-arcs", path(MOVE.format(0), *('<a:arcTo wR="{}" hR="{}" stAng="{}" swAng="{}"/>'.format(*each) for each in (
        (0, 0, 0, 0), (-5, 5, 0, 21600000), (FAR, FAR, FAR, FAR), (1, 1, "x", "NaN"), (100, 100, 0, -99999999999))))),
    slides("slides-path-size-none", path(MOVE.format(5), attributes='w="0" h="-5"') + path(MOVE.format(5), attributes='w="x"')),
    slides("slides-preset-unknown", shape(SAID, f'{transform()}<a:prstGeom prst="{HARM}"><a:avLst><a:gd name="adj" '
                                          'fmla="val harm"/></a:avLst></a:prstGeom>')),
    slides("slides-preset-adjusted-far", "".join(shape(SAID, f'{transform()}<a:prstGeom prst="{kind}"><a:avLst>' + many(
        9, f'<a:gd name="adj{{}}" fmla="val {value}"/><a:gd name="adj" fmla="val {value}"/>') + "</a:avLst></a:prstGeom>")
        for kind in ("roundRect", "star5", "blockArc", "uturnArrow", "gear6", "wedgeRectCallout", "cloud")
        for value in ("-2147483648", "2147483647", "9" * 30, "1e300"))),
    slides("slides-shape-of-no-size", "".join(shape(SAID, transform(width=0, height=0) + f'<a:prstGeom prst="{kind}"/>')
                                              for kind in ("roundRect", "star5", "blockArc", "cloud", "rightArrow"))),
    slides("slides-colours-changed-much", solid(many(20000, '<a:lumMod val="{0}"/><a:satMod val="-{0}"/>'))),
    slides("slides-colours-wrong", solid('<a:lumMod val="x"/><a:alpha val="999999999999"/><a:hueOff val="-99999999999"/>'
                                         '<a:gamma/><a:harm/>') + coloured('<a:solidFill><a:schemeClr val="harm"/></a:solidFill>')
           + coloured('<a:solidFill><a:prstClr val="harm"/></a:solidFill>') + coloured('<a:solidFill><a:hslClr hue="x"/></a:solidFill>')
           + coloured('<a:solidFill><a:srgbClr val="12345678901"/></a:solidFill>')),
    slides("slides-gradient-many", coloured("<a:gradFill><a:gsLst>" + many(
        50000, '<a:gs pos="{}"><a:srgbClr val="102030"/></a:gs>') + '</a:gsLst><a:lin ang="x"/></a:gradFill>')),
    slides("slides-gradient-none", coloured("<a:gradFill/>") + coloured("<a:gradFill><a:gsLst/></a:gradFill>")
           + coloured('<a:pattFill prst="harm"/>') + coloured("<a:blipFill/>") + coloured("<a:grpFill/>")),
    slides("slides-lines-wrong", coloured('<a:ln w="-5"/>') + coloured('<a:ln w="99999999999"><a:prstDash val="harm"/></a:ln>')
           + coloured("<a:ln><a:custDash>" + '<a:ds d="99999999" sp="-1"/>' * 20000 + "</a:custDash></a:ln>")),
    slides("slides-shadow-wrong", coloured('<a:effectLst><a:outerShdw blurRad="99999999999" dist="x" dir="-1"/></a:effectLst>')),
    slides("slides-style-wrong", shape(SAID, style='<p:style><a:lnRef idx="-1"/><a:fillRef idx="99999999999"/><a:effectRef idx="x"/>'
                                       '<a:fontRef idx="harm"/></p:style>')),
    slides("slides-camera-wrong", coloured('<a:scene3d><a:camera prst="harm"><a:rot lat="x" lon="99999999999" rev="-1"/></a:camera>'
                                           "</a:scene3d>")),
    slides("slides-picture-missing", lambda: presentation(picture() + shape(SAID))),
    slides("slides-picture-of-no-link", picture("none")),
    slides("slides-picture-no-picture", pictured(picture(), b"<svg onload='alert(1)'/>")),
    slides("slides-picture-shown-often", pictured(picture() * 2000, png(200, 200, lambda x, y: (x, y, x * y % 251)))),
    slides("slides-picture-crop-wrong", pictured(picture(crop='<a:srcRect l="100000" r="100000" t="-999999999" b="x"/>'))),
    slides("slides-picture-everywhere", pictured("", master=picture("none") * 50)),
    slides("slides-table-spans-wrong", table([cell("a", 'gridSpan="99999999"'), cell("b", 'rowSpan="-5"')],
                                             [cell("c", 'hMerge="1"'), cell("d", 'vMerge="1" gridSpan="x"')])),
    slides("slides-table-of-nothing", frame("<a:tbl/>") + table() + table([]) + table([cell("a")] * 5, columns=0)),
    slides("slides-table-wide", table([cell("x")] * 5000, columns=5000)),
    slides("slides-table-long", table(*[[cell("x"), cell("y")]] * 15000), is_long=True),
    slides("slides-table-sizes-wrong", frame('<a:tbl><a:tblGrid><a:gridCol w="-5"/><a:gridCol w="99999999999"/></a:tblGrid>'
                                             f'<a:tr h="x">{cell("a")}{cell("b")}</a:tr></a:tbl>')),
    slides("slides-chart-missing", frame('<c:chart r:id="none"/>', "chart")),
    slides("slides-diagram-missing", frame('<dgm:relIds r:dm="none"/>', "diagram")),
    slides("slides-frame-of-nothing", frame("") + frame("<harm/>", "harm")),
    slides("slides-links-of-harm", lambda: presentation(
        shape(paragraph(SAID, run_properties='<a:rPr><a:hlinkClick r:id="h"/></a:rPr>')) + shape(SAID),
        links=[("h", "hyperlink", "javascript:alert(1)", "External")])),
    slides("slides-link-long", lambda: presentation(
        shape(paragraph("x", run_properties='<a:rPr><a:hlinkClick r:id="h"/></a:rPr>') * 3000) + shape(SAID),
        links=[("h", "hyperlink", "https://" + "x" * 50000, "External")])),
    slides("slides-is-a-page", lambda: {**presentation(""), PRESENTATION: "<html/>"}, EITHER),
    slides("slides-not-closed", altered(SLIDE, lambda content: content[:-20])),
    slides("slides-links-lost", without(SLIDE_LINKS)),
    slides("slides-slide-is-layout", lambda: {**presentation(""), SLIDE: part("sldLayout", shape(SAID))}, EITHER),
]
