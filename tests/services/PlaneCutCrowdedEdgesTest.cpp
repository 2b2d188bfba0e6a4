// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/services/Intersect.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/Validator.h"
#include "tests/support/WindingField.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

// Parts with edges of more than two triangles are cut where the section closes. Together the pieces
// wind around each point as the part does.
namespace {

struct Halves
{
    Soup above;
    Soup below;
};

Halves cutAt(Soup const& part, float z)
{
    Soup rectangle;
    for (auto const& [x, y] : {std::pair(-500, -500), {500, -500}, {500, 500}, {-500, 500}})
        rectangle.add({float(x), float(y), z});
    rectangle.add(0, 1, 2);
    rectangle.add(2, 3, 0);
    auto const kernel = kernelOf(part), plane = kernelOf(rectangle);
    MeshKernel above, below, section;
    Intersect::cutByPlane(kernel.get(), plane.get(), &above, &below, &section, {}, true);
    return {soupOf(above), soupOf(below)};
}

Soup partOf(std::string const& name)
{
    for (corpus::Part const& part : corpus::parts())
        if (part.name == name)
            return part.soup;
    ADD_FAILURE() << "no part " << name;
    return {};
}

/// Edges that an odd number of triangles use.
std::size_t oddEdgesOf(Soup soup)
{
    soup.joinPoints();
    std::map<std::pair<std::uint32_t, std::uint32_t>, int> uses;
    for (auto const& t : soup.triangles)
        for (std::size_t k = 0; k < 3; ++k)
            ++uses[std::minmax(t[k], t[(k + 1) % 3])];
    return std::size_t(
        std::count_if(uses.begin(), uses.end(), [](auto const& e) { return e.second == 1; }));
}

void expectSolidsAddUp(Soup const& part, Halves const& halves, float z, std::string const& name)
{
    judge::WindingField const whole(part), above(halves.above), below(halves.below);
    UBox3<float> const box = whole.bounds();
    std::mt19937 random(4);
    auto const between = [&](double low, double high) {
        return low + (high - low) * (random() * 0x1p-32);
    };
    for (int i = 0; i < 100; ++i) {
        UPoint3<double> const p(between(box.MinX(), box.MaxX()), between(box.MinY(), box.MaxY()),
                                between(box.MinZ(), box.MaxZ()));
        double const a = above.solidAngleAt(p), b = below.solidAngleAt(p);
        EXPECT_NEAR(a + b, whole.solidAngleAt(p), 1e-4) << name << " at " << z;
    }
}

}  // namespace

TEST(PlaneCutCrowdedEdges, WallsAndEdgesOfMoreThanTwoTrianglesAreNoOpening)
{
    for (char const* name : {"inner-wall", "edge-of-four", "edge-of-six", "random-voxels"}) {
        Soup const part = partOf(name);
        UBox3<float> const box = kernelOf(part)->GetBox();
        for (float const share : {0.13f, 0.31f, 0.5f, 0.62f, 0.87f}) {
            float const z = box.MinZ() + share * (box.MaxZ() - box.MinZ());
            Halves const halves = cutAt(part, z);
            EXPECT_FALSE(halves.above.triangles.empty() || halves.below.triangles.empty());
            expectSolidsAddUp(part, halves, z, name);
            EXPECT_EQ(oddEdgesOf(halves.above) + oddEdgesOf(halves.below), oddEdgesOf(part))
                << name << " at " << share;
        }
    }
}

// The wall is longer than the side that it cuts off, but that bounds the solid.
TEST(PlaneCutCrowdedEdges, OfThreeContoursThoseStayThatEncloseTheMost)
{
    Soup part = box(40, 20, 20);
    std::uint32_t const low[] = {part.add({1, 0, 0}), part.add({30, 18, 0}), part.add({3, 0, 0})};
    std::uint32_t const high[] = {part.add({1, 0, 20}), part.add({30, 18, 20}),
                                  part.add({3, 0, 20})};
    // The side y = 0 anew, with vertices where the wall ends.
    std::erase_if(part.triangles, [&](auto const& t) {
        return part.points[t[0]].Y() == 0 && part.points[t[1]].Y() == 0 &&
               part.points[t[2]].Y() == 0;
    });
    auto const corner = [&](float x, float z) { return part.add({x, 0, z}); };
    std::uint32_t const a = corner(0, 0), b = corner(40, 0), c = corner(40, 20), d = corner(0, 20);
    auto const addQuad = [&](std::uint32_t p, std::uint32_t q, std::uint32_t r, std::uint32_t s) {
        part.add(p, q, r);
        part.add(r, s, p);
    };
    addQuad(a, low[0], high[0], d);
    addQuad(low[0], low[2], high[2], high[0]);
    addQuad(low[2], b, c, high[2]);
    addQuad(low[0], low[1], high[1], high[0]);
    addQuad(low[1], low[2], high[2], high[1]);
    part.joinPoints();
    Halves const halves = cutAt(part, 7);
    expectSolidsAddUp(part, halves, 7, "wall");
}

TEST(PlaneCutCrowdedEdges, AnOpeningAcrossThePlaneIsStillRefusedWithItsPlace)
{
    Soup const part = partOf("opening-across-the-plane");
    try {
        cutAt(part, 20);
        ADD_FAILURE() << "cut all the same";
    } catch (Mell::Exception const& e) {
        std::string const text = e.what();
        EXPECT_NE(text.find("The part is open where the plane meets it, near ("),
                  std::string::npos);
    }
}

TEST(PlaneCutCrowdedEdges, OpeningsBesideThePlaneStayOpen)
{
    Soup const part = partOf("opening-beside-the-plane");
    Halves const halves = cutAt(part, 20);
    EXPECT_EQ(oddEdgesOf(halves.above) + oddEdgesOf(halves.below), oddEdgesOf(part));
}
