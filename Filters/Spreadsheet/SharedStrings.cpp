#include <Filters/Spreadsheet/SharedStrings.h>

#include <FilterUtils/FU_XMLStreamReader.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Spreadsheet/SpreadsheetWords.h>
#include <Filters/Spreadsheet/StringItems.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLFlow;
using FilterUtils::XMLStep;

class SharedStringsHandler final : public FilterUtils::XMLStreamHandler
{
public:
    SharedStringsHandler(const Colors& colors, FilterRun& run)
        : _items(colors, run)
    {
    }

    XMLStep onStart(const FilterUtils::XMLStreamStart& element) override
    {
        if (element.getId() == Words::SharedStrings)
            return XMLStep::Enter;
        if (element.getId() != Words::StringItem)
            return _items.onStart(element);
        _items.startItem();
        return XMLStep::Enter;
    }

    XMLFlow onEnd(const FilterUtils::XMLStreamEnd& element) override
    {
        if (element.getId() == Words::StringItem)
            _strings.emplace_back(_items.endItem());
        else
            _items.onEnd(element);
        return XMLFlow::Continue;
    }

    XMLFlow onTree(const FilterUtils::XMLStreamElement& element, const FilterUtils::XMLElement& tree) override
    {
        _items.onTree(element, tree);
        return XMLFlow::Continue;
    }

    std::vector<DOM::CellTextStock> takeStrings() { return std::move(_strings); }

private:
    StringItems _items;
    std::vector<DOM::CellTextStock> _strings;
};

} // namespace

std::vector<DOM::CellTextStock> readSharedStrings(
    Package& package, const std::string& part, const Colors& colors, FilterRun& run)
{
    SharedStringsHandler handler(colors, run);
    readXmlStream(package, part, getSpreadsheetWords(), handler, run.getReport());
    return handler.takeStrings();
}

} // namespace QV::Filters
