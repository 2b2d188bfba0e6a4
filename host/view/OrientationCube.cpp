// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/OrientationCube.h"

#include "host/view/StandardViews.h"
#include "host/view/StrokeText.h"
#include "host/view/ViewScene.h"
#include "platform/view/GLView.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <string>

namespace {

using Vector = UVector3<double>;
using Points = std::vector<UPoint3<float>>;

/// In pixels: half an edge of the cube, and its middle from the upper right corner.
constexpr double halfEdge = 27;
constexpr double place = 58;
/// Pixels per unit of the letters.
constexpr double letterScale = 1.15;
/// How far the isometric corner reaches along the edges, as a share of half an edge.
constexpr double cornerReach = 0.6;

constexpr unsigned faceColor = 0xf6f8fae8;
constexpr unsigned highlightColor = 0xffcf8fff;
constexpr unsigned edgeColor = 0x54636fff;
constexpr unsigned textColor = 0x2c363fff;

/// In the order of the views, translated to words of the letters that StrokeText has.
constexpr char const* faceNames[] = {
    QT_TRANSLATE_NOOP("OrientationCube", "FRONT"), QT_TRANSLATE_NOOP("OrientationCube", "BACK"),
    QT_TRANSLATE_NOOP("OrientationCube", "TOP"),   QT_TRANSLATE_NOOP("OrientationCube", "BOTTOM"),
    QT_TRANSLATE_NOOP("OrientationCube", "LEFT"),  QT_TRANSLATE_NOOP("OrientationCube", "RIGHT")};

Vector widened(UVector3<float> const& v)
{
    return {v.X(), v.Y(), v.Z()};
}

/// The screen's axes in world space.
struct Screen
{
    explicit Screen(Base::GLView const& view)
        : direction(widened(view.getViewDirection())),
          up(widened(view.getViewUpDirection())),
          right(up * direction),
          middle(view.width() - place, place)
    {}

    UPoint3<float> position(Vector const& point) const
    {
        return {float(middle.x() + (point | right)), float(middle.y() - (point | up)), 0};
    }

    Vector direction;
    Vector up;
    Vector right;
    QPointF middle;
};

/// The place on the cube's surface under a widget position; false beside the cube.
bool findSurface(Screen const& screen, QPoint position, Vector& point)
{
    Vector const start = screen.right * (position.x() - screen.middle.x()) +
                         screen.up * (screen.middle.y() - position.y());
    // Towards the viewer: the slab that is left first holds the visible face.
    double enters = -1e9, leaves = 1e9;
    for (int axis = 0; axis < 3; ++axis) {
        double const speed = screen.direction[axis];
        if (std::abs(speed) < 1e-9) {
            if (std::abs(start[axis]) > halfEdge)
                return false;
            continue;
        }
        double const a = (-halfEdge - start[axis]) / speed, b = (halfEdge - start[axis]) / speed;
        enters = std::max(enters, std::min(a, b));
        leaves = std::min(leaves, std::max(a, b));
    }
    point = start + screen.direction * leaves;
    return enters <= leaves;
}

bool isAtIsometricCorner(Vector const& point)
{
    Vector const corner = standardViews[isometricView].direction * (std::sqrt(3.0) * halfEdge);
    Vector const offset = point - corner;
    return std::max({std::abs(offset.X()), std::abs(offset.Y()), std::abs(offset.Z())}) <
           cornerReach * halfEdge;
}

void addFace(Screen const& screen, int face, bool isHighlighted, Points& points,
             std::vector<DrawRun>& runs)
{
    StandardView const& view = standardViews[face];
    Vector const middle = view.direction * halfEdge;
    auto const on = [&](double x, double y) {
        return screen.position(middle + view.right() * x + view.up * y);
    };
    int const first = int(points.size());
    for (auto const& [x, y] : {std::array{-1, -1}, {1, -1}, {1, 1}, {-1, 1}})
        points.push_back(on(x * halfEdge, y * halfEdge));
    runs.push_back({GL_TRIANGLE_FAN, first, 4, isHighlighted ? highlightColor : faceColor});
    runs.push_back({GL_LINE_LOOP, first, 4, edgeColor});
    int const text = int(points.size());
    std::string const name =
        QCoreApplication::translate("OrientationCube", faceNames[face]).toStdString();
    for (auto const& [x, y] : strokesOf(name))
        points.push_back(on(x * letterScale, y * letterScale));
    runs.push_back({GL_LINES, text, int(points.size()) - text, textColor});
}

/// The corner's part of the three faces that meet there.
void addIsometricCorner(Screen const& screen, Points& points, std::vector<DrawRun>& runs)
{
    Vector const corner = standardViews[isometricView].direction * (std::sqrt(3.0) * halfEdge);
    for (int axis = 0; axis < 3; ++axis) {
        int const first = int(points.size());
        auto const along = [&](int other) {
            Vector step;
            step[other] = -std::copysign(cornerReach * halfEdge, corner[other]);
            return step;
        };
        Vector const a = along((axis + 1) % 3), b = along((axis + 2) % 3);
        for (Vector const& p : {corner, corner + a, corner + a + b, corner + b})
            points.push_back(screen.position(p));
        runs.push_back({GL_TRIANGLE_FAN, first, 4, highlightColor});
    }
}

}  // namespace

int OrientationCube::viewAt(Base::GLView const& view, QPoint position)
{
    Vector point;
    if (!findSurface(Screen(view), position, point))
        return -1;
    if (isAtIsometricCorner(point))
        return isometricView;
    int best = 0;
    for (int face = 1; face < faceViews; ++face)
        if ((standardViews[face].direction | point) > (standardViews[best].direction | point))
            best = face;
    return best;
}

void OrientationCube::paint(Base::GLView const& view, int highlighted)
{
    Screen const screen(view);
    Points points;
    std::vector<DrawRun> runs;
    for (int face = 0; face < faceViews; ++face)
        if ((standardViews[face].direction | screen.direction) > 1e-6)
            addFace(screen, face, face == highlighted, points, runs);
    if (highlighted == isometricView)
        addIsometricCorner(screen, points, runs);
    QMatrix4x4 toClip;
    toClip.ortho(0, float(view.width()), float(view.height()), 0, -1, 1);
    view.scene().device()->setDepthTest(false);
    view.scene().drawOnce(points, runs, toClip);
    view.scene().device()->setDepthTest(true);
}
