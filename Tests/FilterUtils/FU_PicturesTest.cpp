#include <FilterUtils/FU_Pictures.h>

#include <memory>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Utils/Public/InputStream.h>

#include <FilterUtils/FU_LocalFSMediaStorage.h>
#include <FilterUtils/FU_MediaStorage.h>

#include <Tests/Support/TemporaryFolder.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::readFile;
using Tests::TemporaryFolder;

const std::string PNG("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);

// Remembers what it was given.
class RecordingStorage final : public MediaStorage
{
public:
    std::string saveExternalURL(const std::string&) override { return {}; }
    std::string getFullPathToID(const std::string&) override { return {}; }
    std::shared_ptr<InputStream> openMediaForReading(const std::string&) override { return nullptr; }
    std::string saveMediaFromStream(std::shared_ptr<InputStream> stream, const std::string& mimeType) override
    {
        _mimeType = mimeType;
        char byte = 0;
        while (stream->read(&byte, 1, 0) != 0)
            _content += byte;
        if (_mimeType == "image/gif")
            throw std::runtime_error("no GIF here");
        return answer;
    }

    const std::string& getMIMEType() const { return _mimeType; }
    const std::string& getContent() const { return _content; }

    std::string answer = "the id";

private:
    std::string _mimeType = "never asked";
    std::string _content;
};

struct PictureRow
{
    const char* name;
    std::string content;
    std::string extension;
    std::string mimeType;
};

void PrintTo(const PictureRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.content) << " named " << row.extension;
}

const PictureRow PictureRows[] = {
    {"ContentAndNameAgree", PNG,     "png",   "image/png"    },
    {"ContentWins",         PNG,     "jpg",   "image/png"    },
    {"ContentWithoutName",  PNG,     "",      "image/png"    },
    {"NameAlone",           "?????", "jpg",   "image/jpeg"   },
    {"NameInCapitals",      "?????", "EMF",   "image/x-emf"  },
    {"NameOfNoContent",     "",      "svg",   "image/svg+xml"},
    {"NameWithDot",         "?????", ".jpg",  ""             },
    {"NeitherIsKnown",      "?????", "thing", ""             },
    {"NeitherIsThere",      "",      "",      ""             },
};

class SavePicture : public testing::TestWithParam<PictureRow>
{
};

TEST_P(SavePicture, ChoosesTheType)
{
    const PictureRow& row = GetParam();
    std::istringstream in(row.content);
    RecordingStorage storage;
    const auto id = savePictureToMediaStorage(in, storage, row.extension);
    ASSERT_NE(id, nullptr);
    EXPECT_EQ(*id, "the id");
    EXPECT_EQ(storage.getMIMEType(), row.mimeType);
    EXPECT_EQ(storage.getContent(), row.content);
}

INSTANTIATE_TEST_SUITE_P(Rows, SavePicture, testing::ValuesIn(PictureRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SavePictureToMediaStorage, NamesTheFileByTheContent)
{
    const TemporaryFolder folder;
    LocalFSMediaStorage storage(folder.getPath());
    std::istringstream in(PNG);
    const auto id = savePictureToMediaStorage(in, storage, "jpg");
    EXPECT_THAT(*id, testing::EndsWith(".png"));
    EXPECT_EQ(readFile(folder.getPath(*id)), PNG);
}

TEST(SavePictureToMediaStorage, UnknownPicturesHaveNoExtension)
{
    const TemporaryFolder folder;
    LocalFSMediaStorage storage(folder.getPath());
    std::istringstream in("what is this");
    const auto id = savePictureToMediaStorage(in, storage, "thing");
    EXPECT_EQ(id->find('.'), std::string::npos);
    EXPECT_EQ(readFile(folder.getPath(*id)), "what is this");
}

TEST(SavePictureToMediaStorage, StartsAtThePosition)
{
    RecordingStorage storage;
    std::istringstream in("skipped" + PNG);
    in.seekg(7);
    savePictureToMediaStorage(in, storage, "jpg");
    EXPECT_EQ(storage.getMIMEType(), "image/png");
    EXPECT_EQ(storage.getContent(), PNG);
}

TEST(SavePictureToMediaStorage, PointsToTheEmptyTextWhereNothingWasKept)
{
    RecordingStorage storage;
    storage.answer = "";
    std::istringstream in(PNG);
    const auto id = savePictureToMediaStorage(in, storage, "png");
    ASSERT_NE(id, nullptr);
    EXPECT_EQ(*id, "");
}

TEST(SavePictureToMediaStorage, PassesWhatTheStorageThrows)
{
    RecordingStorage storage;
    std::istringstream in("GIF89a");
    EXPECT_THROW(savePictureToMediaStorage(in, storage, "png"), std::runtime_error);
}

struct PathRow
{
    const char* name;
    const char* mimeType;
    const char* folder;
    const char* baseName;
    const char* fallback;
    const char* path;
};

void PrintTo(const PathRow& row, std::ostream* out)
{
    *out << row.mimeType << ' ' << row.folder << ' ' << row.baseName << ' ' << row.fallback;
}

// name, MIME type, folder, base name, fallback, path
const PathRow PathRows[] = {
    {"Known",             "image/png",  "media/", "image1", "",     "media/image1.png"},
    {"KnownOverFallback", "image/jpeg", "media/", "image1", ".emf", "media/image1.jpg"},
    {"Fallback",          "",           "media/", "image1", ".emf", "media/image1.emf"},
    {"FallbackVerbatim",  "",           "media/", "image1", "emf",  "media/image1emf" },
    {"NoFallback",        "",           "media/", "image1", "",     "media/image1"    },
    {"Unknown",           "image/none", "media/", "image1", ".emf", "media/image1"    },
    {"NoSlash",           "image/png",  "media",  "image1", "",     "mediaimage1.png" },
    {"NoFolder",          "image/png",  "",       "a.b",    "",     "a.b.png"         },
};

class PathForPicture : public testing::TestWithParam<PathRow>
{
};

TEST_P(PathForPicture, KeepsRow)
{
    const PathRow& row = GetParam();
    EXPECT_EQ(getPathForPictureInPackage(row.mimeType, row.folder, row.baseName, row.fallback), row.path);
}

INSTANTIATE_TEST_SUITE_P(Rows, PathForPicture, testing::ValuesIn(PathRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SaveStreamToLocalFile, CopiesFromThePosition)
{
    const TemporaryFolder folder;
    const std::string content = "skipped" + std::string(100000, '\0') + "\r\n\xff end";
    std::istringstream in(content);
    in.seekg(7);
    saveStreamToLocalFile(in, folder.getPath("a.bin"));
    EXPECT_TRUE(readFile(folder.getPath("a.bin")) == content.substr(7));
}

TEST(SaveStreamToLocalFile, EmptiesTheFileFirst)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("a.bin", "older and longer");
    std::istringstream in("new");
    saveStreamToLocalFile(in, path);
    EXPECT_EQ(readFile(path), "new");
}

TEST(SaveStreamToLocalFile, AnEmptyGoodStreamGivesAnEmptyFile)
{
    const TemporaryFolder folder;
    std::istringstream in("");
    saveStreamToLocalFile(in, folder.getPath("a.bin"));
    EXPECT_THAT(folder.list(), ElementsAre("a.bin"));
    EXPECT_EQ(readFile(folder.getPath("a.bin")), "");
}

TEST(SaveStreamToLocalFile, AStreamThatIsNotGoodMakesNoFile)
{
    const TemporaryFolder folder;
    for (const std::ios::iostate state : {std::ios::eofbit, std::ios::failbit, std::ios::badbit}) {
        std::istringstream in("content");
        in.setstate(state);
        saveStreamToLocalFile(in, folder.getPath("a.bin"));
    }
    std::istringstream read("x");
    read.get();
    read.get();
    saveStreamToLocalFile(read, folder.getPath("a.bin"));
    std::istream withoutBuffer(nullptr);
    saveStreamToLocalFile(withoutBuffer, folder.getPath("a.bin"));
    EXPECT_THAT(folder.list(), IsEmpty());
}

TEST(SaveStreamToLocalFile, TellsNothingOfAFileThatCannotBeMade)
{
    const TemporaryFolder folder;
    std::istringstream in("content");
    EXPECT_NO_THROW(saveStreamToLocalFile(in, folder.getPath("no/such/folder")));
    EXPECT_NO_THROW(saveStreamToLocalFile(in, folder.getPath()));
    EXPECT_NO_THROW(saveStreamToLocalFile(in, "/dev/full"));
    EXPECT_THAT(folder.list(), IsEmpty());
}

// Gives three bytes, then fails.
class DamagedBuffer : public std::streambuf
{
    int_type underflow() override
    {
        if (eback())
            throw std::runtime_error("damaged");
        setg(_bytes, _bytes, _bytes + sizeof(_bytes));
        return traits_type::to_int_type(_bytes[0]);
    }

    char _bytes[3] = {'a', 'b', 'c'};
};

TEST(SaveStreamToLocalFile, PassesWhatTheStreamThrows)
{
    const TemporaryFolder folder;
    DamagedBuffer buffer;
    std::istream in(&buffer);
    EXPECT_THROW(saveStreamToLocalFile(in, folder.getPath("a.bin")), std::runtime_error);
    EXPECT_EQ(readFile(folder.getPath("a.bin")), "abc");
}

} // namespace
} // namespace QV::FilterUtils
