#include <OfficeUtils/FormatCodes/CodePrinter.h>

#include <algorithm>
#include <charconv>
#include <cstddef>

#include <boost/utility/string_ref.hpp>

#include <OfficeUtils/FormatCodes/ColorNames.h>

namespace QV::OfficeUtils {
namespace {

using namespace DOM::CellFormatModel;

const char* const ComparisonSigns[] = {"<", "<=", "=", "<>", ">=", ">"}; // in the order of the enumerators

constexpr boost::string_ref::size_type None = boost::string_ref::npos;

/// Punctuation that needs no escape anywhere. A slash needs none beside dates.
bool isBare(char c, bool isDate)
{
    return boost::string_ref("$-+():").find(c) != None || (isDate && c == '/');
}

bool isWordByte(char c)
{
    return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z') || ('0' <= c && c <= '9') ||
           static_cast<unsigned char>(c) >= 0x80;
}

void printSigns(boost::string_ref text, bool isDate, std::string& code)
{
    for (const char c : text) {
        if (!isBare(c, isDate))
            code += '\\';
        code += c;
    }
}

void printQuoted(boost::string_ref text, std::string& code)
{
    code += '"';
    code.append(text.begin(), text.end());
    code += '"';
}

/// The words of a text go into quotes, with all between them, and signs at its ends are escaped.
void printSpreadsheetText(boost::string_ref text, bool isDate, std::string& code)
{
    const auto first = std::find_if(text.begin(), text.end(), isWordByte);
    if (first == text.end()) {
        printSigns(text, isDate, code);
        return;
    }
    const auto begin = static_cast<std::size_t>(first - text.begin());
    const auto end =
        static_cast<std::size_t>(std::find_if(text.rbegin(), text.rend(), isWordByte).base() - text.begin());
    printSigns(text.substr(0, begin), isDate, code);
    printQuoted(text.substr(begin, end - begin), code);
    printSigns(text.substr(end), isDate, code);
}

void printModelText(boost::string_ref text, bool isDate, std::string& code)
{
    if (std::all_of(text.begin(), text.end(), [isDate](char c) { return isBare(c, isDate); }))
        code.append(text.begin(), text.end());
    else
        printQuoted(text, code);
}

/// Quotation marks cannot stand within quotes.
void printLiteral(boost::string_ref text, bool isDate, Parser::ParserType type, std::string& code)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('"'), text.size());
        if (end > 0 && type == Parser::ParserType::Spreadsheet)
            printSpreadsheetText(text.substr(0, end), isDate, code);
        else if (end > 0)
            printModelText(text.substr(0, end), isDate, code);
        text.remove_prefix(end);
        for (; !text.empty() && text.front() == '"'; text.remove_prefix(1))
            code += "\\\"";
    }
}

void printToken(const Token& token, bool isDate, Parser::ParserType type, std::string& code)
{
    switch (token.kind) {
    case TokenKind::Literal:
        printLiteral(token.text, isDate, type, code);
        break;
    case TokenKind::Skip:
        code += '_' + token.text;
        break;
    case TokenKind::Fill:
        code += '*' + token.text;
        break;
    default:
        code += token.text;
        break;
    }
}

/// Whether two tokens side by side would read as one, such as the hours of "h" and "h".
bool wouldRunTogether(const Token& a, const Token& b)
{
    if (a.kind < TokenKind::Weekday || a.text.empty() || b.text.empty())
        return false;
    if (b.kind == TokenKind::Literal)
        return a.kind == TokenKind::EraYear && (b.text.front() == '+' || b.text.front() == '-');
    constexpr unsigned CaseBit = 0x20; // all that can stand here are ASCII letters and brackets
    return (static_cast<unsigned char>(a.text.back()) | CaseBit) ==
           (static_cast<unsigned char>(b.text.front()) | CaseBit);
}

void printCondition(const Condition& condition, std::string& code)
{
    char number[32];
    const auto end = std::to_chars(std::begin(number), std::end(number), condition.limit).ptr;
    code += '[';
    code += ComparisonSigns[static_cast<std::size_t>(condition.comparison)];
    code.append(number, end);
    code += ']';
}

} // namespace

std::string printRule(const Rule& rule, Parser::ParserType type)
{
    std::string code;
    if (rule.getColorNumber())
        code += makeColorMark(*rule.getColorNumber());
    if (rule.getCondition() && !rule.getCondition()->isImplied)
        printCondition(*rule.getCondition(), code);
    const bool isDate = rule.getKind() == Rule::Kind::DateTime;
    const Token* previous = nullptr;
    for (const Token& token : rule.getTokens()) {
        if (previous && wouldRunTogether(*previous, token))
            code += "\"\"";
        previous = &token;
        printToken(token, isDate, type, code);
    }
    return code;
}

std::string printExpression(const Expression& expression, Parser::ParserType type)
{
    std::string code;
    const char* separator = "";
    const auto print = [&](const Rule& rule) {
        code += separator + printRule(rule, type);
        separator = ";";
    };
    for (const Rule& rule : expression.getRules())
        print(rule);
    if (expression.getDefaultNumberRule())
        print(*expression.getDefaultNumberRule());
    if (expression.getDefaultTextRule())
        print(*expression.getDefaultTextRule());
    return code;
}

} // namespace QV::OfficeUtils
