// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"

#include "host/formats/MeshBuilder.h"
#include "host/formats/PartFiles.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <numbers>
#include <string>
#include <unistd.h>

namespace {

UPoint3<float> wavyPoint(int ring, int rings, int segment, int segments)
{
    double const polar = std::numbers::pi * ring / rings;
    double const azimuth = 2 * std::numbers::pi * segment / segments;
    double const radius = 45 + 3 * std::sin(7 * azimuth) * std::sin(9 * polar);
    return {float(50 + radius * std::sin(polar) * std::cos(azimuth)),
            float(50 + radius * std::sin(polar) * std::sin(azimuth)),
            float(50 + radius * std::cos(polar))};
}

std::unique_ptr<MeshKernel> wavyBall(std::size_t triangles)
{
    int const rings = int(std::sqrt(double(triangles) / 4));
    int const segments = rings * 2;
    Formats::MeshBuilder builder(triangles, triangles / 2);
    auto const vertex = [&](int ring, int segment) {
        return builder.points().join(wavyPoint(ring, rings, segment % segments, segments));
    };
    for (int ring = 0; ring < rings; ++ring)
        for (int segment = 0; segment < segments; ++segment) {
            auto* const a = vertex(ring, segment);
            auto* const b = vertex(ring + 1, segment);
            auto* const c = vertex(ring + 1, segment + 1);
            auto* const d = vertex(ring, segment + 1);
            builder.addTriangle(a, b, c);
            builder.addTriangle(a, c, d);
        }
    return builder.finish();
}

/// Every triangle cut into steps * steps smaller ones in its plane.
std::unique_ptr<MeshKernel> split(MeshKernel const& source, int steps)
{
    auto const mesh = source.readMesh();
    std::size_t const count = mesh->triangles.size() * std::size_t(steps * steps);
    Formats::MeshBuilder builder(count, count / 2);
    for (UTriangle<float> const* triangle : mesh->triangles) {
        auto const vertex = [&](int i, int j) {
            // By weights of the corners in an order of their own, so that two triangles with a
            // common edge get the same points on it.
            int const weights[3] = {steps - i - j, i, j};
            std::pair<unsigned long, int> order[3];
            for (int k = 0; k < 3; ++k)
                order[k] = {triangle->cV(k)->cID(), k};
            std::sort(order, order + 3);
            double sum[3] = {};
            for (auto const& [id, corner] : order)
                for (int axis = 0; axis < 3; ++axis)
                    sum[axis] += double(triangle->cP(corner)[axis]) * weights[corner];
            return builder.points().join(
                {float(sum[0] / steps), float(sum[1] / steps), float(sum[2] / steps)});
        };
        for (int i = 0; i < steps; ++i)
            for (int j = 0; j < steps - i; ++j) {
                builder.addTriangle(vertex(i, j), vertex(i + 1, j), vertex(i, j + 1));
                if (j + 1 < steps - i)
                    builder.addTriangle(vertex(i + 1, j), vertex(i + 1, j + 1), vertex(i, j + 1));
            }
    }
    return builder.finish();
}

std::unique_ptr<MeshKernel> makePart(int millions)
{
    std::size_t const triangles = std::size_t(millions) * 1000000;
    std::filesystem::path const scanned = MELL_TEST_MESHES "/igea-269k.stl";
    if (!std::filesystem::exists(scanned))
        return wavyBall(triangles);
    auto const parts = Formats::readParts(scanned);
    std::size_t const present = parts[0].kernel->readMesh()->triangles.size();
    return split(*parts[0].kernel, int(std::ceil(std::sqrt(double(triangles) / double(present)))));
}

/// Files of this process, removed with it.
class Scratch
{
public:
    Scratch()
        : m_folder(std::filesystem::temp_directory_path() /
                   ("mell_benchmarks." + std::to_string(getpid())))
    {
        std::filesystem::create_directory(m_folder);
    }
    ~Scratch()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    std::filesystem::path const& folder() const { return m_folder; }

private:
    std::filesystem::path m_folder;
};

}  // namespace

MeshKernel const& largePart(int millions)
{
    static std::map<int, std::unique_ptr<MeshKernel>> parts;
    auto& part = parts[millions];
    if (!part)
        part = makePart(millions);
    return *part;
}

std::filesystem::path largeFile(int millions, std::string const& format)
{
    static Scratch const scratch;
    auto const path = scratch.folder() / (format + std::to_string(millions));
    if (!std::filesystem::exists(path))
        Formats::writePart(path, "part", largePart(millions),
                           *Formats::FormatRegistry::instance().byName(format), {},
                           Formats::Overwrite::Refuse);
    return path;
}

std::size_t peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:") {
            std::size_t kibibytes = 0;
            status >> kibibytes;
            return kibibytes * 1024;
        }
    return 0;
}

void resetPeakMemory()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}
