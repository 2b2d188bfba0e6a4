// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/PickTree.h"
#include "platform/geometry/UMatrix4.h"

#include <QMatrix4x4>

/// The same matrix as Qt has it.
QMatrix4x4 toQt(UMatrix4<float> const& matrix);

/// A ray as seen by what a matrix places: points on it keep their distances, counted in lengths of
/// the direction. A matrix that flattens gives a ray without a direction.
PickTree::Ray placedBack(PickTree::Ray const& ray, UMatrix4<float> const& matrix);
