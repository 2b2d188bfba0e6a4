// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The bit of g_ThemeColor that stands for a dark theme.
inline constexpr int darkTheme = 16;
