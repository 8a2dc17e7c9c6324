#include <DocumentInput.h>

#include <iostream>

#include <boost/filesystem/path.hpp>

namespace QV::Tool {

Filters::Package openPackage(const std::string& file)
{
    return file == StandardInput ? Filters::Package::openStream(std::cin) : Filters::Package::openFile(file);
}

std::string getDocumentFolder(const std::string& file)
{
    if (file == StandardInput)
        return {};
    const boost::filesystem::path folder = boost::filesystem::path(file).parent_path();
    return folder.empty() ? "." : folder.string();
}

} // namespace QV::Tool
