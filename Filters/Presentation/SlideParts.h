#pragma once

/// @file
/// The parts of a presentation: how masters, layouts, slides and notes are opened, and what of them is left
/// out.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <DOM/Public/ShapeProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/DrawingTheme.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Presentation/PresentationContext.h>

namespace QV::Filters {

class FilterRun;

/// Opens parts; themes that several of them share are read once.
class SlideParts
{
public:
    static constexpr const char* BadMaster = "Slide master {} cannot be read";
    static constexpr const char* BadLayout = "Slide layout {} cannot be read";
    static constexpr const char* BadSlide = "Slide {} cannot be read";
    static constexpr const char* BadNotes = "Notes {} cannot be read";

    /// @param relationships of the main part
    SlideParts(PresentationContext& context, const Relationships& relationships);

    /// Opens a part that holds shapes: with its own theme, else the presentation's, and the usual mapping of
    /// colours. Null after one message, where it cannot be read.
    ///
    /// @param message for a part that is XML, and no such part
    std::unique_ptr<SlidePart> open(const std::string& part, const char* message);

    /// The presentation's own theme; not null.
    const std::shared_ptr<const DrawingTheme>& getTheme() const { return _theme; }

    /// The parts that the entries of a list (p:sldIdLst, ...) lead to, in its order. Entries that lead to
    /// none of that family are reported by @p message with their relationship's id.
    std::vector<std::string> listParts(const FilterUtils::XMLElement& list, const char* entry,
        const Relationships& relationships, const char* family, const char* message);

private:
    std::shared_ptr<const DrawingTheme> readTheme(
        const Relationships& relationships, std::shared_ptr<const DrawingTheme> fallback);

    PresentationContext& _context;
    std::map<std::string, std::shared_ptr<const DrawingTheme>> _themes; // by part
    std::shared_ptr<const DrawingTheme> _theme;                         // made with those above
};

/// The target of the first internal relationship of that family; empty for none.
std::string findRelatedPart(const Relationships& relationships, const char* family);

/// An xsd:boolean; @p usual where the attribute is not there, or is something else.
bool readSlideSwitch(const FilterUtils::XMLElement& element, const char* name, bool usual);

/// The scheme of a part of whose parent this is the scheme: what its p:clrMapOvr says.
ColorScheme readColorOverride(const FilterUtils::XMLElement& root, ColorScheme parent);

/// The fill of a part's background; null for none.
std::shared_ptr<const DOM::ShapeProps> readBackgroundProps(
    const SlidePart& part, PresentationContext& context);

/// Notes what of a master, layout or slide is not read, and the files that it refers to.
void noteLeftOutOfPart(const SlidePart& part, FilterRun& run);

/// Likewise of the main part.
void noteLeftOutOfPresentation(
    const FilterUtils::XMLElement& root, const Relationships& relationships, FilterRun& run);

} // namespace QV::Filters
