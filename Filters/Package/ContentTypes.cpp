#include <Filters/Package/ContentTypes.h>

#include <boost/optional.hpp>

#include <FilterUtils/FU_XMLElement.h>
#include <Utils/Public/OperationReport.h>

#include <Filters/Package/Namespaces.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PartNames.h>
#include <Filters/Package/XmlParts.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using TypesByKey = std::unordered_map<std::string, std::string>;

const char* const ContentTypesPart = "[Content_Types].xml";

void add(TypesByKey& types, const boost::optional<std::string>& key, const boost::optional<std::string>& type,
    OperationReport& report)
{
    if (!key || !type)
        report.emplace_back("Content type {} is for no part and no extension", type.value_or(std::string()));
    else if (!types.emplace(*key, *type).second)
        report.emplace_back("Content type of {} is given twice", *key);
}

boost::optional<std::string> makeKey(const boost::optional<std::string>& text)
{
    const auto name = text ? normalizePartName(*text) : boost::none;
    return name ? boost::make_optional(makePartKey(*name)) : boost::none;
}

} // namespace

ContentTypes ContentTypes::read(Package& package, OperationReport& report)
{
    ContentTypes types;
    if (!package.findPart(ContentTypesPart)) {
        report.emplace_back("Part {} is missing", ContentTypesPart);
        return types;
    }
    const Names names(Dialect::Transitional);
    const XMLElement root = readXml(package, ContentTypesPart, report);
    root.processElements(names(Vocabulary::ContentTypes, "Override"), [&](const XMLElement& element) {
        add(types._byPart, makeKey(element.getAttributeValue("PartName")),
            element.getAttributeValue("ContentType"), report);
    });
    root.processElements(names(Vocabulary::ContentTypes, "Default"), [&](const XMLElement& element) {
        add(types._byExtension, makeKey(element.getAttributeValue("Extension")),
            element.getAttributeValue("ContentType"), report);
    });
    return types;
}

const std::string& ContentTypes::getType(const std::string& part) const
{
    static const std::string unknown;
    const auto name = normalizePartName(part);
    if (!name)
        return unknown;
    const auto byPart = _byPart.find(makePartKey(*name));
    if (byPart != _byPart.end())
        return byPart->second;
    const auto byExtension = _byExtension.find(getPartExtension(*name));
    return byExtension != _byExtension.end() ? byExtension->second : unknown;
}

} // namespace QV::Filters
