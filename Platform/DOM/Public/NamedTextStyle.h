#pragma once

#include <memory>
#include <string>
#include <utility>

#include <boost/blank.hpp>
#include <boost/variant.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/RunProps.h>
#include <Utils/Public/UUID.h>
#include <Utils/Public/UUIDable.h>

namespace QV::DOM {

/// A style with a name, for paragraphs and for runs of text. It may derive from another one.
class DOM_API NamedTextStyle : public UUIDable
{
public:
    /// No name, one that applications know, or any other.
    using Name = boost::variant<boost::blank, PredefinedStyleName, std::string>;

    /// Nil when the style derives from none.
    const UUID& getParentUUID() const { return _parentUUID; }
    void setParentUUID(const UUID& uuid) { _parentUUID = uuid; }

    const Name& getName() const { return _name; }
    void setName(Name name) { _name = std::move(name); }

    /// Null when the style sets none.
    const std::shared_ptr<const RunProps>& getRunProps() const { return _runProps; }
    void setRunProps(std::shared_ptr<const RunProps> props) { _runProps = std::move(props); }

private:
    UUID _parentUUID;
    Name _name;
    std::shared_ptr<const RunProps> _runProps;
};

} // namespace QV::DOM
