// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/OrbeCmdZcut.h"

#include "cutjobs/SectionZCut.h"
#include "dialogs/CutNotes.h"
#include "messages/Attention.h"
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
    QString reason;
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
    return {message, cut.reason(), Freecut::CutNotes(cut.remarks())};
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
    Outcome const outcome = cutAtSlider(document, parts);
    if (outcome.message.isEmpty())
        outcome.notes.tell();
    else
        Freecut::warnFailure(outcome.message, outcome.reason);
}

bool OrbeCmdZcut::isActive()
{
    Mesh::Document const* const document = activeMeshDocument();
    return document && !document->getSelectedObjects().empty();
}
