// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/connectors/ConnectorScene.h"

#include "cutjobs/common/PlaneMesh.h"
#include "platform/geometry/MellMath.h"
#include "platform/services/EarcutPolygon.h"
#include "platform/services/Intersect.h"

#include <algorithm>
#include <cmath>
#include <numbers>

std::unique_ptr<Freecut::PlaneGraphicObject> planeAt(UPoint3<float> const& centre,
                                                     UVector3<float> const& first,
                                                     UVector3<float> const& second, float halfSide)
{
    auto plane = std::make_unique<Freecut::PlaneGraphicObject>();
    UVector3<float> const a = first * halfSide;
    UVector3<float> const b = second * halfSide;
    plane->getProperty().setKeyPoints(
        {centre, centre - a - b, centre + a - b, centre + a + b, centre - a + b});
    return plane;
}

PlaneFrame frameOf(Freecut::PlaneGraphicObject const& plane)
{
    return PlaneFrame(
        std::span<UPoint3<float> const, 5>(plane.getProperty().getKeyPoints().data(), 5));
}

Soup prism(std::vector<Ring> const& rings, float low, float high)
{
    Soup soup;
    std::vector<std::vector<std::array<double, 2>>> flat;
    for (Ring const& ring : rings) {
        auto& points = flat.emplace_back();
        auto const first = std::uint32_t(soup.points.size());
        for (UPoint2<float> const& p : ring) {
            points.push_back({p.X(), p.Y()});
            soup.add({p.X(), p.Y(), low});
            soup.add({p.X(), p.Y(), high});
        }
        auto const count = std::uint32_t(ring.size());
        for (std::uint32_t i = 0; i < count; ++i) {
            std::uint32_t const a = first + 2 * i, b = first + 2 * ((i + 1) % count);
            soup.add(a, b, b + 1);
            soup.add(a, b + 1, a + 1);
        }
    }
    std::vector<int> const indices = EarcutPolygon::earcut(flat);
    for (std::size_t i = 0; i + 2 < indices.size(); i += 3) {
        auto const at = [&](std::size_t k) { return 2 * std::uint32_t(indices[i + k]); };
        soup.add(at(0), at(2), at(1));
        soup.add(at(0) + 1, at(1) + 1, at(2) + 1);
    }
    return soup;
}

Ring rectangle(float x0, float y0, float x1, float y1, bool isHole)
{
    Ring ring{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
    if (isHole)
        std::reverse(ring.begin(), ring.end());
    return ring;
}

Ring circle(float radius, int points, bool isHole)
{
    Ring ring;
    for (int i = 0; i < points; ++i) {
        double const t = 2 * std::numbers::pi * i / points;
        ring.push_back({float(radius * std::cos(t)), float(radius * std::sin(t))});
    }
    if (isHole)
        std::reverse(ring.begin(), ring.end());
    return ring;
}

std::vector<std::pair<std::string, std::vector<Ring>>> commonSections()
{
    return {{"square", {rectangle(-20, -20, 20, 20)}},
            {"bar", {rectangle(-50, -5, 50, 5)}},
            {"L", {{{-20, -20}, {20, -20}, {20, -8}, {-8, -8}, {-8, 20}, {-20, 20}}}},
            {"ring", {circle(30, 64), circle(18, 64, true)}},
            {"square ring", {rectangle(-30, -30, 30, 30), rectangle(-18, -18, 18, 18, true)}},
            {"disc of six edges", {circle(20, 6)}},
            {"plate with a hole", {rectangle(-40, -25, 40, 25), rectangle(-5, -5, 5, 5, true)}}};
}

std::unique_ptr<Section> sectionOf(Soup const& soup, Freecut::PlaneGraphicObject& plane)
{
    auto const kernel = kernelOf(soup);
    auto const& points = plane.getProperty().getKeyPoints();
    MeshKernel planeKernel;
    PlaneMesh::fill(planeKernel.getMesh().get(),
                    PlaneMesh::span(kernel->GetBox(), points[0], points[1], points[2],
                                    PlaneMesh::Reach::DiagonalAlongAxes));
    auto section = std::make_unique<Section>();
    MeshKernel upper, lower;
    Intersect::cutByPlane(kernel.get(), &planeKernel, &upper, &lower, &section->cap, {}, true);
    section->contours = extractSectionContours(&section->cap);
    return section;
}

std::unique_ptr<Section> sectionOf(std::vector<Ring> const& rings)
{
    return sectionOf(prism(rings, -20, 20), *planeAt({0, 0, 0}));
}

float distanceFrom(std::vector<SectionContour> const& contours, UPoint3<float> const& p)
{
    float least = 1e30f;
    for (SectionContour const& contour : contours)
        for (std::size_t k = 0; k < contour.size(); ++k)
            least = std::min(least, MellMath<float>::DisPt2Segment(
                                        p, contour[k], contour[(k + 1) % contour.size()]));
    return least;
}

double signedArea(SectionContour const& contour)
{
    double area = 0;
    for (std::size_t k = 0; k < contour.size(); ++k) {
        UPoint3<float> const& a = contour[k];
        UPoint3<float> const& b = contour[(k + 1) % contour.size()];
        area += 0.5 * (double(a.X()) * b.Y() - double(b.X()) * a.Y());
    }
    return area;
}

bool isOn(MeshKernel const& cap, UPoint3<float> const& p)
{
    auto const side = [&](UPoint3<float> const& a, UPoint3<float> const& b) {
        return double(b.X() - a.X()) * (p.Y() - a.Y()) - double(b.Y() - a.Y()) * (p.X() - a.X());
    };
    for (UTriangle<float> const* const t : cap.readMesh()->triangles)
        if (side(t->cP(0), t->cP(1)) >= -1e-4 && side(t->cP(1), t->cP(2)) >= -1e-4 &&
            side(t->cP(2), t->cP(0)) >= -1e-4)
            return true;
    return false;
}
