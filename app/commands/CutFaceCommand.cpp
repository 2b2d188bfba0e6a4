// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/CutFaceCommand.h"

#include "app/commands/HostCommand.h"
#include "app/parts/PartPlacement.h"
#include "app/window/BriefNote.h"
#include "platform/ui/CommandManager.h"

#include <QCoreApplication>

namespace {

using PartPlacement::Parts;

/// A sentence on one part by its name, or on several by their number.
QString sentence(Parts const& parts, char const* ofOne, char const* ofMany)
{
    if (parts.empty())
        return {};
    if (parts.size() == 1)
        return QCoreApplication::translate("CutFaceCommand", ofOne)
            .arg(QString::fromStdString(parts.front()->getName()));
    return QCoreApplication::translate("CutFaceCommand", ofMany).arg(int(parts.size()));
}

class CutFaceCommand : public HostCommand
{
public:
    CutFaceCommand()
        : HostCommand("Std_CutFaceDown",
                      {QT_TRANSLATE_NOOP("HostCommand", "Place the Cut Face Down"),
                       QT_TRANSLATE_NOOP("HostCommand",
                                         "Turn each selected piece until the face that the cut "
                                         "made lies on the plate."),
                       "app_cut_face_down", "Ctrl+Shift+L"})
    {}

    QString whyInactive() const override { return whyNothingSelected(); }

    void activated(int) override
    {
        Mesh::Document& document = *activeMeshDocument();
        PartPlacement::CutFaceOutcome outcome;
        PartPlacement::layOnCutFace(document, document.getSelectedMeshObjects(), outcome);
        QString const onLargest =
            sentence(outcome.onLargest,
                     QT_TRANSLATE_NOOP("CutFaceCommand",
                                       "%1 has no face of a cut to stand on; it lies on "
                                       "its largest flat face."),
                     QT_TRANSLATE_NOOP("CutFaceCommand",
                                       "%1 parts have no face of a cut to stand on; they "
                                       "lie on their largest flat faces."));
        QString const left =
            sentence(outcome.left,
                     QT_TRANSLATE_NOOP("CutFaceCommand",
                                       "%1 has no flat face to stand on and stays as it is."),
                     QT_TRANSLATE_NOOP("CutFaceCommand",
                                       "%1 parts have no flat face to stand on and stay as they "
                                       "are."));
        noteBriefly((onLargest + ' ' + left).trimmed());
    }
};

}  // namespace

void registerCutFaceCommand(Base::CommandManager& manager)
{
    manager.addCommand(new CutFaceCommand);
}
