// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"
#include "host/view/PartSurface.h"
#include "host/view/PickTree.h"

#include <benchmark/benchmark.h>

#include <random>

// What the view does with a part of a million triangles, apart from OpenGL.
namespace {

std::vector<PickTree::Ray> raysThrough(MeshKernel const& kernel, bool isAlongZ)
{
    std::mt19937 random(5);
    UBox3<float> const box = kernel.GetBox();
    auto const between = [&](float low, float high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    std::vector<PickTree::Ray> rays;
    for (int i = 0; i < 1000; ++i) {
        UPoint3<double> const origin(between(box.MinX(), box.MaxX()),
                                     between(box.MinY(), box.MaxY()), box.MaxZ() + 100.0);
        UPoint3<double> const target(between(box.MinX(), box.MaxX()),
                                     between(box.MinY(), box.MaxY()), box.MinZ());
        rays.push_back({origin, isAlongZ ? UVector3<double>(0, 0, -1) : target - origin});
    }
    return rays;
}

/// The tree that the first pick on a part makes.
void prepareForPicks(benchmark::State& state)
{
    MeshKernel kernel(largePart(1));
    kernel.UpdateBoundingBox();
    for (auto _ : state)
        benchmark::DoNotOptimize(PickTree(kernel));
}
BENCHMARK(prepareForPicks)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Every later pick. 0: slanting rays, 1: along an axis.
void pick(benchmark::State& state)
{
    MeshKernel kernel(largePart(1));
    kernel.UpdateBoundingBox();
    PickTree const tree(kernel);
    auto const rays = raysThrough(kernel, state.range(0) != 0);
    auto const mesh = kernel.readMesh();
    std::size_t i = 0, hits = 0;
    for (auto _ : state)
        hits += tree.firstHit(*mesh, rays[i++ % rays.size()]).has_value();
    state.counters["hits"] = double(hits) / double(state.iterations());
}
BENCHMARK(pick)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// What the first picture uploads.
void prepareForDrawing(benchmark::State& state)
{
    MeshKernel const kernel(largePart(1));
    std::function<void(int)> const none;
    std::size_t bytes = 0;
    for (auto _ : state) {
        StageProgress progress(none);
        PartSurface const surface(copyArrays(kernel, Frame::Local, progress));
        bytes = surface.vertices.size() * sizeof(PartSurface::Vertex) +
                surface.indices.size() * sizeof(std::uint32_t);
    }
    state.counters["bytesPerTriangle"] =
        double(bytes) / double(kernel.readMesh()->triangles.size());
}
BENCHMARK(prepareForDrawing)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
