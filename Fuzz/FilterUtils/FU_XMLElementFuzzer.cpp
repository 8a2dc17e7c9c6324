// XMLElement: any bytes give a view or the invalid view, never an exception; a view's answers agree with one
// another; and what is read under stricter options is read under laxer ones, to the same text.

#include <FilterUtils/FU_XMLElement.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include <xercesc/util/PlatformUtils.hpp>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using QV::FilterUtils::XMLElement;
using QV::FilterUtils::XMLOutcome;
using QV::FilterUtils::XMLReadOptions;
using QV::FilterUtils::XMLReadResult;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

std::string removeZeros(std::string bytes)
{
    bytes.erase(std::remove(bytes.begin(), bytes.end(), '\0'), bytes.end());
    return bytes;
}

void visit(const XMLElement& element, const std::string& wholeText)
{
    require(element.isValid() && element.getText());
    require(wholeText.find(*element.getText()) != std::string::npos);
    element.getAttributeValue("k");
    element.getAttributeValue("urn:x:k");
    for (const char* const name : {"a", "b", "urn:x:a", "urn:x:b"}) {
        bool isFirst = true;
        element.processElements(name, [&](const XMLElement& child) {
            require(!isFirst || child == element.getElement(name));
            isFirst = false;
            visit(child, wholeText);
        });
        require(isFirst == !element.getElement(name).isValid());
    }
}

XMLElement read(const std::string& bytes, const XMLReadOptions& options)
{
    std::istringstream stream(bytes);
    XMLReadResult result;
    const XMLElement root = XMLElement::getRootElement(stream, boost::none, options, &result);
    require(root.isValid() == (result.outcome == XMLOutcome::WellFormed));
    require(result.message.empty() == root.isValid());
    return root;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool isInitialised = (xercesc::XMLPlatformUtils::Initialize(), true);
    require(isInitialised);
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    // Xerces never frees the content model that an error interrupts: some bytes, and not ours to mend.
    if (removeZeros(bytes).find("<!ELEMENT") != std::string::npos)
        return 0;

    const XMLElement root = read(bytes, {});
    if (root.isValid())
        visit(root, *root.getText());

    XMLReadOptions strict;
    strict.doctypes = QV::FilterUtils::XMLDoctypes::Refused;
    strict.encodings = QV::FilterUtils::XMLEncodings::Utf8AndUtf16;
    strict.depth = 10;
    const XMLElement same = read(bytes, strict);
    require(!same.isValid() || (root.isValid() && same.getText() == root.getText()));
    return 0;
}
