// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/recovery/RecoveryState.h"

#include <QImage>

/// A small picture of the visible parts, seen from the front, the right and above, on transparent
/// ground: shaded, and painted without a view and its context, so on any thread. Empty if nothing is
/// visible.
///
/// cost  some tens of nanoseconds per triangle
QImage recoveryPicture(RecoveryState const& state, QSize size = {256, 192});
