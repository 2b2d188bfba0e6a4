// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"
#include "platform/services/Intersect.h"

#include <functional>
#include <memory>

/// Upright prisms on the face that a plane cut has made. Where they meet nothing but that face,
/// joining them to a half or taking them out is a matter of the face alone: it is filled anew
/// around their outlines, and no triangle of it is crossed.
///
/// A prism is a closed shell, facing outward, with two flat ends that lie on both sides of the
/// plane, or one of them in it, and with walls along the plane's normal.

/// Prisms of one kernel, as two kernels; either may be empty.
struct PrismSplit
{
    std::unique_ptr<MeshKernel> free;
    std::unique_ptr<MeshKernel> other;
};

/// Parts prisms into those that keep 0.001 mm and more from the surface of a part, within them and
/// around them, and the others. What is no prism is among the others.
///
/// part      the uncut part; only read
/// plane     as for Intersect::cutByPlane
/// prisms    left intact; without a matrix
/// progress  may be empty; what it throws passes
/// returns   the shells are in their order
/// thread    any; touches only what it is given
/// cost      a pass over the part, and some tenths of a microsecond for each of its triangles that
///           reach into the height of the prisms
PrismSplit splitPrisms(MeshKernel const& part, MeshKernel const& plane, MeshKernel const& prisms,
                       std::function<void(int)> const& progress);

/// Joins prisms to a half, or takes them out of it, as Intersect::boolean would, by changing the
/// face that the cut has made.
///
/// half      a half of Intersect::cutByPlane by that plane, in place, without a matrix; nobody else
///           holds its mesh. It is changed
/// prisms    free ones of splitPrisms; left intact
/// type      BOOLEAN_UNION for what stands on the face, BOOLEAN_SUBTRACT for what is sunk into it
/// progress  may be empty. What it throws passes; the half is as it was then
/// returns   false if the result is not certain to be closed and free of crossings, as where an
///           outline leaves the face or meets another, or where rounding could have turned a
///           triangle over. The half is as it was then
/// thread    any; touches only what it is given
/// cost      a pass over the half's list of triangles, and some microseconds for each point of the
///           outlines and of those triangles of the face that they reach
bool combineAtFace(MeshKernel& half, MeshKernel const& plane, MeshKernel const& prisms,
                   Intersect::BooleanType type, std::function<void(int)> const& progress);
