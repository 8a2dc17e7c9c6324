#include <DOM/Public/Document.h>

#include <climits>
#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <boost/variant.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/PageProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Section.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/ShapeStyle.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <DOM/Public/TableOfContents.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <DOM/Public/TrackedChange.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

NamedTextStyle makeListStyle()
{
    NamedTextStyle style;
    style.setUUID(UUID(1, 2));
    style.setParentUUID(UUID(3, 4));
    style.setName(std::string("Items"));
    style.setKind(NamedTextStyle::Kind::Character);
    style.setRunProps(std::make_shared<RunProps>());
    style.setParaProps(std::make_shared<ParaProps>());
    auto reference = std::make_unique<NumberingRef>();
    reference->setLevel(1UL);
    style.setNumRef(std::move(reference));
    return style;
}

// The names of what differs from makeListStyle.
std::vector<std::string> listDifferences(const NamedTextStyle& style)
{
    std::vector<std::string> differences;
    const auto check = [&differences](bool isKept, const char* name) {
        if (!isKept)
            differences.emplace_back(name);
    };
    check(style.getUUID() == UUID(1, 2), "UUID");
    check(style.getParentUUID() == UUID(3, 4), "parent");
    check(style.getName() == NamedTextStyle::Name(std::string("Items")), "name");
    check(style.getKind() == NamedTextStyle::Kind::Character, "kind");
    check(style.getRunProps() != nullptr, "run properties");
    check(style.getParaProps() != nullptr, "paragraph properties");
    check(style.getNumRef() && style.getNumRef()->getLevel() == 1UL, "numbering");
    return differences;
}

TEST(NamedTextStyle, CopyHasANumberingOfItsOwn)
{
    const NamedTextStyle style = makeListStyle();
    NamedTextStyle constructed(style);
    NamedTextStyle assigned;
    assigned.setNumRef(std::make_unique<NumberingRef>());
    assigned = style;
    for (NamedTextStyle* copy : {&constructed, &assigned}) {
        EXPECT_THAT(listDifferences(*copy), IsEmpty());
        EXPECT_EQ(copy->getRunProps(), style.getRunProps()) << "what never changes is shared";
        EXPECT_NE(copy->getNumRef(), style.getNumRef());
        copy->getNumRef()->setLevel(2UL);
        EXPECT_THAT(listDifferences(*copy), ElementsAre("numbering"));
    }
    EXPECT_THAT(listDifferences(style), IsEmpty());

    const NamedTextStyle unnumbered;
    EXPECT_EQ(NamedTextStyle(unnumbered).getNumRef(), nullptr);
    assigned = unnumbered;
    EXPECT_EQ(assigned.getNumRef(), nullptr);
    EXPECT_EQ(assigned.getUUID(), unnumbered.getUUID());
}

TEST(NamedTextStyle, MoveTakesTheNumberingAlong)
{
    NamedTextStyle style = makeListStyle();
    const NumberingRef* const reference = style.getNumRef().get();
    NamedTextStyle constructed(std::move(style));
    EXPECT_THAT(listDifferences(constructed), IsEmpty());
    EXPECT_EQ(constructed.getNumRef().get(), reference);
    NamedTextStyle assigned;
    assigned = std::move(constructed);
    EXPECT_THAT(listDifferences(assigned), IsEmpty());
    EXPECT_EQ(assigned.getNumRef().get(), reference);
}

TEST(NamedTextStyle, AssignedToItselfStaysTheSame)
{
    NamedTextStyle style = makeListStyle();
    const NamedTextStyle& same = style;
    style = same;
    EXPECT_THAT(listDifferences(style), IsEmpty());
}

// A character per view mode from 0 to 7: "+" where it shows what @p change made.
struct ShownRow
{
    const char* name;
    boost::optional<TrackedChange::Kind> change;
    const char* shown;
};

void PrintTo(const ShownRow& row, std::ostream* out)
{
    *out << row.name;
}

TrackChangesViewMode makeMode(unsigned bits)
{
    return static_cast<TrackChangesViewMode>(bits);
}

class IsShown : public testing::TestWithParam<ShownRow>
{
};

TEST_P(IsShown, InTheModesThatSaySo)
{
    RunStyle style;
    if (GetParam().change)
        style.setChange(std::make_shared<TrackedChange>(*GetParam().change, "somebody", ""));
    std::string shown;
    for (unsigned bits = 0; bits < 8; ++bits)
        shown += isShown(style, makeMode(bits)) ? '+' : '-';
    EXPECT_EQ(shown, GetParam().shown);
}

const ShownRow ShownRows[] = {
    {"Untouched", boost::none,                    "++++++++"},
    {"Inserted",  TrackedChange::Kind::Inserted,  "++++-+-+"},
    {"MovedTo",   TrackedChange::Kind::MovedTo,   "++++-+-+"},
    {"Deleted",   TrackedChange::Kind::Deleted,   "--++--++"},
    {"MovedFrom", TrackedChange::Kind::MovedFrom, "--++--++"},
};

INSTANTIATE_TEST_SUITE_P(
    Rows, IsShown, testing::ValuesIn(ShownRows), [](const auto& row) { return std::string(row.param.name); });

TEST(GetRunPropsForViewMode, GivesTheFormerOnesWhereTheModeFollowsThem)
{
    const auto own = std::make_shared<RunProps>();
    const auto former = std::make_shared<RunProps>();
    for (unsigned bits = 0; bits < 8; ++bits) {
        SCOPED_TRACE(bits);
        RunStyle style;
        EXPECT_EQ(getRunPropsForViewMode(style, makeMode(bits)), nullptr);
        style.setRunProps(own);
        EXPECT_EQ(getRunPropsForViewMode(style, makeMode(bits)), own);
        style.setTrackedRunProps(former); // they set nothing, and stand in all the same
        EXPECT_EQ(getRunPropsForViewMode(style, makeMode(bits)), bits < 4 ? own : former);
        style.setRunProps(nullptr);
        EXPECT_EQ(getRunPropsForViewMode(style, makeMode(bits)), bits < 4 ? nullptr : former);
    }
}

static_assert(static_cast<int>(NumListNameType::Bulleted) == 1);
static_assert(static_cast<int>(NumListNameType::Numbered) == 2);
static_assert(NumListMarkerType::LowerLetter < NumListMarkerType::Bullet);
static_assert(NumListMarkerType::Bullet < NumListMarkerType::PictureBullet);

TEST(NumberedList, InnerItemsHaveTheLastLevelThereIs)
{
    NumberedList list;
    EXPECT_EQ(list.findLevel(0), nullptr);
    EXPECT_TRUE(list.getUUID());
    for (int i = 0; i < 3; ++i)
        list.appendLevel(std::make_unique<NumberingLevel>());
    const auto& levels = list.getLevels();
    ASSERT_EQ(levels.size(), 3U);
    EXPECT_EQ(list.findLevel(0), levels[0].get());
    EXPECT_EQ(list.findLevel(1), levels[1].get());
    EXPECT_EQ(list.findLevel(2), levels[2].get());
    EXPECT_EQ(list.findLevel(3), levels[2].get());
    EXPECT_EQ(list.findLevel(ULONG_MAX), levels[2].get());
}

TEST(NumberingLevel, CountsFromOneAndSaysNothingMore)
{
    const NumberingLevel level;
    EXPECT_EQ(level.getListMarker(), nullptr);
    EXPECT_EQ(level.getStart(), 1);
    EXPECT_FALSE(level.getRestartLevel());
    EXPECT_FALSE(level.isLegal());
    EXPECT_TRUE(level.getSuffix() == NumberingLevel::Suffix::Tab);
    EXPECT_TRUE(level.getAlignment() == HorizontalAlignment::Left);
    EXPECT_EQ(level.getParaProps(), nullptr);
    EXPECT_EQ(level.getRunProps(), nullptr);
}

std::shared_ptr<const NumberedList> makeNumberedList(const UUID& uuid)
{
    auto list = std::make_shared<NumberedList>();
    list->setUUID(uuid);
    return list;
}

TEST(Document, KeepsListsUnderTheirIdentifiers)
{
    Document document;
    EXPECT_THAT(document.getNumberedLists(), IsEmpty());
    const auto first = makeNumberedList(UUID(2, 0));
    const auto second = makeNumberedList(UUID(1, 0));
    document.addNumberedList(first);
    document.addNumberedList(second);
    EXPECT_THAT(document.getNumberedLists(), ElementsAre(Pair(UUID(1, 0), second), Pair(UUID(2, 0), first)));
}

TEST(Document, FindsNotesByIdentifierAndKeepsTheirOrder)
{
    Document document;
    EXPECT_EQ(document.findNote(UUID(1, 0)), nullptr);
    const struct
    {
        Note::Kind kind;
        UUID uuid;
        const char* text;
        const char* author;
    } rows[] = {
        {Note::Kind::Endnote,  UUID(3, 0), "at the end", ""        },
        {Note::Kind::Footnote, UUID(1, 0), "below",      ""        },
        {Note::Kind::Comment,  UUID(2, 0), "aside",      "somebody"},
    };
    for (const auto& row : rows) {
        auto note = std::make_unique<Note>(row.kind, makePlainCellText(row.text));
        note->setUUID(row.uuid);
        note->setAuthor(row.author);
        document.appendNote(std::move(note));
    }
    ASSERT_EQ(document.getNotes().size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        const Note* const note = document.findNote(rows[i].uuid);
        ASSERT_EQ(note, document.getNotes()[i].get());
        EXPECT_TRUE(note->getKind() == rows[i].kind);
        EXPECT_EQ(note->getText()->getPlainText(), rows[i].text);
        EXPECT_EQ(note->getAuthor(), rows[i].author);
    }
    EXPECT_EQ(document.findNote(UUID(4, 0)), nullptr);
    EXPECT_EQ(document.findNote(UUID()), nullptr);
}

TEST(Document, KeepsSectionsInOrderAndTheyShareWhatIsTheirs)
{
    Document document;
    EXPECT_THAT(document.getSections(), IsEmpty());
    const auto pair = std::make_shared<HeaderFooterPair>();
    pair->setHeader(makePlainCellText("above"));
    const auto page = std::make_shared<PageProps>();
    page->setWidth(612.0F);
    Section first((BlockPosition(0)));
    first.setPageProps(page);
    first.setDefaultPair(pair);
    Section second((BlockPosition(5)));
    second.setFirstPair(pair);
    second.setEvenPair(pair);
    document.appendSection(first);
    document.appendSection(second);

    const std::vector<Section>& sections = document.getSections();
    ASSERT_EQ(sections.size(), 2U);
    EXPECT_EQ(sections[0].getFirstBlock().get(), 0U);
    EXPECT_EQ(sections[0].getPageProps(), page);
    EXPECT_EQ(sections[0].getDefaultPair(), pair);
    EXPECT_EQ(sections[0].getFirstPair(), nullptr);
    EXPECT_EQ(sections[0].getEvenPair(), nullptr);
    EXPECT_EQ(sections[1].getFirstBlock().get(), 5U);
    EXPECT_EQ(sections[1].getPageProps(), nullptr);
    EXPECT_EQ(sections[1].getDefaultPair(), nullptr);
    EXPECT_EQ(sections[1].getFirstPair(), pair);
    EXPECT_EQ(sections[1].getEvenPair(), pair);
    EXPECT_EQ(pair->getHeader()->getPlainText(), "above");
    EXPECT_EQ(pair->getFooter(), nullptr);
    EXPECT_EQ(pair->getPageProps(), nullptr);
}

TEST(SharedObjectFactory, SharesParagraphStyles)
{
    SharedParagraphStyle kept;
    {
        SharedObjectFactory factory;
        ParagraphStyle style;
        style.setParentUUID(UUID(1, 1));
        kept = factory.getShared(style);
        EXPECT_EQ(factory.getShared(ParagraphStyle(style)), kept);
        EXPECT_EQ(factory.getParagraphStylesCount(), 1U);
        style.setParentUUID(UUID(1, 2));
        EXPECT_NE(factory.getShared(style), kept);
        EXPECT_EQ(factory.getParagraphStylesCount(), 2U);
        EXPECT_EQ(factory.getRunStylesCount(), 0U);
    }
    EXPECT_EQ(kept->getParentUUID(), UUID(1, 1)) << "outlives its factory";
}

TEST(SharedObjectFactory, SharesShapeStyles)
{
    SharedShapeStyle kept;
    {
        SharedObjectFactory factory;
        ShapeStyle style;
        style.setParentUUID(UUID(1, 1));
        kept = factory.getShared(style);
        EXPECT_EQ(factory.getShared(ShapeStyle(style)), kept);
        EXPECT_EQ(factory.getShapeStylesCount(), 1U);
        style.setShapeProps(std::make_shared<ShapeProps>());
        EXPECT_NE(factory.getShared(style), kept);
        EXPECT_EQ(factory.getShapeStylesCount(), 2U);
    }
    EXPECT_EQ(kept->getParentUUID(), UUID(1, 1)) << "outlives its factory";
    EXPECT_EQ(kept->use_count(), 1U);
}

TEST(TableOfContents, ListsStylesByLevelAndKeepsItsEntries)
{
    BlockCollection blocks;
    auto owned = std::make_unique<TableOfContents>();
    TableOfContents& table = *owned;
    blocks.append(std::move(owned));
    EXPECT_TRUE(table.getUUID());
    EXPECT_EQ(table.getInstruction(), "");
    EXPECT_THAT(table.getBlocks(), IsEmpty());
    EXPECT_FALSE(table.getInfo().usesOutlineLevels());

    table.setInstruction("TOC \\o \"1-3\"");
    table.getInfo().setUsesOutlineLevels(true);
    table.getInfo().getHeadingStylesLevels().emplace_back(UUID(1, 0), 2);
    table.getInfo().getHeadingStylesLevels().emplace_back(UUID(2, 0), 1);
    table.getInfo().getLevelsStyleInfo()[2].setPageNumber(false);
    table.getInfo().getLevelsStyleInfo()[1].setLink(true);
    auto entry = std::make_unique<Paragraph>();
    const Block* const kept = entry.get();
    table.appendBlock(std::move(entry));

    const TableOfContents& constant = table;
    EXPECT_EQ(constant.getInstruction(), "TOC \\o \"1-3\"");
    EXPECT_TRUE(constant.getInfo().usesOutlineLevels());
    const auto& styles = constant.getInfo().getHeadingStylesLevels();
    ASSERT_EQ(styles.size(), 2U);
    EXPECT_EQ(styles[0].getStyleUUID(), UUID(1, 0));
    EXPECT_EQ(styles[0].getLevel(), 2U);
    EXPECT_EQ(styles[1].getLevel(), 1U);
    const auto& levels = constant.getInfo().getLevelsStyleInfo();
    ASSERT_EQ(levels.size(), 2U);
    EXPECT_TRUE(levels.at(1).hasPageNumber());
    EXPECT_TRUE(levels.at(1).isLink());
    EXPECT_FALSE(levels.at(2).hasPageNumber());
    EXPECT_FALSE(levels.at(2).isLink());
    ASSERT_EQ(constant.getBlocks().size(), 1U);
    EXPECT_EQ(constant.getBlocks()[0].get(), kept);
}

} // namespace
} // namespace QV::DOM
