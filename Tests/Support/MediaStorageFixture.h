#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <boost/filesystem/operations.hpp>
#include <gtest/gtest.h>

#include <Utils/Public/InputStream.h>

#include <FilterUtils/FU_LocalFSMediaStorage.h>

#include <Tests/Support/TemporaryFolder.h>

namespace QV::Tests {

/// Makes "id1", "id2" and so on.
class CountingGenerator final : public FilterUtils::IDGenerator
{
public:
    std::string generateId() override { return _ids.generateId(); }

private:
    FilterUtils::StringIdGenerator _ids{"id"};
};

/// Makes the same text over and over.
class ConstantGenerator final : public FilterUtils::IDGenerator
{
public:
    explicit ConstantGenerator(std::string id)
        : _id(std::move(id))
    {
    }
    std::string generateId() override { return _id; }

private:
    std::string _id;
};

class FailingGenerator final : public FilterUtils::IDGenerator
{
public:
    explicit FailingGenerator(std::function<void()> fail)
        : _fail(std::move(fail))
    {
    }
    std::string generateId() override
    {
        _fail();
        return "unreached";
    }

private:
    std::function<void()> _fail;
};

/// Gives a text and remembers how it was asked for it.
class TextStream : public InputStream
{
public:
    explicit TextStream(std::string text)
        : _text(std::move(text))
    {
    }
    std::size_t read(char* buffer, std::size_t count, int flags) override
    {
        _counts.push_back(count);
        _flags.push_back(flags);
        const std::size_t size = _text.copy(buffer, std::min(count, mostAtOnce), _position);
        _position += size;
        if (size == 0 && failAtEnd)
            failAtEnd();
        return size;
    }

    const std::vector<std::size_t>& getCounts() const { return _counts; }
    const std::vector<int>& getFlags() const { return _flags; }

    std::size_t mostAtOnce = static_cast<std::size_t>(-1);
    std::function<void()> failAtEnd;

private:
    std::string _text;
    std::size_t _position = 0;
    std::vector<std::size_t> _counts;
    std::vector<int> _flags;
};

inline std::shared_ptr<TextStream> makeStream(std::string text)
{
    return std::make_shared<TextStream>(std::move(text));
}

constexpr const char* UUIDPattern = "[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}";

/// A temporary folder with two storages on its sub-folder "media", which is not there yet.
class LocalFSMediaStorageFixture : public testing::Test
{
protected:
    std::string getMediaPath(const std::string& name) const { return folder.getPath("media/" + name); }
    std::set<std::string> listMedia() const { return folder.list("media"); }

    // Leaves a file in the media folder as an earlier run would.
    void leave(const std::string& name, const std::string& content) const
    {
        boost::filesystem::create_directories(folder.getPath("media"));
        folder.write("media/" + name, content);
    }

    TemporaryFolder folder;
    FilterUtils::LocalFSMediaStorage storage{folder.getPath("media"), std::make_unique<CountingGenerator>()};
    FilterUtils::LocalFSMediaStorage reusing{folder.getPath("media"), std::make_unique<CountingGenerator>(),
        FilterUtils::MediaStorageMode::ReuseExisting};
};

} // namespace QV::Tests
