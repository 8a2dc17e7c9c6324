#pragma once

#include <string>

namespace QV::Tool {

/// What `qvfilter preview` was asked to do.
struct PreviewArguments
{
    std::string file;   ///< "-" is standard input
    std::string output; ///< "-" is standard output
    bool followsLinks = false;
};

/// Writes one document as a page. Throws Filters::PackageError where the input cannot be read, and
/// OutputError where the output cannot be written.
void runPreview(const PreviewArguments& arguments);

} // namespace QV::Tool
