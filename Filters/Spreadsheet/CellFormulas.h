#pragma once

#include <cstddef>
#include <map>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/Formula.h>
#include <Filters/Package/Export.h>
#include <Formulas/Public/FormulaText.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/TableIndices/TableRange.h>

namespace QV::Filters {

/// What the formulas of a workbook share.
struct FILTERS_API FormulaContext
{
    /// What the formulas of all cells may cost: a small package can share a long formula among very many
    /// cells.
    static constexpr std::size_t NodesMax = 8'000'000;
    /// The longest formula that applications take, of 8192 characters.
    static constexpr std::size_t BytesMax = 32768;

    Formulas::DocumentList documents; ///< that are referred to by their numbers
    std::size_t longestAddress = 0;   ///< of those, in bytes
    std::size_t nodesLeft = NodesMax;
    bool hasTableColumns = false; ///< some formula so far

    /// In nodes of its syntax tree; 64 bytes of names, texts and addresses inside count as one more.
    ///
    /// @param text what the formula was read from
    std::size_t getCost(const DOM::Formula& formula, const std::string& text) const;

    /// Nothing for a text that is no formula, is too long, or costs more than is left.
    boost::optional<DOM::Formula> parse(const std::string& text);
};

/// The formula of a cell as the file has it.
struct WrittenFormula
{
    enum class Kind
    {
        Usual,
        Shared,
        Array,
        DataTable,
    };

    Kind kind = Kind::Usual;
    std::string text;
    std::string sharedIndex; ///< which cells that share a formula have in common
    boost::optional<TableRange> range;
    std::string firstInput;  ///< of a data table
    std::string secondInput; ///< of one that has two
    bool isRowInput = false; ///< whether the only input is that of rows
};

/// Makes the formulas of one sheet out of what the file has, in the order of the file.
class FILTERS_API CellFormulas
{
public:
    explicit CellFormulas(FormulaContext& context)
        : _context(context)
    {
    }

    /// What came of a formula.
    struct Result
    {
        boost::optional<DOM::Formula> formula; ///< nothing where the cell has none
        const char* message = nullptr;         ///< with places for the cell and for detail; null: all is well
        std::string detail;
    };

    /// A follower of a shared formula gets it as it means it. A data table is a call of TABLE with its
    /// inputs.
    ///
    /// Messages:
    ///     - "Cell {} has a formula that cannot be read; its text is kept: {}"
    ///     - "Cell {} has a formula of {} bytes, more than applications take; its text is kept"
    ///     - "Cell {} shares the formula {}, which there is not", "which cannot be read" or "which is
    ///       one too many"
    ///     - "Cell {} has a data table whose input is no cell: {}"
    Result make(const WrittenFormula& written, const CellIndex& cell);

private:
    struct SharedFormula
    {
        DOM::Formula formula;
        CellIndex place;
        std::size_t cost;
    };

    Result makeFollower(const WrittenFormula& written, const CellIndex& cell);
    Result makeDataTable(const WrittenFormula& written);
    Result parse(const std::string& text);

    FormulaContext& _context;
    std::map<std::string, SharedFormula> _shared;
};

} // namespace QV::Filters
