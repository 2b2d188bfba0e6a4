// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/FirstSize.h"

#include "platform/ui/Theme.h"

#include <algorithm>

namespace {

constexpr QSize wanted(1280, 800);
/// In base sizes of the interface.
constexpr int titleBar = 3;
constexpr int leftWidth = 22;
constexpr int rightWidth = 24;
/// Of the window's width.
constexpr double mostOfLeft = 0.26;
constexpr double mostOfRight = 0.35;

}  // namespace

QSize FirstSize::ofWindow(QSize const& available)
{
    return wanted.boundedTo(available - QSize(0, titleBar * g_pixelSize));
}

FirstSize::Panels FirstSize::ofPanels(int windowWidth, int titles)
{
    int const right = std::max(rightWidth * g_pixelSize, titles);
    return {std::min(leftWidth * g_pixelSize, int(windowWidth * mostOfLeft)),
            std::min(right, int(windowWidth * mostOfRight))};
}
