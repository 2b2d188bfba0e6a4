// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/ToolFamily.h"

namespace {

using Point = UPoint3<float>;

Soup shifted(Soup soup, Point const& by)
{
    for (Point& p : soup.points)
        p = {p[0] + by[0], p[1] + by[1], p[2] + by[2]};
    return soup;
}

Soup joined(Soup soup, Soup const& other)
{
    soup.append(other);
    return soup;
}

/// Spheres around each other, facing outward and inward by turns.
Soup shells(int count)
{
    Soup all;
    for (int i = 0; i < count; ++i) {
        Soup shell = sphere(float(4 * (count - i)), 9, 14);
        if (i % 2 == 1)
            shell.flip();
        all.append(shell);
    }
    return all;
}

}  // namespace

std::vector<NamedSoup> toolFamily()
{
    std::vector<NamedSoup> all = closedMeshes();
    all.push_back({"shells", shells(5)});
    all.push_back({"apart", joined(box(3, 4, 5), shifted(torus(9, 2, 20, 9), {40, 10, -30}))});
    all.push_back({"needle", shifted(box(0.01f, 0.02f, 900), {0.3f, 0.4f, -450})});
    all.push_back({"plate", box(2000, 1500, 0.5f, {-900, -700, 0.1f})});
    all.push_back({"voxels", randomVoxels(6, 3)});
    all.push_back({"crossing", crossingBoxes()});
    all.push_back({"far away", shifted(sphere(2, 9, 12), {9000, -7000, 5000})});
    Soup turned = sphere(11, 10, 12);
    turned.flip();
    all.push_back({"turned", turned});
    return all;
}

MeshArrays arraysOf(Soup const& soup)
{
    return {soup.points, soup.triangles};
}

TriangleTree::Box boxOf(Point const& p)
{
    return {{p[0], p[1], p[2], 0}, {p[0], p[1], p[2], 0}};
}

TriangleTree::Box boxOf(MeshArrays const& mesh)
{
    TriangleTree::Box box;
    for (Point const& p : mesh.points)
        box.add(boxOf(p));
    return box;
}
