#include <Filters/Package/XmlParts.h>

#include <istream>
#include <memory>

#include <boost/optional.hpp>
#include <fmt/format.h>

#include <Utils/Public/OperationReport.h>

#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using FilterUtils::XMLOutcome;
using FilterUtils::XMLReadOptions;
using FilterUtils::XMLReadResult;
using Kind = PackageError::Kind;

[[noreturn]] void refuse(Kind kind, const std::string& part, const std::string& reason)
{
    throw PackageError(kind, fmt::format("part \"{}\" {}", makePrintable(part), reason), part);
}

} // namespace

XMLElement readXml(Package& package, const std::string& part, OperationReport& report)
{
    XMLReadOptions options = makePartReadOptions();
    options.inputBytes = package.getLimits().treeBytes;
    XMLReadResult result;
    const std::unique_ptr<std::istream> stream = package.openPart(part);
    const XMLElement root = XMLElement::getRootElement(*stream, boost::none, options, &result);
    return judgeReading(result, part, report) ? root : XMLElement();
}

bool readXmlStream(Package& package, const std::string& part, const FilterUtils::XMLVocabulary& words,
    FilterUtils::XMLStreamHandler& handler, OperationReport& report)
{
    const std::unique_ptr<std::istream> stream = package.openPart(part);
    const FilterUtils::XMLStreamReader reader(words, makePartReadOptions());
    return judgeReading(reader.read(*stream, handler), part, report);
}

FilterUtils::XMLVocabulary::Namespace makeXmlNamespace(const std::string& alias, Vocabulary vocabulary)
{
    const std::string& transitional = getNamespace(vocabulary, Dialect::Transitional);
    const std::string& strict = getNamespace(vocabulary, Dialect::Strict);
    if (transitional == strict)
        return {alias, {transitional}};
    return {
        alias, {transitional, strict}
    };
}

XMLReadOptions makePartReadOptions()
{
    XMLReadOptions options;
    options.doctypes = FilterUtils::XMLDoctypes::Refused;
    options.encodings = FilterUtils::XMLEncodings::Utf8Utf16AndLatin1;
    return options;
}

bool judgeReading(const XMLReadResult& result, const std::string& part, OperationReport& report)
{
    switch (result.outcome) {
    case XMLOutcome::WellFormed:
    case XMLOutcome::Stopped:
        return true;
    case XMLOutcome::Malformed:
        report.emplace_back("Part {} is not well-formed XML, line {}", part, std::to_string(result.line));
        return false;
    case XMLOutcome::Unreadable:
        refuse(Kind::Damaged, part, "cannot be read");
    case XMLOutcome::DoctypeRefused:
        refuse(Kind::Refused, part, "has a document type declaration, which packages may not have");
    case XMLOutcome::EncodingRefused:
        refuse(Kind::Refused, part, "is in an encoding other than UTF-8, UTF-16 and ISO-8859-1");
    case XMLOutcome::InputLimit:
        refuse(Kind::LimitExceeded, part,
            fmt::format("holds {} bytes or more; the limit for a part that is read as a tree is {}",
                result.value, result.limit));
    default:
        refuse(Kind::LimitExceeded, part,
            fmt::format("breaks a limit of XML in line {}: {} ({}; the limit is {})", result.line,
                makePrintable(result.message), result.value, result.limit));
    }
}

} // namespace QV::Filters
