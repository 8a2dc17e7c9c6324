// The numbers of functional colours against boost::lexical_cast, whose grammar and ranges they follow.

#include <FilterUtils/FU_Colors.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

#include <boost/lexical_cast.hpp>
#include <gtest/gtest.h>

#include <Tests/Support/Printers.h>
#include <Utils/Public/OperationReport.h>

namespace QV::FilterUtils {
namespace {

boost::optional<unsigned char> castChannel(const std::string& text)
{
    std::int64_t value = 0;
    if (!boost::conversion::try_lexical_convert(text, value))
        return boost::none;
    return static_cast<unsigned char>(value & 0xFF);
}

boost::optional<unsigned char> castAlpha(const std::string& text)
{
    float value = 0;
    if (!boost::conversion::try_lexical_convert(text, value))
        return boost::none;
    const float scaled = 255.0F * value;
    if (std::isnan(scaled))
        return static_cast<unsigned char>(0);
    if (std::isinf(scaled))
        return static_cast<unsigned char>(scaled > 0 ? 255 : 0);
    if (std::fabs(scaled) >= 0x1p62F)
        return static_cast<unsigned char>(0); // a multiple of 256
    return static_cast<unsigned char>(static_cast<std::int64_t>(scaled) & 0xFF);
}

boost::optional<unsigned char> readChannel(const std::string& text)
{
    OperationReport report;
    const auto color = convertToRGBAColor(report, "rgb(1,2," + text + ")");
    return color ? boost::make_optional(color->b) : boost::none;
}

boost::optional<unsigned char> readAlpha(const std::string& text)
{
    OperationReport report;
    const auto color = convertToRGBAColor(report, "rgba(1,2,3," + text + ")");
    return color ? boost::make_optional(color->a) : boost::none;
}

void forEachText(const std::string& alphabet, std::size_t longest, void (*check)(const std::string& text))
{
    for (std::size_t length = 1, count = alphabet.size(); length <= longest;
         ++length, count *= alphabet.size())
        for (std::size_t number = 0; number < count; ++number) {
            std::string text;
            for (std::size_t rest = number; text.size() < length; rest /= alphabet.size())
                text += alphabet[rest % alphabet.size()];
            check(text);
        }
}

TEST(ColourChannel, AgreesWithLexicalCastOnEveryShortText)
{
    forEachText("+-0179 .xe", 4,
        [](const std::string& text) { ASSERT_EQ(readChannel(text), castChannel(text)) << text; });
}

TEST(ColourChannel, AgreesWithLexicalCastAroundTheEndsOfItsRange)
{
    for (const char* sign : {"", "+", "-"})
        for (const char* digits : {"922337203685477580", "00922337203685477580", "1844674407370955161"})
            for (char last = '0'; last <= '9'; ++last) {
                const std::string text = std::string(sign) + digits + last;
                EXPECT_EQ(readChannel(text), castChannel(text)) << text;
            }
}

TEST(ColourAlpha, AgreesWithLexicalCastOnEveryShortText)
{
    forEachText("+-.eE059 x", 5,
        [](const std::string& text) { ASSERT_EQ(readAlpha(text), castAlpha(text)) << text; });
    forEachText("inftyaIN+-", 4,
        [](const std::string& text) { ASSERT_EQ(readAlpha(text), castAlpha(text)) << text; });
}

TEST(ColourAlpha, AgreesWithLexicalCastOnRandomNumbers)
{
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        const int exponent = static_cast<int>(random() % 100) - 55;
        const std::string text = (random() % 2 ? "-" : "") + std::to_string(random() % 1000) + "." +
                                 std::to_string(random()) + "e" + std::to_string(exponent);
        ASSERT_EQ(readAlpha(text), castAlpha(text)) << text;
    }
}

} // namespace
} // namespace QV::FilterUtils
