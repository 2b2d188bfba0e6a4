// SPDX-License-Identifier: GPL-3.0-or-later
// real_pairs [FOLDER]
//
// Less each other: the real models of 10,000 to 100,000 triangles, each turned at random so that the
// middles of both boxes coincide and their surfaces meet in many places. A Markdown table: processor
// time of one thread beside CGAL's on the same meshes, medians of three in turn, kernels in to kernels out, and triangles of both results. FOLDER receives
// the operands as STL, for other programs.
#include "benchmarks/BooleanOperands.h"
#include "benchmarks/PeerBoolean.h"
#include "benchmarks/ProcessorTime.h"
#include "platform/services/Intersect.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/ModelFile.h"
#include "tests/support/RandomSolids.h"
#include "tests/support/Validator.h"

#include <tbb/global_control.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

namespace {

constexpr int rounds = 3;

double medianOf(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + std::ptrdiff_t(values.size() / 2),
                     values.end());
    return values[values.size() / 2];
}

/// Turned about the middle of its box, which comes to lie near the origin.
Soup turnedAboutMiddle(Soup soup, std::mt19937& random)
{
    UBox3<float> box;
    for (auto const& p : soup.points)
        box.Add(p);
    UPoint3<float> const middle = (box.min + box.max) * 0.5f;
    for (auto& p : soup.points)
        p = UPoint3<float>() + (p - middle);
    return moved(std::move(soup), randomMotion(random, 2));
}

struct Times
{
    double ours, theirs;
};

Times timesOf(MeshKernel& first, MeshKernel& second, PeerDifference& peer, Soup& result)
{
    std::vector<double> ours, theirs;
    // The first round touches the memory.
    for (int round = 0; round <= rounds; ++round) {
        MeshKernel kernel;
        std::vector<MeshKernel*> out{&kernel};
        double const start = processorSeconds();
        Intersect::boolean(
            &first, &second, out, Intersect::BOOLEAN_SUBTRACT, [](int) {}, 1);
        ours.push_back(processorSeconds() - start);
        result = soupOf(kernel);
        theirs.push_back(peer.run());
    }
    ours.erase(ours.begin());
    theirs.erase(theirs.begin());
    return {medianOf(ours), medianOf(theirs)};
}

void compare(NamedSoup const& a, NamedSoup const& b, std::mt19937& random,
             std::string const& folder)
{
    Soup const first = turnedAboutMiddle(a.soup, random),
               second = turnedAboutMiddle(b.soup, random);
    if (!folder.empty()) {
        writeStl(first, folder + "/" + a.name + "-less-" + b.name + "-first.stl");
        writeStl(second, folder + "/" + a.name + "-less-" + b.name + "-second.stl");
    }
    auto const firstKernel = kernelOf(first), secondKernel = kernelOf(second);
    PeerDifference peer(*firstKernel, *secondKernel);
    Soup result;
    Times const times = timesOf(*firstKernel, *secondKernel, peer, result);
    double const volume = volumeOf(result);
    bool const isSame = std::abs(volume - peer.volume()) <= 1e-6 * volume;
    std::string const faults = closedSolidFaults(result);
    std::printf("| %s less %s | %zu | %.1f ms | %.1f ms | %.1f | %zu | %zu |%s%s\n", a.name.c_str(),
                b.name.c_str(), first.triangles.size() + second.triangles.size(), 1e3 * times.ours,
                1e3 * times.theirs, times.theirs / times.ours, result.triangles.size(),
                peer.triangles(), isSame ? "" : " other volume", faults.c_str());
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv)
{
    std::string const folder = argc > 1 ? argv[1] : "";
    tbb::global_control const threads(tbb::global_control::max_allowed_parallelism, 1);
    std::vector<NamedSoup> models = closedRealMeshes(100'000);
    std::erase_if(models,
                  [](NamedSoup const& model) { return model.soup.triangles.size() < 10'000; });
    std::mt19937 random(2026);
    std::printf("| pair | triangles | ours | CGAL | times | triangles of ours | of CGAL's |\n");
    std::printf("|---|---|---|---|---|---|---|\n");
    for (std::size_t i = 0; i < models.size(); ++i)
        for (std::size_t k = i + 1; k < models.size(); ++k)
            compare(models[i], models[k], random, folder);
    return 0;
}
