// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSurfaceFormat>

/// The format for the context of a view, by the path that was asked for and by what this machine
/// can make; sets g_OPENGL_3_3. The machine is asked once for each path.
QSurfaceFormat chooseContextFormat();
