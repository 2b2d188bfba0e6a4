// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshBuilder.h"
#include "host/formats/NumberedPoints.h"
#include "host/formats/PlyValues.h"
#include "host/formats/PolygonSplitter.h"

#include <memory>
#include <vector>

namespace Formats {

/// Reads the positions (x, y, z of "vertex") and the faces ("vertex_indices" or "vertex_index" of
/// "face", or of the strips of "tristrips") of a PLY file; all other properties and elements are
/// skipped. The vertices must come before the faces.
class PlyReader
{
public:
    explicit PlyReader(InputFile& input);

    /// Throws FileError with the line or byte.
    std::unique_ptr<MeshKernel> read();

private:
    PlyElement const* element(std::string_view name) const;
    void checkHeader() const;
    void checkSize() const;
    void readVertices(PlyElement const& vertices);
    void readFaces(PlyElement const& faces);
    void readFace(PlyProperty const& indices, std::uint64_t corners);
    void readStrips(PlyElement const& strips);
    void readStrip(PlyProperty const& indices, std::uint64_t length);
    UVertex<float>* vertexAt(double index);
    /// The element with the faces, or the one with strips; null if there is neither.
    PlyElement const* faceElement() const;
    void skipElement(PlyElement const& element);
    void skip(PlyProperty const& property);
    std::uint64_t nextCount(PlyProperty const& property);

    InputFile& m_input;
    LineReader m_lines;
    PlyHeader m_header;
    std::unique_ptr<PlyValues> m_values;
    std::unique_ptr<MeshBuilder> m_builder;
    std::unique_ptr<PolygonSplitter> m_splitter;
    std::unique_ptr<NumberedPoints> m_vertices;
    std::vector<UVertex<float>*> m_corners;
};

}  // namespace Formats
