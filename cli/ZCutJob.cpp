// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ZCutJob.h"

#include "cli/DocumentParts.h"
#include "cli/Errors.h"
#include "cutjobs/SectionZCut.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

#include <QEventLoop>

#include <optional>

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
