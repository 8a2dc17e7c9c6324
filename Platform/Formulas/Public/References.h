#pragma once

/// @file
/// Formulas that are references and nothing else. FormulaText.h reads and prints all formulas.

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <DOM/Public/Formula.h>
#include <Formulas/Public/Export.h>

namespace QV::Formulas {

/// Reads a formula that is a reference, or a list of references, and nothing else.
///
///     TEXT   ::= LIST | "(" LIST ")"                 blanks may stand at both ends and around "(", ")", ","
///     LIST   ::= REF ("," REF)*
///     REF    ::= PLACE? (CELL | CELL ":" CELL | COLUMN ":" COLUMN | ROW ":" ROW | NAME) | ERROR
///     ERROR  ::= PLACE? "#REF!" | "#REF!" (CELL | CELL ":" CELL | COLUMN ":" COLUMN | ROW ":" ROW | "#REF!")
///     PLACE  ::= DOC? TABLE (":" TABLE)? "!" | DOC "!" | "'" (PATH? DOC)? TABLES? "'" "!"
///     DOC    ::= "[" any characters but brackets "]"           PATH ::= any but brackets, then "/" or "\"
///     CELL   ::= COLUMN ROW       COLUMN ::= "$"? "A" to "XFD"       ROW ::= "$"? 1 to 1048576
///
/// Letters of columns and errors are of either case. A table's name in quotes has its own quotes doubled, and
/// no brackets or colons; without quotes, names of tables and documents consist of letters, digits, "_", "."
/// and whatever is beyond ASCII. Of two tables without quotes and document, the first one has no name like a
/// CELL: "A1:Sheet2!B2" is a range, for FormulaText.h to read. NAME is a defined name: any other word of
/// these, "\" and "?" that begins with no digit, "." or "?", the constants TRUE and FALSE excepted.
///
///     parseReference("Sheet1!$B$1");             // CellAddress
///     parseReference("'My sheet'!$A:C");         // CellRange, all rows
///     parseReference("Sheet1:Sheet3!A1");        // CellRange with a second table
///     parseReference("(Sheet1!A1,Sheet1!B2)");   // ArgumentsList
///     parseReference("[1]Sheet1!A1");            // getDocURL() is "1", as the file numbers its documents
///     parseReference("'d/[b.xlsx]S'!A1");        // getDocURL() is "d/b.xlsx"
///     parseReference("[0]!Rate");                // Label; document 0 is the formula's own
///     parseReference("Sheet1!#REF!");            // Error
///
/// Corners of a range come in any order, and are put in order. Tables are named by name in the tree.
///
/// @return nothing for any other text
FORMULAS_API boost::optional<DOM::Formula> parseReference(boost::string_ref text);

} // namespace QV::Formulas
