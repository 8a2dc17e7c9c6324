#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <DOM/Public/CellFormatModel.h>
#include <OfficeUtils/Public/Parser.h>

namespace QV::OfficeUtils {

/// A section as it is spelled: what its tokens mean beside each other is not yet known.
struct ScannedSection
{
    std::vector<DOM::CellFormatModel::Token> tokens;
    boost::optional<DOM::CellFormatModel::Condition> condition;
    boost::optional<unsigned> colorNumber;
    boost::optional<unsigned long> language;
};

/// Cuts a code into the tokens of its sections. A comma is a GroupComma, a slash a FractionBar, a number
/// from 1 up a Denominator and "m" a Month, whatever they turn out to be.
class SectionScanner
{
public:
    SectionScanner(const std::string& code, Parser::ParserType type);

    bool isAtEnd() const { return _position == _code.size(); }
    /// Passes a ";".
    bool skipSeparator();
    /// Reads up to the next ";" or to the end. Nothing where the code is not valid.
    boost::optional<ScannedSection> readSection();

private:
    using Kind = DOM::CellFormatModel::TokenKind;

    bool readPiece();
    bool readQuoted();
    bool readCharacter(Kind kind);
    bool readBracket();
    bool readNumberSign();
    bool readWord();
    bool readLetters(char letter);
    bool readLiteral();
    bool addColor(boost::string_ref content);
    bool addCondition(boost::string_ref content);
    bool addMark(boost::string_ref content);
    bool addElapsed(boost::string_ref content);

    void add(Kind kind, std::string text);
    bool startsWith(boost::string_ref lowerCaseWord) const;
    bool isAfterNumber() const;
    char peek(std::size_t offset = 0) const;

    boost::string_ref _code;
    Parser::ParserType _type;
    std::size_t _position = 0;
    ScannedSection _section;
};

} // namespace QV::OfficeUtils
