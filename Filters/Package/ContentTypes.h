#pragma once

#include <string>
#include <unordered_map>

#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Package;

/// The content types of a package's parts, as [Content_Types].xml gives them: by part, else by extension.
class FILTERS_API ContentTypes
{
public:
    /// Reads [Content_Types].xml. What is wrong in it is skipped, each with one message:
    ///     - "Part {} is missing": there is none, so no type is known
    ///     - "Part {} is not well-formed XML, line {}": likewise
    ///     - "Content type {} is for no part and no extension"
    ///     - "Content type of {} is given twice": the first one stands
    ///
    /// Throws PackageError as readXml does.
    static ContentTypes read(Package& package, OperationReport& report);

    /// The type as it is written, or the empty text where none is known.
    const std::string& getType(const std::string& part) const;

    /// The types given to single parts, by makePartKey of the part's name.
    const std::unordered_map<std::string, std::string>& getOverrides() const { return _byPart; }

private:
    std::unordered_map<std::string, std::string> _byPart;
    std::unordered_map<std::string, std::string> _byExtension;
};

} // namespace QV::Filters
