// Other libraries call these classes through their virtual tables, so the order of the slots is held here.

#include <cstddef>
#include <cstring>

#include <gtest/gtest.h>

#include <FilterUtils/FU_IDGenerators.h>
#include <FilterUtils/FU_MediaStorage.h>

namespace QV::FilterUtils {
namespace {

/// The slot that a pointer to a virtual function calls: the first word of such a pointer is one more than the
/// slot's offset in bytes (Itanium C++ ABI, 2.3).
template <typename Function>
std::size_t getSlot(Function function)
{
    std::size_t word = 0;
    std::memcpy(&word, &function, sizeof(word));
    EXPECT_EQ(word % sizeof(void*), 1U) << "the function is not virtual";
    return word / sizeof(void*);
}

TEST(VirtualTables, IDGeneratorHasItsDestructorLast)
{
    EXPECT_EQ(getSlot(&IDGenerator::generateId), 0U); // slots 1 and 2 are the destructor's
    struct Wider : IDGenerator
    {
        virtual void next() = 0;
    };
    EXPECT_EQ(getSlot(&Wider::next), 3U);
}

TEST(VirtualTables, MediaStorageHasItsDestructorFirst)
{
    EXPECT_EQ(getSlot(&MediaStorage::saveExternalURL), 2U);
    EXPECT_EQ(getSlot(&MediaStorage::getFullPathToID), 3U);
    EXPECT_EQ(getSlot(&MediaStorage::openMediaForReading), 4U);
    EXPECT_EQ(getSlot(&MediaStorage::saveMediaFromStream), 5U);
    struct Wider : MediaStorage
    {
        virtual void next() = 0;
    };
    EXPECT_EQ(getSlot(&Wider::next), 6U);
}

} // namespace
} // namespace QV::FilterUtils
