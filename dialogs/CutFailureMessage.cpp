// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CutFailureMessage.h"

#include "messages/Attention.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/PlaceMark.h"

#include <QCoreApplication>

namespace Freecut {

namespace {

QString translated(char const* text)
{
    return QCoreApplication::translate("DialogFreeCut", text);
}

}  // namespace

QString reasonWithPart(CutFailure const& failure)
{
    QString const reason = QString::fromStdString(failure.reason);
    if (!failure.part || reason.isEmpty())
        return reason;
    return QStringLiteral("%1: %2").arg(QString::fromStdString(failure.part->getName()), reason);
}

WayOut tellCutFailure(QString const& message, CutFailure const& failure, Base::GLView* view,
                      bool offersRepair)
{
    QStringList waysOut;
    int show = -2, repair = -2;
    if (view && failure.place) {
        show = int(waysOut.size());
        waysOut << translated(QT_TRANSLATE_NOOP("DialogFreeCut", "Show in View"));
    }
    if (offersRepair && failure.part && failure.repairMayHelp) {
        repair = int(waysOut.size());
        waysOut << translated(QT_TRANSLATE_NOOP("DialogFreeCut", "Repair and Cut Again"));
    }
    int const chosen = warnFailure(message, reasonWithPart(failure), waysOut);
    if (chosen == show)
        Base::PlaceMark::show(*view, *failure.place, failure.part);
    return chosen == repair ? WayOut::RepairAndCutAgain : WayOut::None;
}

void tellUnmended(PartRepair::End end)
{
    if (end == PartRepair::End::NothingMended)
        warnAttention(translated(
            QT_TRANSLATE_NOOP("DialogFreeCut",
                              "The repair could not mend the part, which stays as it is. Move the "
                              "cut, or mend the part in the program that it comes from.")));
}

}  // namespace Freecut
