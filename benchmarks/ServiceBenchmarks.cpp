// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"
#include "platform/services/EarcutPolygon.h"
#include "platform/services/POLYGON.h"
#include "platform/services/PQPDistance.h"

#include <benchmark/benchmark.h>
#include <tbb/global_control.h>

#include <cmath>
#include <numbers>
#include <random>
#include <stdexcept>
#include <vector>

namespace {

using Ring = std::vector<std::array<double, 2>>;

/// Argument: the number of threads.
void buildDistance(benchmark::State& state)
{
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism,
                                      std::size_t(state.range(0)));
    MeshKernel part(largePart(1));
    for (auto _ : state)
        benchmark::DoNotOptimize(PQPDistance(&part, {}));
    double const triangles = double(part.readMesh()->triangles.size());
    state.counters["ns/triangle"] =
        benchmark::Counter(triangles * double(state.iterations()) * 1e-9,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// Argument: how far from the surface the points lie at most, in thousandths of the part's size.
void queryDistance(benchmark::State& state)
{
    MeshKernel part(largePart(1));
    PQPDistance const distance(&part, {});
    auto const& vertices = part.readMesh()->vertices;
    float const reach =
        (part.GetBox().max - part.GetBox().min).GetLength() * float(state.range(0)) / 1000;
    std::mt19937 random(1);
    std::uniform_real_distribution<float> along(-reach, reach);
    std::vector<UPoint3<float>> points;
    for (int i = 0; i < 100000; ++i) {
        UVector3<float> const away(along(random), along(random), along(random));
        points.push_back(vertices[random() % vertices.size()]->cP() + away);
        if (double const found = distance.distance(points.back());
            !(found <= away.GetLength() * 1.0001f))
            throw std::logic_error("a vertex is nearer than the distance");
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(distance.distance(points[next]));
        next = (next + 1) % points.size();
    }
}

Ring ring(int corners, double radius, double x, double y, std::mt19937& random)
{
    std::uniform_real_distribution<double> reach(0.9 * radius, radius);
    Ring points;
    for (int i = 0; i < corners; ++i) {
        double const angle = 2 * std::numbers::pi * i / corners;
        double const length = reach(random);
        points.push_back(
            {std::round(x + length * std::cos(angle)), std::round(y + length * std::sin(angle))});
    }
    return points;
}

/// Arguments: corners of the outer ring; number of holes of a hundred corners.
void fillRings(benchmark::State& state)
{
    std::mt19937 random(1);
    std::vector<Ring> rings{ring(int(state.range(0)), 1e8, 0, 0, random)};
    for (int i = 0; i < int(state.range(1)); ++i)
        rings.push_back(ring(100, 1e6, (i % 25 - 12) * 4e6, (i / 25 - 10) * 4e6, random));
    std::size_t const points = std::size_t(state.range(0) + 100 * state.range(1));
    if (EarcutPolygon::earcut(rings).size() != 3 * (points - 2 + 2 * std::size_t(state.range(1))))
        throw std::logic_error("the rings are not filled");
    for (auto _ : state)
        benchmark::DoNotOptimize(EarcutPolygon::earcut(rings));
    state.SetItemsProcessed(state.iterations() * std::int64_t(points));
}

/// Argument: corners of the contour, which is moved inward as for a lap joint.
void offsetContour(benchmark::State& state)
{
    std::mt19937 random(1);
    ClipperLib::Paths paths(1);
    for (auto const& [x, y] : ring(int(state.range(0)), 1e6, 0, 0, random))
        paths[0].emplace_back(ClipperLib::cInt(x), ClipperLib::cInt(y));
    POLYGON::Polygons const contour(paths);
    for (auto _ : state) {
        auto const inset = contour.offset(-2000, ClipperLib::jtMiter, 1.2, 10.0, true);
        if (inset.splitIntoParts(false, 0).empty())
            state.SkipWithError("Nothing is left.");
    }
}

}  // namespace

BENCHMARK(buildDistance)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(queryDistance)
    ->Arg(0)
    ->Arg(1)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(fillRings)->Args({100000, 0})->Args({50000, 500})->Unit(benchmark::kMillisecond);
BENCHMARK(offsetContour)->Arg(10000)->Unit(benchmark::kMillisecond);
