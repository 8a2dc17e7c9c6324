#include <DocumentOutput.h>

#include <boost/filesystem/path.hpp>

#include <DocumentInput.h>
#include <Filters/ModelJson/PresentationJson.h>
#include <Filters/ModelJson/SpreadsheetJson.h>
#include <Filters/ModelJson/TextJson.h>
#include <Filters/Preview/SlidePreview.h>
#include <Filters/Preview/SpreadsheetPreview.h>
#include <Filters/Preview/TextPreview.h>

namespace QV::Tool {

void writeModelJson(Filters::DocumentKind kind, Filters::FilterRun& run, std::ostream& out)
{
    switch (kind) {
    case Filters::DocumentKind::Spreadsheet:
        Filters::writeSpreadsheetJson(run, out);
        break;
    case Filters::DocumentKind::Text:
        Filters::writeTextJson(run, out);
        break;
    case Filters::DocumentKind::Presentation:
        Filters::writePresentationJson(run, out);
        break;
    }
}

void writePage(
    Filters::DocumentKind kind, Filters::FilterRun& run, const std::string& title, std::ostream& out)
{
    switch (kind) {
    case Filters::DocumentKind::Spreadsheet:
        Filters::writeSpreadsheetPreview(run, title, out);
        break;
    case Filters::DocumentKind::Text:
        Filters::writeTextPreview(run, title, out);
        break;
    case Filters::DocumentKind::Presentation:
        Filters::writePresentationPreview(run, title, out);
        break;
    }
}

std::string makeTitle(const std::string& file)
{
    return file == StandardInput ? "qvfilter" : boost::filesystem::path(file).filename().string();
}

} // namespace QV::Tool
