#include <FilterUtils/FU_TableOfContentsLevelsFiller.h>

#include <atomic>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/TableOfContents.h>
#include <FieldsEngine/Public/GeneratedBookmarkPrefix.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

using DOM::PredefinedStyleName;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Tests::RecordedAssertions;

// Comes first, so that the threads are the first to ask.
TEST(IsTableOfContentsBookmark, MayBeAskedByManyThreads)
{
    std::atomic<int> wrong(0);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 8; ++thread)
        threads.emplace_back([&] {
            for (int i = 0; i < 200; ++i) {
                const std::string name = "_Toc" + std::to_string(i);
                if (!isTableOfContentsBookmark(name) || isTableOfContentsBookmark(name + "x"))
                    ++wrong;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

struct BookmarkRow
{
    const char* name;
    std::string bookmark;
    bool isGenerated;
};

void PrintTo(const BookmarkRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.bookmark);
}

// name, bookmark, isGenerated
const BookmarkRow BookmarkRows[] = {
    {"Toc",                    "_Toc123",                   true                  },
    {"TocOneDigit",            "_Toc0",                     true                  },
    {"RefHeading",             "__RefHeading___Toc12_34",   true                  },
    {"RefHeadingOneDigitEach", "__RefHeading___Toc1_2",     true                  },
    {"TocLong",                "_Toc" + std::string(100000, '9'),                   true},
    {"Empty",                        "",                                             false                                         },
    {"NoDigits",                        "_Toc",                                          false},
    {"LetterBehind",                        "_Toc12a",                                      false                                  },
    {"LetterBefore",                        "x_Toc12",                                      false},
    {"BlankBefore",                        " _Toc12",                                       false                                   },
    {"BlankBehind",                        "_Toc12 ",                                       false},
    {"LineFeedBehind",                        "_Toc12\n",                                    false                               },
    {"LineFeedBefore",                        "\n_Toc12",                                    false},
    {"SecondLine",                        "_Toc12\nx",                                        false                                  },
    {"NulBehind",                        {"_Toc12\0", 7},                                         false},
    {"LowerCase",                        "_toc12",                                         false                                         },
    {"NoUnderline",                        "Toc12",                                       false},
    {"Sign",                        "_Toc-12",                                              false                                              },
    {"TocWithTwoNumbers",                        "_Toc12_34",                                 false},
    {"ForeignDigit",                        "_Toc\xD9\xA3",                                      false                                                },
    {"RefHeadingOneNumber",                        "__RefHeading___Toc12",                               false},
    {"RefHeadingNoFirst",                        "__RefHeading___Toc_34",                                 false                                                 },
    {"RefHeadingNoSecond",                        "__RefHeading___Toc12_",                                false},
    {"RefHeadingThreeNumbers",                        "__RefHeading___Toc1_2_3",                            false                                           },
    {"RefHeadingTwoUnderlines",                        "__RefHeading__Toc12_34",                           false},
    {"RefHeadingLetterBefore",                        "x__RefHeading___Toc12_34",                            false                                          },
};

class IsTableOfContentsBookmark : public testing::TestWithParam<BookmarkRow>
{
};

TEST_P(IsTableOfContentsBookmark, KeepsRow)
{
    EXPECT_EQ(isTableOfContentsBookmark(GetParam().bookmark), GetParam().isGenerated);
}

INSTANTIATE_TEST_SUITE_P(Rows, IsTableOfContentsBookmark, testing::ValuesIn(BookmarkRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(IsTableOfContentsBookmark, KnowsTheGeneratedPrefix)
{
    const std::string& prefix = FieldsEngine::GeneratedBookmarkPrefix;
    EXPECT_TRUE(isTableOfContentsBookmark(prefix + "7"));
    EXPECT_TRUE(isTableOfContentsBookmark(prefix + "1234567890"));
    EXPECT_FALSE(isTableOfContentsBookmark(prefix));
    EXPECT_FALSE(isTableOfContentsBookmark(prefix + "7a"));
    EXPECT_FALSE(isTableOfContentsBookmark("x" + prefix + "7"));
}

class TableOfContentsLevelsFillerTest : public testing::Test
{
protected:
    std::vector<std::pair<UUID, unsigned long>> getHeadingStylesLevels() const
    {
        std::vector<std::pair<UUID, unsigned long>> pairs;
        for (const DOM::TableOfContentsInfo::StyleLevelInfo& info : _info.getHeadingStylesLevels())
            pairs.emplace_back(info.getStyleUUID(), info.getLevel());
        return pairs;
    }

    std::vector<unsigned long> getShownLevels() const
    {
        std::vector<unsigned long> levels;
        for (const auto& level : _info.getLevelsStyleInfo())
            levels.push_back(level.first);
        return levels;
    }

    DOM::TableOfContentsInfo _info;
    NamedStylesFactory _factory;
    TableOfContentsLevelsFiller::NewStyles _newStyles;
    TableOfContentsLevelsFiller::PredefinedStyles _predefinedStyles;
    TableOfContentsLevelsFiller _filler{_info, _factory, _newStyles, _predefinedStyles};
};

TEST_F(TableOfContentsLevelsFillerTest, ShowsALevelWithoutAStyle)
{
    _filler.addTableOfContentsLevel(3);
    _filler.addTableOfContentsLevel(1);
    EXPECT_THAT(getShownLevels(), ElementsAre(1, 3));
    EXPECT_THAT(getHeadingStylesLevels(), IsEmpty());
    const DOM::TableOfContentsLevelDecorationInfo plain;
    EXPECT_EQ(_info.getLevelsStyleInfo().at(3).hasPageNumber(), plain.hasPageNumber());
    EXPECT_EQ(_info.getLevelsStyleInfo().at(3).isLink(), plain.isLink());
}

TEST_F(TableOfContentsLevelsFillerTest, KeepsTheOrderOfRegistration)
{
    const UUID first(9, 9);
    const UUID second(1, 1);
    _filler.addTableOfContentsLevel(first, 2);
    _filler.addTableOfContentsLevel(second, 1);
    EXPECT_THAT(getHeadingStylesLevels(), ElementsAre(Pair(first, 2), Pair(second, 1)));
    EXPECT_THAT(getShownLevels(), ElementsAre(1, 2));
}

TEST_F(TableOfContentsLevelsFillerTest, LeavesAStyleOnItsFirstLevel)
{
    const UUID style(0, 1);
    _filler.addTableOfContentsLevel(style, 2);
    _filler.addTableOfContentsLevel(style, 3);
    _filler.addTableOfContentsLevel(style, 2);
    EXPECT_THAT(getHeadingStylesLevels(), ElementsAre(Pair(style, 2)));
    EXPECT_THAT(getShownLevels(), ElementsAre(2, 3));
}

TEST_F(TableOfContentsLevelsFillerTest, TakesManyStylesOnOneLevel)
{
    _filler.addTableOfContentsLevel(UUID(0, 1), 2);
    _filler.addTableOfContentsLevel(UUID(0, 2), 2);
    EXPECT_THAT(getHeadingStylesLevels(), ElementsAre(Pair(UUID(0, 1), 2), Pair(UUID(0, 2), 2)));
    EXPECT_THAT(getShownLevels(), ElementsAre(2));
}

TEST_F(TableOfContentsLevelsFillerTest, LeavesDecorationsThatAreThere)
{
    _info.getLevelsStyleInfo()[2].setPageNumber(false);
    _info.getLevelsStyleInfo()[2].setLink(true);
    _filler.addTableOfContentsLevel(2);
    _filler.addTableOfContentsLevel(UUID(0, 1), 2);
    EXPECT_FALSE(_info.getLevelsStyleInfo().at(2).hasPageNumber());
    EXPECT_TRUE(_info.getLevelsStyleInfo().at(2).isLink());
    EXPECT_THAT(getShownLevels(), ElementsAre(2));
}

TEST_F(TableOfContentsLevelsFillerTest, EachFillerRegistersByItself)
{
    const UUID style(0, 1);
    _filler.addTableOfContentsLevel(style, 2);
    TableOfContentsLevelsFiller other(_info, _factory, _newStyles, _predefinedStyles);
    other.addTableOfContentsLevel(style, 3);
    EXPECT_THAT(getHeadingStylesLevels(), ElementsAre(Pair(style, 2), Pair(style, 3)));
}

TEST_F(TableOfContentsLevelsFillerTest, AssertsTheStyle)
{
    const RecordedAssertions assertions;
    _filler.addTableOfContentsLevel(UUID(), 2);
    ASSERT_THAT(assertions.getExpressions(), ElementsAre("styleUUID"));
    EXPECT_THAT(assertions.getFailures()[0].file, testing::EndsWith("FU_TableOfContentsLevelsFiller.cpp"));
    EXPECT_THAT(getHeadingStylesLevels(), IsEmpty());
    EXPECT_THAT(getShownLevels(), IsEmpty());
}

TEST_F(TableOfContentsLevelsFillerTest, MakesAMissingStyleOnce)
{
    const UUID uuid = _filler.findOrCreatePredefinedStyle(PredefinedStyleName::Heading2);
    EXPECT_EQ(uuid, DOM::makePredefinedTextStyleUUID(PredefinedStyleName::Heading2));
    EXPECT_EQ(_filler.findOrCreatePredefinedStyle(PredefinedStyleName::Heading2), uuid);
    ASSERT_EQ(_factory.getTextStyles().size(), 1U);
    const std::shared_ptr<const DOM::NamedTextStyle> style = _factory.getTextStyles().front();
    EXPECT_EQ(style->getUUID(), uuid);
    EXPECT_THAT(_newStyles, ElementsAre(style));
    EXPECT_THAT(_predefinedStyles, ElementsAre(Pair(PredefinedStyleName::Heading2, style)));
    EXPECT_THAT(getHeadingStylesLevels(), IsEmpty());
}

TEST_F(TableOfContentsLevelsFillerTest, MakesStylesInTheOrderOfTheCalls)
{
    _filler.findOrCreatePredefinedStyle(PredefinedStyleName::Heading3);
    _filler.findOrCreatePredefinedStyle(PredefinedStyleName::Heading1);
    ASSERT_EQ(_newStyles.size(), 2U);
    EXPECT_EQ(_newStyles[0], _factory.getTextStyles()[0]);
    EXPECT_EQ(_newStyles[1], _factory.getTextStyles()[1]);
    EXPECT_EQ(_newStyles[0]->getUUID(), DOM::makePredefinedTextStyleUUID(PredefinedStyleName::Heading3));
    EXPECT_EQ(_newStyles[1]->getUUID(), DOM::makePredefinedTextStyleUUID(PredefinedStyleName::Heading1));
}

TEST_F(TableOfContentsLevelsFillerTest, FindsTheStylesOfTheDocument)
{
    const auto style = std::make_shared<DOM::NamedTextStyle>();
    _predefinedStyles.emplace(PredefinedStyleName::Heading1, style);
    EXPECT_EQ(_filler.findOrCreatePredefinedStyle(PredefinedStyleName::Heading1), style->getUUID());
    EXPECT_THAT(_newStyles, IsEmpty());
    EXPECT_THAT(_factory.getTextStyles(), IsEmpty());
}

TEST_F(TableOfContentsLevelsFillerTest, AssertsTheStylesOfTheDocument)
{
    const RecordedAssertions assertions;
    _predefinedStyles.emplace(PredefinedStyleName::Heading1, nullptr);
    EXPECT_THROW(_filler.findOrCreatePredefinedStyle(PredefinedStyleName::Heading1), std::logic_error);
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("plainPtr"));
    EXPECT_THAT(_factory.getTextStyles(), IsEmpty());
}

TEST_F(TableOfContentsLevelsFillerTest, ChangesNothingWhereAStyleCannotBeMade)
{
    const RecordedAssertions assertions;
    const auto unknown = static_cast<PredefinedStyleName>(200);
    EXPECT_THROW(_filler.findOrCreatePredefinedStyle(unknown), std::out_of_range);
    EXPECT_THAT(_factory.getTextStyles(), IsEmpty());
    EXPECT_THAT(_newStyles, IsEmpty());
    EXPECT_THAT(_predefinedStyles, IsEmpty());
}

} // namespace
} // namespace QV::FilterUtils
