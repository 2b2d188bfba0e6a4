// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QOpenGLFramebufferObject>

#include <memory>

/// Where a picture is drawn with several samples for each pixel before it goes to the framebuffer
/// of the widget, which has one. So a picture can also be drawn there at once, with one sample, in
/// about half the time without a graphics card.
///
/// All of it with the context current that it was begun in.
class SampledPicture
{
public:
    /// Makes what is drawn from now on go here; the depth and the stencil are not cleared.
    ///
    /// size  in device pixels
    /// False, with nothing changed, where OpenGL cannot do it: pictures have one sample then.
    bool begin(QSize size);
    /// Whether begin() may succeed.
    bool isPossible() const { return !m_isRefused; }
    /// What is to be named as the target while the picture is drawn.
    GLuint target() const { return m_buffer->handle(); }
    /// Puts the picture, with the samples of each pixel mixed, into `widget`, which is then bound.
    void end(GLuint widget);
    void release() { m_buffer.reset(); }

private:
    std::unique_ptr<QOpenGLFramebufferObject> m_buffer;
    bool m_isRefused = false;
};
