// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"
#include "platform/services/Intersect.h"
#include "platform/services/Repair.h"
#include "tests/support/MeshBuilders.h"

#include <benchmark/benchmark.h>
#include <tbb/global_control.h>

namespace {

using Errors = Repair::EvaluateErrors;

Soup subdividedTimes(Soup soup, int times)
{
    for (int i = 0; i < times; ++i)
        soup = subdivided(soup);
    return soup;
}

/// Arguments: how often the model is subdivided, the number of threads.
void checkMesh(benchmark::State& state, char const* fileName)
{
    Soup const soup = subdividedTimes(realMesh(fileName), int(state.range(0)));
    if (soup.triangles.empty()) {
        state.SkipWithError("The real models are not there.");
        return;
    }
    auto const kernel = kernelOf(soup);
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism,
                                      std::size_t(state.range(1)));
    Errors errors(kernel.get());
    std::size_t const expected = errors.evaluate(Errors::ERROR_ALL, true, true, {});
    for (auto _ : state)
        if (errors.evaluate(Errors::ERROR_ALL, true, true, {}) != expected)
            state.SkipWithError("The count is not the same twice.");
    state.SetItemsProcessed(state.iterations() * std::int64_t(soup.triangles.size()));
    state.counters["errors"] = double(expected);
}

void repairMesh(benchmark::State& state, char const* fileName)
{
    Soup const soup = subdividedTimes(realMesh(fileName), int(state.range(0)));
    if (soup.triangles.empty()) {
        state.SkipWithError("The real models are not there.");
        return;
    }
    bool isSound = true;
    for (auto _ : state) {
        state.PauseTiming();
        auto const kernel = kernelOf(soup);
        state.ResumeTiming();
        isSound &= Repair::RepairMethods(kernel.get()).autoRepair_simple_advanced({});
    }
    if (!isSound)
        state.SkipWithError("Errors are left.");
    state.SetItemsProcessed(state.iterations() * std::int64_t(soup.triangles.size()));
}

/// Both pieces of a cut through the flaws of a large part.
struct Pieces
{
    explicit Pieces(MeshKernel const& part)
    {
        UBox3<float> const& box = part.GetBox();
        float const level = (box.MinZ() + box.MaxZ()) / 2;
        Soup rectangle;
        for (auto const& [x, y] : {std::pair(-1, -1), {1, -1}, {1, 1}, {-1, 1}})
            rectangle.add({1000.0f * float(x), 1000.0f * float(y), level});
        rectangle.add(0, 1, 2);
        rectangle.add(2, 3, 0);
        auto const plane = kernelOf(rectangle);
        MeshKernel copy(part);
        MeshKernel section;
        Intersect::cutByPlane(
            &copy, plane.get(), &above, &below, &section, [](int) {}, true);
    }

    MeshKernel above;
    MeshKernel below;
};

/// What a cut costs more when its pieces are checked and mended where it touched them. Arguments:
/// whether they are only checked, the number of threads.
void mendPieces(benchmark::State& state)
{
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism,
                                      std::size_t(state.range(1)));
    MeshKernel const& part = largePartWithCrossings();
    std::size_t crossings = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto pieces = std::make_unique<Pieces>(part);
        crossings = 0;
        state.ResumeTiming();
        for (MeshKernel* const piece : {&pieces->above, &pieces->below}) {
            Errors errors(piece);
            errors.evaluate(Errors::ERROR_ALL, true, true, {});
            crossings += errors.counts().selfIntersections;
            if (state.range(0))
                continue;
            piece->toRclMesh();
            Repair::RepairMethods repair(piece, Repair::Scope::madeFrom(part), errors.survey());
            if (!repair.autoRepair_simple_advanced({}))
                state.SkipWithError("Crossings are left.");
        }
        state.PauseTiming();
        pieces.reset();
        state.ResumeTiming();
    }
    state.counters["crossings"] = double(crossings);
}

}  // namespace

BENCHMARK(mendPieces)
    ->ArgNames({"checkOnly", "threads"})
    ->ArgsProduct({{1, 0}, {1, 2}})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(checkMesh, igea, "igea-269k.stl")
    ->ArgsProduct({{0, 1}, {1, 2}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(checkMesh, fandisk, "fandisk-13k.stl")
    ->Args({0, 1})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(repairMesh, cow, "cow-6k.stl")->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(repairMesh, openBunny, "open-bunny-69k.stl")
    ->Arg(0)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(repairMesh, propeller, "misoriented-propeller-7k.stl")
    ->Arg(0)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(repairMesh, igea, "igea-269k.stl")->Arg(1)->Unit(benchmark::kMillisecond);
