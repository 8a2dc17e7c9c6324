#include <Filters/Preview/PresetLanguage.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <sstream>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <boost/utility/string_ref.hpp>
#include <fmt/format.h>

#include <FilterUtils/FU_GeometryParserUtils.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/NumberText.h>

namespace QV::Filters {
namespace {

using PresetFilling = DOM::GeometryPath::Filling;
using PresetKind = DOM::PathCommand::Kind;

struct PresetCommand
{
    char letter;
    PresetKind kind;
    std::size_t operandsCount;
};
constexpr PresetCommand PresetCommands[] = {
    {'M', PresetKind::MoveTo,  2},
    {'L', PresetKind::LineTo,  2},
    {'A', PresetKind::ArcTo,   4},
    {'Q', PresetKind::QuadTo,  4},
    {'C', PresetKind::CubicTo, 6},
    {'Z', PresetKind::Close,   0},
};

const std::pair<const char*, PresetFilling> PresetFillings[] = {
    {"none",      PresetFilling::None       },
    {"light",     PresetFilling::Lighten    },
    {"lightless", PresetFilling::LightenLess},
    {"dark",      PresetFilling::Darken     },
    {"darkless",  PresetFilling::DarkenLess },
};

constexpr double StarTurn = 21'600'000;
constexpr double StarTop = 16'200'000;

bool isPresetNameCharacter(char c)
{
    return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z') || ('0' <= c && c <= '9') || c == '.';
}

const PresetCommand* findPresetCommand(const std::string& word)
{
    const auto* const found = std::find_if(std::begin(PresetCommands), std::end(PresetCommands),
        [&](const PresetCommand& command) { return word.size() == 1 && word[0] == command.letter; });
    return found != std::end(PresetCommands) ? found : nullptr;
}

std::vector<std::string> splitPresetWords(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

/// The names that a preset has so far, and the guides to which its expressions come.
class PresetGuides
{
public:
    explicit PresetGuides(DOM::ShapeGeometry& geometry)
        : _geometry(geometry)
    {
    }

    void addAdjustValue(const std::string& name, const std::string& number)
    {
        _geometry.adjustValues.emplace_back();
        _geometry.adjustValues.back().name = name;
        _geometry.adjustValues.back().formula = "val " + number;
        _operands[name] = FilterUtils::makeModifierReference(name);
    }

    void addGuide(const std::string& name, const std::string& formula)
    {
        _geometry.guides.emplace_back();
        _geometry.guides.back().name = name;
        _geometry.guides.back().formula = formula;
        _operands[name] = FilterUtils::makeFormulaReference(name);
    }

    /// The operand with its mark; the name itself for one that every shape has, and for a number.
    std::string findOperand(const std::string& name) const
    {
        const auto found = _operands.find(name);
        return found != _operands.end() ? found->second : name;
    }

    /// An operand that has the value of a formula.
    std::string makeOperand(const std::string& formula)
    {
        const boost::string_ref whole(formula);
        if (whole.starts_with("val "))
            return whole.substr(4).to_string();
        std::string& operand = _unnamed[formula];
        if (operand.empty()) {
            const std::string name = fmt::format("_{}", _unnamed.size());
            addGuide(name, formula);
            operand = FilterUtils::makeFormulaReference(name);
        }
        return operand;
    }

private:
    DOM::ShapeGeometry& _geometry;
    std::unordered_map<std::string, std::string> _operands; // names to marked names
    std::unordered_map<std::string, std::string> _unnamed;  // formulas to marked names
};

/// Turns an expression into the formula of its last operator, and guides for those before.
class PresetExpression
{
public:
    PresetExpression(const std::string& text, PresetGuides& guides)
        : _rest(text)
        , _guides(guides)
    {
    }

    std::string readSum()
    {
        std::string formula = readProduct();
        for (;;) {
            const bool isDifference = skip('-');
            if (!isDifference && !skip('+'))
                return formula;
            const std::string left = _guides.makeOperand(formula);
            const std::string right = _guides.makeOperand(readProduct());
            formula = fmt::format(isDifference ? "+- {} 0 {}" : "+- {} {} 0", left, right);
        }
    }

private:
    std::string readProduct()
    {
        std::string formula = readFactor();
        for (;;) {
            const bool isQuotient = skip('/');
            if (!isQuotient && !skip('*'))
                return formula;
            const std::string left = _guides.makeOperand(formula);
            const std::string right = _guides.makeOperand(readFactor());
            const std::string divisor = !isQuotient && skip('/') ? _guides.makeOperand(readFactor()) : "1";
            formula = isQuotient ? fmt::format("*/ {} 1 {}", left, right)
                                 : fmt::format("*/ {} {} {}", left, right, divisor);
        }
    }

    std::string readFactor()
    {
        if (skip('-')) {
            const std::string operand = _guides.makeOperand(readFactor());
            return OfficeUtils::stringToDouble(operand) ? "val -" + operand : "+- 0 0 " + operand;
        }
        if (skip('(')) {
            std::string formula = readSum();
            skip(')');
            return formula;
        }
        std::string name;
        for (; !_rest.empty() && isPresetNameCharacter(_rest.front()); _rest.remove_prefix(1))
            name += _rest.front();
        return skip('(') ? readFunction(name) : "val " + _guides.findOperand(name);
    }

    std::string readFunction(const std::string& name)
    {
        std::string formula = name == "if" ? "?:" : name;
        do
            formula += " " + _guides.makeOperand(readSum());
        while (skip(','));
        skip(')');
        return formula;
    }

    bool skip(char c)
    {
        if (!_rest.starts_with(c))
            return false;
        _rest.remove_prefix(1);
        return true;
    }

    boost::string_ref _rest;
    PresetGuides& _guides;
};

class PresetReader
{
public:
    explicit PresetReader(const PresetTexts& presets)
        : _presets(presets)
    {
    }

    void readStatements(const std::string& text)
    {
        std::istringstream statements(text);
        for (std::string statement; std::getline(statements, statement, ';');)
            readStatement(splitPresetWords(statement));
    }

    DOM::ShapeGeometry takeGeometry() { return std::move(_geometry); }

private:
    void readStatement(const std::vector<std::string>& words)
    {
        if (words.empty())
            return;
        const std::string& first = words.front();
        const std::size_t nameSize = std::min(first.find_first_of(":="), first.size());
        if (first[0] == '@' && _presets.count(first) > 0)
            readStatements(_presets.at(first));
        else if (first == "T" && words.size() == 5)
            readTextRectangle(words);
        else if (first == "P")
            readPath(words);
        else if (nameSize < first.size() && first[nameSize] == ':')
            _guides.addAdjustValue(first.substr(0, nameSize), first.substr(nameSize + 1));
        else if (nameSize < first.size())
            _guides.addGuide(first.substr(0, nameSize), makeFormula(first.substr(nameSize + 1)));
    }

    std::string makeFormula(const std::string& expression)
    {
        return PresetExpression(expression, _guides).readSum();
    }

    std::string makeOperand(const std::string& expression)
    {
        return _guides.makeOperand(makeFormula(expression));
    }

    void readTextRectangle(const std::vector<std::string>& words)
    {
        DOM::TextRectangle rectangle;
        rectangle.left = makeOperand(words[1]);
        rectangle.top = makeOperand(words[2]);
        rectangle.right = makeOperand(words[3]);
        rectangle.bottom = makeOperand(words[4]);
        _geometry.textRectangle = {rectangle};
    }

    void readPath(const std::vector<std::string>& words)
    {
        DOM::GeometryPath path;
        std::size_t next = 1;
        while (next < words.size() && words[next] != "M" && words[next] != "N")
            readAttribute(words[next++], path);
        while (next < words.size()) {
            if (words[next] == "N" && words.size() - next > 7) {
                addStar(words, next + 1, path);
                next += 8;
            } else {
                next = readCommands(words, next, path);
            }
        }
        _geometry.paths.push_back(std::move(path));
    }

    static void readAttribute(const std::string& word, DOM::GeometryPath& path)
    {
        for (const auto& filling : PresetFillings)
            if (word == filling.first)
                path.filling = filling.second;
        if (word == "bare")
            path.isStroked = false;
        const std::size_t cross = word.find('x');
        if (cross == std::string::npos)
            return;
        path.width = static_cast<double>(strToUlong(word.substr(0, cross)).value_or(0));
        path.height = static_cast<double>(strToUlong(word.substr(cross + 1)).value_or(0));
    }

    /// One command, or several of the same kind.
    /// @return the place of the next command
    std::size_t readCommands(const std::vector<std::string>& words, std::size_t next, DOM::GeometryPath& path)
    {
        const PresetCommand* const found = findPresetCommand(words[next]);
        std::vector<std::string> operands;
        for (++next; next < words.size() && words[next] != "N" && !findPresetCommand(words[next]); ++next)
            operands.push_back(makeOperand(words[next]));
        if (!found)
            return next;
        auto operand = operands.begin();
        do {
            const std::ptrdiff_t count =
                std::min(static_cast<std::ptrdiff_t>(found->operandsCount), operands.end() - operand);
            path.commands.emplace_back();
            path.commands.back().kind = found->kind;
            path.commands.back().operands.assign(operand, operand + count);
            operand += count;
        } while (operand != operands.end());
        return next;
    }

    /// The first point stands at the top.
    void addStar(const std::vector<std::string>& words, std::size_t first, DOM::GeometryPath& path)
    {
        const unsigned long corners = strToUlong(words[first]).value_or(0) * 2;
        for (unsigned long corner = 0; corner < corners; ++corner) {
            const std::size_t radius = first + (corner % 2 == 0 ? 3 : 5);
            const double angle =
                StarTop + StarTurn / static_cast<double>(corners) * static_cast<double>(corner);
            path.commands.emplace_back();
            path.commands.back().kind = corner == 0 ? PresetKind::MoveTo : PresetKind::LineTo;
            path.commands.back().operands = {
                makeOperand(fmt::format("{}+cos({},{:.3f})", words[first + 1], words[radius], angle)),
                makeOperand(fmt::format("{}+sin({},{:.3f})", words[first + 2], words[radius + 1], angle))};
        }
        path.commands.emplace_back();
        path.commands.back().kind = PresetKind::Close;
    }

    const PresetTexts& _presets;
    DOM::ShapeGeometry _geometry;
    PresetGuides _guides{_geometry};
};

} // namespace

void splitPresets(const std::string& text, PresetTexts& presets)
{
    std::istringstream lines(text);
    std::string name;
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line[0] != ' ') {
            const std::size_t nameSize = std::min(line.find(' '), line.size());
            name = line.substr(0, nameSize);
            line.erase(0, nameSize);
        }
        if (!line.empty())
            presets[name] += line + " ";
    }
}

DOM::ShapeGeometry readPresetShape(const std::string& text, const PresetTexts& presets)
{
    PresetReader reader(presets);
    reader.readStatements(text);
    return reader.takeGeometry();
}

} // namespace QV::Filters
