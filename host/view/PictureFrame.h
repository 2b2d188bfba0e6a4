// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QOpenGLFramebufferObject>

#include <optional>

/// Where a picture of another size than the widget's is drawn. It shows what the widget does from
/// top to bottom; lines and labels grow with it.
///
/// All of it with the context of the view current.
class PictureFrame
{
public:
    /// height  of the widget, which has so many rows of its own
    PictureFrame(QSize pixels, int height);

    /// False where OpenGL cannot draw a picture so large.
    bool isValid() const { return m_buffer.isValid(); }
    QSize pixels() const { return m_buffer.size(); }
    /// As a widget of the same height would have them.
    QSize logicalSize() const;
    double pixelRatio() const { return double(pixels().height()) / m_height; }
    /// Several samples for each pixel would take more memory than they are worth.
    bool isSampled() const;

    /// Draws before one colour instead of the view's ground, and without the build plate.
    void setFlatGround(QColor const& color) { m_flatGround = color; }
    std::optional<QColor> const& flatGround() const { return m_flatGround; }

    /// Makes what is drawn from now on go here.
    void bind();
    GLuint handle() const { return m_buffer.handle(); }
    QImage image() const;

private:
    QOpenGLFramebufferObject m_buffer;
    int m_height;
    std::optional<QColor> m_flatGround;
};
