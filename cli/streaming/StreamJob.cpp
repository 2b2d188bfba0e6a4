// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/StreamJob.h"

#include "cli/Errors.h"
#include "cli/SourceList.h"
#include "cli/StandardStreams.h"
#include "cli/ZCutJob.h"
#include "cli/streaming/FacetFile.h"
#include "cli/streaming/StreamedCut.h"
#include "cutjobs/common/RemarkTexts.h"
#include "host/formats/FacetStream.h"
#include "host/formats/FormatRegistry.h"
#include "platform/document/RenamePara.h"
#include "platform/jobs/FlawException.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/services/HeightSlices.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

Formats::MeshFormat const& pieceFormat()
{
    return *Formats::FormatRegistry::instance().byName("stl");
}

UBox3<float> boxOf(FacetFile const& file)
{
    UBox3<float> box;
    file.read([&](std::span<Formats::Facet const> facets) {
        for (Formats::Facet const& facet : facets)
            for (UPoint3<float> const& corner : facet)
                box.Add(corner);
    });
    return box;
}

std::vector<double> heightsFor(FacetFile const& file, StreamHeights const& where)
{
    if (where.distance <= 0)
        return where.heights;
    if (!file.isFile())
        throw UsageError(
            "--every reads a part twice if it is cut while it is read; give a file instead of "
            "standard input.");
    return heightsOfSlices(boxOf(file), where.distance);
}

void enterPieces(CutPart& part, StreamedCut& cut)
{
    std::string const stem = part.name + Mesh::g_RenamePara.suffix.toStdString();
    for (auto& streamed : cut.takePieces()) {
        CutPiece& piece = part.pieces.emplace_back();
        piece.side = part.pieces.size() - 1;
        piece.name = stem + std::to_string(part.pieces.size());
        piece.facts = streamed->sums().facts();
        piece.streamed = std::move(streamed);
    }
}

}  // namespace

void requireStreamable(CutOptions const& options)
{
    auto const refuse = [](std::string const& option) {
        throw UsageError(option +
                         " needs parts in memory, but --stream cuts them while they are read.");
    };
    if (!options.pieces.format.empty() && options.pieces.format != pieceFormat().name())
        refuse("--format " + options.pieces.format);
    if (options.repair == RepairScope::All)
        refuse("--repair all");
    if (options.pieces.folder == standardStream)
        refuse("Standard output");
}

bool mustBeStreamed(CutOptions const& options)
{
    try {
        auto const files = sourceFiles(options.common.files, options.common.isRecursive);
        auto const isStandardInput = [](auto const& file) { return file == standardStream; };
        if (std::ranges::any_of(files, isStandardInput))
            return false;
        bool isTooLarge = false;
        for (std::string const& file : files) {
            Formats::InputFile const input(file, {});
            if (!Formats::canBeStreamed(input))
                return false;
            isTooLarge |= !Formats::fitsIntoMemory(input);
        }
        return isTooLarge;
    } catch (Mell::Exception const&) {
        return false;
    }
}

CutPart partToStream(std::string const& file)
{
    CutPart part;
    part.source = part.label = file;
    part.name = file == standardStream ? "stdin" : fs::path(file).stem().string();
    part.isStreamed = true;
    part.format = &pieceFormat();
    return part;
}

void cutWhileReading(CutPart& part, StreamHeights const& where, CutOptions const& options,
                     PieceFiles& files)
{
    Base::SequencerLauncher display(("Cutting " + part.source).c_str(), 100, true);
    display.setCancelEnabled(true);
    auto const show = [&](int percent) { display.setProgress(std::uint64_t(percent)); };
    FacetFile const file(part.source, options.common.scale(),
                         [&](int percent) { show(percent * 9 / 10); });
    StreamedCut cut(heightsFor(file, where), files.begin(part.name, pieceFormat()));
    file.read([&](std::span<Formats::Facet const> facets) { cut.take(facets); });
    try {
        part.remarks =
            remarksOn(cut.finish([&](int percent) { show(90 + percent / 10); }), nullptr);
    } catch (Mell::FlawException const& flaw) {
        throw CutError(flaw.what());
    }
    part.facts = cut.facts();
    part.triangles = part.facts.triangles;
    enterPieces(part, cut);
    if (part.pieces.size() < 2)
        part.remarks.push_back(planeMisses(nullptr, false));
}
