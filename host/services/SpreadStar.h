// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <span>

/// Whether some projection certainly lays out the triangles at a vertex side by side, once around
/// it. If in addition every edge at the vertex joins two triangles that agree in orientation, the
/// triangles meet nowhere but in the vertex and in their common edges.
///
/// corners  the corners at the vertex, as VertexStars gives them
/// returns  false as well where rounding leaves it open
bool isStarSpread(MeshArrays const& mesh, std::uint32_t vertex,
                  std::span<std::uint32_t const> corners);
