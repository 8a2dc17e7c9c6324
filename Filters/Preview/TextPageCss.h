#pragma once

/// @file
/// The looks of a text as declarations of CSS. Numbers that are no numbers are left out, and those that are
/// far out of proportion are brought back to what a page can hold.

#include <string>

#include <DOM/Public/BordersProps.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/PageProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// A length such as "12.5pt", to a hundredth of a point and at most 10,000 points either way. "0pt" for what
/// is no number.
FILTERS_API std::string makePointsCss(float points);

/// How a paragraph stands to one of its neighbours.
struct ParagraphJoin
{
    bool sharesBorders = false; ///< one box stands around both
    bool hasNoSpace = false;    ///< both are of one style, which wants no space in between
};

/// Alignment, indents, spaces, the distance of lines, borders and shading of a paragraph.
FILTERS_API std::string makeParagraphCss(
    const DOM::ParaProps& props, const ParagraphJoin& toPrevious, const ParagraphJoin& toNext);

/// What runs of a paragraph have from it, and may change: font, size, colour and letter case.
FILTERS_API std::string makeInheritedCss(const DOM::RunProps& props);

/// What sets a run apart from what it has from its paragraph: the differences in what is inherited, and the
/// lines and the colour behind it.
/// @param inherited what was given to makeInheritedCss
FILTERS_API std::string makeRunCss(const DOM::RunProps& props, const DOM::RunProps& inherited);

/// The lines of the four sides; none for null.
FILTERS_API std::string makeBordersCss(const DOM::BordersProps* borders);

/// Filling and vertical place of text in a cell.
FILTERS_API std::string makeTextCellCss(const DOM::CellProps& props);

/// An image of the lines across a cell; empty for none.
FILTERS_API std::string makeDiagonalLines(const DOM::CellProps& props);

/// A page of paper. What is not said, or cannot be, is that of a letter page with margins of an inch.
struct PaperSize
{
    float width = 612;
    float height = 792;
    float left = 72;
    float top = 72;
    float right = 72;
    float bottom = 72;
    float header = 36; ///< from the top edge to the header
    float footer = 36; ///< from the bottom edge to the footer

    float getTextWidth() const { return width - left - right; }
};

/// @param props may be null
FILTERS_API PaperSize makePaperSize(const DOM::PageProps* props);

} // namespace QV::Filters
