// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/SoupBoolean.h"
#include "platform/services/SolidSplit.h"

/// The lines in which the second operand's faces end on a piece: edges at which they have no
/// neighbour among themselves. On a piece that closes these are the edges that they share with the
/// first operand's faces.
///
/// piece                  with the final places of its points in `boolean`
/// firstTriangleOfSecond  of the soup
/// returns                each edge once, by ascending ends
ContourLines contoursOf(std::vector<PieceTriangle> const& piece, SoupBoolean const& boolean,
                        std::uint32_t firstTriangleOfSecond, StageProgress& progress);
