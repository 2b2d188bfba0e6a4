// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <memory>

/// `count` cylinders of 63 facets in one mesh. Their radius is 1.5 percent of the diagonal of the
/// part's box and their height twice that; their centres are points of the part's surface, drawn
/// evenly over its triangles, and their axes are random, so that each cuts through the surface.
/// None overlaps another, or lies where the part crosses itself. The same part gives the same
/// cylinders.
std::unique_ptr<MeshKernel> cylindersOn(MeshKernel const& part, int count);

/// A prism of eight sides along Z through the middle of the part and out of it at both ends, a
/// quarter of the diagonal of the part's box across.
std::unique_ptr<MeshKernel> prismThrough(MeshKernel const& part);

std::size_t trianglesOf(MeshKernel const& kernel);
/// What the records and lists of a mesh take, in bytes.
std::size_t recordBytesOf(MeshKernel const& kernel);
