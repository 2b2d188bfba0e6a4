// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint2.h"
#include "platform/view/GLCamera.h"
#include "platform/view/GLView.h"

/// Where a world point is seen from another one, in pixels to the right and down.
inline UPoint2<double> screenOffset(Base::GLView const& view, UPoint3<float> const& from,
                                    UPoint3<float> const& to)
{
    GLCamera const& camera = *view.getCamera();
    auto const place = [&](UPoint3<float> const& point) {
        return camera.widgetPosition(
            camera.toEye({double(point.X()), double(point.Y()), double(point.Z())}));
    };
    return {place(to).X() - place(from).X(), place(to).Y() - place(from).Y()};
}
