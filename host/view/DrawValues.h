// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector4D>

/// The stencil's bit for what gets an outline; the others count areas.
inline constexpr unsigned markBit = 0x80;
inline constexpr unsigned countBits = 0x7f;

/// 0xRRGGBBAA as shaders take it.
inline QVector4D colorOf(unsigned rgba)
{
    auto const part = [&](int shift) { return float(rgba >> shift & 255) / 255; };
    return {part(24), part(16), part(8), part(0)};
}
