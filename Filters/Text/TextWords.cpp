#include <Filters/Text/TextWords.h>

#include <iterator>
#include <vector>

#include <Filters/Package/Namespaces.h>
#include <Filters/Package/XmlParts.h>

namespace QV::Filters {
namespace {

using TextWord = FilterUtils::XMLVocabulary::Word;
using TextNamespace = FilterUtils::XMLVocabulary::Namespace;

const std::vector<TextNamespace>& getTextNamespaces()
{
    static const std::vector<TextNamespace> namespaces = {
        makeXmlNamespace("w", Vocabulary::WordProcessing),
        makeXmlNamespace("wp", Vocabulary::WordProcessingDrawing),
        makeXmlNamespace("a", Vocabulary::Drawing),
        makeXmlNamespace("pic", Vocabulary::Picture),
        makeXmlNamespace("c", Vocabulary::Chart),
        makeXmlNamespace("dgm", Vocabulary::Diagram),
        makeXmlNamespace("r", Vocabulary::Relationships),
        makeXmlNamespace("mc", Vocabulary::MarkupCompatibility),
        makeXmlNamespace("m", Vocabulary::Math),
        {"wps", {"http://schemas.microsoft.com/office/word/2010/wordprocessingShape"} },
        {"wpg", {"http://schemas.microsoft.com/office/word/2010/wordprocessingGroup"} },
        {"wpc", {"http://schemas.microsoft.com/office/word/2010/wordprocessingCanvas"}},
        {"v",   {"urn:schemas-microsoft-com:vml"}                                     },
        {"o",   {"urn:schemas-microsoft-com:office:office"}                           },
    };
    return namespaces;
}

const TextWord StoryWords[] = {
    {TextWords::Body,                   "w:body"             },
    {TextWords::Footnote,               "w:footnote"         },
    {TextWords::Endnote,                "w:endnote"          },
    {TextWords::Comment,                "w:comment"          },
    {TextWords::Paragraph,              "w:p"                },
    {TextWords::ParagraphProps,         "w:pPr"              },
    {TextWords::SectionProps,           "w:sectPr"           },
    {TextWords::Table,                  "w:tbl"              },
    {TextWords::TableProps,             "w:tblPr"            },
    {TextWords::TableGrid,              "w:tblGrid"          },
    {TextWords::Row,                    "w:tr"               },
    {TextWords::RowProps,               "w:trPr"             },
    {TextWords::RowExceptions,          "w:tblPrEx"          },
    {TextWords::Cell,                   "w:tc"               },
    {TextWords::CellProps,              "w:tcPr"             },
    {TextWords::AltChunk,               "w:altChunk"         },
    {TextWords::SdtProps,               "w:sdtPr"            },
    {TextWords::SdtEndProps,            "w:sdtEndPr"         },
    {TextWords::CustomXmlProps,         "w:customXmlPr"      },
    {TextWords::Run,                    "w:r"                },
    {TextWords::RunProps,               "w:rPr"              },
    {TextWords::Hyperlink,              "w:hyperlink"        },
    {TextWords::SimpleField,            "w:fldSimple"        },
    {TextWords::Inserted,               "w:ins"              },
    {TextWords::Deleted,                "w:del"              },
    {TextWords::MovedFrom,              "w:moveFrom"         },
    {TextWords::MovedTo,                "w:moveTo"           },
    {TextWords::BookmarkStart,          "w:bookmarkStart"    },
    {TextWords::BookmarkEnd,            "w:bookmarkEnd"      },
    {TextWords::RubyText,               "w:rt"               },
    {TextWords::Text,                   "w:t"                },
    {TextWords::DeletedText,            "w:delText"          },
    {TextWords::InstructionText,        "w:instrText"        },
    {TextWords::DeletedInstructionText, "w:delInstrText"     },
    {TextWords::MathRun,                "m:r"                },
    {TextWords::MathText,               "m:t"                },
    {TextWords::Tab,                    "w:tab"              },
    {TextWords::PositionedTab,          "w:ptab"             },
    {TextWords::Break,                  "w:br"               },
    {TextWords::CarriageReturn,         "w:cr"               },
    {TextWords::NoBreakHyphen,          "w:noBreakHyphen"    },
    {TextWords::SoftHyphen,             "w:softHyphen"       },
    {TextWords::Symbol,                 "w:sym"              },
    {TextWords::FieldCharacter,         "w:fldChar"          },
    {TextWords::FootnoteReference,      "w:footnoteReference"},
    {TextWords::EndnoteReference,       "w:endnoteReference" },
    {TextWords::CommentReference,       "w:commentReference" },
};

const TextWord DrawnWords[] = {
    {TextWords::Drawing,            "w:drawing"          },
    {TextWords::VmlPicture,         "w:pict"             },
    {TextWords::EmbeddedObject,     "w:object"           },
    {TextWords::Inline,             "wp:inline"          },
    {TextWords::Anchor,             "wp:anchor"          },
    {TextWords::Extent,             "wp:extent"          },
    {TextWords::HorizontalPosition, "wp:positionH"       },
    {TextWords::VerticalPosition,   "wp:positionV"       },
    {TextWords::SimplePosition,     "wp:simplePos"       },
    {TextWords::GraphicData,        "a:graphicData"      },
    {TextWords::Picture,            "pic:pic"            },
    {TextWords::Blip,               "a:blip"             },
    {TextWords::WordShape,          "wps:wsp"            },
    {TextWords::WordGroup,          "wpg:wgp"            },
    {TextWords::WordGroupChild,     "wpg:grpSp"          },
    {TextWords::WordCanvas,         "wpc:wpc"            },
    {TextWords::ShapeStyle,         "wps:style"          },
    {TextWords::Chart,              "c:chart"            },
    {TextWords::Diagram,            "dgm:relIds"         },
    {TextWords::TextBoxContent,     "w:txbxContent"      },
    {TextWords::VmlShape,           "v:shape"            },
    {TextWords::VmlShape,           "v:rect"             },
    {TextWords::VmlShape,           "v:roundrect"        },
    {TextWords::VmlShape,           "v:oval"             },
    {TextWords::VmlShape,           "v:line"             },
    {TextWords::VmlShape,           "v:polyline"         },
    {TextWords::VmlShape,           "v:arc"              },
    {TextWords::VmlShape,           "v:curve"            },
    {TextWords::VmlShape,           "v:image"            },
    {TextWords::VmlGroup,           "v:group"            },
    {TextWords::VmlImageData,       "v:imagedata"        },
    {TextWords::VmlFill,            "v:fill"             },
    {TextWords::VmlTextPath,        "v:textpath"         },
    {TextWords::OleObject,          "o:OLEObject"        },
    {TextWords::AlternateContent,   "mc:AlternateContent"},
    {TextWords::Choice,             "mc:Choice"          },
    {TextWords::Fallback,           "mc:Fallback"        },
};

const TextWord AttributeWords[] = {
    {TextWords::Id,                  "w:id"         },
    {TextWords::Type,                "w:type"       },
    {TextWords::Name,                "w:name"       },
    {TextWords::Author,              "w:author"     },
    {TextWords::Date,                "w:date"       },
    {TextWords::RelationshipId,      "r:id"         },
    {TextWords::RelationshipEmbed,   "r:embed"      },
    {TextWords::RelationshipLink,    "r:link"       },
    {TextWords::LinkAnchor,          "w:anchor"     },
    {TextWords::Instruction,         "w:instr"      },
    {TextWords::FieldCharacterType,  "w:fldCharType"},
    {TextWords::SymbolFont,          "w:font"       },
    {TextWords::SymbolCharacter,     "w:char"       },
    {TextWords::Requires,            "Requires"     },
    {TextWords::PlainName,           "name"         },
    {TextWords::VmlStyle,            "style"        },
    {TextWords::VmlFillColor,        "fillcolor"    },
    {TextWords::VmlFilled,           "filled"       },
    {TextWords::VmlSource,           "src"          },
    {TextWords::VmlTitle,            "o:title"      },
    {TextWords::VmlText,             "string"       },
    {TextWords::VmlTypeId,           "type"         },
    {TextWords::VmlSpType,           "o:spt"        },
    {TextWords::VmlCoordinateSize,   "coordsize"    },
    {TextWords::VmlCoordinateOrigin, "coordorigin"  },
    {TextWords::VmlRelationshipId,   "o:relid"      },
};

FilterUtils::XMLVocabulary makeTextWords()
{
    std::vector<TextWord> words(std::begin(StoryWords), std::end(StoryWords));
    words.insert(words.end(), std::begin(DrawnWords), std::end(DrawnWords));
    words.insert(words.end(), std::begin(AttributeWords), std::end(AttributeWords));
    return FilterUtils::XMLVocabulary(getTextNamespaces(), words);
}

} // namespace

const FilterUtils::XMLVocabulary& getTextWords()
{
    static const FilterUtils::XMLVocabulary words = makeTextWords();
    return words;
}

} // namespace QV::Filters
