#include <LinksCommand.h>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <vector>

#include <fmt/format.h>

#include <DocumentInput.h>
#include <Filters/ModelJson/LinksJson.h>
#include <Filters/Package/DocumentLinks.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <OutputFile.h>
#include <Summary.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Tool {
namespace {

using Filters::DocumentLink;
using Filters::LinkPlace;

constexpr std::size_t KindColumnMax = 24;

void writeHeading(const std::string& name, const std::vector<DocumentLink>& links, std::ostream& out)
{
    const auto missing = std::count_if(links.begin(), links.end(),
        [](const DocumentLink& link) { return link.place == LinkPlace::Missing; });
    out << Filters::makePrintable(name) << ": ";
    if (links.empty())
        out << "no links";
    else
        out << fmt::format("{} {}", links.size(), links.size() == 1 ? "link" : "links");
    out << (missing > 0 ? fmt::format(", {} missing\n", missing) : "\n");
}

void writeText(const std::string& name, const std::vector<DocumentLink>& links, std::ostream& out)
{
    writeHeading(name, links, out);
    std::size_t width = 0;
    for (const DocumentLink& link : links)
        width = std::max(width, std::min(Filters::makePrintable(link.kind).size(), KindColumnMax));
    for (const DocumentLink& link : links) {
        out << fmt::format("  {:<7}  {:<{}}  {}", getName(link.place), Filters::makePrintable(link.kind),
            width, Filters::makePrintable(link.target));
        if (link.place == LinkPlace::Found)
            out << " -> " << Filters::makePrintable(link.file);
        out << (link.part.empty() ? "\n" : fmt::format("  ({})\n", Filters::makePrintable(link.part)));
    }
}

} // namespace

void runLinks(const LinksArguments& arguments)
{
    Filters::Package package = openPackage(arguments.file);
    OperationReport report;
    const std::string path = arguments.file == StandardInput ? std::string() : arguments.file;
    const std::vector<DocumentLink> links = Filters::readDocumentLinks(package, path, report);
    OutputFile output("-");
    if (arguments.isJson)
        Filters::writeLinksJson(links, report, output.getStream());
    else {
        writeText(arguments.file, links, output.getStream());
        if (!report.getMessages().empty())
            writeMessages(report, output.getStream());
    }
    output.complete();
}

} // namespace QV::Tool
