// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/ContourItem.h"

#include "platform/view/GLView.h"

namespace Freecut {

namespace {

/// The sine of an angle below which a tool is seen along itself.
constexpr float alongTool = 1e-3f;

}  // namespace

void ContourItem::setLines(ContourLines const& lines, UVector3<float> const& direction)
{
    m_direction = direction;
    m_vertices.clear();
    m_vertices.reserve(6 * lines.size());
    for (auto const& line : lines)
        for (UPoint3<float> const& end : line)
            m_vertices.insert(m_vertices.end(), {end.X(), end.Y(), end.Z()});
    m_isUploaded = false;
    setWorking(!lines.empty());
}

bool ContourItem::isSeenAlongTool() const
{
    UVector3<float> const sight = viewer->getViewDirection();
    return (sight * m_direction).GetLength() <
           alongTool * sight.GetLength() * m_direction.GetLength();
}

LineBuffers ContourItem::upload()
{
    LineBuffers const buffers{.vbo = vbo, .vao = vao, .buffer = buffer};
    if (!m_isUploaded)
        uploadVertices(*viewer, buffers, m_vertices);
    m_isUploaded = true;
    return buffers;
}

template <typename Draw>
void ContourItem::render(Draw const& draw)
{
    if (isSeenAlongTool())
        return;
    LineBuffers const buffers = upload();
    int const count = int(m_vertices.size() / 3);
    LineRun const hidden{GL_LINES, 0, count, true}, seen{GL_LINES, 0, count, false};
    draw(*viewer, buffers, *program,
         {.color = ToolColors::hiddenContour, .isOverAll = true, .isSmooth = true},
         std::span<LineRun const>(&hidden, 1));
    draw(*viewer, buffers, *program, {.color = ToolColors::contour, .isSmooth = true},
         std::span<LineRun const>(&seen, 1));
}

void ContourItem::renderItem_GL_3_3()
{
    render(drawLines33);
}

void ContourItem::renderItem_GL_2_1()
{
    render(drawLines21);
}

}  // namespace Freecut
