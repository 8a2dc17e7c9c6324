#pragma once

/// @file
/// Names of parts: how an archive spells them, when two are the same, and where a relationship's target
/// leads.
///
/// A part name is written without a leading "/": "xl/workbook.xml". The empty name stands for the package
/// itself where a source of relationships is asked for.

#include <string>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Puts each percent-encoded character back, once. A "%" without two hexadecimal digits stands for itself.
FILTERS_API std::string decodePercents(boost::string_ref text);

/// Brings the name of an archive's item into the form of a part name: "\" becomes "/", one leading "/" is
/// dropped, and so are empty and "." segments. Percent-encoded characters stay as they are written.
///
///     normalizePartName("\\xl\\workbook.xml"); // "xl/workbook.xml"
///     normalizePartName("../evil.xml");        // nothing
///
/// @return nothing where the name is empty, starts with two slashes or a drive letter, has a ".." segment
///     (percent-encoded or not), a control character or a percent-encoded slash or control character
FILTERS_API boost::optional<std::string> normalizePartName(boost::string_ref name);

/// What equal names have in common: two parts are the same one when their keys are. Percent-encoded
/// characters are decoded, once, and ASCII letters lower-cased.
///
/// @param name in the form of normalizePartName
FILTERS_API std::string makePartKey(boost::string_ref name);

/// Resolves the target of an internal relationship against the part that holds the relationship.
///
///     resolveTarget("xl/worksheets/sheet1.xml", "../media/a.png"); // "xl/media/a.png"
///     resolveTarget("xl/worksheets/sheet1.xml", "/xl/styles.xml"); // "xl/styles.xml"
///     resolveTarget("", "xl/workbook.xml#Sheet1");                 // "xl/workbook.xml"
///     resolveTarget("xl/workbook.xml", "#Sheet1");                 // "xl/workbook.xml"
///
/// @return the name of a part, which need not exist; or nothing where the target leaves the package (too many
///     "..", a scheme, a drive letter, a host), leads to no part, or is no part name
FILTERS_API boost::optional<std::string> resolveTarget(
    const std::string& sourcePart, boost::string_ref target);

/// Where the relationships of @p part are kept: "xl/workbook.xml" has "xl/_rels/workbook.xml.rels", the
/// package itself "_rels/.rels".
FILTERS_API std::string makeRelationshipsPartName(const std::string& part);

/// The text after the last "." of the name's last segment, lower-cased (ASCII); empty without a ".".
FILTERS_API std::string getPartExtension(const std::string& part);

/// True where the texts are equal but for the case of ASCII letters.
FILTERS_API bool equalWithoutCase(boost::string_ref left, boost::string_ref right);

} // namespace QV::Filters
