// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/TrianglePair.h"
#include "host/services/boolean/ToolGrid.h"
#include "host/services/boolean/TriangleContact.h"
#include "tests/services/ToolFamily.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using Box = TriangleTree::Box;
using Point = UPoint3<float>;
using State = ToolGrid::State;

std::function<void(int)> const silent;

/// Parts that hold the tool, lie in it, overlap it, are far smaller, are flat, or lie apart.
std::vector<Box> partsFor(Box const& tool, Chance& chance)
{
    std::vector<Box> parts{tool, chance.boxNear(tool, 0.5f), chance.boxNear(tool, 0.9f),
                           chance.boxNear(tool, 0.02f), chance.boxNear(tool, 0.3f)};
    parts.back().high[1] = parts.back().low[1];
    Box large = tool, apart = tool;
    for (std::size_t k = 0; k < 3; ++k) {
        float const extent = tool.high[k] - tool.low[k];
        large.low[k] -= 2 * extent;
        large.high[k] += 3 * extent;
        apart.low[k] += 2 * extent;
        apart.high[k] += 3 * extent;
    }
    parts.push_back(large);
    parts.push_back(apart);
    return parts;
}

/// Calls a function with grids of many tools, parts and sizes of cells.
template <typename Try>
void forGrids(unsigned seed, Try const& attempt)
{
    Chance chance(seed);
    StageProgress progress(silent);
    for (NamedSoup const& tool : toolFamily())
        for (bool const isMoved : {false, true}) {
            MeshArrays const mesh =
                arraysOf(isMoved ? moved(tool.soup, chance.motion()) : tool.soup);
            ToolTree const tree(mesh, progress);
            for (Box const& part : partsFor(boxOf(mesh), chance)) {
                std::size_t const touching = std::size_t(5) << chance.below(10);
                SCOPED_TRACE(tool.name + ", touching " + std::to_string(touching));
                attempt(ToolGrid(tree, part, touching, progress), part, chance);
                if (testing::Test::HasFailure())
                    return;
            }
        }
}

/// A triangle in the box of a part, most of them small, with corners at the tool's vertices now and
/// then.
TriangleCorners randomTriangle(MeshArrays const& tool, Box const& part, Chance& chance)
{
    Box near = part;
    Point const centre = chance.in(part);
    float const share = chance.below(4) == 0 ? 1.0f : chance.below(2) == 0 ? 0.1f : 0.01f;
    for (std::size_t k = 0; k < 3; ++k) {
        float const reach = share * (part.high[k] - part.low[k]);
        near.low[k] = std::max(part.low[k], centre[int(k)] - reach);
        near.high[k] = std::min(part.high[k], centre[int(k)] + reach);
    }
    TriangleCorners t;
    for (Point& p : t) {
        Point const vertex = tool.points[std::size_t(chance.below(int(tool.points.size())))];
        p = chance.below(8) == 0 && part.overlaps(boxOf(vertex)) ? vertex : chance.in(near);
    }
    return t;
}

bool isFlat(TriangleCorners const& t)
{
    return ExactSigns::areCollinear(t[0], t[1], t[2]);
}

/// All triangles of a tool that meet or touch a triangle, one by one.
std::vector<std::uint32_t> meeting(MeshArrays const& tool, TriangleCorners const& corners)
{
    MeshArrays both = tool;
    std::uint32_t const first = std::uint32_t(tool.points.size());
    both.points.insert(both.points.end(), corners.begin(), corners.end());
    both.triangles.push_back({first, first + 1, first + 2});
    std::vector<std::uint32_t> found;
    for (std::uint32_t t = 0; t < tool.triangles.size(); ++t)
        if (doTrianglesMeet(both, t, tool.triangles.size()) ||
            contactOf(corners, {both.point(t, 0), both.point(t, 1), both.point(t, 2)}).count > 0)
            found.push_back(t);
    return found;
}

}  // namespace

TEST(ToolGrid, ClearCellsAreInsideWhereTheWindingNumberIsAboveZero)
{
    int inside = 0, outside = 0, touched = 0;
    forGrids(3, [&](ToolGrid const& grid, Box const& part, Chance& chance) {
        for (int i = 0; i < 400; ++i) {
            Point const p = chance.in(part);
            State const state = grid.stateAt(grid.placeOf(p));
            ++(state == State::inside ? inside : state == State::outside ? outside : touched);
            if (state != State::touched) {
                ASSERT_EQ(state == State::inside, grid.tool().windingAt(p) > 0)
                    << p[0] << ' ' << p[1] << ' ' << p[2];
            }
        }
    });
    EXPECT_GT(inside, 2000);
    EXPECT_GT(outside, 2000);
    EXPECT_GT(touched, 2000);
}

TEST(ToolGrid, VerticesOfTheToolLieInTouchedCells)
{
    forGrids(4, [&](ToolGrid const& grid, Box const& part, Chance&) {
        for (Point const& p : grid.tool().mesh().points)
            if (part.overlaps(boxOf(p))) {
                ASSERT_EQ(grid.stateAt(grid.placeOf(p)), State::touched);
            }
    });
}

TEST(ToolGrid, EveryToolTriangleThatMeetsATriangleIsFound)
{
    int found = 0;
    forGrids(5, [&](ToolGrid const& grid, Box const& part, Chance& chance) {
        for (int i = 0; i < 25; ++i) {
            TriangleCorners const t = randomTriangle(grid.tool().mesh(), part, chance);
            if (isFlat(t))
                continue;
            std::set<std::uint32_t> visited;
            grid.forBlocks(grid.placeOf(t[0]), grid.placeOf(t[1]), grid.placeOf(t[2]),
                           [&](ToolGrid::CellsOfBlock const& cells) {
                               for (auto const& reference : grid.referencesOf(cells.block))
                                   if (cells.meet(reference))
                                       visited.insert(reference.triangle);
                           });
            for (std::uint32_t const triangle : meeting(grid.tool().mesh(), t)) {
                ASSERT_TRUE(visited.contains(triangle)) << triangle;
                ++found;
            }
        }
    });
    EXPECT_GT(found, 5000);
}

TEST(ToolGrid, TrianglesThatAreClearOfTheToolDoNotMeetIt)
{
    int clear = 0, unclear = 0;
    forGrids(6, [&](ToolGrid const& grid, Box const& part, Chance& chance) {
        for (int i = 0; i < 60; ++i) {
            TriangleCorners const t = randomTriangle(grid.tool().mesh(), part, chance);
            ToolGrid::Place const places[] = {grid.placeOf(t[0]), grid.placeOf(t[1]),
                                              grid.placeOf(t[2])};
            if (isFlat(t) || std::any_of(std::begin(places), std::end(places), [&](auto place) {
                    return grid.stateAt(place) == State::touched;
                }))
                continue;
            bool const isClear = grid.isClearBetween(places[0], places[1], places[2]);
            ++(isClear ? clear : unclear);
            if (isClear) {
                ASSERT_TRUE(meeting(grid.tool().mesh(), t).empty());
            }
        }
    });
    EXPECT_GT(clear, 1000);
    EXPECT_GT(unclear, 100);
}

TEST(ToolGrid, PartApartFromTheToolIsClear)
{
    Chance chance(7);
    StageProgress progress(silent);
    for (NamedSoup const& tool : toolFamily()) {
        MeshArrays const mesh = arraysOf(tool.soup);
        ToolTree const tree(mesh, progress);
        Box const part = partsFor(boxOf(mesh), chance).back();
        ToolGrid const grid(tree, part, 1000, progress);
        for (int i = 0; i < 50; ++i) {
            TriangleCorners const t = randomTriangle(mesh, part, chance);
            ToolGrid::Place const a = grid.placeOf(t[0]), b = grid.placeOf(t[1]),
                                  c = grid.placeOf(t[2]);
            EXPECT_EQ(grid.stateAt(a), State::outside) << tool.name;
            EXPECT_TRUE(grid.isClearBetween(a, b, c)) << tool.name;
        }
    }
}
