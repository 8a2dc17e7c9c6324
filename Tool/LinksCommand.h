#pragma once

#include <string>

namespace QV::Tool {

/// What `qvfilter links` was asked to do.
struct LinksArguments
{
    std::string file; ///< "-" is standard input
    bool isJson = false;
};

/// Lists what one document refers to outside of itself, and where that is. Throws Filters::PackageError where
/// the input cannot be read, and OutputError where standard output cannot be written.
void runLinks(const LinksArguments& arguments);

} // namespace QV::Tool
