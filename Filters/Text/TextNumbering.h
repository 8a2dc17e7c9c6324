#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberingRef.h>
#include <FilterUtils/FU_Lengths.h>
#include <FilterUtils/FU_NumberedListsFactory.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Export.h>
#include <Filters/Text/FormatReader.h>
#include <Filters/Text/FormatValues.h>
#include <Utils/Public/UUID.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Names;
struct TextStyles;

/// The lists of a text document, by the numbers that its parts give them. A concrete list ("num") becomes a
/// NumberedList of its own, with its overrides; its list tag stands for the abstract list, since lists of one
/// abstract list are numbered through.
class FILTERS_API TextNumbering
{
public:
    /// Reads a numbering part's root element. Abstract lists that refer to a list style take the levels of
    /// the list that the style names. Each list has nine levels; those that are not defined are numbered
    /// "1.". Bullets of symbol fonts become the characters that they show. What is wrong is reported:
    ///     - "List {} has no definition": an unknown abstract list; the list has no levels then
    ///     - "List {} is defined more than once": the first one stays
    ///     - "Lists beyond {} are left out": after 20,000
    ///     - "Label of a list is cut at {} bytes": after 4,096
    void read(const FilterUtils::XMLElement& root, const Names& names, const FormatReader& formats,
        OperationReport& report);

    /// Notes that a style asks for numbering.
    void noteStyle(std::shared_ptr<DOM::NamedTextStyle> style, const NumberingRequest& request);

    /// Notes the list that a list style of this id refers to.
    void noteListStyle(const std::string& styleId, const std::string& listId);

    /// Gives the noted styles their references: also their level, where a level of their list names the
    /// style. A level that names the style wins over the one that the style asks for.
    /// @param styles those of the document, by whose ids levels name styles
    void applyStyleNumbering(const TextStyles& styles, OperationReport& report);

    /// The reference that a paragraph's or style's request means: list and tag where it names a list, the
    /// level where it names one; the removed one for the list "0". An unknown list is reported once: "List {}
    /// is not defined"; the reference has no list then.
    std::unique_ptr<DOM::NumberingRef> makeReference(
        const NumberingRequest& request, OperationReport& report);

    /// The lists in the order of the file.
    const FilterUtils::NumberedListsFactory& getLists() const { return _lists; }

private:
    struct ConcreteList
    {
        UUID list;
        UUID tag;
        std::vector<std::string> levelStyleIds; // by level; empty where a level names none
    };

    FilterUtils::NumberedListsFactory _lists;
    std::map<std::string, ConcreteList> _concrete;  // by their numbers
    std::map<std::string, std::string> _listStyles; // from a list style's id to a list's number
    std::vector<std::pair<std::shared_ptr<DOM::NamedTextStyle>, NumberingRequest>> _styles;
    std::set<std::string> _unknown; // that were reported
};

} // namespace QV::Filters
