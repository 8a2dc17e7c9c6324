// XMLStreamReader: any bytes are read or refused, never an exception; every element that is entered ends; and
// whatever is well-formed for the stream is so for the tree, with the same text; and a document gives the
// same events, places and messages in UTF-8 and in UTF-16.

#include <FilterUtils/FU_XMLStreamReader.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include <xercesc/util/PlatformUtils.hpp>

#include <FilterUtils/FU_XMLElement.h>
#include <Tests/Support/XMLEventLog.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using namespace QV::FilterUtils;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

const XMLVocabulary& getWords()
{
    static const XMLVocabulary words(
        {
            {"x", {"urn:x"}}
    },
        {{0, "a"}, {1, "x:a"}, {2, "k"}, {3, "x:k"}});
    return words;
}

// Enters all, and keeps the text of the root.
struct EnteringHandler : XMLStreamHandler
{
    XMLStep onStart(const XMLStreamStart& element) override
    {
        require(element.getDepth() == ++depth);
        for (std::size_t i = 0; i < element.getAttributeCount(); ++i)
            require(!element.getAttribute(i).localName.empty());
        require(element.findAttribute(2).has_value() == element.findAttributeText(2).has_value());
        element.findNamespace(u"x");
        return XMLStep::EnterText;
    }
    XMLFlow onEnd(const XMLStreamEnd& element) override
    {
        require(element.getDepth() == depth--);
        text.clear();
        element.appendText(text);
        return XMLFlow::Continue;
    }

    std::size_t depth = 0;
    std::string text;
};

// Does with each element what its name's first letter says.
struct ChoosingHandler : XMLStreamHandler
{
    XMLStep onStart(const XMLStreamStart& element) override
    {
        switch (element.getLocalName().front() % 4) {
        case 0:
            return XMLStep::Skip;
        case 1:
            return XMLStep::Tree;
        case 2:
            return XMLStep::Enter;
        default:
            return XMLStep::EnterText;
        }
    }
    XMLFlow onTree(const XMLStreamElement& /*element*/, const XMLElement& tree) override
    {
        require(tree.isValid() && tree.getText());
        return XMLFlow::Continue;
    }
};

XMLReadResult read(const std::string& bytes, XMLStreamHandler& handler)
{
    std::istringstream stream(bytes);
    return XMLStreamReader(getWords()).read(stream, handler);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool isInitialised = (xercesc::XMLPlatformUtils::Initialize(), true);
    require(isInitialised);
    const std::string bytes(reinterpret_cast<const char*>(data), size);

    EnteringHandler entering;
    const XMLReadResult result = read(bytes, entering);
    std::istringstream stream(bytes);
    XMLReadOptions options;
    options.doctypes = XMLDoctypes::Refused;
    XMLReadResult treeResult;
    const XMLElement root = XMLElement::getRootElement(stream, boost::none, options, &treeResult);
    require((result.outcome == XMLOutcome::WellFormed) == root.isValid());
    require(!root.isValid() || (entering.depth == 0 && entering.text == root.getText()));

    ChoosingHandler choosing;
    require(read(bytes, choosing).outcome == result.outcome);

    if (const auto utf16 = QV::Tests::convertToUtf16(bytes))
        require(QV::Tests::readWithLog(bytes) == QV::Tests::readWithLog(*utf16));
    return 0;
}
