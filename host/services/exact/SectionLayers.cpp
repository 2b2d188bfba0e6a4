// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/SectionLayers.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace Exact {

namespace {

bool isInLayer(std::vector<PlaneFace> const& faces, std::uint32_t face, int layer)
{
    if (face == PlaneFace::none)
        return false;
    int const winding = faces[face].winding;
    return layer > 0 ? winding >= layer : winding <= layer;
}

/// The border of a layer, which lies on its left.
std::vector<SectionSegment> borderOf(std::vector<PlaneFace> const& faces, int layer)
{
    std::vector<SectionSegment> border;
    for (std::uint32_t f = 0; f < faces.size(); ++f) {
        if (!isInLayer(faces, f, layer))
            continue;
        for (std::size_t i = 0; i < 3; ++i) {
            if (isInLayer(faces, faces[f].beyond[i], layer))
                continue;
            std::uint32_t from = faces[f].corners[i], to = faces[f].corners[(i + 1) % 3];
            if (layer < 0)
                std::swap(from, to);
            border.push_back({from, to});
        }
    }
    return border;
}

}  // namespace

SectionFilling layersOf(std::vector<PlaneFace> const& faces,
                        std::function<SectionFilling(std::vector<SectionSegment>&)> const& fillPart)
{
    SectionFilling filling;
    for (PlaneFace const& face : faces)
        filling.layers = std::max(filling.layers, std::abs(face.winding));
    if (filling.layers <= 1) {
        filling.triangles.reserve(faces.size());
        for (PlaneFace const& face : faces) {
            auto const [a, b, c] = face.corners;
            filling.triangles.push_back(face.winding > 0 ? face.corners : std::array{a, c, b});
        }
        return filling;
    }
    for (int layer = 1; layer <= filling.layers; ++layer)
        for (int const signedLayer : {layer, -layer})
            if (auto border = borderOf(faces, signedLayer); !border.empty()) {
                SectionFilling const part = fillPart(border);
                filling.triangles.insert(filling.triangles.end(), part.triangles.begin(),
                                         part.triangles.end());
            }
    return filling;
}

}  // namespace Exact
