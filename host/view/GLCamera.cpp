// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/GLCamera.h"

#include <algorithm>
#include <cmath>

// See docs/decisions/0006-view.md.

namespace {

using Point = UPoint3<double>;
using Vector = UVector3<double>;

/// Half the angle of view, upwards and downwards.
double const halfAngleTangent = std::tan(M_PI / 12);
constexpr double leastHeight = 1e-5;
constexpr double largestHeight = 1e9;
/// Of the distance to the far plane: what comes nearer to the eye is not seen in perspective.
constexpr double nearestShare = 1e-3;

Point widened(UPoint3<float> const& p)
{
    return {p.X(), p.Y(), p.Z()};
}

UPoint3<float> narrowed(Point const& p)
{
    return {float(p.X()), float(p.Y()), float(p.Z())};
}

UVector3<float> narrowed(Vector const& v)
{
    return {float(v.X()), float(v.Y()), float(v.Z())};
}

// The formula of Rodrigues; the axis has unit length.
Vector turned(Vector const& v, Vector const& axis, double angle)
{
    double const c = std::cos(angle);
    return v * c + (axis * v) * std::sin(angle) + axis * ((axis | v) * (1 - c));
}

}  // namespace

GLCamera::GLCamera() : m_direction(0, -1, 0), m_up(0, 0, 1)
{
    keepEye();
}

double GLCamera::width() const
{
    return m_height * m_screenWidth / m_screenHeight;
}

double GLCamera::eyeDistance() const
{
    return m_height * 0.5 / halfAngleTangent;
}

void GLCamera::keepEye()
{
    m_eye = m_ref + m_direction * eyeDistance();
}

void GLCamera::alignUp(Vector up)
{
    up -= m_direction * (up | m_direction);
    // Nearly along the direction: up is taken from what leans the most away from it.
    if (up.GetLength() < 1e-6)
        up = std::abs(m_direction.Z()) < 0.9 ? Vector(0, 0, 1) : Vector(0, 1, 0);
    up -= m_direction * (up | m_direction);
    m_up = up.Normalize();
}

UPoint3<float> GLCamera::get_eye() const
{
    return narrowed(toWorld({m_middleX, m_middleY, eyeDistance()}));
}

void GLCamera::set_eye(float x, float y, float z)
{
    Point const eye(x, y, z);
    Vector direction = eye - m_ref;
    if (direction.GetLength() == 0)
        return;
    m_eye = eye;
    m_direction = direction.Normalize();
    alignUp(m_up);
}

UPoint3<float> GLCamera::get_ref() const
{
    return narrowed(m_ref);
}

void GLCamera::set_ref(float x, float y, float z, bool moveEye)
{
    Point const ref(x, y, z);
    m_middleX = m_middleY = 0;
    if (moveEye)
        m_eye += ref - m_ref;
    m_ref = ref;
    Vector direction = m_eye - m_ref;
    if (moveEye || direction.GetLength() == 0)
        return;
    m_direction = direction.Normalize();
    alignUp(m_up);
}

UVector3<float> GLCamera::get_vecUp() const
{
    return narrowed(m_up);
}

void GLCamera::set_vecUp(float x, float y, float z)
{
    Vector const up(x, y, z);
    if ((up * m_direction).GetLength() > 1e-6 * up.GetLength())
        alignUp(up);
}

UVector3<float> GLCamera::get_direction() const
{
    return narrowed(m_direction);
}

void GLCamera::get_view_rect(double& viewWidth, double& viewHeight) const
{
    viewWidth = width();
    viewHeight = m_height;
}

void GLCamera::set_view_height(double height)
{
    m_height = std::clamp(height, leastHeight, largestHeight);
    keepEye();
}

void GLCamera::get_screen(int& screenWidth, int& screenHeight) const
{
    screenWidth = m_screenWidth;
    screenHeight = m_screenHeight;
}

void GLCamera::set_screen(int screenWidth, int screenHeight)
{
    m_screenWidth = std::max(screenWidth, 1);
    m_screenHeight = std::max(screenHeight, 1);
}

void GLCamera::zoom(double factor)
{
    set_view_height(m_height * factor);
}

void GLCamera::pan(double eyeX, double eyeY)
{
    m_ref += right() * eyeX + m_up * eyeY;
    keepEye();
}

void GLCamera::turn(Vector const& axis, double angleRadians)
{
    Vector unit = axis;
    unit.Normalize();
    m_direction = turned(m_direction, unit, angleRadians).Normalize();
    alignUp(turned(m_up, unit, angleRadians));
    keepEye();
}

void GLCamera::roll(double angleRadians)
{
    alignUp(turned(m_up, m_direction, -angleRadians));
}

void GLCamera::set_axes(Vector const& direction, Vector const& up)
{
    m_direction = direction;
    m_direction.Normalize();
    alignUp(up);
    keepEye();
}

void GLCamera::set_pivot(UPoint3<float> const& world)
{
    Point const pivot = toEye(widened(world));
    double const nearer = 1 - pivot.Z() / eyeDistance();
    if (m_projection == Projection::Perspective && nearer < nearestShare)
        return;
    m_middleX -= pivot.X();
    m_middleY -= pivot.Y();
    m_low -= pivot.Z();
    m_high -= pivot.Z();
    m_ref = widened(world);
    if (m_projection == Projection::Perspective)
        m_height *= nearer;
    keepEye();
}

void GLCamera::recentre()
{
    m_ref = toWorld({m_middleX, m_middleY, 0});
    m_middleX = m_middleY = 0;
    keepEye();
}

Point GLCamera::toEye(Point const& world) const
{
    Vector const offset = world - m_ref;
    return {right() | offset, m_up | offset, m_direction | offset};
}

Point GLCamera::toWorld(Point const& p) const
{
    return m_ref + right() * p.X() + m_up * p.Y() + m_direction * p.Z();
}

void GLCamera::mouseposToEyecs(UPoint2<float>& position) const
{
    double const x = (position.X() / m_screenWidth - 0.5) * width() + m_middleX;
    double const y = (0.5 - position.Y() / m_screenHeight) * m_height + m_middleY;
    position = {float(x), float(y)};
}

void GLCamera::ViewCSToWCSpoint(UPoint3<float>& point) const
{
    point = narrowed(toWorld(widened(point)));
}

void GLCamera::WCSToViewCSpoint(UPoint3<float>& point) const
{
    point = narrowed(toEye(widened(point)));
}

UPoint2<double> GLCamera::widgetPosition(Point const& p) const
{
    double x = p.X() - m_middleX;
    double y = p.Y() - m_middleY;
    if (m_projection == Projection::Perspective) {
        // A point behind the eye is taken to lie just before it, far off the middle.
        double const distance = eyeDistance();
        double const scale = distance / std::max(distance - p.Z(), distance * 1e-6);
        x *= scale;
        y *= scale;
    }
    return {(x / width() + 0.5) * m_screenWidth, (0.5 - y / m_height) * m_screenHeight};
}

void GLCamera::sightRay(double x, double y, Point& origin, Vector& direction) const
{
    double const eyeX = (x / m_screenWidth - 0.5) * width() + m_middleX;
    double const eyeY = (0.5 - y / m_screenHeight) * m_height + m_middleY;
    origin = toWorld({eyeX, eyeY, m_high});
    direction = -m_direction;
    if (m_projection == Projection::Parallel)
        return;
    origin = toWorld({m_middleX, m_middleY, eyeDistance()});
    direction = toWorld({eyeX, eyeY, 0}) - origin;
    direction.Normalize();
}

void GLCamera::set_depth_range(double low, double high)
{
    m_low = low;
    m_high = std::max(high, low + leastHeight);
}

QMatrix4x4 GLCamera::getModelViewMatrix() const
{
    Vector const rows[3] = {right(), m_up, m_direction};
    QMatrix4x4 matrix;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            matrix(row, column) = float(rows[row][column]);
        matrix(row, 3) = float(-(rows[row] | (m_ref - Point())));
    }
    return matrix;
}

QMatrix4x4 GLCamera::getProjectionMatrix() const
{
    double const halfWidth = width() * 0.5;
    double const halfHeight = m_height * 0.5;
    QMatrix4x4 matrix;
    if (m_projection == Projection::Parallel) {
        matrix.ortho(float(m_middleX - halfWidth), float(m_middleX + halfWidth),
                     float(m_middleY - halfHeight), float(m_middleY + halfHeight), float(-m_high),
                     float(-m_low));
        return matrix;
    }
    double const distance = eyeDistance();
    double const farPlane = std::max(distance - m_low, distance * 2 * nearestShare);
    double const nearPlane = std::max(distance - m_high, farPlane * nearestShare);
    double const scale = nearPlane / distance;
    matrix.frustum(float(-halfWidth * scale), float(halfWidth * scale), float(-halfHeight * scale),
                   float(halfHeight * scale), float(nearPlane), float(farPlane));
    matrix.translate(float(-m_middleX), float(-m_middleY), float(-distance));
    return matrix;
}
