#pragma once

/// @file
/// What a reader sees of a text, in the final view: without what tracked changes take away, and without
/// hidden text.

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <DOM/Public/Block.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/Export.h>

namespace QV::DOM {
class Paragraph;
class Run;
} // namespace QV::DOM

namespace QV::Filters {

/// The text that a run stands for by itself: characters, "\t" for a tab, "\n" for a break of any kind, what a
/// field shows; empty for all others.
FILTERS_API std::string getRunText(const DOM::Run& run);

/// Whether the final view shows the run at all, hidden or not.
FILTERS_API bool isInFinalView(const DOM::Run& run);

/// The text of the runs that are in the final view and not hidden.
FILTERS_API std::string getSeenText(
    const DOM::Paragraph& paragraph, EffectiveFormats& formats, const CellScope& scope = {});

/// Whether the final view has the paragraph: not one whose mark a change takes away and that shows nothing.
FILTERS_API bool isInFinalView(const DOM::Paragraph& paragraph);

/// Whether all that the final view shows of the paragraph is hidden, the mark at its end included: it is not
/// there for a reader then, and its list does not count it.
FILTERS_API bool isHidden(
    const DOM::Paragraph& paragraph, EffectiveFormats& formats, const CellScope& scope = {});

/// The seen text of blocks, those in tables and tables of contents included, joined by "\n" where it is not
/// empty; cut after @p bytesMax bytes at a character's end.
FILTERS_API std::string getSeenText(
    const std::vector<std::unique_ptr<DOM::Block>>& blocks, EffectiveFormats& formats, std::size_t bytesMax);

} // namespace QV::Filters
