#include <FilterUtils/FU_LocalFSMediaStorage.h>

#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Utils/Public/InputStream.h>

#include <FilterUtils/FU_Errors.h>

#include <Tests/Support/MediaStorageFixture.h>
#include <Tests/Support/TemporaryFolder.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::MatchesRegex;
using Tests::ConstantGenerator;
using Tests::CountingGenerator;
using Tests::FailingGenerator;
using Tests::makeStream;
using Tests::readFile;
using Tests::TemporaryFolder;
using Tests::UUIDPattern;

std::string readAll(InputStream& stream)
{
    std::string all;
    char byte = 0;
    while (stream.read(&byte, 1, 0) != 0)
        all += byte;
    return all;
}

using Construction = Tests::LocalFSMediaStorageFixture;
using GetFullPathToID = Tests::LocalFSMediaStorageFixture;
using OpenMediaForReading = Tests::LocalFSMediaStorageFixture;
using SaveExternalURL = Tests::LocalFSMediaStorageFixture;

static_assert(static_cast<int>(MediaStorageMode::CreateNew) == 0);
static_assert(static_cast<int>(MediaStorageMode::ReuseExisting) == 1);
static_assert(sizeof(MediaStorageMode) == 1);
static_assert(
    std::is_base_of_v<MediaStorage, LocalFSMediaStorage> && std::has_virtual_destructor_v<MediaStorage>);

TEST_F(Construction, TouchesNoFile)
{
    const LocalFSMediaStorage other(folder.getPath("a/b"), MediaStorageMode::ReuseExisting);
    EXPECT_THAT(folder.list(), IsEmpty());
}

TEST_F(Construction, NamesByUUIDUnlessGivenAGenerator)
{
    const std::string path = folder.getPath("media");
    LocalFSMediaStorage plain(path);
    LocalFSMediaStorage withMode(path, MediaStorageMode::ReuseExisting);
    LocalFSMediaStorage withNull(path, nullptr, MediaStorageMode::CreateNew);
    LocalFSMediaStorage withNullAlone(path, std::unique_ptr<IDGenerator>());
    for (LocalFSMediaStorage* const made : {&plain, &withMode, &withNull, &withNullAlone})
        EXPECT_THAT(
            made->generatePublicFileNameForId("a.png"), MatchesRegex(std::string(UUIDPattern) + "[.]png"));
    LocalFSMediaStorage counting(path, std::make_unique<CountingGenerator>());
    EXPECT_EQ(counting.generatePublicFileNameForId("a.png"), "id1.png");
}

TEST_F(Construction, ReusesNothingUnlessTold)
{
    leave("a.jpg", "old");
    const std::string path = folder.getPath("media");
    LocalFSMediaStorage plain(path);
    LocalFSMediaStorage withGenerator(path, std::make_unique<CountingGenerator>());
    LocalFSMediaStorage reusingByDefaultNames(path, MediaStorageMode::ReuseExisting);
    EXPECT_NE(plain.getFullPathToID("a.jpg"), getMediaPath("a.jpg"));
    EXPECT_EQ(withGenerator.getFullPathToID("a.jpg"), getMediaPath("id1.jpg"));
    EXPECT_EQ(reusingByDefaultNames.getFullPathToID("a.jpg"), getMediaPath("a.jpg"));
    EXPECT_EQ(reusing.getFullPathToID("a.jpg"), getMediaPath("a.jpg"));
}

struct NameRow
{
    const char* name;
    std::string id;
    std::string publicName; // of the generator's "id1"
};

void PrintTo(const NameRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.id);
}

const NameRow NameRows[] = {
    {"Plain",          "a.jpg",          "id1.jpg"     },
    {"NoExtension",    "a",              "id1"         },
    {"Empty",          "",               "id1"         },
    {"TwoExtensions",  "a.tar.gz",       "id1.gz"      },
    {"UpperCase",      "a.JPG",          "id1.JPG"     },
    {"TrailingDot",    "a.",             "id1."        },
    {"ExtensionAlone", ".png",           "id1.png"     },
    {"Upwards",        "../../x.png",    "id1.png"     },
    {"UpwardsAlone",   "..",             "id1"         },
    {"Folder",         "a/b.png",        "id1.png"     },
    {"DotInFolder",    "a.png/../../b",  "id1"         },
    {"Absolute",       "/etc/passwd",    "id1"         },
    {"Backslashes",    "a.b\\..\\c.png", "id1.png"     },
    {"OddExtension",   "a.p<n> \"g",     "id1.p<n> \"g"},
    {"NulEndsIt",      {"a.p\0ng", 6},   "id1.p"       },
};

class PublicFileName : public testing::TestWithParam<NameRow>
{
};

TEST_P(PublicFileName, KeepsTheExtensionAlone)
{
    const NameRow& row = GetParam();
    const TemporaryFolder folder;
    LocalFSMediaStorage storage(folder.getPath("media"), std::make_unique<CountingGenerator>());
    EXPECT_EQ(storage.generatePublicFileNameForId(row.id), row.publicName);
    EXPECT_THAT(folder.list(), IsEmpty());
}

TEST_P(PublicFileName, StaysInTheFolder)
{
    const NameRow& row = GetParam();
    const TemporaryFolder folder;
    LocalFSMediaStorage storage(folder.getPath("media"), std::make_unique<CountingGenerator>());
    EXPECT_EQ(storage.getFullPathToID(row.id), folder.getPath("media") + "/" + row.publicName);
}

INSTANTIATE_TEST_SUITE_P(Rows, PublicFileName, testing::ValuesIn(NameRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Construction, PathsForPublicIdsArePureText)
{
    EXPECT_EQ(storage.getFullPathForPublicId("a.png"), getMediaPath("a.png"));
    EXPECT_EQ(storage.getFullPathForPublicId("../a"), getMediaPath("../a"));
    EXPECT_EQ(storage.getFullPathForPublicId(""), folder.getPath("media"));
    EXPECT_EQ(LocalFSMediaStorage("").getFullPathForPublicId("a"), "a");
    EXPECT_THAT(folder.list(), IsEmpty());
    EXPECT_EQ(storage.getFullPathToID("a.png"), getMediaPath("id1.png")); // nothing was remembered
}

TEST_F(GetFullPathToID, MakesTheFolderWithItsParents)
{
    LocalFSMediaStorage deep(folder.getPath("a/b/c"), std::make_unique<CountingGenerator>());
    EXPECT_EQ(deep.getFullPathToID("x.jpg"), folder.getPath("a/b/c/id1.jpg"));
    EXPECT_THAT(folder.list("a/b"), ElementsAre("c"));
    EXPECT_THAT(folder.list("a/b/c"), IsEmpty());
}

TEST_F(GetFullPathToID, MapsUnknownIdentifiersAnewEachTime)
{
    EXPECT_EQ(storage.getFullPathToID("a.jpg"), getMediaPath("id1.jpg"));
    EXPECT_EQ(storage.getFullPathToID("a.jpg"), getMediaPath("id2.jpg"));
    EXPECT_EQ(storage.getFullPathToID("id1.jpg"), getMediaPath("id1.jpg"));
    EXPECT_EQ(storage.getFullPathToID("id2.jpg"), getMediaPath("id2.jpg"));
    EXPECT_EQ(storage.getFullPathToID("id3.jpg"), getMediaPath("id3.jpg")); // by chance: drawn just now
    EXPECT_THAT(listMedia(), IsEmpty());
}

TEST_F(GetFullPathToID, FindsWhatWasSaved)
{
    const std::string id = storage.saveMediaFromStream(makeStream("x"), "image/png");
    EXPECT_EQ(storage.getFullPathToID(id), getMediaPath(id));
    EXPECT_EQ(storage.getFullPathToID(id), getMediaPath(id));
}

TEST_F(GetFullPathToID, AdoptsFilesOfAnEarlierRun)
{
    leave("a.jpg", "old");
    EXPECT_EQ(storage.getFullPathToID("a.jpg"), getMediaPath("id1.jpg"));
    EXPECT_EQ(reusing.getFullPathToID("a.jpg"), getMediaPath("a.jpg"));
    boost::filesystem::remove(getMediaPath("a.jpg"));
    EXPECT_EQ(reusing.getFullPathToID("a.jpg"), getMediaPath("a.jpg")); // known from now on
    EXPECT_EQ(reusing.getFullPathToID("b.jpg"), getMediaPath("id1.jpg"));
}

TEST_F(GetFullPathToID, AdoptsPlainFileNamesAlone)
{
    leave("a.jpg", "inside");
    const std::string outside = folder.write("outside.jpg", "outside");
    boost::filesystem::create_directories(getMediaPath("below"));
    leave("below/b.jpg", "below");
    for (const std::string& id : {std::string("../outside.jpg"), std::string("below/../../outside.jpg"),
             outside, std::string("below/b.jpg"), std::string("./a.jpg"), std::string("/a.jpg"),
             std::string("a.jpg\0.jpg", 10)}) {
        const std::string path = reusing.getFullPathToID(id);
        EXPECT_THAT(path, MatchesRegex(getMediaPath("id[0-9]+[.]jpg")));
        EXPECT_EQ(reusing.openMediaForReading(id), nullptr);
    }
    for (const std::string id : {".", "..", ""})
        EXPECT_THAT(reusing.getFullPathToID(id), MatchesRegex(getMediaPath("id[0-9]+")));
}

TEST_F(GetFullPathToID, IsEmptyWhereAFileStandsInPlaceOfTheFolder)
{
    folder.write("media", "a file");
    EXPECT_EQ(storage.getFullPathToID("a.jpg"), "");
    EXPECT_EQ(LocalFSMediaStorage("").getFullPathToID("a.jpg"), "");
    EXPECT_EQ(readFile(folder.getPath("media")), "a file");
}

TEST_F(Construction, WhatTheGeneratorThrowsIsTreatedAlike)
{
    const std::string path = folder.getPath("media");
    const std::string file = folder.write("a.png", "x");
    const auto fail = [] { throw InternalFilterError("no more names"); };
    LocalFSMediaStorage failing(path, std::make_unique<FailingGenerator>(fail));
    EXPECT_EQ(failing.getFullPathToID("a"), "");
    EXPECT_EQ(failing.openMediaForReading("a"), nullptr);
    EXPECT_EQ(failing.saveExternalURL(file), "");
    EXPECT_EQ(failing.saveMediaFromStream(makeStream("x"), ""), "");
    EXPECT_FALSE(failing.createBlobForFileById("a"));
    EXPECT_THROW(failing.generatePublicFileNameForId("a"), InternalFilterError);

    const auto failOtherwise = [] { throw std::logic_error("a defect"); };
    LocalFSMediaStorage defective(path, std::make_unique<FailingGenerator>(failOtherwise));
    EXPECT_THROW(defective.getFullPathToID("a"), std::logic_error);
    EXPECT_THROW(defective.openMediaForReading("a"), std::logic_error);
    EXPECT_THROW(defective.saveExternalURL(file), std::logic_error);
    EXPECT_THROW(defective.saveMediaFromStream(makeStream("x"), ""), std::logic_error);
    EXPECT_THROW(defective.createBlobForFileById("a"), std::logic_error);
}

TEST_F(OpenMediaForReading, GivesWhatWasSaved)
{
    const std::string id = storage.saveMediaFromStream(makeStream("picture"), "image/png");
    const auto stream = storage.openMediaForReading(id);
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(readAll(*stream), "picture");
    const auto blob = storage.createBlobForFileById(id);
    ASSERT_TRUE(blob);
    EXPECT_EQ(blob->getPath().string(), getMediaPath(id));
}

TEST_F(OpenMediaForReading, MapsWhatWasNeverWrittenToANewName)
{
    EXPECT_EQ(storage.openMediaForReading("a.jpg"), nullptr);
    EXPECT_EQ(storage.getFullPathToID("id1.jpg"), getMediaPath("id1.jpg"));
    EXPECT_FALSE(storage.createBlobForFileById("a.jpg"));
    EXPECT_EQ(storage.getFullPathToID("id2.jpg"), getMediaPath("id2.jpg"));
    EXPECT_EQ(storage.getFullPathToID("other"), getMediaPath("id3"));
    EXPECT_THAT(listMedia(), IsEmpty());
}

TEST_F(OpenMediaForReading, GivesWhatTheCallerWroteToAReservedPath)
{
    boost::filesystem::path reserved = storage.getFullPathToID("a.jpg");
    leave(reserved.filename().native(), "by the caller");
    const auto stream = storage.openMediaForReading("id1.jpg");
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(readAll(*stream), "by the caller");
}

TEST_F(OpenMediaForReading, FindsFilesOfAnEarlierRunWhereTold)
{
    leave("a.jpg", "old");
    EXPECT_EQ(storage.openMediaForReading("a.jpg"), nullptr);
    const auto stream = reusing.openMediaForReading("a.jpg");
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(readAll(*stream), "old");
}

TEST_F(OpenMediaForReading, IsNullForAFolderAndWhereTheFolderIsAFile)
{
    boost::filesystem::create_directories(getMediaPath("below"));
    EXPECT_EQ(reusing.openMediaForReading("below"), nullptr);
    LocalFSMediaStorage onFile(folder.write("file", "x"));
    EXPECT_EQ(onFile.openMediaForReading("a"), nullptr);
    EXPECT_FALSE(onFile.createBlobForFileById("a"));
}

TEST_F(OpenMediaForReading, IsNullWhereTheSystemCannotTell)
{
    boost::filesystem::create_directories(folder.getPath("media"));
    boost::filesystem::create_symlink(getMediaPath("id1.jpg"), getMediaPath("id1.jpg")); // a loop of one
    EXPECT_EQ(storage.openMediaForReading("a.jpg"), nullptr);
    EXPECT_THROW(storage.createBlobForFileById("id1.jpg"), boost::filesystem::filesystem_error);
}

TEST_F(SaveExternalURL, CopiesTheFile)
{
    const std::string source = folder.write("photo.of.me.JPG", "photo");
    EXPECT_EQ(storage.saveExternalURL(source), "id1.JPG");
    EXPECT_EQ(readFile(getMediaPath("id1.JPG")), "photo");
    EXPECT_EQ(readFile(source), "photo");
    EXPECT_EQ(storage.saveExternalURL(folder.write("noextension", "x")), "id2");
    EXPECT_EQ(storage.getFullPathToID("id1.JPG"), getMediaPath("id1.JPG"));
}

TEST_F(SaveExternalURL, OverwritesAFileOfTheSameName)
{
    leave("id1.png", "older and longer");
    EXPECT_EQ(storage.saveExternalURL(folder.write("new.png", "new")), "id1.png");
    EXPECT_EQ(readFile(getMediaPath("id1.png")), "new");
}

TEST_F(SaveExternalURL, MakesNothingWhereThereIsNoFile)
{
    const std::string file = folder.write("a.png", "x");
    const std::string longName(5000, 'x');
    for (const std::string& url :
        {folder.getPath("missing.png"), "file://" + file, file + "/below.png", std::string(),
            std::string("https://example.org/a.png"), longName, file + std::string("\0.png", 5)})
        EXPECT_EQ(storage.saveExternalURL(url), "") << url;
    EXPECT_THAT(folder.list(), ElementsAre("a.png"));
    EXPECT_EQ(storage.generatePublicFileNameForId(""), "id1"); // nothing was drawn
}

TEST_F(SaveExternalURL, ANameStaysKnownWhenTheCopyFails)
{
    EXPECT_EQ(storage.saveExternalURL(folder.getPath()), ""); // a folder is there, and cannot be copied
    EXPECT_THAT(storage.getFullPathToID("other"), EndsWith("id2"));
    EXPECT_THAT(listMedia(), IsEmpty());
}

TEST_F(SaveExternalURL, IsEmptyWhereAFileStandsInPlaceOfTheFolder)
{
    folder.write("media", "a file");
    EXPECT_EQ(storage.saveExternalURL(folder.write("a.png", "x")), "");
    EXPECT_EQ(readFile(folder.getPath("media")), "a file");
    boost::filesystem::remove(folder.getPath("media"));
    EXPECT_EQ(storage.getFullPathToID("id1.png"), getMediaPath("id1.png"));
}

TEST_F(SaveExternalURL, NoURLLeadsTheCopyOutOfTheFolder)
{
    folder.write("a.png", "x");
    boost::filesystem::create_directories(folder.getPath("media"));
    EXPECT_EQ(storage.saveExternalURL(getMediaPath("../a.png")), "id1.png");
    EXPECT_THAT(listMedia(), ElementsAre("id1.png"));
    EXPECT_THAT(folder.list(), ElementsAre("a.png", "media"));
}

TEST_F(SaveExternalURL, KeepsAFileOfItsOwnThatIsNamedAgain)
{
    LocalFSMediaStorage constant(folder.getPath("media"), std::make_unique<ConstantGenerator>("x"));
    leave("x.png", "kept");
    EXPECT_EQ(constant.saveExternalURL(getMediaPath("x.png")), "");
    EXPECT_EQ(readFile(getMediaPath("x.png")), "kept");
}

} // namespace
} // namespace QV::FilterUtils
