// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The corner of a triangle that follows another, and the one before it.
constexpr int next(int corner)
{
    return corner == 2 ? 0 : corner + 1;
}

constexpr int previous(int corner)
{
    return corner == 0 ? 2 : corner - 1;
}
