#pragma once

#include <functional>
#include <initializer_list>
#include <set>
#include <string>

#include <FilterUtils/FU_XMLElement.h>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// Children of an element as a reader sees them that understands some extensions: those inside of a
/// mc:AlternateContent element count as children of its parent, if they stand in the branch that is meant for
/// the reader (ISO/IEC 29500-3, 7.6): in the first mc:Choice all of whose required namespaces are understood,
/// else in mc:Fallback.
///
///     const AlternateContent children(root, {"http://schemas.microsoft.com/office/drawing/2010/main"});
///     children.processElements(run, names(Vocabulary::WordProcessing, "drawing"), [&](const XMLElement&
///     drawing) {
///         ...
///     });
///
/// Immutable.
class FILTERS_API AlternateContent
{
public:
    /// @param root the part's root element, where namespace prefixes are usually declared
    /// @param understood URIs of the namespaces that the reader understands, besides those of the document's
    ///     own vocabularies in either dialect (see Namespaces.h), which every reader does
    AlternateContent(FilterUtils::XMLElement root, std::set<std::string> understood);

    /// Calls @p function for each child of @p parent that has the qualified name, the direct ones first, then
    /// those in the chosen branches; each group in document order, and branches inside of branches likewise.
    ///
    /// Prefixes in mc:Choice/@Requires are looked up on the choice, on mc:AlternateContent, on @p parent and
    /// on the root; one that is declared elsewhere counts as not understood. So does a choice that requires
    /// nothing, since it must require something.
    void processElements(const FilterUtils::XMLElement& parent, const std::string& name,
        const std::function<void(const FilterUtils::XMLElement&)>& function) const;

    /// The first element that processElements would visit, or the invalid view.
    FilterUtils::XMLElement getElement(const FilterUtils::XMLElement& parent, const std::string& name) const;

    /// The branch of a mc:AlternateContent element that is meant for the reader; the invalid view where there
    /// is none.
    FilterUtils::XMLElement findBranch(
        const FilterUtils::XMLElement& alternateContent, const FilterUtils::XMLElement& parent) const;

private:
    // The first scope that declares a prefix decides about it.
    bool isUnderstood(
        const std::string& prefixes, std::initializer_list<FilterUtils::XMLElement> scopes) const;

    FilterUtils::XMLElement _root;
    std::set<std::string> _understood;
};

} // namespace QV::Filters
