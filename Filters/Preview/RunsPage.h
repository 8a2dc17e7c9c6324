#pragma once

#include <string>

#include <DOM/Public/Paragraph.h>
#include <DOM/Public/RunProps.h>
#include <Filters/Preview/TextTabs.h>

namespace QV::Filters {

struct TextPageContext;
struct TextPlace;

/// The runs of a paragraph, and what their looks are compared with.
struct RunsStory
{
    const DOM::Paragraph& paragraph;
    const DOM::RunProps& inherited; ///< by the paragraph's element
    const TabsPlan& tabs;           ///< whose parts the paragraph's element has
};

/// Appends the runs of a paragraph that the final view has and that are not hidden. Text beyond the limit is
/// cut, which "…" shows. A tab that parts the line ends the element of a part, and begins the next.
/// @param boxes receives the elements of shapes, which cannot stand in a paragraph's one; their bytes count
/// as
///     standing elsewhere
void writeRuns(const RunsStory& story, const TextPlace& place, TextPageContext& context, std::string& page,
    std::string& boxes);

} // namespace QV::Filters
