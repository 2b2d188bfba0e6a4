// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The application's style sheet for the theme in effect: the template of the resources with
/// "@name@" replaced by the theme's colour, and "@1.5@" by that multiple of g_pixelSize in pixels.
QString themeStyleSheet();
