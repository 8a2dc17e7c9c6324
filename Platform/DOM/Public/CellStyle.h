#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <DOM/Public/CellProps.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// The formatting of a cell: a named parent style, and what the cell sets by itself.
/// Cells share their styles through a SharedObjectFactory, so a style in use never changes.
class DOM_API CellStyle : public boost::intrusive_ref_counter<CellStyle, boost::thread_safe_counter>
{
public:
    /// Nil when the cell has no named style.
    const UUID& getParentUUID() const { return _parentUUID; }
    void setParentUUID(const UUID& uuid) { _parentUUID = uuid; }

    /// Null when the cell sets none.
    const std::shared_ptr<const CellProps>& getCellProps() const { return _cellProps; }
    void setCellProps(std::shared_ptr<const CellProps> props) { _cellProps = std::move(props); }

    /// How the paragraphs in the cell stand; null when the cell does not say.
    const std::shared_ptr<const ParaProps>& getParaProps() const { return _paraProps; }
    void setParaProps(std::shared_ptr<const ParaProps> props) { _paraProps = std::move(props); }

    /// How text in the cell looks; null when the cell does not say.
    const std::shared_ptr<const RunProps>& getRunProps() const { return _runProps; }
    void setRunProps(std::shared_ptr<const RunProps> props) { _runProps = std::move(props); }

    /// True when there is no parent, and nothing is set.
    bool isEmpty() const;

    /// By value, down to the single properties; a null set of properties equals only a null one.
    friend DOM_API bool operator==(const CellStyle& a, const CellStyle& b);
    friend bool operator!=(const CellStyle& a, const CellStyle& b) { return !(a == b); }
    friend DOM_API std::size_t hash_value(const CellStyle& style);

private:
    UUID _parentUUID;
    std::shared_ptr<const CellProps> _cellProps;
    std::shared_ptr<const ParaProps> _paraProps;
    std::shared_ptr<const RunProps> _runProps;
};

using SharedCellStyle = boost::intrusive_ptr<const CellStyle>;

} // namespace QV::DOM
