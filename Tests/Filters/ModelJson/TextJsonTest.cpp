#include <Filters/ModelJson/TextJson.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <limits>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/GraphicalObject.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/PageProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Section.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableOfContents.h>
#include <DOM/Public/TableStyle.h>
#include <DOM/Public/TrackedChange.h>
#include <Filters/Package/FilterRun.h>
#include <Utils/Public/Size2D.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

ImportOptions makeSequentialOptions()
{
    ImportOptions options;
    options.areIdsSequential = true;
    return options;
}

/// The document of a run as JSON, without blanks and line feeds.
std::string writeJson(FilterRun& run)
{
    std::ostringstream out;
    writeTextJson(run, out);
    std::string text;
    for (const char c : out.str())
        if (c != ' ' && c != '\n')
            text += c;
    return text;
}

/// The value of one of the document's members, up to the next one.
std::string findMember(const std::string& json, const std::string& key, const std::string& nextKey)
{
    const std::string opening = "\"" + key + "\":";
    const auto begin = json.find(opening);
    const auto end = json.rfind(",\"" + nextKey + "\":");
    if (begin == std::string::npos || end == std::string::npos)
        return "no " + key + " in " + json;
    return json.substr(begin + opening.size(), end - begin - opening.size());
}

std::string writeBlocks(FilterRun& run)
{
    return findMember(writeJson(run), "blocks", "sections");
}

std::string writeSections(FilterRun& run)
{
    const std::string json = writeJson(run);
    return findMember(json.substr(json.rfind("\"sections\":")), "sections", "styles");
}

DOM::Paragraph& appendParagraph(FilterRun& run)
{
    auto paragraph = std::make_unique<DOM::Paragraph>();
    DOM::Paragraph& reference = *paragraph;
    run.getDocument().getBlocks().append(std::move(paragraph));
    return reference;
}

DOM::SharedRunStyle makeStyle(const std::function<void(DOM::RunStyle&)>& change)
{
    DOM::RunStyle style;
    change(style);
    return DOM::SharedRunStyle(new DOM::RunStyle(style));
}

DOM::SharedRunStyle makeLook(const std::function<void(DOM::RunProps&)>& change)
{
    auto props = std::make_shared<DOM::RunProps>();
    change(*props);
    return makeStyle([&props](DOM::RunStyle& style) { style.setRunProps(props); });
}

std::shared_ptr<const DOM::Frame> makeFrame(std::unique_ptr<DOM::GraphicalObject> object)
{
    auto frame = std::make_shared<DOM::Frame>();
    frame->setName("F");
    frame->setExtent(Size2D<float>(10, 20));
    frame->setGraphicalObject(std::move(object));
    return frame;
}

std::unique_ptr<DOM::Shape> makeTextBox(const char* text)
{
    auto shape = std::make_unique<DOM::Shape>();
    shape->setText(DOM::makePlainCellText(text));
    return shape;
}

// --- The whole

TEST(WriteTextJson, EmptyDocument)
{
    FilterRun run;
    EXPECT_EQ(writeJson(run),
        R"({"format":"docx","blocks":[],"sections":[],"styles":[],"notes":[],"links":[],"media":[]})");
}

TEST(WriteTextJson, LinksAreListed)
{
    FilterRun run;
    run.addLink("other.docx");
    EXPECT_NE(writeJson(run).find(R"("links":["other.docx"],"media":[]})"), std::string::npos);
}

// --- Runs

struct TextRunRow
{
    const char* name;
    std::function<void(DOM::Paragraph&)> fill;
    const char* text; // of the paragraph
    const char* runs;
};

void PrintTo(const TextRunRow& row, std::ostream* out)
{
    *out << row.name;
}

void addText(DOM::Paragraph& paragraph, const DOM::SharedRunStyle& style)
{
    paragraph.appendRun(std::make_unique<DOM::TextRun>("a", style));
}

std::unique_ptr<DOM::Shape> makeGroupOfPicture()
{
    auto group = std::make_unique<DOM::Shape>();
    auto child = std::make_unique<DOM::Frame>();
    child->setGraphicalObject(std::make_unique<DOM::Picture>("a.png", "image/png"));
    group->appendChild(std::move(child));
    return group;
}

using P = DOM::Paragraph;
using Props = DOM::RunProps;
using Style = DOM::RunStyle;

const TextRunRow TextRunRows[] = {
    {"None",          [](P&) {},                                                                                     "",           "[]"                                                                                  },
    {"Pieces",        [](P& p) { p.appendText("a\tb\nc"); },                                                         R"(a\tb\nc)",
     R"([{"text":"a"},{"text":"\t"},{"text":"b"},{"text":"\n"},{"text":"c"}])"                                                                                                                                           },
    {"PageBreak",     [](P& p) { p.appendRun(std::make_unique<DOM::BreakRun>(DOM::BreakRun::Kind::Page)); },
     R"(\n)",                                                                                                                      R"([{"text":"\n","break":"page"}])"                                                   },
    {"Look",
     [](P& p) {
            addText(p, makeLook([](Props& props) {
                props.setBold(true);
                props.setItalic(false);
                props.setFontSize(14.0F);
                props.setColor(DOM::Color(DOM::Color::RGBA(0x1F, 0x38, 0x64, 255)));
                props.setFontName(std::string("F"));
            }));
        },                                                                                                           "a",          R"([{"text":"a","bold":true,"italic":false,"size":14.0,"color":"1F3864","font":"F"}])"},
    {"Decoration",
     [](P& p) {
            addText(p, makeLook([](Props& props) {
                props.setUnderline(DOM::Underline::Wave);
                props.setStrikethrough(true);
                props.setVerticalPosition(DOM::VerticalPosition::Subscript);
                props.setLetterCase(DOM::LetterCase::SmallCapitals);
                props.setBackgroundColor(DOM::Color(DOM::Color::RGBA(255, 255, 0, 255)));
            }));
        },                                                                                                           "a",
     R"([{"text":"a","underline":"wave","strike":true,"position":"subscript","letterCase":"smallCapitals",)"
        R"("background":"FFFF00"}])"                                                                                                                                                                                     },
    {"NoDecoration",
     [](P& p) {
            addText(p, makeLook([](Props& props) {
                props.setUnderline(DOM::Underline::None);
                props.setVerticalPosition(DOM::VerticalPosition::Baseline);
                props.setLetterCase(DOM::LetterCase::AsWritten);
                props.setFontSize(std::numeric_limits<float>::infinity());
            }));
        },                                                                                                           "a",          R"([{"text":"a"}])"                                                                   },
    {"Hidden",        [](P& p) { addText(p, makeLook([](Props& props) { props.setHidden(true); })); },               "",
     R"([{"text":"a","hidden":true}])"                                                                                                                                                                                   },
    {"Link",
     [](P& p) {
            addText(p, makeStyle([](Style& style) {
                style.setHyperlink(std::make_shared<DOM::Hyperlink>("https://a", "b"));
            }));
        },                                                                                                           "a",          R"([{"text":"a","hyperlink":"https://a#b"}])"                                         },
    {"Deleted",
     [](P& p) {
            addText(p, makeStyle([](Style& style) {
                style.setChange(
                    std::make_shared<DOM::TrackedChange>(DOM::TrackedChange::Kind::Deleted, "A", "2024"));
            }));
        },                                                                                                           "",           R"([{"text":"a","change":{"kind":"deleted","author":"A","date":"2024"}}])"            },
    {"MovedByNobody",
     [](P& p) {
            addText(p, makeStyle([](Style& style) {
                style.setChange(
                    std::make_shared<DOM::TrackedChange>(DOM::TrackedChange::Kind::MovedTo, "", ""));
            }));
        },                                                                                                           "a",          R"([{"text":"a","change":{"kind":"movedTo"}}])"                                       },
    {"Field",         [](P& p) { p.appendRun(std::make_unique<DOM::FieldRun>("PAGE", "7")); },                       "7",
     R"([{"text":"7","field":"PAGE"}])"                                                                                                                                                                                  },
    {"PartOfAField",
     [](P& p) {
            addText(p, makeStyle([](Style& style) {
                style.setFieldInstruction(std::make_shared<std::string>("REF"));
            }));
        },                                                                                                           "a",          R"([{"text":"a","field":"REF"}])"                                                     },
    {"Bookmark",
     [](P& p) { p.appendRun(std::make_unique<DOM::BookmarkRun>(DOM::BookmarkRun::Kind::End, "b")); },                "",
     "[]"                                                                                                                                                                                                                },
    {"UnknownAnchor", [](P& p) { p.appendRun(std::make_unique<DOM::AnchorRun>(UUID::generate())); },                 "",
     "[]"                                                                                                                                                                                                                },
    {"NoFrame",       [](P& p) { p.appendRun(std::make_unique<DOM::DrawingRun>(nullptr)); },                         "",           "[]"                                                                                  },
    {"Picture",
     [](P& p) {
            p.appendRun(std::make_unique<DOM::DrawingRun>(
                makeFrame(std::make_unique<DOM::Picture>("a.png", "image/png"))));
        },                                                                                                           "",
     R"([{"media":"a.png","frame":{"kind":"picture","name":"F","width":10.0,"height":20.0,"media":"a.png"}}])"                                                                                                           },
    {"TextBox",       [](P& p) { p.appendRun(std::make_unique<DOM::DrawingRun>(makeFrame(makeTextBox("b")))); },     "",
     R"([{"frame":{"kind":"shape","name":"F","width":10.0,"height":20.0,"text":"b",)"
        R"("blocks":[{"kind":"paragraph","text":"b","runs":[{"text":"b"}]}]}}])"                                                                                                                                         },
    {"Group",         [](P& p) { p.appendRun(std::make_unique<DOM::DrawingRun>(makeFrame(makeGroupOfPicture()))); },
     "",                                                                                                                           R"([{"frame":{"kind":"group","name":"F","width":10.0,"height":20.0,)"
        R"("children":[{"kind":"picture","media":"a.png"}]}}])"                                                                                                                                                  },
};

class TextRunJson : public testing::TestWithParam<TextRunRow>
{
};

TEST_P(TextRunJson, KeepsRow)
{
    FilterRun run;
    GetParam().fill(appendParagraph(run));
    EXPECT_EQ(writeBlocks(run), std::string(R"([{"kind":"paragraph","text":")") + GetParam().text +
                                    R"(","runs":)" + GetParam().runs + "}]");
}

INSTANTIATE_TEST_SUITE_P(Rows, TextRunJson, testing::ValuesIn(TextRunRows),
    [](const auto& row) { return std::string(row.param.name); });

// --- Paragraphs

TEST(WriteTextJson, ParagraphHasItsKeysInOrder)
{
    FilterRun run(makeSequentialOptions());
    DOM::NamedTextStyle heading = DOM::makePredefinedTextStyle(DOM::PredefinedStyleName::Heading1);
    heading.setRunProps(nullptr);
    heading.setParaProps(nullptr);
    heading.setParentUUID({});
    auto paraProps = std::make_shared<DOM::ParaProps>();
    paraProps->setAlignment(DOM::HorizontalAlignment::Center);
    paraProps->setOutlineLevel(0);
    heading.setParaProps(paraProps);
    run.getDocument().getStyles().getTextStyles().insert(heading);

    auto marker = std::make_shared<DOM::NumListMarker>();
    marker->setType(DOM::NumListMarkerType::Decimal);
    marker->setText("%1.");
    auto level = std::make_unique<DOM::NumberingLevel>();
    level->setListMarker(marker);
    auto list = std::make_shared<DOM::NumberedList>();
    list->appendLevel(std::move(level));
    run.getDocument().addNumberedList(list);

    DOM::Paragraph& paragraph = appendParagraph(run);
    DOM::ParagraphStyle style;
    style.setParentUUID(heading.getUUID());
    paragraph.setStyle(style);
    auto reference = std::make_unique<DOM::NumberingRef>();
    reference->setNumListUUID(list->getUUID());
    paragraph.setNumRef(std::move(reference));
    paragraph.appendRun(std::make_unique<DOM::BookmarkRun>(DOM::BookmarkRun::Kind::Start, "_T"));
    paragraph.appendText("a");
    paragraph.setSharedParaMarkStyle(makeStyle([](DOM::RunStyle& mark) {
        mark.setChange(std::make_shared<DOM::TrackedChange>(DOM::TrackedChange::Kind::Inserted, "A", ""));
    }));
    EXPECT_EQ(writeBlocks(run),
        R"([{"kind":"paragraph","style":"heading1","alignment":"center","text":"a",)"
        R"("numbering":{"list":"id1","level":0,"text":"1.","listType":"numbered"},"bookmarks":["_T"],)"
        R"("outlineLevel":0,"runs":[{"text":"a"}],"markChange":{"kind":"inserted","author":"A"}}])");
}

TEST(WriteTextJson, OutlineLevelOfTextIsLeftOut)
{
    FilterRun run;
    auto props = std::make_shared<DOM::ParaProps>();
    props->setOutlineLevel(9);
    props->setAlignment(DOM::HorizontalAlignment::General);
    DOM::ParagraphStyle style;
    style.setParaProps(props);
    appendParagraph(run).setStyle(style);
    EXPECT_EQ(writeBlocks(run), R"([{"kind":"paragraph","text":"","runs":[]}])");
}

TEST(WriteTextJson, DeletedItemsAreNotCounted)
{
    FilterRun run;
    auto level = std::make_unique<DOM::NumberingLevel>();
    level->setListMarker(std::make_shared<DOM::NumListMarker>());
    level->getListMarker()->setText("%1");
    auto list = std::make_shared<DOM::NumberedList>();
    list->appendLevel(std::move(level));
    run.getDocument().addNumberedList(list);
    for (int i = 0; i < 3; ++i) {
        auto reference = std::make_unique<DOM::NumberingRef>();
        reference->setNumListUUID(list->getUUID());
        DOM::Paragraph& paragraph = appendParagraph(run);
        paragraph.setNumRef(std::move(reference));
        if (i == 1)
            paragraph.setSharedParaMarkStyle(makeStyle([](DOM::RunStyle& mark) {
                mark.setChange(
                    std::make_shared<DOM::TrackedChange>(DOM::TrackedChange::Kind::Deleted, "", ""));
            }));
    }
    const std::string opening = R"({"kind":"paragraph","text":"","numbering":{"list":")" +
                                list->getUUID().toString() + R"(","level":0)";
    EXPECT_EQ(writeBlocks(run), "[" + opening + R"(,"text":"1"},"runs":[]},)" + opening +
                                    R"(},"runs":[],"markChange":{"kind":"deleted"}},)" + opening +
                                    R"(,"text":"2"},"runs":[]}])");
}

TEST(WriteTextJson, LongNamesAreCut)
{
    FilterRun run;
    const std::string longText(2000, 'x');
    const std::string longLink(9000, 'y');
    addText(appendParagraph(run), makeStyle([&](DOM::RunStyle& style) {
        style.setFieldInstruction(std::make_shared<std::string>(longText));
        style.setHyperlink(std::make_shared<DOM::Hyperlink>(longLink));
    }));
    EXPECT_EQ(writeBlocks(run), R"([{"kind":"paragraph","text":"a","runs":[{"text":"a","hyperlink":")" +
                                    std::string(8192, 'y') + R"(","field":")" + std::string(1024, 'x') +
                                    R"("}]}])");
}

TEST(WriteTextJson, LongLinksOfManyRunsAreCutToNames)
{
    FilterRun run;
    const DOM::SharedRunStyle style = makeStyle([](DOM::RunStyle& made) {
        made.setHyperlink(std::make_shared<DOM::Hyperlink>(std::string(8192, 'Z')));
    });
    constexpr std::size_t LongLinks = 2048; // together 16 MiB
    DOM::Paragraph& paragraph = appendParagraph(run);
    for (std::size_t i = 0; i <= LongLinks; ++i)
        addText(paragraph, style);
    const std::string json = writeBlocks(run);
    EXPECT_EQ(static_cast<std::size_t>(std::count(json.begin(), json.end(), 'Z')), LongLinks * 8192 + 1024);
}

// --- Tables

constexpr const char* EmptyParagraph = R"({"kind":"paragraph","text":"","runs":[]})";

std::string makeCellJson(int columnSpan, int rowSpan, const std::string& blocks)
{
    return R"({"columnSpan":)" + std::to_string(columnSpan) + R"(,"rowSpan":)" + std::to_string(rowSpan) +
           R"(,"blocks":[)" + blocks + "]}";
}

TEST(WriteTextJson, CoveredCellsAreLeftOut)
{
    FilterRun run;
    auto table = std::make_unique<DOM::Table>();
    table->ensureSize(3, 3);
    for (unsigned long row = 0; row < 3; ++row)
        for (unsigned long column = 0; column < 3; ++column)
            table->getOrMakeCell(RowIndex(row), ColumnIndex(column)).setText(DOM::makePlainCellText({}));
    table->setMergeProps(RowIndex(0), ColumnIndex(0), 0, 1); // across
    table->setMergeProps(RowIndex(0), ColumnIndex(2), 1, 0); // down
    table->setMergeProps(RowIndex(1), ColumnIndex(0), 1, 1); // both
    DOM::ColumnProps props;
    props.setWidth(100.0F);
    table->setColumnsProps({ColumnIndex(0), ColumnIndex(2)}, props);
    run.getDocument().getBlocks().append(std::move(table));
    EXPECT_EQ(writeBlocks(run),
        R"([{"kind":"table","columnWidths":[100.0,100.0],"rows":[[)" + makeCellJson(2, 1, EmptyParagraph) +
            "," + makeCellJson(1, 2, EmptyParagraph) + "],[" + makeCellJson(2, 2, EmptyParagraph) + "],[" +
            makeCellJson(1, 1, EmptyParagraph) + "]]}]");
}

TEST(WriteTextJson, CellsLookAsTheirTableSays)
{
    FilterRun run;
    auto props = std::make_shared<DOM::RunProps>();
    props->setBold(true);
    DOM::NamedTableStyle named;
    named.setRunProps(props);
    run.getDocument().getStyles().getTableStyles().emplace(named.getUUID(), named);
    DOM::TableStyle style;
    style.setParentUUID(named.getUUID());
    auto table = std::make_unique<DOM::Table>();
    table->setStyle(style);
    table->ensureSize(2, 1);
    table->getOrMakeCell(RowIndex(0), ColumnIndex(0)).setText(DOM::makePlainCellText("a"));
    table->getOrMakeCell(RowIndex(1), ColumnIndex(0)).setEmpty();
    run.getDocument().getBlocks().append(std::move(table));
    EXPECT_EQ(writeBlocks(run),
        R"([{"kind":"table","columnWidths":[],"rows":[[)" +
            makeCellJson(1, 1, R"({"kind":"paragraph","text":"a","runs":[{"text":"a","bold":true}]})") +
            "],[" + makeCellJson(1, 1, "") + "]]}]");
}

TEST(WriteTextJson, TableOfContents)
{
    FilterRun run;
    DOM::NamedTextStyle style;
    style.setName(std::string("S"));
    const UUID uuid = style.getUUID();
    run.getDocument().getStyles().getTextStyles().insert(std::move(style));
    auto contents = std::make_unique<DOM::TableOfContents>();
    contents->setInstruction("TOC");
    contents->getInfo().getLevelsStyleInfo()[1];
    contents->getInfo().getLevelsStyleInfo()[3];
    contents->getInfo().getHeadingStylesLevels().emplace_back(uuid, 2UL);
    contents->getInfo().getHeadingStylesLevels().emplace_back(UUID::generate(), 3UL); // is not there
    contents->appendBlock(std::make_unique<DOM::Paragraph>());
    run.getDocument().getBlocks().append(std::move(contents));
    EXPECT_EQ(writeBlocks(run),
        R"([{"kind":"tableOfContents","levels":[1,3],"styles":[{"style":"S","level":2}],"blocks":[)" +
            std::string(EmptyParagraph) + R"(],"outlineLevels":false,"field":"TOC"}])");
}

// --- Sections

std::shared_ptr<DOM::HeaderFooterPair> makePair(
    const DOM::SharedCellText& header, const DOM::SharedCellText& footer)
{
    auto pair = std::make_shared<DOM::HeaderFooterPair>();
    pair->setHeader(header);
    pair->setFooter(footer);
    return pair;
}

TEST(WriteTextJson, SectionsHavePagesHeadersAndFooters)
{
    FilterRun run;
    auto margins = std::make_shared<DOM::Insets>();
    margins->setLeft(1.0F);
    margins->setBottom(2.0F);
    auto pages = std::make_shared<DOM::PageProps>();
    pages->setWidth(612.0F);
    pages->setHeight(792.0F);
    pages->setMargins(margins);
    pages->setHeaderDistance(36.0F);
    DOM::Section section(DOM::BlockPosition(3));
    section.setPageProps(pages);
    section.setDefaultPair(makePair(DOM::makePlainCellText({}), nullptr));
    section.setEvenPair(makePair(nullptr, DOM::makePlainCellText({})));
    run.getDocument().appendSection(DOM::Section(DOM::BlockPosition(0)));
    run.getDocument().appendSection(std::move(section));
    EXPECT_EQ(writeSections(run), R"([{"firstBlock":0,"headers":{},"footers":{}},)"
                                  R"({"firstBlock":3,"width":612.0,"height":792.0,)"
                                  R"("margins":{"left":1.0,"bottom":2.0},"headers":{"default":[)" +
                                      std::string(EmptyParagraph) + R"(]},"footers":{"even":[)" +
                                      std::string(EmptyParagraph) + R"(]},"headerDistance":36.0}])");
}

TEST(WriteTextJson, LargeHeadersAreRepeatedWithinMeasure)
{
    FilterRun run;
    const DOM::SharedCellText header = DOM::makePlainCellText(std::string(3000000, 'x'));
    for (int i = 0; i < 5; ++i) {
        DOM::Section section(DOM::BlockPosition(0));
        section.setDefaultPair(makePair(header, nullptr));
        run.getDocument().appendSection(std::move(section));
    }
    // The text stands in the paragraph and in its run: six megabytes, of which two more copies have room.
    const std::string json = writeSections(run);
    EXPECT_LT(json.size(), 19000000U);
    EXPECT_GT(json.size(), 18000000U);
    const std::string end = R"({"firstBlock":0,"headers":{"sameAs":{"default":0}},"footers":{}},)"
                            R"({"firstBlock":0,"headers":{"sameAs":{"default":0}},"footers":{}}])";
    EXPECT_EQ(json.substr(json.size() - end.size() - 1), "," + end);
}

// --- Styles and notes

TEST(WriteTextJson, StylesAreSorted)
{
    FilterRun run;
    DOM::NamedTextStyle base;
    base.setName(std::string("B"));
    DOM::NamedTextStyle derived;
    derived.setName(std::string("A"));
    derived.setParentUUID(base.getUUID());
    DOM::NamedTextStyle character;
    character.setName(std::string("A"));
    character.setKind(DOM::NamedTextStyle::Kind::Character);
    auto& styles = run.getDocument().getStyles();
    styles.getTextStyles().insert(std::move(base));
    styles.getTextStyles().insert(std::move(derived));
    styles.getTextStyles().insert(std::move(character));
    DOM::NamedTableStyle table;
    table.setName("T");
    styles.getTableStyles().emplace(table.getUUID(), table);
    EXPECT_EQ(findMember(writeJson(run), "styles", "notes"),
        R"([{"name":"A","type":"paragraph","parent":"B"},{"name":"B","type":"paragraph"},)"
        R"({"name":"A","type":"character"},{"name":"T","type":"table"}])");
}

TEST(WriteTextJson, NotesAreCountedByKind)
{
    FilterRun run;
    const DOM::Note::Kind kinds[] = {DOM::Note::Kind::Footnote, DOM::Note::Kind::Comment,
        DOM::Note::Kind::Footnote, DOM::Note::Kind::Endnote};
    DOM::Paragraph& paragraph = appendParagraph(run);
    for (const DOM::Note::Kind kind : kinds) {
        auto note = std::make_unique<DOM::Note>(kind, DOM::makePlainCellText("n"));
        if (kind == DOM::Note::Kind::Comment)
            note->setAuthor("A");
        paragraph.appendRun(std::make_unique<DOM::AnchorRun>(note->getUUID()));
        run.getDocument().appendNote(std::move(note));
    }
    EXPECT_EQ(findMember(writeJson(run), "notes", "links"),
        R"([{"id":"1","kind":"footnote","text":"n"},{"id":"1","kind":"comment","author":"A","text":"n"},)"
        R"({"id":"2","kind":"footnote","text":"n"},{"id":"1","kind":"endnote","text":"n"}])");
    EXPECT_EQ(writeBlocks(run),
        R"([{"kind":"paragraph","text":"","runs":[{"note":{"kind":"footnote","id":"1"}},)"
        R"({"note":{"kind":"comment","id":"1"}},{"note":{"kind":"footnote","id":"2"}},)"
        R"({"note":{"kind":"endnote","id":"1"}}]}])");
}

} // namespace
} // namespace QV::Filters
