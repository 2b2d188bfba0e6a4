// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/BrokenRuns.h"

#include "tests/fuzz/FuzzFiles.h"
#include "tests/fuzz/FuzzParts.h"

#include <cstdio>
#include <ctime>

namespace {

void report(std::string const& operation, unsigned seed, Soup const& part, FuzzTrial const& trial)
{
    std::string const name = "fuzz-broken-" + std::to_string(seed);
    writeFuzzStl(name + "-a.stl", part);
    if (!trial.tool.triangles.empty())
        writeFuzzStl(name + "-b.stl", trial.tool);
    std::printf("%s, seed %u, %s: %s\n  a part of %zu triangles in %s-a.stl\n", operation.c_str(),
                seed, trial.operation.c_str(), trial.faults.c_str(), part.triangles.size(),
                name.c_str());
    std::fflush(stdout);
}

/// Whether a part winds below zero beside one of its triangles.
bool windsBelowZero(Soup const& part)
{
    judge::WindingField const field(part);
    for (auto const& t : part.triangles) {
        UPoint3<double> p[3];
        for (std::size_t i = 0; i < 3; ++i)
            p[i] = {part.points[t[i]].X(), part.points[t[i]].Y(), part.points[t[i]].Z()};
        UVector3<double> normal = (p[1] - p[0]) * (p[2] - p[0]);
        normal.Normalize();
        for (double const share : {0.1, 0.3, 0.45})
            for (double const height : {1e-5, -1e-5})
                if (field
                        .windingAt(p[0] + (p[1] - p[0]) * share +
                                   (p[2] - p[0]) * (0.97 - 2 * share) + normal * height)
                        .value_or(0) < 0)
                    return true;
    }
    return false;
}

}  // namespace

BrokenRuns::BrokenRuns(std::string const& operation, bool withInverted)
    : m_withInverted(withInverted)
{
    for (FuzzOperation const& one : fuzzOperations())
        if (operation.empty() || one.name == operation)
            m_operations.push_back(one);
}

bool BrokenRuns::run(unsigned seed)
{
    std::clock_t const start = std::clock();
    std::mt19937 random(seed);
    FuzzOperation const& operation = choose(random);
    Soup const part = makePart(random);
    judge::Source const source(part);
    FuzzTrial const trial = operation.run(source, random);
    Counts& counts = m_counts[operation.name];
    ++counts.runs;
    counts.refusals += trial.isRefused;
    counts.seconds += double(std::clock() - start) / CLOCKS_PER_SEC;
    if (trial.faults.empty())
        return true;
    ++counts.failures;
    report(operation.name, seed, part, trial);
    return false;
}

Soup BrokenRuns::makePart(std::mt19937& random) const
{
    Soup part = randomBrokenPart(random, m_withInverted);
    // Shells that take each other away may leave nothing.
    while (part.triangles.empty() || (!m_withInverted && windsBelowZero(part)))
        part = randomBrokenPart(random, m_withInverted);
    return m_withInverted && random() % 8 == 0 ? damaged(std::move(part), random) : part;
}

FuzzOperation const& BrokenRuns::choose(std::mt19937& random) const
{
    unsigned all = 0;
    for (FuzzOperation const& one : m_operations)
        all += one.share;
    unsigned place = unsigned(random() % all);
    for (FuzzOperation const& one : m_operations) {
        if (place < one.share)
            return one;
        place -= one.share;
    }
    return m_operations.back();
}

unsigned long BrokenRuns::operations() const
{
    unsigned long runs = 0;
    for (auto const& [name, counts] : m_counts)
        runs += counts.runs;
    return runs;
}

void BrokenRuns::printCounts() const
{
    for (auto const& [name, counts] : m_counts)
        std::printf("  %-10s %9lu runs, %7lu refused, %5lu failed, %7.2f ms each\n", name.c_str(),
                    counts.runs, counts.refusals, counts.failures,
                    1000 * counts.seconds / double(counts.runs));
}
