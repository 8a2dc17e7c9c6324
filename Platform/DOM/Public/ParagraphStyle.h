#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include <boost/optional.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// The formatting of a paragraph: a named parent style, and what the paragraph sets by itself.
/// Paragraphs may share a style, so one in use never changes.
class DOM_API ParagraphStyle : public boost::intrusive_ref_counter<ParagraphStyle, boost::thread_safe_counter>
{
public:
    /// Nil when the paragraph has no named style.
    const UUID& getParentUUID() const { return _parentUUID; }
    void setParentUUID(const UUID& uuid) { _parentUUID = uuid; }

    /// The named style before a change that was tracked; nothing where no such change was made.
    const boost::optional<UUID>& getTrackedParent() const { return _trackedParent; }
    void setTrackedParent(const boost::optional<UUID>& uuid) { _trackedParent = uuid; }

    /// Null when the paragraph sets none.
    const std::shared_ptr<const ParaProps>& getParaProps() const { return _paraProps; }
    void setParaProps(std::shared_ptr<const ParaProps> props) { _paraProps = std::move(props); }

    /// How the runs of the paragraph look; null when the paragraph does not say.
    const std::shared_ptr<const RunProps>& getRunProps() const { return _runProps; }
    void setRunProps(std::shared_ptr<const RunProps> props) { _runProps = std::move(props); }

    /// True when there is no parent, and nothing is set.
    bool isEmpty() const;

    /// By value, down to the single properties; a null set of properties equals only a null one.
    friend DOM_API bool operator==(const ParagraphStyle& a, const ParagraphStyle& b);
    friend bool operator!=(const ParagraphStyle& a, const ParagraphStyle& b) { return !(a == b); }
    friend DOM_API std::size_t hash_value(const ParagraphStyle& style);

private:
    UUID _parentUUID;
    boost::optional<UUID> _trackedParent;
    std::shared_ptr<const ParaProps> _paraProps;
    std::shared_ptr<const RunProps> _runProps;
};

using SharedParagraphStyle = boost::intrusive_ptr<const ParagraphStyle>;

} // namespace QV::DOM
