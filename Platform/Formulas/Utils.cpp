#include <Formulas/Public/Utils.h>

#include <algorithm>

namespace QV::Formulas::Utils {

std::string convertIndexToAlphaIndex(unsigned long column)
{
    constexpr unsigned long LettersCount = 26;
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

} // namespace QV::Formulas::Utils
