// parseFormula: a formula or nothing, for any text; what toText prints of it reads back to an equal tree, and
// a formula that goes nowhere stays as it is.

#include <Formulas/Public/FormulaText.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include <boost/utility/string_ref.hpp>

#include <Formulas/Public/ShiftReferences.h>
#include <Formulas/Public/TableContext.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const boost::string_ref text(reinterpret_cast<const char*>(data), size);
    const auto parsed = QV::Formulas::parseFormula(text);
    if (!parsed)
        return 0;
    const QV::Formulas::TableContext context;
    const std::string printed = QV::Formulas::toText(parsed->formula, context);
    const auto again = QV::Formulas::parseFormula(printed);
    require(again && again->formula == parsed->formula);
    require(QV::Formulas::toText(again->formula, context) == printed);
    require(QV::Formulas::makeShifted(parsed->formula, 0, 0) == parsed->formula);
    return 0;
}
