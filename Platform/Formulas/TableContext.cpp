#include <Formulas/Public/TableContext.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/Table.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::Formulas {

TableContext TableContext::makeFor(const DOM::Document& document)
{
    TableContext context;
    for (const DOM::Block& block : document.getBlocks())
        if (const DOM::Table* const table = exactCast<DOM::Table>(&block))
            context.addTable(table->getUUID(), table->getName());
    return context;
}

void TableContext::addTable(const UUID& uuid, const std::string& name)
{
    _names[uuid] = name;
    if (!name.empty())
        _byName.emplace(name, uuid);
}

const UUID* TableContext::findTable(boost::string_ref name) const
{
    const auto found = _byName.find(name);
    return found == _byName.end() ? nullptr : &found->second;
}

const std::string* TableContext::findName(const UUID& uuid) const
{
    const auto found = _names.find(uuid);
    return found == _names.end() ? nullptr : &found->second;
}

} // namespace QV::Formulas
