#include <Filters/Package/ListLabels.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

using Type = DOM::NumListMarkerType;

struct LevelSpec
{
    Type type = Type::Decimal;
    std::string text;
    long start = 1;
    boost::optional<unsigned long> restart = boost::none;
    bool isLegal = false;
};

std::shared_ptr<DOM::NumberedList> makeList(const std::vector<LevelSpec>& levels)
{
    auto list = std::make_shared<DOM::NumberedList>();
    for (const LevelSpec& spec : levels) {
        auto marker = std::make_shared<DOM::NumListMarker>();
        marker->setType(spec.type);
        marker->setText(spec.text);
        auto level = std::make_unique<DOM::NumberingLevel>();
        level->setListMarker(marker);
        level->setStart(spec.start);
        level->setRestartLevel(spec.restart);
        level->setLegal(spec.isLegal);
        list->appendLevel(std::move(level));
    }
    return list;
}

DOM::NumberingRef makeReference(const UUID& list, unsigned long level, const UUID& tag = {})
{
    DOM::NumberingRef reference;
    reference.setNumListUUID(list);
    reference.setLevel(level);
    if (tag)
        reference.setListTagUUID(tag);
    return reference;
}

struct LabelsRow
{
    const char* name;
    std::vector<LevelSpec> levels;
    std::vector<unsigned long> items; // their levels
    const char* labels;               // joined by "|"
};

void PrintTo(const LabelsRow& row, std::ostream* out)
{
    *out << row.name;
}

const std::vector<LevelSpec> Outline = {
    {Type::Decimal, "%1."      },
    {Type::Decimal, "%1.%2."   },
    {Type::Decimal, "%1.%2.%3."}
};

const LabelsRow LabelsRows[] = {
    {"Counts",                      {{Type::Decimal, "%1."}},                                                        {0, 0, 0},             "1.|2.|3."                         },
    {"CountsFromStart",             {{Type::LowerLetter, "(%1)", 3}},                                                {0, 0},                "(c)|(d)"                          },
    {"Outline",                     Outline,                                                                         {0, 1, 1, 0, 1},       "1.|1.1.|1.2.|2.|2.1."             },
    {"OuterItemRestarts",           Outline,                                                                         {0, 1, 2, 2, 1, 2},    "1.|1.1.|1.1.1.|1.1.2.|1.2.|1.2.1."},
    {"OutermostRestartsAll",        Outline,                                                                         {0, 1, 2, 0, 2},       "1.|1.1.|1.1.1.|2.|2.1.1."         },
    {"SkippedLevelIsStart",         {{Type::Decimal, "%1.", 4}, {Type::Decimal, "%1.%2."}},                          {1, 1, 0, 1},
     "4.1.|4.2.|5.|5.1."                                                                                                                                                       },
    {"NeverRestarts",               {{Type::Decimal, "%1."}, {Type::Decimal, "%2", 1, 0UL}},                         {0, 1, 0, 1},          "1.|1|2.|2"                        },
    {"RestartsAfterOutermostAlone",
     {{Type::Decimal, "%1"}, {Type::Decimal, "%2"}, {Type::Decimal, "%3", 1, 1UL}},                                  {0, 1, 2, 1, 2, 0, 2},
     "1|1|1|2|2|2|1"                                                                                                                                                           },
    {"Legal",                       {{Type::UpperRoman, "%1."}, {Type::LowerLetter, "%1.%2", 1, boost::none, true}}, {0, 0, 1, 1},
     "I.|II.|2.1|2.2"                                                                                                                                                          },
    {"LegalNoneStaysNone",          {{Type::None, "%1-"}, {Type::Decimal, "%1%2", 1, boost::none, true}},            {0, 1},
     "-|1"                                                                                                                                                                     },
    {"MixedSystems",                {{Type::UpperRoman, "%1"}, {Type::LowerLetter, "%1-%2"}},                        {0, 1, 1},             "I|I-a|I-b"                        },
    {"Bullet",                      {{Type::Bullet, "\u2022"}},                                                      {0, 0},                "\u2022|\u2022"                    },
    {"BulletIsNoPattern",           {{Type::Bullet, "%1"}},                                                          {0},                   "%1"                               },
    {"NoneShowsItsText",            {{Type::None, "Note %1:"}},                                                      {0, 0},                "Note :|Note :"                    },
    {"NoneWithoutText",             {{Type::None, ""}},                                                              {0},                   ""                                 },
    {"OtherPercentsStay",           {{Type::Decimal, "%%1 %0 %a %"}},                                                {0},                   "%1 %0 %a %"                       },
    {"DeeperLevelIsNothing",        {{Type::Decimal, "%1%2%9."}, {Type::Decimal, "%2"}},                             {0, 1},                "1.|1"                             },
    {"LevelBeyondTheLast",          {{Type::Decimal, "%1."}},                                                        {0, 8},                "1.|2."                            },
    {"NoLevels",                    {},                                                                              {0},                   ""                                 },
    {"LargestNumberStays",          {{Type::Decimal, "%1", std::numeric_limits<long>::max() - 1}},                   {0, 0, 0},
     "9223372036854775806|9223372036854775807|9223372036854775807"                                                                                                             },
};

class ListLabelsRows : public testing::TestWithParam<LabelsRow>
{
};

TEST_P(ListLabelsRows, KeepsRow)
{
    DOM::Document document;
    const auto list = makeList(GetParam().levels);
    document.addNumberedList(list);
    ListLabels labels(document);
    std::string joined;
    for (std::size_t i = 0; i < GetParam().items.size(); ++i)
        joined += (i > 0 ? "|" : "") + labels.next(makeReference(list->getUUID(), GetParam().items[i]));
    EXPECT_EQ(joined, GetParam().labels);
}

INSTANTIATE_TEST_SUITE_P(Rows, ListLabelsRows, testing::ValuesIn(LabelsRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ListLabels, ListsOfOneTagAreNumberedThrough)
{
    DOM::Document document;
    const auto first = makeList({
        {Type::Decimal, "%1."}
    });
    const auto second = makeList({
        {Type::UpperRoman, "%1)"}
    });
    document.addNumberedList(first);
    document.addNumberedList(second);
    const UUID tag = UUID::generate();
    ListLabels labels(document);
    EXPECT_EQ(labels.next(makeReference(first->getUUID(), 0, tag)), "1.");
    EXPECT_EQ(labels.next(makeReference(second->getUUID(), 0, tag)), "II)");
    EXPECT_EQ(labels.next(makeReference(first->getUUID(), 0, tag)), "3.");
    EXPECT_EQ(labels.next(makeReference(first->getUUID(), 0)), "1."); // without a tag, it counts for itself
}

TEST(ListLabels, RestartedLevelBeginsOnceInEachList)
{
    DOM::Document document;
    const auto first = makeList({
        {Type::Decimal, "%1"   },
        {Type::Decimal, "%1.%2"}
    });
    const auto second = makeList({
        {Type::Decimal, "%1", 5},
        {Type::Decimal,             "%1.%2"    }
    });
    second->setRestartedLevels({0});
    document.addNumberedList(first);
    document.addNumberedList(second);
    const UUID tag = UUID::generate();
    ListLabels labels(document);
    EXPECT_EQ(labels.next(makeReference(first->getUUID(), 0, tag)), "1");
    EXPECT_EQ(labels.next(makeReference(first->getUUID(), 0, tag)), "2");
    EXPECT_EQ(labels.next(makeReference(second->getUUID(), 1, tag)), "2.1"); // another level restarts nothing
    EXPECT_EQ(labels.next(makeReference(second->getUUID(), 0, tag)), "5");
    EXPECT_EQ(labels.next(makeReference(second->getUUID(), 1, tag)), "5.1");
    EXPECT_EQ(labels.next(makeReference(second->getUUID(), 0, tag)), "6");
    EXPECT_EQ(labels.next(makeReference(first->getUUID(), 0, tag)), "7");
}

TEST(ListLabels, UnknownListHasNoLabel)
{
    const DOM::Document document;
    ListLabels labels(document);
    EXPECT_EQ(labels.next(makeReference(UUID::generate(), 0)), "");
    EXPECT_EQ(labels.next(DOM::NumberingRef()), "");
}

TEST(ListLabels, LevelWithoutMarkerIsCountedSilently)
{
    DOM::Document document;
    auto list = std::make_shared<DOM::NumberedList>();
    list->appendLevel(std::make_unique<DOM::NumberingLevel>());
    document.addNumberedList(list);
    ListLabels labels(document);
    EXPECT_EQ(labels.next(makeReference(list->getUUID(), 0)), "");
}

TEST(ListLabels, LongLabelsEndAtACharacter)
{
    DOM::Document document;
    const auto fitting = makeList({
        {Type::Bullet, std::string(1024, 'x')}
    });
    const auto longer = makeList({
        {Type::Bullet, std::string(1023, 'x') + "\u2022" + std::string(100000, 'y')}
    });
    document.addNumberedList(fitting);
    document.addNumberedList(longer);
    ListLabels labels(document);
    EXPECT_EQ(labels.next(makeReference(fitting->getUUID(), 0)), std::string(1024, 'x'));
    EXPECT_EQ(labels.next(makeReference(longer->getUUID(), 0)), std::string(1023, 'x'));
}

} // namespace
} // namespace QV::Filters
