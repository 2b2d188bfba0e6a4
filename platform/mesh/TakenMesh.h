// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <memory>

/// Moves the records out of a kernel that nobody shares, which has none afterwards. The counts are
/// up to date.
std::unique_ptr<UMesh<float>> takeMesh(MeshKernel& kernel);

/// A kernel that takes over the mesh of another, and its matrix. One that has handed its mesh out
/// for writing is copied record by record ever after; the new one is shared until somebody writes.
std::shared_ptr<MeshKernel> asReadOnly(MeshKernel& kernel);
