#pragma once

#include <string>

#include <Filters/Package/Package.h>

namespace QV::Tool {

constexpr const char* StandardInput = "-";

/// Opens the document that an argument names; "-" is standard input.
/// Throws Filters::PackageError as Filters::Package does.
Filters::Package openPackage(const std::string& file);

/// The folder of the document; empty for standard input.
std::string getDocumentFolder(const std::string& file);

} // namespace QV::Tool
