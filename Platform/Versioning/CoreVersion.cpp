#include <Versioning/Public/CoreVersion.h>

#include <cstddef>
#include <utility>

namespace QV::Versioning {
namespace {

constexpr std::array<unsigned, 4> NumberParts = {
    CoreVersion::Major, CoreVersion::Minor, CoreVersion::Patch, CoreVersion::Build};
constexpr std::array<unsigned, 3> LabelParts = {
    CoreVersion::Stage, CoreVersion::Revision, CoreVersion::Changes};
constexpr std::array<char, 3> LabelSigns = {'-', '+', '+'};

} // namespace

CoreVersion::CoreVersion(
    const std::array<unsigned, 4>& numbers, std::string stage, std::string revision, std::string changes)
    : _numbers(numbers)
    , _labels{std::move(stage), std::move(revision), std::move(changes)}
{
}

const CoreVersion& CoreVersion::getCurrent()
{
    static const CoreVersion current(
        {QV_VERSION_MAJOR, QV_VERSION_MINOR, QV_VERSION_PATCH, 0}, QV_VERSION_STAGE, "", "");
    return current;
}

bool CoreVersion::isPermanent(unsigned mask) const
{
    for (std::size_t i = 0; i < LabelParts.size(); ++i)
        if ((mask & LabelParts[i]) != 0 && !_labels[i].empty())
            return false;
    return true;
}

std::string CoreVersion::toString(unsigned mask) const
{
    std::string text;
    for (std::size_t i = 0; i < NumberParts.size(); ++i) {
        if ((mask & NumberParts[i]) == 0 || (NumberParts[i] == Build && _numbers[i] == 0))
            continue;
        if (!text.empty())
            text += '.';
        text += std::to_string(_numbers[i]);
    }
    for (std::size_t i = 0; i < LabelParts.size(); ++i) {
        if ((mask & LabelParts[i]) == 0 || _labels[i].empty())
            continue;
        text += LabelSigns[i];
        text += _labels[i];
    }
    return text;
}

} // namespace QV::Versioning
