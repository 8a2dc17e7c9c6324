#include <Filters/Preview/PresetGeometries.h>

#include <string>
#include <unordered_map>

#include <Filters/Preview/PresetLanguage.h>
#include <Filters/Preview/PresetShapes.h>

namespace QV::Filters {
namespace {

using PresetGeometriesByType = std::unordered_map<std::string, DOM::ShapeGeometry>;

PresetGeometriesByType readPresets()
{
    PresetTexts texts;
    for (const char* const family : {getRectangleShapes(), getPolygonShapes(), getRoundShapes(),
             getSymbolShapes(), getLineShapes(), getArrowShapes(), getBentArrowShapes(),
             getCurvedArrowShapes(), getArrowCalloutShapes(), getStarShapes(), getBannerShapes(),
             getCalloutShapes(), getFlowchartShapes(), getButtonShapes(), getMathShapes()})
        splitPresets(family, texts);
    PresetGeometriesByType geometries;
    for (const auto& text : texts)
        if (text.first[0] != '@')
            geometries.emplace(text.first, readPresetShape(text.second, texts));
    return geometries;
}

} // namespace

const DOM::ShapeGeometry* findPresetGeometry(const std::string& type)
{
    static const PresetGeometriesByType geometries = readPresets();
    const auto found = geometries.find(type);
    return found != geometries.end() ? &found->second : nullptr;
}

} // namespace QV::Filters
