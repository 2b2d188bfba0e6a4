// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/ScreenSquare.h"

#include "platform/view/GLView.h"

namespace Freecut {

void appendScreenSquare(std::vector<float>& vertices, Base::GLView const& view,
                        UPoint3<float> const& center)
{
    UVector3<float> up = view.getViewUpDirection();
    up.Normalize();
    UVector3<float> right = up * view.getViewDirection();
    right.Normalize();

    double viewWidth = 0, viewHeight = 0;
    int screenWidth = 0, screenHeight = 0;
    view.getCamera()->get_view_rect(viewWidth, viewHeight);
    view.getCamera()->get_screen(screenWidth, screenHeight);
    UVector3<float> const dx = right * 6.0f * float(viewWidth) / float(screenWidth);
    UVector3<float> const dy = up * 6.0f * float(viewWidth) / float(screenWidth);

    for (UPoint3<float> const& corner :
         {center + dy - dx, center - dy - dx, center - dy + dx, center + dy + dx})
        vertices.insert(vertices.end(), {corner.X(), corner.Y(), corner.Z()});
}

}  // namespace Freecut
