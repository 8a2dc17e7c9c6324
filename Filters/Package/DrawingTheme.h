#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/Export.h>
#include <Filters/Package/Relationships.h>

namespace QV {
class OperationReport;
}

namespace QV::Filters {

class Package;

/// A theme part: its colours, fonts, and lists of formats that shapes refer to by number.
class FILTERS_API DrawingTheme
{
public:
    /// Elements of one format, all below it counted; a format with more is none, so that shapes without
    /// number can refer to it.
    static constexpr unsigned FormatElementsMax = 250;

    static constexpr std::size_t FontNameBytesMax = 1024; ///< any number of texts has a copy of a name

    /// A fill, line or effects; the name tells of what kind a fill is.
    struct Format
    {
        std::string name; ///< the local one, such as "solidFill"
        FilterUtils::XMLElement element;
    };

    /// The standard colours, no fonts and no formats.
    DrawingTheme();

    /// Reports, besides what readXml, Colors and Relationships report, and throws what they throw:
    ///     - "Format of theme {} has too many elements": see FormatElementsMax
    ///     - "Name of a font is cut at {} bytes": see FontNameBytesMax
    ///
    /// @param part empty for none; one that is not well-formed is the same as none
    DrawingTheme(Package& package, const std::string& part, OperationReport& report);

    const std::string& getName() const { return _name; }
    const Colors& getColors() const { return _colors; }
    /// Of the theme part; what its pictures are found by.
    const Relationships& getRelationships() const { return _relationships; }

    /// The font that a name such as "+mj-lt" or "+mn-ea" stands for; any other name is that of a font itself.
    /// Nothing where the theme has none.
    boost::optional<std::string> findFont(const std::string& name) const;

    /// The elements that p:style and p:bgRef refer to by number, from 1 on; a fill from 1001 on is one of the
    /// backgrounds. The invalid view for 0, 1000, and beyond the list.
    Format findFill(unsigned long index) const;
    FilterUtils::XMLElement findLine(unsigned long index) const;
    FilterUtils::XMLElement findEffects(unsigned long index) const; ///< "effectStyle"

private:
    std::string _name;
    Colors _colors;
    Relationships _relationships;
    std::map<std::string, std::string> _fonts; // by the name that refers to them, such as "+mj-lt"
    std::vector<Format> _fills;
    std::vector<Format> _backgroundFills;
    std::vector<Format> _lines;
    std::vector<Format> _effects;
};

} // namespace QV::Filters
