// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/HeightCutCommand.h"

#include "app/commands/HostCommand.h"
#include "app/panels/HeightCutDialog.h"
#include "app/parts/PartPlacement.h"
#include "app/window/BriefNote.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellMessageBox.h"
#include "platform/ui/MellViewSlider.h"

#include <QCoreApplication>

namespace {

class HeightCutCommand : public HostCommand
{
public:
    HeightCutCommand()
        : HostCommand("Std_CutAtHeights",
                      {QT_TRANSLATE_NOOP("HostCommand", "Cut at Heights..."),
                       QT_TRANSLATE_NOOP("HostCommand",
                                         "Cut the selected parts at several heights at once, and "
                                         "keep all pieces or one."),
                       "app_cut_heights", "Shift+C"})
    {
        QObject::connect(&m_job, &HeightCut::finished, &m_job,
                         [this](HeightCut::Outcome outcome, int pieces, QString const& reason) {
                             tell(outcome, pieces, reason);
                         });
    }

    QString whyInactive() const override { return whyNothingSelected(); }

    void activated(int) override
    {
        Mesh::Document& document = *activeMeshDocument();
        auto const parts = document.getSelectedMeshObjects();
        HeightCutDialog dialog(PartPlacement::boxOf(parts),
                               double(MainWindow::getViewSlider()->getHeight()),
                               MainWindow::getInstance());
        // What is selected may have changed while it was open.
        if (dialog.exec() == QDialog::Accepted && activeMeshDocument() == &document &&
            document.getSelectedMeshObjects() == parts)
            m_job.start(document, parts, dialog.plan());
    }

private:
    void tell(HeightCut::Outcome outcome, int pieces, QString const& reason) const
    {
        switch (outcome) {
            case HeightCut::Outcome::Done:
                noteBriefly(
                    translated(QT_TRANSLATE_NOOP("HostCommand", "Pieces now: %1.")).arg(pieces));
                break;
            case HeightCut::Outcome::NothingMet:
                noteBriefly(translated(
                    QT_TRANSLATE_NOOP("HostCommand", "No height goes through the parts.")));
                break;
            case HeightCut::Outcome::Cancelled:
                noteBriefly(translated(QT_TRANSLATE_NOOP(
                    "HostCommand", "The cut was cancelled; the parts are as they were.")));
                break;
            case HeightCut::Outcome::Failed:
                MellMessageBox::warning(MainWindow::getInstance(),
                                        QCoreApplication::translate("MellCommons", "Attention"),
                                        reason, QCoreApplication::translate("MellCommons", "OK"),
                                        "", "", 0, -1);
                break;
        }
    }

    HeightCut m_job;
};

}  // namespace

void registerHeightCutCommand(Base::CommandManager& manager)
{
    manager.addCommand(new HeightCutCommand);
}
