// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SavePieces.h"

#include "cli/DocumentParts.h"
#include "cli/PieceForms.h"
#include "cli/streaming/StreamedPiece.h"
#include "host/formats/FormatRegistry.h"
#include "platform/document/MeshDocumentObject.h"

void writePieces(std::vector<CutPart>& parts, PieceOptions const& options, PieceFiles& files)
{
    settleForms(parts, options);
    // All names first: a file in the way is found before anything is written.
    for (CutPart& part : parts)
        for (CutPiece& piece : part.pieces)
            piece.file = files.reserve(piece.name, *piece.format);
    for (CutPart const& part : parts)
        for (CutPiece const& piece : part.pieces)
            if (piece.streamed)
                files.complete(piece.streamed->file(), piece.file);
            else
                files.write(piece.file, piece);
}

void appendOriginals(std::vector<CutPart>& parts, PieceOptions const& options,
                     PieceFiles const* files)
{
    auto const* const chosen = Formats::FormatRegistry::instance().byName(options.format);
    for (CutPart& part : parts) {
        if (!part.object || part.failure)
            continue;
        std::string const name = part.object->getName();
        std::error_code error;
        if (files && std::filesystem::equivalent(
                         files->fileFor(name, chosen ? *chosen : *part.format), part.source, error))
            continue;
        part.pieces.push_back(pieceOf(*part.object));
        part.pieces.back().facts = measureMesh(*part.pieces.back().kernel);
    }
}
