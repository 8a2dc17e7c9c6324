#pragma once

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

#include <DOM/Public/Adapter/TableCellIterator.h>
#include <DOM/Public/BordersProps.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/SharedObjectFactory.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableStyle.h>

namespace QV::Tests {

/// Solid lines of these widths: left, top, right, bottom, vertical, horizontal; none where a width is 0.
inline std::shared_ptr<const DOM::BordersProps> makeBorders(const std::vector<float>& widths)
{
    const auto make = [&widths](std::size_t side) -> DOM::BordersProps::Line {
        return widths[side] > 0 ? std::make_shared<DOM::LineProps>(DOM::LineStyle::Solid, widths[side])
                                : nullptr;
    };
    auto borders = std::make_shared<DOM::BordersProps>();
    borders->setLeft(make(0));
    borders->setTop(make(1));
    borders->setRight(make(2));
    borders->setBottom(make(3));
    borders->setVertical(make(4));
    borders->setHorizontal(make(5));
    return borders;
}

/// The reverse; no widths at all for a null pointer.
inline std::vector<float> getWidths(const std::shared_ptr<const DOM::BordersProps>& borders)
{
    if (!borders)
        return {};
    std::vector<float> widths;
    for (const auto* line : {&borders->getLeft(), &borders->getTop(), &borders->getRight(),
             &borders->getBottom(), &borders->getVertical(), &borders->getHorizontal()})
        widths.push_back(*line ? (*line)->getWidth() : 0);
    return widths;
}

inline std::shared_ptr<const DOM::CellProps> makeCellProps(std::shared_ptr<const DOM::BordersProps> borders)
{
    auto props = std::make_shared<DOM::CellProps>();
    props->setBorders(std::move(borders));
    return props;
}

/// A table and the styles that it and its cells refer to.
class StyledTable
{
public:
    StyledTable(unsigned long rows, unsigned long columns) { _table.ensureSize(rows, columns); }

    const DOM::Styles& getStyles() const { return _styles; }
    DOM::Styles& getStyles() { return _styles; }
    const DOM::Table& getTable() const { return _table; }
    DOM::Table& getTable() { return _table; }

    UUID addStyle(const DOM::NamedTableStyle& style)
    {
        return _styles.getTableStyles().emplace(style.getUUID(), style).first->first;
    }
    UUID addStyle(const UUID& parent, std::shared_ptr<const DOM::BordersProps> borders)
    {
        DOM::NamedTableStyle style;
        style.setParentUUID(parent);
        style.setCellProps(makeCellProps(std::move(borders)));
        return addStyle(style);
    }

    void setTableStyle(const UUID& parent, std::shared_ptr<const DOM::BordersProps> borders)
    {
        DOM::TableStyle style;
        style.setParentUUID(parent);
        if (borders)
            style.setCellProps(makeCellProps(std::move(borders)));
        _table.setStyle(style);
    }
    void setCellStyle(unsigned long row, unsigned long column, const UUID& parent,
        std::shared_ptr<const DOM::BordersProps> borders)
    {
        _table.getOrMakeCell(RowIndex(row), ColumnIndex(column))
            .setSharedStyle(makeStyle(parent, std::move(borders)));
    }
    void setRowStyle(unsigned long row, std::shared_ptr<const DOM::BordersProps> borders)
    {
        DOM::RowProps props;
        props.setSharedCellStyle(makeStyle({}, std::move(borders)));
        _table.setRowProps(RowIndex(row), props);
    }
    void setColumnStyle(unsigned long column, std::shared_ptr<const DOM::BordersProps> borders)
    {
        DOM::ColumnProps props;
        props.setSharedCellStyle(makeStyle({}, std::move(borders)));
        _table.setColumnsProps({ColumnIndex(column), ColumnIndex(column + 1)}, props);
    }

    Adapter::ConstTableCellIterator findCell(unsigned long row, unsigned long column) const
    {
        const auto cells = Adapter::getCellIterators(_table);
        for (auto it = cells.begin(); it != cells.end(); ++it)
            if (it.getRowIndex().get() == row && it.getColIndex().get() == column)
                return it;
        throw std::logic_error("no such cell");
    }

private:
    DOM::SharedCellStyle makeStyle(const UUID& parent, std::shared_ptr<const DOM::BordersProps> borders)
    {
        DOM::CellStyle style;
        style.setParentUUID(parent);
        if (borders)
            style.setCellProps(makeCellProps(std::move(borders)));
        return _factory.getShared(style);
    }

    DOM::Styles _styles;
    DOM::SharedObjectFactory _factory;
    DOM::Table _table;
};

} // namespace QV::Tests
