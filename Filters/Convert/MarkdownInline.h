#pragma once

#include <string>
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

    /// @param shapes receives the frames that show shapes, whose text stands apart
    std::string write(const DOM::Paragraph& paragraph, const CellScope& scope, MarkdownPlace place,
        std::vector<const DOM::Frame*>& shapes);

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
    std::string writeRun(
        const DOM::Run& run, MarkdownPlace place, std::vector<const DOM::Frame*>& shapes) const;
    std::string writePicture(const DOM::Frame& frame) const;

    EffectiveFormats& _formats;
    const NoteNumbers& _notes;
    std::string _mediaFolder;
};

} // namespace QV::Filters
