#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/CellText.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/PageProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Text/FormatValues.h>

namespace QV::Filters {

class Relationships;
class TextFormats;
struct TextContext;

/// Gathers the sections of a document's body as they end, and gives them to the document with their pages,
/// headers and footers.
///
///     TextSections sections(context, formats, relationships, false);
///     sections.noteBlock();             // for each block of the body
///     sections.noteSection(properties); // behind the last block of a section
///     sections.finish();
///
/// Blocks behind the last section's end make one of their own, of which nothing is known; and so does a
/// document without sections. Reported, besides what FormatValues says:
///     - "Sections beyond {} are left out": their blocks belong to the last one
///     - "Header or footer {} is not there": with the id of its relationship; the section then has that of
///     the one
///       before it
class FILTERS_API TextSections
{
public:
    static constexpr std::size_t SectionsMax = 10000;

    /// @param relationships of the main part
    /// @param hasEvenPages whether even pages have headers and footers of their own
    TextSections(
        TextContext& context, TextFormats& formats, const Relationships& relationships, bool hasEvenPages);

    void noteBlock() { ++_blocksCount; }

    /// @param text of a "sectPr" element, as PropertyText writes it
    void noteSection(const std::string& text);

    /// Reads headers and footers, each part once, and appends the sections to the document. Throws
    /// PackageError as readStory does.
    void finish();

private:
    enum PageKind : std::size_t
    {
        DefaultPages,
        FirstPages,
        EvenPages,
        PageKindsCount
    };

    /// The parts that headers and footers stand in; empty where there are none.
    struct PartsOfPages
    {
        std::string header;
        std::string footer;
    };

    void appendSection(const std::string& text, std::size_t firstBlock);
    std::shared_ptr<DOM::PageProps> makePageProps(const FilterUtils::XMLElement& props) const;
    void noteLeftOut(const FilterUtils::XMLElement& props);
    void readReferences(const FilterUtils::XMLElement& props, const char* family, const char* element,
        std::string PartsOfPages::*part);
    std::shared_ptr<DOM::HeaderFooterPair> makePair(
        PageKind kind, const std::shared_ptr<DOM::PageProps>& pages);
    DOM::SharedCellText readPart(const std::string& part, const DOM::HeaderFooterPair& pair);

    TextContext& _context;
    TextFormats& _formats;
    const Relationships& _relationships;
    const bool _hasEvenPages;
    const Names _names; // those in which PropertyText writes
    const FormatValues _values;

    std::size_t _blocksCount = 0;
    std::size_t _begin = 0;   // the first block of the section that has not ended
    bool _hasTooMany = false; // which was told
    std::vector<std::pair<std::string, std::size_t>> _sections; // their properties and first blocks
    std::array<PartsOfPages, PageKindsCount> _parts;            // of the last section
    std::map<std::string, DOM::SharedCellText> _stories;        // by part
};

} // namespace QV::Filters
