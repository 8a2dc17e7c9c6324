#pragma once

#include <string>

namespace QV::Tool {

/// What `qvfilter convert` was asked to do.
struct ConvertArguments
{
    std::string file;   ///< "-" is standard input
    std::string output; ///< its extension is one of ConvertExtensions
    std::string report; ///< empty: none; "-" is standard output
    std::string media;  ///< empty: pictures are not kept
    bool followsLinks = false;
};

/// Whether documents can be written to a file of this name: .txt, .md, .html or .json in any letter case.
bool isConvertible(const std::string& output);

/// Writes one document in the format that the output's extension names. Throws Filters::PackageError where
/// the input cannot be read, UsageError where documents of its kind have no such format, and OutputError
/// where an output cannot be written.
void runConvert(const ConvertArguments& arguments);

} // namespace QV::Tool
