#pragma once

#include <boost/container/map.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/TableStyle.h>
#include <DOM/Public/UUIDContainer.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// The named styles of a document.
///
/// A style names its parent by identifier. Parents must not lead in a circle: whoever takes them from a file
/// breaks circles before the styles get here.
class DOM_API Styles
{
public:
    using TextStyles = UUIDContainer<NamedTextStyle>;
    using TableStyles = boost::container::map<UUID, NamedTableStyle>;

    Styles();
    ~Styles();

    Styles(const Styles&) = delete;
    Styles& operator=(const Styles&) = delete;

    const TextStyles& getTextStyles() const { return _textStyles; }
    TextStyles& getTextStyles() { return _textStyles; }

    /// Each under its own identifier.
    const TableStyles& getTableStyles() const { return _tableStyles; }
    TableStyles& getTableStyles() { return _tableStyles; }

private:
    TextStyles _textStyles;
    TableStyles _tableStyles;
};

} // namespace QV::DOM
