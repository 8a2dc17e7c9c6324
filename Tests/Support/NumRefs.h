#pragma once

#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/NumberingRef.h>
#include <Utils/Public/UUID.h>

namespace QV::Tests {

/// Numbering of a few tags, lists and levels, each by a number; a negative one is not set, and a tag or list
/// 0 is the nil one.
struct NumRef
{
    int tag = -1;
    int list = -1;
    int level = -1;
};

inline boost::optional<UUID> makeNumRefUUID(int number)
{
    return boost::make_optional(number >= 0, UUID(0, static_cast<unsigned>(number)));
}

/// Never null; with nothing in it where nothing is set.
inline std::unique_ptr<DOM::NumberingRef> makeNumRef(const NumRef& numbers)
{
    auto reference = std::make_unique<DOM::NumberingRef>();
    reference->setListTagUUID(makeNumRefUUID(numbers.tag));
    reference->setNumListUUID(makeNumRefUUID(numbers.list));
    if (numbers.level >= 0)
        reference->setLevel(static_cast<unsigned long>(numbers.level));
    return reference;
}

/// For comparisons that show both sides when they fail.
inline std::string toText(const std::unique_ptr<DOM::NumberingRef>& reference)
{
    if (!reference)
        return "null";
    const auto toUUIDText = [](const boost::optional<UUID>& uuid) {
        return uuid ? uuid->toString() : std::string("none");
    };
    return "tag " + toUUIDText(reference->getListTagUUID()) + ", list " +
           toUUIDText(reference->getNumListUUID()) + ", level " +
           (reference->getLevel() ? std::to_string(*reference->getLevel()) : std::string("none"));
}

inline std::string toText(const NumRef& numbers)
{
    return toText(makeNumRef(numbers));
}

} // namespace QV::Tests
