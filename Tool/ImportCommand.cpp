#include <ImportCommand.h>

#include <memory>

#include <DocumentInput.h>
#include <DocumentOutput.h>
#include <Filters/DocumentImport.h>
#include <Filters/ModelJson/ReportJson.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <MediaFolder.h>
#include <OutputFile.h>
#include <Summary.h>

namespace QV::Tool {
namespace {

Filters::ImportOptions makeOptions(const ImportArguments& arguments, const MediaFolder& media)
{
    Filters::ImportOptions options;
    options.mediaFolder = media.getGrowingFolder();
    options.areIdsSequential = arguments.areIdsSequential;
    options.followsLinks = arguments.followsLinks;
    options.documentFolder = getDocumentFolder(arguments.file);
    return options;
}

} // namespace

void runImport(const ImportArguments& arguments)
{
    Filters::Package package = openPackage(arguments.file);
    MediaFolder media(arguments.media);
    // Kept until the process ends: taking a large model apart would cost time and give nothing.
    static Filters::FilterRun& run = *new Filters::FilterRun(makeOptions(arguments, media));
    const Filters::DocumentKind kind = Filters::importDocument(package, run);

    const bool wantsSummary = arguments.model.empty() && arguments.report.empty();
    if (wantsSummary) {
        OutputFile output("-");
        writeSummary(arguments.file, kind, run, output.getStream());
        output.complete();
    }
    std::unique_ptr<OutputFile> model;
    std::unique_ptr<OutputFile> report;
    if (!arguments.model.empty())
        model = std::make_unique<OutputFile>(arguments.model);
    if (!arguments.report.empty())
        report = std::make_unique<OutputFile>(arguments.report);
    if (model) {
        writeModelJson(kind, run, model->getStream());
        model->complete();
    }
    if (report) {
        Filters::writeReportJson(run, report->getStream());
        report->complete();
    }
    // Each is whole by now; what can still fail is a rename.
    media.commit(run.getMedia());
    if (model)
        model->commit();
    if (report)
        report->commit();
}

} // namespace QV::Tool
