// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/SampledPicture.h"

#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>

namespace {

constexpr int samplesPerPixel = 4;

QOpenGLFramebufferObjectFormat sampledFormat()
{
    QOpenGLFramebufferObjectFormat format;
    format.setSamples(samplesPerPixel);
    format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
    return format;
}

}  // namespace

bool SampledPicture::begin(QSize size)
{
    if (m_isRefused || !QOpenGLFramebufferObject::hasOpenGLFramebufferBlit())
        return false;
    if (!m_buffer || m_buffer->size() != size) {
        // Two of them at once would be the most memory that a view ever takes.
        m_buffer.reset();
        m_buffer = std::make_unique<QOpenGLFramebufferObject>(size, sampledFormat());
        if (!m_buffer->isValid() || m_buffer->format().samples() < 2) {
            m_buffer.reset();
            m_isRefused = true;
            QOpenGLFramebufferObject::bindDefault();
            return false;
        }
    }
    return m_buffer->bind();
}

void SampledPicture::end(GLuint widget)
{
    QOpenGLExtraFunctions& gl = *QOpenGLContext::currentContext()->extraFunctions();
    int const width = m_buffer->width(), height = m_buffer->height();
    gl.glBindFramebuffer(GL_READ_FRAMEBUFFER, m_buffer->handle());
    gl.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, widget);
    gl.glBlitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    gl.glBindFramebuffer(GL_FRAMEBUFFER, widget);
}
