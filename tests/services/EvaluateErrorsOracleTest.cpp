// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/Repair.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Rounds.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <set>
#include <vector>

// An independent judge of pairs of triangles with integer coordinates: it lists the points that
// span what the two have in common, as fractions, and asks whether all lie in what they share.
namespace {

__extension__ using Wide = __int128;

struct Vec
{
    Wide x, y, z;
    Vec operator-(Vec const& o) const { return {x - o.x, y - o.y, z - o.z}; }
    Vec operator+(Vec const& o) const { return {x + o.x, y + o.y, z + o.z}; }
    Vec operator*(Wide s) const { return {x * s, y * s, z * s}; }
    bool operator==(Vec const&) const = default;
};

Wide dot(Vec const& a, Vec const& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vec cross(Vec const& a, Vec const& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

using Triangle = std::array<Vec, 3>;

/// A point as numerator and a positive denominator.
struct Fraction
{
    Vec n;
    Wide d;
};

bool isIn(Fraction const& p, Triangle const& t)
{
    Vec const normal = cross(t[1] - t[0], t[2] - t[0]);
    if (dot(normal, p.n - t[0] * p.d) != 0)
        return false;
    for (int i = 0; i < 3; ++i)
        if (dot(cross(t[(i + 1) % 3] - t[i], p.n - t[i] * p.d), normal) < 0)
            return false;
    return true;
}

bool isOn(Fraction const& p, Vec const& a, Vec const& b)
{
    Vec const along = p.n - a * p.d;
    Wide const reach = dot(along, b - a);
    return cross(b - a, along) == Vec{0, 0, 0} && reach >= 0 && reach <= p.d * dot(b - a, b - a);
}

void addCrossingOfPlane(Vec const& a, Vec const& b, Triangle const& t,
                        std::vector<Fraction>& points)
{
    Vec const normal = cross(t[1] - t[0], t[2] - t[0]);
    Wide const ofA = dot(normal, a - t[0]);
    Wide const ofB = dot(normal, b - t[0]);
    if (ofA == ofB || (ofA > 0 && ofB > 0) || (ofA < 0 && ofB < 0))
        return;
    Wide const sign = ofA > ofB ? 1 : -1;
    Fraction const point{a * (sign * (ofA - ofB)) + (b - a) * (sign * ofA), sign * (ofA - ofB)};
    if (isIn(point, t))
        points.push_back(point);
}

void addCrossingOfEdges(Vec const& a, Vec const& b, Vec const& c, Vec const& e,
                        std::vector<Fraction>& points)
{
    Vec const u = b - a, v = e - c, w = c - a, normal = cross(u, v);
    Wide const d = dot(normal, normal);
    if (d == 0 || dot(w, normal) != 0)
        return;
    Wide const s = dot(cross(w, v), normal), t = dot(cross(w, u), normal);
    if (s >= 0 && s <= d && t >= 0 && t <= d)
        points.push_back({a * d + u * s, d});
}

/// Points whose convex hull is what the triangles have in common.
std::vector<Fraction> commonPoints(Triangle const& p, Triangle const& q)
{
    std::vector<Fraction> points;
    for (int i = 0; i < 3; ++i) {
        if (isIn({p[i], 1}, q))
            points.push_back({p[i], 1});
        if (isIn({q[i], 1}, p))
            points.push_back({q[i], 1});
        addCrossingOfPlane(p[i], p[(i + 1) % 3], q, points);
        addCrossingOfPlane(q[i], q[(i + 1) % 3], p, points);
        for (int j = 0; j < 3; ++j)
            addCrossingOfEdges(p[i], p[(i + 1) % 3], q[j], q[(j + 1) % 3], points);
    }
    return points;
}

bool doMeet(Triangle const& p, Triangle const& q)
{
    std::vector<Vec> shared;
    for (Vec const& a : p)
        for (Vec const& b : q)
            if (a == b)
                shared.push_back(a);
    if (shared.size() == 3)
        return true;
    for (Fraction const& point : commonPoints(p, q)) {
        bool const isShared = (shared.size() == 1 && point.n == shared[0] * point.d) ||
                              (shared.size() == 2 && isOn(point, shared[0], shared[1]));
        if (!isShared)
            return true;
    }
    return false;
}

std::size_t pairsThatMeet(Soup const& soup)
{
    std::vector<Triangle> triangles;
    std::vector<std::set<std::uint32_t>> vertices;
    for (auto const& t : soup.triangles) {
        Triangle triangle;
        for (int k = 0; k < 3; ++k) {
            auto const& p = soup.points[t[k]];
            triangle[k] = {Wide(p.X()), Wide(p.Y()), Wide(p.Z())};
        }
        if (cross(triangle[1] - triangle[0], triangle[2] - triangle[0]) == Vec{0, 0, 0})
            continue;
        triangles.push_back(triangle);
        vertices.emplace_back(t.begin(), t.end());
    }
    std::size_t pairs = 0;
    for (std::size_t i = 0; i < triangles.size(); ++i)
        for (std::size_t j = i + 1; j < triangles.size(); ++j)
            pairs += vertices[i] != vertices[j] && doMeet(triangles[i], triangles[j]);
    return pairs;
}

std::size_t countedPairs(Soup const& soup)
{
    auto const kernel = kernelOf(soup);
    Repair::EvaluateErrors errors(kernel.get());
    errors.evaluate(Repair::EvaluateErrors::ERROR_INTERSECTIONS, true, true, {});
    return errors.counts().selfIntersections;
}

/// Triangles between random points of a grid; points at one place are joined or not.
Soup randomSoup(unsigned seed, int triangles, int size)
{
    std::mt19937 random(seed);
    auto const coordinate = [&] { return float(random() % unsigned(size)); };
    Soup soup;
    for (int t = 0; t < triangles; ++t) {
        std::uint32_t corners[3];
        for (std::uint32_t& corner : corners) {
            float const x = coordinate(), y = coordinate(), z = coordinate();
            corner = soup.add({x, y, z});
        }
        soup.add(corners[0], corners[1], corners[2]);
    }
    if (seed % 2 == 0)
        soup.joinPoints();
    return soup;
}

/// A closed mesh with its points rounded to a coarse grid: flat regions, folds, slivers.
Soup onGrid(Soup soup, float scale)
{
    for (auto& point : soup.points)
        for (int axis = 0; axis < 3; ++axis)
            point[axis] = std::round(point[axis] * scale);
    return soup;
}

}  // namespace

TEST(EvaluateErrors, FindsTheMeetingPairsOfCoarseSoups)
{
    for (unsigned seed = 0; seed < unsigned(rounds(120)); ++seed) {
        Soup const soup = randomSoup(seed, 40, seed % 3 == 0 ? 3 : 6);
        EXPECT_EQ(countedPairs(soup), pairsThatMeet(soup)) << "seed " << seed;
    }
}

TEST(EvaluateErrors, FindsTheMeetingPairsOfFineSoups)
{
    for (unsigned seed = 0; seed < unsigned(rounds(20)); ++seed) {
        Soup const soup = randomSoup(seed, 60, 4000);
        EXPECT_EQ(countedPairs(soup), pairsThatMeet(soup)) << "seed " << seed;
    }
}

TEST(EvaluateErrors, FindsTheMeetingPairsOfMeshesOnAGrid)
{
    for (float scale : {0.3f, 0.5f, 0.8f, 1.3f, 2.1f}) {
        Soup const ring = onGrid(torus(10, 4, 24, 14), scale);
        EXPECT_EQ(countedPairs(ring), pairsThatMeet(ring)) << "scale " << scale;
        Soup const ball = shuffled(onGrid(sphere(9, 12, 20), scale), 3);
        EXPECT_EQ(countedPairs(ball), pairsThatMeet(ball)) << "scale " << scale;
        Soup joined = ball;
        joined.joinPoints();
        EXPECT_EQ(countedPairs(joined), pairsThatMeet(joined)) << "scale " << scale;
    }
}
