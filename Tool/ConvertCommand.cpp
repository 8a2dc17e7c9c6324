#include <ConvertCommand.h>

#include <algorithm>
#include <cstddef>
#include <memory>

#include <boost/algorithm/string/case_conv.hpp>
#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>

#include <DocumentInput.h>
#include <DocumentOutput.h>
#include <Filters/Convert/Markdown.h>
#include <Filters/Convert/PlainText.h>
#include <Filters/Convert/SlidesText.h>
#include <Filters/DocumentImport.h>
#include <Filters/ModelJson/ReportJson.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <MediaFolder.h>
#include <OutputFile.h>
#include <UsageError.h>

namespace QV::Tool {
namespace {

namespace fs = boost::filesystem;

constexpr const char* Extensions[] = {".txt", ".md", ".html", ".json"};
constexpr std::size_t PageMemory = std::size_t{64} << 20; // for the pictures of a page

std::string getExtension(const std::string& output)
{
    return boost::algorithm::to_lower_copy(fs::path(output).extension().string());
}

/// The media folder as a file beside the output names it.
std::string makeMediaLink(const ConvertArguments& arguments)
{
    if (arguments.media.empty())
        return {};
    const fs::path output = fs::absolute(arguments.output).lexically_normal().parent_path();
    const fs::path relative = fs::absolute(arguments.media).lexically_normal().lexically_relative(output);
    const std::string link = relative.empty() ? arguments.media : relative.generic_string();
    return link.size() > 1 && link.back() == '/' ? link.substr(0, link.size() - 1) : link;
}

void writeAs(const std::string& extension, Filters::DocumentKind kind, const ConvertArguments& arguments,
    Filters::FilterRun& run, std::ostream& out)
{
    const bool isPresentation = kind == Filters::DocumentKind::Presentation;
    if (extension == ".html")
        writePage(kind, run, makeTitle(arguments.file), out);
    else if (extension == ".json")
        writeModelJson(kind, run, out);
    else if (extension == ".txt")
        (isPresentation ? Filters::writeSlidesPlainText : Filters::writePlainText)(run.getDocument(), out);
    else
        (isPresentation ? Filters::writeSlidesMarkdown : Filters::writeMarkdown)(
            run.getDocument(), makeMediaLink(arguments), out);
}

} // namespace

bool isConvertible(const std::string& output)
{
    const std::string extension = getExtension(output);
    return std::any_of(
        std::begin(Extensions), std::end(Extensions), [&](const char* known) { return extension == known; });
}

void runConvert(const ConvertArguments& arguments)
{
    const std::string extension = getExtension(arguments.output);
    Filters::Package package = openPackage(arguments.file);
    MediaFolder media(arguments.media);
    Filters::ImportOptions options;
    options.mediaFolder = media.getGrowingFolder();
    options.areIdsSequential = extension == ".html"; // the same document gives the same page
    options.followsLinks = arguments.followsLinks;
    options.documentFolder = getDocumentFolder(arguments.file);
    options.mediaMemory = extension == ".html" ? PageMemory : 0;
    Filters::FilterRun run(options);
    const Filters::DocumentKind kind = Filters::importDocument(package, run);
    if (kind == Filters::DocumentKind::Spreadsheet && extension != ".html" && extension != ".json")
        throw UsageError("a workbook cannot be converted to " + extension + ", only to .html and .json");

    OutputFile output(arguments.output);
    writeAs(extension, kind, arguments, run, output.getStream());
    output.complete();
    std::unique_ptr<OutputFile> report;
    if (!arguments.report.empty()) {
        report = std::make_unique<OutputFile>(arguments.report);
        Filters::writeReportJson(run, report->getStream());
        report->complete();
    }
    media.commit(run.getMedia());
    output.commit();
    if (report)
        report->commit();
}

} // namespace QV::Tool
