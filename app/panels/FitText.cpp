// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/FitText.h"

#include "app/parts/PlateArranging.h"
#include "platform/ui/Quantity.h"

#include <QCoreApplication>
#include <QStringList>

namespace FitText {

namespace {

QString translated(char const* text)
{
    return QCoreApplication::translate("FitText", text);
}

}  // namespace

QString of(UBox3<float> const& box, BuildVolume const& room)
{
    if (box.Isnullptr())
        return translated(QT_TRANSLATE_NOOP("FitText", "fits"));
    PlateArranging::Volume const volume{room.width, room.depth, room.height};
    PlateArranging::Volume const beyond = PlateArranging::excess(box, volume);
    char const* const sentences[] = {QT_TRANSLATE_NOOP("FitText", "%1 too wide"),
                                     QT_TRANSLATE_NOOP("FitText", "%1 too deep"),
                                     QT_TRANSLATE_NOOP("FitText", "%1 too high")};
    QStringList tooLarge;
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (beyond[axis] > 0)
            tooLarge << translated(sentences[axis])
                            .arg(Base::Quantity::toUserString(beyond[axis], Base::Unit::length, 'f',
                                                              2, QLatin1Char(' '), false));
    if (!tooLarge.isEmpty())
        return tooLarge.join(QStringLiteral(", "));
    return PlateArranging::isInside(box, volume)
               ? translated(QT_TRANSLATE_NOOP("FitText", "fits"))
               : translated(QT_TRANSLATE_NOOP("FitText", "fits, but reaches beyond the plate"));
}

}  // namespace FitText
