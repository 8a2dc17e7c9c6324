#include <FilterUtils/FU_LocalFSMediaStorage.h>

#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>

#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <FilterUtils/FU_Errors.h>

#include <Tests/Support/MediaStorageFixture.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Tests/Support/TemporaryFolder.h>

namespace QV::FilterUtils {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using Tests::ConstantGenerator;
using Tests::makeStream;
using Tests::readFile;
using Tests::RecordedAssertions;
using Tests::TemporaryFolder;
using Tests::UUIDPattern;

using SaveMediaFromStream = Tests::LocalFSMediaStorageFixture;

TEST_F(SaveMediaFromStream, NamesTheFileByItsType)
{
    EXPECT_EQ(storage.saveMediaFromStream(makeStream("picture"), "image/png"), "id2.png");
    EXPECT_EQ(readFile(getMediaPath("id2.png")), "picture");
    EXPECT_THAT(listMedia(), ElementsAre("id2.png"));
}

TEST_F(SaveMediaFromStream, DrawsTwoIdentifiersForEachItem)
{
    EXPECT_EQ(storage.saveMediaFromStream(makeStream("same"), "image/png"), "id2.png");
    EXPECT_EQ(storage.saveMediaFromStream(makeStream("same"), "image/png"), "id4.png");
    EXPECT_EQ(storage.saveMediaFromStream(makeStream("same"), "no/type"), "id6");
    EXPECT_THAT(listMedia(), ElementsAre("id2.png", "id4.png", "id6"));
}

TEST_F(SaveMediaFromStream, UnknownTypesGiveNoExtension)
{
    LocalFSMediaStorage byUUID(folder.getPath("media"));
    for (const std::string mimeType : {"", "image/unheard-of", ".png", "png"})
        EXPECT_THAT(byUUID.saveMediaFromStream(makeStream("x"), mimeType), MatchesRegex(UUIDPattern));
    EXPECT_THAT(byUUID.saveMediaFromStream(makeStream("x"), "image/png"),
        MatchesRegex(std::string(UUIDPattern) + "[.]png"));
}

TEST_F(SaveMediaFromStream, LooksAtNoContent)
{
    EXPECT_EQ(storage.saveMediaFromStream(makeStream("GIF89a"), "image/png"), "id2.png");
    EXPECT_EQ(storage.saveMediaFromStream(makeStream("GIF89a"), ""), "id4");
}

TEST_F(SaveMediaFromStream, KeepsTheExtensionOfAGeneratedIdentifier)
{
    LocalFSMediaStorage dotted(folder.getPath("media"), std::make_unique<ConstantGenerator>("a.b"));
    EXPECT_EQ(dotted.saveMediaFromStream(makeStream("x"), "image/png"), "a.b.b.png");
}

TEST_F(SaveMediaFromStream, NamesThatAreMadeAlikeAreOneFile)
{
    LocalFSMediaStorage constant(folder.getPath("media"), std::make_unique<ConstantGenerator>("x"));
    EXPECT_EQ(constant.saveMediaFromStream(makeStream("first and longer"), "image/png"), "x.png");
    EXPECT_EQ(constant.saveMediaFromStream(makeStream("second"), "image/png"), "x.png");
    EXPECT_EQ(readFile(getMediaPath("x.png")), "second");
}

struct SizeRow
{
    const char* name;
    std::size_t size;
    std::size_t readsCount; // the one that finds the end included
};

void PrintTo(const SizeRow& row, std::ostream* out)
{
    *out << row.size << " bytes";
}

const SizeRow SizeRows[] = {
    {"Nothing",      0,                1    },
    {"OneByte",      1,                2    },
    {"OneBelow",     1023,             2    },
    {"Whole",        1024,             2    },
    {"OneAbove",     1025,             3    },
    {"TwoWhole",     2048,             3    },
    {"TenMegabytes", 10 * 1024 * 1024, 10241},
};

class CopiedSizes : public testing::TestWithParam<SizeRow>
{
};

TEST_P(CopiedSizes, AreReadInBlocks)
{
    const SizeRow& row = GetParam();
    const TemporaryFolder folder;
    LocalFSMediaStorage storage(folder.getPath("media"));
    std::string content(row.size, '\0');
    for (std::size_t i = 0; i < content.size(); ++i)
        content[i] = static_cast<char>(i * 7 + i / 1024);
    const auto stream = makeStream(content);
    const std::string id = storage.saveMediaFromStream(stream, "image/png");
    EXPECT_TRUE(readFile(storage.getFullPathToID(id)) == content);
    EXPECT_EQ(stream->getCounts().size(), row.readsCount);
    EXPECT_THAT(stream->getCounts(), Each(1024U));
    EXPECT_THAT(stream->getFlags(), Each(0));
}

INSTANTIATE_TEST_SUITE_P(Rows, CopiedSizes, testing::ValuesIn(SizeRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(SaveMediaFromStream, ShortReadsAreNotTheEnd)
{
    const auto stream = makeStream(std::string(1000, 'x'));
    stream->mostAtOnce = 7;
    const std::string id = storage.saveMediaFromStream(stream, "");
    EXPECT_EQ(readFile(getMediaPath(id)), std::string(1000, 'x'));
    EXPECT_EQ(stream->getCounts().size(), 144U);
}

TEST_F(SaveMediaFromStream, TellsANullStreamOnItsFixedLine)
{
    const RecordedAssertions recorded;
    EXPECT_EQ(storage.saveMediaFromStream(nullptr, "image/png"), "");
    ASSERT_EQ(recorded.getFailures().size(), 1U);
    const RecordedAssertions::Failure& failure = recorded.getFailures().front();
    EXPECT_EQ(failure.expression, "stream");
    EXPECT_EQ(failure.file, "FilterUtils/FU_LocalFSMediaStorage.cpp");
    EXPECT_EQ(failure.line, 174);
    EXPECT_EQ(failure.message, "");
    EXPECT_THAT(folder.list(), IsEmpty());
    EXPECT_EQ(storage.generatePublicFileNameForId(""), "id1"); // nothing was drawn
}

TEST_F(SaveMediaFromStream, IsEmptyWhereAFileStandsInPlaceOfTheFolder)
{
    folder.write("media", "a file");
    const auto stream = makeStream("x");
    EXPECT_EQ(storage.saveMediaFromStream(stream, "image/png"), "");
    EXPECT_THAT(stream->getCounts(), IsEmpty());
    EXPECT_EQ(readFile(folder.getPath("media")), "a file");
}

TEST_F(SaveMediaFromStream, ANameStaysKnownWhenItsFileCouldNotBeMade)
{
    folder.write("media", "a file");
    EXPECT_EQ(storage.saveMediaFromStream(makeStream("x"), "image/png"), "");
    boost::filesystem::remove(folder.getPath("media"));
    EXPECT_EQ(storage.getFullPathToID("id2.png"), getMediaPath("id2.png"));
    EXPECT_EQ(storage.getFullPathToID("id1.png"), getMediaPath("id3.png"));
}

TEST_F(SaveMediaFromStream, IsEmptyWhereAFolderHasTheName)
{
    boost::filesystem::create_directories(getMediaPath("id2.png"));
    EXPECT_EQ(storage.saveMediaFromStream(makeStream("x"), "image/png"), "");
    EXPECT_EQ(storage.saveMediaFromStream(makeStream("x"), "image/png"), "id4.png");
}

TEST_F(SaveMediaFromStream, IsEmptyWhereTheNameIsTooLong)
{
    LocalFSMediaStorage longNames(
        folder.getPath("media"), std::make_unique<ConstantGenerator>(std::string(252, 'x')));
    EXPECT_EQ(longNames.saveMediaFromStream(makeStream("x"), "image/png"), "");
    EXPECT_EQ(longNames.saveMediaFromStream(makeStream("x"), ""), std::string(252, 'x'));
}

TEST_F(SaveMediaFromStream, DoesNotNoticeAFullDisk)
{
    LocalFSMediaStorage device("/dev", std::make_unique<ConstantGenerator>("full"));
    EXPECT_EQ(device.saveMediaFromStream(makeStream(std::string(100000, 'x')), ""), "full");
}

TEST_F(SaveMediaFromStream, IsEmptyWhereTheStreamFails)
{
    const auto stream = makeStream("half of it");
    stream->failAtEnd = [] { throw BaseRuntimeError("damaged"); };
    EXPECT_EQ(storage.saveMediaFromStream(stream, "image/png"), "");
    EXPECT_EQ(readFile(getMediaPath("id2.png")), "half of it");
    EXPECT_EQ(storage.getFullPathToID("id2.png"), getMediaPath("id2.png"));
}

TEST_F(SaveMediaFromStream, OtherExceptionsPass)
{
    const auto stream = makeStream("half of it");
    stream->failAtEnd = [] { throw std::runtime_error("no failure of a filter"); };
    EXPECT_THROW(storage.saveMediaFromStream(stream, "image/png"), std::runtime_error);
    EXPECT_EQ(readFile(getMediaPath("id2.png")), "half of it");
}

} // namespace
} // namespace QV::FilterUtils
