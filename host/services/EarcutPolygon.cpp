// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/EarcutPolygon.h"

#include "host/services/RingFilling.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>

#include <cmath>

std::vector<int> EarcutPolygon::earcut(std::vector<std::vector<std::array<double, 2>>> const& rings,
                                       std::function<void(int)> progress)
{
    for (auto const& ring : rings)
        for (auto const& [x, y] : ring)
            if (!std::isfinite(x) || !std::isfinite(y))
                throw Mell::Exception(
                    QCoreApplication::translate(
                        "Services", "A contour has a coordinate that is no number; draw it again.")
                        .toStdString());
    return RingFilling(rings).fill(progress);
}
