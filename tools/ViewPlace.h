// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <optional>

namespace Freecut {

/// From where a view looks at the parts, so that a text can hold it to the last bit: what lies in
/// eye space is the same in every view that is put to the same place.
struct ViewPlace
{
    /// A standard view, 0 to 5, or -1 for a free one.
    int standard = -1;
    /// The origin of eye space; none where a standard view may keep its own.
    std::optional<UPoint3<float>> reference;
    /// Of a free view: towards the viewer, and up.
    UVector3<float> direction;
    UVector3<float> up;
};

}  // namespace Freecut
