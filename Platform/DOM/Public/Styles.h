#pragma once

#include <memory>
#include <utility>

#include <boost/container/map.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/TableStyle.h>
#include <DOM/Public/UUIDContainer.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// The named styles of a document.
///
/// A style names its parent by identifier. Parents must not lead in a circle: whoever takes them from a file
/// breaks circles before the styles get here.
class DOM_API Styles
{
public:
    using TextStyles = UUIDContainer<NamedTextStyle>;
    using ShapeStyles = UUIDContainer<NamedShapeStyle>;
    using TableStyles = boost::container::map<UUID, NamedTableStyle>;

    Styles();
    ~Styles();

    Styles(const Styles&) = delete;
    Styles& operator=(const Styles&) = delete;

    const TextStyles& getTextStyles() const { return _textStyles; }
    TextStyles& getTextStyles() { return _textStyles; }

    /// Of a presentation: its masters and layouts.
    const ShapeStyles& getShapeStyles() const { return _shapeStyles; }
    ShapeStyles& getShapeStyles() { return _shapeStyles; }

    /// Each under its own identifier.
    const TableStyles& getTableStyles() const { return _tableStyles; }
    TableStyles& getTableStyles() { return _tableStyles; }

    /// The style of paragraphs that have none of their own; it names its parent alone.
    const ParagraphStyle& getDefaultParagraphStyle() const { return _defaultParagraphStyle; }
    void setDefaultParagraphStyle(const ParagraphStyle& style) { _defaultParagraphStyle = style; }
    const TableStyle& getDefaultTableStyle() const { return _defaultTableStyle; }
    void setDefaultTableStyle(TableStyle style) { _defaultTableStyle = std::move(style); }

    /// What holds below all styles; null where nothing is said.
    const std::shared_ptr<const ParaProps>& getDefaultParaProps() const { return _defaultParaProps; }
    void setDefaultParaProps(std::shared_ptr<const ParaProps> props) { _defaultParaProps = std::move(props); }
    const std::shared_ptr<const RunProps>& getDefaultRunProps() const { return _defaultRunProps; }
    void setDefaultRunProps(std::shared_ptr<const RunProps> props) { _defaultRunProps = std::move(props); }

private:
    TextStyles _textStyles;
    ShapeStyles _shapeStyles;
    TableStyles _tableStyles;
    ParagraphStyle _defaultParagraphStyle;
    TableStyle _defaultTableStyle;
    std::shared_ptr<const ParaProps> _defaultParaProps;
    std::shared_ptr<const RunProps> _defaultRunProps;
};

} // namespace QV::DOM
