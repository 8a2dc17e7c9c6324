#pragma once

/// @file
/// Which kind of document a package is, and where it starts.

#include <string>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <Filters/Package/Export.h>
#include <Filters/Package/Namespaces.h>

namespace QV::Filters {

class ContentTypes;
class Package;
class Relationships;

enum class DocumentKind
{
    Spreadsheet, ///< xlsx, xlsm, xltx, xltm, xlam
    Text,        ///< docx, docm, dotx, dotm
    Presentation ///< pptx, pptm, potx, potm, ppsx, ppsm, ppam
};

/// The part that a document starts from.
struct MainPart
{
    std::string name;
    std::string contentType; ///< empty where the package gives none
    DocumentKind kind;
    Dialect dialect; ///< of the relationship that leads to the part
};

/// Finds the main part: the target of the package's relationship "officeDocument"; without one that leads to
/// a part, the first part whose own content type is that of a document. Its kind is told by its content type,
/// and where the package gives none, or one as plain as "application/xml", by the folder of its kind ("xl",
/// "word" or "ppt").
///
/// Throws PackageError:
///     - MissingPart: there is none
///     - Unsupported: it is of another kind, which is named, such as a binary workbook; or the package is an
///       archive of another family with a "mimetype" item, which is named
FILTERS_API MainPart findMainPart(
    Package& package, const ContentTypes& types, const Relationships& relationships);

/// The kind of document that a main part of this content type is, or nothing. Compares without case, and
/// without parameters (after ";").
FILTERS_API boost::optional<DocumentKind> findDocumentKind(boost::string_ref contentType);

} // namespace QV::Filters
