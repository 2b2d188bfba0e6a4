// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <array>
#include <functional>
#include <span>

namespace Formats {

/// The corners of a triangle, counter-clockwise from outside, in the units of its file.
using Facet = std::array<UPoint3<float>, 3>;

/// Is given facets in the order of their file; the span lives as long as the call.
using TakeFacets = std::function<void(std::span<Facet const>)>;

}  // namespace Formats
