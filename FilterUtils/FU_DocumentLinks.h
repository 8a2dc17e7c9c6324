#pragma once

/// @file
/// Other documents that the formulas of a workbook refer to, and where they lie.

#include <string>

#include <boost/unordered_set.hpp>
#include <boost/utility/string_ref.hpp>

#include <FilterUtils/FU_Export.h>

namespace QV::DOM {
class Document;
}

namespace QV::FilterUtils {

/// The URLs of documents that the formulas of cells refer to, each once and as the formulas have it.
///
/// Looks into operators, calls and lists, but not into array constants, nor into blocks of classes derived
/// from DOM::Table; formulas of charts are no formulas of cells. Constant stack.
FILTERUTILS_API boost::unordered_set<std::string> findDocURLs(const DOM::Document& document);

/// The path of the file or folder that a link of a document leads to; empty where there is none.
///
///     URL ::= "file://"? PATH        no other scheme is known, and nothing is decoded
///
/// PATH as it stands comes first, be it absolute or relative to the working directory; then PATH below the
/// folder of the document, also where it is absolute.
///
///     findFileURL("/docs/book.xlsx", "file:///tmp/a.xlsx");    // "/tmp/a.xlsx"
///     findFileURL("/docs/book.xlsx", "b.xlsx");                // "/docs/b.xlsx"
///
/// The empty PATH leads to the document's folder. Opens nothing.
/// Throws boost::filesystem::filesystem_error where the system cannot tell whether a file is there.
FILTERUTILS_API std::string findFileURL(const boost::string_ref& documentPath, boost::string_ref url);

} // namespace QV::FilterUtils
