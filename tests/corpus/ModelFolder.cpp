// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/corpus/ModelFolder.h"

#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "platform/jobs/Exceptions.h"
#include "tests/support/PieceJudge.h"

#include <algorithm>
#include <cstdio>

namespace corpus {
namespace {

namespace fs = std::filesystem;

std::string kindOf(judge::Source const& source)
{
    judge::SurfaceEdges const& edges = source.edges();
    if (edges.borders > 0)
        return "open";
    if (!edges.isPaired())
        return "inconsistent";
    if (edges.crowdedPaired > 0)
        return "edges of more than two triangles";
    if (source.crossings().total() > 0)
        return "closed, crosses itself";
    return "clean";
}

Soup atPrintableSize(Soup soup, double diagonal)
{
    if (diagonal >= 10 && diagonal <= 2000)
        return soup;
    auto const factor = float(100 / diagonal);
    for (auto& p : soup.points)
        p = {p.X() * factor, p.Y() * factor, p.Z() * factor};
    return soup;
}

Part readModel(fs::path const& path)
{
    Soup soup;
    for (auto const& part : Formats::readParts(path.string()))
        soup.append(soupOf(*part.kernel));
    soup.joinPoints();
    double const diagonal =
        judge::WindingField(soup).bounds().Isnullptr() ? 100 : judge::Source(soup).diagonal();
    Soup sized = atPrintableSize(std::move(soup), diagonal);
    std::string kind = kindOf(judge::Source(sized));
    return {std::move(kind), path.stem().string(), std::move(sized)};
}

}  // namespace

void forEachModel(fs::path const& folder, std::function<void(Part const&)> const& visit)
{
    std::vector<fs::path> paths;
    for (fs::directory_entry const& entry : fs::directory_iterator(folder))
        if (entry.is_regular_file() && entry.path().extension() != ".md" &&
            entry.path().extension() != ".txt")
            paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    for (fs::path const& path : paths)
        try {
            visit(readModel(path));
        } catch (Mell::Exception const& failure) {
            std::fprintf(stderr, "%s: %s\n", path.c_str(), failure.what());
        }
}

}  // namespace corpus
