#include <Filters/Package/DocumentLinks.h>

#include <cstddef>

#include <boost/filesystem/exception.hpp>
#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <FilterUtils/FU_DocumentLinks.h>
#include <Utils/Public/OperationReport.h>

#include <Filters/Package/ContentTypes.h>
#include <Filters/Package/MainPart.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PartNames.h>
#include <Filters/Package/Relationships.h>

namespace QV::Filters {
namespace {

/// The part whose relationships @p part holds: the opposite of makeRelationshipsPartName.
boost::optional<std::string> findSourcePart(const std::string& part)
{
    const boost::string_ref Folder = "_rels/";
    const boost::string_ref Extension = ".rels";
    const std::size_t nameBegin = part.rfind('/') + 1; // 0 where there is no folder
    const boost::string_ref name = boost::string_ref(part).substr(nameBegin);
    if (nameBegin < Folder.size() || name.size() < Extension.size())
        return boost::none;
    const std::size_t folderBegin = nameBegin - Folder.size();
    const bool isFolder =
        equalWithoutCase(boost::string_ref(part).substr(folderBegin, Folder.size()), Folder);
    const bool isWhole = folderBegin == 0 || part[folderBegin - 1] == '/';
    if (!isFolder || !isWhole || !equalWithoutCase(name.substr(name.size() - Extension.size()), Extension))
        return boost::none;
    return part.substr(0, folderBegin) + name.substr(0, name.size() - Extension.size()).to_string();
}

std::string getKind(const std::string& type)
{
    const std::string kind = type.substr(type.rfind('/') + 1);
    return kind.empty() ? type : kind;
}

// A drive letter is no scheme here: "C:\book.xlsx" is a file, wherever that may be.
bool isRemote(boost::string_ref target)
{
    const boost::string_ref SchemeCharacters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+-.";
    constexpr std::size_t ShortestScheme = 2;
    if (target.starts_with("//") || target.starts_with("\\\\"))
        return true;
    const std::size_t end = target.find_first_not_of(SchemeCharacters);
    return end != boost::string_ref::npos && target[end] == ':' && end >= ShortestScheme &&
           !equalWithoutCase(target.substr(0, end), "file");
}

std::string findFile(const std::string& documentPath, const std::string& target)
{
    try {
        const std::string file = FilterUtils::findFileURL(documentPath, target);
        return file.empty() ? FilterUtils::findFileURL(
                                  documentPath, decodePercents(target.substr(0, target.find('#'))))
                            : file;
    } catch (const boost::filesystem::filesystem_error&) {
        return {}; // a folder that we may not look into, say
    }
}

void resolve(DocumentLink& link, const std::string& documentPath)
{
    if (link.target.empty() || link.target.front() == '#')
        link.place = LinkPlace::Inside;
    else if (isRemote(link.target))
        link.place = LinkPlace::Remote;
    else
        link.file = findFile(documentPath, link.target);
    if (!link.file.empty())
        link.place = LinkPlace::Found;
}

/// Throws where a package that has no relationships is no document either.
void requireDocument(Package& package, OperationReport& report)
{
    if (!package.findPart(makeRelationshipsPartName({})))
        findMainPart(package, ContentTypes::read(package, report), Relationships::read(package, {}, report));
}

} // namespace

std::vector<DocumentLink> readDocumentLinks(
    Package& package, const std::string& documentPath, OperationReport& report)
{
    requireDocument(package, report);
    std::vector<DocumentLink> links;
    OperationReport all;
    for (const std::string& part : package.getPartNames()) {
        const auto source = findSourcePart(part);
        if (!source)
            continue;
        const Relationships relationships = Relationships::read(package, *source, all);
        for (const Relationship& relationship : relationships.getAll()) {
            if (!relationship.isExternal)
                continue;
            links.push_back({getKind(relationship.type), *source, relationship.id, relationship.target,
                LinkPlace::Missing, {}});
            resolve(links.back(), documentPath);
        }
    }
    for (const OperationReport::Message& message : all.getMessages())
        if (message.getText() != Relationships::NotFollowedMessage)
            report.emplace_back(message);
    return links;
}

const char* getName(LinkPlace place)
{
    switch (place) {
    case LinkPlace::Found:
        return "found";
    case LinkPlace::Missing:
        return "missing";
    case LinkPlace::Remote:
        return "remote";
    case LinkPlace::Inside:
        return "inside";
    }
    return "";
}

} // namespace QV::Filters
