// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PictureFrame.h"

#include <QImage>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <algorithm>
#include <cmath>

namespace {

/// With four samples, and depth beside the colour, half a gigabyte.
constexpr qint64 mostSampledPixels = 16'000'000;

}  // namespace

PictureFrame::PictureFrame(QSize pixels, int height)
    : m_buffer(pixels, QOpenGLFramebufferObject::CombinedDepthStencil),
      m_height(std::max(height, 1))
{}

QSize PictureFrame::logicalSize() const
{
    return {std::max(1, int(std::lround(pixels().width() / pixelRatio()))), m_height};
}

bool PictureFrame::isSampled() const
{
    return qint64(pixels().width()) * pixels().height() <= mostSampledPixels;
}

void PictureFrame::bind()
{
    m_buffer.bind();
}

QImage PictureFrame::image() const
{
    return m_buffer.toImage().convertToFormat(QImage::Format_RGB32);
}
