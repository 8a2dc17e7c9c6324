#include <Filters/ModelJson/JsonWriter.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace QV::Filters {
namespace {

template <typename Value>
std::string print(const Value& value)
{
    std::ostringstream out;
    {
        JsonWriter json(out);
        json.write(value);
    }
    return out.str();
}

TEST(JsonWriter, WritesValues)
{
    EXPECT_EQ(print(true), "true");
    EXPECT_EQ(print(-3L), "-3");
    EXPECT_EQ(print(18446744073709551615UL), "18446744073709551615");
    EXPECT_EQ(print(48.0), "48.0");
    EXPECT_EQ(print(48.1F), "48.1");
    EXPECT_EQ(print(-0.0), "-0.0");
    EXPECT_EQ(print(1e300), "1e+300");
    EXPECT_EQ(print(std::numeric_limits<double>::denorm_min()), "5e-324");
    EXPECT_EQ(print(""), "\"\"");
    EXPECT_EQ(print(std::string("a\"b\\c\n\t\x01\0z", 10)), R"("a\"b\\c\n\t\u0001\u0000z")");
    EXPECT_EQ(print("\xC3\xA4\x7F"), "\"\xC3\xA4\x7F\"");
}

TEST(JsonWriter, NumbersReadBackToTheSameDouble)
{
    std::mt19937_64 random(5);
    for (int i = 0; i < 20000; ++i) {
        const unsigned long long bits = random();
        double value = 0;
        static_assert(sizeof(value) == sizeof(bits), "a double of 64 bits");
        std::memcpy(&value, &bits, sizeof(value));
        if (value != value || value - value != 0)
            continue; // JSON has no such numbers
        ASSERT_EQ(std::strtod(print(value).c_str(), nullptr), value);
    }
}

TEST(JsonWriter, NestsWithCommasWhereTheyBelong)
{
    std::ostringstream out;
    {
        JsonWriter json(out);
        json.beginObject();
        json.writeMember("a", 1L);
        json.writeKey("b");
        json.beginArray();
        json.beginArray();
        json.endArray();
        json.beginObject();
        json.writeKey("c");
        json.beginArray();
        json.write(1L);
        json.beginObject();
        json.writeMember("d", 1L);
        json.writeMember("e", 2L);
        json.endObject();
        json.endArray();
        json.endObject();
        json.endArray();
        json.endObject();
    }
    EXPECT_EQ(out.str(), "{\n"
                         "  \"a\": 1,\n"
                         "  \"b\": [\n"
                         "    [],\n"
                         "    {\n"
                         "      \"c\": [\n"
                         "        1,\n"
                         "        {\"d\": 1, \"e\": 2}\n"
                         "      ]\n"
                         "    }\n"
                         "  ]\n"
                         "}\n");
}

TEST(JsonWriter, WritesMoreThanItsBuffer)
{
    std::ostringstream out;
    {
        JsonWriter json(out);
        json.beginArray();
        for (long i = 0; i < 100000; ++i) {
            json.beginArray();
            json.write(i);
            json.endArray();
        }
        json.endArray();
    }
    EXPECT_GT(out.str().size(), 600000U);
    EXPECT_NE(out.str().find("99999"), std::string::npos);
}

} // namespace
} // namespace QV::Filters
