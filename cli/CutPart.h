// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/SourceFiles.h"
#include "host/mesh/MeshFacts.h"

#include <filesystem>
#include <optional>
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

/// What a plane makes of a part, before it is cut.
struct SectionFacts
{
    /// Square millimetres.
    double area = 0;
    std::size_t contours = 0;
    /// Where pins or holes go; none if they were not asked for.
    std::optional<std::vector<UPoint3<float>>> positions;
    /// Why the halves stay plain although connectors were asked for, and what to do; or nothing.
    std::string warning;
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
    /// Of a section cut, measured only for a report.
    std::optional<SectionFacts> section;
    std::vector<CutPiece> pieces;
};

/// Describes a part before it is cut.
CutPart describePart(SourcePart const& source, MeshKernel const& kernel, bool measure);
