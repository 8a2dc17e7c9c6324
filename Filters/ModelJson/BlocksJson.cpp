#include <Filters/ModelJson/BlocksJson.h>

#include <cstddef>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Cell.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>
#include <FilterUtils/FU_NumberedListsFactory.h>
#include <Filters/ModelJson/ChangeJson.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/RunsJson.h>
#include <Filters/ModelJson/StylesJson.h>
#include <Filters/ModelJson/TextJsonState.h>
#include <Filters/Package/CoveredCells.h>
#include <Filters/Package/EffectiveFormats.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Package/SeenText.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::Filters {
namespace {

// In the order of the enumerators; nothing for an alignment that says nothing in a text document.
const char* const AlignmentNames[] = {
    nullptr, "left", "center", "right", "justify", "distributed", nullptr, nullptr};

constexpr unsigned long BodyOutlineLevel = 9;

/// Writes the blocks of one story.
class BlocksWriter
{
public:
    BlocksWriter(ListLabels& labels, TextJsonState& state)
        : _labels(labels)
        , _state(state)
        , _json(state.getJson())
    {
    }

    // Tables lie in one another as deep as the importer lets them.
    void writeBlock(const DOM::Block& block, const CellScope& scope);
    void writeBlocks(const std::vector<std::unique_ptr<DOM::Block>>& blocks, const CellScope& scope);

private:
    void writeParagraph(const DOM::Paragraph& paragraph, const CellScope& scope);
    void writeNumbering(const DOM::Paragraph& paragraph, const CellScope& scope);
    void writeBookmarks(const DOM::Paragraph& paragraph);
    void writeTable(const DOM::Table& table);
    void writeTableRows(const DOM::Table& table);
    void writeTableCell(const DOM::Table& table, const DOM::Cell& cell);
    void writeContents(const DOM::TableOfContents& contents, const CellScope& scope);

    ListLabels& _labels;
    TextJsonState& _state;
    JsonWriter& _json;
};

void BlocksWriter::writeBlocks(const std::vector<std::unique_ptr<DOM::Block>>& blocks, const CellScope& scope)
{
    _json.beginArray();
    for (const std::unique_ptr<DOM::Block>& block : blocks)
        writeBlock(*block, scope);
    _json.endArray();
}

void BlocksWriter::writeBlock(const DOM::Block& block, const CellScope& scope)
{
    _json.beginObject();
    if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(&block))
        writeParagraph(*paragraph, scope);
    else if (const auto* const table = dynamic_cast<const DOM::Table*>(&block))
        writeTable(*table);
    else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(&block))
        writeContents(*contents, scope);
    else
        _json.writeMember("kind", "other");
    _json.endObject();
}

void BlocksWriter::writeParagraph(const DOM::Paragraph& paragraph, const CellScope& scope)
{
    EffectiveFormats& formats = _state.getFormats();
    _json.writeMember("kind", "paragraph");
    if (const DOM::NamedTextStyle* const style = formats.findNamedStyle(paragraph))
        writeShortMember("style", DOM::getStyleNameText(*style), _json);
    const DOM::ParaProps& props = formats.getParaProps(paragraph, scope);
    const boost::optional<unsigned long> outlineLevel = props.getOutlineLevel();
    writeAlignmentMember(props, _json);
    _json.writeMember("text", getSeenText(paragraph, formats, scope));
    writeNumbering(paragraph, scope);
    writeBookmarks(paragraph);
    if (outlineLevel && *outlineLevel < BodyOutlineLevel)
        _json.writeMember("outlineLevel", *outlineLevel);
    _json.writeKey("runs");
    writeRunsJson(paragraph, scope, _state);
    if (const auto& change = paragraph.getParaMarkStyle().getChange())
        writeChangeJson("markChange", *change, _json);
}

const char* findListType(const DOM::NumberedList& list)
{
    if (list.getLevels().empty() || !list.getLevels().back()->getListMarker())
        return nullptr;
    const auto type = FilterUtils::getNumberedListNameType(list.getLevels());
    if (!type)
        return nullptr;
    return *type == DOM::NumListNameType::Bulleted ? "bulleted" : "numbered";
}

void BlocksWriter::writeNumbering(const DOM::Paragraph& paragraph, const CellScope& scope)
{
    const std::unique_ptr<DOM::NumberingRef> reference = _state.getFormats().getNumRef(paragraph);
    const DOM::NumberedList* const list = reference ? _state.getFormats().findList(*reference) : nullptr;
    if (!list)
        return;
    _json.writeKey("numbering");
    _json.beginObject();
    _json.writeMember("list", _state.getListId(*list));
    _json.writeMember("level", reference->getLevel().value_or(0));
    // What is not there is not counted.
    if (isInFinalView(paragraph) && !isHidden(paragraph, _state.getFormats(), scope))
        _json.writeMember("text", _labels.next(*reference));
    if (const char* const type = findListType(*list))
        _json.writeMember("listType", type);
    _json.endObject();
}

/// Gathers the names of the bookmarks that begin in a paragraph.
class BookmarkNames final : public DOM::RunVisitor
{
public:
    void visit(const DOM::TextRun&) override {}
    void visit(const DOM::TabRun&) override {}
    void visit(const DOM::BreakRun&) override {}
    void visit(const DOM::DrawingRun&) override {}
    void visit(const DOM::BookmarkRun& run) override
    {
        if (run.getKind() == DOM::BookmarkRun::Kind::Start)
            names.push_back(&run.getName());
    }
    void visit(const DOM::FieldRun&) override {}
    void visit(const DOM::AnchorRun&) override {}

    std::vector<const std::string*> names;
};

void BlocksWriter::writeBookmarks(const DOM::Paragraph& paragraph)
{
    BookmarkNames bookmarks;
    for (const DOM::Run& run : paragraph.getRuns())
        run.accept(bookmarks);
    if (bookmarks.names.empty())
        return;
    _json.writeKey("bookmarks");
    _json.beginArray();
    for (const std::string* const name : bookmarks.names)
        _json.write(*name);
    _json.endArray();
}

void BlocksWriter::writeTable(const DOM::Table& table)
{
    _json.writeMember("kind", "table");
    _json.writeKey("columnWidths");
    _json.beginArray();
    for (unsigned long i = 0; i < table.getColumnPropsEnd().get(); ++i)
        _json.write(table.getColumnProps(ColumnIndex(i)).getWidth().value_or(table.getDefaultColumnWidth()));
    _json.endArray();
    _json.writeKey("rows");
    _json.beginArray();
    writeTableRows(table);
    _json.endArray();
}

void BlocksWriter::writeTableRows(const DOM::Table& table)
{
    CoveredCells covered;
    const auto cells = table.getTableIterators();
    auto cell = cells.begin();
    for (unsigned long row = 0; row < table.getLiveRowsCount(); ++row) {
        _json.beginArray();
        for (; cell != cells.end() && cell.getRowIndex().get() == row; ++cell) {
            const unsigned long column = cell.getColIndex().get();
            if (covered.isCovered(row, column))
                continue;
            covered.add(row, column, cell->getMergeProps());
            writeTableCell(table, *cell);
        }
        _json.endArray();
    }
}

void BlocksWriter::writeTableCell(const DOM::Table& table, const DOM::Cell& cell)
{
    const DOM::MergeProps merge = cell.getMergeProps();
    _json.beginObject();
    _json.writeMember("columnSpan", merge.getCapturedColsCount() + 1);
    _json.writeMember("rowSpan", merge.getCapturedRowsCount() + 1);
    _json.writeKey("blocks");
    static const std::vector<std::unique_ptr<DOM::Block>> none;
    const auto* const blocks = cell.getRawBlocks();
    writeBlocks(blocks ? *blocks : none, {&table.getStyle(), cell.getSharedStyle().get()});
    _json.endObject();
}

void BlocksWriter::writeContents(const DOM::TableOfContents& contents, const CellScope& scope)
{
    const DOM::TableOfContentsInfo& info = contents.getInfo();
    _json.writeMember("kind", "tableOfContents");
    _json.writeKey("levels");
    _json.beginArray();
    for (const auto& level : info.getLevelsStyleInfo())
        _json.write(level.first);
    _json.endArray();
    _json.writeKey("styles");
    _json.beginArray();
    for (const DOM::TableOfContentsInfo::StyleLevelInfo& style : info.getHeadingStylesLevels()) {
        const std::string name = findTextStyleName(_state.getDocument().getStyles(), style.getStyleUUID());
        if (name.empty())
            continue;
        _json.beginObject();
        writeShortMember("style", name, _json);
        _json.writeMember("level", style.getLevel());
        _json.endObject();
    }
    _json.endArray();
    _json.writeKey("blocks");
    writeBlocks(contents.getBlocks(), scope);
    _json.writeMember("outlineLevels", info.usesOutlineLevels());
    if (!contents.getInstruction().empty())
        _json.writeMember("field", contents.getInstruction());
}

} // namespace

void writeAlignmentMember(const DOM::ParaProps& props, JsonWriter& json)
{
    if (!props.getAlignment())
        return;
    if (const char* const name = AlignmentNames[static_cast<std::size_t>(*props.getAlignment())])
        json.writeMember("alignment", name);
}

void writeBlockJson(const DOM::Block& block, ListLabels& labels, TextJsonState& state)
{
    BlocksWriter(labels, state).writeBlock(block, {});
}

void writeStoryJson(const std::vector<std::unique_ptr<DOM::Block>>& blocks, TextJsonState& state)
{
    ListLabels labels(state.getDocument());
    BlocksWriter(labels, state).writeBlocks(blocks, {});
}

} // namespace QV::Filters
