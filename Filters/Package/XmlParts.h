#pragma once

/// @file
/// The one place where parts of a package meet an XML reader.

#include <string>

#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLReadOptions.h>
#include <FilterUtils/FU_XMLStreamReader.h>
#include <FilterUtils/FU_XMLVocabulary.h>

#include <Filters/Package/Export.h>
#include <Filters/Package/Namespaces.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Package;

/// Reads a part as a tree, and returns its root, whatever its name. For parts of moderate size: a tree takes
/// some 40 bytes for each byte of XML.
///
/// Malformed XML gives the invalid view, after adding one message:
///     - "Part {} is not well-formed XML, line {}"
///
/// Throws PackageError, besides what reading the part throws:
///     - Refused: the part has a document type declaration, which packages may not have, or is in an
///       encoding other than UTF-8, UTF-16 and ISO-8859-1
///     - LimitExceeded: the part is longer than PackageLimits::treeBytes, or breaks a bound of XMLReadOptions
FILTERS_API FilterUtils::XMLElement readXml(
    Package& package, const std::string& part, OperationReport& report);

/// Reads a part as a stream of elements, in constant memory, however long it is (see XMLStreamReader).
///
///     const XMLVocabulary words({makeXmlNamespace("x", Vocabulary::Spreadsheet)}, {{Row, "x:row"}, {Cell,
///     "x:c"}}); readXmlStream(package, "xl/worksheets/sheet1.xml", words, handler, report);
///
/// Malformed XML ends the reading after adding the message of readXml; the handler has then met what stands
/// before. Throws as readXml does, and what the handler throws; `treeBytes` does not bound a stream.
///
/// @return false where the XML is malformed
FILTERS_API bool readXmlStream(Package& package, const std::string& part,
    const FilterUtils::XMLVocabulary& words, FilterUtils::XMLStreamHandler& handler, OperationReport& report);

/// A namespace for a stream's words that stands for both dialects of @p vocabulary.
FILTERS_API FilterUtils::XMLVocabulary::Namespace makeXmlNamespace(
    const std::string& alias, Vocabulary vocabulary);

/// How parts are read: XMLReadOptions without a document type, and in UTF-8, UTF-16 or ISO-8859-1.
FILTERS_API FilterUtils::XMLReadOptions makePartReadOptions();

/// Says what the end of a reading means for @p part: throws, reports or does nothing, as readXml describes.
///
/// @return true where the part was read to its end, or as far as its reader wanted
FILTERS_API bool judgeReading(
    const FilterUtils::XMLReadResult& result, const std::string& part, OperationReport& report);

} // namespace QV::Filters
