#pragma once

/// @file
/// Objects of a list, by their identifiers.

#include <memory>
#include <vector>

#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/ReadonlyVector.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// The first object of @p items with the identifier @p uuid; null where there is none. O(n).
///
///     NamedTextStyle* const heading = getByUUID(factory.getTextStyles(), uuid);
///
/// Asserts "plainPtr" for each null entry that it meets, and passes it by where the handler returns.
template <typename T>
T* getByUUID(const std::vector<std::shared_ptr<T>>& items, const UUID& uuid)
{
    for (const std::shared_ptr<T>& item : items) {
        T* const object = checkPtr(item.get());
        if (object && object->getUUID() == uuid)
            return object;
    }
    return nullptr;
}

/// The same for a view, through which the object may only be read.
template <typename T>
const T* getByUUID(const ReadonlyVector<std::shared_ptr<T>>& items, const UUID& uuid)
{
    return getByUUID(items.getItems(), uuid);
}

} // namespace QV::DOM
