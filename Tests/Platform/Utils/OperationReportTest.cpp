#include <Utils/Public/OperationReport.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <boost/variant/get.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/RecordedLog.h>

namespace QV {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::RecordedLog;

using Message = OperationReport::Message;

std::vector<std::string> readArguments(const Message& message)
{
    std::vector<std::string> texts;
    for (const Message::Argument& argument : message.getArguments())
        texts.push_back(boost::get<std::string>(argument));
    return texts;
}

struct PatternRow
{
    const char* name;
    std::string text;
    std::vector<std::string> arguments;
    std::string formatted;
};

void PrintTo(const PatternRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.text);
}

// name, text, arguments, formatted
const PatternRow PatternRows[] = {
    {"Automatic",        "Unknown units in {}",  {"12"},     "Unknown units in 12" },
    {"Numbered",         "Incorrect color: {0}", {"#zz"},    "Incorrect color: #zz"},
    {"TwoAutomatic",     "\"{}\" became \"{}\"", {"a", "b"}, "\"a\" became \"b\""  },
    {"TwoNumbered",      "{1} was {0}",          {"a", "b"}, "b was a"             },
    {"NumberedTwice",    "{0} and {0}",          {"a"},      "a and a"             },
    {"NoPlaceholder",    "plain",                {"a"},      "plain"               },
    {"Escaped",          "{{}} {}",              {"a"},      "{} a"                },
    {"EmptyArgument",    "[{}]",                 {""},       "[]"                  },
    {"BracesInArgument", "[{}]",                 {"{0}{"},   "[{0}{]"              },
    {"EmptyText",        "",                     {"a"},      ""                    },
    {"TooManyPlaces",    "{} {}",                {"a"},      "{} {}"               },
    {"NumberTooHigh",    "{1}",                  {"a"},      "{1}"                 },
    {"Unclosed",         "broken {",             {"a"},      "broken {"            },
    {"UnopenedBrace",    "broken }",             {"a"},      "broken }"            },
    {"MixedNumbering",   "{0} {}",               {"a", "b"}, "{0} {}"              },
    {"FormatOfNumbers",  "{:d}",                 {"a"},      "{:d}"                },
};

class MessagePattern : public testing::TestWithParam<PatternRow>
{
};

TEST_P(MessagePattern, KeepsRow)
{
    const PatternRow& row = GetParam();
    const RecordedLog log;
    OperationReport report;
    if (row.arguments.size() == 1)
        report.emplace_back(row.text, row.arguments[0]);
    else
        report.emplace_back(row.text, row.arguments[0], row.arguments[1]);
    ASSERT_EQ(report.getMessages().size(), 1U);
    const Message& message = report.getMessages().front();
    EXPECT_EQ(message.getText(), row.text);
    EXPECT_EQ(readArguments(message), row.arguments);
    EXPECT_EQ(message.toString(), row.formatted);
    EXPECT_THAT(log.getLines(), ElementsAre(row.formatted));
}

INSTANTIATE_TEST_SUITE_P(Rows, MessagePattern, testing::ValuesIn(PatternRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(OperationReport, KeepsTheOrderAndLogsEachOnceWhileItGrows)
{
    const RecordedLog log;
    OperationReport report;
    std::vector<std::string> expected;
    for (int i = 0; i < 1000; ++i) {
        report.emplace_back("message {}", std::to_string(i));
        expected.push_back("message " + std::to_string(i));
    }
    std::vector<std::string> reported;
    for (const Message& message : report.getMessages())
        reported.push_back(message.toString());
    EXPECT_EQ(reported, expected);
    EXPECT_EQ(log.getLines(), expected);
}

TEST(OperationReport, CopiesAndMovesLogNothing)
{
    OperationReport report;
    report.emplace_back("{} {}", "a", "b");
    const RecordedLog log;
    OperationReport copy(report);
    copy = report;
    const OperationReport moved(std::move(copy));
    Message message(report.getMessages().front());
    const Message taken(std::move(message));
    std::vector<Message> messages = report.getMessages();
    messages.reserve(messages.capacity() * 10);
    EXPECT_THAT(log.getLines(), IsEmpty());
    EXPECT_EQ(moved.getMessages().size(), 1U);
    EXPECT_THAT(readArguments(taken), ElementsAre("a", "b"));
}

TEST(OperationReport, LogsOnRequest)
{
    OperationReport report;
    report.emplace_back("heard {}", "late");
    const RecordedLog log;
    report.getMessages().front().log();
    report.getMessages().front().log();
    EXPECT_THAT(log.getLines(), ElementsAre("heard late", "heard late"));
}

TEST(OperationReport, IsEmptyAtFirst)
{
    EXPECT_THAT(OperationReport().getMessages(), IsEmpty());
}

TEST(OperationReport, KeepsNulBytes)
{
    const RecordedLog log;
    OperationReport report;
    report.emplace_back("[{}]", std::string("1in\0", 4));
    EXPECT_EQ(report.getMessages().front().toString(), std::string("[1in\0]", 6));
    EXPECT_THAT(log.getLines(), ElementsAre(std::string("[1in\0]", 6)));
}

} // namespace
} // namespace QV
