#pragma once

/// @file
/// Lists: how the items of each level are marked or numbered, and where they stand.

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <Utils/Public/UUIDable.h>

namespace QV::DOM {

/// What an item is marked with. Up to LowerLetter items are numbered; bullets follow, then the rarer ways to
/// write a number.
enum class NumListMarkerType : std::uint8_t
{
    Decimal,
    UpperRoman,
    LowerRoman,
    UpperLetter, ///< A to Z, then AA to ZZ
    LowerLetter,
    Bullet,
    PictureBullet,
    None,         ///< the marker's text alone, or nothing
    DecimalZero,  ///< 01 to 09, then 10
    Ordinal,      ///< 1st
    CardinalText, ///< One
    OrdinalText,  ///< First
    Hexadecimal,
    Chicago,     ///< *, a dagger, a double dagger, a section sign; then each twice
    DecimalDash, ///< - 1 -
    CircledDecimal,
    FullWidthDecimal,
    IdeographDigits,
    ChineseCounting,
    RussianUpperLetter,
    RussianLowerLetter,
    HebrewLetter,
    ArabicLetter,
    Other, ///< a system that is written as Decimal here
};

/// What kind of list a whole list is called.
enum class NumListNameType : std::uint8_t
{
    Bulleted = 1,
    Numbered = 2,
};

/// The mark before an item.
class NumListMarker
{
public:
    const boost::optional<NumListMarkerType>& getType() const { return _type; }
    void setType(const boost::optional<NumListMarkerType>& type) { _type = type; }

    /// A bullet's characters; else a pattern in which "%1" to "%9" stand for the numbers of the levels from
    /// the outermost on, such as "%1.%2.". UTF-8.
    const std::string& getText() const { return _text; }
    void setText(std::string text) { _text = std::move(text); }

private:
    boost::optional<NumListMarkerType> _type;
    std::string _text;
};

/// One level of a list.
class NumberingLevel
{
public:
    /// What stands between the label and the text.
    enum class Suffix : std::uint8_t
    {
        Tab,
        Space,
        Nothing,
    };

    /// Null where the level has none.
    const std::shared_ptr<NumListMarker>& getListMarker() const { return _marker; }
    void setListMarker(std::shared_ptr<NumListMarker> marker) { _marker = std::move(marker); }

    /// The number of the first item.
    long getStart() const { return _start; }
    void setStart(long start) { _start = start; }

    /// How many of the outer levels' items restart the count: an item of a level below this number does.
    /// Nothing: any outer one. 0: none does.
    const boost::optional<unsigned long>& getRestartLevel() const { return _restartLevel; }
    void setRestartLevel(const boost::optional<unsigned long>& level) { _restartLevel = level; }

    /// Whether the numbers of all levels are written as Decimal in the label of this one.
    bool isLegal() const { return _isLegal; }
    void setLegal(bool isLegal) { _isLegal = isLegal; }

    Suffix getSuffix() const { return _suffix; }
    void setSuffix(Suffix suffix) { _suffix = suffix; }

    /// How the label stands in its room: HorizontalAlignment::Left, Center or Right.
    HorizontalAlignment getAlignment() const { return _alignment; }
    void setAlignment(HorizontalAlignment alignment) { _alignment = alignment; }

    /// Of the items' paragraphs: their indents above all. Null where the level sets none.
    const std::shared_ptr<const ParaProps>& getParaProps() const { return _paraProps; }
    void setParaProps(std::shared_ptr<const ParaProps> props) { _paraProps = std::move(props); }

    /// Of the label. Null where the level sets none.
    const std::shared_ptr<const RunProps>& getRunProps() const { return _runProps; }
    void setRunProps(std::shared_ptr<const RunProps> props) { _runProps = std::move(props); }

private:
    std::shared_ptr<NumListMarker> _marker;
    long _start = 1;
    boost::optional<unsigned long> _restartLevel;
    bool _isLegal = false;
    Suffix _suffix = Suffix::Tab;
    HorizontalAlignment _alignment = HorizontalAlignment::Left;
    std::shared_ptr<const ParaProps> _paraProps;
    std::shared_ptr<const RunProps> _runProps;
};

/// How the items of a list are marked, level by level.
class DOM_API NumberedList : public UUIDable
{
public:
    /// From the outermost on; no null entries.
    const std::vector<std::unique_ptr<NumberingLevel>>& getLevels() const { return _levels; }
    /// @param level not null
    void appendLevel(std::unique_ptr<NumberingLevel> level) { _levels.push_back(std::move(level)); }

    /// The level of that number, or of the last one where the list has fewer; null where it has none.
    const NumberingLevel* findLevel(unsigned long level) const
    {
        if (_levels.empty())
            return nullptr;
        return (level < _levels.size() ? _levels[level] : _levels.back()).get();
    }

    /// Levels whose count starts anew, from NumberingLevel::getStart, at the first item of this list that
    /// has that level, although other lists of the same tag came before. Ascending.
    const std::vector<unsigned long>& getRestartedLevels() const { return _restartedLevels; }
    void setRestartedLevels(std::vector<unsigned long> levels) { _restartedLevels = std::move(levels); }

private:
    std::vector<std::unique_ptr<NumberingLevel>> _levels;
    std::vector<unsigned long> _restartedLevels;
};

} // namespace QV::DOM
