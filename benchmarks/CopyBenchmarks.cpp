// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"
#include "benchmarks/BooleanOperands.h"
#include "benchmarks/ProcessorTime.h"
#include "platform/services/Intersect.h"
#include "tests/support/NearCopies.h"
#include "tests/support/Validator.h"

#include <benchmark/benchmark.h>
#include <tbb/global_control.h>

#include <algorithm>
#include <chrono>
#include <malloc.h>
#include <numbers>
#include <vector>

// A large part and a moved copy of it: both operands are large, and they meet along one long curve
// or all over. Kernels in to kernels out, processor time.

namespace {

enum class Copy
{
    turnedBy30Degrees,
    foldedAndTurnedBy30Degrees,
    turnedBy1e5,
    shiftedBy1e5,
    shiftedBy1e3,
};

constexpr std::size_t folds = 42;

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

struct Operands
{
    std::unique_ptr<MeshKernel> part, copy;

    explicit Operands(Copy kind)
    {
        Soup soup = soupOf(largePart(1));
        if (kind == Copy::foldedAndTurnedBy30Degrees)
            soup = foldedCopy(soup, folds);
        part = kernelOf(soup);
        copy = kernelOf(kind == Copy::shiftedBy1e5   ? shiftedCopy(soup, 1e-5)
                        : kind == Copy::shiftedBy1e3 ? shiftedCopy(soup, 1e-3)
                        : kind == Copy::turnedBy1e5  ? turnedCopy(soup, 1e-5)
                                                     : turnedCopy(soup, std::numbers::pi / 6));
    }

    std::size_t triangles() const { return trianglesOf(*part) + trianglesOf(*copy); }
};

double run(Operands& operands, Intersect::BooleanType type, MeshKernel& result)
{
    double const start = processorSeconds();
    std::vector<MeshKernel*> out{&result};
    Intersect::boolean(
        operands.part.get(), operands.copy.get(), out, type, [](int) {}, 1);
    return processorSeconds() - start;
}

void combineWithCopy(benchmark::State& state, Copy kind, Intersect::BooleanType type)
{
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism,
                                      std::size_t(state.range(0)));
    Operands operands(kind);
    {
        // What is freed here must not count as free for the run that is measured.
        malloc_trim(0);
        resetPeakMemory();
        std::size_t const held = peakMemory();
        MeshKernel result;
        run(operands, type, result);
        state.counters["peak B/triangle"] =
            double(peakMemory() - held) / double(operands.triangles());
        state.counters["result B/triangle"] =
            double(recordBytesOf(result)) / double(operands.triangles());
        std::string const faults = closedSolidFaults(soupOf(result));
        if (!faults.empty())
            state.SkipWithError(faults.c_str());
    }
    std::vector<double> times, walls;
    for (auto _ : state) {
        MeshKernel result;
        auto const start = std::chrono::steady_clock::now();
        times.push_back(run(operands, type, result));
        walls.push_back(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        state.SetIterationTime(times.back());
    }
    if (times.empty())
        return;
    state.counters["ns/triangle"] = 1e9 * medianOf(times) / double(operands.triangles());
    state.counters["wall ms"] = 1e3 * medianOf(walls);
}

void setUp(benchmark::internal::Benchmark* cases)
{
    cases->ArgName("threads")
        ->Arg(1)
        ->Arg(2)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(5);
}

}  // namespace

BENCHMARK_CAPTURE(combineWithCopy, turned, Copy::turnedBy30Degrees, Intersect::BOOLEAN_SUBTRACT)
    ->Name("boolean/partLessTurnedCopy")
    ->Apply(setUp);
BENCHMARK_CAPTURE(combineWithCopy, folded, Copy::foldedAndTurnedBy30Degrees,
                  Intersect::BOOLEAN_SUBTRACT)
    ->Name("boolean/foldedPartLessTurnedCopy")
    ->Apply(setUp);
BENCHMARK_CAPTURE(combineWithCopy, turned1e5, Copy::turnedBy1e5, Intersect::BOOLEAN_SUBTRACT)
    ->Name("boolean/partLessNearCopyTurned")
    ->Apply(setUp);
BENCHMARK_CAPTURE(combineWithCopy, shifted1e5, Copy::shiftedBy1e5, Intersect::BOOLEAN_SUBTRACT)
    ->Name("boolean/partLessNearCopyShifted")
    ->Apply(setUp);
BENCHMARK_CAPTURE(combineWithCopy, shifted1e3, Copy::shiftedBy1e3, Intersect::BOOLEAN_UNION)
    ->Name("boolean/partUnitedWithCopyShifted")
    ->Apply(setUp);
