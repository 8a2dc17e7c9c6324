#include <PreviewCommand.h>

#include <cstddef>

#include <DocumentInput.h>
#include <DocumentOutput.h>
#include <Filters/DocumentImport.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
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
    const Filters::DocumentKind kind = Filters::importDocument(package, run);

    OutputFile output(arguments.output);
    writePage(kind, run, makeTitle(arguments.file), output.getStream());
    output.complete();
    output.commit();
}

} // namespace QV::Tool
