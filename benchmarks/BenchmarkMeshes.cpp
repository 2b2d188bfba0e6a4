// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/BenchmarkMeshes.h"

#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "tests/support/MeshBuilders.h"

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
