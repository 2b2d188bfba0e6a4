// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/StreamJob.h"

#include "cli/Errors.h"
#include "cli/StandardStreams.h"
#include "cli/streaming/StreamedCut.h"
#include "cutjobs/common/RemarkTexts.h"
#include "host/formats/FormatRegistry.h"
#include "platform/document/RenamePara.h"
#include "platform/jobs/FlawException.h"
#include "platform/jobs/SequencerLauncher.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

void enterPieces(CutPart& part, StreamedCut& cut, std::string const& soleEnding)
{
    std::string const stem = part.name + Mesh::g_RenamePara.suffix.toStdString();
    for (auto& streamed : cut.takePieces()) {
        CutPiece& piece = part.pieces.emplace_back();
        piece.side = part.pieces.size() - 1;
        piece.name = stem + std::to_string(part.pieces.size());
        piece.facts = streamed->sums().facts();
        piece.streamed = std::move(streamed);
    }
    if (part.pieces.size() == 1)
        part.pieces[0].name = part.name + soleEnding;
}

}  // namespace

Formats::MeshFormat const& streamedFormat()
{
    return *Formats::FormatRegistry::instance().byName("stl");
}

CutPart partToStream(std::string const& file)
{
    CutPart part;
    part.source = part.label = file;
    part.name = file == standardStream ? "stdin" : fs::path(file).stem().string();
    part.isStreamed = true;
    part.format = &streamedFormat();
    return part;
}

void cutWhileReading(CutPart& part, PlanesFor const& planesFor, std::string const& soleEnding,
                     CutOptions const& options, PieceFiles& files)
{
    Base::SequencerLauncher display(("Cutting " + part.source).c_str(), 100, true);
    display.setCancelEnabled(true);
    auto const show = [&](int percent) { display.setProgress(std::uint64_t(percent)); };
    FacetFile const file(part.source, options.common.scale(),
                         [&](int percent) { show(percent * 9 / 10); });
    StreamedCut cut(planesFor(file), files.begin(part.name, streamedFormat()));
    file.read([&](std::span<Formats::Facet const> facets) { cut.take(facets); });
    try {
        cut.finish([&](int percent) { show(90 + percent / 10); });
    } catch (Mell::FlawException const& flaw) {
        throw CutError(flaw.what());
    }
    part.remarks = remarksOn(cut.notes(), nullptr);
    part.section = cut.section();
    part.facts = cut.facts();
    part.triangles = part.facts.triangles;
    enterPieces(part, cut, soleEnding);
    if (part.pieces.size() < 2)
        part.remarks.push_back(planeMisses(nullptr, false));
}
