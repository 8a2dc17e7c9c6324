// The examples of Docs/library.md about media: what stands between two marks is there word for word.

#include <memory>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_IDGenerators.h>
#include <FilterUtils/FU_LocalFSMediaStorage.h>
#include <FilterUtils/FU_MediaStorage.h>
#include <FilterUtils/FU_Pictures.h>
#include <Tests/Support/TemporaryFolder.h>
#include <Utils/Public/InputStream.h>
#include <Utils/Public/StreamAdapterFactory.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

TEST(Example, MediaStorage)
{
    const Tests::TemporaryFolder temporary;
    LocalFSMediaStorage local(temporary.getPath("media"));
    // example: FU_MediaStorage
    MediaStorage& storage = local; // whichever it is, a filter knows this much of it
    std::istringstream file("a film");
    const std::string id =
        storage.saveMediaFromStream(StreamAdapterFactory::convertToInputStream(file), "video/mp4");
    char content[6];
    ASSERT_EQ(storage.openMediaForReading(id)->read(content, sizeof content, 0), 6U);
    EXPECT_EQ(std::string(content, 6), "a film");
    EXPECT_FALSE(storage.openMediaForReading("another")); // failure is the empty result
    // end
}

TEST(Example, LocalFSMediaStorage)
{
    const Tests::TemporaryFolder temporary;
    const std::string folder = temporary.getPath("book.media");
    // example: FU_LocalFSMediaStorage
    LocalFSMediaStorage storage(folder); // which need not be there yet
    std::istringstream file("a picture");
    const std::string id =
        storage.saveMediaFromStream(StreamAdapterFactory::convertToInputStream(file), "image/png");
    EXPECT_THAT(id, EndsWith(".png")); // "<UUID>.png", which is the name of the file
    EXPECT_EQ(storage.getFullPathToID(id), folder + "/" + id);
    EXPECT_THAT(temporary.list("book.media"), ElementsAre(id));
    // end
}

TEST(Example, Pictures)
{
    const Tests::TemporaryFolder temporary;
    LocalFSMediaStorage storage(temporary.getPath("media"));
    // example: FU_Pictures
    std::istringstream part("GIF89a..."); // named "image1.png" in its package
    const auto id = savePictureToMediaStorage(part, storage, "png");
    EXPECT_THAT(*id, EndsWith(".gif")); // the content tells, and the name only where it does not

    EXPECT_EQ(getPathForPictureInPackage("image/gif", "media/", "image1", ""), "media/image1.gif");
    // end
}

TEST(Example, IDGenerators)
{
    // example: FU_IDGenerators
    NumberIdGenerator numbers(0);
    EXPECT_EQ(numbers.generateId(), 1U);
    EXPECT_EQ(numbers.generateId(), 2U);
    StringIdGenerator relations("rId");
    EXPECT_EQ(relations.generateId(), "rId1");
    const std::unique_ptr<IDGenerator> uuids = makeUUIDIDGenerator();
    EXPECT_NE(uuids->generateId(), uuids->generateId());
    // end
}

} // namespace
} // namespace QV::FilterUtils
