#include <FilterUtils/FU_XMLPlainNames.h>

#include <cstring>

namespace QV::FilterUtils {
namespace {

// Documents of the suite's formats have some hundreds; a stranger's may have as many as it is long.
constexpr std::size_t MaximumNames = 4096;
constexpr std::size_t MaximumLength = 256; // of a name, and of a namespace

std::size_t getSlotIndex(std::string_view name, std::size_t slotCount)
{
    const auto byteAt = [name](std::size_t index) {
        return static_cast<std::size_t>(static_cast<unsigned char>(name[index]));
    };
    return (name.size() * 37 + byteAt(0) + byteAt(name.size() - 1) * 5 + byteAt(name.size() / 2) * 11) %
           slotCount;
}

std::u16string widen(std::string_view ascii)
{
    return std::u16string(ascii.begin(), ascii.end());
}

} // namespace

XMLPlainNames::XMLPlainNames(const XMLVocabulary& vocabulary, FindNamespace findNamespace)
    : _vocabulary(vocabulary)
    , _findNamespace(std::move(findNamespace))
{
}

XMLName* XMLPlainNames::find(XMLNameKind kind, std::string_view qualifiedName)
{
    Slot& slot = _slots[static_cast<std::size_t>(kind)][getSlotIndex(qualifiedName, SlotCount)];
    if (slot.length == qualifiedName.size() &&
        std::memcmp(slot.text.data(), qualifiedName.data(), qualifiedName.size()) == 0)
        return slot.name;
    XMLName* const name = resolve(kind, qualifiedName);
    if (name && qualifiedName.size() <= slot.text.size()) {
        qualifiedName.copy(slot.text.data(), slot.text.size());
        slot.length = static_cast<unsigned char>(qualifiedName.size());
        slot.name = name;
    }
    return name;
}

void XMLPlainNames::forgetNamespaces()
{
    for (auto& slots : _slots)
        for (Slot& slot : slots)
            slot.length = 0;
}

XMLName* XMLPlainNames::resolve(XMLNameKind kind, std::string_view qualifiedName)
{
    if (qualifiedName.size() > MaximumLength)
        return nullptr;
    const std::size_t colon = qualifiedName.find(':');
    const bool hasPrefix = colon != std::string_view::npos;
    const std::u16string prefix = widen(hasPrefix ? qualifiedName.substr(0, colon) : std::string_view());
    if (prefix == u"xmlns" || (prefix == u"xml" && kind == XMLNameKind::Element))
        return nullptr;

    std::u16string uri;
    if (hasPrefix || kind == XMLNameKind::Element) {
        const auto found = _findNamespace(prefix);
        if ((hasPrefix && !found) || (found && found->size() > MaximumLength))
            return nullptr;
        uri = found ? std::u16string(*found) : std::u16string();
    }
    std::pair<std::u16string, std::u16string> key(
        std::move(uri), widen(hasPrefix ? qualifiedName.substr(colon + 1) : qualifiedName));
    const auto known = _names.find(key);
    if (known != _names.end())
        return &known->second;
    if (_names.size() == MaximumNames)
        return nullptr;
    const int id = _vocabulary.findId(key.first, key.second);
    XMLName name{id, key.first, key.second, false};
    return &_names.emplace(std::move(key), std::move(name)).first->second;
}

} // namespace QV::FilterUtils
