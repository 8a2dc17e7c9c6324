// What the stream parser does with markup that Xerces does not get to see.

#include <FilterUtils/FU_XMLStreamParser.h>

#include <cstddef>

namespace QV::FilterUtils {

std::size_t XMLStreamParser::feed(std::istream& stream, char* buffer, std::size_t size)
{
    try {
        return _plainReader.read(stream, buffer, size);
    } catch (Breach& breach) {
        _plainReader.setPlace(breach.result);
        throw;
    }
}

// False where the tag is better left to Xerces.
bool XMLStreamParser::resolvePlainTag(const XMLPlainTag& tag)
{
    _plainAttributes.clear();
    for (const XMLPlainTag::Attribute& attribute : tag.attributes) {
        const XMLName* const name = _plainNames.find(XMLNameKind::Attribute, attribute.name);
        if (!name)
            return false;
        for (const XMLName* const other : _plainAttributes)
            if (other == name || (other->id == name->id && name->id != XMLVocabulary::Unknown))
                return false;
        _plainAttributes.push_back(name);
    }
    return true;
}

XMLTaking XMLStreamParser::takeStart(const XMLPlainTag& tag, std::size_t size)
{
    XMLName* const name = _plainNames.find(XMLNameKind::Element, tag.name);
    if (!name || !resolvePlainTag(tag))
        return XMLTaking::Refused;
    enterElement();
    if (_skipDepth == 0) {
        spendPlainName(*name);
        _plainTag = &tag;
        const XMLStep step = offerElement(*name, tag.attributes.size());
        _plainTag = nullptr;
        if (step == XMLStep::Tree) {
            _isTreeAnnounced = true;
            return XMLTaking::Tree;
        }
    }
    countBytes(size);
    return XMLTaking::Taken;
}

void XMLStreamParser::takeEnd(std::size_t size)
{
    countBytes(size);
    endUnbuilt();
}

void XMLStreamParser::takeText(const std::u16string& text, std::size_t size)
{
    countBytes(size);
    docCharacters(text.data(), text.size(), false);
}

void XMLStreamParser::docComment(const XMLCh* text)
{
    if (_treeDepth != 0)
        XMLHardenedParser::docComment(text);
    else
        noteProgress();
}

void XMLStreamParser::docPI(const XMLCh* target, const XMLCh* data)
{
    if (_treeDepth != 0)
        XMLHardenedParser::docPI(target, data);
    else
        noteProgress();
}

} // namespace QV::FilterUtils
