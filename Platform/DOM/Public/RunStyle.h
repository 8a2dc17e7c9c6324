#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include <boost/optional.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <DOM/Public/TrackedChange.h>
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

    /// The named style before a change that was tracked; nothing where no such change was made.
    const boost::optional<UUID>& getTrackedParent() const { return _trackedParent; }
    void setTrackedParent(const boost::optional<UUID>& uuid) { _trackedParent = uuid; }

    /// Null when the run sets none.
    const std::shared_ptr<const RunProps>& getRunProps() const { return _runProps; }
    void setRunProps(std::shared_ptr<const RunProps> props) { _runProps = std::move(props); }

    /// What the run set before a tracked change of its format. Null where none was made; empty properties
    /// where it set nothing.
    const std::shared_ptr<const RunProps>& getTrackedRunProps() const { return _trackedRunProps; }
    void setTrackedRunProps(std::shared_ptr<const RunProps> props) { _trackedRunProps = std::move(props); }

    /// The change that put the run here or takes it away; null where none was tracked.
    const std::shared_ptr<const TrackedChange>& getChange() const { return _change; }
    void setChange(std::shared_ptr<const TrackedChange> change) { _change = std::move(change); }

    /// The instruction of the field whose result the run is a part of, for results that are no plain text;
    /// null outside of these.
    const std::shared_ptr<const std::string>& getFieldInstruction() const { return _fieldInstruction; }
    void setFieldInstruction(std::shared_ptr<const std::string> instruction)
    {
        _fieldInstruction = std::move(instruction);
    }

    /// Where a click on the run leads; null when it leads nowhere.
    const std::shared_ptr<const Hyperlink>& getHyperlink() const { return _hyperlink; }
    void setHyperlink(std::shared_ptr<const Hyperlink> link) { _hyperlink = std::move(link); }

    /// True when there is no parent, and nothing is set.
    bool isEmpty() const;

    /// By value, down to the single properties; a null pointer equals only a null one.
    friend DOM_API bool operator==(const RunStyle& a, const RunStyle& b);
    friend bool operator!=(const RunStyle& a, const RunStyle& b) { return !(a == b); }
    friend DOM_API std::size_t hash_value(const RunStyle& style);

private:
    UUID _parentUUID;
    boost::optional<UUID> _trackedParent;
    std::shared_ptr<const RunProps> _runProps;
    std::shared_ptr<const RunProps> _trackedRunProps;
    std::shared_ptr<const TrackedChange> _change;
    std::shared_ptr<const std::string> _fieldInstruction;
    std::shared_ptr<const Hyperlink> _hyperlink;
};

using SharedRunStyle = boost::intrusive_ptr<const RunStyle>;

/// The run's own properties as @p mode shows them: with TrackChangesViewMode::FollowTrackedParents those
/// before a tracked change of its format. Null where the run sets none.
DOM_API const std::shared_ptr<const RunProps>& getRunPropsForViewMode(
    const RunStyle& style, TrackChangesViewMode mode);

/// Whether @p mode shows a run, or the mark of a paragraph, of this style: what a tracked change takes away
/// is there with TrackChangesViewMode::ShowDeletions alone; what one put in is not there where
/// FollowTrackedParents shows the state before the changes, unless ShowInsertions is there too.
DOM_API bool isShown(const RunStyle& style, TrackChangesViewMode mode);

} // namespace QV::DOM
