// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/FileError.h"
#include "host/formats/LineReader.h"
#include "host/formats/MeshBuilder.h"
#include "host/formats/NumberedPoints.h"
#include "host/formats/PolygonSplitter.h"

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace Formats {

/// Reads an OFF file into one mesh: a keyword, which may be missing, the numbers of vertices, faces and edges,
/// then a line for each vertex and each face. A "#" begins a comment.
class OffReader
{
public:
    explicit OffReader(InputFile& input);

    /// Throws FileError with the line.
    std::unique_ptr<MeshKernel> read();

    /// Whether a file of points in space begins with this word: OFF, with letters before it for what else
    /// each vertex has.
    static bool isKeyword(std::string_view word);

private:
    std::string_view nextLine();
    std::string_view countsLine();
    std::uint64_t countFrom(std::string_view word) const;
    void readVertex(std::string_view line);
    void readFace(std::string_view line);
    UVertex<float>* cornerFrom(std::string_view word);
    FileError error(QString const& problem) const;

    InputFile& m_input;
    LineReader m_lines;
    std::unique_ptr<MeshBuilder> m_builder;
    std::unique_ptr<PolygonSplitter> m_splitter;
    std::unique_ptr<NumberedPoints> m_vertices;
    std::vector<UVertex<float>*> m_corners;
};

}  // namespace Formats
