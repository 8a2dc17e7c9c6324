#pragma once

#include <string>
#include <unordered_map>

#include <boost/optional.hpp>

#include <DOM/Public/CellFormat.h>
#include <DOM/Public/CellStyle.h>
#include <Filters/Package/Export.h>
#include <OfficeUtils/Public/CellFormatter.h>

namespace QV::DOM {
class Document;
}

namespace QV::Filters {

/// What the cells of a document show. Each format is made ready for use once. The document must stay as it
/// is meanwhile.
class FILTERS_API CellDisplays
{
public:
    explicit CellDisplays(const DOM::Document& document);

    /// The number format of cells with a style, its own or its named parent's; null where neither has one.
    const DOM::CellFormat* findFormat(const DOM::CellStyle& style) const;

    /// @param format null for none
    OfficeUtils::DisplayedValue displayNumber(double number, const DOM::CellFormat* format);

    /// Nothing where the format shows a text as it stands.
    /// @param format null for none
    boost::optional<OfficeUtils::DisplayedValue> displayText(
        const std::string& text, const DOM::CellFormat* format);

private:
    struct Display
    {
        OfficeUtils::CellFormatter formatter;
        bool showsTextAsItStands;
    };

    const Display& getDisplay(const DOM::CellFormat& format);

    const DOM::Document& _document;
    std::unordered_map<const DOM::CellFormat*, Display> _displays;
};

} // namespace QV::Filters
