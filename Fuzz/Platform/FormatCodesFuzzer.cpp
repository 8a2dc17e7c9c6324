// Parser and CellFormatter: an expression or nothing, for any text and in each dialect; what toRegEx prints
// of an expression reads back to the same one, in either dialect, and shows any number in a bounded length.

#include <OfficeUtils/Public/Parser.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <OfficeUtils/Public/CellFormatter.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using namespace QV::OfficeUtils;

constexpr Parser::ParserType Types[] = {Parser::ParserType::Model, Parser::ParserType::Spreadsheet};

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void checkCode(const std::string& code, Parser::ParserType type)
{
    const auto expression = Parser::parse(code, type);
    if (!expression)
        return;
    for (const Parser::ParserType other : Types) {
        const std::string printed = Parser::toRegEx(*expression, other);
        if (printed.empty() || printed.size() > Parser::CodeLengthMax)
            continue; // of a code that is but empty quotes, or one that quotes made too long
        const auto again = Parser::parse(printed, other);
        require(again && *again == *expression);
        require(Parser::toRegEx(*again, other) == printed);
    }
    for (const auto system : {QV::DOM::DateSystem::From1900, QV::DOM::DateSystem::From1904}) {
        const CellFormatter formatter(*expression, system);
        for (const double number : {0.0, 1.0, -1.5, 59.999999, 2958465.99999999, 1e-300, -1e300})
            require(formatter.formatNumber(number).text.size() < 100 * Parser::CodeLengthMax);
        formatter.formatText("text");
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string code(data, data + size);
    for (const Parser::ParserType type : Types)
        checkCode(code, type);
    return 0;
}
