#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <unordered_map>
#include <vector>

namespace QV::Filters {

/// The rules of a page's style sheet, each once, however many elements share it.
class StyleSheet
{
public:
    explicit StyleSheet(std::size_t rulesMax = std::numeric_limits<std::size_t>::max())
        : _rulesMax(rulesMax)
    {
    }

    /// The class of elements with these declarations; empty for no declarations, and for new ones once there
    /// are as many rules as there may be.
    std::string getClass(const std::string& declarations)
    {
        if (declarations.empty())
            return {};
        const auto known = _classes.find(declarations);
        if (known != _classes.end())
            return known->second;
        if (_rules.size() == _rulesMax) {
            ++_refusedCount;
            return {};
        }
        const std::string name = "c" + std::to_string(_classes.size());
        _classes.emplace(declarations, name);
        _rules.push_back("." + name + "{" + declarations + "}");
        _rulesBytes += _rules.back().size();
        return name;
    }

    /// In the order of first use.
    const std::vector<std::string>& getRules() const { return _rules; }
    std::size_t getRulesBytes() const { return _rulesBytes; }

    /// How often a class was asked for that would have been one too many.
    std::size_t getRefusedCount() const { return _refusedCount; }

private:
    std::unordered_map<std::string, std::string> _classes;
    std::vector<std::string> _rules;
    std::size_t _rulesMax;
    std::size_t _rulesBytes = 0;
    std::size_t _refusedCount = 0;
};

} // namespace QV::Filters
