// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/FilmRemoval.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

namespace {

Soup withoutFilms(Soup const& soup, std::size_t expected)
{
    std::function<void(int)> const unasked;
    StageProgress progress(unasked);
    MeshArrays mesh{soup.points, soup.triangles};
    EXPECT_EQ(removeFilms(mesh, progress), expected);
    return {mesh.points, mesh.triangles};
}

}  // namespace

TEST(FilmRemoval, LeavesSolidsAlone)
{
    for (auto const& [name, soup] : closedMeshes())
        EXPECT_EQ(withoutFilms(soup, 0).triangles, soup.triangles) << name;
}

TEST(FilmRemoval, OpensTheWallBetweenTwoSolids)
{
    // Every box has its own corners; with the wall they become one box.
    Soup soup = box(4, 4, 4);
    float const mirror[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1, 0, 0, 0, 8, 1};
    soup.append(moved(soup, UMatrix4<float>(mirror)));
    Soup const same = withoutFilms(soup, 4);
    EXPECT_EQ(closedSolidFaults(same), "");
    EXPECT_DOUBLE_EQ(volumeOf(same), 128);
    EXPECT_DOUBLE_EQ(areaOf(same), 4 * 4 * 2 + 8 * 4 * 4);
    EXPECT_EQ(componentsOf(same), 1u);
}

TEST(FilmRemoval, KeepsLayersThatFaceTheSameWay)
{
    Soup soup = box(4, 4, 4);
    soup.append(box(4, 4, 4));
    EXPECT_EQ(withoutFilms(soup, 0).triangles.size(), 24u);
    Soup turned = box(4, 4, 4);
    turned.flip();
    soup.append(turned);
    Soup const left = withoutFilms(soup, 24);
    EXPECT_EQ(closedSolidFaults(left), "");
    EXPECT_DOUBLE_EQ(volumeOf(left), 64);
}
