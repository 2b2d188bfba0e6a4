// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <memory>

/// As makeMesh(), asking for a cancel now and then: fresh records of a large mesh take some tenths
/// of a second.
///
/// throws  what the progress function throws; nothing is left behind then
std::unique_ptr<UMesh<float>> makeMesh(MeshArrays const& arrays, StageProgress& progress);
