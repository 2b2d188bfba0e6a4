// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/PlaceText.h"

#include <charconv>

QString coordinateText(float value)
{
    char buffer[32];
    auto const end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 6).ptr;
    return QString::fromLatin1(buffer, int(end - buffer));
}

QString withPlace(QString const& text, UPoint3<float> const& place)
{
    return text.arg(coordinateText(place.X()), coordinateText(place.Y()),
                    coordinateText(place.Z()));
}
