// SPDX-License-Identifier: GPL-3.0-or-later
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

}  // namespace

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
