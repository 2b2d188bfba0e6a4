// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// A face of a section between the two pieces that a cut along it leaves: the one below it and the
/// one above it, which may be the same one.
struct FaceLink
{
    std::uint32_t below;
    std::uint32_t above;
};

/// Chooses the faces that are cut, so that no piece is left with faces both above and below it.
///
/// Faces that would only open a ring are none of them: those that lead, going up through one face
/// after the other, back to the piece that they started from. What is left, if all pieces do not
/// fit yet, is cut in one of two ways: either at the faces under the uppermost pieces, or at those
/// above the lowest ones. The way that cuts more faces is taken, for each set of connected pieces
/// by itself; the first one if both cut as many.
///
/// returns  per link: whether the face is cut
/// cost     linear
std::vector<bool> chooseFaces(std::size_t pieceCount, std::vector<FaceLink> const& links);
