// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/ModelMeshes.h"

namespace Formats {

/// A 3MF package without its meshes: small enough for a library that knows the whole format but
/// takes its time for each triangle.
struct LightPackage
{
    std::string bytes;
    ModelWithoutMeshes model;
};

/// Nothing where the meshes cannot be taken out; see takeMeshesOut(). Throws FileError for damaged
/// content.
std::optional<LightPackage> readLightPackage(InputFile& input);

}  // namespace Formats
