#pragma once

/// @file
/// Bullets and numbers before the paragraphs of slides.

#include <array>
#include <memory>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/TextLevels.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Utils/Public/UUID.h>

namespace QV {
class OperationReport;
}

namespace QV::FilterUtils {
class NumberedListsFactory;
}

namespace QV::Filters {

struct SlidePart;

/// Lays what a child of paragraph properties says over @p bullet; elements that are not of bullets say
/// nothing. Bullets keep the codes of their font.
/// @param name of the child, such as "buChar"
void readTextBullet(const std::string& name, const FilterUtils::XMLElement& child, const SlidePart& part,
    OperationReport& report, DOM::TextBullet& bullet);

/// The lists of one text. The paragraphs of a count have one list tag, which no other count has; paragraphs
/// share a list as long as each level of it looks the same.
class SlideLists
{
public:
    /// @param factory outlives this object
    explicit SlideLists(FilterUtils::NumberedListsFactory& factory)
        : _factory(factory)
    {
    }

    /// What says of the next paragraph which list it is an item of: the nil list where it has no marker, and
    /// null where it has none on the outermost level.
    /// @param level below 9
    /// @param textProps of the paragraph's first run: markers look like it, where @p bullet says nothing else
    std::unique_ptr<DOM::NumberingRef> next(
        unsigned long level, const DOM::TextBullet& bullet, const DOM::RunProps& textProps);

private:
    static constexpr std::size_t LevelsCount = std::tuple_size<DOM::TextLevels>::value;

    struct Look
    {
        DOM::TextMarker marker;
        DOM::RunProps props;

        friend bool operator==(const Look& a, const Look& b)
        {
            return a.marker == b.marker && a.props == b.props;
        }
    };

    struct OpenList
    {
        std::shared_ptr<DOM::NumberedList> list;
        std::array<boost::optional<Look>, LevelsCount> looks; // of the levels that have had an item
    };

    struct Count
    {
        DOM::TextMarker marker;
        UUID tag;
    };

    const DOM::NumberedList& getList(std::size_t level, const Look& look);
    UUID getTag(std::size_t level, const DOM::TextMarker& marker, const DOM::NumberedList& list);

    FilterUtils::NumberedListsFactory& _factory;
    std::vector<OpenList> _lists;                            // the last one was used last
    std::array<boost::optional<Count>, LevelsCount> _counts; // that go on, by level
};

} // namespace QV::Filters
