// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/LapJointOutline.h"
#include "cutjobs/common/PlaneMesh.h"
#include "platform/mesh/UMesh.h"
#include "tests/connectors/ConnectorScene.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

enum BasedOn
{
    outer,
    inner,
    all,
};

/// The outlines of a section in the plane z = 0, in square millimetres and by their bounds.
class Outlines
{
public:
    Outlines(std::vector<Ring> const& rings, LapJointParas const& paras)
        : m_section(sectionOf(rings)), m_plane(planeAt({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, 40))
    {
        auto const& points = m_plane->getProperty().getKeyPoints();
        PlaneMesh::fill(&m_base, {points[1], points[2], points[3], points[4]});
        PlaneFrame const frame = frameOf(*m_plane);
        LapJointOutline const outline(paras, frame, m_base);
        tongue = outline.of(m_section->contours, true);
        notch = outline.of(m_section->contours, false);
    }

    POLYGON::Polygons tongue;
    POLYGON::Polygons notch;

private:
    std::unique_ptr<Section> m_section;
    std::unique_ptr<Freecut::PlaneGraphicObject> m_plane;
    UMesh<float> m_base;
};

double areaOf(POLYGON::Polygons const& polygons)
{
    double area = 0;
    for (ClipperLib::Path const& path : polygons.getPaths())
        area += ClipperLib::Area(path) / 1e6;
    return area;
}

double widthOf(ClipperLib::Path const& path)
{
    ClipperLib::cInt low = path[0].X, high = path[0].X;
    for (ClipperLib::IntPoint const& p : path) {
        low = std::min(low, p.X);
        high = std::max(high, p.X);
    }
    return double(high - low) / 1000;
}

LapJointParas paras(float sideDistance, float notchClearance, int basedOn)
{
    LapJointParas p;
    p.sideDistance = sideDistance;
    p.notchClearance = notchClearance;
    p.basedOn = basedOn;
    return p;
}

std::vector<Ring> const bar{rectangle(-30, -10, 30, 10)};
std::vector<Ring> const tube{rectangle(-15, -15, 15, 15), rectangle(-7, -7, 7, 7, true)};

struct OffsetRow
{
    float sideDistance;
    float notchClearance;
    int outerTongue;
    int outerNotch;
    int holeTongue;
    int holeNotch;
};

}  // namespace

TEST(LapJointOutline, OffsetsAreCutTowardsZero)
{
    UMesh<float> none;
    PlaneFrame const frame = frameOf(*planeAt({0, 0, 0}));
    for (OffsetRow const& row : {OffsetRow{2.0f, 0.2f, -2000, -1799, 2000, 1799},
                                 {2.0f, 0.5f, -2000, -1500, 2000, 1500},
                                 {0.001f, 0.0f, -1, -1, 1, 1},
                                 {1.5f, 1.5f, -1500, 1, 1500, 1},
                                 {0.5f, 2.0f, -500, 1500, 500, -1500},
                                 {2.3f, 0.0f, -2299, -2299, 2299, 2299}}) {
        SCOPED_TRACE(row.sideDistance);
        LapJointParas const p = paras(row.sideDistance, row.notchClearance, all);
        LapJointOutline const outline(p, frame, none);
        EXPECT_EQ(outline.insetOfOuter(true), row.outerTongue);
        EXPECT_EQ(outline.insetOfOuter(false), row.outerNotch);
        EXPECT_EQ(outline.growthOfHole(true), row.holeTongue);
        EXPECT_EQ(outline.growthOfHole(false), row.holeNotch);
    }
}

TEST(LapJointOutline, OfABarIsTheSectionInset)
{
    for (int const basedOn : {outer, all}) {
        Outlines const outlines(bar, paras(2, 0.5f, basedOn));
        EXPECT_NEAR(areaOf(outlines.tongue), 56 * 16, 0.1);
        EXPECT_NEAR(areaOf(outlines.notch), 57 * 17, 0.1);
    }
}

TEST(LapJointOutline, OfInnerContoursNeedsAHole)
{
    Outlines const outlines(bar, paras(2, 0.5f, inner));
    EXPECT_EQ(outlines.tongue.size(), 0u);
    EXPECT_EQ(outlines.notch.size(), 0u);
}

TEST(LapJointOutline, OfATubeIsARingADiscOrWhatLiesOutsideTheHole)
{
    Outlines const ring(tube, paras(2, 0.5f, all));
    EXPECT_EQ(ring.tongue.size(), 2u);
    EXPECT_NEAR(areaOf(ring.tongue), 26 * 26 - 18 * 18, 0.1);
    EXPECT_NEAR(areaOf(ring.notch), 27 * 27 - 17 * 17, 0.1);
    Outlines const disc(tube, paras(2, 0.5f, outer));
    EXPECT_EQ(disc.tongue.size(), 1u);
    EXPECT_NEAR(areaOf(disc.tongue), 26 * 26, 0.1);
    Outlines const outside(tube, paras(2, 0.5f, inner));
    EXPECT_EQ(outside.tongue.size(), 2u);
    EXPECT_NEAR(areaOf(outside.tongue), 80 * 80 - 18 * 18, 0.1);
    // One unit outward, which makes the hole smaller by as much.
    EXPECT_NEAR(areaOf(outside.notch), 80.002 * 80.002 - 16.998 * 16.998, 0.1);
}

TEST(LapJointOutline, ANotchClearanceAsLargeAsTheSideDistanceBreaksThroughTheSide)
{
    Outlines const around(bar, paras(2, 2, all));
    EXPECT_NEAR(widthOf(around.notch.getPaths()[0]), 60.002, 1e-9);
    // Beside a hole the notch ends on the hole's contour.
    Outlines const inside(tube, paras(2, 2, inner));
    ASSERT_EQ(inside.notch.size(), 2u);
    EXPECT_NEAR(areaOf(inside.notch), 80.002 * 80.002 - 14 * 14, 0.06);
}

TEST(LapJointOutline, TheSmallestInsetIsOneUnit)
{
    Outlines const outlines(bar, paras(0.001f, 0, all));
    EXPECT_NEAR(widthOf(outlines.tongue.getPaths()[0]), 59.998, 1e-9);
    EXPECT_NEAR(widthOf(outlines.notch.getPaths()[0]), 59.998, 1e-9);
}

TEST(LapJointOutline, VanishesWhereTheSectionIsTooNarrow)
{
    Outlines const outlines(bar, paras(10, 0, all));
    EXPECT_EQ(outlines.tongue.size(), 0u);
}

TEST(LapJointOutline, SeparateContoursStaySeparate)
{
    Outlines const outlines({rectangle(-30, -10, -5, 10), rectangle(5, -10, 30, 10)},
                            paras(2, 0.5f, all));
    EXPECT_EQ(outlines.tongue.size(), 2u);
    EXPECT_NEAR(areaOf(outlines.tongue), 2 * 21 * 16, 0.1);
}
