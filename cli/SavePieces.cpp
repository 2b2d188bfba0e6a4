// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SavePieces.h"

#include "host/formats/FormatRegistry.h"

void savePieces(std::vector<CutPart>& parts, PieceOptions const& options, PieceFiles& files)
{
    auto const* const chosen = Formats::FormatRegistry::instance().byName(options.format);
    // All names first: a file in the way is found before anything is written.
    for (CutPart& part : parts)
        for (CutPiece& piece : part.pieces) {
            piece.format = chosen ? chosen : part.format;
            piece.file = files.reserve(piece.name, *piece.format);
        }
    for (CutPart const& part : parts)
        for (CutPiece const& piece : part.pieces)
            files.write(piece.file, piece.name, *piece.kernel, *piece.format);
}
