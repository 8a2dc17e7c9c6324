#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include <Filters/Package/Export.h>
#include <Filters/Spreadsheet/DrawingObjects.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Colors;
class DrawingMessages;
class Package;

/// Reads a drawing part as a stream, and hands over each anchor as it ends. An object that stands in no
/// anchor comes in one of the kind None. Of alternate content, only the fallback is read.
///
/// Groups lie within groups up to a depth of 50; deeper ones are left out, with one message for the part.
class FILTERS_API DrawingReader
{
public:
    using TakeAnchor = std::function<void(DrawnAnchor)>;

    DrawingReader(Package& package, const Colors& colors, OperationReport& report)
        : _package(package)
        , _colors(colors)
        , _report(report)
    {
    }

    /// @param objectsMax how many objects are read at most, groups included
    /// @return how many there were; more than @p objectsMax where the rest was left out
    std::size_t read(const std::string& part, std::size_t objectsMax, DrawingMessages& messages,
        const TakeAnchor& takeAnchor);

private:
    Package& _package;
    const Colors& _colors;
    OperationReport& _report;
};

} // namespace QV::Filters
