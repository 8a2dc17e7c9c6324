// What a run and a paragraph have of their named styles: whether they hide it, and the numbering that they
// give.

#include <FilterUtils/FU_NamedStylesFactory.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <boost/container/set.hpp>
#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <Tests/Support/NumRefs.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

using Tests::makeNumRef;
using Tests::NumRef;
using Tests::toText;

// Where run properties stand that a run might be hidden by.
enum Place : std::size_t
{
    TheRun,
    TheParagraph,
    ParagraphParent,
    ParagraphGrandparent,
    RunParent,
    RunGrandparent,
    TrackedOfRun,
    TrackedOfParagraph,
    DefaultStyle,
    Unrelated,
    PlacesCount,
};

/// Equal properties, each an object of its own, in all places.
class HiddenRuns
{
public:
    HiddenRuns()
    {
        DOM::RunProps hidden;
        hidden.setHidden(true);
        for (std::size_t place = 0; place < PlacesCount; ++place) {
            _props.push_back(std::make_shared<const DOM::RunProps>(hidden));
            _styles.push_back(_factory.makeNamedTextStyle(boost::none));
            _styles.back()->setRunProps(_props.back());
        }
        setParent(ParagraphParent, ParagraphGrandparent);
        setParent(RunParent, RunGrandparent);
        _factory.setDefaultParagraphStyleUUID(_styles[DefaultStyle]->getUUID());
        _run.setParentUUID(_styles[RunParent]->getUUID());
        _run.setTrackedParent(_styles[TrackedOfRun]->getUUID());
        _run.setRunProps(_props[TheRun]);
        _paragraph.setParentUUID(_styles[ParagraphParent]->getUUID());
        _paragraph.setTrackedParent(_styles[TrackedOfParagraph]->getUUID());
        _paragraph.setRunProps(_props[TheParagraph]);
    }

    void setParent(Place child, Place parent) { _styles[child]->setParentUUID(_styles[parent]->getUUID()); }

    bool isHiddenBy(const std::vector<Place>& places) const
    {
        boost::container::set<std::shared_ptr<const DOM::RunProps>> hiddenProps;
        for (const Place place : places)
            hiddenProps.insert(_props[place]);
        return isHidden(_factory, hiddenProps, _run, _paragraph);
    }

private:
    NamedStylesFactory _factory;
    std::vector<std::shared_ptr<const DOM::RunProps>> _props;
    std::vector<std::shared_ptr<DOM::NamedTextStyle>> _styles; // some places need none
    DOM::RunStyle _run;
    DOM::ParagraphStyle _paragraph;
};

TEST(IsHidden, LooksInFourPlacesByIdentity)
{
    const HiddenRuns runs;
    for (const Place place :
        {TheRun, TheParagraph, ParagraphParent, ParagraphGrandparent, RunParent, RunGrandparent})
        EXPECT_TRUE(runs.isHiddenBy({place})) << "place " << place;
    for (const Place place : {TrackedOfRun, TrackedOfParagraph, DefaultStyle, Unrelated})
        EXPECT_FALSE(runs.isHiddenBy({place})) << "place " << place;
    EXPECT_FALSE(runs.isHiddenBy({}));
    EXPECT_TRUE(runs.isHiddenBy({Unrelated, RunGrandparent}));
}

// A circle of parents would be walked for ever, so what stands before it was looked at first.
TEST(IsHidden, LooksAtTheRunAndTheParagraphFirst)
{
    HiddenRuns runs;
    runs.setParent(ParagraphGrandparent, ParagraphParent);
    runs.setParent(RunGrandparent, RunParent);
    EXPECT_TRUE(runs.isHiddenBy({TheRun}));
    EXPECT_TRUE(runs.isHiddenBy({TheParagraph}));
}

TEST(IsHidden, GoesUpwards)
{
    HiddenRuns runs;
    runs.setParent(ParagraphGrandparent, ParagraphGrandparent);
    EXPECT_TRUE(runs.isHiddenBy({ParagraphParent}));
    HiddenRuns others;
    others.setParent(RunGrandparent, RunGrandparent);
    EXPECT_TRUE(others.isHiddenBy({RunParent}));
}

TEST(IsHidden, LooksAtTheParagraphsWholeChainBeforeTheRuns)
{
    HiddenRuns runs;
    runs.setParent(RunGrandparent, RunParent);
    EXPECT_TRUE(runs.isHiddenBy({ParagraphGrandparent}));
}

TEST(IsHidden, IsFalseWithoutStyles)
{
    boost::container::set<std::shared_ptr<const DOM::RunProps>> hiddenProps;
    hiddenProps.insert(std::make_shared<const DOM::RunProps>());
    DOM::RunStyle run;
    DOM::ParagraphStyle paragraph;
    EXPECT_FALSE(isHidden(NamedStylesFactory(), hiddenProps, run, paragraph));
    run.setParentUUID(UUID(0, 1));
    paragraph.setParentUUID(UUID(0, 2));
    EXPECT_FALSE(isHidden(NamedStylesFactory(), hiddenProps, run, paragraph));
}

/// The paragraph's own numbering after a strip below a style that gives @p given.
std::string strip(const NumRef& own, const NumRef& given)
{
    NamedStylesFactory factory;
    const auto style = factory.makeNamedTextStyle(boost::none);
    style->setNumRef(makeNumRef(given));
    DOM::ParagraphStyle paragraphStyle;
    paragraphStyle.setParentUUID(style->getUUID());
    DOM::Paragraph paragraph;
    paragraph.setStyle(paragraphStyle);
    paragraph.setNumRef(makeNumRef(own));
    stripNumRef(factory, paragraph);
    return toText(paragraph.getNumRef());
}

struct StripRow
{
    const char* name;
    NumRef own;
    NumRef given;
    NumRef left; // nothing set: null
};

void PrintTo(const StripRow& row, std::ostream* out)
{
    *out << "own " << toText(row.own) << "; given " << toText(row.given);
}

// name, own, given, left
const StripRow StripRows[] = {
    {"Equal",              {1, 2, 3},    {1, 2, 3},    {}         },
    {"EqualNil",           {0, 0, 0},    {0, 0, 0},    {}         },
    {"OtherLevel",         {1, 2, 4},    {1, 2, 3},    {-1, -1, 4}},
    {"OtherList",          {1, 5, 3},    {1, 2, 3},    {-1, 5, -1}},
    {"OtherTag",           {5, 2, 3},    {1, 2, 3},    {5, -1, -1}},
    {"LevelZero",          {1, 2, 0},    {1, 2, 3},    {-1, -1, 0}},
    {"AllOther",           {4, 5, 6},    {1, 2, 3},    {4, 5, 6}  },
    {"GivenLevelAlone",    {1, 2, 3},    {-1, -1, 3},  {1, 2, -1} },
    {"OwnLevelAloneEqual", {-1, -1, 3},  {1, 2, 3},    {}         },
    {"OwnEmpty",           {-1, -1, -1}, {1, 2, 3},    {}         },
    {"NothingGiven",       {1, 2, 3},    {-1, -1, -1}, {1, 2, 3}  },
};

class StripNumRef : public testing::TestWithParam<StripRow>
{
};

TEST_P(StripNumRef, KeepsRow)
{
    const StripRow& row = GetParam();
    EXPECT_EQ(strip(row.own, row.given), isEmpty(*makeNumRef(row.left)) ? "null" : toText(row.left));
}

INSTANTIATE_TEST_SUITE_P(Rows, StripNumRef, testing::ValuesIn(StripRows),
    [](const auto& row) { return std::string(row.param.name); });

// Each of tag, list and level: not set, or one of two own values; and not given, or given as the first.
TEST(StripNumRef, LeavesWhatIsNotGiven)
{
    const std::vector<std::pair<int, int>> fields = {
        {-1, -1},
        {-1, 0 },
        {0,  -1},
        {0,  0 },
        {1,  -1},
        {1,  0 },
    };
    const auto getLeft = [](const std::pair<int, int>& field) {
        return field.first == field.second ? -1 : field.first;
    };
    for (const auto& tag : fields)
        for (const auto& list : fields)
            for (const auto& level : fields) {
                const NumRef own{tag.first, list.first, level.first};
                const NumRef given{tag.second, list.second, level.second};
                const NumRef left{getLeft(tag), getLeft(list), getLeft(level)};
                const bool isAllGiven = !isEmpty(*makeNumRef(given)) && isEmpty(*makeNumRef(left));
                EXPECT_EQ(strip(own, given), isAllGiven ? "null" : toText(left))
                    << "own " << toText(own) << "; given " << toText(given);
            }
}

TEST(StripNumRef, LeavesAParagraphWithoutNumbering)
{
    NamedStylesFactory factory;
    const auto style = factory.makeNamedTextStyle(boost::none);
    style->setNumRef(makeNumRef({1, 2, 3}));
    factory.setDefaultParagraphStyleUUID(style->getUUID());
    DOM::Paragraph paragraph;
    stripNumRef(factory, paragraph);
    EXPECT_EQ(paragraph.getNumRef(), nullptr);
}

TEST(StripNumRef, LooksAtTheDefaultStyleWhereThereIsNoParent)
{
    NamedStylesFactory factory;
    const auto style = factory.makeNamedTextStyle(boost::none);
    style->setNumRef(makeNumRef({1, 2, 3}));
    factory.setDefaultParagraphStyleUUID(style->getUUID());
    DOM::Paragraph paragraph;
    paragraph.setNumRef(makeNumRef({1, 2, 4}));
    stripNumRef(factory, paragraph);
    EXPECT_EQ(toText(paragraph.getNumRef()), toText({-1, -1, 4}));
}

TEST(StripNumRef, FollowsTrackedParents)
{
    NamedStylesFactory factory;
    const auto present = factory.makeNamedTextStyle(boost::none);
    present->setNumRef(makeNumRef({1, 1, 1}));
    const auto tracked = factory.makeNamedTextStyle(boost::none);
    tracked->setNumRef(makeNumRef({2, 2, 2}));
    DOM::ParagraphStyle style;
    style.setParentUUID(present->getUUID());
    style.setTrackedParent(tracked->getUUID());
    DOM::Paragraph paragraph;
    paragraph.setStyle(style);
    paragraph.setNumRef(makeNumRef({1, 2, 1}));
    stripNumRef(factory, paragraph);
    EXPECT_EQ(toText(paragraph.getNumRef()), toText({1, -1, 1}));
}

} // namespace
} // namespace QV::FilterUtils
