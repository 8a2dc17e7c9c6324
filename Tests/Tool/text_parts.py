"""What text documents in tests are made of: the parts of a word-processing package, from the inner XML of each."""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "Samples"))
# pylint: disable=wrong-import-position
from package_parts import CONTENT_TYPES, HEAD, RELATIONS, relations

MAIN = "http://schemas.openxmlformats.org/wordprocessingml/2006/main"
KIND = "application/vnd.openxmlformats-officedocument.wordprocessingml."
NAMESPACES = " ".join(f'xmlns:{prefix}="{uri}"' for prefix, uri in {
    "w": MAIN, "r": RELATIONS,
    "m": "http://schemas.openxmlformats.org/officeDocument/2006/math",
    "mc": "http://schemas.openxmlformats.org/markup-compatibility/2006",
    "a": "http://schemas.openxmlformats.org/drawingml/2006/main",
    "pic": "http://schemas.openxmlformats.org/drawingml/2006/picture",
    "wp": "http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing",
    "wps": "http://schemas.microsoft.com/office/word/2010/wordprocessingShape",
    "v": "urn:schemas-microsoft-com:vml", "o": "urn:schemas-microsoft-com:office:office",
}.items())
# part -> (the last word of its content type, its root element, the last word of its relationship)
PARTS = {
    "document": ("document.main", "document", ""), "styles": ("styles", "styles", "styles"),
    "numbering": ("numbering", "numbering", "numbering"), "settings": ("settings", "settings", "settings"),
    "footnotes": ("footnotes", "footnotes", "footnotes"), "endnotes": ("endnotes", "endnotes", "endnotes"),
    "comments": ("comments", "comments", "comments"), "header1": ("header", "hdr", "header"),
    "header2": ("header", "hdr", "header"), "footer1": ("footer", "ftr", "footer"),
}
DOCUMENT, LINKS = "word/document.xml", "word/_rels/document.xml.rels"


def part(root, inner):
    return f"{HEAD}<w:{root} {NAMESPACES}>{inner}</w:{root}>"


def document(body, links=(), **inner):
    """The parts of a text document. inner: part, such as styles, -> what stands in its root element.

    The relationship of each part has the part's name as its id; links are further rows for package_parts.relations.
    """
    names = ["document", *inner]
    overrides = "".join(f'<Override PartName="/word/{name}.xml" ContentType="{KIND}{PARTS[name][0]}+xml"/>' for name in names)
    rows = [(name, PARTS[name][2], f"{name}.xml") for name in inner]
    return {
        "[Content_Types].xml": f'{HEAD}<Types xmlns="{CONTENT_TYPES}"><Default Extension="rels" ContentType='
                               '"application/vnd.openxmlformats-package.relationships+xml"/><Default Extension="xml" '
                               'ContentType="application/xml"/><Default Extension="png" ContentType="image/png"/>'
                               f"{overrides}</Types>",
        "_rels/.rels": relations([("rId1", "officeDocument", DOCUMENT)]),
        DOCUMENT: part("document", f"<w:body>{body}</w:body>"),
        LINKS: relations([*rows, *links]),
        **{f"word/{name}.xml": part(PARTS[name][1], text) for name, text in inner.items()},
    }


def run(text, properties=""):
    properties = f"<w:rPr>{properties}</w:rPr>" if properties else ""
    return f'<w:r>{properties}<w:t xml:space="preserve">{text}</w:t></w:r>'


def paragraph(*runs, properties=""):
    """A paragraph of runs; a text without markup becomes a run."""
    properties = f"<w:pPr>{properties}</w:pPr>" if properties else ""
    return f"<w:p>{properties}{''.join(each if each.startswith('<') else run(each) for each in runs)}</w:p>"


def cell(content, properties=""):
    return f"<w:tc><w:tcPr>{properties}</w:tcPr>{content}</w:tc>"


def table(*rows, properties=""):
    """rows: the cells of each."""
    columns = '<w:gridCol w:w="2000"/>' * max(len(cells) for cells in rows)
    lines = "".join(f"<w:tr>{''.join(cells)}</w:tr>" for cells in rows)
    return f"<w:tbl><w:tblPr>{properties}</w:tblPr><w:tblGrid>{columns}</w:tblGrid>{lines}</w:tbl>"


def style(style_id, name, inner="", kind="paragraph", based_on="", is_default=False):
    default = ' w:default="1"' if is_default else ""
    based = f'<w:basedOn w:val="{based_on}"/>' if based_on else ""
    return f'<w:style w:type="{kind}"{default} w:styleId="{style_id}"><w:name w:val="{name}"/>{based}{inner}</w:style>'


def level(at, text="%1.", kind="decimal", inner="", start="1"):
    return (f'<w:lvl w:ilvl="{at}"><w:start w:val="{start}"/><w:numFmt w:val="{kind}"/>{inner}'
            f'<w:lvlText w:val="{text}"/></w:lvl>')


def lists(*levels, list_id=1):
    """One abstract list with these levels, and a list of it."""
    return (f'<w:abstractNum w:abstractNumId="{list_id}">{"".join(levels)}</w:abstractNum>'
            f'<w:num w:numId="{list_id}"><w:abstractNumId w:val="{list_id}"/></w:num>')


def item(text, list_id=1, at=0):
    numbering = f'<w:numPr><w:ilvl w:val="{at}"/><w:numId w:val="{list_id}"/></w:numPr>'
    return paragraph(text, properties=numbering)
