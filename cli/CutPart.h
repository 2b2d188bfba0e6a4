// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/SourceFiles.h"
#include "host/mesh/MeshFacts.h"

#include <filesystem>
#include <string>
#include <vector>

namespace Mesh {
class DocumentObject;
}

/// A new part and the file it goes to. The document owns the part.
struct CutPiece
{
    Mesh::DocumentObject* object = nullptr;
    Formats::MeshFormat const* format = nullptr;
    std::filesystem::path file;
};

/// A part from the command line and what became of it.
struct CutPart
{
    std::string source;
    Formats::MeshFormat const* format = nullptr;
    Mesh::DocumentObject* object = nullptr;
    std::size_t triangles = 0;
    /// Measured only for a report.
    MeshFacts facts;
    std::vector<CutPiece> pieces;
};

/// Describes the parts before they are cut; `objects` has one for each source.
std::vector<CutPart> describeParts(std::vector<SourcePart> const& sources,
                                   std::vector<Mesh::DocumentObject*> const& objects, bool measure);
