#pragma once

#include <DOM/Public/Block.h>
#include <Filters/Package/Export.h>

namespace QV::DOM {
class HeaderFooterPair;
class Paragraph;
class ParagraphStyle;
} // namespace QV::DOM

namespace QV::Filters {

struct TextContext;

/// Gives the paragraphs of a header or a footer the tab stops that its three parts stand at, where the file
/// means them and has none: a paragraph with two tabs has one part at the left, one in the middle and one at
/// the right of its pages.
class FILTERS_API HeaderTabs
{
public:
    /// @param pair with the properties of its pages
    HeaderTabs(TextContext& context, const DOM::HeaderFooterPair& pair)
        : _context(context)
        , _pair(pair)
    {
    }

    /// Does nothing for a paragraph that has tab stops, by itself or by its styles, and for other blocks.
    void align(DOM::Block& block);

private:
    bool hasTabStops(const DOM::ParagraphStyle& style);
    DOM::ParagraphStyle makeAligned(const DOM::ParagraphStyle& style) const;

    TextContext& _context;
    const DOM::HeaderFooterPair& _pair;
};

} // namespace QV::Filters
