#pragma once

#include <cstddef>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/CellFormatModel.h>
#include <OfficeUtils/Public/Export.h>

namespace QV::OfficeUtils {

class LocaleContext;

/// Number format codes <-> their expressions.
///
///     CODE      ::= SECTION (";" SECTION){0,3}         the last of four, or one with "@", is for texts
///     SECTION   ::= (CONDITION | COLOR | PIECE)*
///     CONDITION ::= "[" ("<" | "<=" | "=" | "<>" | ">=" | ">") NUMBER "]"    not in the third, nor for texts
///     COLOR     ::= "[" ("Black" | "White" | "Red" | "Green" | "Blue" | "Yellow" | "Magenta" | "Cyan") "]"
///                 | "[Color" N "]"                                           N from 1 to 56
///     LOCALE    ::= a locale identifier in hexadecimal digits | a language tag ("de-DE") ("," N)?
///     PIECE     ::= '"' TEXT '"' | "\" CHARACTER | "_" CHARACTER | "*" CHARACTER
///                 | "[$" SYMBOL ("-" LOCALE)? "]" | "[DBNum" N "]"
///                 | "General" | "@"
///                 | "0" | "#" | "?" | "." | "," | "%" | ("E" | "e") ("+" | "-") | "/" N?
///                 | "d"{1,4} | "aaa" "a"? | "m"{1,5} | "yy" | "yyyy" | "h"{1,2} | "s"{1,2} | "." "0"+
///                 | "[h]" | "[m]" | "[s]" | "AM/PM" | "A/P" | "g"{1,3} | "e"{1,2} | "bb" | "bbbb"
///                 | CHARACTER                                                any other one stands for itself
///
/// Words and letters go in any case, and runs of more letters than these are the longest of them; six and
/// more "m" are four. A section has either digits, or parts of a date and time, or "General", or "@". "m"
/// beside hours or seconds is minutes. A comma between digits groups thousands, one after them divides by
/// 1000.
class OFFICEUTILS_API Parser
{
public:
    /// Who writes the codes. They read the same, but for letters that mean nothing: in a spreadsheet they
    /// stand for themselves, in the model they must be quoted.
    enum class ParserType
    {
        Model = 0,
        Spreadsheet = 1,
    };

    /// The longest code that is read, in bytes.
    static constexpr std::size_t CodeLengthMax = 1024;

    /// @return nothing where @p code is no valid code of the dialect. Linear in the length of the code
    static boost::optional<DOM::CellFormatModel::Expression> parse(const std::string& code, ParserType type);

    /// The canonical code of an expression: parse() makes the same expression out of it. Texts are quoted in
    /// the model's dialect; in a spreadsheet's, blanks and punctuation at their ends are escaped instead.
    ///
    ///     toRegEx(*parse("0.00 \"pt\"", type), ParserType::Spreadsheet);    // 0.00\ "pt"
    ///     toRegEx(*parse("0.00 \"pt\"", type), ParserType::Model);          // 0.00" pt"
    static std::string toRegEx(const DOM::CellFormatModel::Expression& expression, ParserType type);

    /// What a date or time looks like in a locale, as a code that both dialects read:
    /// "dddd\,\ mmmm\ d\,\ yyyy". Empty for an expression without items.
    ///
    /// Throws std::runtime_error where ICU has no patterns to offer, as without its data.
    static std::string toRegEx(
        const DOM::CellFormatModel::DateTimeLocalizedExpression& expression, const LocaleContext& context);
};

} // namespace QV::OfficeUtils
