// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/ViewColors.h"

#include "platform/ui/Theme.h"

namespace {

constexpr int darkTheme = 16;

constexpr ViewColors lightColors = {
    .plateFill = 0x8fa3b52e,
    .plateEdge = 0x5a6b7aff,
    .plateLine = 0x6f8292a0,
    .axes = {0xd03a3aff, 0x2f9a3fff, 0x2f5fd0ff},
    .part = 0xbccad8ff,
    .selected = 0xf29b38ff,
    .candidate = 0xe5c07bff,
    .backFace = 0xb04a5aff,
    .edges = 0x20262c90,
    .outline = 0xc2570cff,
    .sectionLine = 0x0a6ed1ff,
};

constexpr ViewColors darkColors = {
    .plateFill = 0x8fa3b51c,
    .plateEdge = 0x8495a4ff,
    .plateLine = 0x8495a470,
    .axes = {0xe86060ff, 0x55bd64ff, 0x6c94f0ff},
    .part = 0xaebccaff,
    .selected = 0xf29b38ff,
    .candidate = 0xe5c07bff,
    .backFace = 0xb04a5aff,
    .edges = 0x14181ca0,
    .outline = 0xffd9a0ff,
    .sectionLine = 0x1f8fffff,
};

}  // namespace

ViewColors const& viewColors()
{
    return g_ThemeColor & darkTheme ? darkColors : lightColors;
}
