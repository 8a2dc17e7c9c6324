#include <Filters/Convert/MarkdownInline.h>

#include <cstddef>

#include <boost/algorithm/string/replace.hpp>
#include <fmt/format.h>

#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/Shape.h>
#include <FilterUtils/FU_Text.h>
#include <Filters/Convert/MarkdownText.h>
#include <Filters/Convert/NoteNumbers.h>
#include <Filters/Package/SafeLink.h>
#include <Filters/Package/SeenText.h>

namespace QV::Filters {
namespace {

constexpr const char* Blanks = " \n";

/// Puts a stretch between marks, its outer blanks outside, for marks beside a blank mean nothing.
std::string surround(const std::string& text, const std::string& before, const std::string& after)
{
    const std::size_t begin = text.find_first_not_of(Blanks);
    if (begin == std::string::npos || (before.empty() && after.empty()))
        return text;
    const std::size_t end = text.find_last_not_of(Blanks) + 1;
    return text.substr(0, begin) + before + text.substr(begin, end - begin) + after + text.substr(end);
}

} // namespace

MarkdownInline::Look MarkdownInline::makeLook(
    const DOM::Run& run, const DOM::RunProps& props, MarkdownPlace place) const
{
    Look look;
    look.isBold = place != MarkdownPlace::Heading && props.getBold().value_or(false);
    look.isItalic = props.getItalic().value_or(false);
    look.isStruck = props.getStrikethrough().value_or(false);
    const auto& link = run.getStyle().getHyperlink();
    if (link && isSafeLink(link->getURL()))
        look.link = FilterUtils::joinHyperlink(*link);
    return look;
}

std::string MarkdownInline::writePicture(const DOM::Frame& frame) const
{
    const auto* const picture = dynamic_cast<const DOM::Picture*>(frame.getGraphicalObject());
    if (!picture)
        return {};
    const std::string name = escapeMarkdown(frame.getName().empty() ? "picture" : frame.getName());
    if (_mediaFolder.empty())
        return "\\[" + name + "\\]";
    return fmt::format("![{}]({})", name,
        quoteMarkdownTarget(boost::replace_all_copy(_mediaFolder, "%", "%25") + "/" + picture->getMediaId()));
}

std::string MarkdownInline::writeRun(
    const DOM::Run& run, MarkdownPlace place, std::vector<const DOM::Frame*>& shapes) const
{
    if (dynamic_cast<const DOM::BreakRun*>(&run)) {
        if (place == MarkdownPlace::Heading)
            return " ";
        return place == MarkdownPlace::TableCell ? "<br>" : "\\\n";
    }
    if (const auto* const anchor = dynamic_cast<const DOM::AnchorRun*>(&run)) {
        const unsigned long number = _notes.getNumber(anchor->getTargetUUID());
        return number == 0 ? std::string() : fmt::format("[^{}]", number);
    }
    const auto* const drawing = dynamic_cast<const DOM::DrawingRun*>(&run);
    if (drawing && drawing->getFrame()) {
        if (dynamic_cast<const DOM::Shape*>(drawing->getFrame()->getGraphicalObject()))
            shapes.push_back(drawing->getFrame().get());
        return writePicture(*drawing->getFrame());
    }
    return escapeMarkdown(getRunText(run));
}

std::string MarkdownInline::write(const DOM::Paragraph& paragraph, const CellScope& scope,
    MarkdownPlace place, std::vector<const DOM::Frame*>& shapes)
{
    std::string result;
    std::string stretch;
    Look look;
    const auto endStretch = [&] {
        const std::string marks = std::string(look.isBold ? "**" : "") + (look.isItalic ? "*" : "");
        const std::string closing = std::string(look.isItalic ? "*" : "") + (look.isBold ? "**" : "");
        const std::string struck = look.isStruck ? "~~" : "";
        std::string text = surround(stretch, marks + struck, struck + closing);
        if (!look.link.empty())
            text = surround(text, "[", "](" + quoteMarkdownTarget(look.link) + ")");
        result += text;
        stretch.clear();
    };
    for (const DOM::Run& run : paragraph.getRuns()) {
        if (!isInFinalView(run))
            continue;
        const DOM::RunProps& props = _formats.getRunProps(paragraph, run.getStyle(), scope);
        if (props.getHidden().value_or(false))
            continue;
        const Look next = makeLook(run, props, place);
        const std::string text = writeRun(run, place, shapes);
        if (text.empty())
            continue;
        if (!(next == look))
            endStretch();
        look = next;
        stretch += text;
    }
    endStretch();
    return result;
}

} // namespace QV::Filters
