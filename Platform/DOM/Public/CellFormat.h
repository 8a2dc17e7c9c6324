#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include <boost/functional/hash.hpp>
#include <boost/optional.hpp>

#include <DOM/Public/CellFormatModel.h>

namespace QV::DOM {

/// The number format of cells: its code as the document has it, and what the code means.
class CellFormat
{
public:
    /// @param expression nothing for a code that means nothing: values are shown as they are
    CellFormat(std::string code, boost::optional<CellFormatModel::Expression> expression)
        : _code(std::move(code))
        , _expression(std::move(expression))
    {
    }

    /// A code that stands for a date or time in the manner of the reader's system.
    CellFormat(std::string code, CellFormatModel::DateTimeLocalizedExpression localizedDateTime)
        : _code(std::move(code))
        , _localizedDateTime(std::move(localizedDateTime))
    {
    }

    const std::string& getCode() const { return _code; }
    /// Nothing where getLocalizedDateTime() has something.
    const boost::optional<CellFormatModel::Expression>& getExpression() const { return _expression; }
    const boost::optional<CellFormatModel::DateTimeLocalizedExpression>& getLocalizedDateTime() const
    {
        return _localizedDateTime;
    }

    friend bool operator==(const CellFormat& a, const CellFormat& b)
    {
        return a._code == b._code && a._expression == b._expression &&
               a._localizedDateTime == b._localizedDateTime;
    }
    friend bool operator!=(const CellFormat& a, const CellFormat& b) { return !(a == b); }
    friend std::size_t hash_value(const CellFormat& format)
    {
        return boost::hash<std::string>()(format._code);
    }

private:
    std::string _code;
    boost::optional<CellFormatModel::Expression> _expression;
    boost::optional<CellFormatModel::DateTimeLocalizedExpression> _localizedDateTime;
};

} // namespace QV::DOM
