#include <FilterUtils/FU_NumberedListsFactory.h>

#include <DOM/Public/NumberingRef.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {

std::shared_ptr<DOM::NumberedList> NumberedListsFactory::makeNumberedList()
{
    _numberedLists.push_back(std::make_shared<DOM::NumberedList>());
    return _numberedLists.back();
}

const NumberedListsFactory::NumberedLists& NumberedListsFactory::getNumberedLists() const
{
    return _numberedLists;
}

NumberedListsFactory::NumberedLists& NumberedListsFactory::getNumberedLists()
{
    return _numberedLists;
}

boost::optional<DOM::NumListNameType> getNumberedListNameType(
    const std::vector<std::unique_ptr<DOM::NumberingLevel>>& levels)
{
    if (levels.empty())
        return boost::none;
    const DOM::NumberingLevel* const level = checkPtr(levels.back().get());
    const DOM::NumListMarker* const marker = level ? checkPtr(level->getListMarker().get()) : nullptr;
    if (!marker || !marker->getType())
        return boost::none;
    if (*marker->getType() <= DOM::NumListMarkerType::LowerLetter)
        return DOM::NumListNameType::Numbered;
    if (*marker->getType() <= DOM::NumListMarkerType::PictureBullet)
        return DOM::NumListNameType::Bulleted;
    return boost::none;
}

std::unique_ptr<DOM::NumberingRef> makeRemovedNumRef()
{
    auto reference = std::make_unique<DOM::NumberingRef>();
    reference->setListTagUUID(UUID());
    reference->setNumListUUID(UUID());
    reference->setLevel(0UL);
    return reference;
}

bool isRemovedNumRef(const DOM::NumberingRef& reference)
{
    // Other producers write the nil list alone, so tag and level do not matter.
    return reference.getNumListUUID() && *reference.getNumListUUID() == UUID();
}

} // namespace QV::FilterUtils
