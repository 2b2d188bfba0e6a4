// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"
#include "host/mesh/Placement.h"
#include "platform/services/Intersect.h"
#include "tests/support/MeshBuilders.h"

#include <benchmark/benchmark.h>
#include <tbb/global_control.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>

namespace {

/// A plane through the middle of a part, four times as wide as its box.
///
/// u, v  unit vectors in the plane, at a right angle
std::unique_ptr<MeshKernel> planeAcross(MeshKernel const& part, UVector3<float> const& u,
                                        UVector3<float> const& v)
{
    UBox3<float> const& box = part.GetBox();
    UPoint3<float> const centre = (box.min + box.max) * 0.5f;
    float const reach = 2 * (box.max - box.min).GetLength();
    Soup soup;
    for (UVector3<float> const& way : {u, v, -u, -v})
        soup.add(centre + way * reach);
    soup.add(0, 1, 2);
    soup.add(2, 3, 0);
    return kernelOf(soup);
}

struct Halves
{
    MeshKernel above;
    MeshKernel below;
    MeshKernel section;

    Halves(MeshKernel const& part, MeshKernel& plane)
    {
        MeshKernel copy(part);
        Intersect::cutByPlane(
            &copy, &plane, &above, &below, &section, [](int) {}, true);
    }
};

/// Kernel in to kernels out; the halves' memory is given back outside the time.
void cutAcross(benchmark::State& state, UVector3<float> const& u, UVector3<float> const& v)
{
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism,
                                      std::size_t(state.range(1)));
    MeshKernel const& part = largePart(int(state.range(0)));
    auto const plane = planeAcross(part, u, v);
    std::size_t const triangles = part.readMesh()->triangles.size();
    if (Halves const check(part, *plane);
        check.above.readMesh()->triangles.empty() || check.below.readMesh()->triangles.empty())
        throw std::logic_error("the plane does not cut the part");
    for (auto _ : state) {
        auto halves = std::make_unique<Halves>(part, *plane);
        state.PauseTiming();
        halves.reset();
        state.ResumeTiming();
    }
    state.counters["triangles/s"] =
        benchmark::Counter(double(triangles * state.iterations()), benchmark::Counter::kIsRate);
    state.counters["ns/triangle"] =
        benchmark::Counter(double(triangles * state.iterations()) * 1e-9,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void cutByPlane(benchmark::State& state)
{
    cutAcross(state, {1, 0, 0}, {0, 1, 0});
}
BENCHMARK(cutByPlane)
    ->ArgNames({"millions", "threads"})
    ->Args({1, 1})
    ->Args({1, 2})
    ->Args({4, 1})
    ->Args({4, 2})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// No edge of the plane keeps an axis. Against the rows of cutByPlane of one thread.
void cutByObliquePlane(benchmark::State& state)
{
    UVector3<float> u(2, -1, 0), v(3, 6, -15);
    cutAcross(state, u.Normalize(), v.Normalize());
}
BENCHMARK(cutByObliquePlane)
    ->ArgNames({"millions", "threads"})
    ->Args({1, 1})
    ->Args({4, 1})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// A large part with a cube beside it, which crosses the level of its middle.
std::unique_ptr<MeshKernel> partWithCube(MeshKernel const& part)
{
    UBox3<float> const& bounds = part.GetBox();
    float const middle = (bounds.MinZ() + bounds.MaxZ()) / 2;
    auto copy = std::make_unique<MeshKernel>(part);
    auto const cube = kernelOf(box(10, 10, 10, {bounds.MaxX() + 10, 0, middle - 5}));
    appendRecords(*copy->getMesh(), *cube->getMesh());
    copy->UpdateBoundingBox();
    return copy;
}

/// A level rectangle over the cube of partWithCube().
std::unique_ptr<MeshKernel> planeOverCube(MeshKernel const& part)
{
    UBox3<float> const& bounds = part.GetBox();
    float const height = (bounds.MinZ() + bounds.MaxZ()) / 2;
    float const x = bounds.MaxX() - 12;
    Soup soup;
    soup.points = {{x, -2, height}, {x + 14, -2, height}, {x + 14, 12, height}, {x, 12, height}};
    soup.triangles = {{0, 1, 2}, {2, 3, 0}};
    return kernelOf(soup);
}

/// The longest time in milliseconds in which a cut does not report progress: a cancel waits as
/// long.
double longestSilence(MeshKernel& part, MeshKernel& plane)
{
    using Clock = std::chrono::steady_clock;
    MeshKernel above, below, section;
    auto last = Clock::now();
    double longest = 0;
    auto const report = [&](int) {
        auto const now = Clock::now();
        longest = std::max(longest, std::chrono::duration<double, std::milli>(now - last).count());
        last = now;
    };
    Intersect::cutByPlane(&part, &plane, &above, &below, &section, report, true);
    report(100);
    return longest;
}

/// A cut by a plane that ends beside most of the part, which is searched for what hangs together.
void cutByBoundedPlane(benchmark::State& state)
{
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism,
                                      std::size_t(state.range(1)));
    auto const part = partWithCube(largePart(int(state.range(0))));
    auto const plane = planeOverCube(*part);
    std::size_t const triangles = part->readMesh()->triangles.size();
    if (Halves const check(*part, *plane);
        check.section.readMesh()->triangles.empty() || check.below.readMesh()->triangles.empty())
        throw std::logic_error("the plane does not cut the cube");
    for (auto _ : state) {
        auto halves = std::make_unique<Halves>(*part, *plane);
        state.PauseTiming();
        halves.reset();
        state.ResumeTiming();
    }
    state.counters["ns/triangle"] =
        benchmark::Counter(double(triangles * state.iterations()) * 1e-9,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    state.counters["silence/ms"] = longestSilence(*part, *plane);
}
BENCHMARK(cutByBoundedPlane)
    ->ArgNames({"millions", "threads"})
    ->Args({1, 1})
    ->Args({1, 2})
    ->Args({4, 2})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
