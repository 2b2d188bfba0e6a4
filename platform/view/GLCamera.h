// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"
#include "platform/geometry/UPoint2.h"

#include <QMatrix4x4>

/// The camera of a view. All conversions come from camera data alone; no context is needed.
///
/// Eye space: origin in the reference point, x to the right and y up on the screen, z towards the
/// viewer, in millimetres; a rigid image of world space. The plane z = 0 is the reference plane.
/// The window shows a rectangle of that plane, the view rectangle. Widget coordinates are pixels
/// from the upper left corner, independent of the device pixel ratio.
///
/// The scale is that of the view rectangle, not the eye's distance: moving the eye turns the view,
/// and zoom() changes neither reference point nor direction. Inside it counts in double.
class GLCamera
{
public:
    enum class Projection
    {
        Parallel,
        Perspective
    };

    /// Looks at the origin along y, z up; parallel; the view rectangle is 200 mm high.
    GLCamera();

    /// Where the view is seen from: before the middle of the view rectangle, as far away as the
    /// scale and an angle of view of 30 degrees make it, in both projections.
    UPoint3<float> get_eye() const;
    /// Turns the view to be seen from a point, of which only the direction counts. Up stays as near
    /// as it can to what it was. The reference point is ignored as an eye.
    void set_eye(float x, float y, float z);
    UPoint3<float> get_ref() const;
    /// moveEye  true moves the view; false turns it, as the eye last set or shown stays in place
    void set_ref(float x, float y, float z, bool moveEye);
    /// Unit vector, at a right angle to the direction.
    UVector3<float> get_vecUp() const;
    /// Turns the view about its direction; a vector along the direction is ignored.
    void set_vecUp(float x, float y, float z);
    /// Unit vector from the reference point towards the eye.
    UVector3<float> get_direction() const;

    /// Width and height of the view rectangle in millimetres.
    void get_view_rect(double& width, double& height) const;
    void set_view_height(double height);
    /// Widget size in pixels.
    void get_screen(int& width, int& height) const;
    void set_screen(int width, int height);

    /// Scales the view rectangle, about its middle: below 1 comes nearer. Kept within 10 nm to 1,000 km.
    void zoom(double factor);
    /// Moves the view rectangle over the reference plane, and the reference point with it.
    void pan(double eyeX, double eyeY);
    /// Turns the view about a line through the reference point, by the right-hand rule.
    void turn(UVector3<double> const& axis, double angleRadians);
    /// Turns the view about its direction, anticlockwise as seen on the screen.
    void roll(double angleRadians);
    /// Puts the reference point elsewhere without a change of the picture, so that turns go about
    /// it. In perspective a point behind the eye is ignored.
    void set_pivot(UPoint3<float> const& world);
    /// Puts the reference point back into the middle of the view rectangle.
    void recentre();
    /// Looks in the way of another camera, with its up; reference point and scale stay.
    void set_axes(UVector3<double> const& direction, UVector3<double> const& up);

    Projection projection() const { return m_projection; }
    /// What lies in the reference plane keeps its size.
    void setProjection(Projection projection) { m_projection = projection; }

    // In-place conversions.

    /// A widget position to the point of the reference plane under it.
    void mouseposToEyecs(UPoint2<float>& position) const;
    void ViewCSToWCSpoint(UPoint3<float>& point) const;
    void WCSToViewCSpoint(UPoint3<float>& point) const;
    /// The widget position under which an eye-space point appears.
    UPoint2<double> widgetPosition(UPoint3<double> const& eyePoint) const;
    /// World to eye space in full precision.
    UPoint3<double> toEye(UPoint3<double> const& world) const;
    UPoint3<double> toWorld(UPoint3<double> const& eyePoint) const;

    /// The ray of sight through a widget position, in world space; the origin lies before
    /// everything that the depth range holds, the direction is a unit vector.
    void sightRay(double x, double y, UPoint3<double>& origin, UVector3<double>& direction) const;

    /// The eye-space depths between which something can be seen, `low` below `high`.
    void set_depth_range(double low, double high);

    /// World to eye space, and eye to clip space, as OpenGL takes them.
    QMatrix4x4 getModelViewMatrix() const;
    QMatrix4x4 getProjectionMatrix() const;

private:
    UVector3<double> right() const { return m_up * m_direction; }
    double width() const;
    double eyeDistance() const;
    void alignUp(UVector3<double> up);
    void keepEye();

    UPoint3<double> m_ref;
    UPoint3<double> m_eye;
    UVector3<double> m_direction;
    UVector3<double> m_up;
    double m_height = 200;
    // The middle of the view rectangle in eye space.
    double m_middleX = 0;
    double m_middleY = 0;
    int m_screenWidth = 640;
    int m_screenHeight = 480;
    double m_low = -1000;
    double m_high = 1000;
    Projection m_projection = Projection::Parallel;
};
