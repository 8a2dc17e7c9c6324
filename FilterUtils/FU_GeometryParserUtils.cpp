#include <FilterUtils/FU_GeometryParserUtils.h>

#include <algorithm>
#include <cstddef>

#include <Utils/Public/Assertions.h>

namespace QV::FilterUtils {
namespace {

constexpr char ModifierMarker = '$';
constexpr char FormulaMarker = '?';
const std::string PresetMarker = "ooxml-";

std::string dropMarker(boost::string_ref text, std::size_t size)
{
    text.remove_prefix(std::min(size, text.size()));
    return text.to_string();
}

} // namespace

// Modifiers. Reports of failures show the lines of assertions: those below stay where they are.
bool looksLikeModifierReference(boost::string_ref name)
{
    return name.starts_with(ModifierMarker);
}

std::string makeModifierReference(boost::string_ref name)
{
    return ModifierMarker + name.to_string();
}

std::string makeModifierPlainName(boost::string_ref name)
{
    QV_ASSERT(looksLikeModifierReference(name));
    return dropMarker(name, 1);
}

// Formulas.
bool looksLikeFormulaReference(boost::string_ref name)
{
    return name.starts_with(FormulaMarker);
}

std::string makeFormulaReference(boost::string_ref name)
{
    return FormulaMarker + name.to_string();
}

std::string makeFormulaPlainName(boost::string_ref name)
{
    QV_ASSERT(looksLikeFormulaReference(name));
    return dropMarker(name, 1);
}

// Preset types.
std::string makeOOXMLPresetType(boost::string_ref type)
{
    return PresetMarker + type.to_string();
}

bool looksLikeOOXMLPresetType(boost::string_ref type)
{
    return type.starts_with(PresetMarker);
}

std::string makePlainPresetType(boost::string_ref type)
{
    QV_ASSERT(looksLikeOOXMLPresetType(type));
    return dropMarker(type, PresetMarker.size());
}

} // namespace QV::FilterUtils
