#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Export.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// How the entries of one level of a table of contents are shown.
class TableOfContentsLevelDecorationInfo
{
public:
    /// Whether the number of the page stands behind an entry.
    bool hasPageNumber() const { return _hasPageNumber; }
    void setPageNumber(bool hasPageNumber) { _hasPageNumber = hasPageNumber; }

    /// Whether an entry leads to its heading.
    bool isLink() const { return _isLink; }
    void setLink(bool isLink) { _isLink = isLink; }

private:
    bool _hasPageNumber = true;
    bool _isLink = false;
};

/// Which paragraphs a table of contents lists, and how.
class TableOfContentsInfo
{
public:
    /// Paragraphs of a style, and the level that they stand on.
    class StyleLevelInfo
    {
    public:
        StyleLevelInfo(const UUID& styleUUID, unsigned long level)
            : _styleUUID(styleUUID)
            , _level(level)
        {
        }

        const UUID& getStyleUUID() const { return _styleUUID; }
        unsigned long getLevel() const { return _level; }

    private:
        UUID _styleUUID;
        unsigned long _level;
    };

    using LevelsStyleInfo = std::map<unsigned long, TableOfContentsLevelDecorationInfo>;

    /// In the order of their registration.
    const std::vector<StyleLevelInfo>& getHeadingStylesLevels() const { return _headingStylesLevels; }
    std::vector<StyleLevelInfo>& getHeadingStylesLevels() { return _headingStylesLevels; }

    /// The levels that are shown, 1 for the outermost.
    const LevelsStyleInfo& getLevelsStyleInfo() const { return _levelsStyleInfo; }
    LevelsStyleInfo& getLevelsStyleInfo() { return _levelsStyleInfo; }

    /// Whether paragraphs are listed by their own outline levels too.
    bool usesOutlineLevels() const { return _usesOutlineLevels; }
    void setUsesOutlineLevels(bool uses) { _usesOutlineLevels = uses; }

private:
    std::vector<StyleLevelInfo> _headingStylesLevels;
    LevelsStyleInfo _levelsStyleInfo;
    bool _usesOutlineLevels = false;
};

/// A table of contents in the flow of a document: what it lists, and its entries as they last were.
class DOM_API TableOfContents final : public Block
{
public:
    TableOfContents() = default;
    ~TableOfContents() override;

    const TableOfContentsInfo& getInfo() const { return _info; }
    TableOfContentsInfo& getInfo() { return _info; }

    /// The field's instruction as the file has it.
    const std::string& getInstruction() const { return _instruction; }
    void setInstruction(std::string instruction) { _instruction = std::move(instruction); }

    /// No null entries.
    const std::vector<std::unique_ptr<Block>>& getBlocks() const { return _blocks; }
    /// @param block not null
    void appendBlock(std::unique_ptr<Block> block) { _blocks.push_back(std::move(block)); }

private:
    TableOfContentsInfo _info;
    std::string _instruction;
    std::vector<std::unique_ptr<Block>> _blocks;
};

} // namespace QV::DOM
