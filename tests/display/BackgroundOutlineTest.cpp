// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/VolumeViewProvider.h"
#include "tests/display/DrawnTool.h"
#include "tests/support/Rounds.h"
#include "tools/PolygonGraphicObject.h"
#include "tools/VolumeOutline.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <cmath>

// Outlines of many points are derived in the background while the view is
// shown.

namespace {

using Freecut::Loops;
using Freecut::PolygonGraphicObject;
using Freecut::ToolOutlines;
using Freecut::VolumeViewProvider;

struct Values
{
    float clearance;
    float radius;
};

/// Polygons of many corners on a block, in a view that is shown or not.
class Drawing
{
public:
    explicit Drawing(bool isShown)
    {
        m_scene.add(box(40, 40, 10, {-20, -20, 0}), "part");
        m_scene.view.resize(200, 150);
        if (isShown)
            m_scene.view.show();
    }

    PolygonGraphicObject* star(int corners)
    {
        std::vector<UPoint2<float>> points;
        for (int i = 0; i < corners; ++i) {
            double const angle = 2 * M_PI * i / corners, radius = i % 2 ? 10 : 12;
            points.emplace_back(float(radius * std::cos(angle)), float(radius * std::sin(angle)));
        }
        return m_scene.draw<PolygonGraphicObject>(points);
    }

    /// As a field of the dialog sets them.
    static void set(PolygonGraphicObject& tool, Values const& values)
    {
        tool.getProperty().setShapeParameters(true, 2, values.clearance, false, 0, 178,
                                              values.radius > 0, values.radius, false, 2);
    }

    static VolumeViewProvider& providerOf(PolygonGraphicObject& tool)
    {
        return *static_cast<VolumeViewProvider*>(tool.getViewProvider());
    }

    DrawnDocument& scene() { return m_scene; }

private:
    DrawnDocument m_scene;
};

/// What a view that is not shown derives at once. There is one application at a
/// time, so it is asked for before a drawing is shown.
ToolOutlines atOnce(int corners, Values const& values)
{
    Drawing drawing(false);
    PolygonGraphicObject* const tool = drawing.star(corners);
    Drawing::set(*tool, values);
    EXPECT_FALSE(Drawing::providerOf(*tool).background().isBusy());
    return Drawing::providerOf(*tool).shownOutlines();
}

/// The solids of the same.
std::vector<Soup> solidsAtOnce(int corners, Values const& values)
{
    Drawing drawing(false);
    PolygonGraphicObject* const tool = drawing.star(corners);
    Drawing::set(*tool, values);
    std::vector<Soup> solids;
    for (UMesh<float>* const mesh : tool->createInandOutMesh())
        solids.push_back(soupOf(mesh));
    return solids;
}

constexpr int many = 800;
constexpr Values narrow{0.1f, 0.1f}, wide{0.3f, 0.1f};

}  // namespace

TEST(BackgroundOutline, ShowsTheLastOutlineUntilTheNewOneIsThere)
{
    ToolOutlines const before = atOnce(many, narrow), expected = atOnce(many, wide);
    Drawing drawing(true);
    PolygonGraphicObject* const tool = drawing.star(many);
    VolumeViewProvider& provider = Drawing::providerOf(*tool);
    Drawing::set(*tool, narrow);
    EXPECT_TRUE(provider.background().isBusy());
    Loops const first = provider.getOutline()->outlines().outerLoops;
    EXPECT_EQ(first, before.outerLoops);
    Drawing::set(*tool, wide);
    EXPECT_TRUE(provider.background().isBusy());
    EXPECT_EQ(provider.shownOutlines().outerLoops, first);
    // Without anybody who waits for it, it comes with the events.
    int told = 0;
    QObject::connect(&provider.background(), &Freecut::NewestWork::ready, [&] { ++told; });
    while (provider.background().isBusy())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(provider.shownOutlines().outerLoops, expected.outerLoops);
    EXPECT_EQ(provider.shownOutlines().innerLoops, expected.innerLoops);
    EXPECT_EQ(provider.shownOutlines().outlineBuffer, expected.outlineBuffer);
}

TEST(BackgroundOutline, OfTheNewestValuesIsWhatSolidsAreMadeOf)
{
    std::vector<Soup> const expected = solidsAtOnce(many, wide);
    Drawing drawing(true);
    PolygonGraphicObject* const tool = drawing.star(many);
    for (int i = 0; i < rounds(20); ++i)
        Drawing::set(*tool, {0.1f + 0.01f * float(i), 0.1f});
    Drawing::set(*tool, wide);
    EXPECT_TRUE(Drawing::providerOf(*tool).background().isBusy());
    std::vector<UMesh<float>*> const made = tool->createInandOutMesh();
    ASSERT_EQ(made.size(), expected.size());
    for (std::size_t i = 0; i < made.size(); ++i) {
        Soup const mine = soupOf(made[i]);
        EXPECT_EQ(mine.points, expected[i].points);
        EXPECT_EQ(mine.triangles, expected[i].triangles);
    }
    // Nothing older comes afterwards.
    Loops const outer = Drawing::providerOf(*tool).shownOutlines().outerLoops;
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_EQ(Drawing::providerOf(*tool).shownOutlines().outerLoops, outer);
}

TEST(BackgroundOutline, OfFewPointsIsThereAtOnce)
{
    ToolOutlines const expected = atOnce(12, narrow);
    Drawing drawing(true);
    PolygonGraphicObject* const tool = drawing.star(12);
    Drawing::set(*tool, narrow);
    EXPECT_FALSE(Drawing::providerOf(*tool).background().isBusy());
    EXPECT_EQ(Drawing::providerOf(*tool).shownOutlines().outerLoops, expected.outerLoops);
}

TEST(BackgroundOutline, GivesWayToAPreviewAndToATurnedCamera)
{
    ToolOutlines const expected = atOnce(many, wide);
    Drawing drawing(true);
    PolygonGraphicObject* const tool = drawing.star(many);
    VolumeViewProvider& provider = Drawing::providerOf(*tool);
    Drawing::set(*tool, narrow);
    tool->getProperty().setPreviewing(true);
    Drawing::set(*tool, wide);
    EXPECT_FALSE(provider.background().isBusy());
    EXPECT_FALSE(provider.shownOutlines().previewBuffer.empty());
    Loops const outer = provider.shownOutlines().outerLoops;
    EXPECT_EQ(outer, expected.outerLoops);
    tool->getProperty().setPreviewing(false);
    Drawing::set(*tool, narrow);
    EXPECT_TRUE(provider.background().isBusy());
    tool->getProperty().storeEyePoints();
    provider.setViewChanged(true);
    provider.updateGeometry();
    EXPECT_FALSE(provider.background().isBusy());
    provider.setViewChanged(false);
    // What was asked for before is not handed over any more.
    Loops const turned = provider.shownOutlines().outerLoops;
    EXPECT_NE(turned, outer);
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_EQ(provider.shownOutlines().outerLoops, turned);
}

TEST(BackgroundOutline, IsForgottenWithItsTool)
{
    Drawing drawing(true);
    for (int i = 0; i < rounds(10); ++i) {
        PolygonGraphicObject* const tool = drawing.star(many + 100 * i);
        Drawing::set(*tool, wide);
        EXPECT_TRUE(Drawing::providerOf(*tool).background().isBusy());
        drawing.scene().document->detachObject(tool).reset();
        QCoreApplication::processEvents();
    }
}
