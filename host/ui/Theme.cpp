// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/Theme.h"

int g_ThemeColor = 0;
