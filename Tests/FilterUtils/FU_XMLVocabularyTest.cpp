#include <FilterUtils/FU_XMLVocabulary.h>

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/RecordedAssertions.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const XMLVocabulary Words(
    {
        {"x",     {"urn:new", "urn:old"}},
        {"none",  {}                    },
        {"empty", {""}                  }
},
    {{0, "x:row"}, {1, "row"}, {2, "urn:new:cell"}, {2, "x:gone"}, {7, "y:row"}, {8, "none:row"},
        {9, "empty:e"}});

std::vector<std::string> getSpellings(int id)
{
    std::vector<std::string> result;
    for (const XMLVocabulary::Spelling& spelling : Words.getSpellings(id))
        result.push_back(std::string(spelling.uri.begin(), spelling.uri.end()) + "|" +
                         std::string(spelling.localName.begin(), spelling.localName.end()));
    return result;
}

TEST(XMLVocabulary, FindsNamesInEveryUriOfTheirNamespace)
{
    EXPECT_EQ(Words.findId(u"urn:new", u"row"), 0);
    EXPECT_EQ(Words.findId(u"urn:old", u"row"), 0);
    EXPECT_EQ(Words.findId(u"", u"row"), 1);
    EXPECT_EQ(Words.findId(u"urn:new", u"cell"), 2);
    EXPECT_EQ(Words.findId(u"urn:old", u"gone"), 2);
    EXPECT_EQ(Words.findId(u"y", u"row"), 7);
    EXPECT_EQ(Words.findId(u"", u"e"), 9);
}

TEST(XMLVocabulary, KnowsNoOtherNames)
{
    EXPECT_EQ(Words.findId(u"urn:old", u"cell"), XMLVocabulary::Unknown);
    EXPECT_EQ(Words.findId(u"x", u"row"), XMLVocabulary::Unknown);
    EXPECT_EQ(Words.findId(u"none", u"row"), XMLVocabulary::Unknown);
    EXPECT_EQ(Words.findId(u"", u"Row"), XMLVocabulary::Unknown);
    EXPECT_EQ(Words.findId(u"", u""), XMLVocabulary::Unknown);
}

TEST(XMLVocabulary, ListsSpellings)
{
    EXPECT_THAT(getSpellings(0), ElementsAre("urn:new|row", "urn:old|row"));
    EXPECT_THAT(getSpellings(1), ElementsAre("|row"));
    EXPECT_THAT(getSpellings(2), ElementsAre("urn:new|cell", "urn:new|gone", "urn:old|gone"));
    for (const int unused : {-1, 3, 8, 10, 10'000})
        EXPECT_THAT(getSpellings(unused), IsEmpty()) << unused;
}

TEST(XMLVocabulary, AssertsOnWordsThatCannotBe)
{
    const Tests::RecordedAssertions assertions;
    const XMLVocabulary words(
        {
    },
        {{-1, "negative"}, {10'000, "large"}, {9'999, "last"}, {0, "\xFF"}, {1, "twice"}, {2, "twice"},
            {1, "twice"}});
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("isInRange", "isInRange", "isUtf8", "hasOneId"));
    EXPECT_EQ(words.findId(u"", u"negative"), XMLVocabulary::Unknown);
    EXPECT_EQ(words.findId(u"", u"large"), XMLVocabulary::Unknown);
    EXPECT_EQ(words.findId(u"", u"last"), 9'999);
    EXPECT_EQ(words.findId(u"", u"twice"), 1);
    EXPECT_THAT(words.getSpellings(0), IsEmpty());
    EXPECT_EQ(words.getSpellings(1).size(), 1U);
    EXPECT_THAT(words.getSpellings(2), IsEmpty());
}

} // namespace
} // namespace QV::FilterUtils
