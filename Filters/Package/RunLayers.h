#pragma once

#include <DOM/Public/RunProps.h>

namespace QV::Filters {

/// Run properties of several styles, one laid over the other:
///
///     RunLayers layers(defaults);
///     layers.addStyle(ofTheParagraphStyle);
///     layers.addDirect(ofTheRun);
///     layers.getProps();
class RunLayers
{
public:
    /// @param defaults of the document; null for none. Outlives this object.
    explicit RunLayers(const DOM::RunProps* defaults);

    /// What a table style, a paragraph style or a character style says, parents included. Toggles that it
    /// sets to true turn over; one that is true by default stays so (ECMA-376 Part 1, 17.7.3).
    void addStyle(const DOM::RunProps& layer);

    /// What is set directly.
    void addDirect(const DOM::RunProps& layer);

    const DOM::RunProps& getProps() const { return _props; }

private:
    void turnLetterCase(DOM::LetterCase letterCase);
    bool hasDefault(DOM::LetterCase letterCase) const;

    const DOM::RunProps* _defaults;
    DOM::RunProps _props;
    // Both may be on at once: then capitals show, and a third layer may turn either one off.
    bool _hasCapitals;
    bool _hasSmallCapitals;
};

} // namespace QV::Filters
