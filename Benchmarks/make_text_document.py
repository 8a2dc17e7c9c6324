#!/usr/bin/python3
"""Writes a text document of any size for measuring; the same arguments give the same document.

Usage: make_text_document.py OUT.docx --paragraphs N

Of each ten paragraphs one is a heading, three are list items, and six are text of four runs: plain, bold, italic and
coloured. Properties are set as word processors set them, by styles and directly.
"""
import argparse
import sys
import zipfile

MAIN = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"
RELATIONS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE = "http://schemas.openxmlformats.org/package/2006"
TYPE = "application/vnd.openxmlformats-officedocument.wordprocessingml."
HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
WORDS = ("order", "customer", "delivery", "of", "the", "invoice", "was", "paid", "in", "March", "and", "shipped")
COLORS = ("1F3864", "C00000", "538135", "7F6000")
TEXT_RUNS = 4  # of a paragraph of text; headings and items have one


def words(value, count):
    return " ".join(WORDS[(value >> 3 * i) % len(WORDS)] for i in range(count))


def run(text, properties=""):
    properties = f"<w:rPr>{properties}</w:rPr>" if properties else ""
    return f'<w:r>{properties}<w:t xml:space="preserve">{text}</w:t></w:r>'


def paragraph(index, value):
    kind = index % 10
    if kind == 0:
        heading = f'<w:pPr><w:pStyle w:val="Heading{1 + index // 10 % 3}"/></w:pPr>'
        return f"<w:p>{heading}{run(f'Chapter {index} ' + words(value, 3))}</w:p>"
    if kind in (4, 5, 6):
        numbering = f'<w:numPr><w:ilvl w:val="{kind - 4}"/><w:numId w:val="1"/></w:numPr>'
        return f'<w:p><w:pPr><w:pStyle w:val="ListParagraph"/>{numbering}</w:pPr>{run(words(value, 6))}</w:p>'
    color = f'<w:color w:val="{COLORS[value % len(COLORS)]}"/><w:sz w:val="{20 + value % 3 * 2}"/>'
    return (f'<w:p><w:pPr><w:spacing w:after="120"/><w:jc w:val="both"/></w:pPr>{run(words(value, 8) + " ")}'
            f'{run(words(value >> 4, 2) + " ", "<w:b/>")}{run(words(value >> 8, 2) + " ", "<w:i/>")}'
            f"{run(words(value >> 12, 4), color)}</w:p>")


def body(paragraphs):
    """The main part, in pieces of a paragraph each."""
    yield f'{HEAD}<w:document xmlns:w="{MAIN}" xmlns:r="{RELATIONS}"><w:body>'
    value = 1
    for index in range(paragraphs):
        value = value * 1103515245 + 12345 & 0x7FFFFFFF  # a generator whose numbers no library changes
        yield paragraph(index, value)
    yield '<w:sectPr><w:pgSz w:w="11906" w:h="16838"/></w:sectPr></w:body></w:document>'


def count_runs(paragraphs):
    """How many runs the document has."""
    return sum(1 if index % 10 in (0, 4, 5, 6) else TEXT_RUNS for index in range(paragraphs))


def styles():
    headings = "".join(
        f'<w:style w:type="paragraph" w:styleId="Heading{i}"><w:name w:val="heading {i}"/><w:basedOn w:val="Normal"/>'
        f'<w:pPr><w:keepNext/><w:outlineLvl w:val="{i - 1}"/></w:pPr><w:rPr><w:b/><w:sz w:val="{36 - 4 * i}"/></w:rPr>'
        "</w:style>" for i in (1, 2, 3))
    return (f'<w:styles xmlns:w="{MAIN}"><w:docDefaults><w:rPrDefault><w:rPr><w:sz w:val="22"/></w:rPr></w:rPrDefault>'
            '</w:docDefaults><w:style w:type="paragraph" w:default="1" w:styleId="Normal"><w:name w:val="Normal"/></w:style>'
            f'{headings}<w:style w:type="paragraph" w:styleId="ListParagraph"><w:name w:val="List Paragraph"/>'
            '<w:basedOn w:val="Normal"/><w:pPr><w:ind w:left="720"/></w:pPr></w:style></w:styles>')


def numbering():
    levels = "".join(f'<w:lvl w:ilvl="{i}"><w:start w:val="1"/><w:numFmt w:val="{kind}"/><w:lvlText w:val="%{i + 1}."/></w:lvl>'
                     for i, kind in enumerate(("decimal", "lowerLetter", "lowerRoman")))
    return (f'<w:numbering xmlns:w="{MAIN}"><w:abstractNum w:abstractNumId="0">{levels}</w:abstractNum>'
            '<w:num w:numId="1"><w:abstractNumId w:val="0"/></w:num></w:numbering>')


def write(path, paragraphs):
    relation = '<Relationship Id="{}" Type="' + RELATIONS + '/{}" Target="{}"/>'
    overrides = "".join(f'<Override PartName="/word/{name}.xml" ContentType="{TYPE}{kind}+xml"/>' for name, kind in (
        ("document", "document.main"), ("styles", "styles"), ("numbering", "numbering")))
    parts = {
        "[Content_Types].xml": f'<Types xmlns="{PACKAGE}/content-types"><Default Extension="rels" ContentType='
                               '"application/vnd.openxmlformats-package.relationships+xml"/>'
                               f'<Default Extension="xml" ContentType="application/xml"/>{overrides}</Types>',
        "_rels/.rels": f'<Relationships xmlns="{PACKAGE}/relationships">'
                       + relation.format("rId1", "officeDocument", "word/document.xml") + "</Relationships>",
        "word/_rels/document.xml.rels": f'<Relationships xmlns="{PACKAGE}/relationships">'
                                        + relation.format("rId1", "styles", "styles.xml")
                                        + relation.format("rId2", "numbering", "numbering.xml") + "</Relationships>",
        "word/styles.xml": styles(),
        "word/numbering.xml": numbering(),
    }
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=6) as package:
        for name, text in parts.items():
            package.writestr(zipfile.ZipInfo(name), HEAD + text, zipfile.ZIP_DEFLATED)
        entry = zipfile.ZipInfo("word/document.xml")
        entry.compress_type = zipfile.ZIP_DEFLATED
        with package.open(entry, "w") as stream:
            pending = []
            for piece in body(paragraphs):
                pending.append(piece)
                if len(pending) == 500:
                    stream.write("".join(pending).encode())
                    pending.clear()
            stream.write("".join(pending).encode())


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("out")
    parser.add_argument("--paragraphs", type=int, required=True)
    options = parser.parse_args()
    write(options.out, options.paragraphs)
    return 0


if __name__ == "__main__":
    sys.exit(main())
