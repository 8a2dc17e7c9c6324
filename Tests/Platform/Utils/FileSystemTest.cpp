#include <Utils/Public/FileSystem.h>

#include <sys/stat.h>

#include <ctime>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <Tests/Support/TemporaryFolder.h>

namespace QV::FileSystem {
namespace {

using boost::filesystem::copy_option;
using boost::filesystem::filesystem_error;
using Tests::readFile;
using Tests::TemporaryFolder;

const std::string NameWithNul("a.txt\0.png", 10);

struct PathRow
{
    const char* name;
    std::string path;
    std::string filename;
    std::string extension;
    std::string folder;
};

void PrintTo(const PathRow& row, std::ostream* out)
{
    *out << testing::PrintToString(row.path);
}

// name, path, filename, extension, what remove_filename leaves
const PathRow PathRows[] = {
    {"NulEndsTheName", NameWithNul,         "a.txt",             ".txt",      ""     },
    {"Plain",          "image1.png",        "image1.png",        ".png",      ""     },
    {"InFolder",       "media/image1.png",  "image1.png",        ".png",      "media"},
    {"Absolute",       "/a/b.c",            "b.c",               ".c",        "/a"   },
    {"InRoot",         "/b",                "b",                 "",          "/"    },
    {"TwoDots",        "a.tar.gz",          "a.tar.gz",          ".gz",       ""     },
    {"NoDot",          "README",            "README",            "",          ""     },
    {"DotInFolder",    "a.b/c",             "c",                 "",          "a.b"  },
    {"LeadingDot",     ".png",              ".png",              ".png",      ""     },
    {"TrailingDot",    "a.",                "a.",                ".",         ""     },
    {"Dot",            ".",                 ".",                 "",          ""     },
    {"DotDot",         "..",                "..",                "",          ""     },
    {"Upwards",        "../x.jpg",          "x.jpg",             ".jpg",      ".."   },
    {"TrailingSlash",  "a/",                ".",                 "",          "a"    },
    {"Empty",          "",                  "",                  "",          ""     },
    {"Backslash",      "a\\b.c\\d",         "a\\b.c\\d",         ".c\\d",     ""     },
    {"Blank",          "my picture.p ng",   "my picture.p ng",   ".p ng",     ""     },
    {"UTF8",           "\xc3\xa4.\xc3\xb6", "\xc3\xa4.\xc3\xb6", ".\xc3\xb6", ""     },
    {"NotUTF8",        "\xff.\xfe",         "\xff.\xfe",         ".\xfe",     ""     },
};

class PathParts : public testing::TestWithParam<PathRow>
{
};

TEST_P(PathParts, KeepsRow)
{
    const PathRow& row = GetParam();
    Path path(row.path);
    EXPECT_EQ(path.string(), row.path);
    EXPECT_EQ(path.string(Path::getCvt()), row.path);
    EXPECT_EQ(path.filename().string(), row.filename);
    EXPECT_EQ(path.extension().string(), row.extension);
    EXPECT_EQ(&path.remove_filename(), &path);
    EXPECT_EQ(path.string(), row.folder);
}

INSTANTIATE_TEST_SUITE_P(Rows, PathParts, testing::ValuesIn(PathRows),
    [](const auto& row) { return std::string(row.param.name); });

struct JoinRow
{
    const char* name;
    const char* folder;
    const char* appended;
    const char* joined;
};

void PrintTo(const JoinRow& row, std::ostream* out)
{
    *out << row.folder << " and " << row.appended;
}

const JoinRow JoinRows[] = {
    {"Plain",           "a",  "b",    "a/b"   },
    {"SlashThere",      "a/", "b",    "a/b"   },
    {"Root",            "/",  "b",    "/b"    },
    {"EmptyFolder",     "",   "b",    "b"     },
    {"NothingAppended", "a",  "",     "a"     },
    {"Absolute",        "a",  "/b",   "a/b"   },
    {"Upwards",         "a",  "../b", "a/../b"},
};

class PathJoin : public testing::TestWithParam<JoinRow>
{
};

TEST_P(PathJoin, KeepsRow)
{
    const JoinRow& row = GetParam();
    Path path(row.folder);
    path /= Path(row.appended);
    EXPECT_EQ(path.string(), row.joined);
    path = row.folder;
    path /= std::string(row.appended);
    EXPECT_EQ(path, Path(row.joined));
    EXPECT_EQ((Path(row.folder) / row.appended).string(), row.joined);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PathJoin, testing::ValuesIn(JoinRows), [](const auto& row) { return std::string(row.param.name); });

TEST(Path, IsMadeOfEachKindOfText)
{
    const std::string text("a/bc");
    EXPECT_EQ(Path("a/bc"), Path(text));
    EXPECT_EQ(Path(boost::string_ref(text).substr(0, 3)), Path("a/b"));
    EXPECT_NE(Path("a/b"), Path("a//b"));
    EXPECT_TRUE(Path().empty());
    EXPECT_FALSE(Path("a").empty());
    EXPECT_EQ(Path(NameWithNul).string(), NameWithNul);
}

TEST(Path, MakesAndEmptiesFiles)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("a.txt", "what was there");
    *Path(path).createOutputFileStream() << "new\r\n";
    EXPECT_EQ(readFile(path), "new\r\n");
    *Path(folder.getPath("b.txt")).createOutputFileStream() << "b";
    EXPECT_EQ(readFile(folder.getPath("b.txt")), "b");
}

TEST(Path, GivesAFailedStreamWhereNoFileCanBeMade)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "x");
    for (const std::string& path : {folder.getPath(), file + "/below", folder.getPath("no/such"),
             std::string(), folder.getPath(NameWithNul)}) {
        const auto stream = Path(path).createOutputFileStream();
        ASSERT_NE(stream, nullptr);
        EXPECT_TRUE(stream->fail()) << path;
    }
    EXPECT_EQ(folder.list().size(), 1U);
}

TEST(CreateDirectories, MakesAllThatAreMissing)
{
    const TemporaryFolder folder;
    FileSystem::create_directories(folder.getPath("a/b/c"));
    EXPECT_TRUE(boost::filesystem::is_directory(folder.getPath("a/b/c")));
    EXPECT_NO_THROW(FileSystem::create_directories(folder.getPath("a/b/c")));
    EXPECT_NO_THROW(FileSystem::create_directories(folder.getPath("a/d/")));
    EXPECT_TRUE(boost::filesystem::is_directory(folder.getPath("a/d")));
}

TEST(CreateDirectories, FailsWhereAFileIsInTheWay)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "x");
    EXPECT_THROW(FileSystem::create_directories(file), filesystem_error);
    EXPECT_THROW(FileSystem::create_directories(file + "/below"), filesystem_error);
    EXPECT_THROW(FileSystem::create_directories(""), filesystem_error);
    EXPECT_THROW(FileSystem::create_directories(folder.getPath(NameWithNul)), filesystem_error);
    EXPECT_EQ(readFile(file), "x");
    EXPECT_EQ(folder.list().size(), 1U);
}

TEST(Exists, KnowsFilesAndFolders)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("a.txt", "");
    EXPECT_TRUE(FileSystem::exists(file));
    EXPECT_TRUE(FileSystem::exists(folder.getPath()));
    EXPECT_FALSE(FileSystem::exists(folder.getPath("b.txt")));
    EXPECT_FALSE(FileSystem::exists(file + "/below"));
    EXPECT_FALSE(FileSystem::exists(""));
    EXPECT_FALSE(FileSystem::exists(folder.getPath(NameWithNul)));
}

TEST(Exists, LongNamesNameNothing)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(FileSystem::exists(folder.getPath(std::string(255, 'x'))));
    EXPECT_FALSE(FileSystem::exists(folder.getPath(std::string(256, 'x'))));
    EXPECT_FALSE(FileSystem::exists(std::string(100000, 'x')));
}

TEST(Exists, FailsWhereTheSystemCannotTell)
{
    const TemporaryFolder folder;
    boost::filesystem::create_symlink(folder.getPath("loop"), folder.getPath("loop"));
    EXPECT_THROW(FileSystem::exists(folder.getPath("loop")), filesystem_error);
}

TEST(Touch, MakesAnEmptyFile)
{
    const TemporaryFolder folder;
    touch(folder.getPath("a.txt"));
    EXPECT_TRUE(FileSystem::exists(folder.getPath("a.txt")));
    EXPECT_EQ(readFile(folder.getPath("a.txt")), "");
}

TEST(Touch, SetsTheTimeAndKeepsTheContent)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("a.txt", "kept");
    boost::filesystem::last_write_time(file, 1000);
    const std::time_t before = std::time(nullptr);
    touch(file);
    EXPECT_GE(boost::filesystem::last_write_time(file), before - 1);
    EXPECT_EQ(readFile(file), "kept");
}

TEST(Touch, FailsWhereNoFileCanBeMade)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "x");
    ASSERT_EQ(mkfifo(folder.getPath("pipe").c_str(), 0600), 0);
    EXPECT_THROW(touch(folder.getPath()), filesystem_error);
    EXPECT_THROW(touch(folder.getPath("no/such")), filesystem_error);
    EXPECT_THROW(touch(file + "/below"), filesystem_error);
    EXPECT_THROW(touch(""), filesystem_error);
    EXPECT_THROW(touch(folder.getPath("pipe")), filesystem_error); // rather than wait for a reader
    EXPECT_THROW(touch(folder.getPath(NameWithNul)), filesystem_error);
    EXPECT_EQ(folder.list().size(), 2U);
}

TEST(CopyFile, CopiesTheContent)
{
    const TemporaryFolder folder;
    const std::string content(100000, 'c');
    const std::string from = folder.write("from", content);
    FileSystem::copy_file(from, folder.getPath("to"), copy_option::fail_if_exists);
    EXPECT_EQ(readFile(folder.getPath("to")), content);
    EXPECT_EQ(readFile(from), content);
}

TEST(CopyFile, OverwritesOnlyWhereTold)
{
    const TemporaryFolder folder;
    const std::string from = folder.write("from", "new");
    const std::string to = folder.write("to", "older and longer");
    EXPECT_THROW(FileSystem::copy_file(from, to, copy_option::fail_if_exists), filesystem_error);
    EXPECT_EQ(readFile(to), "older and longer");
    FileSystem::copy_file(from, to, copy_option::overwrite_if_exists);
    EXPECT_EQ(readFile(to), "new");
}

TEST(CopyFile, KeepsAFileThatIsCopiedOntoItself)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "kept");
    boost::filesystem::create_symlink(file, folder.getPath("link"));
    EXPECT_THROW(FileSystem::copy_file(file, file, copy_option::overwrite_if_exists), filesystem_error);
    EXPECT_THROW(FileSystem::copy_file(folder.getPath("link"), file, copy_option::overwrite_if_exists),
        filesystem_error);
    EXPECT_EQ(readFile(file), "kept");
}

TEST(CopyFile, TakesRegularFilesAlone)
{
    const TemporaryFolder folder;
    const std::string to = folder.getPath("to");
    const std::string file = folder.write("a.txt", "x");
    ASSERT_EQ(mkfifo(folder.getPath("pipe").c_str(), 0600), 0);
    EXPECT_THROW(FileSystem::copy_file(folder.getPath("missing"), to, copy_option::overwrite_if_exists),
        filesystem_error);
    EXPECT_THROW(
        FileSystem::copy_file(folder.getPath(), to, copy_option::overwrite_if_exists), filesystem_error);
    EXPECT_THROW(FileSystem::copy_file(folder.getPath("pipe"), to, copy_option::overwrite_if_exists),
        filesystem_error);
    EXPECT_THROW(FileSystem::copy_file(folder.getPath(NameWithNul), to, copy_option::overwrite_if_exists),
        filesystem_error);
    EXPECT_FALSE(FileSystem::exists(to));
    EXPECT_THROW(FileSystem::copy_file(file, folder.getPath(NameWithNul), copy_option::overwrite_if_exists),
        filesystem_error);
    EXPECT_THROW(
        FileSystem::copy_file(file, folder.getPath(), copy_option::overwrite_if_exists), filesystem_error);
    EXPECT_EQ(readFile(file), "x");
}

} // namespace
} // namespace QV::FileSystem
