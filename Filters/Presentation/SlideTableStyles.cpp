#include <Filters/Presentation/SlideTableStyles.h>

#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/Namespaces.h>

namespace QV::Filters {

void SlideTableStyles::read(const FilterUtils::XMLElement& root)
{
    forEachDrawingElement(
        root, Vocabulary::Drawing, [this](const std::string& name, const FilterUtils::XMLElement& style) {
            const auto identifier = style.getAttributeValue("styleId");
            if (name == "tblStyle" && identifier)
                _styles.emplace(*identifier, // the first one stands
                    countDrawingElements(style, ElementsMax) <= ElementsMax ? style
                                                                            : FilterUtils::XMLElement());
        });
}

FilterUtils::XMLElement SlideTableStyles::find(const std::string& identifier) const
{
    const auto style = _styles.find(identifier);
    return style != _styles.end() ? style->second : FilterUtils::XMLElement();
}

} // namespace QV::Filters
