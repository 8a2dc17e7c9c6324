#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/Formula.h>
#include <Utils/Public/ReadonlyVector.h>

namespace QV::DOM {

/// How far a merged block reaches beyond its top-left cell: 0 and 0 for a cell that is not merged.
class MergeProps
{
public:
    MergeProps() = default;
    MergeProps(unsigned long capturedRowsCount, unsigned long capturedColsCount)
        : _capturedRowsCount(capturedRowsCount)
        , _capturedColsCount(capturedColsCount)
    {
    }

    unsigned long getCapturedRowsCount() const { return _capturedRowsCount; }
    unsigned long getCapturedColsCount() const { return _capturedColsCount; }

    friend bool operator==(const MergeProps& a, const MergeProps& b)
    {
        return a._capturedRowsCount == b._capturedRowsCount && a._capturedColsCount == b._capturedColsCount;
    }
    friend bool operator!=(const MergeProps& a, const MergeProps& b) { return !(a == b); }

private:
    unsigned long _capturedRowsCount = 0;
    unsigned long _capturedColsCount = 0;
};

/// A cell of a table: a value, and a style that it shares with other cells.
///
/// A cell is small, since sheets have millions: what few cells have (a merge, a link on a number, a formula)
/// lives apart, and text is shared.
class DOM_API Cell
{
public:
    enum class Kind : std::uint8_t
    {
        Empty,
        Number,
        Boolean,
        Text,
        Error,
    };

    Cell() = default;
    ~Cell();
    Cell(Cell&& other) noexcept;
    Cell& operator=(Cell&& other) noexcept;

    Kind getKind() const { return _kind; }
    /// 0 unless the cell holds a number.
    double getNumber() const { return _kind == Kind::Number ? _value.number : 0; }
    /// False unless the cell holds a boolean.
    bool getBoolean() const { return _kind == Kind::Boolean && _value.boolean; }
    /// The text, or the error's text such as "#DIV/0!"; null for every other kind.
    const CellText* getText() const { return holdsText() ? _value.text : nullptr; }

    void setEmpty();
    void setNumber(double number);
    void setBoolean(bool boolean);
    /// @param text not null
    void setText(const SharedCellText& text);
    void setText(CellTextStock& stock);
    void setError(const SharedCellText& text);

    /// The text blocks of a text cell; those beside the value, or no blocks, for an empty one; nothing for a
    /// number, boolean or error.
    boost::optional<ReadonlyVector<std::unique_ptr<Block>>> getTextBlocks() const;

    /// The blocks of a text or an error, or those beside the value of any other cell. Null where there are
    /// none.
    const std::vector<std::unique_ptr<Block>>* getRawBlocks() const;

    /// Puts blocks beside the value of a cell that holds no text: they carry what the paragraph of a text
    /// would, such as a link. They stay when the value changes, and are not seen while the cell holds text.
    /// @param blocks null takes them away
    void setBlocksBesideValue(const SharedCellText& blocks);

    /// The empty style where the cell has none.
    const CellStyle& getStyle() const;
    /// Null where the cell has none, and looks as its row or column says. An empty style that is there keeps
    /// their formats away.
    const SharedCellStyle& getSharedStyle() const { return _style; }
    void setSharedStyle(SharedCellStyle style) { _style = std::move(style); }

    MergeProps getMergeProps() const;

    /// What gives the cell its value; null where the cell has none. Valid until the cell gets another
    /// formula.
    const Formula* getFormula() const;
    Formula* getFormula();
    /// The value stays as it is.
    void setFormula(Formula formula);

private:
    friend class CellRow; // keeps the column in a gap that the layout has anyway
    friend class Table;   // marks merges, since it also keeps their order

    struct Extras
    {
        MergeProps mergeProps;
        SharedCellText blocks; // beside a value
        boost::optional<Formula> formula;
    };

    union Value {
        double number;
        bool boolean;
        const CellText* text; // counted by hand: one reference while the kind holds text
    };

    bool holdsText() const { return _kind == Kind::Text || _kind == Kind::Error; }
    void holdText(Kind kind, const SharedCellText& text);
    Extras& getOrMakeExtras();
    void trimExtras();

    Value _value = {0};
    SharedCellStyle _style;
    std::unique_ptr<Extras> _extras;
    std::uint32_t _column = 0;
    Kind _kind = Kind::Empty;
};

/// How far the cell's merge reaches; that of no cell reaches nowhere.
inline MergeProps getCellMergeProps(const Cell* cell)
{
    return cell ? cell->getMergeProps() : MergeProps();
}

} // namespace QV::DOM
