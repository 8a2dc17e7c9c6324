#include <Filters/Spreadsheet/CellFormulas.h>

#include <utility>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/Public/References.h>
#include <Formulas/Public/ShiftReferences.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::Filters {
namespace {

bool isCellReference(const std::string& text)
{
    const auto reference = Formulas::parseReference(text);
    return reference && isExactly<DOM::FormulaSyntaxTree::CellAddress>(reference->getSyntaxTree());
}

long getDistance(unsigned long from, unsigned long to)
{
    return static_cast<long>(to) - static_cast<long>(from); // both are within a sheet
}

} // namespace

std::size_t FormulaContext::getCost(const DOM::Formula& formula, const std::string& text) const
{
    constexpr std::size_t BytesPerNode = 64;
    const std::size_t nodes = DOM::FormulaSyntaxTree::toExprStack(formula.getSyntaxTree()).size();
    const std::size_t address = text.find('[') == std::string::npos ? 0 : longestAddress;
    return nodes + (text.size() + nodes * address) / BytesPerNode;
}

boost::optional<DOM::Formula> FormulaContext::parse(const std::string& text)
{
    auto parsed = text.size() <= BytesMax ? Formulas::parseFormula(text, documents) : boost::none;
    const std::size_t cost = parsed ? getCost(parsed->formula, text) : 0;
    if (!parsed || cost > nodesLeft)
        return boost::none;
    nodesLeft -= cost;
    hasTableColumns = hasTableColumns || parsed->hasTableColumns;
    return std::move(parsed->formula);
}

CellFormulas::Result CellFormulas::make(const WrittenFormula& written, const CellIndex& cell)
{
    if (written.kind == WrittenFormula::Kind::DataTable)
        return makeDataTable(written);
    const bool isShared = written.kind == WrittenFormula::Kind::Shared;
    if (isShared && written.text.empty())
        return makeFollower(written, cell);
    Result result = parse(written.text);
    if (result.formula && written.kind == WrittenFormula::Kind::Array && written.range)
        result.formula->setArrayRange(*written.range);
    // What a follower says of itself goes for the others only where nothing else does.
    if (isShared && result.formula && (written.range || _shared.count(written.sharedIndex) == 0)) {
        _shared.erase(written.sharedIndex);
        _shared.emplace(written.sharedIndex,
            SharedFormula{*result.formula, cell, _context.getCost(*result.formula, written.text)});
    }
    return result;
}

CellFormulas::Result CellFormulas::makeFollower(const WrittenFormula& written, const CellIndex& cell)
{
    const auto found = _shared.find(written.sharedIndex);
    const std::string index = written.sharedIndex.empty() ? "without a number" : written.sharedIndex;
    if (found == _shared.end())
        return {boost::none, "Cell {} shares the formula {}, which there is not", index};
    const SharedFormula& shared = found->second;
    if (!shared.formula.getUnreadText().empty())
        return {boost::none, "Cell {} shares the formula {}, which cannot be read", index};
    if (shared.cost > _context.nodesLeft)
        return {boost::none, "Cell {} shares the formula {}, which is one too many", index};
    _context.nodesLeft -= shared.cost;
    return {
        Formulas::makeShifted(shared.formula, getDistance(shared.place.getRow().get(), cell.getRow().get()),
            getDistance(shared.place.getColumn().get(), cell.getColumn().get())),
        nullptr, {}};
}

CellFormulas::Result CellFormulas::makeDataTable(const WrittenFormula& written)
{
    const bool hasTwo = !written.secondInput.empty();
    for (const std::string& input : {written.firstInput, written.secondInput})
        if (!input.empty() && !isCellReference(input))
            return {boost::none, "Cell {} has a data table whose input is no cell: {}", input};
    std::string text = "TABLE(";
    if (hasTwo)
        text += written.firstInput + ',' + written.secondInput;
    else
        text += written.isRowInput ? written.firstInput + ',' : ',' + written.firstInput;
    Result result = parse(text + ')');
    if (result.formula && written.range)
        result.formula->setArrayRange(*written.range);
    return result;
}

CellFormulas::Result CellFormulas::parse(const std::string& text)
{
    if (text.empty())
        return {};
    if (text.size() > FormulaContext::BytesMax)
        return {DOM::Formula::makeUnread(text),
            "Cell {} has a formula of {} bytes, more than applications take; its text is kept",
            std::to_string(text.size())};
    auto formula = _context.parse(text);
    if (!formula)
        return {DOM::Formula::makeUnread(text),
            "Cell {} has a formula that cannot be read; its text is kept: {}", text};
    return {std::move(formula), nullptr, {}};
}

} // namespace QV::Filters
