// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ZCutJob.h"

#include "cli/DocumentParts.h"
#include "cli/Errors.h"
#include "cutjobs/SectionZCut.h"
#include "cutjobs/common/RemarkTexts.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/document/RenamePara.h"
#include "platform/jobs/FlawException.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/services/HeightSlices.h"

#include <QEventLoop>

#include <optional>
#include <span>

namespace {

struct Outcome
{
    int code;
    QString message;
};

/// Starts the cut and handles events until it has finished.
template <typename Start>
Outcome waitFor(Freecut::SectionZCut& cut, Start const& start)
{
    QEventLoop loop;
    std::optional<Outcome> outcome;
    QObject::connect(
        &cut, &Freecut::SectionZCut::finished, &loop,
        [&](int code, QString const& message) {
            outcome = {code, message};
            loop.quit();
        },
        Qt::DirectConnection);
    start();
    if (!outcome)
        loop.exec();
    return *outcome;
}

}  // namespace

void cutAtHeight(Mesh::Document& document, CutPart& part, float height, RepairScope repair)
{
    Freecut::SectionZCut cut(nullptr);
    cut.setDocument(&document);
    cut.setPara({.undoable = true, .repair = repair != RepairScope::None});
    cut.setRepairsWhole(repair == RepairScope::All);
    Outcome const outcome = waitFor(cut, [&] { cut.startZCut({part.object}, height); });
    if (outcome.code < 0)
        throw Mell::AbortException("Aborting...");
    if (outcome.code == 0)
        throw CutError(cut.failure(), outcome.message);
    part.remarks = cut.remarks();
    for (auto const& [source, pieces] : cut.newParts()) {
        std::vector<Repair::Report> const& repairs = cut.repairReports().at(source);
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            part.pieces.push_back(pieceOf(*pieces[i]));
            part.pieces.back().repair = repairs[i];
            part.pieces.back().side = i;
        }
    }
}

std::vector<double> heightsOfSlices(UBox3<float> const& box, float distance)
{
    std::vector<double> heights = HeightSlices::everyDistance(box, double(distance));
    if (heights.size() >= HeightSlices::mostHeights)
        throw UsageError("--every " + std::to_string(distance) + " makes more than " +
                         std::to_string(HeightSlices::mostHeights) +
                         " slices of a part; give a greater height.");
    return heights;
}

void cutIntoSlices(CutPart& part, float distance)
{
    std::vector<double> const heights = heightsOfSlices(part.object->getBoundingBox(), distance);
    Base::SequencerLauncher display("Cutting at heights", 100, true);
    display.setCancelEnabled(true);
    HeightSlices slices;
    try {
        slices = sliceAtHeights(*part.object->meshProperty->shareMesh(), heights,
                                [&](int percent) { display.setProgress(std::uint64_t(percent)); });
    } catch (Mell::FlawException const& flaw) {
        throw CutError({flaw.what(), flaw.place(), flaw.repairMayHelp(), part.object}, {});
    }
    part.remarks = remarksOn(slices.notes, part.object);
    if (slices.pieces.size() == 1)
        part.remarks.push_back(planeMisses(part.object, false));
    std::string const stem = part.object->getName() + Mesh::g_RenamePara.suffix.toStdString();
    for (auto slice = slices.pieces.rbegin(); slice != slices.pieces.rend(); ++slice) {
        CutPiece& piece = part.pieces.emplace_back();
        piece.name = stem + std::to_string(part.pieces.size());
        piece.kernel = *slice;
    }
}
