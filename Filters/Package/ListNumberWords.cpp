#include <Filters/Package/ListNumberWords.h>

#include <cstddef>

namespace QV::Filters {
namespace {

const char* const SmallNumberWords[] = {"zero", "one", "two", "three", "four", "five", "six", "seven",
    "eight", "nine", "ten", "eleven", "twelve", "thirteen", "fourteen", "fifteen", "sixteen", "seventeen",
    "eighteen", "nineteen"};

const char* const TensWords[] = {
    "", "", "twenty", "thirty", "forty", "fifty", "sixty", "seventy", "eighty", "ninety"};

struct NumberGroup
{
    long size;
    const char* word;
};

const NumberGroup NumberGroups[] = {
    {1000000, "million" },
    {1000,    "thousand"},
    {1,       ""        }
};

struct OrdinalWord
{
    const char* cardinal;
    const char* ordinal;
};

const OrdinalWord OrdinalWords[] = {
    {"one",    "first"  },
    {"two",    "second" },
    {"three",  "third"  },
    {"five",   "fifth"  },
    {"eight",  "eighth" },
    {"nine",   "ninth"  },
    {"twelve", "twelfth"}
};

void appendNumberWord(std::string& text, const char* word)
{
    if (!text.empty() && *word)
        text += ' ';
    text += word;
}

/// @param number from 1 to 999
void appendHundreds(std::string& text, long number)
{
    if (number >= 100) {
        appendNumberWord(text, SmallNumberWords[number / 100]);
        appendNumberWord(text, "hundred");
    }
    const long rest = number % 100;
    if (rest >= 20) {
        appendNumberWord(text, TensWords[rest / 10]);
        if (rest % 10 != 0)
            (text += '-') += SmallNumberWords[rest % 10];
    } else if (rest > 0) {
        appendNumberWord(text, SmallNumberWords[rest]);
    }
}

std::string makeLowerCardinalWords(long number)
{
    if (number == 0)
        return SmallNumberWords[0];
    std::string text;
    for (const NumberGroup& group : NumberGroups) {
        const long count = number / group.size % 1000;
        if (count == 0)
            continue;
        appendHundreds(text, count);
        appendNumberWord(text, group.word);
    }
    return text;
}

std::string capitalizeFirst(std::string text)
{
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

std::string makeOrdinalWord(const std::string& cardinal)
{
    for (const OrdinalWord& word : OrdinalWords)
        if (cardinal == word.cardinal)
            return word.ordinal;
    if (cardinal.back() == 'y')
        return cardinal.substr(0, cardinal.size() - 1) + "ieth";
    return cardinal + "th";
}

} // namespace

std::string makeCardinalWords(long number)
{
    return capitalizeFirst(makeLowerCardinalWords(number));
}

std::string makeOrdinalWords(long number)
{
    const std::string cardinal = makeLowerCardinalWords(number);
    const std::size_t blank = cardinal.find_last_of(" -");
    const std::size_t lastWord = blank == std::string::npos ? 0 : blank + 1;
    return capitalizeFirst(cardinal.substr(0, lastWord) + makeOrdinalWord(cardinal.substr(lastWord)));
}

} // namespace QV::Filters
