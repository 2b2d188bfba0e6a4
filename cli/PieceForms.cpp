// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PieceForms.h"

#include "host/formats/FormatRegistry.h"

void settleForms(std::vector<CutPart>& parts, PieceOptions const& options)
{
    auto const* const chosen = Formats::FormatRegistry::instance().byName(options.format);
    for (CutPart& part : parts)
        for (CutPiece& piece : part.pieces) {
            piece.format = chosen ? chosen : part.format;
            piece.color = part.color;
        }
}
