// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/ConnectorItem.h"

namespace Freecut {

void ConnectorItem::setShapes(ConnectorShapes const& shapes)
{
    m_picture = pictureOf(shapes);
    m_isUploaded = false;
    setWorking(!shapes.isEmpty());
}

LineBuffers ConnectorItem::upload()
{
    LineBuffers const buffers{.vbo = vbo, .vao = vao, .buffer = buffer};
    if (!m_isUploaded)
        uploadVertices(*viewer, buffers, m_picture.vertices);
    m_isUploaded = true;
    return buffers;
}

void ConnectorItem::renderItem_GL_3_3()
{
    LineBuffers const buffers = upload();
    for (ColoredRuns const& stroke : m_picture.strokes)
        drawLines33(*viewer, buffers, *program, {.color = stroke.color, .isOverAll = true},
                    stroke.runs);
}

void ConnectorItem::renderItem_GL_2_1()
{
    LineBuffers const buffers = upload();
    for (ColoredRuns const& stroke : m_picture.strokes)
        drawLines21(*viewer, buffers, *program,
                    {.color = stroke.color, .isOverAll = true, .isSmooth = true}, stroke.runs);
}

}  // namespace Freecut
