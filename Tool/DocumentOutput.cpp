#include <DocumentOutput.h>

#include <boost/filesystem/path.hpp>

#include <DocumentInput.h>
#include <Filters/ModelJson/SpreadsheetJson.h>
#include <Filters/ModelJson/TextJson.h>
#include <Filters/Preview/SpreadsheetPreview.h>
#include <Filters/Preview/TextPreview.h>

namespace QV::Tool {

void writeModelJson(Filters::DocumentKind kind, Filters::FilterRun& run, std::ostream& out)
{
    if (kind == Filters::DocumentKind::Text)
        Filters::writeTextJson(run, out);
    else
        Filters::writeSpreadsheetJson(run, out);
}

void writePage(
    Filters::DocumentKind kind, Filters::FilterRun& run, const std::string& title, std::ostream& out)
{
    if (kind == Filters::DocumentKind::Text)
        Filters::writeTextPreview(run, title, out);
    else
        Filters::writeSpreadsheetPreview(run, title, out);
}

std::string makeTitle(const std::string& file)
{
    return file == StandardInput ? "qvfilter" : boost::filesystem::path(file).filename().string();
}

} // namespace QV::Tool
