// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/GraphicViewProvider.h"
#include "tests/display/DrawnTool.h"
#include "tools/PolygonGraphicObject.h"

#include <gtest/gtest.h>

// A solid tool is drawn at a depth that is counted from the view's reference plane. What brings
// other things into the picture must not move that plane.
namespace {

using Point = UPoint3<float>;

/// What painting does when the view has been moved.
void followMove(Freecut::PolygonGraphicObject& tool)
{
    tool.getProperty().storeEyePoints();
    tool.getProperty().storeEyeTeeth();
    tool.getProperty().rememberView();
}

}  // namespace

TEST(FitWhileDrawing, TheNextCornerLiesAtTheHeightOfTheFirstAndTheSolidGoesThrough)
{
    DrawnDocument scene;
    // Tall, and not in the middle, so that fitting has far to go in every direction.
    scene.add(box(20, 20, 200, {50, 30, 40}), "tall");
    auto* const tool = scene.draw<Freecut::PolygonGraphicObject>({{55, 35}, {65, 35}});
    tool->setSelected(true, true, false);
    float const height = tool->getProperty().getKeyPoints()[0].Z();
    scene.view.fitAll();
    followMove(*tool);

    Point corner(60, 45, 0);
    scene.view.getEyePointFromWCSPoint(corner);
    corner.Z() = tool->getProperty().getSketchDepth();
    scene.view.getWCSPointFromEyePoint(corner);
    EXPECT_NEAR(corner.X(), 60, 1e-3);
    EXPECT_NEAR(corner.Z(), height, 1e-3);

    tool->getProperty().getKeyPoints().push_back(corner);
    tool->getProperty().setShapeParameters(false, 0, 0, false, 0, 178, false, 1, false, 2);
    tool->getViewProvider()->updateGeometry();
    Soup const solid = soupOf(tool->createMesh());
    ASSERT_FALSE(solid.triangles.empty());
    float low = 1e9f, high = -1e9f;
    for (Point const& point : solid.points) {
        low = std::min(low, point.Z());
        high = std::max(high, point.Z());
    }
    EXPECT_LT(low, 40);
    EXPECT_GT(high, 240);
    scene.document->detachObject(tool).reset();
}
