// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/SoundPieces.h"

#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>

#include <cmath>

void requireSoundPieces(MeshFacts const& part, std::span<MeshFacts const> pieces)
{
    constexpr double tolerance = 1e-4;
    if (!part.closed)
        return;
    double volume = 0;
    bool isClosed = true;
    for (MeshFacts const& piece : pieces) {
        volume += piece.volume;
        isClosed = isClosed && piece.closed;
    }
    if (isClosed && std::abs(volume - part.volume) <= tolerance * std::abs(part.volume))
        return;
    throw Mell::Exception(
        QCoreApplication::translate("SoundPieces",
                                    "The pieces would not be sound. Repair the part, or cut it a "
                                    "little elsewhere.")
            .toStdString());
}
