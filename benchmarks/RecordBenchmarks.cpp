// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"
#include "platform/mesh/MeshKernel.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr std::size_t million = 1000000;

std::unique_ptr<UMesh<float>> makeMesh()
{
    auto mesh = std::make_unique<UMesh<float>>();
    mesh->vertices.reserve(million / 2);
    mesh->triangles.reserve(million);
    for (std::size_t i = 0; i < million / 2; ++i)
        mesh->AddVertex(new UVertex<float>(UPoint3<float>(float(i), 0, 0)));
    auto const& v = mesh->vertices;
    for (std::size_t i = 0; i < million; ++i)
        mesh->AddTriangle(
            new UTriangle<float>(v[i / 2], v[(i / 2 + 1) % (million / 2)], v[0], {0, 0, 1}));
    return mesh;
}

/// A million triangles with half a million vertices, by `new` one after the other.
void makeAMillionTriangles(benchmark::State& state)
{
    for (auto _ : state) {
        auto mesh = makeMesh();
        state.PauseTiming();
        mesh.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(makeAMillionTriangles)->Unit(benchmark::kMillisecond);

void freeAMillionTriangles(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto mesh = makeMesh();
        state.ResumeTiming();
        mesh.reset();
    }
}
BENCHMARK(freeAMillionTriangles)->Unit(benchmark::kMillisecond);

/// A kernel that has handed its mesh out, so that the copy is made at once.
void copyAMillionTriangles(benchmark::State& state)
{
    MeshKernel source(makeMesh().release());
    source.getMesh()->UpdateVertsID();
    source.getMesh()->UpdateTrisID();
    for (auto _ : state) {
        auto copy = std::make_unique<MeshKernel>(source);
        state.PauseTiming();
        copy.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(copyAMillionTriangles)->Unit(benchmark::kMillisecond);

/// The five steps after a cut, on a mesh that has nothing to clean.
void cleanUp(benchmark::State& state)
{
    MeshKernel kernel(largePart(1));
    for (auto _ : state) {
        kernel.DeleteDegenerateTris();
        kernel.DeleteUnreferenceVerts();
        kernel.UpdateTrisID();
        kernel.UpdateVertsID();
        kernel.UpdateBoundingBox();
    }
}
BENCHMARK(cleanUp)->Unit(benchmark::kMillisecond);

void buildTopology(benchmark::State& state)
{
    MeshKernel kernel(largePart(1));
    for (auto _ : state)
        kernel.getMesh()->BuildTopo({}, false);
}
BENCHMARK(buildTopology)->Unit(benchmark::kMillisecond);

}  // namespace
