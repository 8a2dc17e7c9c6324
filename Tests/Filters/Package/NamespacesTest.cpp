#include <Filters/Package/Namespaces.h>

#include <set>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

namespace QV::Filters {
namespace {

TEST(GetNamespace, GivesTheDialectsOwn)
{
    EXPECT_EQ(getNamespace(Vocabulary::Spreadsheet, Dialect::Transitional),
        "http://schemas.openxmlformats.org/spreadsheetml/2006/main");
    EXPECT_EQ(getNamespace(Vocabulary::Spreadsheet, Dialect::Strict),
        "http://purl.oclc.org/ooxml/spreadsheetml/main");
    EXPECT_EQ(getNamespace(Vocabulary::WordProcessingDrawing, Dialect::Transitional),
        "http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing");
    EXPECT_EQ(getNamespace(Vocabulary::ExtendedProperties, Dialect::Transitional),
        "http://schemas.openxmlformats.org/officeDocument/2006/extended-properties");
    EXPECT_EQ(getNamespace(Vocabulary::ExtendedProperties, Dialect::Strict),
        "http://purl.oclc.org/ooxml/officeDocument/extendedProperties");
    EXPECT_EQ(getNamespace(Vocabulary::MarkupCompatibility, Dialect::Strict),
        "http://schemas.openxmlformats.org/markup-compatibility/2006");
    EXPECT_EQ(getNamespace(Vocabulary::CoreProperties, Dialect::Transitional),
        "http://schemas.openxmlformats.org/package/2006/metadata/core-properties");
}

// The table follows the enumeration: no two vocabularies share a namespace, and each finds its dialect.
TEST(GetNamespace, HasOneForEachVocabulary)
{
    std::set<std::string> transitional;
    std::set<std::string> strict;
    const int count = static_cast<int>(Vocabulary::CoreProperties) + 1;
    for (int i = 0; i < count; ++i) {
        const auto vocabulary = static_cast<Vocabulary>(i);
        const std::string& first = getNamespace(vocabulary, Dialect::Transitional);
        const std::string& second = getNamespace(vocabulary, Dialect::Strict);
        EXPECT_TRUE(transitional.insert(first).second) << first;
        EXPECT_TRUE(strict.insert(second).second) << second;
        const bool isShared = vocabulary >= Vocabulary::MarkupCompatibility;
        EXPECT_EQ(first == second, isShared);
        using Found = boost::optional<Dialect>;
        EXPECT_TRUE(findDialectOfNamespace(first) == (isShared ? Found() : Found(Dialect::Transitional)))
            << first;
        EXPECT_TRUE(findDialectOfNamespace(second) == (isShared ? Found() : Found(Dialect::Strict)))
            << second;
    }
}

TEST(FindDialectOfNamespace, KnowsNoOthers)
{
    EXPECT_FALSE(findDialectOfNamespace(""));
    EXPECT_FALSE(findDialectOfNamespace("http://schemas.openxmlformats.org/"));
}

TEST(Names, AreQualified)
{
    EXPECT_EQ(Names(Dialect::Strict)(Vocabulary::Drawing, "blip"),
        "http://purl.oclc.org/ooxml/drawingml/main:blip");
    EXPECT_EQ(Names(Dialect::Transitional)(Vocabulary::Relationships, "id"),
        "http://schemas.openxmlformats.org/officeDocument/2006/relationships:id");
}

} // namespace
} // namespace QV::Filters
