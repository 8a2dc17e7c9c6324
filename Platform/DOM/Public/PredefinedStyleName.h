#pragma once

#include <cstdint>

namespace QV::DOM {

/// The named text styles that applications know without a document's telling.
enum class PredefinedStyleName : std::uint8_t
{
    Normal,
    Title,
    Subtitle,
    Heading1,
    Heading2,
    Heading3,
    Heading4,
    Heading5,
    Heading6,
    Heading7,
    Heading8,
    Heading9,
    ListParagraph,
    Quote,
    Caption,
    Header,
    Footer,
    Hyperlink,
    FootnoteText,
    FootnoteReference,
    EndnoteText,
    EndnoteReference,
    TableOfContents1,
    TableOfContents2,
    TableOfContents3,
    TableOfContents4,
    TableOfContents5,
    TableOfContents6,
    TableOfContents7,
    TableOfContents8,
    TableOfContents9,
    TableOfContentsHeading,
    BodyText,
    List,
    Strong,
    Emphasis,
};

} // namespace QV::DOM
