#pragma once

/// @file
/// Formulas as spreadsheet files write them, with A1 references: text <-> syntax tree.

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <DOM/Public/Formula.h>
#include <Formulas/Public/Export.h>

namespace QV::Formulas {

class TableContext;

/// The URLs of the documents that a file's formulas call [1], [2] and so on.
using DocumentList = std::vector<std::string>;

/// The numbers of the documents of a list, for all formulas of a file.
class FORMULAS_API DocumentNumbers
{
public:
    /// Those of no documents.
    DocumentNumbers() = default;
    explicit DocumentNumbers(const DocumentList& documents);

    /// 1 for the first document of the list, and so on; of equal ones, the first one counts. 0 for a URL that
    /// is not in the list. Constant time on average.
    std::size_t findNumber(const std::string& url) const;

private:
    std::unordered_map<std::string, std::size_t> _numbers;
};

/// What was read, and what of it the syntax tree has no kinds for.
struct ParsedFormula
{
    DOM::Formula formula;
    bool hasTableColumns = false;     ///< references such as "Table1[Sum]", which are labels with that name
    bool hasUnknownDocuments = false; ///< numbers of documents beyond the list, which stay numbers
};

/// Reads a formula, without "=" before it or with one.
///
///     LIST    ::= EXPR ("," EXPR)*                        more than one make an ArgumentsList
///     EXPR    ::= EXPR BINARY EXPR | PREFIX EXPR | EXPR "%" | EXPR "#" | OPERAND
///     OPERAND ::= "(" LIST ")" | CALL | ARRAY | REF COLUMNS? | COLUMNS | ERROR | NUMBER | STRING | "TRUE" |
///     "FALSE" CALL    ::= PLACE? NAME "(" (EXPR? ("," EXPR?)*)? ")" ARRAY   ::= "{" ROW (";" ROW)* "}" rows
///     of one length ROW     ::= CONSTANT ("," CONSTANT)*                numbers, with a sign or without, and
///     other constants COLUMNS ::= "[" (COLUMNS | "'" any | any other)* "]"
///
/// REF, PLACE and NAME are those of parseReference; "[" digits "]" in a PLACE is a document of the list, or
/// the formula's own for 0. Operators, those that bind first above:
///
///     ":"   " " (of references)   prefix "@"   prefix "+" "-"   "%"   "^"   "*" "/"   "+" "-"   "&"
///     "=" "<>" "<" "<=" ">" ">="
///
/// All are left-associative: "-2^2" is 4 and "2^3^2" is 64. Operands of ":" and " " are references, calls,
/// errors or parentheses. Blanks and line ends may stand between all words, but not before a "(" of
/// arguments. Constants and errors are of either case.
///
///     parseFormula("SUM(A1:B2)/[1]Sheet1!C3", {"b.xlsx"});  // BinaryOp<Divide>
///     parseFormula("IF(A1,,2)");                            // the second argument is Empty
///     parseFormula("(1+2)*3");                              // as without need of parentheses in the tree
///     parseFormula("(1*2)+3");                              // the first operand is an ArgumentsList of one
///
/// Names of functions stay as they are written, "_xlfn." and places included. "@A1" and "A1#" become calls of
/// _xlfn.SINGLE and _xlfn.ANCHORARRAY, as files have them. References to columns of tables are kept as
/// labels.
///
/// @return nothing for any other text. Takes linear time and constant stack for any text.
FORMULAS_API boost::optional<ParsedFormula> parseFormula(
    boost::string_ref text, const DocumentList& documents = {});

/// The formula's text: no blanks but those that are operators, parentheses where the tree needs them, and
/// around lists. Tables are named by their current names in @p context, in quotes but for those of letters
/// and digits of any script, "_" and "." that are like no number, cell or constant; a reference to an
/// identifier that it does not know becomes "#REF!" and the cells. Documents of @p documents become their
/// numbers, others stand in brackets, with their folders before these.
///
///     toText(formula, context);                             // "SUM('My sheet'!$A$1:$C$9)"
///     toText(other, context, DocumentNumbers({"b.xlsx"}));  // "[1]Sheet1!A1"
///
/// parseFormula reads the text of any tree that it could have given back to an equal one, but for
/// identifiers, and for names of tables and documents with brackets or colons. Linear time, constant stack.
///
/// @return the text as the file has it for a formula that was not read
FORMULAS_API std::string toText(
    const DOM::Formula& formula, const TableContext& context, const DocumentNumbers& documents = {});

} // namespace QV::Formulas
