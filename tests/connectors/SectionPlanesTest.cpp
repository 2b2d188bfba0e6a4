// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/SectionPlanes.h"
#include "platform/services/Intersect.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// Largest distance of a kernel's points from the plane object's plane, moved along its normal.
double distanceFromPlane(MeshKernel const& kernel, PlaneFrame const& frame, double offset)
{
    double largest = 0;
    UPoint3<float> const& c = frame.centre();
    UVector3<float> const& n = frame.normal();
    for (UVertex<float> const* const v : kernel.readMesh()->vertices) {
        double height = -offset;
        for (int i = 0; i < 3; ++i)
            height += (double(v->cP()[i]) - c[i]) * n[i];
        largest = std::max(largest, std::abs(height));
    }
    return largest;
}

}  // namespace

TEST(SectionPlanes, WithBoundaryThePlaneHasTheRectanglesCorners)
{
    TestDocument test;
    auto const plane = planeAt({1, 2, 3}, {1, 0, 0}, {0, 1, 0}, 4);
    UMesh<float> mesh;
    std::vector<Mesh::DocumentObject*> const parts{test.add(box(100, 100, 100), "part")};
    SectionPlanes(*plane, parts, true).calculateCutPlaneMesh(&mesh);
    auto const& points = plane->getProperty().getKeyPoints();
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(mesh.vertices[i]->cP(), points[i + 1]);
    EXPECT_EQ(mesh.triangles.size(), 2u);
}

TEST(SectionPlanes, AlongTheAxesThePlaneIsStretchedByTheDiagonal)
{
    TestDocument test;
    auto plane = planeAt({0, 0, 0});
    // A rectangle whose corners lie on the axes: zero components are skipped.
    plane->getProperty().setKeyPoints({{0, 0, 0}, {5, 0, 0}, {0, 5, 0}, {-5, 0, 0}, {0, -5, 0}});
    std::vector<Mesh::DocumentObject*> const parts{test.add(box(3, 4, 12), "part")};
    UMesh<float> mesh;
    SectionPlanes(*plane, parts, false).calculateCutPlaneMesh(&mesh);
    EXPECT_EQ(mesh.vertices[0]->cP(), UPoint3<float>(13, 0, 0));
    EXPECT_EQ(mesh.vertices[3]->cP(), UPoint3<float>(0, -13, 0));
}

TEST(SectionPlanes, TheOffsetPlaneIsTheBasePlaneMovedAlongTheNormal)
{
    TestDocument test;
    auto const plane = planeAt({0, 0, 7});
    std::vector<Mesh::DocumentObject*> const parts{test.add(box(3, 4, 12), "part")};
    UMesh<float> base, offset;
    SectionPlanes(*plane, parts, false).calculateOffsetPlaneMesh(&base, &offset, 0.25f);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(offset.vertices[i]->cP(), base.vertices[i]->cP() + UVector3<float>(0, 0, 0.25f));
    EXPECT_EQ(offset.triangles[0]->cN(), UVector3<float>(0, 0, 1));
}

TEST(SectionPlanes, SlightTiltsKeepTheSectionInThePlane)
{
    for (int const axis : {0, 1, 2})
        for (int exponent = 1; exponent <= 8; ++exponent)
            for (float const far : {0.0f, 100.0f, 1000.0f}) {
                double const tilt = std::pow(10.0, -exponent);
                SCOPED_TRACE(testing::Message()
                             << "axis " << axis << " tilt " << tilt << " at " << far);
                UVector3<float> first, second;
                first[(axis + 1) % 3] = float(std::cos(tilt));
                first[(axis + 2) % 3] = float(std::sin(tilt));
                second[axis] = 1;
                UPoint3<float> const centre(far, far, far);
                auto const plane = planeAt(centre, first, second, 20);
                TestDocument test;
                std::vector<Mesh::DocumentObject*> const parts{
                    test.add(box(10, 12, 14, {far - 5, far - 6, far - 7}), "part")};
                SectionPlanes const planes(*plane, parts, false);
                MeshKernel base, offset;
                planes.calculateOffsetPlaneMesh(base.getMesh().get(), offset.getMesh().get(), 0.2f);
                auto const part = kernelOf(soupOf(parts[0]));
                for (auto const& [kernel, distance] : {std::pair{&base, 0.0}, {&offset, 0.2}}) {
                    MeshKernel above, below, section;
                    Intersect::cutByPlane(part.get(), kernel, &above, &below, &section, {}, true);
                    EXPECT_GE(section.readMesh()->triangles.size(), 2u);
                    EXPECT_LE(distanceFromPlane(section, planes.frame(), distance), 0.002);
                }
            }
}
