#pragma once

#include <string>

#include <boost/optional.hpp>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Package;

/// The rich text of a chart's title: its paragraphs, joined by "\n", as are the lines of a paragraph. Nothing
/// where the title of the chart part has none.
boost::optional<std::string> readRichTitle(
    Package& package, const std::string& part, OperationReport& report);

} // namespace QV::Filters
