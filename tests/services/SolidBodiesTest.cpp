// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/SolidBodies.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

namespace {

Soup together(std::vector<Soup> const& soups)
{
    Soup sum;
    for (Soup const& soup : soups)
        sum.append(soup);
    return sum;
}

Soup turned(Soup soup)
{
    soup.flip();
    return soup;
}

std::vector<Soup> bodies(Soup const& soup, std::size_t most = 1000)
{
    std::vector<Soup> result;
    for (auto const& body : bodiesOf(*kernelOf(soup), most, nullptr, {}))
        result.push_back(soupOf(*body));
    return result;
}

}  // namespace

TEST(SolidBodies, AreWhatHangsTogether)
{
    auto const found =
        bodies(together({box(1, 2, 3), box(1, 1, 1, {5, 0, 0}), torus(9, 1, 20, 9)}));
    ASSERT_EQ(found.size(), 3u);
    EXPECT_NEAR(volumeOf(found[0]), 6, 1e-9);
    EXPECT_NEAR(volumeOf(found[1]), 1, 1e-9);
    for (Soup const& body : found)
        EXPECT_EQ(closedSolidFaults(body), "");
}

TEST(SolidBodies, KeepTheirCavitiesAndLetGoWhatLiesInThem)
{
    // Two blocks side by side with a cavity each; in the second one's cavity lies a block that has a
    // cavity too. A cavity by itself would be a solid inside out.
    Soup const soup =
        together({box(10, 10, 10), box(20, 20, 20, {20, 0, 0}), turned(box(16, 16, 16, {22, 2, 2})),
                  turned(box(4, 4, 4, {3, 3, 3})), box(8, 8, 8, {24, 4, 4}),
                  turned(box(2, 2, 2, {25, 5, 5}))});
    auto const found = bodies(soup);
    ASSERT_EQ(found.size(), 3u);
    EXPECT_NEAR(volumeOf(found[0]), 1000 - 64, 1e-6);
    EXPECT_NEAR(volumeOf(found[1]), 8000 - 4096, 1e-6);
    EXPECT_NEAR(volumeOf(found[2]), 512 - 8, 1e-6);
}

TEST(SolidBodies, AddUpToTheWhole)
{
    for (auto const& [name, soup] : closedMeshes()) {
        double volume = 0, area = 0;
        std::size_t triangles = 0;
        for (Soup const& body : bodies(soup)) {
            EXPECT_EQ(closedSolidFaults(body), "") << name;
            volume += volumeOf(body);
            area += areaOf(body);
            triangles += body.triangles.size();
        }
        EXPECT_NEAR(volume, volumeOf(soup), 1e-6 * std::abs(volumeOf(soup))) << name;
        EXPECT_NEAR(area, areaOf(soup), 1e-6 * areaOf(soup)) << name;
        EXPECT_EQ(triangles, soup.triangles.size()) << name;
    }
}

TEST(SolidBodies, StandWhereTheWholeStands)
{
    auto const kernel = kernelOf(together({box(1, 1, 1), box(1, 1, 1, {2, 0, 0})}));
    // Turned and moved.
    kernel->getMatrix()(0, 0) = kernel->getMatrix()(1, 1) = -1;
    kernel->getMatrix()(2, 3) = 7;
    auto const found = bodiesOf(*kernel, 10, nullptr, {});
    ASSERT_EQ(found.size(), 2u);
    Soup const second = soupOf(*found[1]);
    EXPECT_NEAR(volumeOf(second), 1, 1e-9);
    EXPECT_EQ(found[1]->GetBox().MinX(), -3);
    EXPECT_EQ(found[1]->GetBox().MinZ(), 7);
}

TEST(SolidBodies, OfAnOpenShellAreMadeToo)
{
    auto const found = bodies(together({openBox(2, 2, 2), box(1, 1, 1, {5, 0, 0})}));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(borderEdgesOf(found[0]), 4u);
}

TEST(SolidBodies, AreCountedWhereTheyAreTooMany)
{
    std::vector<Soup> boxes;
    for (int i = 0; i < 12; ++i)
        boxes.push_back(box(1, 1, 1, {2.0f * float(i), 0, 0}));
    std::size_t count = 0;
    EXPECT_TRUE(bodiesOf(*kernelOf(together(boxes)), 11, &count, {}).empty());
    EXPECT_EQ(count, 12u);
    EXPECT_EQ(bodiesOf(*kernelOf(together(boxes)), 12, &count, {}).size(), 12u);
}
