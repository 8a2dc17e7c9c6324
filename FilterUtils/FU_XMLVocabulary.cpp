#include <FilterUtils/FU_XMLVocabulary.h>

#include <algorithm>

#include <FilterUtils/FU_XMLText.h>
#include <Utils/Public/Assertions.h>

namespace QV::FilterUtils {
namespace {

constexpr int IdsEnd = 10'000;

} // namespace

XMLVocabulary::XMLVocabulary(const std::vector<Namespace>& namespaces, const std::vector<Word>& words)
{
    for (const Word& word : words)
        addWord(word, namespaces);
}

void XMLVocabulary::addWord(const Word& word, const std::vector<Namespace>& namespaces)
{
    const bool isInRange = word.id >= 0 && word.id < IdsEnd;
    QV_ASSERT(isInRange);
    if (!isInRange)
        return;
    const auto colon = word.name.rfind(':');
    if (colon == std::string::npos) {
        addSpelling(word.id, std::string(), word.name);
        return;
    }
    const std::string before = word.name.substr(0, colon);
    const std::string localName = word.name.substr(colon + 1);
    const auto found = std::find_if(namespaces.begin(), namespaces.end(),
        [&before](const Namespace& candidate) { return candidate.alias == before; });
    if (found == namespaces.end()) {
        addSpelling(word.id, before, localName);
        return;
    }
    for (const std::string& uri : found->uris)
        addSpelling(word.id, uri, localName);
}

void XMLVocabulary::addSpelling(int id, const std::string& uri, const std::string& localName)
{
    const auto wideUri = convertUtf8ToUtf16(uri);
    const auto wideLocalName = convertUtf8ToUtf16(localName);
    const bool isUtf8 = wideUri && wideLocalName;
    QV_ASSERT(isUtf8);
    if (!isUtf8)
        return;
    const auto [place, isNew] = _ids.emplace(std::make_pair(*wideUri, *wideLocalName), id);
    const bool hasOneId = place->second == id;
    QV_ASSERT(hasOneId);
    if (!isNew)
        return;
    const auto index = static_cast<std::size_t>(id);
    if (_spellings.size() <= index)
        _spellings.resize(index + 1);
    _spellings[index].push_back({*wideUri, *wideLocalName});
}

int XMLVocabulary::findId(std::u16string_view uri, std::u16string_view localName) const
{
    const auto found = _ids.find(std::make_pair(std::u16string(uri), std::u16string(localName)));
    return found == _ids.end() ? Unknown : found->second;
}

} // namespace QV::FilterUtils
