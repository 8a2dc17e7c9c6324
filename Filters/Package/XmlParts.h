#pragma once

/// @file
/// The one place where parts of a package meet an XML reader.

#include <string>

#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLReadOptions.h>

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
///     - Refused: the part has a document type declaration, which packages may not have, or is neither in
///       UTF-8 nor in UTF-16
///     - LimitExceeded: the part is longer than PackageLimits::treeBytes, or breaks a bound of XMLReadOptions
FILTERS_API FilterUtils::XMLElement readXml(
    Package& package, const std::string& part, OperationReport& report);

/// How parts are read: XMLReadOptions without a document type, and in UTF-8 or UTF-16 only.
FILTERS_API FilterUtils::XMLReadOptions makePartReadOptions();

/// Says what the end of a reading means for @p part: throws, reports or does nothing, as readXml describes.
///
/// @return true where the part was read to its end, or as far as its reader wanted
FILTERS_API bool judgeReading(
    const FilterUtils::XMLReadResult& result, const std::string& part, OperationReport& report);

} // namespace QV::Filters
