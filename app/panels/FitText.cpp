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

QString length(double millimetres)
{
    return Base::Quantity::toUserString(millimetres, Base::Unit::length, 'f', 2, QLatin1Char(' '),
                                        false);
}

/// By how much the part is too large; empty if it is not.
QString tooLarge(UBox3<float> const& box, PlateArranging::Volume const& volume)
{
    PlateArranging::Volume const beyond = PlateArranging::excess(box, volume);
    char const* const sentences[] = {QT_TRANSLATE_NOOP("FitText", "%1 too wide"),
                                     QT_TRANSLATE_NOOP("FitText", "%1 too deep"),
                                     QT_TRANSLATE_NOOP("FitText", "%1 too high")};
    QStringList parts;
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (beyond[axis] > 0)
            parts << translated(sentences[axis]).arg(length(beyond[axis]));
    return parts.join(QStringLiteral(", "));
}

}  // namespace

QString misfit(UBox3<float> const& box, BuildVolume const& room)
{
    PlateArranging::Volume const volume{room.width, room.depth, room.height};
    if (box.Isnullptr() || PlateArranging::isInside(box, volume))
        return {};
    if (QString const text = tooLarge(box, volume); !text.isEmpty())
        return text;
    struct Side
    {
        double beyond;
        char const* text;
    };
    Side const sides[] = {{-room.width / 2 - double(box.min[0]),
                           QT_TRANSLATE_NOOP("FitText", "%1 beyond the plate at the left")},
                          {double(box.max[0]) - room.width / 2,
                           QT_TRANSLATE_NOOP("FitText", "%1 beyond the plate at the right")},
                          {-room.depth / 2 - double(box.min[1]),
                           QT_TRANSLATE_NOOP("FitText", "%1 beyond the plate at the front")},
                          {double(box.max[1]) - room.depth / 2,
                           QT_TRANSLATE_NOOP("FitText", "%1 beyond the plate at the back")},
                          {-double(box.min[2]), QT_TRANSLATE_NOOP("FitText", "%1 below the plate")},
                          {double(box.max[2]) - room.height,
                           QT_TRANSLATE_NOOP("FitText", "%1 above the build volume")}};
    QStringList parts;
    for (Side const& side : sides)
        if (side.beyond > PlateArranging::slackMm)
            parts << translated(side.text).arg(length(side.beyond));
    return parts.join(QStringLiteral(", "));
}

QString of(UBox3<float> const& box, BuildVolume const& room)
{
    if (box.Isnullptr())
        return translated(QT_TRANSLATE_NOOP("FitText", "fits"));
    PlateArranging::Volume const volume{room.width, room.depth, room.height};
    if (QString const text = tooLarge(box, volume); !text.isEmpty())
        return text;
    return PlateArranging::isInside(box, volume)
               ? translated(QT_TRANSLATE_NOOP("FitText", "fits"))
               : translated(QT_TRANSLATE_NOOP("FitText", "fits, but reaches beyond the plate"));
}

}  // namespace FitText
