#include <Filters/Presentation/Placeholders.h>

#include <cstddef>
#include <ostream>
#include <sstream>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Shape.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/XercesEnvironment.h>

namespace QV::Filters {
namespace {

DOM::Placeholder makePlaceholder(const char* type, unsigned long index)
{
    DOM::Placeholder placeholder;
    placeholder.type = type;
    placeholder.index = index;
    return placeholder;
}

struct SourceRow
{
    const char* name;
    const char* sources; // TYPE:INDEX, separated by blanks
    const char* type;
    unsigned long index;
    int forSlide; // the place among the sources; -1 for none
    int forLayout;
};

void PrintTo(const SourceRow& row, std::ostream* out)
{
    *out << row.type << ':' << row.index << " in " << row.sources;
}

const SourceRow SourceRows[] = {
    {"Empty",                  "",                           "body",     1,          -1, -1},
    {"IndexOfTheSameType",     "title:0 body:1 body:2",      "body",     2,          2,  1 },
    {"IndexOfOtherContent",    "title:0 body:1 pic:2",       "obj",      2,          2,  1 },
    {"ContentOfNoIndex",       "title:0 body:1",             "obj",      7,          -1, 1 },
    {"FirstOfAnIndex",         "body:1 obj:1",               "obj",      1,          0,  0 },
    {"KindGoesBeforeOrder",    "body:0 title:0",             "title",    0,          1,  1 },
    {"CentredTitleIsATitle",   "body:1 ctrTitle:0",          "title",    0,          1,  1 },
    {"TitleIsACentredTitle",   "body:1 title:0",             "ctrTitle", 0,          1,  1 },
    {"TitleOfAnotherIndex",    "title:3 body:1",             "title",    0,          0,  0 },
    {"DateOfAnotherIndex",     "body:1 dt:10 ftr:11",        "dt",       4,          1,  1 },
    {"FooterOfAnotherIndex",   "body:1 dt:10 ftr:11",        "ftr",      4,          2,  2 },
    {"NumberOfAnotherIndex",   "body:1 dt:10 sldNum:12",     "sldNum",   4,          2,  2 },
    {"NumberOfContentsIndex",  "body:4 sldNum:12",           "sldNum",   4,          1,  1 },
    {"NumberIsNoDate",         "dt:10 ftr:11",               "sldNum",   12,         -1, -1},
    {"TitleBesidesContent",    "body:0",                     "title",    0,          -1, -1},
    {"ContentBesidesATitle",   "title:0 dt:10",              "body",     0,          -1, -1},
    {"ContentWithoutAnIndex",  "title:0 body:1 obj:2",       "obj",      0,          1,  1 },
    {"ContentOfANumbersIndex", "sldNum:4 body:1",            "obj",      4,          0,  1 },
    {"SubtitleIsContent",      "title:0 dt:2 body:1",        "subTitle", 1,          2,  2 },
    {"PictureIsContent",       "title:0 body:1",             "pic",      13,         -1, 1 },
    {"UnknownTypeIsContent",   "title:0 body:1",             "hologram", 1,          1,  1 },
    {"LargestIndex",           "sldNum:4294967295 sldNum:1", "sldNum",   4294967295, 0,  0 },
};

/// The sources of a row; each has its place among them for the width of its line.
PlaceholderSources makeSources(const std::string& text)
{
    PlaceholderSources sources;
    std::istringstream stream(text);
    int place = 0;
    for (std::string word; stream >> word; ++place) {
        const std::size_t colon = word.find(':');
        PlaceholderSource source;
        source.placeholder =
            makePlaceholder(word.substr(0, colon).c_str(), std::stoul(word.substr(colon + 1)));
        source.props.setLineWidth(static_cast<float>(place));
        sources.add(source);
    }
    return sources;
}

int getPlace(const PlaceholderSource* source)
{
    return source ? static_cast<int>(*source->props.getLineWidth()) : -1;
}

class FindSource : public testing::TestWithParam<SourceRow>
{
};

TEST_P(FindSource, KeepsRow)
{
    const SourceRow& row = GetParam();
    const PlaceholderSources sources = makeSources(row.sources);
    const DOM::Placeholder placeholder = makePlaceholder(row.type, row.index);
    EXPECT_EQ(getPlace(sources.findForSlide(placeholder)), row.forSlide);
    EXPECT_EQ(getPlace(sources.findForLayout(placeholder)), row.forLayout);
}

INSTANTIATE_TEST_SUITE_P(Rows, FindSource, testing::ValuesIn(SourceRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(GetTextStyleKind, FollowsTheType)
{
    EXPECT_EQ(getTextStyleKind(boost::none), TextStyleKind::Other);
    for (const char* const type : {"title", "ctrTitle"})
        EXPECT_EQ(getTextStyleKind(makePlaceholder(type, 0)), TextStyleKind::Title) << type;
    for (const char* const type :
        {"body", "subTitle", "obj", "chart", "tbl", "clipArt", "dgm", "media", "pic", "hologram", ""})
        EXPECT_EQ(getTextStyleKind(makePlaceholder(type, 0)), TextStyleKind::Body) << type;
    for (const char* const type : {"dt", "ftr", "sldNum", "hdr"})
        EXPECT_EQ(getTextStyleKind(makePlaceholder(type, 0)), TextStyleKind::Other) << type;
}

struct ReadRow
{
    const char* name;
    const char* attributes;
    const char* type;
    unsigned long index;
    const char* message; // null for none
};

void PrintTo(const ReadRow& row, std::ostream* out)
{
    *out << row.attributes;
}

const ReadRow ReadRows[] = {
    {"Nothing",      "",                           "obj",   0,          nullptr                                         },
    {"Type",         "type='title'",               "title", 0,          nullptr                                         },
    {"Index",        "idx='13'",                   "obj",   13,         nullptr                                         },
    {"Both",         "type='dt' idx='10'",         "dt",    10,         nullptr                                         },
    {"LargestIndex", "idx='4294967295'",           "obj",   4294967295, nullptr                                         },
    {"TooLarge",     "idx='4294967296'",           "obj",   0,          "Placeholder index 4294967296 is none"          },
    {"Overflow",     "idx='99999999999999999999'", "obj",   0,          "Placeholder index 99999999999999999999 is none"},
    {"Negative",     "type='dt' idx='-1'",         "dt",    0,          "Placeholder index -1 is none"                  },
    {"Word",         "idx='one'",                  "obj",   0,          "Placeholder index one is none"                 },
    {"Blank",        "idx=' 1'",                   "obj",   0,          "Placeholder index  1 is none"                  },
    {"Empty",        "idx=''",                     "obj",   0,          "Placeholder index  is none"                    },
};

class ReadPlaceholder : public testing::TestWithParam<ReadRow>
{
};

TEST_P(ReadPlaceholder, KeepsRow)
{
    const ReadRow& row = GetParam();
    std::istringstream stream("<ph " + std::string(row.attributes) + "/>");
    OperationReport report;
    const auto placeholder =
        readPlaceholder(FilterUtils::XMLElement::getRootElement(stream, boost::none), report);
    ASSERT_TRUE(placeholder);
    EXPECT_EQ(placeholder->type, row.type);
    EXPECT_EQ(placeholder->index, row.index);
    EXPECT_FALSE(placeholder->isPlaceInherited);
    ASSERT_EQ(report.getMessages().size(), row.message ? 1U : 0U);
    if (row.message) {
        EXPECT_EQ(report.getMessages().front().toString(), row.message);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ReadPlaceholder, testing::ValuesIn(ReadRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReadPlaceholderOfNoElement, IsNone)
{
    OperationReport report;
    EXPECT_FALSE(readPlaceholder({}, report));
    EXPECT_TRUE(report.getMessages().empty());
}

} // namespace
} // namespace QV::Filters
