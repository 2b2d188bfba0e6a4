// SPDX-License-Identifier: GPL-3.0-or-later
// near_copies [MOST [LEAST [MODEL]]]
//
// Combines the builders of the tests and the real models of LEAST to MOST triangles with hardly
// moved copies of themselves, in all operations. Tells the edges without partner, those of more than
// two triangles, and volumes that do not add up; models that have such edges themselves are left
// out.
#include "tests/support/NearCopies.h"

#include "benchmarks/ProcessorTime.h"
#include "platform/services/Intersect.h"
#include "tests/support/BooleanRuns.h"
#include "tests/support/MadeModels.h"
#include "tests/support/SurfaceEdges.h"
#include "tests/support/Validator.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

struct Tally
{
    std::size_t pairs = 0, bad = 0, open = 0, crowded = 0, refused = 0, volumes = 0;
};

/// What is wrong with one piece, in words.
std::string edgeFaults(char const* name, Soup const& piece, Tally& tally)
{
    judge::SurfaceEdges const edges = judge::edgesOf(piece);
    std::size_t const open = edges.borders + edges.disagreeing + edges.crowdedUnpaired;
    tally.open += open;
    tally.crowded += edges.crowdedPaired;
    if (edges.isClosed())
        return {};
    return std::string(" ") + name + ": open " + std::to_string(open) + ", of four " +
           std::to_string(edges.crowdedPaired);
}

std::string volumeFaults(Soup const& a, Soup const& b, BooleanPieces const& pieces)
{
    double const ofA = volumeOf(a), ofB = volumeOf(b), common = volumeOf(pieces.common);
    double const tolerance = 1e-6 * (std::abs(ofA) + std::abs(ofB));
    std::string faults;
    auto const expect = [&](char const* name, double volume, double expected) {
        if (!(std::abs(volume - expected) <= tolerance))
            faults += std::string(" ") + name + ": volume off by " +
                      std::to_string((volume - expected) / ofA) + " of all";
    };
    expect("union", volumeOf(pieces.united), ofA + ofB - common);
    expect("difference", volumeOf(pieces.difference), ofA - common);
    expect("within", volumeOf(pieces.within), common);
    expect("outside", volumeOf(pieces.outside), ofA - common);
    return faults;
}

void combine(std::string const& name, Soup const& part, Soup const& copy, Tally& tally)
{
    ++tally.pairs;
    double const start = processorSeconds();
    std::string faults;
    try {
        BooleanPieces const pieces = booleansOf(part, copy);
        double const seconds = processorSeconds() - start;
        faults = volumeFaults(part, copy, pieces);
        tally.volumes += !faults.empty();
        faults = edgeFaults("union", pieces.united, tally) +
                 edgeFaults("common", pieces.common, tally) +
                 edgeFaults("difference", pieces.difference, tally) +
                 edgeFaults("within", pieces.within, tally) +
                 edgeFaults("outside", pieces.outside, tally) + faults;
        std::printf("%s: %.2f s%s\n", name.c_str(), seconds, faults.c_str());
    } catch (Mell::Exception const& refusal) {
        faults = refusal.what();
        ++tally.refused;
        std::printf("%s: refused: %s\n", name.c_str(), refusal.what());
    }
    tally.bad += !faults.empty();
    std::fflush(stdout);
}

void combineWithCopies(NamedSoup const& model, Tally& tally)
{
    std::string const name = model.name + " (" + std::to_string(model.soup.triangles.size()) + ")";
    if (!judge::edgesOf(model.soup).isClosed()) {
        std::printf("%s has edges without partner or of more than two triangles\n", name.c_str());
        return;
    }
    for (int power = -6; power <= -3; ++power)
        combine(name + " shifted by 1e" + std::to_string(power) + " of its size", model.soup,
                shiftedCopy(model.soup, std::pow(10, power)), tally);
    for (int power = -7; power <= -3; ++power)
        combine(name + " turned by 1e" + std::to_string(power), model.soup,
                turnedCopy(model.soup, std::pow(10, power)), tally);
}

}  // namespace

int main(int argc, char** argv)
{
    auto const number = [&](int i, std::size_t standard) {
        return argc > i ? std::size_t(std::atoll(argv[i])) : standard;
    };
    std::size_t const most = number(1, 300'000), least = number(2, 0);
    std::string const only = argc > 3 ? argv[3] : "";
    std::vector<NamedSoup> models = closedMeshes();
    for (NamedSoup& model : soundModels(most))
        models.push_back(std::move(model));
    Tally tally;
    for (NamedSoup const& model : models)
        if (model.soup.triangles.size() >= least && model.soup.triangles.size() <= most &&
            model.name.find(only) != std::string::npos)
            combineWithCopies(model, tally);
    std::printf(
        "%zu pairs, %zu bad: %zu open edges, %zu of more than two triangles, %zu refused, "
        "%zu with wrong volumes\n",
        tally.pairs, tally.bad, tally.open, tally.crowded, tally.refused, tally.volumes);
    return tally.bad == 0 ? 0 : 1;
}
