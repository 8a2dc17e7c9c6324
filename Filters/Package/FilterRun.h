#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include <DOM/Public/Document.h>
#include <FilterUtils/FU_MediaStorage.h>
#include <Filters/Package/Export.h>
#include <Utils/Public/OperationReport.h>

namespace QV::FilterUtils {
class IDGenerator;
}

namespace QV::Filters {

/// How one document is read. The defaults read a document whose pictures are looked at, but kept nowhere.
struct ImportOptions
{
    std::string mediaFolder;       ///< where pictures are kept; empty: in memory, or nowhere
    std::string documentFolder;    ///< where the document lies; empty where it has no place (standard input)
    bool areIdsSequential = false; ///< generated ids are id1, id2, ... instead of UUIDs
    bool followsLinks = false;     ///< linked pictures beside the document are read
    std::size_t mediaMemory = 0;   ///< bytes of pictures to keep where there is no folder
};

/// One picture or other file that a document brought along.
struct MediaItem
{
    std::string id;
    std::string mimeType; ///< empty where it is not known
    std::size_t bytes;
};

/// Everything that one import owns: the report, the media, and the document that comes to be.
/// One thread at a time; separate runs share nothing.
class FILTERS_API FilterRun
{
public:
    /// The text of the messages that leaveOut adds.
    static constexpr const char* LeftOutMessage = "Left out: {}";

    explicit FilterRun(ImportOptions options = {});
    ~FilterRun();

    FilterRun(const FilterRun&) = delete;
    FilterRun& operator=(const FilterRun&) = delete;

    const ImportOptions& getOptions() const { return _options; }

    OperationReport& getReport() { return _report; }
    const OperationReport& getReport() const { return _report; }
    DOM::Document& getDocument() { return _document; }
    const DOM::Document& getDocument() const { return _document; }
    FilterUtils::MediaStorage& getMediaStorage();

    /// What the media storage took, in order; failed saves are not among them.
    const std::vector<MediaItem>& getMedia() const;

    /// Notes a kind of content that this version does not read, and reports it with LeftOutMessage; each kind
    /// is kept once, in the order of the first.
    void leaveOut(const std::string& what);
    const std::vector<std::string>& getLeftOut() const { return _leftOut; }

    /// Notes a document that this one refers to, as the file names it; each is kept once, in the order of the
    /// first.
    void addLink(const std::string& target);
    const std::vector<std::string>& getLinks() const { return _links; }

    /// A fresh id for an object of the model, of the kind that the options ask for.
    std::string generateId();

private:
    class RecordingMediaStorage;

    ImportOptions _options;
    OperationReport _report;
    DOM::Document _document;
    std::shared_ptr<FilterUtils::IDGenerator> _ids;
    std::unique_ptr<RecordingMediaStorage> _mediaStorage;
    std::vector<std::string> _leftOut;
    std::vector<std::string> _links;
    std::unordered_set<std::string> _knownLinks; // the same
};

} // namespace QV::Filters
