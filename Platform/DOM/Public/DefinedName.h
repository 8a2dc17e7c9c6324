#pragma once

#include <string>
#include <utility>

#include <boost/optional.hpp>

#include <DOM/Public/Formula.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// A name that formulas use for a range, a constant or another formula. Relative references of its formula
/// are meant from the first cell of a table.
class DefinedName
{
public:
    DefinedName(std::string name, Formula formula)
        : _name(std::move(name))
        , _formula(std::move(formula))
    {
    }

    const std::string& getName() const { return _name; }
    const Formula& getFormula() const { return _formula; }
    Formula& getFormula() { return _formula; }

    /// The table whose formulas alone know the name; nothing where all of the document do.
    const boost::optional<UUID>& getTable() const { return _table; }
    void setTable(const UUID& table) { _table = table; }

    /// Whether applications show the name to their users.
    bool isVisible() const { return _isVisible; }
    void setVisible(bool isVisible) { _isVisible = isVisible; }

private:
    std::string _name;
    Formula _formula;
    boost::optional<UUID> _table;
    bool _isVisible = true;
};

} // namespace QV::DOM
