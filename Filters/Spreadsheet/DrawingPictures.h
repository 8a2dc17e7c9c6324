#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <utility>

#include <Filters/Package/Export.h>

namespace QV::DOM {
class Table;
}

namespace QV::Filters {

class FilterRun;
class Package;
struct Relationship;

/// Brings the pictures of drawings into the media storage and onto the sheets. A picture that several
/// drawings show is stored once.
class FILTERS_API DrawingPictures
{
public:
    DrawingPictures(Package& package, FilterRun& run)
        : _package(package)
        , _run(run)
    {
    }

    /// Gives the table a frame for each picture of a drawing part, in the order in which they are drawn.
    /// Pictures that are missing or cannot be stored are reported.
    void read(const std::string& drawingPart, DOM::Table& table);

private:
    /// A picture's id and MIME type.
    using Stored = std::pair<std::string, std::string>;

    void showPicture(const Relationship& relationship, DOM::Table& table);
    const Stored& storeEmbedded(const std::string& part);
    const Stored& storeLinked(const std::string& target);
    Stored store(std::istream& in, const std::string& name);

    Package& _package;
    FilterRun& _run;
    std::map<std::string, Stored> _stored; // by part name, or the target of a link
};

} // namespace QV::Filters
