"""The demonstration workbook: a shop's orders, their summary, and a hidden sheet of rates."""
from package_parts import (CHART_TYPE, DRAWING_TYPE, HEAD, RELATIONS, inline, jpeg, merges, number, png, relations, row,
                           shared, typed, workbook)

STRINGS = (
    "<si><r><rPr><b/><sz val=\"16\"/></rPr><t xml:space=\"preserve\">Orders </t></r>"
    "<r><rPr><i/><color rgb=\"FFC00000\"/></rPr><t>2024</t></r></si>",
    "<si><t>Day</t></si>", "<si><t>Customer</t></si>", "<si><t>Pieces</t></si>", "<si><t>Price</t></si>",
    "<si><t>Total</t></si>", "<si><t>Paid</t></si>", "<si><t>Note</t></si>",
    "<si><t>課長</t><rPh sb=\"0\" eb=\"2\"><t>カチョウ</t></rPh><phoneticPr fontId=\"0\"/></si>",
    "<si><t>Müller &amp; Söhne</t></si>", "<si><t xml:space=\"preserve\">  Ada  </t></si>",
    "<si><t>first line\nsecond_x000D_line</t></si>", "<si><t/></si>",
)

# Cell formats by the order of cellXfs below.
TITLE, HEADER, DAY, MONEY, SHARE, WARN, SOFT, INDEXED, SMALL = range(1, 10)

STYLES = """<numFmts count="2"><numFmt numFmtId="164" formatCode="yyyy\\-mm\\-dd"/>
<numFmt numFmtId="165" formatCode="#,##0.00\\ &quot;EUR&quot;"/></numFmts>
<fonts count="5"><font><sz val="11"/><color theme="1"/><name val="Calibri"/></font>
<font><b/><sz val="16"/><color rgb="FF1F4E79"/><name val="Calibri"/></font>
<font><b/><sz val="11"/><color theme="0"/><name val="Calibri"/></font>
<font><i/><sz val="11"/><color indexed="10"/><name val="Calibri"/></font>
<font><b val="0"/><i val="false"/><sz val="7.5"/><color theme="5" tint="-0.249977111117893"/><name val="Cambria"/></font>
</fonts>
<fills count="6"><fill><patternFill patternType="none"/></fill><fill><patternFill patternType="gray125"/></fill>
<fill><patternFill patternType="solid"><fgColor theme="4"/><bgColor indexed="64"/></patternFill></fill>
<fill><patternFill patternType="solid"><fgColor rgb="FFFFCC00"/></patternFill></fill>
<fill><patternFill patternType="solid"><fgColor theme="4" tint="0.79998168889431442"/></patternFill></fill>
<fill><patternFill patternType="solid"><fgColor indexed="44"/></patternFill></fill></fills>
<borders count="3"><border><left/><right/><top/><bottom/><diagonal/></border>
<border><left style="thin"><color auto="1"/></left><right style="thin"><color auto="1"/></right>
<top style="thin"><color auto="1"/></top><bottom style="thin"><color auto="1"/></bottom><diagonal/></border>
<border><left/><right/><top/><bottom style="medium"><color rgb="FFC00000"/></bottom><diagonal/></border></borders>
<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>
<cellXfs count="10"><xf numFmtId="0" fontId="0" fillId="0" borderId="0" xfId="0"/>
<xf numFmtId="0" fontId="1" fillId="0" borderId="2" xfId="0"/><xf numFmtId="0" fontId="2" fillId="2" borderId="1" xfId="0"/>
<xf numFmtId="164" fontId="0" fillId="0" borderId="1" xfId="0"/><xf numFmtId="165" fontId="0" fillId="0" borderId="1" xfId="0"/>
<xf numFmtId="9" fontId="0" fillId="0" borderId="1" xfId="0"/><xf numFmtId="0" fontId="3" fillId="3" borderId="1" xfId="0"/>
<xf numFmtId="0" fontId="0" fillId="4" borderId="1" xfId="0"/><xf numFmtId="22" fontId="0" fillId="5" borderId="0" xfId="0"/>
<xf numFmtId="0" fontId="4" fillId="0" borderId="0" xfId="0"/></cellXfs>
<cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles>"""

THEME_COLOURS = ("000000", "FFFFFF", "44546A", "E7E6E6", "4472C4", "ED7D31", "A5A5A5", "FFC000", "5B9BD5", "70AD47",
                 "0563C1", "954F72")
THEME_SLOTS = ("dk1", "lt1", "dk2", "lt2", "accent1", "accent2", "accent3", "accent4", "accent5", "accent6", "hlink",
               "folHlink")

# Day, index of the customer's name, pieces, price, share, paid
ORDERS = ((45292, 8, 3, "19.99", "0.1", "1"), (45351.75, 9, 12, "4.5", "0.25", "0"), (45657, 10, 1, "1234.5678", "1", "1"))


def theme():
    drawing = "http://schemas.openxmlformats.org/drawingml/2006/main"
    slots = "".join(f'<a:{slot}><a:srgbClr val="{colour}"/></a:{slot}>'
                    for slot, colour in zip(THEME_SLOTS, THEME_COLOURS))
    fonts = "".join(f'<a:{kind}><a:latin typeface="Calibri"/><a:ea typeface=""/><a:cs typeface=""/></a:{kind}>'
                    for kind in ("majorFont", "minorFont"))
    fill = '<a:solidFill><a:schemeClr val="phClr"/></a:solidFill>'
    effect = "<a:effectStyle><a:effectLst/></a:effectStyle>"
    formats = (f"<a:fillStyleLst>{fill * 3}</a:fillStyleLst><a:lnStyleLst>{f'<a:ln>{fill}</a:ln>' * 3}</a:lnStyleLst>"
               f"<a:effectStyleLst>{effect * 3}</a:effectStyleLst><a:bgFillStyleLst>{fill * 3}</a:bgFillStyleLst>")
    return (f'{HEAD}<a:theme xmlns:a="{drawing}" name="Shop"><a:themeElements><a:clrScheme name="Shop">{slots}'
            f'</a:clrScheme><a:fontScheme name="Shop">{fonts}</a:fontScheme>'
            f'<a:fmtScheme name="Shop">{formats}</a:fmtScheme></a:themeElements></a:theme>')


def order_rows():
    rows = [row(1, [shared("A1", 0, TITLE)], 'ht="30" customHeight="1"'),
            row(2, [shared(f"{column}2", index, HEADER) for index, column in enumerate("ABCDEFG", 1)])]
    for index, (day, customer, pieces, price, share, paid) in enumerate(ORDERS, 3):
        total = repr(pieces * float(price))
        rows.append(row(index, [
            number(f"A{index}", day, DAY), shared(f"B{index}", customer, SOFT), number(f"C{index}", pieces, SOFT),
            number(f"D{index}", price, MONEY), number(f"E{index}", total, MONEY, f"C{index}*D{index}"),
            typed(f"F{index}", "b", paid, SOFT), number(f"G{index}", share, SHARE)]))
    rows += [
        row(6, [shared("A6", 11, SMALL), shared("B6", 12), typed("C6", "e", "#DIV/0!", WARN, "C3/0"),
                typed("D6", "str", "due", WARN, 'IF(F4,"paid","due")'), typed("E6", "b", "1", WARN, "C3>1"),
                inline("F6", "<t>inline</t>", WARN),
                inline("G6", "<r><t>in </t></r><r><rPr><b/></rPr><t>runs</t></r>", WARN)]),
        row(7, [number("A7", 45351.75, INDEXED), number("B7", "1E-7"), number("C7", "12345678901234567890"),
                number("D7", "-0.1"), typed("E7", "e", "#N/A")], 'hidden="1"'),
        row(9, [shared("A9", 7, HEADER), '<c r="B9" s="7"/>', '<c r="C9" s="7"/>'], 'ht="45.75" customHeight="1"'),
    ]
    return "".join(rows)


def orders_sheet():
    return ('<dimension ref="A1:G9"/><sheetViews><sheetView tabSelected="1" workbookViewId="0"/></sheetViews>'
            '<sheetFormatPr defaultRowHeight="15"/>'
            '<cols><col min="1" max="1" width="14.7109375" customWidth="1"/>'
            '<col min="2" max="2" width="20.28515625" customWidth="1"/>'
            '<col min="4" max="5" width="13" customWidth="1"/>'
            '<col min="8" max="9" width="9.140625" hidden="1" customWidth="1"/></cols>'
            f"<sheetData>{order_rows()}</sheetData>{merges('A1:G1', 'B9:C9')}"
            '<hyperlinks><hyperlink ref="B4" r:id="rId2" location="contact"/>'
            '<hyperlink ref="A9" location="Summary!A1"/></hyperlinks><drawing r:id="rId1"/>')


def summary_sheet():
    return ("<sheetData>"
            + row(1, [inline("A1", "<t>Sum</t>"), number("B1", "1348.5378", 4, "SUM(Orders!E3:E5)")])
            + row(2, [inline("A2", "<t>In pounds</t>"), number("B2", "1157.181", 0, "B1*'Rates 2024'!$B$1")])
            + row(3, [inline("A3", "<t>Orders</t>"), number("B3", 3, 0, "COUNTA(Orders!$B$3:$B$5)")])
            + "</sheetData>")


def anchored(start, end, content):
    def corner(tag, column, x, line, y):
        return (f"<xdr:{tag}><xdr:col>{column}</xdr:col><xdr:colOff>{x}</xdr:colOff><xdr:row>{line}</xdr:row>"
                f"<xdr:rowOff>{y}</xdr:rowOff></xdr:{tag}>")
    return (f'<xdr:twoCellAnchor editAs="oneCell">{corner("from", *start)}{corner("to", *end)}{content}'
            "<xdr:clientData/></xdr:twoCellAnchor>")


def picture(number_, name, source, start, end, turn=""):
    return anchored(start, end, (
        f'<xdr:pic><xdr:nvPicPr><xdr:cNvPr id="{number_}" name="{name}"/><xdr:cNvPicPr/></xdr:nvPicPr><xdr:blipFill>'
        f"<a:blip {source}/><a:stretch><a:fillRect/></a:stretch></xdr:blipFill><xdr:spPr>"
        f'<a:xfrm{turn}><a:off x="0" y="0"/><a:ext cx="914400" cy="457200"/></a:xfrm>'
        '<a:prstGeom prst="rect"><a:avLst/></a:prstGeom></xdr:spPr></xdr:pic>'))


def shape(number_, name, colour, text, start, end):
    return anchored(start, end, (
        f'<xdr:sp><xdr:nvSpPr><xdr:cNvPr id="{number_}" name="{name}"/><xdr:cNvSpPr/></xdr:nvSpPr><xdr:spPr>'
        '<a:xfrm><a:off x="0" y="0"/><a:ext cx="914400" cy="457200"/></a:xfrm><a:prstGeom prst="rect"><a:avLst/>'
        f'</a:prstGeom><a:solidFill><a:srgbClr val="{colour}"/></a:solidFill></xdr:spPr><xdr:txBody><a:bodyPr/><a:p>'
        f"<a:r><a:t>{text}</a:t></a:r></a:p></xdr:txBody></xdr:sp>"))


def chart_frame(number_, name, relation, start, end):
    uri = "http://schemas.openxmlformats.org/drawingml/2006/chart"
    return anchored(start, end, (
        f'<xdr:graphicFrame macro=""><xdr:nvGraphicFramePr><xdr:cNvPr id="{number_}" name="{name}"/>'
        '<xdr:cNvGraphicFramePr/></xdr:nvGraphicFramePr><xdr:xfrm><a:off x="0" y="0"/><a:ext cx="0" cy="0"/></xdr:xfrm>'
        f'<a:graphic><a:graphicData uri="{uri}"><c:chart xmlns:c="{uri}" r:id="{relation}"/></a:graphicData></a:graphic>'
        "</xdr:graphicFrame>"))


def drawing():
    spreadsheet_drawing = "http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing"
    main = "http://schemas.openxmlformats.org/drawingml/2006/main"
    # The box of a picture that stands on its side is the one that is seen.
    frames = (picture(2, "Logo", 'r:embed="rId1"', (9, 12700, 1, 0), (11, 0, 4, 25400))
              + picture(3, "Photo", 'r:embed="rId2"', (9, 0, 5, 0), (10, 9525, 8, 0))
              + picture(4, "Elsewhere", 'r:link="rId3"', (12, 0, 1, 0), (13, 0, 4, 0))
              + picture(5, "Turned", 'r:embed="rId4"', (11, 127000, 1, 0), (12, 0, 5, 0), ' rot="5400000"')
              + shape(6, "Mark", "FF8800", "checked", (9, 0, 8, 381000), (11, 0, 9, 190500))
              + chart_frame(7, "Totals", "rId5", (0, 0, 10, 0), (5, 0, 25, 0)))
    return (f'{HEAD}<xdr:wsDr xmlns:xdr="{spreadsheet_drawing}" xmlns:a="{main}" xmlns:r="{RELATIONS}">'
            f"{frames}</xdr:wsDr>")


def chart():
    """Columns of what each customer pays."""
    def cached(kind, formula, cache, values):
        points = "".join(f'<c:pt idx="{i}"><c:v>{value}</c:v></c:pt>' for i, value in enumerate(values))
        form = "<c:formatCode>General</c:formatCode>" if cache == "numCache" else ""
        return (f'<c:{kind}><c:f>{formula}</c:f><c:{cache}>{form}<c:ptCount val="{len(values)}"/>{points}</c:{cache}>'
                f"</c:{kind}>")

    names = cached("strRef", "Orders!$B$3:$B$5", "strCache", ("課長", "Müller &amp; Söhne", "  Ada  "))
    totals = cached("numRef", "Orders!$E$3:$E$5", "numCache", [repr(order[2] * float(order[3])) for order in ORDERS])
    title = "<a:p><a:r><a:t>Totals</a:t></a:r></a:p>"
    return (f'{HEAD}<c:chartSpace xmlns:c="http://schemas.openxmlformats.org/drawingml/2006/chart" '
            'xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main"><c:chart><c:title><c:tx><c:rich><a:bodyPr/>'
            f'{title}</c:rich></c:tx><c:overlay val="0"/></c:title><c:autoTitleDeleted val="0"/><c:plotArea><c:layout/>'
            '<c:barChart><c:barDir val="col"/><c:grouping val="clustered"/><c:varyColors val="0"/><c:ser><c:idx val="0"/>'
            f'<c:order val="0"/><c:tx>{cached("strRef", "Orders!$E$2", "strCache", ("Total",))}</c:tx>'
            f'<c:cat>{names}</c:cat><c:val>{totals}</c:val></c:ser><c:gapWidth val="150"/><c:axId val="1"/>'
            '<c:axId val="2"/></c:barChart><c:catAx><c:axId val="1"/><c:scaling><c:orientation val="minMax"/></c:scaling>'
            '<c:delete val="0"/><c:axPos val="b"/><c:crossAx val="2"/></c:catAx><c:valAx><c:axId val="2"/><c:scaling>'
            '<c:orientation val="minMax"/></c:scaling><c:delete val="0"/><c:axPos val="l"/><c:crossAx val="1"/></c:valAx>'
            "</c:plotArea><c:plotVisOnly val=\"1\"/></c:chart></c:chartSpace>")


def parts():
    sheets = [("Orders", "visible", orders_sheet()), ("Summary", "visible", summary_sheet()),
              ("Rates 2024", "hidden", "<sheetData>" + row(1, [inline("A1", "<t>GBP</t>"), number("B1", "0.8581")])
               + "</sheetData>")]
    package = workbook(sheets, "".join(STRINGS), STYLES, extra_types=[
        ("/xl/theme/theme1.xml", "application/vnd.openxmlformats-officedocument.theme+xml"),
        ("/xl/drawings/drawing1.xml", DRAWING_TYPE), ("/xl/charts/chart1.xml", CHART_TYPE)])
    book = package["xl/_rels/workbook.xml.rels"]
    package["xl/_rels/workbook.xml.rels"] = book.replace(
        "</Relationships>", f'<Relationship Id="rId6" Type="{RELATIONS}/theme" Target="theme/theme1.xml"/></Relationships>')
    package["xl/theme/theme1.xml"] = theme()
    package["xl/worksheets/_rels/sheet1.xml.rels"] = relations([
        ("rId1", "drawing", "../drawings/drawing1.xml"),
        ("rId2", "hyperlink", "https://example.org/mueller?a=1&b=2", "External")])
    package["xl/drawings/drawing1.xml"] = drawing()
    package["xl/drawings/_rels/drawing1.xml.rels"] = relations([
        ("rId1", "image", "../media/image1.png"), ("rId2", "image", "/xl/media/image2.jpeg"),
        ("rId3", "image", "https://example.org/elsewhere.png", "External"),
        ("rId4", "image", "../media/image3.png"), ("rId5", "chart", "../charts/chart1.xml")])
    package["xl/charts/chart1.xml"] = chart()
    package["xl/media/image1.png"] = png(6, 4, lambda x, y: (40 * x, 60 * y, 128))
    package["xl/media/image2.jpeg"] = jpeg()
    package["xl/media/image3.png"] = png(8, 4, lambda x, y: (200, 0, 0) if x < 4 else (0, 0, 200))
    return package
