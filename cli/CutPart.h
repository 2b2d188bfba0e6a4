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

/// A new part and the file it goes to. Whoever has made the piece owns the kernel.
struct CutPiece
{
    std::string name;
    MeshKernel const* kernel = nullptr;
    Formats::MeshFormat const* format = nullptr;
    std::filesystem::path file;
};

/// A part from the command line and what became of it.
struct CutPart
{
    std::string source;
    Formats::MeshFormat const* format = nullptr;
    /// The part in the document, if it is in one.
    Mesh::DocumentObject* object = nullptr;
    std::size_t triangles = 0;
    /// Measured only for a report.
    MeshFacts facts;
    std::vector<CutPiece> pieces;
};

/// Describes a part before it is cut.
CutPart describePart(SourcePart const& source, MeshKernel const& kernel, bool measure);
