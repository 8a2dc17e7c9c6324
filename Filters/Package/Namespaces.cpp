#include <Filters/Package/Namespaces.h>

#include <cstddef>
#include <vector>

namespace QV::Filters {
namespace {

struct NamespaceRow
{
    Vocabulary vocabulary; // for the reader; a test holds the order
    std::string transitional;
    std::string strict;
};

// In the order of the enumeration.
const std::vector<NamespaceRow>& getNamespaceRows()
{
    const std::string transitional = "http://schemas.openxmlformats.org/";
    const std::string strict = "http://purl.oclc.org/ooxml/";
    static const std::vector<NamespaceRow> rows = {
        {Vocabulary::Spreadsheet,           transitional + "spreadsheetml/2006/main",                 strict + "spreadsheetml/main" },
        {Vocabulary::WordProcessing,        transitional + "wordprocessingml/2006/main",
         strict + "wordprocessingml/main"                                                                                           },
        {Vocabulary::Presentation,          transitional + "presentationml/2006/main",                strict + "presentationml/main"},
        {Vocabulary::Drawing,               transitional + "drawingml/2006/main",                     strict + "drawingml/main"     },
        {Vocabulary::Chart,                 transitional + "drawingml/2006/chart",                    strict + "drawingml/chart"    },
        {Vocabulary::ChartDrawing,          transitional + "drawingml/2006/chartDrawing",
         strict + "drawingml/chartDrawing"                                                                                          },
        {Vocabulary::SpreadsheetDrawing,    transitional + "drawingml/2006/spreadsheetDrawing",
         strict + "drawingml/spreadsheetDrawing"                                                                                    },
        {Vocabulary::WordProcessingDrawing, transitional + "drawingml/2006/wordprocessingDrawing",
         strict + "drawingml/wordprocessingDrawing"                                                                                 },
        {Vocabulary::Picture,               transitional + "drawingml/2006/picture",                  strict + "drawingml/picture"  },
        {Vocabulary::Diagram,               transitional + "drawingml/2006/diagram",                  strict + "drawingml/diagram"  },
        {Vocabulary::LockedCanvas,          transitional + "drawingml/2006/lockedCanvas",
         strict + "drawingml/lockedCanvas"                                                                                          },
        {Vocabulary::Relationships,         transitional + "officeDocument/2006/relationships",
         strict + "officeDocument/relationships"                                                                                    },
        {Vocabulary::Math,                  transitional + "officeDocument/2006/math",                strict + "officeDocument/math"},
        {Vocabulary::Bibliography,          transitional + "officeDocument/2006/bibliography",
         strict + "officeDocument/bibliography"                                                                                     },
        {Vocabulary::ExtendedProperties,    transitional + "officeDocument/2006/extended-properties",
         strict + "officeDocument/extendedProperties"                                                                               },
        {Vocabulary::CustomProperties,      transitional + "officeDocument/2006/custom-properties",
         strict + "officeDocument/customProperties"                                                                                 },
        {Vocabulary::VariantTypes,          transitional + "officeDocument/2006/docPropsVTypes",
         strict + "officeDocument/docPropsVTypes"                                                                                   },
        {Vocabulary::MarkupCompatibility,   transitional + "markup-compatibility/2006",
         transitional + "markup-compatibility/2006"                                                                                 },
        {Vocabulary::PackageRelationships,  transitional + "package/2006/relationships",
         transitional + "package/2006/relationships"                                                                                },
        {Vocabulary::ContentTypes,          transitional + "package/2006/content-types",
         transitional + "package/2006/content-types"                                                                                },
        {Vocabulary::CoreProperties,        transitional + "package/2006/metadata/core-properties",
         transitional + "package/2006/metadata/core-properties"                                                                     },
    };
    return rows;
}

const NamespaceRow& getRow(Vocabulary vocabulary)
{
    return getNamespaceRows()[static_cast<std::size_t>(vocabulary)];
}

} // namespace

const std::string& getNamespace(Vocabulary vocabulary, Dialect dialect)
{
    const NamespaceRow& row = getRow(vocabulary);
    return dialect == Dialect::Strict ? row.strict : row.transitional;
}

boost::optional<Dialect> findDialectOfNamespace(boost::string_ref uri)
{
    for (const NamespaceRow& row : getNamespaceRows()) {
        if (row.transitional == row.strict)
            continue;
        if (uri == row.transitional)
            return Dialect::Transitional;
        if (uri == row.strict)
            return Dialect::Strict;
    }
    return boost::none;
}

Names::Names(Dialect dialect)
    : _dialect(dialect)
{
}

std::string Names::operator()(Vocabulary vocabulary, boost::string_ref localName) const
{
    std::string name = getNamespace(vocabulary, _dialect) + ':';
    name.append(localName.data(), localName.size());
    return name;
}

} // namespace QV::Filters
