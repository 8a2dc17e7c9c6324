#include <Filters/Package/FilterRun.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <FilterUtils/FU_MediaStorage.h>
#include <Utils/Public/InputStream.h>

namespace QV::Filters {
namespace {

class Bytes final : public InputStream
{
public:
    explicit Bytes(std::string bytes)
        : _bytes(std::move(bytes))
    {
    }

    std::size_t read(char* buffer, std::size_t count, int) override
    {
        const std::size_t size = _bytes.copy(buffer, count, _position);
        _position += size;
        return size;
    }

private:
    std::string _bytes;
    std::size_t _position = 0;
};

std::string readAll(InputStream& stream)
{
    std::string result;
    char buffer[7];
    while (const std::size_t size = stream.read(buffer, sizeof(buffer), 0))
        result.append(buffer, size);
    return result;
}

std::string save(FilterRun& run, const std::string& bytes)
{
    return run.getMediaStorage().saveMediaFromStream(std::make_shared<Bytes>(bytes), "image/png");
}

ImportOptions makeOptions(std::size_t memory)
{
    ImportOptions options;
    options.areIdsSequential = true;
    options.mediaMemory = memory;
    return options;
}

TEST(FilterRun, DropsMediaWithoutFolderAndMemory)
{
    FilterRun run(makeOptions(0));
    const std::string id = save(run, "bytes");
    EXPECT_EQ(id, "id2.png");
    EXPECT_EQ(run.getMediaStorage().openMediaForReading(id), nullptr);
    ASSERT_EQ(run.getMedia().size(), 1U);
    EXPECT_EQ(run.getMedia()[0].bytes, 5U);
}

TEST(FilterRun, KeepsMediaInMemoryWhileThereIsRoom)
{
    FilterRun run(makeOptions(10'000));
    const std::string large(6000, 'a');
    const std::string first = save(run, large);
    const std::string tooMuch = save(run, std::string(4001, 'b'));
    const std::string exact = save(run, std::string(4000, 'c'));
    const std::string empty = save(run, "");

    ASSERT_TRUE(run.getMediaStorage().openMediaForReading(first));
    EXPECT_EQ(readAll(*run.getMediaStorage().openMediaForReading(first)), large);
    EXPECT_EQ(readAll(*run.getMediaStorage().openMediaForReading(first)), large) << "a second time";
    EXPECT_EQ(run.getMediaStorage().openMediaForReading(tooMuch), nullptr);
    ASSERT_TRUE(run.getMediaStorage().openMediaForReading(exact));
    EXPECT_EQ(readAll(*run.getMediaStorage().openMediaForReading(exact)), std::string(4000, 'c'));
    EXPECT_TRUE(run.getMediaStorage().openMediaForReading(empty));
    EXPECT_EQ(run.getMediaStorage().openMediaForReading("id99.png"), nullptr);
    EXPECT_EQ(run.getMedia().size(), 4U) << "what found no room is counted";
}

} // namespace
} // namespace QV::Filters
