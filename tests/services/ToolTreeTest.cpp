// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/ToolTree.h"
#include "tests/services/ToolFamily.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>

namespace {

using Box = TriangleTree::Box;
using Point = UPoint3<float>;

std::function<void(int)> const silent;

/// Whether a point lies on a triangle of a mesh, exactly.
bool isOn(MeshArrays const& mesh, Point const& p)
{
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        Point const corners[] = {mesh.point(t, 0), mesh.point(t, 1), mesh.point(t, 2)};
        bool isOnThis = ExactSigns::orient3d(corners[0], corners[1], corners[2], p) == 0;
        for (int axis = 0; axis < 3; ++axis) {
            int const facing = ExactSigns::orient2d(corners[0], corners[1], corners[2], axis);
            for (int k = 0; k < 3; ++k)
                isOnThis &=
                    ExactSigns::orient2d(corners[k], corners[(k + 1) % 3], p, axis) * facing >= 0;
        }
        if (isOnThis)
            return true;
    }
    return false;
}

/// The share of the solid angle that a mesh covers seen from a point, counted by its facing, after
/// van Oosterom and Strackee, "The solid angle of a plane triangle", 1983.
double solidAngleShare(MeshArrays const& mesh, Point const& from)
{
    double sum = 0;
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        ExactSigns::Offset const a(from, mesh.point(t, 0)), b(from, mesh.point(t, 1)),
            c(from, mesh.point(t, 2));
        auto const dot = [](auto const& p, auto const& q) {
            return p.x * q.x + p.y * q.y + p.z * q.z;
        };
        double const volume = a.x * (b.y * c.z - b.z * c.y) + a.y * (b.z * c.x - b.x * c.z) +
                              a.z * (b.x * c.y - b.y * c.x);
        double const la = std::sqrt(dot(a, a)), lb = std::sqrt(dot(b, b)),
                     lc = std::sqrt(dot(c, c));
        sum += std::atan2(volume, la * lb * lc + dot(a, b) * lc + dot(b, c) * la + dot(c, a) * lb);
    }
    return sum / (2 * std::numbers::pi);
}

}  // namespace

TEST(ToolTree, WindingNumberIsTheCoveredSolidAngle)
{
    Chance chance(1);
    StageProgress progress(silent);
    std::set<int> seen;
    for (NamedSoup const& tool : toolFamily()) {
        SCOPED_TRACE(tool.name);
        MeshArrays const mesh = arraysOf(tool.soup);
        ToolTree const tree(mesh, progress);
        for (int i = 0; i < 600; ++i) {
            Point p = chance.in(boxOf(mesh));
            // Level with vertices, so that the ray runs through them and along edges.
            Point const vertex = mesh.points[std::size_t(chance.below(int(mesh.points.size())))];
            if (i % 2 == 0)
                p[1] = vertex[1];
            if (i % 3 == 0)
                p[2] = vertex[2];
            if (isOn(mesh, p))
                continue;
            double const share = solidAngleShare(mesh, p);
            // So close to the tool that the share is not found in double.
            if (std::abs(share - std::round(share)) > 1e-6)
                continue;
            EXPECT_EQ(tree.windingAt(p), int(std::round(share)))
                << p[0] << ' ' << p[1] << ' ' << p[2];
            seen.insert(tree.windingAt(p));
        }
    }
    EXPECT_EQ(seen, (std::set<int>{-1, 0, 1, 2}));
}

TEST(ToolTree, TrianglesAreFoundOnceWhereTheirBoxesOverlap)
{
    Chance chance(2);
    StageProgress progress(silent);
    for (NamedSoup const& tool : toolFamily()) {
        SCOPED_TRACE(tool.name);
        MeshArrays const mesh = arraysOf(tool.soup);
        ToolTree const tree(mesh, progress);
        for (int i = 0; i < 50; ++i) {
            Box const box = chance.boxNear(boxOf(mesh), 0.1f * float(i % 8));
            std::vector<std::uint32_t> found, expected;
            tree.forOverlapping(box, [&](std::uint32_t t) { found.push_back(t); });
            std::sort(found.begin(), found.end());
            for (std::uint32_t t = 0; t < mesh.triangles.size(); ++t) {
                MeshArrays const one{{mesh.point(t, 0), mesh.point(t, 1), mesh.point(t, 2)}, {}};
                if (boxOf(one).overlaps(box))
                    expected.push_back(t);
            }
            EXPECT_EQ(found, expected);
        }
    }
}
