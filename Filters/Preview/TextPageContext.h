#pragma once

#include <cstddef>
#include <string>
#include <unordered_set>

#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Preview/StyleSheet.h>
#include <Filters/Preview/TextPreview.h>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

class ListLabels;
class PictureUris;
class TextBookmarks;
class TextNotes;

/// What a page has taken of its limits, and what it does not show.
struct TextPageCounts
{
    std::size_t blocks = 0;
    std::size_t cells = 0;
    std::size_t frames = 0;
    std::size_t pictureBytes = 0;             ///< of all pictures that stand in the page
    std::size_t repeatedBytes = 0;            ///< of those that stood there before
    std::unordered_set<std::string> pictures; ///< the ids of those that stand there
    std::size_t elsewhereBytes = 0;           ///< of the page, but not yet in the text that is being written

    std::size_t leftBlocks = 0;
    std::size_t leftRows = 0;
    std::size_t leftFrames = 0;
    std::size_t cutParagraphs = 0;
    std::size_t deletedPieces = 0; ///< runs that tracked changes take away
};

/// What the parts of a page of text share.
struct TextPageContext
{
    const DOM::Document& document;
    const TextPreviewLimits& limits;
    StyleSheet& styles;
    EffectiveFormats& formats;
    PictureUris& pictures;
    TextBookmarks& bookmarks;
    TextNotes& notes;
    TextPageCounts counts;

    /// Whether the page, of which @p text is what is being written, has no room left.
    bool isFull(const std::string& text) const
    {
        return text.size() + counts.elsewhereBytes + styles.getRulesBytes() >=
               limits.textBytes + counts.pictureBytes;
    }

    /// Takes one more block; where there is no room for it, counts it as left out and returns false.
    bool takeBlock(const std::string& text)
    {
        if (counts.blocks == limits.blocks || isFull(text)) {
            ++counts.leftBlocks;
            return false;
        }
        ++counts.blocks;
        return true;
    }
};

/// While it lives, so many bytes of the page stand elsewhere than in the text that is being written.
class BytesElsewhere
{
public:
    BytesElsewhere(TextPageContext& context, std::size_t bytes)
        : _context(context)
        , _bytes(bytes)
    {
        _context.counts.elsewhereBytes += _bytes;
    }
    ~BytesElsewhere() { _context.counts.elsewhereBytes -= _bytes; }

    BytesElsewhere(const BytesElsewhere&) = delete;
    BytesElsewhere& operator=(const BytesElsewhere&) = delete;

private:
    TextPageContext& _context;
    std::size_t _bytes;
};

/// Where blocks stand.
struct TextPlace
{
    ListLabels& labels; ///< of the story
    float width;        ///< of the column, in points
    CellScope scope = {};
    unsigned depth = 0;     ///< of tables, text boxes and tables of contents
    bool isOnSlide = false; ///< where lines are as high as their own runs, and not as their paragraph's mark
    float lineSpacingReduction = 0; ///< of shrunk text on a slide: taken from multiple line spacings

    /// A place of that width inside of this one.
    TextPlace makeInner(float innerWidth) const
    {
        TextPlace inner = *this;
        inner.width = innerWidth;
        ++inner.depth;
        return inner;
    }
};

} // namespace QV::Filters
