#pragma once

#include <string>
#include <vector>

#include <Tests/Support/ZipBuilder.h>

namespace QV::Tests {

inline const std::string ContentTypesNamespace =
    "http://schemas.openxmlformats.org/package/2006/content-types";
inline const std::string RelationshipsNamespace =
    "http://schemas.openxmlformats.org/package/2006/relationships";
inline const std::string TransitionalTypes =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
inline const std::string StrictTypes = "http://purl.oclc.org/ooxml/officeDocument/relationships/";
inline const std::string WorkbookType =
    "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml";

/// The item [Content_Types].xml around some Default and Override elements.
inline ZipItem makeContentTypes(const std::string& elements)
{
    return {"[Content_Types].xml", "<Types xmlns=\"" + ContentTypesNamespace + "\">" + elements + "</Types>"};
}

/// An Override element.
inline std::string makeOverride(const std::string& part, const std::string& type)
{
    return "<Override PartName=\"" + part + "\" ContentType=\"" + type + "\"/>";
}

/// An item of relationships around some Relationship elements.
inline ZipItem makeRelationships(const std::string& part, const std::string& elements)
{
    return {part, "<Relationships xmlns=\"" + RelationshipsNamespace + "\">" + elements + "</Relationships>"};
}

/// A Relationship element; @p more holds further attributes.
inline std::string makeRelationship(
    const std::string& id, const std::string& type, const std::string& target, const std::string& more = {})
{
    return "<Relationship Id=\"" + id + "\" Type=\"" + type + "\" Target=\"" + target + "\" " + more + "/>";
}

} // namespace QV::Tests
