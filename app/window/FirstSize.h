// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

/// The places that a window and its side panels take at first, which leave the view room on every
/// screen. All in pixels independent of the device pixel ratio.
namespace FirstSize {

/// The size of a window that has never been placed, which fits a screen with its title bar.
///
/// available  what the desktop leaves of the screen
QSize ofWindow(QSize const& available);

/// The widths of the panels at the left and at the right of a window.
struct Panels
{
    int left;
    int right;
};

/// titles  the width in which the titles at the right can be read
Panels ofPanels(int windowWidth, int titles);

}  // namespace FirstSize
