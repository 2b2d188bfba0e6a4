// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Failure.h"
#include "connectors/ConnectorChoice.h"
#include "cutjobs/common/CutRemark.h"
#include "host/mesh/MeshFacts.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/services/Repair.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Formats {
class MeshFormat;
}
class StreamedPiece;
namespace Mesh {
class DocumentObject;
}

/// A new part and the file it goes to.
struct CutPiece
{
    std::string name;
    /// Null for a piece that was cut while its part was read.
    std::shared_ptr<MeshKernel const> kernel;
    /// The file that it went to, which has no name yet; null for others.
    std::shared_ptr<StreamedPiece> streamed;
    Formats::MeshFormat const* format = nullptr;
    /// As 0xRRGGBBAA; 0 for none.
    unsigned color = 0;
    std::filesystem::path file;
    /// Measured once the part is cut.
    MeshFacts facts;
    /// What a repair did to it; none if none has looked at it.
    std::optional<Repair::Report> repair;
    /// Which of two pieces it is, 0 for the upper one of a plane and the inner one of a tool.
    std::size_t side = 0;
};

/// What a plane makes of a part, before it is cut.
struct SectionFacts
{
    /// Square millimetres.
    double area = 0;
    std::size_t contours = 0;
    /// Where pins or holes go; none if they were not asked for.
    std::optional<std::vector<UPoint3<float>>> positions;
    /// The same with those that do not stand, in the order of their numbers; only of a survey.
    std::vector<ChosenConnector> connectors;
};

/// A part from the command line and what became of it.
struct CutPart
{
    /// Its place among the parts of the run, in the order of the command line.
    std::size_t place = 0;
    /// The file's path as it was given.
    std::string source;
    /// What to call it to a person: the file, with the part's name where the file holds several.
    std::string label;
    bool isOnlyOfFile = true;
    Formats::MeshFormat const* format = nullptr;
    /// Pieces are named after it.
    std::string name;
    /// The part in the document; null if the file could not be read, or is cut while it is read.
    Mesh::DocumentObject* object = nullptr;
    bool isStreamed = false;
    /// As 0xRRGGBBAA, which its pieces get; 0 for none.
    unsigned color = 0;
    std::size_t triangles = 0;
    /// Measured only for a report.
    MeshFacts facts;
    /// Of a section cut, measured only for a report.
    std::optional<SectionFacts> section;
    /// What a repair did to the whole part before it was cut; none if it was cut as it is.
    std::optional<Repair::Report> repair;
    std::vector<CutPiece> pieces;
    /// Why nothing, or something else than was asked for, became of it.
    std::optional<Failure> failure;
    /// What the cut, or the command line, has to say about it.
    CutRemarks remarks;

    bool isThere() const { return object || isStreamed; }
};
