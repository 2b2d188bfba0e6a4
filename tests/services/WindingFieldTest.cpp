// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/WindingField.h"
#include "tests/support/BooleanJudge.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <random>

namespace {

/// A field with all that it borrows.
struct Field
{
    explicit Field(Soup const& soup) : kernel(kernelOf(soup)) {}

    std::unique_ptr<MeshKernel> kernel;
    std::function<void(int)> const nobody;
    StageProgress progress{nobody};
    MeshArrays mesh = copyArrays(*kernel, Frame::World, progress);
    TopologyReport topology = checkTopology(mesh, progress);
    TriangleTree tree{mesh, topology, progress};
    WindingField field{mesh, tree, progress};
};

WindingField::Place randomPlace(UBox3<float> const& box, std::mt19937& random)
{
    auto const between = [&](double low, double high) {
        return low + (high - low) * (random() * 0x1p-32);
    };
    return {between(box.MinX() - 1, box.MaxX() + 1), between(box.MinY() - 1, box.MaxY() + 1),
            between(box.MinZ() - 1, box.MaxZ() + 1)};
}

}  // namespace

TEST(WindingField, IsAWholeNumberForClosedMeshesAsSlowSumsTell)
{
    for (auto const& [name, soup] : closedMeshes()) {
        Field const field(soup);
        std::mt19937 random(3);
        for (int i = 0; i < 100; ++i) {
            auto const place = randomPlace(field.kernel->GetBox(), random);
            UPoint3<double> const point(place[0], place[1], place[2]);
            if (distanceFrom(soup, point) < 1e-3)
                continue;
            EXPECT_NEAR(field.field.at(place), windingNumberAt(soup, point), 0.02) << name;
        }
    }
}

TEST(WindingField, CountsLayersAndCavities)
{
    Soup layers = box(10, 10, 10);
    layers.append(box(4, 4, 4, {3, 3, 3}));
    EXPECT_NEAR(Field(layers).field.at({5, 5, 5}), 2, 1e-9);
    EXPECT_NEAR(Field(layers).field.at({1, 1, 1}), 1, 1e-9);
    layers.flip();
    EXPECT_NEAR(Field(layers).field.at({5, 5, 5}), -2, 1e-9);
}

TEST(WindingField, LiesHalfwayBetweenTheSidesOnATriangleThatIsLeftOut)
{
    Soup const soup = sphere(10, 40, 60);
    Field const field(soup);
    for (std::uint32_t t = 0; t < soup.triangles.size(); t += 37) {
        WindingField::Place middle{};
        for (int k = 0; k < 3; ++k)
            for (int axis = 0; axis < 3; ++axis)
                middle[std::size_t(axis)] += double(field.mesh.point(t, k)[axis]) / 3;
        std::array const itself{t};
        EXPECT_NEAR(field.field.at(middle, itself), 0.5, 0.02);
    }
}

TEST(WindingField, IsTheShareOfTheFullAngleForOpenMeshes)
{
    // From the middle of a cube each of its sides fills a sixth of the sky.
    EXPECT_NEAR(Field(openBox(2, 2, 2)).field.at({1, 1, 1}), 5.0 / 6, 1e-9);
}

TEST(WindingField, OfNothingIsNothing)
{
    EXPECT_EQ(Field(Soup()).field.at({0, 0, 0}), 0);
}
