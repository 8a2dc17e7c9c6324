#include <Filters/Spreadsheet/StringItems.h>

#include <string_view>

#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Spreadsheet/FormatParts.h>
#include <Filters/Spreadsheet/LeftOut.h>
#include <Filters/Spreadsheet/SpreadsheetWords.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {

using FilterUtils::XMLStep;

StringItems::StringItems(const Colors& colors, FilterRun& run)
    : _colors(colors)
    , _run(run)
    , _richText(run.getDocument().getSharedObjectFactory())
{
}

void StringItems::startItem()
{
    _richText.clear();
    _font = nullptr;
}

XMLStep StringItems::onStart(const FilterUtils::XMLStreamStart& element)
{
    switch (element.getId()) {
    case Words::Text:
        return XMLStep::EnterText;
    case Words::Run:
        return XMLStep::Enter;
    case Words::RunProps:
        return XMLStep::Tree;
    case Words::PhoneticRun:
        _run.leaveOut(LeftOut::PhoneticText);
        return XMLStep::Skip;
    default:
        return XMLStep::Skip;
    }
}

void StringItems::onEnd(const FilterUtils::XMLStreamEnd& element)
{
    if (element.getId() == Words::Text) {
        _piece.clear();
        element.appendText(_piece);
        _richText.append(_piece, _font);
    } else if (element.getId() == Words::Run) {
        _font = nullptr;
    }
}

void StringItems::onTree(const FilterUtils::XMLStreamElement& element, const FilterUtils::XMLElement& tree)
{
    const std::u16string_view uri = element.getNamespace();
    const auto dialect = findDialectOfNamespace(std::string(uri.begin(), uri.end())); // known ones are ASCII
    _font = readFont(tree, Names(dialect.value_or(Dialect::Transitional)), _colors, _run.getReport());
}

DOM::SharedCellText StringItems::endItem()
{
    if (_richText.isTooLong())
        _run.getReport().emplace_back("A string has more text than applications show in a cell: {} bytes",
            std::to_string(_richText.getSize()));
    return _richText.makeText();
}

} // namespace QV::Filters
