// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/RoundSteps.h"

#include "platform/ui/DisplayUnit.h"
#include "platform/view/GLView.h"

#include <cmath>

namespace Freecut {

namespace {

constexpr double gridPixels = 10;

double millimetresPerPixel(Base::GLView const& view)
{
    double width, height;
    int screenWidth, screenHeight;
    view.getCamera()->get_view_rect(width, height);
    view.getCamera()->get_screen(screenWidth, screenHeight);
    return screenHeight > 0 ? height / screenHeight : 1;
}

}  // namespace

float roundLength(double millimetresPerPixel, double pixels, double unit)
{
    double const wanted = millimetresPerPixel * pixels / unit;
    double const power = std::pow(10, std::floor(std::log10(wanted)));
    // A little less than a round number is that number, and no longer one.
    constexpr double spare = 1 - 1e-9;
    for (double const lead : {1.0, 2.0, 5.0, 10.0})
        if (lead * power >= wanted * spare)
            return float(lead * power * unit);
    return float(10 * power * unit);
}

float finestStep(Base::GLView const& view)
{
    return roundLength(millimetresPerPixel(view), 1, DisplayUnit::instance().millimetres());
}

float gridStep(Base::GLView const& view)
{
    return roundLength(millimetresPerPixel(view), gridPixels,
                       DisplayUnit::instance().millimetres());
}

}  // namespace Freecut
