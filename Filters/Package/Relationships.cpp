#include <Filters/Package/Relationships.h>

#include <algorithm>
#include <utility>

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
using RelationshipOpt = boost::optional<Relationship>;

const boost::string_ref TypePrefixes[] = {
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/",
    "http://purl.oclc.org/ooxml/officeDocument/relationships/",
    "http://schemas.openxmlformats.org/package/2006/relationships/",
};

RelationshipOpt refuse(OperationReport& report, const char* pattern, const std::string& what,
    const std::string& relationshipsPart)
{
    report.emplace_back(pattern, what, relationshipsPart);
    return boost::none;
}

// Where the relationships stand that are being read.
struct Source
{
    const Package& package;
    const std::string& part;
    const std::string& relationshipsPart;
};

RelationshipOpt resolve(Relationship relationship, const Source& source, OperationReport& report)
{
    const auto resolved = resolveTarget(source.part, relationship.target);
    if (!resolved)
        return refuse(report, "Target {} in {} leads out of the package", relationship.target,
            source.relationshipsPart);
    const auto found = source.package.findPart(*resolved);
    if (!found)
        return refuse(report, "Target {} in {} is missing", *resolved, source.relationshipsPart);
    relationship.target = *found;
    return relationship;
}

RelationshipOpt readRelationship(const XMLElement& element, const Source& source, OperationReport& report)
{
    const auto type = element.getAttributeValue("Type");
    const auto target = element.getAttributeValue("Target");
    const auto mode = element.getAttributeValue("TargetMode");
    Relationship relationship;
    relationship.id = element.getAttributeValue("Id").value_or(std::string());
    relationship.isExternal = mode && equalWithoutCase(*mode, "External");
    if (!type || !target)
        return refuse(report, "Relationship {} in {} has no type or no target", relationship.id,
            source.relationshipsPart);
    relationship.type = *type;
    relationship.target = *target;
    if (!relationship.isExternal)
        return resolve(std::move(relationship), source, report);
    if (!relationship.isType("hyperlink") &&
        !relationship.isType("image")) // who shows a picture speaks of it
        report.emplace_back(Relationships::NotFollowedMessage, *target, source.relationshipsPart);
    return relationship;
}

} // namespace

bool Relationship::isType(boost::string_ref family) const
{
    return std::any_of(std::begin(TypePrefixes), std::end(TypePrefixes), [&](boost::string_ref prefix) {
        // Writers differ in the case of the prefix, never in that of the family.
        return type.size() == prefix.size() + family.size() &&
               equalWithoutCase(boost::string_ref(type).substr(0, prefix.size()), prefix) &&
               boost::string_ref(type).substr(prefix.size()) == family;
    });
}

Relationships Relationships::read(Package& package, const std::string& sourcePart, OperationReport& report)
{
    Relationships relationships;
    const auto part = package.findPart(makeRelationshipsPartName(sourcePart));
    if (!part)
        return relationships;
    const Source source{package, sourcePart, *part};
    const XMLElement root = readXml(package, *part, report);
    const Names names(Dialect::Transitional);
    root.processElements(
        names(Vocabulary::PackageRelationships, "Relationship"), [&](const XMLElement& element) {
            const auto relationship = readRelationship(element, source, report);
            if (!relationship)
                return;
            if (relationship->id.empty())
                report.emplace_back("Relationship to {} in {} has no id", relationship->target, *part);
            else if (!relationships._byId.emplace(relationship->id, relationships._all.size()).second) {
                report.emplace_back("Relationship {} in {} is there twice", relationship->id, *part);
                return;
            }
            relationships._all.push_back(*relationship);
        });
    return relationships;
}

const Relationship* Relationships::findById(const std::string& id) const
{
    const auto found = _byId.find(id);
    return found == _byId.end() ? nullptr : &_all[found->second];
}

const Relationship* Relationships::findByType(boost::string_ref family) const
{
    const auto found = std::find_if(_all.begin(), _all.end(),
        [family](const Relationship& relationship) { return relationship.isType(family); });
    return found == _all.end() ? nullptr : &*found;
}

} // namespace QV::Filters
