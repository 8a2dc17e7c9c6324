#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include <boost/utility/string_ref.hpp>

#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Package;

/// From a part, or from the package, to a part or out of the package.
struct FILTERS_API Relationship
{
    std::string id;     ///< unique in its source; empty where it was left out
    std::string type;   ///< the full URI
    std::string target; ///< the name of a part that is there; for an external one the text as it is written
    bool isExternal = false;

    /// True where the type is @p family in either dialect, or of the package's own kind:
    ///
    ///     isType("worksheet");                // .../officeDocument/2006/relationships/worksheet, strict
    ///     likewise isType("metadata/core-properties"); //
    ///     .../package/2006/relationships/metadata/core-properties
    ///
    /// Types of other makers are compared with `type` itself.
    bool isType(boost::string_ref family) const;
};

/// The relationships of one source, in the order of the file.
class FILTERS_API Relationships
{
public:
    /// The text of the messages about external targets.
    static constexpr const char* NotFollowedMessage = "External target {} in {} is not followed";

    /// Reads the relationships of @p sourcePart, or those of the package where that is empty. None are an
    /// empty list. What is wrong is left out, each with one message (the second argument is the part that
    /// holds the relationships):
    ///     - "Relationship {} in {} has no type or no target"
    ///     - "Relationship {} in {} is there twice": the first one stands
    ///     - "Target {} in {} leads out of the package": an internal one that resolveTarget refuses
    ///     - "Target {} in {} is missing"
    ///     - "Part {} is not well-formed XML, line {}"
    ///
    /// Kept, with a message:
    ///     - "Relationship to {} in {} has no id"
    ///     - NotFollowedMessage: an external one, other than a hyperlink or a picture
    ///
    /// Nothing external is opened or looked up here. Throws PackageError as readXml does.
    static Relationships read(Package& package, const std::string& sourcePart, OperationReport& report);

    const std::vector<Relationship>& getAll() const& { return _all; }
    const std::vector<Relationship>& getAll() const&& = delete; // would outlive the list

    /// The one with this id, or null. Valid as long as this object.
    const Relationship* findById(const std::string& id) const;

    /// The first one of this family (see Relationship::isType), or null.
    const Relationship* findByType(boost::string_ref family) const;

private:
    std::vector<Relationship> _all;
    std::unordered_map<std::string, std::size_t> _byId; // places in _all; without the empty id
};

} // namespace QV::Filters
