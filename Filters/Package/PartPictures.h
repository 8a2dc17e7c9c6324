#pragma once

#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include <DOM/Public/GraphicalObject.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

class FilterRun;
class Package;
struct Relationship;

/// Brings the pictures of drawings into the media storage. A picture that several drawings show is stored
/// once.
class FILTERS_API PartPictures
{
public:
    PartPictures(Package& package, FilterRun& run)
        : _package(package)
        , _run(run)
    {
    }

    /// The picture that a drawing refers to; null after a message where it cannot be stored, and where a
    /// linked one may not be read.
    std::unique_ptr<DOM::Picture> makePicture(const Relationship& relationship);

    /// A picture that stands in the text of a part itself; null after a message where it cannot be stored.
    ///
    /// @param mimeType what the document says; only where the bytes tell nothing, it is believed
    std::unique_ptr<DOM::Picture> makePictureFromBytes(const std::string& bytes, const std::string& mimeType);

private:
    /// A picture's id and MIME type.
    using Stored = std::pair<std::string, std::string>;

    const Stored& storeEmbedded(const std::string& part);
    const Stored& storeLinked(const std::string& target);
    /// @param name for messages
    Stored store(std::istream& in, const std::string& name, const std::string& extension);
    static std::unique_ptr<DOM::Picture> makeStored(const Stored& stored);

    Package& _package;
    FilterRun& _run;
    std::map<std::string, Stored> _stored; // by part name, or the target of a link
};

} // namespace QV::Filters
