// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/OrbeCmdZcut.h"

#include "cutjobs/SectionZCut.h"
#include "messages/Attention.h"
#include "platform/document/MeshDocument.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellViewSlider.h"

#include <QEventLoop>

namespace {

/// Runs the cut to its end and returns its message.
QString cutAtSlider(Mesh::Document* document, std::vector<Mesh::DocumentObject*> const& parts)
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
    return message;
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
    QString const message = cutAtSlider(document, parts);
    if (!message.isEmpty())
        Freecut::warnAttention(message);
}

bool OrbeCmdZcut::isActive()
{
    Mesh::Document const* const document = activeMeshDocument();
    return document && !document->getSelectedObjects().empty();
}
