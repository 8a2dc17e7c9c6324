#include <Filters/Presentation/SpatialRotation.h>

#include <cstddef>
#include <string>

#include <FilterUtils/FU_TransformMatrices.h>
#include <Filters/Package/DrawingElements.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Presentation/SlideLeftOut.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::buildTransformMatrixFromAngleDegrees;
using FilterUtils::XMLElement;

constexpr unsigned long CameraFullTurn = 21600000; // in 60,000ths of a degree

float readCameraAngle(const XMLElement& rotation, const char* name, OperationReport& report)
{
    const std::string text = rotation.getAttributeValue(name).value_or("0");
    std::size_t end = 0;
    const auto angle = strToUlong(text, &end);
    const bool isPlain = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    if (isPlain && angle)
        return static_cast<float>(*angle % CameraFullTurn) / 60000.0F;
    report.emplace_back("Camera angle {} is none", text);
    return 0;
}

/// Whether a camera of this name looks straight at the object.
bool isFrontView(const std::string& name)
{
    return name.empty() || name == "orthographicFront" || name == "perspectiveFront" ||
           name == "legacyObliqueFront" || name == "legacyPerspectiveFront";
}

} // namespace

boost::optional<std::array<float, 3>> readSpatialRotation(
    const XMLElement& shapeProps, float rotation, FilterRun& run)
{
    const XMLElement scene = findDrawingElement(shapeProps, Vocabulary::Drawing, "scene3d");
    const XMLElement camera = findDrawingElement(scene, Vocabulary::Drawing, "camera");
    const XMLElement angles = findDrawingElement(camera, Vocabulary::Drawing, "rot");
    if (!angles.isValid()) {
        if (!isFrontView(camera.getAttributeValue("prst").value_or(std::string())))
            run.leaveOut(SlideLeftOut::CameraViews);
        return boost::none;
    }
    const float latitude = readCameraAngle(angles, "lat", run.getReport());
    const float longitude = readCameraAngle(angles, "lon", run.getReport());
    const float revolution = readCameraAngle(angles, "rev", run.getReport());
    if (latitude == 0 && longitude == 0 && revolution == 0)
        return boost::none;
    auto matrix = buildTransformMatrixFromAngleDegrees(0, 0, -revolution);
    matrix *= buildTransformMatrixFromAngleDegrees(latitude, 0, 0);
    matrix *= buildTransformMatrixFromAngleDegrees(0, longitude, 0);
    matrix *= buildTransformMatrixFromAngleDegrees(0, 0, rotation);
    return FilterUtils::convertMatrixToAnglesDegree(matrix);
}

} // namespace QV::Filters
