#pragma once

/// @file
/// Text documents of the model for tests, paragraph by paragraph.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>

namespace QV::Tests {

/// A run's style with these properties.
inline DOM::SharedRunStyle makeRunStyle(const DOM::RunProps& props)
{
    auto* const style = new DOM::RunStyle;
    style->setRunProps(std::make_shared<const DOM::RunProps>(props));
    return DOM::SharedRunStyle(style);
}

inline DOM::SharedRunStyle makeChangedStyle(DOM::TrackedChange::Kind kind)
{
    auto* const style = new DOM::RunStyle;
    style->setChange(std::make_shared<const DOM::TrackedChange>(kind, "A. Nonymous", "2024-05-01T10:00:00Z"));
    return DOM::SharedRunStyle(style);
}

inline DOM::SharedRunStyle makeLinkStyle(const std::string& url, const std::string& anchor = {})
{
    auto* const style = new DOM::RunStyle;
    style->setHyperlink(std::make_shared<const DOM::Hyperlink>(url, anchor));
    return DOM::SharedRunStyle(style);
}

inline std::unique_ptr<DOM::Paragraph> makeParagraph(
    const std::string& text = {}, const DOM::SharedRunStyle& style = nullptr)
{
    auto paragraph = std::make_unique<DOM::Paragraph>();
    paragraph->appendText(text, style);
    return paragraph;
}

inline DOM::SharedCellText makeText(std::unique_ptr<DOM::Block> block)
{
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    blocks.push_back(std::move(block));
    return DOM::SharedCellText(new DOM::CellText(std::move(blocks)));
}

/// Makes the paragraph a heading by its own outline level.
inline void setOutlineLevel(DOM::Paragraph& paragraph, unsigned long level)
{
    DOM::ParaProps props;
    props.setOutlineLevel(level);
    DOM::ParagraphStyle style;
    style.setParaProps(std::make_shared<const DOM::ParaProps>(props));
    paragraph.setStyle(style);
}

/// Appends a level whose items are marked in this way.
inline void appendLevel(
    DOM::NumberedList& list, DOM::NumListMarkerType type, const std::string& text, long start = 1)
{
    auto marker = std::make_shared<DOM::NumListMarker>();
    marker->setType(type);
    marker->setText(text);
    auto level = std::make_unique<DOM::NumberingLevel>();
    level->setListMarker(std::move(marker));
    level->setStart(start);
    list.appendLevel(std::move(level));
}

/// Makes the paragraph an item of the list.
inline void setItem(DOM::Paragraph& paragraph, const DOM::NumberedList& list, unsigned long level)
{
    auto reference = std::make_unique<DOM::NumberingRef>();
    reference->setNumListUUID(list.getUUID());
    reference->setListTagUUID(list.getUUID());
    reference->setLevel(level);
    paragraph.setNumRef(std::move(reference));
}

} // namespace QV::Tests
