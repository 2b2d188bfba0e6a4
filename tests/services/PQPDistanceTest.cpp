// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/jobs/Exceptions.h"
#include "platform/services/PQPDistance.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <thread>
#include <vector>

// An independent judge: the least distance over all features of all triangles, by barycentric
// coordinates, in long double.
namespace {

using Real = long double;
using Vec = std::array<Real, 3>;

Vec vec(UPoint3<float> const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

Vec minus(Vec const& a, Vec const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Real dot(Vec const& a, Vec const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The length of p - u s - v t.
Real lengthOfRest(Vec const& p, Vec const& u, Real s, Vec const& v, Real t)
{
    Vec rest;
    for (int i = 0; i < 3; ++i)
        rest[i] = p[i] - u[i] * s - v[i] * t;
    return std::sqrt(dot(rest, rest));
}

Real distanceByFeatures(Vec const& point, Vec const (&corners)[3])
{
    Real nearest = std::numeric_limits<Real>::infinity();
    for (int i = 0; i < 3; ++i) {
        Vec const p = minus(point, corners[i]);
        Vec const u = minus(corners[(i + 1) % 3], corners[i]);
        nearest = std::min(nearest, lengthOfRest(p, u, 0, u, 0));
        if (Real const s = dot(p, u) / dot(u, u); s > 0 && s < 1)
            nearest = std::min(nearest, lengthOfRest(p, u, s, u, 0));
    }
    Vec const p = minus(point, corners[0]);
    Vec const u = minus(corners[1], corners[0]);
    Vec const v = minus(corners[2], corners[0]);
    Real const uu = dot(u, u), uv = dot(u, v), vv = dot(v, v), pu = dot(p, u), pv = dot(p, v);
    Real const area = uu * vv - uv * uv;
    Real const s = (pu * vv - pv * uv) / area;
    Real const t = (pv * uu - pu * uv) / area;
    if (s > 0 && t > 0 && s + t < 1)
        nearest = std::min(nearest, lengthOfRest(p, u, s, v, t));
    return nearest;
}

double distanceByBruteForce(Soup const& soup, UPoint3<float> const& point)
{
    Real nearest = std::numeric_limits<Real>::infinity();
    for (auto const& [a, b, c] : soup.triangles) {
        Vec const corners[3] = {vec(soup.points[a]), vec(soup.points[b]), vec(soup.points[c])};
        nearest = std::min(nearest, distanceByFeatures(vec(point), corners));
    }
    return double(nearest);
}

class RandomPoints
{
public:
    explicit RandomPoints(unsigned seed) : m_generator(seed) {}

    UPoint3<float> operator()(float reach)
    {
        std::uniform_real_distribution<float> along(-reach, reach);
        float const x = along(m_generator), y = along(m_generator);
        return {x, y, along(m_generator)};
    }

private:
    std::mt19937 m_generator;
};

/// Compares at points at all distances from the mesh.
void expectSameAsBruteForce(Soup const& soup, float size, int pointsPerReach, unsigned seed)
{
    auto const kernel = kernelOf(soup);
    PQPDistance const distance(kernel.get(), {});
    RandomPoints random(seed);
    std::mt19937 places(seed);
    for (float const reach : {0.0f, 1e-4f, 0.01f, 0.3f, 2.0f, 100.0f})
        for (int i = 0; i < pointsPerReach; ++i) {
            UPoint3<float> const corner = soup.points[places() % soup.points.size()];
            UPoint3<float> const point = corner + UVector3<float>(random(size).X(), 0, 0) * 0.1f +
                                         (random(size * reach) - UPoint3<float>());
            double const expected = distanceByBruteForce(soup, point);
            EXPECT_NEAR(std::abs(distance.distance(point)), expected, 1e-12 * (size + expected))
                << point.X() << " " << point.Y() << " " << point.Z();
        }
}

}  // namespace

TEST(PQPDistance, IsThatOfTheNearestFaceEdgeOrCorner)
{
    auto const kernel = kernelOf(box(2, 4, 6));
    PQPDistance const distance(kernel.get(), {});
    EXPECT_EQ(std::abs(distance.distance({1, 2, 9})), 3);
    EXPECT_EQ(std::abs(distance.distance({1, -3, 10})), 5);
    EXPECT_EQ(std::abs(distance.distance({4, 6, 7})), 3);
    EXPECT_EQ(std::abs(distance.distance({1, 2, 6})), 0);
    EXPECT_EQ(std::abs(distance.distance({2, 4, 6})), 0);
}

TEST(PQPDistance, CountsInsideASolidToo)
{
    auto const kernel = kernelOf(box(2, 4, 6));
    PQPDistance const distance(kernel.get(), {});
    EXPECT_EQ(std::abs(distance.distance({1, 2, 3})), 1);
    EXPECT_EQ(std::abs(distance.distance({1, 0.25f, 3})), 0.25);
}

TEST(PQPDistance, AgreesWithBruteForceOnEveryShape)
{
    for (auto const& [name, soup] : closedMeshes()) {
        SCOPED_TRACE(name);
        expectSameAsBruteForce(soup, 10, 8, 1);
    }
}

TEST(PQPDistance, AgreesWithBruteForceOnLooseTriangles)
{
    for (unsigned seed = 1; seed <= 5; ++seed) {
        RandomPoints random(seed);
        Soup soup;
        for (int i = 0; i < 700; ++i) {
            UPoint3<float> const first = random(50);
            UVector3<float> const edge = random(4) - UPoint3<float>();
            std::uint32_t const a = soup.add(first);
            std::uint32_t const b = soup.add(first + edge);
            // Every fourth is a needle, or has no area or no length.
            UVector3<float> const other = i % 4    ? random(4) - UPoint3<float>()
                                          : i % 16 ? edge * 0.3f
                                                   : UVector3<float>();
            soup.add(a, b, soup.add(first + other));
        }
        expectSameAsBruteForce(soup, 50, 30, seed);
    }
}

TEST(PQPDistance, AgreesWithBruteForceForAnySmallNumberOfTriangles)
{
    Soup const ball = sphere(5, 8, 9);
    for (std::size_t count = 1; count <= 70; ++count) {
        Soup soup = ball;
        soup.triangles.resize(count);
        expectSameAsBruteForce(soup, 5, 1, unsigned(count));
    }
}

TEST(PQPDistance, AgreesWithBruteForceFarFromTheOrigin)
{
    expectSameAsBruteForce(
        moved(sphere(5, 20, 20), UMatrix4<float>(std::array<float, 16>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0,
                                                                       1, 0, 3e4f, -5e4f, 1e5f, 1}
                                                     .data())),
        5, 40, 7);
}

TEST(PQPDistance, StandsUpToCoordinatesBeyondTheSquareRootOfFloat)
{
    auto const kernel = kernelOf(box(3e30f, 3e30f, 3e30f));
    PQPDistance const distance(kernel.get(), {});
    EXPECT_NEAR(distance.distance({1e30f, 1e30f, 5e30f}) / 2e30, 1, 1e-6);
    EXPECT_NEAR(distance.distance({1e30f, 1e30f, -3e38f}) / 3e38, 1, 1e-6);
}

TEST(PQPDistance, ReadsTheKernelThroughItsMatrix)
{
    auto const kernel = kernelOf(box(1, 1, 1));
    float const values[16] = {2, 0, 0, 0, 0, 2, 0, 0, 0, 0, -2, 0, 10, 0, 0, 1};
    kernel->getMatrix() = UMatrix4<float>(values);
    PQPDistance const distance(kernel.get(), {});
    EXPECT_EQ(std::abs(distance.distance({15, 1, -1})), 3);
    EXPECT_EQ(std::abs(distance.distance({11, 1, -6})), 4);
}

TEST(PQPDistance, NeedsTheKernelNoMoreOnceItIsBuilt)
{
    auto kernel = kernelOf(box(1, 1, 1));
    PQPDistance const distance(kernel.get(), {});
    for (UVertex<float>* const vertex : kernel->getMesh()->vertices)
        vertex->P() = {100, 100, 100};
    EXPECT_EQ(std::abs(distance.distance({3, 0.5f, 0.5f})), 2);
    kernel.reset();
    EXPECT_EQ(std::abs(distance.distance({3, 0.5f, 0.5f})), 2);
}

TEST(PQPDistance, IsInfiniteWithoutAnythingToMeasureTo)
{
    double const infinity = std::numeric_limits<double>::infinity();
    MeshKernel empty;
    EXPECT_EQ(PQPDistance(&empty, {}).distance({1, 2, 3}), infinity);
    auto const kernel = kernelOf(box(1, 1, 1));
    PQPDistance const distance(kernel.get(), {});
    EXPECT_EQ(distance.distance({std::numeric_limits<float>::quiet_NaN(), 0, 0}), infinity);
    EXPECT_EQ(distance.distance({0, std::numeric_limits<float>::infinity(), 0}), infinity);
}

TEST(PQPDistance, LeavesTrianglesWithoutNumbersOut)
{
    Soup soup = box(1, 1, 1);
    std::uint32_t const lost = soup.add({std::numeric_limits<float>::quiet_NaN(), 0, 5});
    soup.add(0, 1, lost);
    auto const kernel = kernelOf(soup);
    EXPECT_EQ(PQPDistance(kernel.get(), {}).distance({0.5f, 0.5f, 3}), 2);
}

TEST(PQPDistance, GivesTheSameToAllThreads)
{
    auto const kernel = kernelOf(torus(20, 5, 200, 100));
    PQPDistance const distance(kernel.get(), {});
    RandomPoints random(3);
    std::vector<UPoint3<float>> points;
    for (int i = 0; i < 5000; ++i)
        points.push_back(random(40));
    auto const measure = [&](std::vector<double>& results) {
        for (UPoint3<float> const& point : points)
            results.push_back(distance.distance(point));
    };
    std::vector<double> alone;
    measure(alone);
    std::vector<double> together[4];
    std::vector<std::thread> threads;
    for (std::vector<double>& results : together)
        threads.emplace_back([&] { measure(results); });
    for (std::thread& thread : threads)
        thread.join();
    for (std::vector<double> const& results : together)
        EXPECT_EQ(results, alone);
}

TEST(PQPDistance, DoesNotDependOnTheNumberOfThreadsThatBuildIt)
{
    auto const kernel = kernelOf(torus(20, 5, 200, 100));
    PQPDistance const many(kernel.get(), {});
    tbb::global_control const oneThread(tbb::global_control::max_allowed_parallelism, 1);
    PQPDistance const one(kernel.get(), {});
    RandomPoints random(4);
    for (int i = 0; i < 2000; ++i) {
        UPoint3<float> const point = random(40);
        EXPECT_EQ(many.distance(point), one.distance(point));
    }
}

TEST(PQPDistance, ReportsRisingPercentagesOnTheCallersThread)
{
    auto const kernel = kernelOf(sphere(50, 200, 300));
    std::vector<int> reported;
    std::thread::id const caller = std::this_thread::get_id();
    PQPDistance const distance(kernel.get(), [&](int percent) {
        EXPECT_EQ(std::this_thread::get_id(), caller);
        reported.push_back(percent);
    });
    ASSERT_GE(reported.size(), 2u);
    EXPECT_EQ(reported.front(), 0);
    EXPECT_EQ(reported.back(), 100);
    EXPECT_TRUE(std::is_sorted(reported.begin(), reported.end()));
}

TEST(PQPDistance, LetsACancelPassAtEveryReport)
{
    auto const kernel = kernelOf(sphere(50, 300, 400));
    int cancelled = 0;
    for (int reports = 0;; ++reports) {
        int left = reports;
        try {
            PQPDistance(kernel.get(), [&](int) {
                if (left-- == 0)
                    throw Mell::AbortException("Aborting...");
            });
            break;
        } catch (Mell::AbortException const& e) {
            EXPECT_STREQ(e.what(), "Aborting...");
            ++cancelled;
        }
    }
    EXPECT_GE(cancelled, 3);
}
