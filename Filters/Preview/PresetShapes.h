#pragma once

/// @file
/// The outlines of preset shapes (ECMA-376 Part 1, 20.1.10.56) in the language of PresetLanguage.h, by
/// families.

namespace QV::Filters {

const char* getRectangleShapes();
const char* getPolygonShapes();
const char* getRoundShapes();
const char* getSymbolShapes();
const char* getLineShapes();
const char* getArrowShapes();
const char* getBentArrowShapes();
const char* getCurvedArrowShapes();
const char* getArrowCalloutShapes();
const char* getStarShapes();
const char* getBannerShapes();
const char* getCalloutShapes();
const char* getFlowchartShapes();
const char* getButtonShapes();
const char* getMathShapes();

} // namespace QV::Filters
