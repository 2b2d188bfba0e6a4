// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/MeshBuilders.h"

#include "tests/support/Places.h"
#include "tests/support/Rounds.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <numbers>
#include <random>

namespace {

using Index = std::uint32_t;

void addQuad(Soup& soup, Index a, Index b, Index c, Index d)
{
    soup.add(a, b, c);
    soup.add(a, c, d);
}

std::vector<Index> addCircle(Soup& soup, float radius, float z, int facets)
{
    std::vector<Index> ring;
    for (int i = 0; i < facets; ++i) {
        double const angle = 2 * std::numbers::pi * i / facets;
        ring.push_back(
            soup.add({float(radius * std::cos(angle)), float(radius * std::sin(angle)), z}));
    }
    return ring;
}

/// Quads between two rings; seen from outside `lower` runs anticlockwise about the axis.
void addWall(Soup& soup, std::vector<Index> const& lower, std::vector<Index> const& upper)
{
    for (std::size_t i = 0; i < lower.size(); ++i) {
        std::size_t const k = (i + 1) % lower.size();
        addQuad(soup, lower[i], lower[k], upper[k], upper[i]);
    }
}

/// The unit cell faces of a voxel set, each voxel a cube of side `side`.
class VoxelSolid
{
public:
    explicit VoxelSolid(int size) : m_size(size), m_filled(std::size_t(size * size * size), false)
    {}

    void fill(int x, int y, int z) { m_filled[place(x, y, z)] = true; }

    Soup boundary(float side) const
    {
        Soup soup;
        static int const axes[3][3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
        for (int z = 0; z < m_size; ++z)
            for (int y = 0; y < m_size; ++y)
                for (int x = 0; x < m_size; ++x)
                    for (int axis = 0; axis < 3; ++axis)
                        for (int way = -1; way <= 1; way += 2)
                            if (isFilled(x, y, z) &&
                                !isFilled(x + way * axes[axis][0], y + way * axes[axis][1],
                                          z + way * axes[axis][2]))
                                addFace(soup, x, y, z, axis, way, side);
        soup.joinPoints();
        return soup;
    }

private:
    std::size_t place(int x, int y, int z) const
    {
        return std::size_t((z * m_size + y) * m_size + x);
    }

    bool isFilled(int x, int y, int z) const
    {
        bool const isInside = x >= 0 && y >= 0 && z >= 0 && x < m_size && y < m_size && z < m_size;
        return isInside && m_filled[place(x, y, z)];
    }

    static void addFace(Soup& soup, int x, int y, int z, int axis, int way, float side)
    {
        float corner[3] = {float(x), float(y), float(z)};
        corner[axis] += way > 0 ? 1.0f : 0.0f;
        int const u = (axis + 1) % 3;
        int const v = (axis + 2) % 3;
        Index quad[4];
        int const steps[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
        for (int i = 0; i < 4; ++i) {
            float p[3] = {corner[0], corner[1], corner[2]};
            p[u] += float(steps[i][0]);
            p[v] += float(steps[i][1]);
            quad[i] = soup.add({p[0] * side, p[1] * side, p[2] * side});
        }
        if (way > 0)
            addQuad(soup, quad[0], quad[1], quad[2], quad[3]);
        else
            addQuad(soup, quad[3], quad[2], quad[1], quad[0]);
    }

    int m_size;
    std::vector<bool> m_filled;
};

}  // namespace

Soup box(float x, float y, float z, UPoint3<float> const& low)
{
    Soup soup;
    for (int i = 0; i < 8; ++i)
        soup.add({low.X() + (i & 1 ? x : 0), low.Y() + (i & 2 ? y : 0), low.Z() + (i & 4 ? z : 0)});
    addQuad(soup, 0, 2, 3, 1);
    addQuad(soup, 4, 5, 7, 6);
    addQuad(soup, 0, 1, 5, 4);
    addQuad(soup, 2, 6, 7, 3);
    addQuad(soup, 0, 4, 6, 2);
    addQuad(soup, 1, 3, 7, 5);
    return soup;
}

Soup cylinder(float radius, float height, int facets)
{
    Soup soup;
    auto const lower = addCircle(soup, radius, 0, facets);
    auto const upper = addCircle(soup, radius, height, facets);
    addWall(soup, lower, upper);
    Index const bottom = soup.add({0, 0, 0});
    Index const top = soup.add({0, 0, height});
    for (std::size_t i = 0; i < lower.size(); ++i) {
        std::size_t const k = (i + 1) % lower.size();
        soup.add(bottom, lower[k], lower[i]);
        soup.add(top, upper[i], upper[k]);
    }
    return soup;
}

Soup tube(float outer, float inner, float height, int facets)
{
    Soup soup;
    auto const outerLow = addCircle(soup, outer, 0, facets);
    auto const outerHigh = addCircle(soup, outer, height, facets);
    auto const innerLow = addCircle(soup, inner, 0, facets);
    auto const innerHigh = addCircle(soup, inner, height, facets);
    addWall(soup, outerLow, outerHigh);
    addWall(soup, outerHigh, innerHigh);
    addWall(soup, innerHigh, innerLow);
    addWall(soup, innerLow, outerLow);
    return soup;
}

Soup torus(float ring, float pipe, int around, int across)
{
    Soup soup;
    std::vector<std::vector<Index>> rings;
    for (int k = 0; k < across; ++k) {
        double const angle = 2 * std::numbers::pi * k / across;
        rings.push_back(addCircle(soup, float(ring + pipe * std::cos(angle)),
                                  float(pipe * std::sin(angle)), around));
    }
    for (std::size_t k = 0; k < rings.size(); ++k)
        addWall(soup, rings[k], rings[(k + 1) % rings.size()]);
    return soup;
}

Soup sphere(float radius, int rings, int segments, UPoint3<float> const& centre)
{
    Soup soup;
    std::vector<std::vector<Index>> circles;
    for (int k = 1; k < rings; ++k) {
        double const angle = std::numbers::pi * k / rings - std::numbers::pi / 2;
        circles.push_back(addCircle(soup, float(radius * std::cos(angle)),
                                    float(radius * std::sin(angle)), segments));
    }
    for (std::size_t k = 0; k + 1 < circles.size(); ++k)
        addWall(soup, circles[k], circles[k + 1]);
    Index const bottom = soup.add({0, 0, -radius});
    Index const top = soup.add({0, 0, radius});
    for (std::size_t i = 0; i < circles[0].size(); ++i) {
        std::size_t const k = (i + 1) % circles[0].size();
        soup.add(bottom, circles.front()[k], circles.front()[i]);
        soup.add(top, circles.back()[i], circles.back()[k]);
    }
    for (auto& p : soup.points)
        p += UVector3<float>(centre.X(), centre.Y(), centre.Z());
    return soup;
}

Soup lattice(int cells)
{
    int const size = 2 * cells + 1;
    VoxelSolid solid(size);
    for (int z = 0; z < size; ++z)
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x)
                if (x % 2 + y % 2 + z % 2 <= 1)
                    solid.fill(x, y, z);
    return solid.boundary(2.5f);
}

Soup randomVoxels(int size, unsigned seed)
{
    std::mt19937 random(seed);
    VoxelSolid solid(size);
    for (int z = 0; z < size; ++z)
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x)
                if (random() % 2 == 0)
                    solid.fill(x, y, z);
    return solid.boundary(1);
}

Soup fromFrontView(std::vector<std::string> const& rows)
{
    std::size_t size = rows.size();
    for (std::string const& row : rows)
        size = std::max(size, row.size());
    VoxelSolid solid{int(size)};
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t x = 0; x < rows[row].size(); ++x)
            if (rows[row][x] == '#')
                solid.fill(int(x), 0, int(rows.size() - 1 - row));
    return solid.boundary(10);
}

Soup nestedBoxes()
{
    Soup soup = box(40, 30, 20);
    Soup cavity = box(30, 20, 12, {5, 5, 4});
    cavity.flip();
    soup.append(cavity);
    soup.append(box(10, 8, 6, {12, 9, 7}));
    return soup;
}

Soup openBox(float x, float y, float z)
{
    Soup soup = box(x, y, z);
    soup.triangles.erase(soup.triangles.begin() + 2, soup.triangles.begin() + 4);
    return soup;
}

Soup crossingBoxes()
{
    Soup soup = box(20, 20, 20);
    soup.append(box(20, 20, 20, {9.5f, 8.25f, 7.125f}));
    return soup;
}

Soup boxesSharingAnEdge()
{
    Soup soup = box(10, 10, 10);
    soup.append(box(10, 10, 10, {10, 10, 0}));
    soup.joinPoints();
    return soup;
}

std::vector<NamedSoup> closedMeshes()
{
    return {{"box", box(20, 30, 10)},       {"cylinder", cylinder(12, 25, 48)},
            {"tube", tube(15, 9, 20, 36)},  {"torus", torus(20, 6, 60, 24)},
            {"sphere", sphere(17, 24, 48)}, {"lattice", lattice(3)},
            {"nested boxes", nestedBoxes()}};
}

Soup realMesh(std::string const& fileName)
{
    if (isUnderSanitizers)
        return {};
    std::ifstream file(realModelPath(fileName), std::ios::binary);
    std::vector<char> const bytes{std::istreambuf_iterator<char>(file), {}};
    Soup soup;
    if (bytes.size() < 84)
        return soup;
    std::uint32_t count = 0;
    std::memcpy(&count, bytes.data() + 80, 4);
    for (std::size_t i = 0; i < count; ++i) {
        float corners[9];
        std::memcpy(corners, bytes.data() + 84 + i * 50 + 12, sizeof corners);
        Index const a = soup.add({corners[0], corners[1], corners[2]});
        soup.add({corners[3], corners[4], corners[5]});
        soup.add({corners[6], corners[7], corners[8]});
        soup.add(a, a + 1, a + 2);
    }
    soup.joinPoints();
    return soup;
}

std::vector<NamedSoup> closedRealMeshes(std::size_t maximumTriangles)
{
    static char const* const names[] = {"cow-6k.stl",         "spot-6k.stl",   "fandisk-13k.stl",
                                        "rocker-arm-20k.stl", "bunny-60k.stl", "armadillo-86k.stl",
                                        "nefertiti-100k.stl", "igea-269k.stl"};
    std::vector<NamedSoup> meshes;
    for (char const* const name : names)
        if (Soup soup = realMesh(name);
            !soup.triangles.empty() && soup.triangles.size() <= maximumTriangles)
            meshes.push_back({name, std::move(soup)});
    return meshes;
}
