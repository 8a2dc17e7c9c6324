#pragma once

/// @file
/// The headers and footers of a text document while it is read, and how their parts are aligned.

#include <memory>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/ParaProps.h>
#include <FilterUtils/FU_Export.h>

namespace QV::DOM {
class Paragraph;
} // namespace QV::DOM

namespace QV::FilterUtils {

/// Makes and keeps the pairs of header and footer of a document, in the order in which they were made. It
/// owns them together with whoever made them. For one reader at a time.
class FILTERUTILS_API HeadersFootersFactory
{
public:
    using HeadersFooters = std::vector<std::shared_ptr<DOM::HeaderFooterPair>>;

    /// A new pair with nothing in it, which stands last from now on.
    std::shared_ptr<DOM::HeaderFooterPair> makeHeaderFooterPair();

    /// No null entries.
    const HeadersFooters& getHeadersFooters() const;
    HeadersFooters& getHeadersFooters();

private:
    HeadersFooters _headersFooters;
};

/// Where a tab stop stands that leads to the right edge of a header's or footer's text: points from the left
/// margin.
///
///     getJustifiedTabPosition(&pair, paraProps, false);    // 485: 595 wide, margins 60 and 50
///
/// The width of the page without its margins, or 467.5 where the page has no width; and without the left
/// indent of @p paraProps where @p subtractIndent is true. May be negative.
///
/// Throws InternalFilterError where @p pair is null: "No header/footer pair (even default) found for current
/// section."
FILTERUTILS_API float getJustifiedTabPosition(
    const DOM::HeaderFooterPair* pair, const DOM::ParaProps& paraProps, bool subtractIndent);

/// Which part of a header or footer a paragraph stands for: Center and Right as the paragraph itself sets
/// them; Left for all else. Its named styles do not count.
FILTERUTILS_API DOM::HeaderFooterAlignment convertParagraphAlignment(const DOM::Paragraph& paragraph);

/// The way back: how a paragraph stands that holds a part of a header or footer. Left where nothing is said.
FILTERUTILS_API DOM::HorizontalAlignment convertHeaderFooterAlignment(
    const boost::optional<DOM::HeaderFooterAlignment>& alignment);

} // namespace QV::FilterUtils
