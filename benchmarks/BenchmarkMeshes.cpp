// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"

#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "tests/support/MeshBuilders.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <string>
#include <unistd.h>

namespace {

/// A model split and smoothed until it has about as many triangles as asked for; a ball where the
/// model is missing.
std::unique_ptr<MeshKernel> makePart(int millions)
{
    std::size_t const triangles = std::size_t(millions) * 1000000;
    Soup soup = realMesh("igea-269k.stl");
    if (soup.triangles.empty())
        soup = sphere(50, 370, 370);
    while (soup.triangles.size() < triangles)
        soup = subdivided(soup);
    return kernelOf(soup);
}

/// Not as wide as the triangle that it is about the middle of.
Soup octahedronIn(Soup const& soup, std::size_t triangle)
{
    auto const& corners = soup.triangles[triangle];
    UPoint3<float> const &a = soup.points[corners[0]], &b = soup.points[corners[1]],
                         &c = soup.points[corners[2]];
    UPoint3<float> const middle = (a + b + c) * (1.0f / 3);
    float const reach =
        0.3f * std::max({(b - a).GetLength(), (c - b).GetLength(), (a - c).GetLength()});
    Soup small;
    for (int axis = 0; axis < 3; ++axis)
        for (float const sign : {1.0f, -1.0f}) {
            UPoint3<float> tip = middle;
            tip[axis] += sign * reach * (1 + 0.1f * float(axis));
            small.add(tip);
        }
    for (auto const& [x, y] : {std::pair(0, 2), {2, 1}, {1, 3}, {3, 0}}) {
        small.add(std::uint32_t(x), std::uint32_t(y), 4);
        small.add(std::uint32_t(y), std::uint32_t(x), 5);
    }
    return small;
}

std::unique_ptr<MeshKernel> makePartWithCrossings()
{
    Soup soup = soupOf(largePart(1));
    UBox3<float> const box = largePart(1).GetBox();
    float const level = (box.MinZ() + box.MaxZ()) / 2;
    std::vector<std::size_t> atLevel;
    for (std::size_t t = 0; t < soup.triangles.size(); ++t) {
        float low = soup.points[soup.triangles[t][0]].Z(), high = low;
        for (std::uint32_t const corner : soup.triangles[t]) {
            low = std::min(low, soup.points[corner].Z());
            high = std::max(high, soup.points[corner].Z());
        }
        if (low < level && level < high)
            atLevel.push_back(t);
    }
    for (std::size_t const place : {std::size_t(0), atLevel.size() / 2})
        soup.append(octahedronIn(soup, atLevel.at(place)));
    return kernelOf(soup);
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

MeshKernel const& largePartWithCrossings()
{
    static std::unique_ptr<MeshKernel> const part = makePartWithCrossings();
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
