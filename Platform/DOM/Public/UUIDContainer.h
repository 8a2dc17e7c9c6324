#pragma once

#include <cstddef>

#include <boost/container/map.hpp>

#include <Utils/Public/Assertions.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// Objects that others refer to by identifier, in the order of their identifiers; each identifier is there
/// once. An object stays in one place of memory as long as the container does.
///
///     UUIDContainer<NamedTextStyle> styles;
///     const UUID heading = styles.insert(std::move(style)).getUUID();
///     styles.find(heading)->getRunProps();
template <typename T>
class UUIDContainer
{
public:
    using Collection = boost::container::map<UUID, T>;

    /// Walks the objects, without their identifiers.
    class ConstIterator
    {
    public:
        explicit ConstIterator(typename Collection::const_iterator position)
            : _position(position)
        {
        }

        const T& operator*() const { return _position->second; }
        const T* operator->() const { return &_position->second; }
        ConstIterator& operator++()
        {
            ++_position;
            return *this;
        }
        friend bool operator==(const ConstIterator& a, const ConstIterator& b)
        {
            return a._position == b._position;
        }
        friend bool operator!=(const ConstIterator& a, const ConstIterator& b) { return !(a == b); }

    private:
        typename Collection::const_iterator _position;
    };

    /// Takes @p object in, and returns it where it is now. Asserts "_collection.find(uuid) ==
    /// _collection.end()"; where that fails, the object that is there stays and is returned. O(log n).
    const T& insert(T object)
    {
        const UUID uuid = object.getUUID();
        QV_ASSERT(_collection.find(uuid) == _collection.end());
        return _collection.emplace(uuid, std::move(object)).first->second;
    }

    /// Null where there is no object with this identifier. O(log n).
    const T* find(const UUID& uuid) const
    {
        const auto found = _collection.find(uuid);
        return found == _collection.end() ? nullptr : &found->second;
    }

    std::size_t size() const { return _collection.size(); }
    bool empty() const { return _collection.empty(); }

    ConstIterator begin() const { return ConstIterator(_collection.begin()); }
    ConstIterator end() const { return ConstIterator(_collection.end()); }

private:
    Collection _collection;
};

} // namespace QV::DOM
