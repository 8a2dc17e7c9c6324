#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <limits>
#include <map>
#include <memory>
#include <set>
#include <string>

#include <DOM/Public/TextLevels.h>
#include <FilterUtils/FU_NumberedListsFactory.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/DrawingFormats.h>
#include <Filters/Package/DrawingTheme.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/MessageCounts.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PartPictures.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Presentation/SlideTableStyles.h>

namespace QV::Filters {

/// The pictures of one VML drawing: older files keep those of embedded objects there.
struct LegacyPictures
{
    std::string part;                       ///< empty before there is one
    Relationships relationships;            ///< of the part
    std::map<std::string, std::string> ids; ///< of its relationships, by the ids of shapes
};

/// Bounds what is read more than once: a small file can refer to one large part any number of times.
class RepeatedParts
{
public:
    static constexpr std::uint64_t BytesMax = std::uint64_t{24} << 20; ///< of all repeated reads together

    /// Whether there is room for one more read of a part, which is always so for its first one.
    bool take(Package& package, const std::string& part)
    {
        const auto [known, isNew] = _sizes.try_emplace(part, 0);
        if (isNew)
            return true;
        if (known->second == 0)
            known->second = ReadBytesMin + countBytes(package, part);
        if (known->second > BytesMax - _bytes)
            return false;
        _bytes += known->second;
        return true;
    }

private:
    static constexpr std::uint64_t ReadBytesMin = 1024; // even the smallest part takes some time

    static std::uint64_t countBytes(Package& package, const std::string& part)
    {
        const std::unique_ptr<std::istream> stream = package.openPart(part);
        stream->ignore(std::numeric_limits<std::streamsize>::max());
        return static_cast<std::uint64_t>(stream->gcount());
    }

    std::map<std::string, std::uint64_t> _sizes; // of the parts that were read; 0 until it is asked for
    std::uint64_t _bytes = 0;
};

/// What the readers of one presentation share.
struct PresentationContext
{
    static constexpr std::size_t ShapesMax = 200'000; ///< of the whole presentation
    static constexpr unsigned GroupDepthMax = 100;
    static constexpr std::size_t ParagraphsMax = 1'000'000; ///< of the whole presentation

    PresentationContext(Package& sourcePackage, FilterRun& filterRun)
        : package(sourcePackage)
        , run(filterRun)
        , pictures(sourcePackage, filterRun)
    {
    }

    /// Reports what one file can hold any number of.
    void report(const char* pattern, const std::string& value)
    {
        if (messages.add(pattern))
            run.getReport().emplace_back(pattern, value);
    }

    /// Whether a part that several objects may refer to may be read (once more); tells the first time that it
    /// may not.
    bool takeRead(const std::string& part)
    {
        if (repeatedParts.take(package, part))
            return true;
        if (partsLeftOut.insert(part).second)
            report("Part {} is referred to too often; it is left out from here on", part);
        return false;
    }

    Package& package;
    FilterRun& run;
    PartPictures pictures;
    MessageCounts messages;
    FilterUtils::NumberedListsFactory lists; ///< of bulleted and numbered paragraphs
    DOM::TextLevels defaultLevels; ///< of notes: what the presentation says of all text, by the first master
    SlideTableStyles tableStyles;
    LegacyPictures legacyPictures; ///< of the last slide that has such
    RepeatedParts repeatedParts;
    std::set<std::string> partsLeftOut; ///< that were referred to too often
    std::size_t shapesCount = 0;
    std::size_t paragraphsCount = 0;
};

/// A master, a layout, a slide, or the notes of one: its part, and how the part is read.
struct SlidePart
{
    SlidePart(std::string partName, FilterUtils::XMLElement partRoot, Relationships partRelationships,
        std::shared_ptr<const DrawingTheme> partTheme)
        : name(std::move(partName))
        , root(std::move(partRoot))
        , relationships(std::move(partRelationships))
        , theme(std::move(partTheme))
        , colors(theme->getColors())
    {
    }

    DrawingScope makeDrawingScope(
        PresentationContext& context, const DOM::ShapeFill* groupFill = nullptr) const
    {
        return {*theme, colors, relationships, context.pictures, context.run, groupFill};
    }

    std::string name;
    FilterUtils::XMLElement root;
    Relationships relationships;
    std::shared_ptr<const DrawingTheme> theme; ///< not null
    ColorScheme colors;                        ///< with the mapping that holds for the part
};

} // namespace QV::Filters
