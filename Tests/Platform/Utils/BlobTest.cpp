#include <Utils/Public/Blob.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <Utils/Public/StreamAdapterFactory.h>

#include <Tests/Support/TemporaryFolder.h>

namespace QV {
namespace {

using Tests::readFile;
using Tests::TemporaryFolder;

std::string readAll(InputStream& stream, std::size_t step)
{
    std::string all;
    std::string buffer(step, '\0');
    while (const std::size_t size = stream.read(&buffer[0], step, 0))
        all.append(buffer, 0, size);
    return all;
}

TEST(StreamAdapterFactory, ReadsFromThePositionToTheEnd)
{
    for (const std::size_t step : {1U, 2U, 3U, 7U, 8U, 100U}) {
        std::istringstream source(std::string("skip\0me\xff", 8));
        source.seekg(4);
        const auto stream = StreamAdapterFactory::convertToInputStream(source);
        EXPECT_EQ(readAll(*stream, step), std::string("\0me\xff", 4)) << step;
        char byte = 'x';
        EXPECT_EQ(stream->read(&byte, 1, 0), 0U);
        EXPECT_EQ(byte, 'x');
    }
}

TEST(StreamAdapterFactory, TakesNoMoreThanItGives)
{
    std::istringstream source("abcdef");
    const auto stream = StreamAdapterFactory::convertToInputStream(source);
    char bytes[2];
    EXPECT_EQ(stream->read(bytes, 2, 0), 2U);
    EXPECT_EQ(stream->read(bytes, 0, 0), 0U);
    EXPECT_EQ(source.tellg(), std::streampos(2));
    EXPECT_EQ(source.get(), 'c');
}

TEST(StreamAdapterFactory, GivesNothingOfAFailedStream)
{
    std::istringstream source("abc");
    source.setstate(std::ios::failbit);
    char byte = 0;
    EXPECT_EQ(StreamAdapterFactory::convertToInputStream(source)->read(&byte, 1, 0), 0U);
}

TEST(StreamAdapterFactory, KeepsAStreamThatItIsGiven)
{
    auto source = std::make_shared<std::istringstream>("abc");
    const std::weak_ptr<std::istream> watch = source;
    auto stream =
        StreamAdapterFactory::convertToInputStream(std::shared_ptr<std::istream>(std::move(source)));
    EXPECT_EQ(readAll(*stream, 2), "abc");
    EXPECT_FALSE(watch.expired());
    stream.reset();
    EXPECT_TRUE(watch.expired());
    EXPECT_EQ(StreamAdapterFactory::convertToInputStream(std::shared_ptr<std::istream>()), nullptr);
}

// Gives two bytes, then fails.
class BrokenBuffer : public std::streambuf
{
    int_type underflow() override
    {
        if (eback())
            throw std::runtime_error("damaged");
        setg(_bytes, _bytes, _bytes + 2);
        return traits_type::to_int_type(_bytes[0]);
    }

    char _bytes[2] = {'a', 'b'};
};

TEST(StreamAdapterFactory, PassesWhatTheStreamThrows)
{
    BrokenBuffer buffer;
    std::istream source(&buffer);
    source.exceptions(std::ios::badbit);
    const auto stream = StreamAdapterFactory::convertToInputStream(source);
    char bytes[2];
    EXPECT_EQ(stream->read(bytes, 2, 0), 2U);
    EXPECT_THROW(stream->read(bytes, 2, 0), std::runtime_error);
}

TEST(FileSystemBlob, TouchesNoFileWhenMade)
{
    const TemporaryFolder folder;
    const FileSystemBlob blob(folder.getPath("a"));
    EXPECT_EQ(blob.getPath().string(), folder.getPath("a"));
    EXPECT_TRUE(folder.list().empty());
}

TEST(FileSystemBlob, ReadsTheFileAsOftenAsAsked)
{
    const TemporaryFolder folder;
    const FileSystemBlob blob(folder.write("a", std::string("x\r\n\0y", 5)));
    const auto first = blob.openInputStream();
    const auto second = blob.openInputStream();
    ASSERT_TRUE(first && second);
    EXPECT_EQ(readAll(*first, 2), std::string("x\r\n\0y", 5));
    EXPECT_EQ(readAll(*second, 100), std::string("x\r\n\0y", 5));
}

TEST(FileSystemBlob, ReplacesTheFile)
{
    const TemporaryFolder folder;
    FileSystemBlob blob(folder.write("a", "what was there"));
    auto stream = blob.openStdOutputStream();
    ASSERT_NE(stream, nullptr);
    *stream << "new\n";
    stream.reset();
    EXPECT_EQ(readFile(folder.getPath("a")), "new\n");
}

TEST(FileSystemBlob, IsNullWhereNothingCanBeOpened)
{
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "x");
    for (const std::string& path :
        {folder.getPath(), file + "/below", std::string(), std::string(file + std::string("\0", 1))}) {
        FileSystemBlob blob(path);
        EXPECT_EQ(blob.openInputStream(), nullptr) << path;
        EXPECT_EQ(blob.openStdOutputStream(), nullptr) << path;
    }
    EXPECT_EQ(FileSystemBlob(folder.getPath("missing")).openInputStream(), nullptr);
    EXPECT_EQ(readFile(file), "x");
}

} // namespace
} // namespace QV
