#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include <boost/blank.hpp>
#include <boost/variant.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParaProps.h>
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

    /// What the style is for.
    enum class Kind : std::uint8_t
    {
        Paragraph,
        Character,
    };

    NamedTextStyle();
    ~NamedTextStyle();
    /// A copy has the identifier of the original.
    NamedTextStyle(const NamedTextStyle& other);
    NamedTextStyle& operator=(const NamedTextStyle& other);
    NamedTextStyle(NamedTextStyle&& other) noexcept;
    NamedTextStyle& operator=(NamedTextStyle&& other) noexcept;

    Kind getKind() const { return _kind; }
    void setKind(Kind kind) { _kind = kind; }

    /// Nil when the style derives from none.
    const UUID& getParentUUID() const { return _parentUUID; }
    void setParentUUID(const UUID& uuid) { _parentUUID = uuid; }

    const Name& getName() const { return _name; }
    void setName(Name name) { _name = std::move(name); }

    /// Null when the style sets none.
    const std::shared_ptr<const RunProps>& getRunProps() const { return _runProps; }
    void setRunProps(std::shared_ptr<const RunProps> props) { _runProps = std::move(props); }

    /// Null when the style sets none.
    const std::shared_ptr<const ParaProps>& getParaProps() const { return _paraProps; }
    void setParaProps(std::shared_ptr<const ParaProps> props) { _paraProps = std::move(props); }

    /// Of the paragraphs that have the style; null when it says nothing of numbering.
    const std::unique_ptr<NumberingRef>& getNumRef() const { return _numRef; }
    void setNumRef(std::unique_ptr<NumberingRef> reference) { _numRef = std::move(reference); }

private:
    UUID _parentUUID;
    Name _name;
    std::shared_ptr<const RunProps> _runProps;
    std::shared_ptr<const ParaProps> _paraProps;
    std::unique_ptr<NumberingRef> _numRef;
    Kind _kind = Kind::Paragraph;
};

} // namespace QV::DOM
