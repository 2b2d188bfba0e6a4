// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/PlaneViewProvider.h"

#include "display/LineShaders.h"
#include "display/PlanePicture.h"
#include "platform/view/MeshGLView.h"
#include "platform/view/OpenGLPath.h"
#include "tools/PlaneGraphicObject.h"

namespace Freecut {

namespace {

constexpr Color255 planeColor{25, 25, 112, 51};
/// The groups of vertices that are ticks, before the cells.
constexpr int tickVertices = 8;

}  // namespace

PlaneViewProvider::~PlaneViewProvider()
{
    if (auto* const view = dynamic_cast<Mesh::GLView*>(m_view))
        view->setSectionPlane({});
    if (!makeContextCurrent(m_view))
        return;
    deleteBuffers33(planeVao, planeBuffer);
    if (planeVbo != 0)
        deleteVertexBuffer21(*m_view, planeVbo);
}

void PlaneViewProvider::initGL()
{
    GraphicViewProvider::initGL();
    if (!makeContextCurrent(m_view) || !hasLineFunctions(*m_view))
        return;
    if (g_OPENGL_3_3) {
        makeBuffers33(planeVao, planeBuffer);
        linkProgram(lineShader33, planeShaderSource33);
    } else {
        planeVbo = makeVertexBuffer21(*m_view);
        linkProgram(lineShader21, lineShaderSource21);
    }
    // The plane may have been given its corners before the view had a context.
    updateGeometry();
}

PlaneProperty* PlaneViewProvider::record() const
{
    return m_object ? &static_cast<PlaneGraphicObject*>(m_object)->getProperty() : nullptr;
}

void PlaneViewProvider::updateGeometry()
{
    PlaneProperty* const plane = record();
    if (!plane)
        return;
    plane->updateKeyPoints();
    std::vector<UPoint3<float>> const corners = plane->getCorners();
    showSectionLine(corners);
    float const tick1 = divideSide((corners[1] - corners[0]).GetLength(), gridRows);
    float const tick2 = divideSide((corners[2] - corners[1]).GetLength(), gridColumns);
    if (!makeContextCurrent(m_view))
        return;
    std::vector<float> const planeVertices =
        verticesOfPlane(*plane, gridRows, gridColumns, tick1, tick2);
    uploadVertices(*m_view, {.vbo = planeVbo, .buffer = planeBuffer}, planeVertices);
}

void PlaneViewProvider::showSectionLine(std::vector<UPoint3<float>> const& corners)
{
    UVector3<float> normal = (corners[1] - corners[0]) * (corners[2] - corners[1]);
    if (auto* const view = dynamic_cast<Mesh::GLView*>(m_view))
        view->setSectionPlane(SectionPlane{corners[1], normal.Normalize()});
}

void PlaneViewProvider::buildMarkers()
{
    if (PlaneProperty const* const plane = record())
        buildMarkersAt(plane->getKeyPoints());
}

void PlaneViewProvider::paintGL()
{
    if (!makeContextCurrent(m_view))
        return;
    buildMarkers();
    drawPlane();
    drawMarkers();
}

std::vector<LineRun> PlaneViewProvider::planeRuns() const
{
    int const end = int(gridRows * gridColumns) * 4 + tickVertices;
    std::vector<LineRun> runs;
    for (int first = 0; first < end; first += 4) {
        GLenum const mode = first < tickVertices ? GL_TRIANGLE_FAN : GL_LINE_LOOP;
        runs.push_back({mode, first, 4});
    }
    for (int first = tickVertices; first < end; first += 4)
        runs.push_back({GL_TRIANGLE_FAN, first, 4, true});
    return runs;
}

void PlaneViewProvider::drawPlane()
{
    if (g_OPENGL_3_3)
        drawLines33(*m_view, {.vao = planeVao, .buffer = planeBuffer}, lineShader33,
                    {.color = planeColor}, planeRuns());
    else
        drawLines21(*m_view, {.vbo = planeVbo}, lineShader21,
                    {.color = planeColor, .isSmooth = true}, planeRuns());
}

}  // namespace Freecut
