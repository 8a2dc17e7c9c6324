#pragma once

#include <cstddef>
#include <string>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <DOM/Public/FormulaReferences.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::Formulas {

/// One end of a reference as it is written: "$B$1" has both axes, "$B" a column alone, "1" a row alone.
struct ScannedEnd
{
    boost::optional<DOM::FormulaSyntaxTree::ColumnAxisIndex> column;
    boost::optional<DOM::FormulaSyntaxTree::RowAxisIndex> row;
};

/// What stands before the "!" of a reference, and tells where it lies.
struct ScannedPlace
{
    std::string document;
    std::string firstTable;
    std::string secondTable;
};

/// The words of references, taken from the front of a text. Each operation takes its word and says so, or
/// leaves the text as it is. Does not read beyond the text, and copies only what it returns.
class ReferenceScanner
{
public:
    explicit ReferenceScanner(boost::string_ref text)
        : _rest(text)
    {
    }

    bool isAtEnd() const { return _rest.empty(); }
    /// What is not taken yet.
    boost::string_ref getRest() const { return _rest; }
    /// Takes @p size characters, of which there are so many.
    void advance(std::size_t size) { _rest.remove_prefix(size); }

    void skipBlanks();
    /// Takes blanks, tabs and line ends.
    void skipWhiteSpace();
    bool skip(char character);
    /// Takes @p word, case and all.
    bool skipWord(boost::string_ref word);
    /// The same for ASCII letters of either case.
    bool skipWordOfAnyCase(boost::string_ref word);
    /// Whether the text goes on with the name of a table and "!".
    bool isTableNext() const;

    /// Place ::= Document? Tables "!" | Document "!" | "'" ((Path? Document)? Tables, with "'" doubled) "'"
    /// "!" What could be a cell is no first one of two tables without quotes or a document before it.
    boost::optional<ScannedPlace> scanPlace();

    /// End ::= "$"? Letters "$"? Digits | "$"? Letters | "$"? Digits, within the largest sheet, and not the
    /// beginning of a longer word, of a call, of a place or of a reference to the columns of a table.
    boost::optional<ScannedEnd> scanEnd();

    /// A defined name: a letter, "_", "\" or any character beyond ASCII, then those, digits, "." and "?".
    /// The constants TRUE and FALSE are none.
    boost::optional<std::string> scanName();
    /// The same with the constants; empty where there is none.
    boost::string_ref scanWord();

private:
    boost::optional<std::string> scanDocument();
    boost::optional<std::string> scanTableName();
    boost::optional<std::string> scanQuoted();
    boost::optional<ScannedPlace> scanPlainPlace();
    boost::optional<ScannedPlace> scanQuotedPlace();
    boost::optional<DOM::FormulaSyntaxTree::ColumnAxisIndex> scanColumn();
    boost::optional<DOM::FormulaSyntaxTree::RowAxisIndex> scanRow();
    bool isCellNext() const;
    bool isInsideWord() const;

    boost::string_ref _rest;
};

/// The constants TRUE and FALSE, of either case.
boost::optional<bool> readTruth(boost::string_ref word);

/// The letters of a column within the largest sheet, of either case.
boost::optional<ColumnIndex> readColumn(boost::string_ref word);

/// Whether a table's name can stand before "!" without quotes, and is taken for nothing else there.
bool isPlainTableName(boost::string_ref name);

} // namespace QV::Formulas
