"""Text documents made to do harm: deep, circular, very long, very many, misplaced."""
from hostile_packages import ACCEPTED, EITHER, REFUSED, Case, packed
from hostile_parts import DOCTYPES, ENTITIES
from package_parts import png
from text_parts import (DOCUMENT, LINKS, MAIN, cell, document, item, level, lists, paragraph, part, run, style, table)

SAID = "It is said"
PICTURE = ("rIdP", "image", "media/image1.png")
FIELD = '<w:r><w:fldChar w:fldCharType="{}"/></w:r>'
BEGIN, SEPARATE, END = (FIELD.format(kind) for kind in ("begin", "separate", "end"))
STRICT = "http://purl.oclc.org/ooxml/"
NUMBERED = lists(*(level(at, "".join(f"%{i + 1}." for i in range(at + 1))) for at in range(9)))


def text(name, body, statuses=ACCEPTED, says="", **rest):
    """A case whose body is what document() makes of it: a text, or a function of no arguments that gives the parts."""
    def make():
        return packed(body() if callable(body) else document(body))

    return Case(name, make, set(statuses), says, suffix="docx", **rest)


def said(inner, **parts):
    """A document with inner before a last paragraph that must not get lost."""
    return lambda: document(inner + paragraph(SAID), **parts)


def full():
    """A document with every part that is read."""
    reference = '<w:r><w:footnoteReference w:id="2"/></w:r>'
    section = '<w:sectPr><w:headerReference w:type="default" r:id="header1"/></w:sectPr>'
    return document(paragraph(SAID, reference, properties='<w:pStyle w:val="P"/>') + item("one") + section,
                    styles=style("P", "p", "<w:rPr><w:b/></w:rPr>"), numbering=NUMBERED, settings="",
                    header1=paragraph("above"), footnotes=f'<w:footnote w:id="2">{paragraph("note")}</w:footnote>')


def altered(name, change):
    """The full document, one part of which was changed."""
    def make():
        parts = full()
        parts[f"word/{name}.xml"] = change(parts[f"word/{name}.xml"])
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


def nested_tables(depth):
    return nested("<w:tbl><w:tr><w:tc>", paragraph("innermost"), paragraph("") + "</w:tc></w:tr></w:tbl>", depth)


def nested_boxes(depth):
    return nested("<w:p><w:r><w:pict><v:shape><v:textbox><w:txbxContent>", paragraph("innermost"),
                  "</w:txbxContent></v:textbox></v:shape></w:pict></w:r></w:p>", depth)


def picture(relation="rIdP", extent=("914400", "914400"), link="r:embed"):
    return ('<w:r><w:drawing><wp:inline><wp:extent cx="{}" cy="{}"/><a:graphic><a:graphicData><pic:pic><pic:blipFill>'
            '<a:blip {}="{}"/></pic:blipFill><pic:spPr/></pic:pic></a:graphicData></a:graphic></wp:inline></w:drawing>'
            "</w:r>").format(*extent, link, relation)


def pictured(body, link=PICTURE, content=None):
    def make():
        image = png(60, 60, lambda x, y: (x, y, x * y % 251)) if content is None else content
        return {**document(body + paragraph(SAID), links=[link]), "word/media/image1.png": image}
    return make


def shape(attributes, inner=""):
    return f"<w:p><w:r><w:pict><v:shape {attributes}>{inner}</v:shape></w:pict></w:r></w:p>"


def linked(*rows, body="", **parts):
    return lambda: document(body + paragraph(SAID), links=rows, **parts)


def styled(*styles):
    return said("", styles="".join(styles))


def of_style(inner):
    """A paragraph of a style P that is defined by inner."""
    return lambda: document(paragraph(SAID, properties='<w:pStyle w:val="P"/>'), styles=inner)


def formatted(run_props="", paragraph_props=""):
    return lambda: document(paragraph(run(SAID, run_props), properties=paragraph_props))


def numbered(definitions, *items):
    return lambda: document("".join(items) or item(SAID), numbering=definitions)


def noted(inner):
    return said('<w:p><w:r><w:footnoteReference w:id="2"/></w:r></w:p>', footnotes=inner)


def spanned(properties, rows=1):
    row = [cell(paragraph("a"), properties), cell(paragraph("b"))]
    return said(table(*[row] * rows))


def many(count, pattern):
    return "".join(pattern.format(i) for i in range(count))


def strict():
    parts = full()
    for name, content in parts.items():
        if name != "[Content_Types].xml":
            parts[name] = content.replace(MAIN, STRICT + "wordprocessingml/main").replace(
                "http://schemas.openxmlformats.org/officeDocument/2006/relationships", STRICT + "officeDocument/relationships")
    return parts


def without(name):
    def make():
        parts = full()
        del parts[name]
        return parts
    return make


def related(**targets):
    """The full document, some of whose relationships lead elsewhere."""
    def make():
        parts = full()
        for name, target in targets.items():
            parts[LINKS] = parts[LINKS].replace(f'Target="{name}.xml"', f'Target="{target}"')
        return parts
    return make


def raw(content):
    return lambda: {**document(""), DOCUMENT: content}


def raw_text(content):
    return raw(part("document", "<w:body><w:p><w:r><w:t>@</w:t></w:r></w:p></w:body>").encode().replace(b"@", content))


def run_formats(count):
    return paragraph(*(run("x", f'<w:color w:val="{i:06X}"/>') for i in range(count)))


def header_of_styles():
    """A header whose paragraphs have as many styles, in chains as long as they may be."""
    chains = [[f"S{chain}x{i}" for i in range(100)] for chain in range(190)]
    tabbed = [paragraph("<w:r><w:tab/><w:tab/></w:r>", properties=f'<w:pStyle w:val="{name}"/>')
              for chain in chains for name in chain[50:]]
    return document(paragraph(SAID) + '<w:sectPr><w:headerReference w:type="default" r:id="header1"/></w:sectPr>',
                    header1="".join(tabbed), styles="".join(
                        style(name, name, based_on=based) for chain in chains for based, name in zip(["", *chain], chain)))


LONG_FORMAT = f"<w:rPr>{('<w:lang w:val=%r/>' % ('x' * 1000)) * 240}</w:rPr>"
DEFAULTS = "<w:docDefaults><w:rPrDefault><w:rPr>{}</w:rPr></w:rPrDefault></w:docDefaults>"
CHANGE = 'w:id="{0}" w:author="a{0}" w:date="2020-01-01T00:00:00Z"'
CHOICES = '<mc:Choice Requires="{}"><w:r><w:t>choice</w:t></w:r></mc:Choice>'
FALLBACK = "<mc:Fallback><w:r><w:t>fallback</w:t></w:r></mc:Fallback>"
HARM = "&quot;}&lt;/style&gt;&lt;script&gt;alert(1)&lt;/script&gt;"
PARTS = ("document", "styles", "numbering", "settings", "footnotes", "header1")
MILLION = 1000000

STRUCTURES = [
    text("text-control", full, compare=True),
    text("text-strict", strict, compare=True),
    *(text(f"text-{kind}-in-{name}", altered(name, with_doctype(kind)), REFUSED if name == "document" else EITHER)
      for name in PARTS for kind in (DOCTYPES if name == "document" else ENTITIES)),
    *(text(f"text-deep-{name}", altered(name, deepened), EITHER) for name in PARTS),
    text("text-tables-deep-40", said(nested_tables(40)), compare=True),
    text("text-tables-deep", said(nested_tables(10000)), EITHER),
    text("text-boxes-deep", said(nested_boxes(5000)), EITHER),
    text("text-controls-deep", said(nested("<w:sdt><w:sdtContent>", paragraph("in"), "</w:sdtContent></w:sdt>", 10000)),
         EITHER),
    text("text-runs-deep", said("<w:p>" + nested("<w:smartTag><w:ins>", run("in"), "</w:ins></w:smartTag>", 5000)
                                + "</w:p>"), EITHER),
    text("text-links-deep", said("<w:p>" + nested('<w:hyperlink w:anchor="a">', run("in"), "</w:hyperlink>", 10000)
                                 + "</w:p>"), EITHER),
    text("text-branches-deep", said("<w:p>" + nested("<mc:AlternateContent><mc:Fallback>", run("in"),
                                                     "</mc:Fallback></mc:AlternateContent>", 5000) + "</w:p>"), EITHER),
    text("text-groups-deep", said("<w:p><w:r><w:pict>" + nested("<v:group>", "<v:shape/>", "</v:group>", 10000)
                                  + "</w:pict></w:r></w:p>"), EITHER),
    text("text-formulas-deep", said("<w:p><m:oMath>" + nested("<m:e>", "<m:r><m:t>1</m:t></m:r>", "</m:e>", 10000)
                                    + "</m:oMath></w:p>"), EITHER),
    text("text-fields-deep", said(f"<w:p>{nested(BEGIN + SEPARATE, run('in'), END, 100000)}</w:p>")),
    text("text-fields-deep-in-code", said(f"<w:p>{nested(BEGIN, run('in'), END, 100000)}</w:p>")),
    text("text-fields-never-end", said(f"<w:p>{BEGIN}</w:p>" * 50000)),
    text("text-fields-never-begin", said(f"<w:p>{SEPARATE}{END}{END}</w:p>" * 50000), compare=True),
    text("text-field-code-long", said(f"<w:p>{BEGIN}<w:r><w:instrText>TOC {'x ' * 5000000}</w:instrText></w:r>{SEPARATE}"
                                      f"{run('in')}{END}</w:p>"), is_long=True),
    text("text-field-codes-many", said(f"<w:p>{BEGIN}" + "<w:r><w:instrText>\\</w:instrText></w:r>" * 200000
                                       + f"{SEPARATE}{run('in')}{END}</w:p>")),
    text("text-contents-of-contents", said(
        "".join(f"<w:p>{BEGIN}<w:r><w:instrText>TOC \\o</w:instrText></w:r>{SEPARATE}</w:p>" for _ in range(500))
        + f"<w:p>{END}</w:p>" * 500)),
    text("text-choice-of-unknown-prefix", said(f"<w:p><mc:AlternateContent>{CHOICES.format('no such')}{FALLBACK}"
                                               "</mc:AlternateContent></w:p>"), compare=True),
    text("text-choice-without-requirement", said(f"<w:p><mc:AlternateContent><mc:Choice/>{FALLBACK}{FALLBACK}"
                                                 "</mc:AlternateContent></w:p>")),
    text("text-choices-many", said(f"<w:p><mc:AlternateContent>{CHOICES.format('x') * 50000}{FALLBACK}"
                                   "</mc:AlternateContent></w:p>"), compare=True),
    text("text-of-unknown-namespaces", said('<h:h xmlns:h="urn:harm"><h:p/><h:tbl><h:tr/></h:tbl></h:h>'), compare=True),
    text("text-must-understand", lambda: {**document(""), DOCUMENT: part("document", f"<w:body>{paragraph(SAID)}</w:body>")
         .replace("<w:document", '<w:document mc:MustUnderstand="none" mc:Ignorable="gone"', 1)}, EITHER),
    text("text-paragraph-in-paragraph", said(f"<w:p>{paragraph('in') * 100}</w:p>")),
    text("text-rows-without-table", said(f"<w:tr><w:tc>{paragraph('in')}</w:tc></w:tr><w:r><w:t>bare</w:t></w:r>")),
    text("text-table-without-rows", said("<w:tbl/><w:tbl><w:tr/></w:tbl><w:tbl><w:tr><w:tc/></w:tr></w:tbl>")),
    text("text-two-bodies", raw(part("document", f"<w:body>{paragraph(SAID)}</w:body>" * 2)), EITHER),
    text("text-without-body", raw(part("document", "")), EITHER),
    text("text-is-a-page", raw("<html><body><p>harm</p></body></html>"), EITHER),
    text("text-not-closed", raw(part("document", f"<w:body>{paragraph(SAID)}")[:-20]), EITHER),
    text("text-empty-main-part", raw(""), EITHER),
]

CIRCLES = [
    text("style-of-itself", of_style(style("P", "p", based_on="P")), says="derives from itself"),
    text("styles-in-a-circle", of_style(style("P", "p", based_on="Q") + style("Q", "q", based_on="R", is_default=True)
                                        + style("R", "r", based_on="P")), says="derives from itself"),
    text("styles-in-a-chain", of_style("".join(style(f"S{i}", f"s{i}", based_on=f"S{i + 1}") for i in range(10000))
                                       + style("P", "p", based_on="S0")), says="too many ancestors"),
    text("styles-linked-in-a-circle", of_style(style("P", "p", '<w:link w:val="P"/><w:next w:val="P"/>')), compare=True),
    text("list-style-in-a-circle", lambda: document(
        item(SAID), numbering='<w:abstractNum w:abstractNumId="1"><w:numStyleLink w:val="L"/></w:abstractNum>'
        '<w:num w:numId="1"><w:abstractNumId w:val="1"/></w:num>',
        styles=style("L", "l", '<w:pPr><w:numPr><w:numId w:val="1"/></w:numPr></w:pPr>', "numbering"))),
    text("list-level-of-its-style", lambda: document(
        paragraph(SAID, properties='<w:pStyle w:val="P"/>'), numbering=lists(level(0, inner='<w:pStyle w:val="P"/>')),
        styles=style("P", "p", '<w:pPr><w:numPr><w:ilvl w:val="5"/><w:numId w:val="1"/></w:numPr></w:pPr>'))),
    text("header-in-itself", lambda: {**full(), "word/_rels/header1.xml.rels": full()[LINKS], "word/header1.xml": part(
        "hdr", paragraph("above", properties='<w:sectPr><w:headerReference w:type="first" r:id="header1"/></w:sectPr>'))}),
    text("header-is-the-document", related(header1="document")),
    text("note-in-itself", noted('<w:footnote w:id="2"><w:p><w:r><w:footnoteReference w:id="2"/></w:r></w:p></w:footnote>')),
    text("comment-in-itself", said("", comments='<w:comment w:id="1"><w:p><w:r><w:commentReference w:id="1"/></w:r></w:p>'
                                                "</w:comment>")),
    text("styles-are-the-document", related(styles="document")),
    text("notes-are-the-document", related(footnotes="document")),
    text("numbering-is-styles", related(numbering="styles", styles="numbering")),
]

NUMBERS = [
    text("cell-spans-too-many", spanned('<w:gridSpan w:val="1000000000"/>')),
    text("cell-spans-too-many-in-rows", spanned('<w:gridSpan w:val="16000"/>', 2000)),
    text("cell-spans-less-than-none", spanned('<w:gridSpan w:val="-5"/><w:vMerge w:val="x"/>')),
    text("cells-merged-over-100000-rows", spanned("<w:vMerge/>", 100000), is_long=True),
    text("row-begins-far-away", said('<w:tbl><w:tr><w:trPr><w:gridBefore w:val="1000000000"/><w:gridAfter w:val="99999999"/>'
                                     f'<w:trHeight w:val="1e308"/></w:trPr>{cell(paragraph("a"))}</w:tr></w:tbl>')),
    text("row-of-60000-cells", said(table([cell(paragraph("a"))] * 60000)), EITHER),
    text("table-of-250000-cells", said(table(*[[cell(paragraph("a"))] * 500] * 500)), is_long=True),
    text("tables-20000", said(table([cell(paragraph("a"))]) * 20000), compare=True, is_long=True),
    text("level-far-away", lambda: document(item(SAID, at=1000000000) + item("x", at=-1) + item("y", 10**30),
                                            numbering=NUMBERED)),
    text("label-of-a-mebibyte", numbered(lists(level(0, "x" * 1048576)), item(SAID) * 2000), says="Label of a list is cut"),
    text("label-of-many-numbers", numbered(lists(level(0, "%1" * 100000)), item(SAID) * 2000)),
    text("numbers-beyond-all", numbered(lists(level(0, start=2**63)), item(SAID) * 3)),
    text("numbers-at-the-end", numbered(lists(level(0, start=2**63 - 2), level(1, start=2**31 - 2)),
                                        item(SAID) * 5 + item(SAID, at=1) * 5)),
    *(text(f"numbers-large-{kind}", numbered(lists(level(0, "%1", kind, start=2147483000)), item(SAID) * 3))
      for kind in ("lowerLetter", "upperRoman", "cardinalText", "chicago", "hebrew1", "ideographTraditional")),
    text("restart-beyond-levels", numbered(lists(level(0, inner='<w:lvlRestart w:val="4294967295"/>')))),
    text("size-beyond-all", formatted('<w:sz w:val="1e308"/><w:szCs w:val="NaN"/><w:spacing w:val="1e999"/>')),
    text("size-negative", formatted('<w:sz w:val="-24"/><w:position w:val="-1000000"/><w:w w:val="0"/>')),
    text("indents-beyond-all", formatted(paragraph_props='<w:ind w:left="1e308" w:hanging="99999999999999999999"/>'
                                                         '<w:spacing w:line="NaN" w:before="INF" w:after="-1"/>')),
    text("page-beyond-all", lambda: document(
        paragraph(SAID) + '<w:sectPr><w:pgSz w:w="1e308" w:h="NaN"/><w:pgMar w:left="-99999999999" w:top="x"/>'
        '<w:cols w:num="4294967295"/></w:sectPr>')),
    text("page-of-nothing", lambda: document(paragraph(SAID) + '<w:sectPr><w:pgSz w:w="0" w:h="0"/></w:sectPr>')),
    text("picture-beyond-all", pictured(f"<w:p>{picture(extent=('1' + '0' * 30, 'NaN'))}</w:p>")),
    text("borders-beyond-all", formatted('<w:bdr w:val="single" w:sz="1000000000"/>',
                                         '<w:pBdr><w:top w:val="double" w:sz="1e99" w:space="-9"/></w:pBdr>')),
    text("tabs-100000", formatted(paragraph_props=f"<w:tabs>{many(100000, '<w:tab w:val=%r w:pos=%r/>' % ('left', '{}'))}"
                                                  "</w:tabs>"), is_long=True),
    text("tables-far-to-the-right", said(('<w:tbl><w:tr><w:trPr><w:gridBefore w:val="16383"/></w:trPr>' + cell(
        paragraph("a"), '<w:tcW w:w="100" w:type="dxa"/>') + "</w:tr></w:tbl>") * 5000), says="columns are narrowed"),
    text("outline-far-away", formatted(paragraph_props='<w:outlineLvl w:val="1000000000"/>')),
    text("stripes-of-nothing", lambda: document(
        table([cell(paragraph("a"))] * 3, properties='<w:tblStyle w:val="T"/><w:tblLook w:val="FFFFFFFFFF"/>'),
        styles=style("T", "t", '<w:tblPr><w:tblStyleRowBandSize w:val="0"/><w:tblStyleColBandSize w:val="-1"/></w:tblPr>'
                     '<w:tblStylePr w:type="band1Horz"><w:rPr><w:b/></w:rPr></w:tblStylePr>', "table"))),
]

COUNTS = [
    text("paragraphs-million", said("<w:p/>" * MILLION), EITHER, is_long=True),
    text("items-100000", numbered(NUMBERED, "".join(item("x", at=i % 9) for i in range(100000))), is_long=True),
    text("lists-100000", lambda: document(item(SAID), numbering="".join(lists(list_id=i) for i in range(1, 100001))),
         says="Lists beyond", is_long=True),
    text("styles-100000", styled(*(style(f"S{i}", f"s{i}") for i in range(100000))), says="Styles beyond", is_long=True),
    text("sections-100000", said(many(100000, "<w:p><w:pPr><w:sectPr/></w:pPr></w:p>")), is_long=True),
    text("bookmarks-100000", said("<w:p>" + many(
        100000, '<w:bookmarkStart w:id="{0}" w:name="b{0}"/><w:bookmarkEnd w:id="{0}"/>') + "</w:p>"), is_long=True),
    text("notes-50000", lambda: document(
        f"<w:p>{many(50000, '<w:r><w:footnoteReference w:id=%r/></w:r>' % '{}')}</w:p>",
        footnotes=many(50000, '<w:footnote w:id="{}"><w:p/></w:footnote>')), is_long=True),
    text("comments-50000", said("", comments=many(50000, '<w:comment w:id="{0}" w:author="a{0}"><w:p/></w:comment>')),
         is_long=True),
    text("changes-50000", said("<w:p>" + many(50000, f"<w:ins {CHANGE}><w:r><w:t>x</w:t></w:r></w:ins>") + "</w:p>"),
         is_long=True),
    text("runs-100000-formats", lambda: document(run_formats(100000)), is_long=True),
    text("links-100000", linked(*((f"x{i}", "hyperlink", f"https://example.org/{i}", "External") for i in range(100000)),
                                body="<w:p>" + many(100000, '<w:hyperlink r:id="x{}"><w:r><w:t>x</w:t></w:r></w:hyperlink>')
                                + "</w:p>"), EITHER, is_long=True),
    text("picture-shown-100000-times", pictured(f"<w:p>{picture() * 100000}</w:p>"), EITHER, is_long=True),
    text("picture-shown-in-5000-paragraphs", pictured(f"<w:p>{picture()}</w:p>" * 5000)),
    text("tabs-and-breaks-million", said(f"<w:p><w:r>{'<w:tab/><w:br/>' * 500000}</w:r></w:p>"), is_long=True),
    text("text-of-10-mebibytes", said(paragraph("x" * (10 << 20))), is_long=True),
    text("text-of-50-mebibytes", said(paragraph("x" * (50 << 20))), REFUSED, is_long=True),  # beyond a limit of XML
    text("header-of-styles", header_of_styles),
    text("format-long-around-tabs", said(f"<w:p><w:r>{LONG_FORMAT}{'<w:tab/>' * 500000}</w:r></w:p>"), is_long=True),
    text("format-long-around-runs", said(f"<w:p><w:r>{LONG_FORMAT}{'<w:r/>' * 1000000}</w:r></w:p>"), is_long=True),
    text("format-long-around-changes", said(f"<w:p><w:r>{LONG_FORMAT}" + f"<w:ins {CHANGE.format(1)}><w:t>x</w:t></w:ins>"
                                            * 200000 + "</w:r></w:p>"), is_long=True),
    text("changes-deep-around-links", said("<w:p>" + nested("<w:ins>", "<w:hyperlink/>" * 2000000, "</w:ins>", 900)
                                           + "</w:p>"), is_long=True),
    text("shapes-20000", said("<w:p>" + shape('style="width:9pt"')[5:-6] * 20000 + "</w:p>"), EITHER, is_long=True),
]

LEADING_OUT = [
    *(text(f"text-without-{name}", without(f"word/{name}.xml")) for name in PARTS[1:]),
    text("text-without-main-part", without(DOCUMENT), REFUSED),
    text("text-without-relations", without(LINKS)),
    text("header-leaves-package", related(header1="../../../../etc/passwd")),
    text("styles-leave-package", related(styles="file:///etc/passwd")),
    text("template-outside", linked(("t", "attachedTemplate", "file:///etc/passwd", "External"),
                                    settings='<w:attachedTemplate r:id="t"/>')),
    text("text-picture-external", pictured(f"<w:p>{picture(link='r:link')}</w:p>",
                                           ("rIdP", "image", "file:///etc/passwd", "External"))),
    text("text-picture-outside", pictured(f"<w:p>{picture()}</w:p>", ("rIdP", "image", "../../../../etc/passwd"))),
    text("text-picture-missing", pictured(f"<w:p>{picture('none')}</w:p>")),
    text("text-picture-is-no-picture", pictured(f"<w:p>{picture()}</w:p>", content=b"<svg onload='alert(1)'/>")),
    text("text-picture-is-the-document", pictured(f"<w:p>{picture()}</w:p>", ("rIdP", "image", "document.xml"))),
    text("chunk-of-a-page", lambda: {**linked(("c", "aFChunk", "chunk.htm"), body='<w:altChunk r:id="c"/>')(),
                                     "word/chunk.htm": "<script>alert(1)</script>"}),
    text("chunk-outside", linked(("c", "aFChunk", "file:///etc/passwd", "External"), body='<w:altChunk r:id="c"/>' * 9)),
    text("document-within", linked(("s", "subDocument", "file:///etc/passwd", "External"), body='<w:subDoc r:id="s"/>')),
    text("object-within", lambda: {**linked(("o", "oleObject", "o.bin"), body='<w:p><w:r><w:object><o:OLEObject r:id="o"/>'
                                            "</w:object></w:r></w:p>")(), "word/o.bin": b"MZ" + bytes(999)}),
    text("links-that-run", linked(("j", "hyperlink", "javascript:alert(1)", "External"),
                                  body=f'<w:p><w:hyperlink r:id="j">{run("click")}</w:hyperlink></w:p>')),
    text("link-of-a-mebibyte", linked(("j", "hyperlink", "https://example.org/" + "x" * 1048576, "External"),
                                      body=f'<w:p><w:hyperlink r:id="j">{run("click")}</w:hyperlink></w:p>' * 200)),
    text("link-around-many-runs", linked(
        ("j", "hyperlink", "https://example.org/" + "x" * 8000, "External"),
        body=f'<w:p><w:hyperlink r:id="j">{(run("a", "<w:b/>") + run("b")) * 10000}</w:hyperlink></w:p>')),
    text("data-url-of-many-bytes-a-character", said(shape("", f'<v:imagedata src="data:{"a" * 94}{chr(233) * 9}"/>'))),
    text("font-of-ten-mebibytes", said(paragraph("x") * 5000, styles=DEFAULTS.format(
        f'<w:rFonts w:ascii="{"f" * (10 << 20)}"/>'))),
    text("field-link-that-runs", said(f'<w:p>{BEGIN}<w:r><w:instrText>HYPERLINK "javascript:alert(1)" \\o "{HARM}"'
                                      f"</w:instrText></w:r>{SEPARATE}{run('click')}{END}</w:p>")),
    text("field-that-includes", said(f'<w:p>{BEGIN}<w:r><w:instrText>INCLUDETEXT "/etc/passwd"</w:instrText></w:r>'
                                     f'{SEPARATE}{END}<w:fldSimple w:instr="INCLUDEPICTURE /etc/passwd"/></w:p>')),
    text("data-url-bad", said(shape("", '<v:imagedata src="data:image/png;base64,@@@@"/>'))),
    text("data-url-huge", said(shape("", f'<v:imagedata src="data:image/png;base64,{"A" * (8 << 20)}"/>')), EITHER),
    text("shape-style-of-a-mebibyte", said(shape(f'style="{"width:1pt;" * 104857}"'))),
    text("shape-style-bad", said(shape('style="width:1e308pt;height:NaN;;:;rotation:1e99;z-index:99999999999999;left"'))),
    text("shape-in-no-space", said('<w:p><w:r><w:pict><v:group coordsize="0,0" coordorigin="1e308,x" style="width:9pt">'
                                   '<v:rect style="left:1;width:5"/></v:group></w:pict></w:r></w:p>')),
    text("names-with-harm", lambda: document(
        paragraph(run(SAID, f'<w:rFonts w:ascii="{HARM}"/><w:color w:val="{HARM}"/><w:lang w:val="{HARM}"/>'),
                  f'<w:bookmarkStart w:id="1" w:name="{HARM}"/>', properties='<w:pStyle w:val="P"/>'),
        styles=style("P", HARM))),
    text("names-of-a-mebibyte", lambda: document(
        paragraph(run(SAID, f'<w:rFonts w:ascii="{"f" * 1048576}"/>'), f'<w:bookmarkStart w:id="1" w:name="{"b" * 1048576}"/>',
                  properties='<w:pStyle w:val="P"/>'), styles=style("P", "s" * 1048576)), says="Name of a style is cut"),
    text("ids-twice", lambda: document(
        item(SAID) + '<w:p><w:r><w:footnoteReference w:id="2"/></w:r></w:p>', numbering=NUMBERED * 2,
        styles=style("P", "p") * 2, footnotes=f'<w:footnote w:id="2">{paragraph("x")}</w:footnote>' * 2),
        says="is defined more than once"),
    text("text-relation-ids-twice", linked(("x", "styles", "none.xml"), ("x", "header", "document.xml"))),
    text("control-character", raw_text(b"&#1;"), EITHER),
    text("not-a-character", raw_text("\uFFFE\uFFFF".encode()), EITHER),
    text("characters-that-turn", raw_text("\u202E\u2066".encode()), compare=True),
    text("half-a-surrogate", raw_text(b"\xed\xa0\x80"), EITHER),
    text("text-in-utf-16", lambda: {**document(""), DOCUMENT: part("document", f"<w:body>{paragraph(SAID)}</w:body>")
         .replace("UTF-8", "UTF-16").encode("utf-16")}, compare=True),
    text("macros-within", lambda: {**linked(("v", "vbaProject", "vbaProject.bin"))(), "word/vbaProject.bin": bytes(999)}),
]

CASES = STRUCTURES + CIRCLES + NUMBERS + COUNTS + LEADING_OUT
