// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/DrawDevice.h"
#include "host/view/DrawTrace.h"
#include "host/view/DrawValues.h"

#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QVector2D>

// What a device draws by way of the stencil: faces of cuts and outlines.

void DrawDevice::countAreas(Geometry& points, int count, QMatrix4x4 const& toClip)
{
    m_gl.glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
    m_gl.glDisable(GL_DEPTH_TEST);
    m_gl.glStencilMask(countBits);
    m_gl.glStencilFunc(GL_ALWAYS, 0, 0);
    m_gl.glStencilOpSeparate(GL_FRONT, GL_KEEP, GL_KEEP, GL_INCR_WRAP);
    m_gl.glStencilOpSeparate(GL_BACK, GL_KEEP, GL_KEEP, GL_DECR_WRAP);
    m_plain.bind();
    m_plain.setUniformValue("mvp", toClip);
    bind(points);
    m_gl.glDrawArrays(GL_TRIANGLES, 0, count);
    release(points);
    m_plain.release();
    m_gl.glEnable(GL_DEPTH_TEST);
    m_gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

void DrawDevice::drawCap(Geometry& points, int cover, CapLook const& look, QMatrix4x4 const& toClip)
{
    if (m_trace && !m_trace->passCap(points.m_identity, look, toClip))
        return;
    m_gl.glEnable(GL_STENCIL_TEST);
    countAreas(points, cover, toClip);
    // The count is taken back to 0 on the way; the marks of other parts stay.
    m_gl.glStencilMask(look.isMarked ? markBit | countBits : countBits);
    m_gl.glStencilFunc(GL_NOTEQUAL, look.isMarked ? markBit : 0, countBits);
    m_gl.glStencilOp(GL_KEEP, GL_REPLACE, GL_REPLACE);
    m_cap.bind();
    m_cap.setUniformValue("mvp", toClip);
    m_cap.setUniformValue("clr", colorOf(look.fill));
    m_cap.setUniformValue("hatch", colorOf(look.hatch));
    m_cap.setUniformValue("pitch", look.hatchPitch);
    bind(points);
    m_gl.glDrawArrays(GL_TRIANGLE_FAN, cover, 4);
    release(points);
    m_cap.release();
    m_gl.glStencilMask(0xff);
    m_gl.glDisable(GL_STENCIL_TEST);
}

void DrawDevice::drawSquare()
{
    if (!m_square)
        m_square =
            upload(std::vector<UPoint3<float>>{{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}});
    bind(*m_square);
    m_gl.glDrawArrays(GL_TRIANGLE_FAN, 0, 4);
    release(*m_square);
}

void DrawDevice::markToAlpha()
{
    m_gl.glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    m_gl.glClearColor(0, 0, 0, 0);
    m_gl.glClear(GL_COLOR_BUFFER_BIT);
    m_gl.glEnable(GL_STENCIL_TEST);
    m_gl.glStencilFunc(GL_EQUAL, markBit, markBit);
    m_gl.glStencilOp(GL_KEEP, GL_KEEP, GL_KEEP);
    m_plain.bind();
    m_plain.setUniformValue("mvp", QMatrix4x4());
    m_plain.setUniformValue("clr", QVector4D(1, 1, 1, 1));
    drawSquare();
    m_plain.release();
    m_gl.glDisable(GL_STENCIL_TEST);
    m_gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE);
}

void DrawDevice::drawOutline(GLuint target, QSize size, float reach, unsigned rgba,
                             OutlineArea const& area)
{
    if (!QOpenGLFramebufferObject::hasOpenGLFramebufferBlit() || area.line.isEmpty())
        return;
    auto const limitTo = [this](QRect const& r) {
        m_gl.glScissor(r.x(), r.y(), r.width(), r.height());
    };
    QRect const& asked = area.asked;
    m_gl.glEnable(GL_SCISSOR_TEST);
    limitTo(asked);
    m_gl.glDisable(GL_DEPTH_TEST);
    markToAlpha();
    if (!m_mask || m_mask->size() != size)
        m_mask = std::make_unique<QOpenGLFramebufferObject>(size);
    QOpenGLExtraFunctions& extra = *QOpenGLContext::currentContext()->extraFunctions();
    m_gl.glBindFramebuffer(GL_READ_FRAMEBUFFER, target);
    m_gl.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, m_mask->handle());
    m_gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    int const left = asked.x(), low = asked.y();
    int const right = left + asked.width(), high = low + asked.height();
    extra.glBlitFramebuffer(left, low, right, high, left, low, right, high, GL_COLOR_BUFFER_BIT,
                            GL_NEAREST);
    m_gl.glBindFramebuffer(GL_FRAMEBUFFER, target);
    limitTo(area.line);
    m_gl.glActiveTexture(GL_TEXTURE0);
    m_gl.glBindTexture(GL_TEXTURE_2D, m_mask->texture());
    m_gl.glEnable(GL_BLEND);
    // What has the mark itself is left out, and asks the mask nothing.
    m_gl.glEnable(GL_STENCIL_TEST);
    m_gl.glStencilFunc(GL_NOTEQUAL, markBit, markBit);
    m_outline.bind();
    m_outline.setUniformValue("mvp", QMatrix4x4());
    m_outline.setUniformValue("mask", 0);
    m_outline.setUniformValue("toMask", QVector2D(1.0f / size.width(), 1.0f / size.height()));
    m_outline.setUniformValue("reach", reach);
    m_outline.setUniformValue("clr", colorOf(rgba));
    drawSquare();
    m_outline.release();
    m_gl.glBindTexture(GL_TEXTURE_2D, 0);
    m_gl.glDisable(GL_BLEND);
    m_gl.glDisable(GL_STENCIL_TEST);
    m_gl.glDisable(GL_SCISSOR_TEST);
    m_gl.glEnable(GL_DEPTH_TEST);
}
