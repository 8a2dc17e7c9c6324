#include <Filters/Text/ContentsField.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <FilterUtils/FU_TableOfContentsLevelsFiller.h>
#include <Filters/Package/SymbolFonts.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextFormats.h>
#include <Filters/Text/TextStyles.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

constexpr unsigned long ContentsLevelsMax = 9;

struct FieldWord
{
    std::string text;
    bool isQuoted;
};

/// Takes the words of an instruction one by one.
class FieldWords
{
public:
    explicit FieldWords(const std::string& instruction)
        : _text(instruction)
    {
    }

    boost::optional<FieldWord> next()
    {
        while (_place < _text.size() && isBlank(_text[_place]))
            ++_place;
        if (_place == _text.size())
            return boost::none;
        FieldWord word{{}, _text[_place] == '"'};
        if (word.isQuoted)
            ++_place;
        while (_place < _text.size() && !isEnd(word.isQuoted)) {
            if (isEscape())
                ++_place;
            word.text += _text[_place++];
        }
        if (word.isQuoted && _place < _text.size())
            ++_place; // behind the quote
        return word;
    }

private:
    static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

    bool isEnd(bool isQuoted) const { return _text[_place] == '"' || (!isQuoted && isBlank(_text[_place])); }

    bool isEscape() const
    {
        return _text[_place] == '\\' && _place + 1 < _text.size() &&
               (_text[_place + 1] == '"' || _text[_place + 1] == '\\');
    }

    const std::string& _text;
    std::size_t _place = 0;
};

// The letter of a word such as "\o", as a small one; or 0.
char getSwitchLetter(const FieldWord& word)
{
    const bool isSwitch =
        !word.isQuoted && word.text.size() >= 2 && word.text[0] == '\\' && word.text[1] != '\\';
    const char letter = isSwitch ? word.text[1] : '\0';
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string convertFieldNameToCapitals(std::string name)
{
    for (char& c : name)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return name;
}

/// A switch of an instruction with what stands behind it, up to the next switch.
struct FieldSwitch
{
    char letter; // 0 for what stands before all switches
    std::vector<std::string> words;

    std::string getArgument() const { return words.empty() ? std::string() : words.front(); }
};

/// The first one is that of the field's name and its own arguments.
std::vector<FieldSwitch> readFieldSwitches(const std::string& instruction)
{
    std::vector<FieldSwitch> switches(1, FieldSwitch{'\0', {}});
    FieldWords words(instruction);
    while (auto word = words.next()) {
        if (const char letter = getSwitchLetter(*word))
            switches.push_back({letter, {}});
        else
            switches.back().words.push_back(std::move(word->text));
    }
    return switches;
}

struct ContentsLevels
{
    unsigned long first = 1;
    unsigned long last = ContentsLevelsMax;
};

/// Reads "1-3" or "2"; all levels where that cannot be read.
ContentsLevels readContentsLevels(const std::string& text)
{
    ContentsLevels levels;
    const std::size_t hyphen = text.find('-');
    const auto first = strToUlong(text.substr(0, hyphen));
    const auto last = hyphen == std::string::npos ? first : strToUlong(text.substr(hyphen + 1));
    if (!first || !last || *first > *last)
        return levels;
    levels.first = std::clamp(*first, 1UL, ContentsLevelsMax);
    levels.last = std::clamp(*last, 1UL, ContentsLevelsMax);
    return levels;
}

class ContentsInfoFiller
{
public:
    ContentsInfoFiller(TextContext& context, TextFormats& formats, DOM::TableOfContentsInfo& info)
        : _context(context)
        , _formats(formats)
        , _info(info)
        , _filler(info, context.styles.factory, context.styles.newStyles, context.styles.predefinedStyles)
    {
    }

    void fill(const std::vector<FieldSwitch>& switches)
    {
        for (const FieldSwitch& option : switches)
            addSource(option);
        if (!_hasSource)
            addHeadings(ContentsLevels());
        else if (_info.getLevelsStyleInfo().empty() && _info.usesOutlineLevels())
            for (unsigned long level = 1; level <= ContentsLevelsMax; ++level)
                _filler.addTableOfContentsLevel(level);
        else if (_info.getLevelsStyleInfo().empty())
            _filler.addTableOfContentsLevel(1);
        for (const FieldSwitch& option : switches)
            decorate(option);
    }

private:
    void addSource(const FieldSwitch& option)
    {
        switch (option.letter) {
        case 'o':
            addHeadings(readContentsLevels(option.getArgument()));
            break;
        case 't':
            addStyles(option.getArgument());
            break;
        case 'u':
            _info.setUsesOutlineLevels(true);
            break;
        case 'a':
        case 'c':
        case 'f':
            break;
        default:
            return;
        }
        _hasSource = true;
    }

    void addHeadings(const ContentsLevels& levels)
    {
        for (unsigned long level = levels.first; level <= levels.last; ++level) {
            const auto first = static_cast<std::uint8_t>(DOM::PredefinedStyleName::Heading1);
            const auto name = static_cast<DOM::PredefinedStyleName>(first + level - 1);
            _filler.addTableOfContentsLevel(_filler.findOrCreatePredefinedStyle(name), level);
        }
    }

    /// @param list of names, each with its level behind it; the separator depends on the writer's country
    void addStyles(const std::string& list)
    {
        const char separator = list.find(';') == std::string::npos ? ',' : ';';
        std::vector<std::string> items;
        for (std::size_t begin = 0; begin <= list.size();) {
            const std::size_t end = std::min(list.find(separator, begin), list.size());
            items.push_back(list.substr(begin, end - begin));
            begin = end + 1;
        }
        for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
            const auto level = strToUlong(items[i + 1]);
            if (level && *level >= 1 && *level <= ContentsLevelsMax)
                addStyle(trimBlanks(items[i]), *level);
        }
    }

    void addStyle(const std::string& name, unsigned long level)
    {
        const UUID style = findStyle(name);
        if (style)
            _filler.addTableOfContentsLevel(style, level);
        else
            _context.report("Table of contents lists style {}, which is not there", name);
    }

    UUID findStyle(const std::string& name)
    {
        if (const auto predefined = DOM::findPredefinedStyleName(name)) {
            const auto found = _context.styles.predefinedStyles.find(*predefined);
            if (found != _context.styles.predefinedStyles.end())
                return found->second->getUUID();
        }
        const auto& names = _formats.getStyleNames();
        const auto found = names.find(name);
        return found == names.end() ? UUID() : found->second;
    }

    static std::string trimBlanks(const std::string& text)
    {
        const std::size_t begin = text.find_first_not_of(' ');
        return begin == std::string::npos ? std::string()
                                          : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
    }

    void decorate(const FieldSwitch& option)
    {
        const ContentsLevels unnumbered = readContentsLevels(option.getArgument());
        for (auto& level : _info.getLevelsStyleInfo()) {
            if (option.letter == 'h')
                level.second.setLink(true);
            else if (option.letter == 'n' && level.first >= unnumbered.first &&
                     level.first <= unnumbered.last)
                level.second.setPageNumber(false);
        }
    }

    TextContext& _context;
    TextFormats& _formats;
    DOM::TableOfContentsInfo& _info;
    FilterUtils::TableOfContentsLevelsFiller _filler;
    bool _hasSource = false; // other than the headings that are listed by default
};

} // namespace

std::vector<std::string> splitFieldInstruction(const std::string& instruction)
{
    std::vector<std::string> texts;
    FieldWords words(instruction);
    while (auto word = words.next())
        texts.push_back(std::move(word->text));
    return texts;
}

std::string getFieldName(const std::string& instruction)
{
    const auto word = FieldWords(instruction).next();
    return word ? convertFieldNameToCapitals(word->text) : std::string();
}

std::string joinFieldWords(const std::string& instruction, std::size_t first)
{
    const std::vector<std::string> words = splitFieldInstruction(instruction);
    std::string text;
    for (std::size_t i = first; i < words.size(); ++i)
        text += (i == first ? "" : " ") + words[i];
    return text;
}

boost::optional<FieldLink> readFieldLink(const std::string& instruction)
{
    if (getFieldName(instruction) != "HYPERLINK")
        return boost::none;
    const std::vector<FieldSwitch> switches = readFieldSwitches(instruction);
    FieldLink link;
    if (switches.front().words.size() > 1)
        link.url = switches.front().words[1];
    for (const FieldSwitch& option : switches) {
        const bool hasArgument =
            option.letter != '\0' && std::string("lots*@#").find(option.letter) != std::string::npos;
        if (option.letter == 'l')
            link.anchor = option.getArgument();
        const std::size_t own = hasArgument ? 1 : 0; // words behind those are the field's
        if (link.url.empty() && option.letter != '\0' && option.words.size() > own)
            link.url = option.words[own];
    }
    if (link.anchor.empty() && !link.url.empty() && link.url.front() == '#') {
        link.anchor = link.url.substr(1);
        link.url.clear();
    }
    if (link.url.empty() && link.anchor.empty())
        return boost::none;
    return link;
}

std::string readFieldSymbol(const std::string& instruction)
{
    if (getFieldName(instruction) != "SYMBOL")
        return {};
    std::string font;
    const std::vector<FieldSwitch> switches = readFieldSwitches(instruction);
    for (const FieldSwitch& option : switches)
        if (option.letter == 'f')
            font = option.getArgument();
    if (switches.front().words.size() < 2)
        return {};
    const std::string& number = switches.front().words[1];
    const bool isHexadecimal = number.compare(0, 2, "0x") == 0 || number.compare(0, 2, "0X") == 0;
    const auto code = strToUlong(number, nullptr, isHexadecimal ? 16 : 10);
    constexpr unsigned long LastCharacter = 0x10FFFF;
    return code && *code <= LastCharacter ? mapSymbol(font, static_cast<std::uint32_t>(*code))
                                          : std::string();
}

void fillContentsInfo(const std::string& instruction, TextContext& context, TextFormats& formats,
    DOM::TableOfContentsInfo& info)
{
    ContentsInfoFiller(context, formats, info).fill(readFieldSwitches(instruction));
}

} // namespace QV::Filters
