#pragma once

#include <string>

namespace QV::Tool {

/// What `qvfilter import` was asked to do.
struct ImportArguments
{
    std::string file;   ///< "-" is standard input
    std::string model;  ///< empty: none; "-" is standard output
    std::string report; ///< empty: none; "-" is standard output
    std::string media;  ///< empty: pictures are not kept
    bool areIdsSequential = false;
    bool followsLinks = false;
};

/// Imports one document, and writes what was asked for, or a summary for a person.
/// Throws Filters::PackageError where the input cannot be read, and OutputError where an output cannot be
/// written.
void runImport(const ImportArguments& arguments);

} // namespace QV::Tool
