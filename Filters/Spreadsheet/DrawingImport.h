#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <DOM/Public/GraphicalObject.h>
#include <Filters/Package/DrawnTransform.h>
#include <Filters/Package/Export.h>
#include <Filters/Package/PartPictures.h>
#include <Filters/Spreadsheet/DrawingObjects.h>

namespace QV::DOM {
class Shape;
class Table;
} // namespace QV::DOM

namespace QV::Filters {

class Colors;
class DrawingMessages;
class FilterRun;
class Package;
class Relationships;

/// Makes what the frame of a chart shows, from the chart's part; null where it cannot be read.
using ChartReader = std::function<std::unique_ptr<DOM::GraphicalObject>(const std::string& chartPart)>;

/// Brings the drawings of a workbook onto its sheets: pictures, shapes, groups, and the frames of charts.
///
/// All drawings of a workbook have 100,000 objects at most; the rest is left out, with one message.
class FILTERS_API DrawingImporter
{
public:
    static constexpr std::size_t ObjectsMax = 100000;

    /// @param readChart may be empty: the frames of charts are empty then
    DrawingImporter(Package& package, FilterRun& run, const Colors& colors, ChartReader readChart = {});
    ~DrawingImporter();

    /// Gives the table a frame for each object of a drawing part, from back to front. Pictures and charts
    /// that are missing or cannot be read are reported; such a picture has no frame.
    ///
    /// The sizes of the table's rows and columns must be there.
    void read(const std::string& drawingPart, DOM::Table& table);

private:
    struct Drawing;

    void takeAnchor(const DrawnAnchor& anchor, Drawing& drawing);
    std::unique_ptr<DOM::GraphicalObject> makeObject(
        const DrawnObject& object, const boost::optional<DrawnBox>& box, Drawing& drawing);
    std::unique_ptr<DOM::GraphicalObject> makePicture(const DrawnObject& object, Drawing& drawing);
    std::unique_ptr<DOM::GraphicalObject> makeChart(const DrawnObject& object, Drawing& drawing);
    std::unique_ptr<DOM::GraphicalObject> makeGroup(
        const DrawnObject& object, const boost::optional<DrawnBox>& box, Drawing& drawing);

    Package& _package;
    FilterRun& _run;
    const Colors& _colors;
    ChartReader _readChart;
    PartPictures _pictures;
    std::size_t _objectsLeft = ObjectsMax;
};

} // namespace QV::Filters
