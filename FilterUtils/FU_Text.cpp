#include <FilterUtils/FU_Text.h>

#include <cstddef>
#include <exception>
#include <utility>
#include <vector>

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/split.hpp>
#include <boost/regex.hpp>
#include <fmt/format.h>

#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/TableNames.h>
#include <Utils/Public/Base64.h>
#include <Utils/Public/OperationReport.h>
#include <Versioning/Public/CoreVersion.h>

#include <FilterUtils/FU_ApplicationName.h>

namespace QV::FilterUtils {

boost::container::map<std::string, std::string> parseKeyValueString(
    const std::string& text, const std::string& pairSeparators, const std::string& delimiter)
{
    std::vector<boost::iterator_range<std::string::const_iterator>> pieces;
    boost::algorithm::split(
        pieces, text, boost::algorithm::is_any_of(pairSeparators), boost::algorithm::token_compress_on);

    boost::container::map<std::string, std::string> pairs;
    for (const auto& range : pieces) {
        const std::string piece(range.begin(), range.end());
        const std::size_t position = piece.find(delimiter);
        if (position == std::string::npos || position + 1 >= piece.size())
            continue;
        pairs.emplace(piece.substr(0, position), piece.substr(position + 1));
    }
    return pairs;
}

std::string getRawImageData(boost::string_ref uri, std::string& mimeType)
{
    static const boost::regex header("^data:(image/[^;]+);[Bb][Aa][Ss][Ee]64,");
    const std::size_t comma = uri.find(',');
    if (comma == boost::string_ref::npos || comma + 1 == uri.size())
        return {};
    const char* const data = uri.data() + comma + 1;
    try {
        boost::cmatch match;
        if (!boost::regex_match(uri.data(), data, match, header))
            return {};
        mimeType = match[1].str();
        return base64Decode(uri.substr(comma + 1));
    } catch (const std::exception&) {
        return {}; // text that is no base64
    }
}

std::string joinHyperlink(const DOM::Hyperlink& link)
{
    return link.getAnchor().empty() ? link.getURL() : link.getURL() + '#' + link.getAnchor();
}

std::string makeApplicationFullNameAndVersion(const std::string& name, const Versioning::CoreVersion& version)
{
    using Versioning::CoreVersion;
    const bool isPermanent = version.isPermanent(CoreVersion::AllParts);
    return fmt::format("{}-{}-{}/{}", "Quillbox", name, "Linux",
        version.toString(isPermanent ? CoreVersion::AllParts : CoreVersion::Major));
}

std::string getApplicationFullNameAndVersion(const std::string& name)
{
    return makeApplicationFullNameAndVersion(name, Versioning::CoreVersion::getCurrent());
}

std::string fixTableNameIfNeed(OperationReport& report, std::string name)
{
    if (DOM::validateTableName(name))
        return name;
    std::string fixed = DOM::fixTableNameIfNeed(name);
    report.emplace_back("Table name '{}' is invalid. Fixed table name is '{}'.", name, fixed);
    return fixed;
}

} // namespace QV::FilterUtils
