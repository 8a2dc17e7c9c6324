#include <Filters/Presentation/SpatialRotation.h>

#include <array>
#include <ostream>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <FilterUtils/FU_TransformMatrices.h>
#include <Filters/Presentation/SlideLeftOut.h>

#include <Tests/Support/ShapeTreeFixture.h>

namespace QV::Filters {
namespace {

struct RotationRow
{
    const char* name;
    const char* camera; // its content
    float rotation;
    bool isSpatial;
    std::array<float, 3> degrees;
};

void PrintTo(const RotationRow& row, std::ostream* out)
{
    *out << row.camera << " and " << row.rotation;
}

const RotationRow RotationRows[] = {
    {"NoCamera",          "",                                          30, false, {0, 0, 0}    },
    {"NothingTurned",     "<a:rot lat='0' lon='0' rev='0'/>",          30, false, {0, 0, 0}    },
    {"FullTurn",          "<a:rot lat='21600000' lon='0' rev='0'/>",   0,  false, {0, 0, 0}    },
    {"Latitude",          "<a:rot lat='1200000' lon='0' rev='0'/>",    0,  true,  {20, 0, 0}   },
    {"Longitude",         "<a:rot lat='0' lon='1200000' rev='0'/>",    0,  true,  {0, 20, 0}   },
    {"NegativeLongitude", "<a:rot lat='0' lon='20400000' rev='0'/>",   0,  true,  {0, -20, 0}  },
    {"Revolution",        "<a:rot lat='0' lon='0' rev='1200000'/>",    0,  true,  {0, 0, -20}  },
    {"RevolutionAndTurn", "<a:rot lat='0' lon='0' rev='1200000'/>",    50, true,  {0, 0, 30}   },
    {"TurnedFirst",       "<a:rot lat='0' lon='10800000' rev='0'/>",   30, true,  {180, 0, 150}},
    {"BadAngle",          "<a:rot lat='much' lon='1200000' rev='0'/>", 0,  true,  {0, 20, 0}   },
    {"NegativeAngle",     "<a:rot lat='-1' lon='1200000' rev='0'/>",   0,  true,  {0, 20, 0}   },
};

class SpatialRotation : public Tests::ShapeTreeFixture, public testing::WithParamInterface<RotationRow>
{
protected:
    boost::optional<std::array<float, 3>> readCamera(const std::string& camera, float rotation)
    {
        const auto root = parse("<a:scene3d>" + camera + "</a:scene3d>");
        return readSpatialRotation(root, rotation, run);
    }
};

// Triples that mean the same rotation have the same matrix.
TEST_P(SpatialRotation, KeepsRow)
{
    const RotationRow& row = GetParam();
    const auto degrees = readCamera(
        "<a:camera prst='orthographicFront'>" + std::string(row.camera) + "</a:camera>", row.rotation);
    ASSERT_EQ(degrees.has_value(), row.isSpatial);
    if (!degrees)
        return;
    const auto& [x, y, z] = *degrees;
    const auto matrix = FilterUtils::buildTransformMatrixFromAngleDegrees(x, y, z);
    const auto& wanted = row.degrees;
    const auto expected = FilterUtils::buildTransformMatrixFromAngleDegrees(wanted[0], wanted[1], wanted[2]);
    for (int i = 0; i < 9; ++i)
        EXPECT_NEAR(matrix.m[i], expected.m[i], 1e-5F) << i;
}

INSTANTIATE_TEST_SUITE_P(Rows, SpatialRotation, testing::ValuesIn(RotationRows),
    [](const auto& row) { return std::string(row.param.name); });

using SpatialRotationOf = SpatialRotation;

// The faces of a cube seen from above, as the isometric views have them: edges of two faces that are parallel
// on the cube are parallel to the viewer.
TEST_F(SpatialRotationOf, IsometricFacesMeet)
{
    const auto build = [this](const std::string& angles) {
        const auto degrees = readCamera("<a:camera><a:rot " + angles + "/></a:camera>", 0);
        return FilterUtils::buildTransformMatrixFromAngleDegrees((*degrees)[0], (*degrees)[1], (*degrees)[2]);
    };
    const auto right = build("lat='1080000' lon='20040000' rev='0'");
    const auto top = build("lat='18078000' lon='18390000' rev='3456000'");
    for (std::size_t row = 0; row < 3; ++row)
        EXPECT_NEAR(right.at(row, 0), top.at(row, 0), 0.03F) << row; // where their right sides lie
    EXPECT_NEAR(right.at(0, 1), 0, 1e-5F); // the edge between top and bottom stands upright
    EXPECT_GT(right.at(2, 1), 0);          // seen from above
}

TEST_F(SpatialRotationOf, BadAnglesAreReported)
{
    readCamera("<a:camera><a:rot lat='' lon='-5' rev='99999999999999999999'/></a:camera>", 0);
    EXPECT_EQ(joinMessages(),
        "Camera angle  is none|Camera angle -5 is none|Camera angle 99999999999999999999 is none");
}

TEST_F(SpatialRotationOf, NamedViewsAreLeftOut)
{
    EXPECT_FALSE(readCamera("<a:camera prst='perspectiveFront'/>", 0));
    EXPECT_TRUE(run.getLeftOut().empty());
    EXPECT_FALSE(readCamera("<a:camera prst='isometricTopUp'/>", 0));
    EXPECT_EQ(run.getLeftOut(), std::vector<std::string>{SlideLeftOut::CameraViews});
}

} // namespace
} // namespace QV::Filters
