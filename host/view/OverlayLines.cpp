// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/OverlayLines.h"

#include "host/view/ViewScene.h"
#include "host/view/WideLines.h"
#include "platform/view/GLView.h"

namespace Base {

namespace {

/// Lines are drawn nearer than the surface that they lie on, by this many pixels' width.
constexpr double nearerBy = 1.5;
constexpr unsigned paleAlpha = 0x50;

void draw(GLView& view, std::vector<UPoint3<float>> const& triangles, unsigned rgba)
{
    DrawRun const run = {GL_TRIANGLES, 0, int(triangles.size()), rgba};
    view.scene().drawOnce(triangles, std::span(&run, 1), QMatrix4x4());
}

}  // namespace

void drawLines(GLView& view, std::vector<UPoint3<float>> const& points, OverlayLook const& look)
{
    GLCamera const& camera = *view.getCamera();
    double viewWidth, viewHeight;
    camera.get_view_rect(viewWidth, viewHeight);
    QMatrix4x4 nearer;
    nearer.translate(0, 0, float(nearerBy * viewHeight / view.height()));
    QMatrix4x4 const toClip = camera.getProjectionMatrix() * nearer * camera.getModelViewMatrix();
    auto const triangles = wideLines(points, toClip, view.size(), look.width, true);
    if (triangles.empty())
        return;
    DrawDevice& device = *view.scene().device();
    device.setDepthTest(false);
    draw(view, triangles, look.isHiddenByParts ? (look.rgba & ~0xffu) | paleAlpha : look.rgba);
    device.setDepthTest(true);
    if (look.isHiddenByParts)
        draw(view, triangles, look.rgba);
}

void drawAreas(GLView& view, std::vector<UPoint3<float>> const& points, unsigned rgba)
{
    if (points.empty())
        return;
    DrawDevice& device = *view.scene().device();
    DrawRun const run = {GL_TRIANGLES, 0, int(points.size()), rgba};
    device.setDepthTest(false);
    view.scene().drawOnce(points, std::span(&run, 1), view.scene().toClip());
    device.setDepthTest(true);
}

}  // namespace Base
