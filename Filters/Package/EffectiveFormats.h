#pragma once

#include <memory>

#include <DOM/Public/CellStyle.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/TableStyle.h>
#include <Filters/Package/Export.h>

namespace QV::DOM {
class Document;
class NamedTextStyle;
class NumberedList;
class NumberingLevel;
class Paragraph;
} // namespace QV::DOM

namespace QV::Filters {

/// The cell that a paragraph stands in; both null outside of tables.
struct CellScope
{
    const DOM::TableStyle* tableStyle = nullptr;
    const DOM::CellStyle* cellStyle = nullptr;
};

/// How the paragraphs and runs of a text document look in the final view, every layer considered: document
/// defaults, the table's style, what it says of the cell, the paragraph's style, the numbering's level (for
/// indents), the character style, and what is set directly (ECMA-376 Part 1, 17.7.2). Bold, italics,
/// capitals, small capitals, strikethrough and hidden text are toggles: each of table style, paragraph style
/// and character style that sets one turns it over, and what is set directly stands (17.7.3).
///
/// Answers are kept for each style that paragraphs and runs share, so a document of any size asks the chains
/// of its styles once each.
class FILTERS_API EffectiveFormats
{
public:
    /// @param document outlives this object, and does not change
    explicit EffectiveFormats(const DOM::Document& document);
    ~EffectiveFormats();

    EffectiveFormats(const EffectiveFormats&) = delete;
    EffectiveFormats& operator=(const EffectiveFormats&) = delete;

    /// The named style of the paragraph: the default one where it names none that is there; null where there
    /// is no default one either.
    const DOM::NamedTextStyle* findNamedStyle(const DOM::Paragraph& paragraph) const;

    /// Of the paragraph, its list's level included. Valid until the next call.
    const DOM::ParaProps& getParaProps(const DOM::Paragraph& paragraph, const CellScope& scope = {});

    /// Of a run of the paragraph. Valid until the next call.
    const DOM::RunProps& getRunProps(
        const DOM::Paragraph& paragraph, const DOM::RunStyle& style, const CellScope& scope = {});

    /// Of the label before the paragraph: the paragraph's mark, with what its list's level sets over it.
    DOM::RunProps getLabelProps(const DOM::Paragraph& paragraph, const CellScope& scope = {});

    /// Null where the paragraph has no numbering, or it is taken away.
    std::unique_ptr<DOM::NumberingRef> getNumRef(const DOM::Paragraph& paragraph) const;

    /// The list of a reference; null where it names none that is there.
    const DOM::NumberedList* findList(const DOM::NumberingRef& reference) const;
    /// The level of a reference in its list; null for none.
    const DOM::NumberingLevel* findLevel(const DOM::NumberingRef& reference) const;

private:
    class Caches;

    const DOM::Document& _document;
    std::unique_ptr<Caches> _caches;
};

} // namespace QV::Filters
