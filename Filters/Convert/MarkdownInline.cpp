#include <Filters/Convert/MarkdownInline.h>

#include <algorithm>
#include <cstddef>
#include <utility>

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
constexpr std::size_t LinkBytesMax = 8192;

/// Puts a stretch between marks, its outer blanks outside, for marks beside a blank mean nothing.
std::string surround(const std::string& text, const std::string& before, const std::string& after)
{
    const std::size_t begin = text.find_first_not_of(Blanks);
    if (begin == std::string::npos || (before.empty() && after.empty()))
        return text;
    const std::size_t end = text.find_last_not_of(Blanks) + 1;
    return text.substr(0, begin) + before + text.substr(begin, end - begin) + after + text.substr(end);
}

/// An exclamation mark before a link would make a picture of it, which readers load unasked.
void appendMarkdown(std::string& text, const std::string& piece)
{
    if (!text.empty() && text.back() == '!' && !piece.empty() && piece.front() == '[')
        text.insert(text.size() - 1, 1, '\\');
    text += piece;
}

/// Makes the lines of a paragraph what its place can hold.
std::string joinMarkdownLines(std::string text, MarkdownPlace place)
{
    text.erase(text.find_last_not_of(Blanks) + 1);
    if (place == MarkdownPlace::Heading)
        return boost::replace_all_copy(text, "\n", " ");
    if (place == MarkdownPlace::TableCell)
        return boost::replace_all_copy(text, "\n", "<br>");
    std::string lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        lines += (begin == 0 ? "" : "\\\n") + escapeMarkdownLine(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

/// The path of a picture in a link, where these characters would end it or stand for others.
std::string makeMarkdownPath(const std::string& folder, const std::string& file)
{
    std::string path;
    for (const char c : folder)
        if (c == '%' || c == '#' || c == '?')
            path += fmt::format("%{:02X}", static_cast<unsigned char>(c));
        else
            path += c;
    return path + "/" + file;
}

} // namespace

std::string MarkdownLinks::write(const std::string& target)
{
    constexpr std::size_t InlineBytesMax = 200;
    if (target.size() <= InlineBytesMax)
        return "(" + quoteMarkdownTarget(target) + ")";
    const auto [known, isNew] = _numbers.try_emplace(target, _numbers.size() + 1);
    if (isNew)
        _definitions += fmt::format("\n[link{}]: {}\n", known->second, quoteMarkdownTarget(target));
    return fmt::format("[link{}]", known->second);
}

MarkdownInline::Look MarkdownInline::makeLook(
    const DOM::Run& run, const DOM::RunProps& props, MarkdownPlace place) const
{
    Look look;
    look.isBold = place != MarkdownPlace::Heading && props.getBold().value_or(false);
    look.isItalic = props.getItalic().value_or(false);
    look.isStruck = props.getStrikethrough().value_or(false);
    const auto& link = run.getStyle().getHyperlink();
    std::string target =
        link && isSafeLink(link->getURL()) ? FilterUtils::joinHyperlink(*link) : std::string();
    if (target.size() <= LinkBytesMax) // each run may write it anew
        look.link = std::move(target);
    return look;
}

std::string MarkdownInline::writePicture(const DOM::Frame& frame, const std::string& description) const
{
    const auto* const picture = dynamic_cast<const DOM::Picture*>(frame.getGraphicalObject());
    if (!picture)
        return {};
    const std::string name = escapeMarkdown(frame.getName().empty() ? "picture" : frame.getName());
    if (_mediaFolder.empty())
        return "\\[" + name + "\\]";
    return fmt::format("![{}]({})", description.empty() ? name : escapeMarkdown(description),
        quoteMarkdownTarget(makeMarkdownPath(_mediaFolder, picture->getMediaId())));
}

std::string MarkdownInline::writeRun(const DOM::Run& run, std::vector<const DOM::Frame*>& shapes) const
{
    if (dynamic_cast<const DOM::BreakRun*>(&run))
        return "\n";
    if (const auto* const anchor = dynamic_cast<const DOM::AnchorRun*>(&run)) {
        const unsigned long number = _notes.getNumber(anchor->getTargetUUID());
        return number == 0 ? std::string() : fmt::format("[^{}]", number);
    }
    const auto* const drawing = dynamic_cast<const DOM::DrawingRun*>(&run);
    if (drawing && drawing->getFrame()) {
        if (dynamic_cast<const DOM::Shape*>(drawing->getFrame()->getGraphicalObject()))
            shapes.push_back(drawing->getFrame().get());
        return writePicture(*drawing->getFrame(), {});
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
        std::string marked = surround(stretch, marks + struck, struck + closing);
        if (!look.link.empty())
            marked = surround(marked, "[", "]" + _links.write(look.link));
        appendMarkdown(result, marked);
        stretch.clear();
    };
    for (const DOM::Run& run : paragraph.getRuns()) {
        if (!isInFinalView(run))
            continue;
        const DOM::RunProps& props = _formats.getRunProps(paragraph, run.getStyle(), scope);
        if (props.getHidden().value_or(false))
            continue;
        const Look next = makeLook(run, props, place);
        const std::string text = writeRun(run, shapes);
        if (text.empty())
            continue;
        if (!(next == look))
            endStretch();
        look = next;
        appendMarkdown(stretch, text);
    }
    endStretch();
    return joinMarkdownLines(std::move(result), place);
}

} // namespace QV::Filters
