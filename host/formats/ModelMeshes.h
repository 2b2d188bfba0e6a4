// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/ZipReader.h"
#include "platform/geometry/UPoint3.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Formats {

/// A mesh as it stands in the text of a 3MF model.
struct ModelMesh
{
    /// Finite, in the model's unit.
    std::vector<UPoint3<float>> vertices;
    /// Three different places in the list of vertices each.
    std::vector<std::array<std::uint32_t, 3>> triangles;
};

/// A 3MF model without its meshes, which are nearly all of it.
struct ModelWithoutMeshes
{
    /// The model's text with a placeholder for each mesh that was taken out.
    std::string text;
    std::vector<ModelMesh> meshes;
};

/// Takes the meshes out of a model. Nothing if a mesh is written in an unusual way, has more than
/// vertices and triangles or is not sound, or if much text is left: that is for a reader that knows
/// the whole format and says what is wrong. Throws FileError if the entry is damaged, or if its
/// meshes need more memory than there is.
std::optional<ModelWithoutMeshes> takeMeshesOut(InputFile& input, ZipReader::Entry const& model);

/// Of a mesh in a text from takeMeshesOut(): which of the meshes that were taken out it stands for;
/// nothing if it was left there. The first vertex of the mesh and how many it has.
std::optional<std::size_t> placeOfMesh(ModelWithoutMeshes const& model, std::size_t vertexCount,
                                       std::size_t triangleCount,
                                       UPoint3<float> const& firstVertex);

}  // namespace Formats
