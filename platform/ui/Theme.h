// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The current theme flags. Bit 16 chooses the pictures for a dark theme.
extern int g_ThemeColor;
