// SPDX-License-Identifier: GPL-3.0-or-later
// Runs boolean operations on random solids whose faces, edges and corners coincide more often than
// not, and judges every result:
//
//     test_fuzz [--seconds S] [--seed N] [--runs R] [--exact 1]
//
// With --exact 1 it judges the exact combination, which the operations fall back to.
// Each run has the seed after that of the one before. It takes two solids and, with some of its
// results, a few steps more. A failure is told with its seed, and both operands are written into
// the working folder; `--seed N --runs 1` repeats it.
#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "host/services/exact/Corefinement.h"
#include "tests/fuzz/FuzzSolids.h"
#include "tests/support/BooleanRuns.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <functional>
#include <limits>
#include <optional>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

struct Options
{
    unsigned seconds = 60;
    unsigned seed = 1;
    unsigned runs = std::numeric_limits<unsigned>::max();
    unsigned exact = 0;
};

bool readOptions(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; i += 2) {
        unsigned* const value = std::strcmp(argv[i], "--seconds") == 0 ? &options.seconds
                                : std::strcmp(argv[i], "--seed") == 0  ? &options.seed
                                : std::strcmp(argv[i], "--runs") == 0  ? &options.runs
                                : std::strcmp(argv[i], "--exact") == 0 ? &options.exact
                                                                       : nullptr;
        if (!value || i + 1 == argc)
            return false;
        char const* const end = argv[i + 1] + std::strlen(argv[i + 1]);
        auto const read = std::from_chars(argv[i + 1], end, *value);
        if (read.ec != std::errc() || read.ptr != end)
            return false;
    }
    return true;
}

void writeStl(std::string const& name, Soup const& soup)
{
    Formats::writePart(name, "part", *kernelOf(soup),
                       *Formats::FormatRegistry::instance().byName("stl"), {},
                       Formats::Overwrite::Allow);
}

BooleanPieces exactPiecesOf(Soup const& a, Soup const& b)
{
    std::function<void(int)> const unasked;
    StageProgress progress(unasked);
    auto const solids = Exact::combine({a.points, a.triangles}, {b.points, b.triangles},
                                       {true, true, true}, progress);
    if (solids.fault != Exact::CombinationFault::none)
        throw Mell::Exception("fault " + std::to_string(int(solids.fault)));
    auto const soup = [](std::optional<MeshArrays> const& solid) {
        return Soup{solid->points, solid->triangles};
    };
    Soup const common = soup(solids.common), difference = soup(solids.difference);
    return {soup(solids.united), common, difference, common, difference};
}

class Fuzzing
{
public:
    explicit Fuzzing(bool isExact) : m_isExact(isExact) {}

    /// Runs all steps of one seed. Returns false at the first failure.
    bool run(unsigned seed)
    {
        std::mt19937 random(seed);
        Soup part = moved(randomFuzzSolid(random), randomFuzzMotion(random));
        for (int step = 0; step < 4; ++step) {
            Soup const tool = moved(randomFuzzSolid(random), randomFuzzMotion(random));
            BooleanPieces pieces;
            std::string const faults = judge(part, tool, pieces, random);
            if (!faults.empty()) {
                report(seed, step, part, tool, faults);
                return false;
            }
            Soup* const results[] = {&pieces.united, &pieces.common, &pieces.difference};
            Soup& next = *results[random() % 3];
            if (next.triangles.size() > 1500 || !isSoundSolid(next))
                break;
            part = std::move(next);
        }
        return true;
    }

    unsigned long operations() const { return m_operations; }

private:
    std::string judge(Soup const& part, Soup const& tool, BooleanPieces& pieces,
                      std::mt19937& random)
    {
        constexpr std::size_t samples = 12;
        try {
            pieces = m_isExact ? exactPiecesOf(part, tool) : booleansOf(part, tool);
            // Union, intersection, difference and split.
            m_operations += 4;
            return faultsOfPieces(part, tool, pieces, samples, random);
        } catch (Mell::Exception const& failure) {
            return std::string("thrown: ") + failure.what();
        } catch (std::exception const& failure) {
            return std::string("thrown: ") + failure.what();
        }
    }

    static void report(unsigned seed, int step, Soup const& part, Soup const& tool,
                       std::string const& faults)
    {
        std::string const name = "fuzz-" + std::to_string(seed);
        writeStl(name + "-a.stl", part);
        writeStl(name + "-b.stl", tool);
        std::printf(
            "seed %u, step %d: %s\n  operands of %zu and %zu triangles in %s-a.stl and "
            "%s-b.stl\n",
            seed, step, faults.c_str(), part.triangles.size(), tool.triangles.size(), name.c_str(),
            name.c_str());
        std::fflush(stdout);
    }

    bool m_isExact;
    unsigned long m_operations = 0;
};

}  // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!readOptions(argc, argv, options)) {
        std::fputs("usage: test_fuzz [--seconds S] [--seed N] [--runs R] [--exact 1]\n", stderr);
        return 2;
    }
    auto const end = Clock::now() + std::chrono::seconds(options.seconds);
    Fuzzing fuzzing(options.exact != 0);
    unsigned runs = 0, failures = 0;
    constexpr unsigned mostFailures = 20;
    while (runs < options.runs && Clock::now() < end && failures < mostFailures)
        failures += !fuzzing.run(options.seed + runs++);
    std::printf("%lu operations in %u runs from seed %u, %u failures\n", fuzzing.operations(), runs,
                options.seed, failures);
    return failures == 0 ? 0 : 1;
}
