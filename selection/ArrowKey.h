// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

class QKeyEvent;

namespace Freecut {

/// An arrow key that moves something by steps: one of them, or ten with shift.
struct ArrowKey
{
    /// Steps to the right and up the screen.
    int right = 0;
    int up = 0;

    /// Steps along a line: right and up lead forward.
    float alongLine() const { return float(right + up); }
};

/// None for other keys, and with other modifiers than shift.
std::optional<ArrowKey> arrowOf(QKeyEvent const& event);

}  // namespace Freecut
