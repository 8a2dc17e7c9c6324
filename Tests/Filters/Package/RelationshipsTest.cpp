#include <Filters/Package/Relationships.h>

#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Utils/Public/OperationReport.h>

#include <Filters/Package/Package.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Tests/Support/ZipBuilder.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::makeRelationship;
using Tests::makeRelationships;
using Tests::makeZip;
using Tests::StrictTypes;
using Tests::TransitionalTypes;

const std::string SheetType = TransitionalTypes + "worksheet";

std::vector<std::string> getTexts(const OperationReport& report)
{
    std::vector<std::string> texts;
    for (const OperationReport::Message& message : report.getMessages())
        texts.push_back(message.toString());
    return texts;
}

// What a list of relationships of xl/workbook.xml is read as: "id -> target" or "id => external target".
std::vector<std::string> readAll(const std::string& elements, OperationReport& report)
{
    Package package = Package::openBytes(makeZip({
        makeRelationships("xl/_rels/workbook.xml.rels", elements),
        {"xl/workbook.xml",           ""},
        {"xl/Worksheets/Sheet 1.xml", ""},
        {"docProps/app.xml",          ""},
    }));
    std::vector<std::string> lines;
    const Relationships relationships = Relationships::read(package, "xl/workbook.xml", report);
    for (const Relationship& relationship : relationships.getAll())
        lines.push_back(relationship.id + (relationship.isExternal ? " => " : " -> ") + relationship.target);
    return lines;
}

TEST(Relationships, LeadToPartsAsTheyAreSpelled)
{
    OperationReport report;
    const std::string elements =
        makeRelationship("a", SheetType, "worksheets/sheet%201.xml") +
        makeRelationship("b", SheetType, "/xl/worksheets/sheet 1.xml#A1", "TargetMode=\"Internal\"") +
        makeRelationship("c", SheetType, "..\\docProps\\App.xml") + makeRelationship("d", SheetType, "#A1");
    EXPECT_THAT(readAll(elements, report),
        ElementsAre("a -> xl/Worksheets/Sheet 1.xml", "b -> xl/Worksheets/Sheet 1.xml",
            "c -> docProps/app.xml", "d -> xl/workbook.xml"));
    EXPECT_THAT(getTexts(report), IsEmpty());
}

struct MessageRow
{
    const char* name;
    std::string element;
    std::vector<std::string> lines;
    std::vector<std::string> messages; // without " in xl/_rels/workbook.xml.rels", which stands for "@"
};

void PrintTo(const MessageRow& row, std::ostream* out)
{
    *out << row.name;
}

const std::string External = "TargetMode=\"External\"";

const MessageRow MessageRows[] = {
    {"NoType",                     "<Relationship Id=\"a\" Target=\"workbook.xml\"/>",            {},
     {"Relationship a@ has no type or no target"}                                                                                                                                                                 },
    {"NoTarget",                   "<Relationship Id=\"a\" Type=\"t\" TargetMode=\"External\"/>", {},
     {"Relationship a@ has no type or no target"}                                                                                                                                                                 },
    {"NoId",                       "<Relationship Type=\"t\" Target=\"workbook.xml\"/>",          {" -> xl/workbook.xml"},
     {"Relationship to xl/workbook.xml@ has no id"}                                                                                                                                                               },
    {"NoIdTwice",
     "<Relationship Type=\"t\" Target=\"workbook.xml\"/><Relationship Type=\"u\" "
        "Target=\"/docProps/app.xml\"/>",                                                         {" -> xl/workbook.xml", " -> docProps/app.xml"},
     {"Relationship to xl/workbook.xml@ has no id", "Relationship to docProps/app.xml@ has no id"}                                                                                                                },
    {"Twice",                      makeRelationship("a",                                          "t",                                             "workbook.xml") + makeRelationship("a",                          "u", "/docProps/app.xml"),
     {"a -> xl/workbook.xml"}, {"Relationship a@ is there twice"}},
    {"Outside",        makeRelationship("a",                                                                    "t",                                                                                 "../../etc/passwd"),                                                                                                                                                {},
     {"Target ../../etc/passwd@ leads out of the package"}},
    {"File", makeRelationship("a","t","file:///etc/passwd"),{},
     {"Target file:///etc/passwd@ leads out of the package"}},
    {"Dangling",                            makeRelationship("a",                                                                                    "t",                                                                                                               "../xl/calcChain.xml"),                                                                                                                                                                                    {},
     {"Target xl/calcChain.xml@ is missing"}},
    {"ExternalOther",
     makeRelationship("a",                                     TransitionalTypes + "externalLinkPath",                                                                                    "file:///a.xlsx",                                                                                                                                          External),
     {"a => file:///a.xlsx"}, {"External target file:///a.xlsx@ is not followed"}},
    {"LinkedPicture",                         makeRelationship("a",TransitionalTypes + "image","file:///a.png",                                                                                                                                                                       External),
     {"a => file:///a.png"}, {}},
    {"Hyperlink",              makeRelationship("a",                                                                        TransitionalTypes + "hyperlink",                                             "http://a/../b#c",         External),
     {"a => http://a/../b#c"}, {}},
    {"StrictLink",      makeRelationship("a",                StrictTypes + "hyperlink",                                                               "mailto:x",                                                                                                                "TargetMode=\"external\""),
     {"a => mailto:x"}, {}},
    {"OtherElement", "<Other Id=\"a\" Type=\"t\" Target=\"workbook.xml\"/>",                                                                   {},                                                                                                                                                                                              {}                                                                                                                                                                                       },
};

class RelationshipMessages : public testing::TestWithParam<MessageRow>
{
};

TEST_P(RelationshipMessages, KeepRow)
{
    OperationReport report;
    EXPECT_EQ(readAll(GetParam().element, report), GetParam().lines);
    std::vector<std::string> messages;
    for (std::string message : GetParam().messages)
        messages.push_back(message.replace(message.find('@'), 1, " in xl/_rels/workbook.xml.rels"));
    EXPECT_EQ(getTexts(report), messages);
}

INSTANTIATE_TEST_SUITE_P(Rows, RelationshipMessages, testing::ValuesIn(MessageRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Relationships, AreFoundByIdAndType)
{
    OperationReport report;
    Package package = Package::openBytes(makeZip({
        makeRelationships("_rels/.rels", "<Relationship Type=\"t\" Target=\"a\"/>" +
                                             makeRelationship("x", SheetType, "a") +
                                             makeRelationship("y", SheetType, "b")),
        {"a", ""},
        {"b", ""},
    }));
    const Relationships relationships = Relationships::read(package, "", report);
    ASSERT_NE(relationships.findById("y"), nullptr);
    EXPECT_EQ(relationships.findById("y")->target, "b");
    EXPECT_EQ(relationships.findById("z"), nullptr);
    EXPECT_EQ(relationships.findById(""), nullptr);
    ASSERT_NE(relationships.findByType("worksheet"), nullptr);
    EXPECT_EQ(relationships.findByType("worksheet")->id, "x");
    EXPECT_EQ(relationships.findByType("sheet"), nullptr);
}

TEST(Relationships, MayBeMissingOrMalformed)
{
    OperationReport report;
    Package package = Package::openBytes(makeZip({
        {"_rels/.rels", "<Relationships"}
    }));
    const Relationships missing = Relationships::read(package, "xl/workbook.xml", report);
    EXPECT_THAT(missing.getAll(), IsEmpty());
    EXPECT_THAT(getTexts(report), IsEmpty());
    const Relationships malformed = Relationships::read(package, "", report);
    EXPECT_THAT(malformed.getAll(), IsEmpty());
    EXPECT_THAT(getTexts(report), ElementsAre("Part _rels/.rels is not well-formed XML, line 1"));
}

struct TypeRow
{
    const char* name;
    std::string type;
    const char* family;
    bool isType;
};

void PrintTo(const TypeRow& row, std::ostream* out)
{
    *out << row.name;
}

const std::string PackageTypes = "http://schemas.openxmlformats.org/package/2006/relationships/";

const TypeRow TypeRows[] = {
    {"Transitional",  SheetType,                                                               "worksheet",                true },
    {"Strict",        StrictTypes + "worksheet",                                               "worksheet",                true },
    {"OfPackages",    PackageTypes + "metadata/core-properties",                               "metadata/core-properties", true },
    {"PrefixCase",    "http://schemas.openxmlformats.org/officedocument/2006/relationships/x", "x",                        true },
    {"FamilyCase",    SheetType,                                                               "Worksheet",                false},
    {"LastPartAlone", PackageTypes + "metadata/core-properties",                               "core-properties",          false},
    {"OtherMaker",    "http://example.com/2006/relationships/worksheet",                       "worksheet",                false},
    {"Longer",        SheetType + "s",                                                         "worksheet",                false},
    {"Shorter",       TransitionalTypes + "workshee",                                          "worksheet",                false},
    {"EmptyFamily",   TransitionalTypes,                                                       "worksheet",                false},
    {"Empty",         "",                                                                      "worksheet",                false},
};

class IsType : public testing::TestWithParam<TypeRow>
{
};

TEST_P(IsType, KeepsRow)
{
    Relationship relationship;
    relationship.type = GetParam().type;
    EXPECT_EQ(relationship.isType(GetParam().family), GetParam().isType);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, IsType, testing::ValuesIn(TypeRows), [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace QV::Filters
