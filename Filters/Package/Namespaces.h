#pragma once

/// @file
/// The names of elements, attributes and relationships: each vocabulary of Office Open XML has one namespace
/// in transitional documents and another one in strict documents (ISO/IEC 29500, parts 4 and 1).

#include <string>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <Filters/Package/Export.h>

namespace QV::Filters {

enum class Dialect
{
    Transitional,
    Strict
};

enum class Vocabulary
{
    Spreadsheet,
    WordProcessing,
    Presentation,
    Drawing, ///< shapes, colours and text of every drawing
    Chart,
    ChartDrawing,
    SpreadsheetDrawing, ///< anchors in a sheet
    WordProcessingDrawing,
    Picture,
    Diagram,
    LockedCanvas,
    Relationships, ///< the attributes that hold ids of relationships, such as r:id
    Math,
    Bibliography,
    ExtendedProperties,
    CustomProperties,
    VariantTypes,
    // These have one namespace in both dialects:
    MarkupCompatibility,
    PackageRelationships,
    ContentTypes,
    CoreProperties
};

/// The namespace's URI.
FILTERS_API const std::string& getNamespace(Vocabulary vocabulary, Dialect dialect);

/// The dialect that a namespace belongs to; nothing where it belongs to neither, or to both.
FILTERS_API boost::optional<Dialect> findDialectOfNamespace(boost::string_ref uri);

/// Makes the qualified names ("URI:local") of one document, as XMLElement takes them.
///
///     const Names names(mainPart.dialect);
///     workbook.processElements(names(Vocabulary::Spreadsheet, "sheets"), ...);
class FILTERS_API Names
{
public:
    explicit Names(Dialect dialect);

    std::string operator()(Vocabulary vocabulary, boost::string_ref localName) const;

    Dialect getDialect() const { return _dialect; }

private:
    Dialect _dialect;
};

} // namespace QV::Filters
