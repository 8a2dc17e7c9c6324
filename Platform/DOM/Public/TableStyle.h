#pragma once

#include <memory>
#include <string>
#include <utility>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/UUID.h>
#include <Utils/Public/UUIDable.h>

namespace QV::DOM {

/// The formatting of one table: a named parent style, and what the table sets by itself.
class DOM_API TableStyle
{
public:
    /// Nil when the table has no named style.
    const UUID& getParentUUID() const { return _parentUUID; }
    void setParentUUID(const UUID& uuid) { _parentUUID = uuid; }

    /// Of the table as a whole: its borders are those around the table and between its cells. Null when the
    /// table sets none.
    const std::shared_ptr<const CellProps>& getCellProps() const { return _cellProps; }
    void setCellProps(std::shared_ptr<const CellProps> props) { _cellProps = std::move(props); }

    friend bool operator==(const TableStyle& a, const TableStyle& b)
    {
        return a._parentUUID == b._parentUUID && pointeesEqual(a._cellProps, b._cellProps);
    }
    friend bool operator!=(const TableStyle& a, const TableStyle& b) { return !(a == b); }

private:
    UUID _parentUUID;
    std::shared_ptr<const CellProps> _cellProps;
};

/// A style with a name, for tables and for cells. It may derive from another one.
class DOM_API NamedTableStyle : public UUIDable
{
public:
    /// Nil when the style derives from none.
    const UUID& getParentUUID() const { return _parentUUID; }
    void setParentUUID(const UUID& uuid) { _parentUUID = uuid; }

    const std::string& getName() const { return _name; }
    void setName(std::string name) { _name = std::move(name); }

    /// Null when the style sets none.
    const std::shared_ptr<const CellProps>& getCellProps() const { return _cellProps; }
    void setCellProps(std::shared_ptr<const CellProps> props) { _cellProps = std::move(props); }

    /// Null when the style sets none.
    const std::shared_ptr<const ParaProps>& getParaProps() const { return _paraProps; }
    void setParaProps(std::shared_ptr<const ParaProps> props) { _paraProps = std::move(props); }

    /// Null when the style sets none.
    const std::shared_ptr<const RunProps>& getRunProps() const { return _runProps; }
    void setRunProps(std::shared_ptr<const RunProps> props) { _runProps = std::move(props); }

private:
    UUID _parentUUID;
    std::string _name;
    std::shared_ptr<const CellProps> _cellProps;
    std::shared_ptr<const ParaProps> _paraProps;
    std::shared_ptr<const RunProps> _runProps;
};

} // namespace QV::DOM
