#pragma once

#include <vector>

#include <DOM/Public/Cell.h>

namespace QV::Filters {

/// Which cells of a table those before them cover, asked row by row and from left to right.
class CoveredCells
{
public:
    bool isCovered(unsigned long row, unsigned long column) const
    {
        const bool isInSpan = row == _spanRow && column < _spanEnd;
        return isInSpan || (column < _rowEnds.size() && row < _rowEnds[column]);
    }

    void add(unsigned long row, unsigned long column, const DOM::MergeProps& merge)
    {
        _spanRow = row;
        _spanEnd = column + 1 + merge.getCapturedColsCount();
        if (merge.getCapturedRowsCount() == 0)
            return;
        if (_rowEnds.size() < _spanEnd)
            _rowEnds.resize(_spanEnd);
        for (unsigned long i = column; i < _spanEnd; ++i)
            _rowEnds[i] = row + 1 + merge.getCapturedRowsCount();
    }

private:
    std::vector<unsigned long> _rowEnds; // by column: the row below the last merge that reaches down
    unsigned long _spanRow = 0;          // of the last cell
    unsigned long _spanEnd = 0;          // the column behind it
};

} // namespace QV::Filters
