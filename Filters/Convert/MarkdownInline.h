#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <Filters/Package/EffectiveFormats.h>

namespace QV::DOM {
class Frame;
class Paragraph;
class Run;
} // namespace QV::DOM

namespace QV::Filters {

class NoteNumbers;

/// Where the text of a paragraph stands: what Markdown can say differs.
enum class MarkdownPlace
{
    Paragraph,
    Heading,   ///< one line, bold as a whole
    TableCell, ///< one line, breaks as "<br>"
};

/// The targets of links. A long one stands once, at the end of the text, since any count of pieces of text
/// may lead to it.
class MarkdownLinks
{
public:
    /// What stands behind the text of a link in brackets.
    std::string write(const std::string& target);

    /// The long targets, each in a paragraph of its own; empty for none.
    const std::string& getDefinitions() const { return _definitions; }

private:
    std::unordered_map<std::string, std::size_t> _numbers; // of long targets
    std::string _definitions;
};

/// Writes the runs of paragraphs as Markdown: emphasis, links, pictures and notes. Runs that look alike are
/// one stretch.
class MarkdownInline
{
public:
    MarkdownInline(EffectiveFormats& formats, const NoteNumbers& notes, std::string mediaFolder)
        : _formats(formats)
        , _notes(notes)
        , _mediaFolder(std::move(mediaFolder))
    {
    }

    /// What a paragraph shows, without blanks and breaks at its end; of MarkdownPlace::Paragraph, each line
    /// has been through escapeMarkdownLine.
    /// @param shapes receives the frames that show shapes, whose text stands apart
    std::string write(const DOM::Paragraph& paragraph, const CellScope& scope, MarkdownPlace place,
        std::vector<const DOM::Frame*>& shapes);

    /// The picture that a frame shows; empty where it shows none. Where there is no media folder, the frame's
    /// name in brackets.
    /// @param description stands in for the picture; the frame's name does where it is empty
    std::string writePicture(const DOM::Frame& frame, const std::string& description) const;

    /// What belongs at the end of the text.
    const std::string& getLinkDefinitions() const { return _links.getDefinitions(); }

private:
    struct Look
    {
        bool isBold = false;
        bool isItalic = false;
        bool isStruck = false;
        std::string link; ///< empty for none

        bool operator==(const Look& other) const
        {
            return isBold == other.isBold && isItalic == other.isItalic && isStruck == other.isStruck &&
                   link == other.link;
        }
    };

    Look makeLook(const DOM::Run& run, const DOM::RunProps& props, MarkdownPlace place) const;
    std::string writeRun(const DOM::Run& run, std::vector<const DOM::Frame*>& shapes) const;

    EffectiveFormats& _formats;
    const NoteNumbers& _notes;
    MarkdownLinks _links;
    std::string _mediaFolder;
};

} // namespace QV::Filters
