#include <Filters/Package/FilterRun.h>

#include <algorithm>
#include <map>
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

class TextInputStream final : public InputStream
{
public:
    explicit TextInputStream(const std::string& text)
        : _text(text)
    {
    }

    std::size_t read(char* buffer, std::size_t count, int) override
    {
        const std::size_t size = _text.copy(buffer, count, _position);
        _position += size;
        return size;
    }

private:
    const std::string _text;
    std::size_t _position = 0;
};

/// Keeps account of what a storage takes. Without a folder there is no storage: names are drawn just the
/// same, so that a model does not depend on where its pictures went, and the bytes stay in memory while there
/// is room for them.
class FilterRun::RecordingMediaStorage final : public FilterUtils::MediaStorage
{
public:
    RecordingMediaStorage(const ImportOptions& options, std::shared_ptr<IDGenerator> ids)
        : _ids(ids)
        , _memory(options.mediaMemory)
    {
        if (!options.mediaFolder.empty())
            _storage = std::make_unique<FilterUtils::LocalFSMediaStorage>(
                options.mediaFolder, std::make_unique<BorrowedIds>(std::move(ids)));
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
        if (_storage)
            return _storage->openMediaForReading(id);
        const auto kept = _kept.find(id);
        return kept != _kept.end() ? std::make_shared<TextInputStream>(kept->second) : nullptr;
    }

    std::string saveMediaFromStream(std::shared_ptr<InputStream> stream, const std::string& mimeType) override
    {
        const auto counting = std::make_shared<CountingInputStream>(std::move(stream));
        const std::string id =
            _storage ? _storage->saveMediaFromStream(counting, mimeType) : keep(*counting, mimeType);
        if (!id.empty())
            _items.push_back({id, mimeType, counting->getBytes()});
        return id;
    }

    const std::vector<MediaItem>& getItems() const { return _items; }

private:
    std::string keep(InputStream& stream, const std::string& mimeType)
    {
        _ids->generateId(); // a storage draws two ids for each stream
        std::string name = _ids->generateId();
        if (const auto extension = getFileExtensionByMIMEType(mimeType))
            name += "." + *extension;
        std::string bytes;
        bool hasRoom = true;
        try {
            char buffer[4096];
            while (const std::size_t size = stream.read(buffer, sizeof(buffer), 0)) {
                hasRoom = hasRoom && size <= _memory - bytes.size();
                if (hasRoom)
                    bytes.append(buffer, size);
            }
        } catch (const BaseRuntimeError&) { // a storage could not keep it either
            return {};
        }
        if (hasRoom) {
            _memory -= bytes.size();
            _kept.emplace(name, std::move(bytes));
        }
        return name;
    }

    std::shared_ptr<IDGenerator> _ids;
    std::unique_ptr<FilterUtils::LocalFSMediaStorage> _storage;
    std::size_t _memory; // that is left
    std::map<std::string, std::string> _kept;
    std::vector<MediaItem> _items;
};

FilterRun::FilterRun(ImportOptions options)
    : _options(std::move(options))
{
    if (_options.areIdsSequential)
        _ids = std::make_shared<SequentialIds>();
    else
        _ids = std::make_shared<RandomIds>();
    _mediaStorage = std::make_unique<RecordingMediaStorage>(_options, _ids);
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
    if (_knownLinks.insert(target).second)
        _links.push_back(target);
}

std::string FilterRun::generateId()
{
    return _ids->generateId();
}

} // namespace QV::Filters
