// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"
#include "host/formats/BinaryStlReader.h"
#include "host/formats/MeshBuilder.h"
#include "host/formats/PartFiles.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

void countTriangles(benchmark::State& state, std::size_t triangles)
{
    state.counters["triangles/s"] =
        benchmark::Counter(double(triangles), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["triangles"] = double(triangles);
}

void readFile(benchmark::State& state, std::string const& format)
{
    auto const path = largeFile(int(state.range(0)), format);
    auto const& original = *largePart(int(state.range(0))).readMesh();
    resetPeakMemory();
    std::size_t triangles = 0;
    for (auto _ : state) {
        auto parts = Formats::readParts(path);
        state.PauseTiming();
        auto const mesh = parts[0].kernel->readMesh();
        triangles = mesh->triangles.size();
        if (format != "3mf" && (triangles != original.triangles.size() ||
                                mesh->vertices.size() != original.vertices.size()))
            state.SkipWithError("the mesh that was read is not the one that was written");
        parts.clear();
        state.ResumeTiming();
    }
    countTriangles(state, triangles);
    state.counters["peak MB"] = double(peakMemory()) / 1e6;
}

void writeFile(benchmark::State& state, std::string const& format)
{
    MeshKernel const& part = largePart(int(state.range(0)));
    auto const& chosen = *Formats::FormatRegistry::instance().byName(format);
    auto path = largeFile(int(state.range(0)), format);
    path += ".written";
    for (auto _ : state)
        Formats::writePart(path, "part", part, chosen, {}, Formats::Overwrite::Allow);
    countTriangles(state, part.readMesh()->triangles.size());
}

/// The bytes alone, as the reader takes them: what the machine allows.
void readBytes(benchmark::State& state)
{
    auto const path = largeFile(int(state.range(0)), "stl");
    std::vector<char> buffer(std::size_t(32768) * 50);
    for (auto _ : state) {
        int const file = open(path.c_str(), O_RDONLY);
        while (read(file, buffer.data(), buffer.size()) > 0)
            benchmark::DoNotOptimize(buffer.data());
        close(file);
    }
    countTriangles(state, largePart(int(state.range(0))).readMesh()->triangles.size());
}

/// Joining points alone.
void joinPoints(benchmark::State& state)
{
    auto const mesh = largePart(int(state.range(0))).readMesh();
    std::vector<UPoint3<float>> points;
    for (UTriangle<float> const* triangle : mesh->triangles)
        for (int i = 0; i < 3; ++i)
            points.push_back(triangle->cP(i));
    std::array<UVertex<float>*, 192> joined;
    for (auto _ : state) {
        UMesh<float> target;
        Formats::PointJoiner joiner(target, mesh->vertices.size());
        for (std::size_t i = 0; i < points.size(); i += joined.size())
            joiner.join(std::span(points).subspan(i, std::min(joined.size(), points.size() - i)),
                        joined.data());
        if (target.vertices.size() != mesh->vertices.size())
            state.SkipWithError("not as many points as before");
    }
    countTriangles(state, mesh->triangles.size());
}

void registerAll()
{
    for (std::string const format : {"stl", "stl-ascii", "ply", "ply-ascii", "obj", "3mf"}) {
        benchmark::RegisterBenchmark(("read/" + format).c_str(), readFile, format)
            ->Arg(1)
            ->MeasureProcessCPUTime()
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(("write/" + format).c_str(), writeFile, format)
            ->Arg(1)
            ->MeasureProcessCPUTime()
            ->Unit(benchmark::kMillisecond);
    }
    for (auto [name, run] : {std::pair{"bytes/stl", &readBytes}, std::pair{"join", &joinPoints}})
        benchmark::RegisterBenchmark(name, run)->Arg(1)->Arg(4)->MeasureProcessCPUTime()->Unit(
            benchmark::kMillisecond);
    benchmark::RegisterBenchmark("read/stl", readFile, "stl")
        ->Arg(4)
        ->MeasureProcessCPUTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("write/stl", writeFile, "stl")
        ->Arg(4)
        ->MeasureProcessCPUTime()
        ->Unit(benchmark::kMillisecond);
}

bool const isRegistered = (registerAll(), true);

}  // namespace
