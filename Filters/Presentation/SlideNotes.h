#pragma once

#include <map>
#include <memory>
#include <string>

#include <DOM/Public/CellText.h>
#include <DOM/Public/TextLevels.h>
#include <Filters/Package/DrawingColors.h>
#include <Filters/Package/DrawingTheme.h>

namespace QV::Filters {

class SlideParts;
struct PresentationContext;
struct SlidePart;

/// Reads what speakers note on slides.
class SlideNotes
{
public:
    SlideNotes(PresentationContext& context, SlideParts& parts)
        : _context(context)
        , _parts(parts)
    {
    }

    /// The text of a slide's notes; null where it has none, or an empty text.
    DOM::SharedCellText read(const SlidePart& slide);

private:
    struct Master
    {
        std::shared_ptr<const DrawingTheme> theme; // not null
        ColorScheme colors;
        DOM::TextLevels levels;
    };

    /// Null where there is none, or one that cannot be read.
    const Master* findMaster(const SlidePart& notes);

    PresentationContext& _context;
    SlideParts& _parts;
    std::map<std::string, std::unique_ptr<const Master>> _masters; // by part; null where not readable
};

} // namespace QV::Filters
