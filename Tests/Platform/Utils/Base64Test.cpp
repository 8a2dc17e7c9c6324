#include <Utils/Public/Base64.h>

#include <ostream>
#include <random>
#include <stdexcept>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

namespace QV {
namespace {

constexpr const char* Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

struct Base64Row
{
    const char* name;
    std::string text;
    const char* bytes; // null where the text is refused
};

void PrintTo(const Base64Row& row, std::ostream* out)
{
    *out << testing::PrintToString(row.text);
}

// name, text, bytes
const Base64Row Base64Rows[] = {
    {"Empty",              "",             ""            },
    {"OneByte",            "Zg==",         "f"           },
    {"TwoBytes",           "Zm8=",         "fo"          },
    {"ThreeBytes",         "Zm9v",         "foo"         },
    {"FourBytes",          "Zm9vYg==",     "foob"        },
    {"FiveBytes",          "Zm9vYmE=",     "fooba"       },
    {"SixBytes",           "Zm9vYmFy",     "foobar"      },
    {"HighBits",           "+/+/",         "\xfb\xff\xbf"},
    {"NoPadding",          "Zg",           nullptr       },
    {"OnePaddingOfTwo",    "Zg=",          nullptr       },
    {"OneDigit",           "Z",            nullptr       },
    {"OneDigitPadded",     "Z===",         nullptr       },
    {"PaddingAlone",       "====",         nullptr       },
    {"PaddingInside",      "Zg==Zg==",     nullptr       },
    {"PaddingBeforeDigit", "Zg=v",         nullptr       },
    {"PaddingAfterWhole",  "Zm9v====",     nullptr       },
    {"BitsBeforeOnePad",   "Zm9=",         nullptr       },
    {"BitsBeforeTwoPads",  "Zh==",         nullptr       },
    {"BlankInside",        "Zm 9",         nullptr       },
    {"LineEnd",            "Zm9v\r\n\r\n", nullptr       },
    {"UrlAlphabet",        "-_-_",         nullptr       },
    {"NulInside",          {"Zm9\0", 4},   nullptr       },
    {"HighByte",           "Zm9\xff",      nullptr       },
};

class Base64Decode : public testing::TestWithParam<Base64Row>
{
};

TEST_P(Base64Decode, KeepsRow)
{
    const Base64Row& row = GetParam();
    if (row.bytes) {
        EXPECT_EQ(base64Decode(row.text), row.bytes);
        EXPECT_EQ(base64Encode(row.bytes), row.text);
    } else {
        EXPECT_THROW(base64Decode(row.text), std::invalid_argument);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, Base64Decode, testing::ValuesIn(Base64Rows),
    [](const auto& row) { return std::string(row.param.name); });

// One bit at a time: slow, and plainly right.
std::string encode(const std::string& bytes)
{
    std::string text;
    for (std::size_t bit = 0; bit < bytes.size() * 8; bit += 6) {
        std::size_t digit = 0;
        for (std::size_t i = bit; i < bit + 6; ++i) {
            const bool isSet = i < bytes.size() * 8 && (bytes[i / 8] >> (7 - i % 8) & 1) != 0;
            digit = digit * 2 + (isSet ? 1 : 0);
        }
        text += Alphabet[digit];
    }
    return text.append((4 - text.size() % 4) % 4, '=');
}

TEST(Base64Decode, TurnsEncodedBytesBack)
{
    std::mt19937 random(1);
    for (std::size_t size = 0; size < 300; ++size) {
        std::string bytes(size, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        EXPECT_EQ(base64Decode(encode(bytes)), bytes);
        EXPECT_EQ(base64Encode(bytes), encode(bytes));
    }
}

TEST(Base64Decode, EachByteStringHasOneText)
{
    for (int i = 0; i < 64; ++i) {
        const std::string onePad = std::string("AA") + Alphabet[i] + "=";
        const std::string twoPads = std::string("A") + Alphabet[i] + "==";
        for (const std::string& text : {onePad, twoPads}) {
            boost::optional<std::string> bytes;
            try {
                bytes = base64Decode(text);
            } catch (const std::invalid_argument&) {
            }
            EXPECT_EQ(bytes.has_value(), i % (text == onePad ? 4 : 16) == 0) << text;
            if (bytes) {
                EXPECT_EQ(encode(*bytes), text);
            }
        }
    }
}

TEST(Base64Decode, OnlyTheAlphabetIsAccepted)
{
    for (int c = 0; c < 256; ++c) {
        const std::string text = std::string("AAA") + static_cast<char>(c);
        const bool isAccepted =
            c == '=' || (c != 0 && std::string(Alphabet).find(static_cast<char>(c)) != std::string::npos);
        if (isAccepted)
            EXPECT_NO_THROW(base64Decode(text)) << c;
        else
            EXPECT_THROW(base64Decode(text), std::invalid_argument) << c;
    }
}

} // namespace
} // namespace QV
