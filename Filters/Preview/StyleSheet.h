#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace QV::Filters {

/// The rules of a page's style sheet, each once, however many elements share it.
class StyleSheet
{
public:
    /// The class of elements with these declarations; empty for no declarations.
    std::string getClass(const std::string& declarations)
    {
        if (declarations.empty())
            return {};
        const auto added = _classes.emplace(declarations, "c" + std::to_string(_classes.size()));
        if (added.second)
            _rules.push_back("." + added.first->second + "{" + declarations + "}");
        return added.first->second;
    }

    /// In the order of first use.
    const std::vector<std::string>& getRules() const { return _rules; }

private:
    std::unordered_map<std::string, std::string> _classes;
    std::vector<std::string> _rules;
};

} // namespace QV::Filters
