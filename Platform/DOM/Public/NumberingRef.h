#pragma once

#include <memory>
#include <tuple>

#include <boost/optional.hpp>

#include <DOM/Public/Properties.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// Which list a paragraph is an item of, and on which level. What is not set comes from the paragraph's
/// styles.
class NumberingRef
{
public:
    /// The count that the item goes on with: lists of one tag are numbered through. A nil one has none.
    const boost::optional<UUID>& getListTagUUID() const { return _listTagUUID; }
    /// The NumberedList, which says how the item is numbered. The nil one takes the numbering away that
    /// styles give.
    const boost::optional<UUID>& getNumListUUID() const { return _numListUUID; }
    /// 0 for the outermost level.
    const boost::optional<unsigned long>& getLevel() const { return _level; }

    void setListTagUUID(const boost::optional<UUID>& uuid) { _listTagUUID = uuid; }
    void setNumListUUID(const boost::optional<UUID>& uuid) { _numListUUID = uuid; }
    void setLevel(const boost::optional<unsigned long>& level) { _level = level; }

    static constexpr auto getFields()
    {
        return std::make_tuple(
            &NumberingRef::_listTagUUID, &NumberingRef::_numListUUID, &NumberingRef::_level);
    }

    friend bool operator==(const NumberingRef& a, const NumberingRef& b) { return areEqual(a, b); }
    friend bool operator!=(const NumberingRef& a, const NumberingRef& b) { return !(a == b); }

private:
    boost::optional<UUID> _listTagUUID;
    boost::optional<UUID> _numListUUID;
    boost::optional<unsigned long> _level;
};

/// True for a null pointer, and where nothing is set.
inline bool isEmpty(const std::unique_ptr<NumberingRef>& reference)
{
    return !reference || isEmpty(*reference);
}

} // namespace QV::DOM
