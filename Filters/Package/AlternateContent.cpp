#include <Filters/Package/AlternateContent.h>

#include <algorithm>
#include <iterator>
#include <locale>
#include <sstream>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <Filters/Package/Namespaces.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

// Namespaces in XML 1.0, 3: declarations are attributes in this namespace.
const std::string DeclarationPrefix = "http://www.w3.org/2000/xmlns/:";

struct CompatibilityNames
{
    std::string content;
    std::string choice;
    std::string fallback;
};

const CompatibilityNames& getNames()
{
    static const Names names(Dialect::Transitional);
    static const CompatibilityNames all = {
        names(Vocabulary::MarkupCompatibility, "AlternateContent"),
        names(Vocabulary::MarkupCompatibility, "Choice"),
        names(Vocabulary::MarkupCompatibility, "Fallback"),
    };
    return all;
}

} // namespace

AlternateContent::AlternateContent(XMLElement root, std::set<std::string> understood)
    : _root(std::move(root))
    , _understood(std::move(understood))
{
}

void AlternateContent::processElements(const XMLElement& parent, const std::string& name,
    const std::function<void(const XMLElement&)>& function) const
{
    parent.processElements(name, function);
    parent.processElements(getNames().content, [&](const XMLElement& alternateContent) {
        processElements(findBranch(alternateContent, parent), name, function);
    });
}

XMLElement AlternateContent::getElement(const XMLElement& parent, const std::string& name) const
{
    XMLElement first = parent.getElement(name);
    if (first.isValid())
        return first;
    parent.processElements(getNames().content, [&](const XMLElement& alternateContent) {
        if (!first.isValid())
            first = getElement(findBranch(alternateContent, parent), name);
    });
    return first;
}

XMLElement AlternateContent::findBranch(const XMLElement& alternateContent, const XMLElement& parent) const
{
    XMLElement branch;
    alternateContent.processElements(getNames().choice, [&](const XMLElement& choice) {
        const auto prefixes = choice.getAttributeValue("Requires");
        if (!branch.isValid() && prefixes &&
            isUnderstood(*prefixes, {choice, alternateContent, parent, _root}))
            branch = choice;
    });
    return branch.isValid() ? branch : alternateContent.getElement(getNames().fallback);
}

bool AlternateContent::isUnderstood(
    const std::string& prefixes, std::initializer_list<XMLElement> scopes) const
{
    const auto isPrefixUnderstood = [&](const std::string& prefix) {
        for (const XMLElement& scope : scopes)
            if (const auto uri = scope.getAttributeValue(DeclarationPrefix + prefix))
                return _understood.count(*uri) != 0 || findDialectOfNamespace(*uri).has_value();
        return false;
    };
    std::istringstream words(prefixes);
    words.imbue(std::locale::classic());
    const std::vector<std::string> all(std::istream_iterator<std::string>(words), {});
    return !all.empty() && std::all_of(all.begin(), all.end(), isPrefixUnderstood);
}

} // namespace QV::Filters
