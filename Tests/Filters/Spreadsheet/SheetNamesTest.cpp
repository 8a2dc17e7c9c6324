#include <Filters/Spreadsheet/SheetNames.h>

#include <set>
#include <string>

#include <gtest/gtest.h>

#include <DOM/Public/TableNames.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

TEST(SheetNames, StayWhereTheyAreValidAndFree)
{
    SheetNames names;
    OperationReport report;
    EXPECT_EQ(names.makeName("One", report), "One");
    EXPECT_EQ(names.makeName("Two", report), "Two");
    EXPECT_EQ(report.getMessages().size(), 0U);
}

TEST(SheetNames, GetANumberWhereTheyAreTaken)
{
    SheetNames names;
    OperationReport report;
    EXPECT_EQ(names.makeName("One (2)", report), "One (2)");
    EXPECT_EQ(names.makeName("One", report), "One");
    EXPECT_EQ(names.makeName("ONE", report), "ONE (3)") << "letters in any case; One (2) is there already";
    EXPECT_EQ(names.makeName("one", report), "one (4)");
    ASSERT_EQ(report.getMessages().size(), 2U);
    EXPECT_EQ(report.getMessages()[0].toString(), "Sheet name ONE is taken; the sheet is named ONE (3)");
}

TEST(SheetNames, AreMadeUniqueAfterTheyAreMadeValid)
{
    SheetNames names;
    OperationReport report;
    EXPECT_EQ(names.makeName("a/b", report), "a_b");
    EXPECT_EQ(names.makeName("a?b", report), "a_b (2)");
    EXPECT_EQ(names.makeName("", report), "_");
    ASSERT_EQ(report.getMessages().size(), 4U);
    EXPECT_EQ(report.getMessages()[1].toString(), "Table name 'a?b' is invalid. Fixed table name is 'a_b'.");
}

TEST(SheetNames, AreCutToMakeRoomForTheNumber)
{
    SheetNames names;
    OperationReport report;
    const std::string longest(31, 'a');
    names.makeName(longest, report);
    EXPECT_EQ(names.makeName(longest, report), std::string(27, 'a') + " (2)");

    std::string pairs;
    for (int i = 0; i < 15; ++i)
        pairs += "\xF0\x9F\x98\x80"; // two units each
    names.makeName(pairs, report);
    EXPECT_EQ(names.makeName(pairs, report), pairs.substr(0, 52) + " (2)");
}

TEST(SheetNames, AreFoundInManyEqualOnes)
{
    SheetNames names;
    OperationReport report;
    std::set<std::string> made;
    for (int i = 0; i < 10000; ++i) {
        const std::string name = names.makeName("Sheet", report);
        ASSERT_TRUE(DOM::validateTableName(name)) << name;
        made.insert(name);
    }
    EXPECT_EQ(made.size(), 10000U);
}

} // namespace
} // namespace QV::Filters
