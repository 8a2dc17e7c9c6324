#include <PreviewCommand.h>

#include <cstddef>

#include <boost/filesystem/path.hpp>

#include <DocumentInput.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Preview/SpreadsheetPreview.h>
#include <Filters/Spreadsheet/SpreadsheetImport.h>
#include <OutputFile.h>

namespace QV::Tool {
namespace {

constexpr std::size_t PicturesMemory = std::size_t{64} << 20; // a page with more is no use in a browser

} // namespace

void runPreview(const PreviewArguments& arguments)
{
    Filters::Package package = openPackage(arguments.file);
    Filters::ImportOptions options;
    options.areIdsSequential = true; // the same document gives the same page
    options.followsLinks = arguments.followsLinks;
    options.documentFolder = getDocumentFolder(arguments.file);
    options.mediaMemory = PicturesMemory;
    Filters::FilterRun run(options);
    Filters::importSpreadsheet(package, run);

    const std::string title = arguments.file == StandardInput
                                  ? std::string("qvfilter")
                                  : boost::filesystem::path(arguments.file).filename().string();
    OutputFile output(arguments.output);
    Filters::writeSpreadsheetPreview(run, title, output.getStream());
    output.complete();
    output.commit();
}

} // namespace QV::Tool
