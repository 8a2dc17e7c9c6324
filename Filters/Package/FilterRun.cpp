#include <Filters/Package/FilterRun.h>

#include <algorithm>
#include <utility>

#include <FilterUtils/FU_Errors.h>
#include <FilterUtils/FU_IDGenerators.h>
#include <FilterUtils/FU_LocalFSMediaStorage.h>
#include <Utils/Public/InputStream.h>
#include <Utils/Public/MIME.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

using FilterUtils::IDGenerator;

class SequentialIds final : public IDGenerator
{
public:
    std::string generateId() override { return _ids.generateId(); }

private:
    FilterUtils::StringIdGenerator _ids{"id"};
};

class RandomIds final : public IDGenerator
{
public:
    std::string generateId() override { return UUID::generate().toString(); }
};

/// Hands on the ids of a generator that others use too.
class BorrowedIds final : public IDGenerator
{
public:
    explicit BorrowedIds(std::shared_ptr<IDGenerator> ids)
        : _ids(std::move(ids))
    {
    }

    std::string generateId() override { return _ids->generateId(); }

private:
    std::shared_ptr<IDGenerator> _ids;
};

class CountingInputStream final : public InputStream
{
public:
    explicit CountingInputStream(std::shared_ptr<InputStream> stream)
        : _stream(std::move(stream))
    {
    }

    std::size_t read(char* buffer, std::size_t count, int flags) override
    {
        const std::size_t size = _stream->read(buffer, count, flags);
        _bytes += size;
        return size;
    }

    std::size_t getBytes() const { return _bytes; }

private:
    std::shared_ptr<InputStream> _stream;
    std::size_t _bytes = 0;
};

void appendOnce(std::vector<std::string>& texts, const std::string& text)
{
    if (std::find(texts.begin(), texts.end(), text) == texts.end())
        texts.push_back(text);
}

} // namespace

/// Keeps account of what a storage takes. Without a folder there is no storage: names are drawn just the
/// same, so that a model does not depend on where its pictures went, and the bytes are only counted.
class FilterRun::RecordingMediaStorage final : public FilterUtils::MediaStorage
{
public:
    RecordingMediaStorage(const std::string& folder, std::shared_ptr<IDGenerator> ids)
        : _ids(ids)
    {
        if (!folder.empty())
            _storage = std::make_unique<FilterUtils::LocalFSMediaStorage>(
                folder, std::make_unique<BorrowedIds>(std::move(ids)));
    }

    std::string saveExternalURL(const std::string& url) override
    {
        return _storage ? _storage->saveExternalURL(url) : std::string();
    }

    std::string getFullPathToID(const std::string& id) override
    {
        return _storage ? _storage->getFullPathToID(id) : std::string();
    }

    std::shared_ptr<InputStream> openMediaForReading(const std::string& id) override
    {
        return _storage ? _storage->openMediaForReading(id) : nullptr;
    }

    std::string saveMediaFromStream(std::shared_ptr<InputStream> stream, const std::string& mimeType) override
    {
        const auto counting = std::make_shared<CountingInputStream>(std::move(stream));
        const std::string id =
            _storage ? _storage->saveMediaFromStream(counting, mimeType) : drop(*counting, mimeType);
        if (!id.empty())
            _items.push_back({id, mimeType, counting->getBytes()});
        return id;
    }

    const std::vector<MediaItem>& getItems() const { return _items; }

private:
    std::string drop(InputStream& stream, const std::string& mimeType)
    {
        _ids->generateId(); // a storage draws two ids for each stream
        std::string name = _ids->generateId();
        if (const auto extension = getFileExtensionByMIMEType(mimeType))
            name += "." + *extension;
        try {
            char buffer[4096];
            while (stream.read(buffer, sizeof(buffer), 0) > 0) {
            }
        } catch (const BaseRuntimeError&) { // a storage could not keep it either
            return {};
        }
        return name;
    }

    std::shared_ptr<IDGenerator> _ids;
    std::unique_ptr<FilterUtils::LocalFSMediaStorage> _storage;
    std::vector<MediaItem> _items;
};

FilterRun::FilterRun(ImportOptions options)
    : _options(std::move(options))
{
    if (_options.areIdsSequential)
        _ids = std::make_shared<SequentialIds>();
    else
        _ids = std::make_shared<RandomIds>();
    _mediaStorage = std::make_unique<RecordingMediaStorage>(_options.mediaFolder, _ids);
}

FilterRun::~FilterRun() = default;

FilterUtils::MediaStorage& FilterRun::getMediaStorage()
{
    return *_mediaStorage;
}

const std::vector<MediaItem>& FilterRun::getMedia() const
{
    return _mediaStorage->getItems();
}

void FilterRun::leaveOut(const std::string& what)
{
    const std::size_t count = _leftOut.size();
    appendOnce(_leftOut, what);
    if (_leftOut.size() > count)
        _report.emplace_back(LeftOutMessage, what);
}

void FilterRun::addLink(const std::string& target)
{
    appendOnce(_links, target);
}

std::string FilterRun::generateId()
{
    return _ids->generateId();
}

} // namespace QV::Filters
