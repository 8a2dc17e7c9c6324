#include <Filters/Package/RunLayers.h>

#include <array>
#include <cstddef>

#include <boost/optional.hpp>

#include <DOM/Public/Properties.h>

namespace QV::Filters {
namespace {

struct RunToggle
{
    const boost::optional<bool>& (DOM::RunProps::*get)() const;
    void (DOM::RunProps::*set)(const boost::optional<bool>&);
};

const std::array<RunToggle, 4> RunToggles = {
    {{&DOM::RunProps::getBold, &DOM::RunProps::setBold},
     {&DOM::RunProps::getItalic, &DOM::RunProps::setItalic},
     {&DOM::RunProps::getStrikethrough, &DOM::RunProps::setStrikethrough},
     {&DOM::RunProps::getHidden, &DOM::RunProps::setHidden}}
};

} // namespace

RunLayers::RunLayers(const DOM::RunProps* defaults)
    : _defaults(defaults)
    , _hasCapitals(hasDefault(DOM::LetterCase::Capitals))
    , _hasSmallCapitals(hasDefault(DOM::LetterCase::SmallCapitals))
{
    if (_defaults)
        _props = *_defaults;
}

bool RunLayers::hasDefault(DOM::LetterCase letterCase) const
{
    return _defaults && _defaults->getLetterCase() == letterCase;
}

void RunLayers::addStyle(const DOM::RunProps& layer)
{
    std::array<boost::optional<bool>, RunToggles.size()> turned;
    for (std::size_t i = 0; i < RunToggles.size(); ++i) {
        const RunToggle& toggle = RunToggles[i];
        const boost::optional<bool>& value = (layer.*toggle.get)();
        if (!value)
            continue;
        const bool isDefault = _defaults && (_defaults->*toggle.get)().value_or(false);
        turned[i] = isDefault || (_props.*toggle.get)().value_or(false) != *value;
    }
    DOM::override(_props, layer);
    for (std::size_t i = 0; i < RunToggles.size(); ++i)
        if (turned[i])
            (_props.*RunToggles[i].set)(turned[i]);
    if (layer.getLetterCase())
        turnLetterCase(*layer.getLetterCase());
}

void RunLayers::turnLetterCase(DOM::LetterCase letterCase)
{
    const bool turnsCapitals = letterCase == DOM::LetterCase::Capitals;
    const bool turnsSmallCapitals = letterCase == DOM::LetterCase::SmallCapitals;
    _hasCapitals = hasDefault(DOM::LetterCase::Capitals) || _hasCapitals != turnsCapitals;
    _hasSmallCapitals = hasDefault(DOM::LetterCase::SmallCapitals) || _hasSmallCapitals != turnsSmallCapitals;
    if (_hasCapitals)
        _props.setLetterCase(DOM::LetterCase::Capitals);
    else
        _props.setLetterCase(_hasSmallCapitals ? DOM::LetterCase::SmallCapitals : DOM::LetterCase::AsWritten);
}

void RunLayers::addDirect(const DOM::RunProps& layer)
{
    DOM::override(_props, layer);
}

} // namespace QV::Filters
