#include <FilterUtils/FU_HeadersFootersFactory.h>

#include <DOM/Public/PageProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <FilterUtils/FU_Errors.h>

namespace QV::FilterUtils {
namespace {

// Where the text of a page ends whose width nobody told, in points.
constexpr float PositionWithoutWidth = 467.5F;

float getTextWidth(const DOM::PageProps* page)
{
    if (!page || !page->getWidth())
        return PositionWithoutWidth;
    float width = *page->getWidth();
    if (const DOM::Insets* const margins = page->getMargins().get()) {
        width -= margins->getLeft().value_or(0.0F);
        width -= margins->getRight().value_or(0.0F);
    }
    return width;
}

} // namespace

std::shared_ptr<DOM::HeaderFooterPair> HeadersFootersFactory::makeHeaderFooterPair()
{
    _headersFooters.push_back(std::make_shared<DOM::HeaderFooterPair>());
    return _headersFooters.back();
}

const HeadersFootersFactory::HeadersFooters& HeadersFootersFactory::getHeadersFooters() const
{
    return _headersFooters;
}

HeadersFootersFactory::HeadersFooters& HeadersFootersFactory::getHeadersFooters()
{
    return _headersFooters;
}

float getJustifiedTabPosition(
    const DOM::HeaderFooterPair* pair, const DOM::ParaProps& paraProps, bool subtractIndent)
{
    if (!pair)
        throw InternalFilterError("No header/footer pair (even default) found for current section.");
    const float width = getTextWidth(pair->getPageProps().get());
    return subtractIndent && paraProps.getLeftIndent() ? width - *paraProps.getLeftIndent() : width;
}

DOM::HeaderFooterAlignment convertParagraphAlignment(const DOM::Paragraph& paragraph)
{
    const DOM::ParaProps* const props = paragraph.getStyle().getParaProps().get();
    if (!props || !props->getAlignment())
        return DOM::HeaderFooterAlignment::Left;
    switch (*props->getAlignment()) {
    case DOM::HorizontalAlignment::Center:
        return DOM::HeaderFooterAlignment::Center;
    case DOM::HorizontalAlignment::Right:
        return DOM::HeaderFooterAlignment::Right;
    default:
        return DOM::HeaderFooterAlignment::Left;
    }
}

DOM::HorizontalAlignment convertHeaderFooterAlignment(
    const boost::optional<DOM::HeaderFooterAlignment>& alignment)
{
    if (alignment == DOM::HeaderFooterAlignment::Center)
        return DOM::HorizontalAlignment::Center;
    if (alignment == DOM::HeaderFooterAlignment::Right)
        return DOM::HorizontalAlignment::Right;
    return DOM::HorizontalAlignment::Left;
}

} // namespace QV::FilterUtils
