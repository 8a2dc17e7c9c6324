#include <Filters/ModelJson/SectionsJson.h>

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/PageProps.h>
#include <DOM/Public/Section.h>
#include <Filters/ModelJson/BlocksJson.h>
#include <Filters/ModelJson/JsonWriter.h>
#include <Filters/ModelJson/TextJsonState.h>

namespace QV::Filters {
namespace {

constexpr std::size_t RepeatedSizeMax = std::size_t(16) << 20U;

class SectionsWriter
{
public:
    explicit SectionsWriter(TextJsonState& state)
        : _state(state)
        , _json(state.getJson())
    {
    }

    void writeSection(const DOM::Section& section);

private:
    using GetMarginal = const DOM::SharedCellText& (DOM::HeaderFooterPair::*)() const;

    /// Headers or footers that were written before.
    struct Written
    {
        unsigned long section; // the first one
        std::size_t size;      // in bytes
    };

    void writePages(const DOM::PageProps& props);
    void writeMarginals(const char* key, const DOM::Section& section, GetMarginal get);
    bool writeMarginal(const char* key, const DOM::CellText& text);

    TextJsonState& _state;
    JsonWriter& _json;
    std::unordered_map<const DOM::CellText*, Written> _written;
    std::size_t _repeatedSize = 0;
    unsigned long _section = 0; // the number of the one that is being written
};

void SectionsWriter::writeSection(const DOM::Section& section)
{
    _json.beginObject();
    _json.writeMember("firstBlock", static_cast<unsigned long>(section.getFirstBlock().get()));
    if (section.getPageProps())
        writePages(*section.getPageProps());
    writeMarginals("headers", section, &DOM::HeaderFooterPair::getHeader);
    writeMarginals("footers", section, &DOM::HeaderFooterPair::getFooter);
    if (section.getPageProps()) {
        writeLengthMember("headerDistance", section.getPageProps()->getHeaderDistance(), _json);
        writeLengthMember("footerDistance", section.getPageProps()->getFooterDistance(), _json);
    }
    _json.endObject();
    ++_section;
}

void SectionsWriter::writePages(const DOM::PageProps& props)
{
    writeLengthMember("width", props.getWidth(), _json);
    writeLengthMember("height", props.getHeight(), _json);
    if (!props.getMargins())
        return;
    _json.writeKey("margins");
    _json.beginObject();
    writeLengthMember("left", props.getMargins()->getLeft(), _json);
    writeLengthMember("top", props.getMargins()->getTop(), _json);
    writeLengthMember("right", props.getMargins()->getRight(), _json);
    writeLengthMember("bottom", props.getMargins()->getBottom(), _json);
    _json.endObject();
}

void SectionsWriter::writeMarginals(const char* key, const DOM::Section& section, GetMarginal get)
{
    const std::pair<const char*, const DOM::HeaderFooterPair*> pairs[] = {
        {"default", section.getDefaultPair().get()},
        {"first",   section.getFirstPair().get()  },
        {"even",    section.getEvenPair().get()   }
    };
    std::vector<std::pair<const char*, unsigned long>> same;
    _json.writeKey(key);
    _json.beginObject();
    for (const auto& pair : pairs) {
        const DOM::CellText* const text = pair.second ? (pair.second->*get)().get() : nullptr;
        if (text && !writeMarginal(pair.first, *text))
            same.emplace_back(pair.first, _written.at(text).section);
    }
    if (!same.empty()) {
        _json.writeKey("sameAs");
        _json.beginObject();
        for (const auto& pair : same)
            _json.writeMember(pair.first, pair.second);
        _json.endObject();
    }
    _json.endObject();
}

/// False, where the blocks were written before, and there is no room to repeat them.
bool SectionsWriter::writeMarginal(const char* key, const DOM::CellText& text)
{
    const auto known = _written.find(&text);
    if (known != _written.end()) {
        if (known->second.size > RepeatedSizeMax - _repeatedSize)
            return false;
        _repeatedSize += known->second.size;
    }
    const std::size_t begin = _json.getWrittenSize();
    _json.writeKey(key);
    writeStoryJson(text.getBlocks(), _state);
    _written.emplace(&text, Written{_section, _json.getWrittenSize() - begin});
    return true;
}

} // namespace

void writeSectionsJson(TextJsonState& state)
{
    SectionsWriter writer(state);
    state.getJson().beginArray();
    for (const DOM::Section& section : state.getDocument().getSections())
        writer.writeSection(section);
    state.getJson().endArray();
}

} // namespace QV::Filters
