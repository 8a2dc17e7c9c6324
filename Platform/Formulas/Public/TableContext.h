#pragma once

#include <map>
#include <string>
#include <unordered_map>

#include <boost/utility/string_ref.hpp>

#include <Formulas/Public/Export.h>
#include <Utils/Public/CaseInsensitiveLess.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
class Document;
}

namespace QV::Formulas {

/// The tables that formulas of one document can refer to, and how large they are.
///
///     TableContext context;
///     context.addTable(table.getUUID(), "Sheet1");
///     context.findTable("sheet1"); // the table's identifier
///
/// Names are looked up without regard to the case of ASCII letters. Immutable while it is asked.
class FORMULAS_API TableContext
{
public:
    /// The tables of a document under their current names, in their order.
    static TableContext makeFor(const DOM::Document& document);

    /// Adds a table under its current name. Of several tables with one name, the first one is found by it;
    /// one with the empty name is found by its identifier alone.
    void addTable(const UUID& uuid, const std::string& name);

    /// Null where no table has that name. Valid until the next addTable.
    const UUID* findTable(boost::string_ref name) const;
    /// The table's current name; null where there is no such table.
    const std::string* findName(const UUID& uuid) const;

    /// The largest indices of every table.
    RowIndex getMaxRow() const { return MaxRowIndex; }
    ColumnIndex getMaxColumn() const { return MaxColumnIndex; }

private:
    std::map<std::string, UUID, CaseInsensitiveLess> _byName;
    std::unordered_map<UUID, std::string> _names;
};

} // namespace QV::Formulas
