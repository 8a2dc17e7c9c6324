#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/RunProps.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// The formatting of a run of text: a named parent style, and what the run sets by itself.
/// Runs share their styles through a SharedObjectFactory, so a style in use never changes.
class DOM_API RunStyle : public boost::intrusive_ref_counter<RunStyle, boost::thread_safe_counter>
{
public:
    /// Nil when the run has no named style.
    const UUID& getParentUUID() const { return _parentUUID; }
    void setParentUUID(const UUID& uuid) { _parentUUID = uuid; }

    /// Null when the run sets none.
    const std::shared_ptr<const RunProps>& getRunProps() const { return _runProps; }
    void setRunProps(std::shared_ptr<const RunProps> props) { _runProps = std::move(props); }

    /// True when there is no parent, and nothing is set.
    bool isEmpty() const;

    friend DOM_API bool operator==(const RunStyle& a, const RunStyle& b);
    friend bool operator!=(const RunStyle& a, const RunStyle& b) { return !(a == b); }
    friend DOM_API std::size_t hash_value(const RunStyle& style);

private:
    UUID _parentUUID;
    std::shared_ptr<const RunProps> _runProps;
};

using SharedRunStyle = boost::intrusive_ptr<const RunStyle>;

} // namespace QV::DOM
