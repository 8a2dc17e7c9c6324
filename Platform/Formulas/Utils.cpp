#include <Formulas/Public/Utils.h>

#include <algorithm>
#include <limits>

namespace QV::Formulas::Utils {
namespace {

constexpr unsigned long LettersCount = 26;

} // namespace

std::string convertIndexToAlphaIndex(unsigned long column)
{
    std::string letters;
    for (;;) {
        letters += static_cast<char>('A' + column % LettersCount);
        if (column < LettersCount)
            break;
        column = column / LettersCount - 1; // there is no letter for zero: "Z" is followed by "AA"
    }
    std::reverse(letters.begin(), letters.end());
    return letters;
}

boost::optional<unsigned long> convertAlphaIndexToIndex(boost::string_ref letters)
{
    constexpr unsigned long Max = std::numeric_limits<unsigned long>::max();
    unsigned long end = 0; // one more than the column that the letters so far name
    for (const char letter : letters) {
        const unsigned long value =
            static_cast<unsigned char>(letter | 0x20) - static_cast<unsigned long>('a');
        if (value >= LettersCount || end > (Max - value - 1) / LettersCount)
            return boost::none;
        end = end * LettersCount + value + 1;
    }
    return boost::make_optional(end > 0, end - 1);
}

} // namespace QV::Formulas::Utils
