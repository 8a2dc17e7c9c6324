#pragma once

#include <string>
#include <vector>

namespace QV::Filters {

class FilterRun;
class Package;

/// The relationships of the pictures that a drawing part shows, in the order in which they are drawn, those
/// in groups included. Notes what else the drawing holds to @p run.
std::vector<std::string> readDrawing(Package& package, const std::string& part, FilterRun& run);

} // namespace QV::Filters
