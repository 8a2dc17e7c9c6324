#include <Formulas/Public/TableContext.h>

namespace QV::Formulas {

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
