// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/StandardViews.h"
#include "host/view/ViewScene.h"
#include "platform/document/DocumentObject.h"
#include "platform/view/AbstractMouseSelection.h"
#include "platform/view/GLView.h"
#include "platform/view/NavigationStyle.h"
#include "platform/view/ViewProvider.h"

#include <algorithm>
#include <cmath>

// What a view knows from its camera alone.
namespace Base {

namespace {

using Vector = UVector3<double>;

/// The part of the picture that a fitted box may take.
constexpr double fittedShare = 0.85;

bool isSame(UVector3<float> const& a, Vector const& b)
{
    double const dx = a.X() - b.X(), dy = a.Y() - b.Y(), dz = a.Z() - b.Z();
    return std::sqrt(dx * dx + dy * dy + dz * dz) < 1e-6;
}

template <typename Function>
void forCorners(UBox3<float> const& box, Function const& function)
{
    for (int corner = 0; corner < 8; ++corner)
        function(UPoint3<double>(corner & 1 ? box.MaxX() : box.MinX(),
                                 corner & 2 ? box.MaxY() : box.MinY(),
                                 corner & 4 ? box.MaxZ() : box.MinZ()));
}

}  // namespace

GLCamera* GLView::getCamera() const
{
    QSize const screen = m_scene->logicalSize();
    m_camera->set_screen(screen.width(), screen.height());
    return m_camera.get();
}

void GLView::setProjection(GLCamera::Projection projection)
{
    m_projection = projection;
    applyProjection();
}

void GLView::applyProjection()
{
    std::string const tool = getInteractModeName();
    bool const isFree = tool.empty() || tool == "Mesh::PointPickerMesh" ||
                        tool == "Base::RectangleSelection" || tool == "FaceDownTool" ||
                        tool == "HandlesTool" || tool == "MeasureTool";
    m_camera->setProjection(isFree ? m_projection : GLCamera::Projection::Parallel);
    update();
}

UPoint3<float> GLView::getEyePointOnScreen(UPoint2<float> position) const
{
    getCamera()->mouseposToEyecs(position);
    return {position.X(), position.Y(), 0};
}

void GLView::getEyePointFromWCSPoint(UPoint3<float>& point) const
{
    m_camera->WCSToViewCSpoint(point);
}

void GLView::getWCSPointFromEyePoint(UPoint3<float>& point) const
{
    m_camera->ViewCSToWCSpoint(point);
}

void GLView::getWidgetcoordFromWCS(UPoint3<float> point, int& x, int& y) const
{
    GLCamera const& camera = *getCamera();
    UPoint3<double> const world(point.X(), point.Y(), point.Z());
    UPoint2<double> const position = camera.widgetPosition(camera.toEye(world));
    // Far outside, so that the numbers stay whole numbers.
    constexpr double most = 1e6;
    x = int(std::lround(std::clamp(position.X(), -most, most)));
    y = int(std::lround(std::clamp(position.Y(), -most, most)));
}

UPoint3<float> GLView::getViewRefPoint() const
{
    return m_camera->get_ref();
}

UVector3<float> GLView::getViewUpDirection() const
{
    return m_camera->get_vecUp();
}

UVector3<float> GLView::getViewDirection() const
{
    return m_camera->get_direction();
}

void GLView::OnViewType(int type)
{
    if (type < 0 || type >= int(std::size(standardViews)))
        return;
    // A move that is not painted yet would hide the turn from the tools.
    paintPending();
    m_camera->set_axes(standardViews[type].direction, standardViews[type].up);
    emit signalCameraChanged();
    redraw();
}

int GLView::viewIndex() const
{
    GLCamera upright = *m_camera;
    for (int type = 0; type < int(std::size(standardViews)); ++type) {
        StandardView const& view = standardViews[type];
        if (!isSame(m_camera->get_direction(), view.direction))
            continue;
        upright.set_axes(view.direction, view.up);
        UVector3<float> const up = upright.get_vecUp();
        if (isSame(m_camera->get_vecUp(), {up.X(), up.Y(), up.Z()}))
            return type;
    }
    return -1;
}

UBox3<float> GLView::getSceneBox(bool onlySelected) const
{
    UBox3<float> box;
    for (ViewProvider const* const provider : m_scene->providers()) {
        DocumentObject const* const object = provider->getObject();
        if (object && provider->isShow() && (!onlySelected || object->isSelected()))
            box.Add(object->getBoundingBox());
    }
    return box;
}

UPoint3<float> GLView::turningPoint(QPoint) const
{
    UBox3<float> const box = getSceneBox(false);
    return box.Isnullptr() ? getViewRefPoint() : (box.min + box.max) * 0.5f;
}

void GLView::fitAll()
{
    fit(getSceneBox(false));
}

void GLView::fitSelection()
{
    fit(getSceneBox(true));
}

void GLView::fit(UBox3<float> const& box)
{
    if (box.Isnullptr())
        return;
    paintPending();
    GLCamera& camera = *getCamera();
    UPoint3<float> centre = (box.min + box.max) * 0.5f;
    // Tools draw at a depth that is counted from the reference plane.
    if (isDrawnIn())
        centre = centre + getViewDirection() * ((getViewRefPoint() - centre) | getViewDirection());
    camera.set_ref(centre.X(), centre.Y(), centre.Z(), true);
    double viewWidth, viewHeight;
    camera.get_view_rect(viewWidth, viewHeight);
    bool const isPerspective = camera.projection() == GLCamera::Projection::Perspective;
    double needed = 0;
    forCorners(box, [&](UPoint3<double> const& corner) {
        UPoint3<double> const eye = camera.toEye(corner);
        // The height that shows the corner: in perspective what is nearer needs more.
        double const lateral =
            std::max(2 * std::abs(eye.Y()), 2 * std::abs(eye.X()) * viewHeight / viewWidth);
        double const depth = isPerspective ? 2 * std::tan(M_PI / 12) * eye.Z() : 0;
        needed = std::max(needed, lateral / fittedShare + depth);
    });
    if (needed > 0)
        camera.set_view_height(needed);
    emit signalCameraChanged();
    redraw();
}

void GLView::setDepthRange() const
{
    UBox3<float> box = getSceneBox(false);
    box.Add(surroundingsBox());
    double low = -1, high = 1;
    forCorners(box, [&](UPoint3<double> const& corner) {
        double const depth = m_camera->toEye(corner).Z();
        low = std::min(low, depth);
        high = std::max(high, depth);
    });
    // Tools reach beyond the parts.
    double const spare = (high - low) * 2 + 1;
    m_camera->set_depth_range(low - spare, high + spare);
}

}  // namespace Base
