// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Freecut {

/// How opaque the faces of a tool are in its preview, on a scale to 255.
constexpr unsigned toolFillAlpha = 178;

}  // namespace Freecut
