// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/OrbeCmdZcut.h"

#include "cutjobs/PartRepair.h"
#include "cutjobs/SectionZCut.h"
#include "dialogs/CutFailureMessage.h"
#include "dialogs/CutNotes.h"
#include "platform/document/MeshDocument.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellViewSlider.h"

#include <QEventLoop>

namespace {

/// How a cut has ended.
struct Outcome
{
    /// Empty unless it has failed.
    QString message;
    CutFailure failure;
    Freecut::CutNotes notes;
};

/// Runs the cut to its end.
Outcome cutAtSlider(Mesh::Document* document, std::vector<Mesh::DocumentObject*> const& parts)
{
    QEventLoop loop;
    Freecut::SectionZCut cut(nullptr);
    cut.setDocument(document);
    QString message;
    QObject::connect(
        &cut, &Freecut::SectionZCut::finished, &loop,
        [&](int code, QString const& text) {
            message = text;
            if (loop.isRunning())
                loop.exit(code);
        },
        Qt::DirectConnection);
    cut.startZCut(parts, MainWindow::getViewSlider()->getHeight());
    loop.exec();
    return {message, cut.failure(), Freecut::CutNotes(cut.remarks())};
}

/// Repairs a part of the document. False, with the reason told, if it stays as it was.
bool mend(Mesh::DocumentObject* part, Mesh::Document* document)
{
    QEventLoop loop;
    Freecut::PartRepair repair;
    auto end = Freecut::PartRepair::End::Cancelled;
    QObject::connect(&repair, &Freecut::PartRepair::finished, &loop, [&](auto repairEnd) {
        end = repairEnd;
        loop.quit();
    });
    repair.start(part, document);
    loop.exec();
    Freecut::tellUnmended(end);
    return end == Freecut::PartRepair::End::Mended;
}

}  // namespace

void OrbeCmdZcut::activated(int)
{
    Base::Document* const active = activeDocument();
    if (!active || active->getClassName() != "Mesh::Document")
        return;
    auto* const document = static_cast<Mesh::Document*>(active);
    std::vector<Mesh::DocumentObject*> const parts = document->getSelectedMeshObjects();
    if (parts.empty())
        return;
    Mesh::DocumentObject const* mended = nullptr;
    for (;;) {
        Outcome const outcome = cutAtSlider(document, parts);
        CutFailure const& failure = outcome.failure;
        if (outcome.message.isEmpty())
            return outcome.notes.tell();
        auto const wayOut = Freecut::tellCutFailure(outcome.message, failure, document->getView(),
                                                    !mended || failure.part != mended);
        if (wayOut != Freecut::WayOut::RepairAndCutAgain || !mend(failure.part, document))
            return;
        mended = failure.part;
    }
}

bool OrbeCmdZcut::isActive()
{
    Mesh::Document const* const document = activeMeshDocument();
    return document && !document->getSelectedObjects().empty();
}
