#include <Filters/Package/PartPictures.h>

#include <istream>
#include <sstream>

#include <boost/filesystem/fstream.hpp>

#include <FilterUtils/FU_Pictures.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/LinkedFiles.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/PartNames.h>
#include <Filters/Package/Relationships.h>
#include <Utils/Public/MIME.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {

std::unique_ptr<DOM::Picture> PartPictures::makePicture(const Relationship& relationship)
{
    return makeStored(
        relationship.isExternal ? storeLinked(relationship.target) : storeEmbedded(relationship.target));
}

std::unique_ptr<DOM::Picture> PartPictures::makePictureFromBytes(
    const std::string& bytes, const std::string& mimeType)
{
    std::istringstream in(bytes);
    return makeStored(
        store(in, "data:" + mimeType, getFileExtensionByMIMEType(mimeType).value_or(std::string())));
}

std::unique_ptr<DOM::Picture> PartPictures::makeStored(const Stored& stored)
{
    if (stored.first.empty())
        return nullptr;
    return std::make_unique<DOM::Picture>(stored.first, stored.second);
}

const PartPictures::Stored& PartPictures::storeEmbedded(const std::string& part)
{
    const auto known = _stored.find(part);
    if (known != _stored.end())
        return known->second;
    return _stored[part] = store(*_package.openPart(part), part, getPartExtension(part));
}

const PartPictures::Stored& PartPictures::storeLinked(const std::string& target)
{
    const std::string key = "link:" + target; // no part has such a name
    const auto known = _stored.find(key);
    if (known != _stored.end())
        return known->second;

    Stored& stored = _stored[key];
    if (!_run.getOptions().followsLinks) {
        _run.getReport().emplace_back("Linked picture {} is not read, since links are not followed", target);
        return stored;
    }
    const auto file = findLinkedFile(_run.getOptions().documentFolder, target);
    if (!file) {
        _run.getReport().emplace_back("Linked picture {} is no file beside the document", target);
        return stored;
    }
    boost::filesystem::ifstream in(*file, std::ios::binary);
    const std::string name = file->filename().string();
    return stored = store(in, name, getPartExtension(name));
}

PartPictures::Stored PartPictures::store(
    std::istream& in, const std::string& name, const std::string& extension)
{
    const std::size_t count = _run.getMedia().size();
    std::string id;
    try {
        id = *FilterUtils::savePictureToMediaStorage(in, _run.getMediaStorage(), extension);
    } catch (const PackageError& error) { // what tells the type reads, too
        if (error.getKind() != PackageError::Kind::Damaged)
            throw;
    }
    if (id.empty() || _run.getMedia().size() == count) {
        _run.getReport().emplace_back("Picture {} cannot be stored", name);
        return {};
    }
    return {id, _run.getMedia().back().mimeType};
}

} // namespace QV::Filters
