// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorPositions.h"

#include "connectors/ConnectorLimits.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>
#include <QString>

namespace {

QString placeText(UPoint3<float> const& p)
{
    return QStringLiteral("(%1, %2, %3)").arg(p.X()).arg(p.Y()).arg(p.Z());
}

}  // namespace

float leastDistance(PinHoleParas const& paras)
{
    return float(ConnectorLimits::PinHole::leastSpacing(paras.radius, paras.sideclearance));
}

std::optional<std::pair<std::size_t, std::size_t>> overlappingPair(
    std::span<UPoint3<float> const> positions, PinHoleParas const& paras)
{
    // Positions that were placed this far apart may be a rounding nearer.
    double const least = double(leastDistance(paras)) * (1 - 1e-5);
    for (std::size_t i = 0; i < positions.size(); ++i)
        for (std::size_t k = i + 1; k < positions.size(); ++k)
            if ((positions[k] - positions[i]).GetLength() < least)
                return std::pair(i, k);
    return {};
}

void refuseOverlaps(std::span<UPoint3<float> const> positions, PinHoleParas const& paras)
{
    auto const pair = overlappingPair(positions, paras);
    if (!pair)
        return;
    throw Mell::Exception(
        QCoreApplication::translate("Connectors",
                                    "The connectors at %1 and %2 mm overlap. Leave one of them "
                                    "out, or keep them %3 mm apart.")
            .arg(placeText(positions[pair->first]), placeText(positions[pair->second]))
            .arg(double(leastDistance(paras)))
            .toStdString());
}
