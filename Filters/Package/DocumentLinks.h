#pragma once

/// @file
/// What a package refers to outside of itself: other documents, pictures, pages, whatever the kind of
/// document.

#include <string>
#include <vector>

#include <Filters/Package/Export.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Package;

/// Where a link leads.
enum class LinkPlace
{
    Found,   ///< to a file or folder that is there
    Missing, ///< to a file that is not there, or that the system does not let us see
    Remote,  ///< to another host, or by a scheme other than "file": never looked up
    Inside,  ///< to a place in the document itself: "#Sheet1!A1", or nothing at all
};

/// One external relationship.
struct FILTERS_API DocumentLink
{
    std::string kind;   ///< the last word of the type: "externalLinkPath", "hyperlink", "image"
    std::string part;   ///< that has the relationship; empty for the package itself
    std::string id;     ///< empty where it was left out
    std::string target; ///< as it is written
    LinkPlace place = LinkPlace::Missing;
    std::string file; ///< the path of what was found
};

/// The external relationships of all parts, used by anything or not, in the order of the archive and of the
/// relationships. Nothing that they lead to is opened: files are looked for, as FilterUtils::findFileURL does
/// it with the target as it is written, and then without "#" and what follows, percent-encoded characters
/// decoded.
///
/// @param documentPath of the package; empty for one without a place
///
/// What is wrong with relationships is reported as Relationships::read does it, but for external targets,
/// which are what is asked for. Throws PackageError as findMainPart does, where the package has no
/// relationships of its own and is no document; else as readXml does.
FILTERS_API std::vector<DocumentLink> readDocumentLinks(
    Package& package, const std::string& documentPath, OperationReport& report);

/// The name of a place for people and programs: "found", "missing", "remote" or "inside".
FILTERS_API const char* getName(LinkPlace place);

} // namespace QV::Filters
