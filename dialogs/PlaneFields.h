// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <array>

class MellQuantitySpinBox;

/// Three fields for the components of a point or a direction.
namespace Freecut::PlaneFields {

using Fields = std::array<MellQuantitySpinBox*, 3>;

UVector3<float> vectorIn(Fields const& fields);
UPoint3<float> pointIn(Fields const& fields);

/// Shows values without a word to the fields' listeners.
void show(Fields const& fields, UPoint3<float> const& point);
void show(Fields const& fields, UVector3<float> const& vector);
/// The same, but the last field tells if it changes, so that one signal comes for all three.
void showAndTell(Fields const& fields, UVector3<float> const& vector);

}  // namespace Freecut::PlaneFields
