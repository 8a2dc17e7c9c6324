#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include <boost/iterator/transform_iterator.hpp>

#include <Utils/Public/Assertions.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV {

/// A read-only view of a vector that belongs to someone else. Where the vector holds pointers, plain or
/// smart, the view gives the objects behind them, as constants.
///
///     const std::vector<std::shared_ptr<NamedTextStyle>> styles = ...;
///     for (const NamedTextStyle& style : ReadonlyVector<std::shared_ptr<NamedTextStyle>>(styles))
///         ...
///
/// Lives no longer than the vector; what is appended to it later is seen through the view. Iterators are
/// valid as long as the vector's own are. A null pointer in the vector asserts "plainPtr" where it is
/// reached, and throws std::logic_error where the handler returns.
template <typename T>
class ReadonlyVector
{
    struct GetObject
    {
        const PointeeOrSelf<T>& operator()(const T& item) const
        {
            if constexpr (IsPointer<T>::value)
                return deref(item);
            else
                return item;
        }
    };

public:
    using value_type = PointeeOrSelf<T>;
    using const_reference = const value_type&;
    using const_iterator = boost::transform_iterator<GetObject, typename std::vector<T>::const_iterator>;

    explicit ReadonlyVector(const std::vector<T>& items)
        : _items(items)
    {
    }
    explicit ReadonlyVector(std::vector<T>&&) = delete; // nobody would own the items

    std::size_t size() const { return _items.get().size(); }
    bool empty() const { return _items.get().empty(); }

    /// Asserts "index < size()"; throws std::out_of_range where that fails and the handler returns.
    const_reference operator[](std::size_t index) const
    {
        QV_ASSERT(index < size());
        return GetObject()(_items.get().at(index));
    }

    /// Asserts "!_items.get().empty()"; throws std::out_of_range where that fails and the handler returns.
    const_reference front() const
    {
        QV_ASSERT(!_items.get().empty());
        return GetObject()(_items.get().at(0));
    }

    /// As front, of the last object.
    const_reference back() const
    {
        QV_ASSERT(!_items.get().empty());
        return GetObject()(_items.get().at(size() - 1));
    }

    const_iterator begin() const { return const_iterator(_items.get().begin()); }
    const_iterator end() const { return const_iterator(_items.get().end()); }

    /// The vector behind the view, for callers that pass its items on as they are kept.
    const std::vector<T>& getItems() const { return _items; }

private:
    std::reference_wrapper<const std::vector<T>> _items;
};

} // namespace QV
