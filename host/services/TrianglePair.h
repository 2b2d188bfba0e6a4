// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <cstddef>

/// Whether two triangles have a point in common that lies on no vertex and no edge of both.
/// Vertices at the same place count as one here, whether or not they are joined; a triangle that
/// coincides with another without being on the same three vertices meets it. Two triangles on the
/// same three vertices are duplicates, which do not meet in this sense.
///
/// first, second  triangles with an area; the order makes no difference
/// cost           some ten nanoseconds for triangles one of which lies beside the plane of the
/// other
bool doTrianglesMeet(MeshArrays const& mesh, std::size_t first, std::size_t second);
