// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/ArrangeCommand.h"

#include "app/commands/HostCommand.h"
#include "app/panels/FitText.h"
#include "app/parts/PlateArranging.h"
#include "app/view/BuildVolume.h"
#include "app/window/BriefNote.h"
#include "platform/ui/CommandManager.h"
#include "platform/view/GLView.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

class ArrangeCommand : public HostCommand
{
public:
    ArrangeCommand()
        : HostCommand("Std_Arrange",
                      {QT_TRANSLATE_NOOP("HostCommand", "Arrange on the Plate"),
                       QT_TRANSLATE_NOOP("HostCommand",
                                         "Put the selected parts, or all that are shown, side by "
                                         "side on the plate."),
                       "app_arrange", "Shift+A"})
    {}

    QString whyInactive() const override { return whyNoPart(); }

    void activated(int) override
    {
        constexpr double gapMm = 3;
        Mesh::Document& document = *activeMeshDocument();
        auto parts = document.getSelectedMeshObjects();
        if (parts.empty())
            parts = document.getPartList();
        BuildVolume const room = BuildVolume::stored();
        PlateArranging::Outcome outcome;
        PlateArranging::arrange(document, parts, {room.width, room.depth, room.height}, gapMm,
                                outcome);
        if (Base::GLView* const view = document.getView())
            view->fitAll();
        tell(outcome, room);
    }

private:
    void tell(PlateArranging::Outcome const& outcome, BuildVolume const& room) const
    {
        QStringList sentences;
        for (Mesh::DocumentObject const* const part : outcome.tooLarge)
            sentences << QString::fromStdString(part->getName()) + ": " +
                             FitText::of(part->getBoundingBox(), room);
        if (!outcome.onFurtherPlates.empty())
            sentences << translated(QT_TRANSLATE_NOOP("HostCommand",
                                                      "The plate is full: %1 of the parts stand "
                                                      "beside it, as on further plates."))
                             .arg(outcome.onFurtherPlates.size());
        noteBriefly(sentences.join(QStringLiteral("  ")));
    }
};

}  // namespace

void registerArrangeCommand(Base::CommandManager& manager)
{
    manager.addCommand(new ArrangeCommand);
}
