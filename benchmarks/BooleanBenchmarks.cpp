// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"
#include "benchmarks/BooleanOperands.h"
#include "benchmarks/PeerBoolean.h"
#include "benchmarks/ProcessorTime.h"
#include "platform/services/Intersect.h"
#include "tests/support/Soup.h"
#include "tests/support/Validator.h"

#include <benchmark/benchmark.h>
#include <tbb/global_control.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <limits>
#include <malloc.h>
#include <map>
#include <tuple>
#include <unistd.h>
#include <vector>

// Kernels in to kernels out, in memory touched before: one run is not counted. The kernels that
// come out are freed outside the time.

namespace {

struct Outcome
{
    MeshKernel first;
    MeshKernel second;
};

using Operation = void (*)(MeshKernel&, MeshKernel&, Outcome&);

void difference(MeshKernel& part, MeshKernel& tool, Outcome& outcome)
{
    std::vector<MeshKernel*> out{&outcome.first};
    Intersect::boolean(
        &part, &tool, out, Intersect::BOOLEAN_SUBTRACT, [](int) {}, 1);
}

void split(MeshKernel& part, MeshKernel& tool, Outcome& outcome)
{
    Intersect::boolean_subtract_keep(
        &part, &tool, &outcome.first, &outcome.second, [](int) {}, 1);
}

struct Times
{
    std::vector<double> wall, processor;
};

/// Runs one operation, and notes the seconds that it takes by the clock and of the processor.
void timeInto(Times& times, Operation operation, MeshKernel& part, MeshKernel& tool)
{
    Outcome outcome;
    auto const start = std::chrono::steady_clock::now();
    double const processor = processorSeconds();
    operation(part, tool, outcome);
    times.processor.push_back(processorSeconds() - processor);
    times.wall.push_back(
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
}

/// Touches the memory.
void warmUp(Operation operation, MeshKernel& part, MeshKernel& tool)
{
    Times uncounted;
    timeInto(uncounted, operation, part, tool);
}

double medianOf(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + std::ptrdiff_t(values.size() / 2),
                     values.end());
    return values[values.size() / 2];
}

std::size_t residentMemory()
{
    std::ifstream file("/proc/self/statm");
    std::size_t pages = 0, resident = 0;
    file >> pages >> resident;
    return resident * std::size_t(sysconf(_SC_PAGESIZE));
}

/// Peak memory beside operands and results, in bytes per triangle of the part. Ends the case if the
/// results are not closed or their volumes wrong.
double judge(benchmark::State& state, Operation operation, MeshKernel& part, MeshKernel& tool)
{
    auto outcome = std::make_unique<Outcome>();
    malloc_trim(0);
    std::size_t const before = residentMemory();
    resetPeakMemory();
    operation(part, tool, *outcome);
    double const results = double(recordBytesOf(outcome->first) + recordBytesOf(outcome->second));
    double const beside = double(peakMemory()) - double(before) - results;
    Soup const first = soupOf(outcome->first), second = soupOf(outcome->second);
    outcome.reset();
    std::string const faults = closedSolidFaults(first) + closedSolidFaults(second);
    double const whole = volumeOf(soupOf(part));
    double const pieces = volumeOf(first) + volumeOf(second);
    if (!faults.empty())
        state.SkipWithError(faults.c_str());
    if (operation == split ? std::abs(pieces - whole) > 1e-6 * whole : pieces >= whole)
        state.SkipWithError("the volumes do not add up");
    return beside / double(trianglesOf(part));
}

/// Judges each case when it is run first. The memory tells something only where the case is the
/// first one of the process: later ones find what earlier ones have left to the allocators.
void judgeOnce(benchmark::State& state, Operation operation, int cylinders, MeshKernel& part,
               MeshKernel& tool)
{
    using Case = std::tuple<bool, int, std::int64_t, std::int64_t>;
    static std::map<Case, double> judged;
    Case const name(operation == split, cylinders, state.range(0), state.range(1));
    bool const isFirst = judged.empty();
    if (!judged.contains(name)) {
        double const beside = judge(state, operation, part, tool);
        judged[name] = isFirst ? beside : std::numeric_limits<double>::quiet_NaN();
    }
    if (!std::isnan(judged[name]))
        state.counters["peak B/triangle"] = judged[name];
}

void countPerTriangle(benchmark::State& state, MeshKernel const& part, Times const& times)
{
    double const triangles = double(trianglesOf(part));
    state.counters["triangles"] = triangles;
    state.counters["wall ms"] = 1e3 * medianOf(times.wall);
    state.counters["ns/triangle"] = 1e9 * medianOf(times.wall) / triangles;
    state.counters["processor ns/triangle"] = 1e9 * medianOf(times.processor) / triangles;
}

void timeOperation(benchmark::State& state, Operation operation, int cylinders)
{
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism,
                                      std::size_t(state.range(1)));
    MeshKernel part(largePart(int(state.range(0))));
    auto const tool = cylinders > 0 ? cylindersOn(part, cylinders) : prismThrough(part);
    judgeOnce(state, operation, cylinders, part, *tool);
    warmUp(operation, part, *tool);
    Times times;
    for (auto _ : state) {
        timeInto(times, operation, part, *tool);
        state.SetIterationTime(times.wall.back());
    }
    countPerTriangle(state, part, times);
}

/// Both operations in turn on the same operands: a split, and one difference.
void splitBesideDifference(benchmark::State& state)
{
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism,
                                      std::size_t(state.range(1)));
    MeshKernel part(largePart(int(state.range(0))));
    auto const tool = prismThrough(part);
    warmUp(difference, part, *tool);
    warmUp(split, part, *tool);
    Times splits, differences;
    for (auto _ : state) {
        timeInto(splits, split, part, *tool);
        timeInto(differences, difference, part, *tool);
        state.SetIterationTime(splits.wall.back());
    }
    countPerTriangle(state, part, splits);
    state.counters["split ms"] = 1e3 * medianOf(splits.wall);
    state.counters["difference ms"] = 1e3 * medianOf(differences.wall);
    state.counters["ratio"] = medianOf(splits.wall) / medianOf(differences.wall);
}

/// The difference beside CGAL's on the same meshes, in turn; processor time. The peer's conversion is
/// not counted.
void differenceBesidePeer(benchmark::State& state)
{
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism,
                                      std::size_t(state.range(2)));
    MeshKernel part(largePart(int(state.range(0))));
    auto const tool = cylindersOn(part, int(state.range(1)));
    PeerDifference peer(part, *tool);
    warmUp(difference, part, *tool);
    peer.run();
    Outcome outcome;
    difference(part, *tool, outcome);
    double const volume = volumeOf(soupOf(outcome.first));
    if (!(std::abs(volume - peer.volume()) < 1e-6 * volume))
        state.SkipWithError("the two differences are not the same solid");
    Times ours;
    std::vector<double> theirs;
    for (auto _ : state) {
        timeInto(ours, difference, part, *tool);
        theirs.push_back(peer.run());
        state.SetIterationTime(ours.processor.back());
    }
    countPerTriangle(state, part, ours);
    state.counters["ours ms"] = 1e3 * medianOf(ours.processor);
    state.counters["CGAL ms"] = 1e3 * medianOf(theirs);
    state.counters["CGAL/ours"] = medianOf(theirs) / medianOf(ours.processor);
    state.counters["result triangles"] = double(trianglesOf(outcome.first));
    state.counters["CGAL triangles"] = double(peer.triangles());
}

/// Said at the head of the output.
bool const isContextSaid = [] {
    benchmark::AddCustomContext(
        "boolean operands",
        "a scanned head of 1.07 or 4.30 million triangles; cylinders of 63 facets in one mesh, "
        "radius "
        "1.5 % of the box's diagonal, twice as high, centred on the surface, random axes, seed "
        "2026, "
        "not overlapping; or a prism of 8 sides through the middle, 25 % of the diagonal across");
    benchmark::AddCustomContext(
        "boolean times",
        "kernels in to kernels out, medians, after one run that is not counted; peak "
        "memory beside operands and results is that of the first case of a process");
    return true;
}();

void setUp(benchmark::internal::Benchmark* cases)
{
    cases->ArgNames({"millions", "threads"})
        ->ArgsProduct({{1, 4}, {1, 2}})
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}

}  // namespace

BENCHMARK_CAPTURE(timeOperation, partLess20Cylinders, difference, 20)
    ->Name("boolean/partLess20Cylinders")
    ->Apply(setUp);
BENCHMARK_CAPTURE(timeOperation, partLess200Cylinders, difference, 200)
    ->Name("boolean/partLess200Cylinders")
    ->Apply(setUp);
BENCHMARK_CAPTURE(timeOperation, splitByPrism, split, 0)
    ->Name("boolean/splitByPrism")
    ->Apply(setUp);
BENCHMARK_CAPTURE(timeOperation, differenceOfPrism, difference, 0)
    ->Name("boolean/partLessPrism")
    ->Apply(setUp);
BENCHMARK(splitBesideDifference)->Name("boolean/splitBesideDifference")->Apply(setUp);
BENCHMARK(differenceBesidePeer)
    ->Name("boolean/besidePeer")
    ->ArgNames({"millions", "cylinders", "threads"})
    ->ArgsProduct({{1, 4}, {20, 200}, {1}})
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime();
