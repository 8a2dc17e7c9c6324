#pragma once

#include <string>

namespace QV::Tests {

inline const std::string ChartNamespace = "http://schemas.openxmlformats.org/drawingml/2006/chart";
inline const std::string StrictChartNamespace = "http://purl.oclc.org/ooxml/drawingml/chart";
inline const std::string DrawingNamespace = "http://schemas.openxmlformats.org/drawingml/2006/main";
inline const std::string StrictDrawingNamespace = "http://purl.oclc.org/ooxml/drawingml/main";

/// A chart part around what stands inside of c:chart.
inline std::string makeChartPart(const std::string& chart, bool isStrict = false)
{
    return "<c:chartSpace xmlns:c='" + (isStrict ? StrictChartNamespace : ChartNamespace) + "' xmlns:a='" +
           (isStrict ? StrictDrawingNamespace : DrawingNamespace) + "'><c:chart>" + chart +
           "</c:chart></c:chartSpace>";
}

/// A plot area with one chart of that kind around its c:ser elements and whatever else.
inline std::string makePlotArea(const std::string& kind, const std::string& content)
{
    return "<c:plotArea><c:" + kind + ">" + content + "</c:" + kind + "></c:plotArea>";
}

/// A reference to texts with its cached points: c:strRef.
inline std::string makeTextReference(const std::string& reference, const std::string& points)
{
    return "<c:strRef><c:f>" + reference + "</c:f><c:strCache>" + points + "</c:strCache></c:strRef>";
}

inline std::string makeNumberReference(const std::string& reference, const std::string& points = {})
{
    return "<c:numRef><c:f>" + reference + "</c:f><c:numCache>" + points + "</c:numCache></c:numRef>";
}

inline std::string makePoint(const std::string& index, const std::string& value)
{
    return "<c:pt idx='" + index + "'><c:v>" + value + "</c:v></c:pt>";
}

/// A c:ser element of values at a reference.
inline std::string makeSeries(const std::string& values, const std::string& before = {})
{
    return "<c:ser>" + before + "<c:val>" + makeNumberReference(values) + "</c:val></c:ser>";
}

inline const std::string TitleOfText =
    "<c:title><c:tx><c:rich><a:bodyPr/><a:p><a:r><a:t>Sales</a:t></a:r></a:p></c:rich>"
    "</c:tx></c:title>";

} // namespace QV::Tests
