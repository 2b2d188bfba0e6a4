// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Soup.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <random>
#include <tuple>
#include <unordered_map>

void Soup::append(Soup const& other)
{
    auto const base = std::uint32_t(points.size());
    points.insert(points.end(), other.points.begin(), other.points.end());
    for (auto const& t : other.triangles)
        add(t[0] + base, t[1] + base, t[2] + base);
}

void Soup::flip()
{
    for (auto& t : triangles)
        std::swap(t[1], t[2]);
}

void Soup::joinPoints()
{
    std::map<std::tuple<float, float, float>, std::uint32_t> places;
    std::vector<std::uint32_t> renamed;
    std::vector<UPoint3<float>> joined;
    for (auto const& p : points) {
        auto const [place, isNew] =
            places.try_emplace({p.X() + 0.0f, p.Y() + 0.0f, p.Z() + 0.0f}, joined.size());
        if (isNew)
            joined.push_back(p);
        renamed.push_back(place->second);
    }
    points = std::move(joined);
    for (auto& t : triangles)
        t = {renamed[t[0]], renamed[t[1]], renamed[t[2]]};
}

std::unique_ptr<MeshKernel> kernelOf(Soup const& soup)
{
    auto* const mesh = new UMesh<float>;
    for (auto const& p : soup.points)
        mesh->AddVertex(new UVertex<float>(p));
    for (auto const& t : soup.triangles) {
        auto* const triangle = new UTriangle<float>;
        for (int i = 0; i < 3; ++i)
            triangle->V0(i) = mesh->vertices[t[std::size_t(i)]];
        triangle->N() = triangle->ComputeNormalizedNormal();
        mesh->AddTriangle(triangle);
    }
    mesh->UpdateVertsID();
    mesh->UpdateTrisID();
    auto kernel = std::make_unique<MeshKernel>(mesh);
    kernel->UpdateBoundingBox();
    return kernel;
}

Soup soupOf(MeshKernel const& kernel)
{
    Soup soup;
    auto const mesh = kernel.readMesh();
    std::unordered_map<UVertex<float> const*, std::uint32_t> places;
    for (UVertex<float> const* const vertex : mesh->vertices)
        places[vertex] = soup.add(kernel.getMatrix() * vertex->cP());
    for (UTriangle<float> const* const t : mesh->triangles)
        soup.add(places.at(t->cV(0)), places.at(t->cV(1)), places.at(t->cV(2)));
    return soup;
}

Soup moved(Soup soup, UMatrix4<float> const& matrix)
{
    for (auto& p : soup.points)
        p = matrix * p;
    if (matrix.linearDeterminant() < 0)
        soup.flip();
    return soup;
}

Soup shuffled(Soup const& soup, unsigned seed)
{
    std::mt19937 random(seed);
    std::vector<std::uint32_t> order(soup.points.size());
    std::iota(order.begin(), order.end(), 0u);
    std::shuffle(order.begin(), order.end(), random);
    Soup result;
    result.points.resize(soup.points.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        result.points[order[i]] = soup.points[i];
    result.triangles = soup.triangles;
    std::shuffle(result.triangles.begin(), result.triangles.end(), random);
    for (auto& t : result.triangles) {
        t = {order[t[0]], order[t[1]], order[t[2]]};
        std::rotate(t.begin(), t.begin() + random() % 3, t.end());
    }
    return result;
}

Soup subdivided(Soup const& soup)
{
    struct Edge
    {
        std::uint32_t middle;
        UVector3<double> opposite;
        int sides;
    };
    auto const vectorOf = [](UPoint3<float> const& p) {
        return UVector3<double>(p.X(), p.Y(), p.Z());
    };
    Soup result;
    result.points = soup.points;
    std::unordered_map<std::uint64_t, Edge> edges;
    edges.reserve(soup.triangles.size() * 2);
    auto const keyOf = [](std::uint32_t a, std::uint32_t b) {
        return (std::uint64_t(std::min(a, b)) << 32) | std::max(a, b);
    };
    for (auto const& t : soup.triangles)
        for (std::size_t i = 0; i < 3; ++i) {
            auto const [edge, isNew] =
                edges.try_emplace(keyOf(t[i], t[(i + 1) % 3]), Edge{0, {}, 0});
            if (isNew)
                edge->second.middle = result.add({});
            edge->second.opposite += vectorOf(soup.points[t[(i + 2) % 3]]);
            ++edge->second.sides;
        }
    for (auto const& [key, edge] : edges) {
        auto const ends =
            vectorOf(soup.points[key >> 32]) + vectorOf(soup.points[key & 0xffffffff]);
        UVector3<double> const p =
            edge.sides == 2 ? ends * 0.375 + edge.opposite * 0.125 : ends * 0.5;
        result.points[edge.middle] = {float(p.X()), float(p.Y()), float(p.Z())};
    }
    for (auto const& t : soup.triangles) {
        std::uint32_t const ab = edges.at(keyOf(t[0], t[1])).middle;
        std::uint32_t const bc = edges.at(keyOf(t[1], t[2])).middle;
        std::uint32_t const ca = edges.at(keyOf(t[2], t[0])).middle;
        result.add(t[0], ab, ca);
        result.add(t[1], bc, ab);
        result.add(t[2], ca, bc);
        result.add(ab, bc, ca);
    }
    return result;
}
