// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/SoupBoolean.h"
#include "platform/services/SolidSplit.h"

/// The lines in which the second operand's faces end on pieces: edges at which they have no
/// neighbour among themselves. On a piece that closes these are the edges that they share with the
/// first operand's faces.
///
/// pieces                 with the final places of their points in `boolean`
/// firstTriangleOfSecond  of the soup
/// returns                each line once, though pieces that fit have the same; by the coordinates
///                        of their ends
ContourLines contoursOf(std::vector<std::vector<PieceTriangle>> const& pieces,
                        SoupBoolean const& boolean, std::uint32_t firstTriangleOfSecond,
                        StageProgress& progress);
