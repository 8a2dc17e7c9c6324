#include <Utils/Public/CaseInsensitiveLess.h>

#include <algorithm>

namespace QV {
namespace {

unsigned char foldCase(char c)
{
    return static_cast<unsigned char>('A' <= c && c <= 'Z' ? c - 'A' + 'a' : c);
}

} // namespace

bool CaseInsensitiveLess::operator()(boost::string_ref a, boost::string_ref b) const
{
    return std::lexicographical_compare(
        a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return foldCase(x) < foldCase(y); });
}

} // namespace QV
