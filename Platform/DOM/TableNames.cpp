#include <DOM/Public/TableNames.h>

#include <cstddef>
#include <cstdint>

#include <boost/locale/utf.hpp>
#include <boost/utility/string_ref.hpp>

namespace QV::DOM {
namespace {

using UTF8 = boost::locale::utf::utf_traits<char>;

constexpr std::size_t UnitsMax = 31;
constexpr char Replacement = '_';

bool isAllowed(boost::locale::utf::code_point c)
{
    if (c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0xFFFE || c == 0xFFFF)
        return false;
    return c > 0x7F || boost::string_ref(":\\/?*[]").find(static_cast<char>(c)) == boost::string_ref::npos;
}

} // namespace

bool validateTableName(const std::string& name)
{
    return fixTableNameIfNeed(name) == name;
}

std::string fixTableNameIfNeed(const std::string& name)
{
    std::string fixed;
    std::size_t units = 0;
    std::size_t last = 0; // where the last character of the fixed name begins
    for (auto position = name.begin(); position != name.end();) {
        const auto begin = position;
        const boost::locale::utf::code_point c = UTF8::decode(position, name.end());
        const bool isCharacter = boost::locale::utf::is_valid_codepoint(c);
        if (!isCharacter)
            position = begin + 1;
        const std::size_t size = isCharacter && c > 0xFFFF ? 2 : 1;
        if (units + size > UnitsMax)
            break;
        units += size;
        last = fixed.size();
        if (isCharacter && isAllowed(c))
            fixed.append(begin, position);
        else
            fixed += Replacement;
    }
    if (fixed.empty())
        return {Replacement};
    if (fixed.front() == '\'')
        fixed.front() = Replacement;
    if (fixed[last] == '\'')
        fixed[last] = Replacement;
    return fixed;
}

} // namespace QV::DOM
