// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PinPlacement.h"
#include "platform/geometry/MellMath.h"
#include "platform/services/PQPDistance.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/support/MadeModels.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Point = UPoint3<float>;

struct RealSection
{
    std::string name;
    std::unique_ptr<Freecut::PlaneGraphicObject> plane;
    std::unique_ptr<Section> section;
};

/// Oblique sections of models that are 150 mm from corner to corner.
std::vector<RealSection> realSections()
{
    std::vector<RealSection> sections;
    for (NamedSoup const& mesh : stoutModels(110000)) {
        UBox3<float> box;
        for (auto const& p : mesh.soup.points)
            box.Add(p);
        float const s = 150 / (box.max - box.min).GetLength();
        float const values[16] = {s, 0, 0, 0, 0, s, 0, 0, 0, 0, s, 0, 0, 0, 0, 1};
        Soup const part = moved(mesh.soup, UMatrix4<float>(values));
        for (int i = 0; i < 6; ++i) {
            float const t = 0.5f * float(i) + 0.2f;
            UVector3<float> first(std::cos(t), std::sin(t), 0);
            UVector3<float> const second(-std::sin(t) * 0.8f, std::cos(t) * 0.8f, 0.6f);
            UVector3<float> const diagonal = box.max - box.min;
            Point const centre = (box.min + diagonal * (0.3f + 0.08f * float(i))) * s;
            auto plane = planeAt(centre, first, second);
            auto section = sectionOf(part, *plane);
            sections.push_back(
                {mesh.name + " " + std::to_string(i), std::move(plane), std::move(section)});
        }
    }
    return sections;
}

std::vector<Point> positionsOn(RealSection& real, PinHoleParas const& paras)
{
    PlaneFrame const frame = frameOf(*real.plane);
    return PinPlacement(paras, frame).computePositions(real.section->contours, &real.section->cap);
}

void expectApart(std::vector<Point> const& positions, float spacing)
{
    for (std::size_t i = 0; i < positions.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_GE(MellMath<float>::DisPt2Pt(positions[i], positions[j]), spacing - 2e-3f);
}

}  // namespace

TEST(RealSections, CentreLinePositionsKeepClearOfAllContours)
{
    auto sections = realSections();
    std::size_t count = 0;
    for (RealSection& real : sections) {
        SCOPED_TRACE(real.name);
        PinHoleParas paras;
        paras.keepClear = true;
        auto const positions = positionsOn(real, paras);
        expectApart(positions, paras.spacing);
        PQPDistance const section(&real.section->cap, {});
        for (Point const& p : positions) {
            EXPECT_GT(distanceFrom(real.section->contours, p),
                      paras.radius + paras.sideclearance + 0.1f);
            EXPECT_LE(section.distance(p), 1e-3);
        }
        count += positions.size();
    }
    EXPECT_GE(count, 10 * sections.size());
}

TEST(RealSections, PositionsBesideContoursKeepTheirDistance)
{
    auto sections = realSections();
    for (RealSection& real : sections) {
        SCOPED_TRACE(real.name);
        PinHoleParas paras;
        paras.isSidedis = true;
        auto const positions = positionsOn(real, paras);
        expectApart(positions, paras.spacing);
        PQPDistance const section(&real.section->cap, {});
        for (Point const& p : positions) {
            // From its own contour; another one may be nearer.
            EXPECT_LE(distanceFrom(real.section->contours, p), paras.sidedistance + 0.003f);
            EXPECT_LT(section.distance(p), paras.radius);
            if (real.section->contours.size() == 1) {
                EXPECT_GE(distanceFrom(real.section->contours, p), paras.sidedistance - 0.003f);
            }
        }
    }
}

TEST(RealSections, ContoursCloseAroundTheWholeSection)
{
    auto sections = realSections();
    for (RealSection& real : sections) {
        SCOPED_TRACE(real.name);
        PlaneFrame const frame = frameOf(*real.plane);
        double enclosed = 0;
        for (SectionContour contour : real.section->contours) {
            for (Point& p : contour)
                p = frame.toPlaneLocal(p);
            enclosed -= signedArea(contour);
        }
        double area = 0;
        for (UTriangle<float> const* const t : real.section->cap.readMesh()->triangles)
            area += 0.5 * ((t->cP(1) - t->cP(0)) * (t->cP(2) - t->cP(0))).GetLength();
        EXPECT_NEAR(enclosed, area, 1e-4 * area);
    }
}
