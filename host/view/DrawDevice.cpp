// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/DrawDevice.h"

#include "host/view/DrawDevice21.h"
#include "host/view/DrawDevice33.h"
#include "host/view/DrawTrace.h"
#include "host/view/DrawValues.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/view/OpenGLPath.h"

#include <algorithm>

namespace {

constexpr int positionPlace = 0;
constexpr int facetPlace = 1;

bool isTranslucent(unsigned rgba)
{
    return (rgba & 255) != 255;
}

bool linkProgram(QOpenGLShaderProgram& program, char const* vertices, char const* fragments)
{
    QString const folder = ":/shader/shader/view/";
    program.addShaderFromSourceFile(QOpenGLShader::Vertex, folder + vertices + ".uvs");
    program.addShaderFromSourceFile(QOpenGLShader::Fragment, folder + fragments + ".ufs");
    program.bindAttributeLocation("position", positionPlace);
    program.bindAttributeLocation("facet", facetPlace);
    if (program.link())
        return true;
    Base::ConsoleSingleton::Instance().Log("The view cannot draw: " + program.log().toStdString());
    return false;
}

}  // namespace

std::unique_ptr<DrawDevice> DrawDevice::create()
{
    if (g_OPENGL_3_3)
        return DrawDevice33::create();
    return DrawDevice21::create();
}

DrawDevice::DrawDevice()
{
    m_gl.initializeOpenGLFunctions();
}

DrawDevice::~DrawDevice() = default;

bool DrawDevice::link(Shaders const& shaders)
{
    return linkProgram(m_plain, shaders.plain, shaders.plain) &&
           linkProgram(m_part, shaders.part, shaders.part) &&
           linkProgram(m_cap, shaders.plain, shaders.cap) &&
           linkProgram(m_outline, shaders.plain, shaders.outline);
}

void DrawDevice::resetState()
{
    m_gl.glUseProgram(0);
    m_gl.glBindBuffer(GL_ARRAY_BUFFER, 0);
    m_gl.glEnable(GL_DEPTH_TEST);
    m_gl.glDepthFunc(GL_LEQUAL);
    m_gl.glDepthMask(GL_TRUE);
    m_gl.glDisable(GL_BLEND);
    m_gl.glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    m_gl.glDisable(GL_CULL_FACE);
    m_gl.glDisable(GL_SCISSOR_TEST);
    m_gl.glDisable(GL_STENCIL_TEST);
    m_gl.glStencilMask(0xff);
    setClipping(false);
    m_gl.glDisable(GL_POLYGON_OFFSET_FILL);
    m_gl.glFrontFace(GL_CCW);
    m_gl.glEnable(GL_MULTISAMPLE);
    setPolygonMode(GL_FILL);
}

std::unique_ptr<DrawDevice::Geometry> DrawDevice::emptyGeometry()
{
    auto geometry = std::make_unique<Geometry>();
    if (keepsVertexArrays()) {
        geometry->m_array.create();
        geometry->m_array.bind();
    }
    return geometry;
}

std::unique_ptr<DrawDevice::Geometry> DrawDevice::makeGeometry(void const* data, std::size_t bytes)
{
    auto geometry = emptyGeometry();
    geometry->m_vertices.create();
    geometry->m_vertices.bind();
    geometry->m_vertices.allocate(data, int(bytes));
    return geometry;
}

std::unique_ptr<DrawDevice::Geometry> DrawDevice::upload(std::span<UPoint3<float> const> points)
{
    auto geometry = makeGeometry(points.data(), points.size_bytes());
    geometry->m_count = int(points.size());
    geometry->m_identity = DrawTrace::fingerprintOf(points.data(), points.size_bytes());
    if (keepsVertexArrays())
        describe(*geometry);
    release(*geometry);
    return geometry;
}

std::unique_ptr<DrawDevice::Geometry> DrawDevice::upload(PartSurface const& surface)
{
    auto geometry = makeGeometry(surface.vertices.data(),
                                 surface.vertices.size() * sizeof(PartSurface::Vertex));
    beSurface(*geometry);
    append(*geometry, surface.indices);
    return geometry;
}

std::unique_ptr<DrawDevice::Geometry> DrawDevice::reserve(std::size_t vertices)
{
    auto geometry = makeGeometry(nullptr, vertices * sizeof(PartSurface::Vertex));
    beSurface(*geometry);
    return geometry;
}

std::unique_ptr<DrawDevice::Geometry> DrawDevice::sharing(Geometry const& withVertices)
{
    auto geometry = emptyGeometry();
    geometry->m_vertices = withVertices.m_vertices;
    beSurface(*geometry);
    return geometry;
}

// One that was just made.
void DrawDevice::beSurface(Geometry& geometry)
{
    geometry.m_hasFacets = true;
    geometry.m_identity = ++m_surfaces;
    if (keepsVertexArrays())
        describe(geometry);
    release(geometry);
}

void DrawDevice::write(Geometry& surface, std::size_t first,
                       std::span<PartSurface::Vertex const> vertices)
{
    surface.m_vertices.bind();
    surface.m_vertices.write(int(first * sizeof(PartSurface::Vertex)), vertices.data(),
                             int(vertices.size_bytes()));
    surface.m_vertices.release();
}

void DrawDevice::append(Geometry& surface, std::span<std::uint32_t const> indices)
{
    Geometry::Indices added;
    added.first = std::size_t(surface.m_count);
    added.count = indices.size();
    bind(surface);
    added.buffer.create();
    added.buffer.bind();
    added.buffer.allocate(indices.data(), int(indices.size_bytes()));
    release(surface);
    surface.m_indices.push_back(added);
    surface.m_count += int(indices.size());
}

void DrawDevice::describe(Geometry& geometry)
{
    geometry.m_vertices.bind();
    GLsizei const stride = geometry.m_hasFacets ? sizeof(PartSurface::Vertex) : 0;
    m_gl.glEnableVertexAttribArray(positionPlace);
    m_gl.glVertexAttribPointer(positionPlace, 3, GL_FLOAT, GL_FALSE, stride, nullptr);
    if (!geometry.m_hasFacets)
        return;
    m_gl.glEnableVertexAttribArray(facetPlace);
    m_gl.glVertexAttribPointer(facetPlace, 2, GL_SHORT, GL_TRUE, stride,
                               reinterpret_cast<void*>(offsetof(PartSurface::Vertex, facet)));
}

void DrawDevice::bind(Geometry& geometry)
{
    if (keepsVertexArrays())
        geometry.m_array.bind();
    else
        describe(geometry);
}

void DrawDevice::release(Geometry& geometry)
{
    if (keepsVertexArrays()) {
        geometry.m_array.release();
    } else {
        m_gl.glDisableVertexAttribArray(positionPlace);
        m_gl.glDisableVertexAttribArray(facetPlace);
        m_gl.glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
    }
    m_gl.glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void DrawDevice::draw(Geometry& points, std::span<DrawRun const> runs, QMatrix4x4 const& toClip)
{
    if (m_trace && !m_trace->passPoints(points.m_identity, runs, toClip))
        return;
    m_plain.bind();
    m_plain.setUniformValue("mvp", toClip);
    bind(points);
    for (DrawRun const& run : runs) {
        // What is opaque is drawn faster without.
        isTranslucent(run.rgba) ? m_gl.glEnable(GL_BLEND) : m_gl.glDisable(GL_BLEND);
        m_plain.setUniformValue("clr", colorOf(run.rgba));
        m_gl.glDrawArrays(run.mode, run.first, run.count);
    }
    m_gl.glDisable(GL_BLEND);
    release(points);
    m_plain.release();
}

void DrawDevice::draw(Geometry& surface, SurfaceLook const& look, QMatrix4x4 const& toClip,
                      QMatrix4x4 const& toEye)
{
    IndexRange const all = {0, std::size_t(surface.m_count)};
    draw(surface, look, toClip, toEye, std::span(&all, surface.m_count > 0 ? 1 : 0));
}

void DrawDevice::draw(Geometry& surface, SurfaceLook const& look, QMatrix4x4 const& toClip,
                      QMatrix4x4 const& toEye, std::span<IndexRange const> ranges)
{
    if (ranges.empty())
        return;
    if (m_trace)
        m_trace->beginSurface(surface.m_identity, look, toClip, toEye);
    std::vector<IndexRange> passed;
    if ((look.front & 255) || (look.back & 255)) {
        if (m_trace)
            passed = m_trace->passFaces(ranges);
        drawTriangles(surface, look, toClip, toEye,
                      m_trace ? std::span<IndexRange const>(passed) : ranges);
    }
    if (look.edges & 255) {
        if (m_trace)
            passed = m_trace->passEdges(ranges);
        drawEdges(surface, look, toClip, m_trace ? std::span<IndexRange const>(passed) : ranges);
    }
}

void DrawDevice::drawRanges(Geometry& surface, std::span<IndexRange const> ranges)
{
    bind(surface);
    for (Geometry::Indices& indices : surface.m_indices) {
        indices.buffer.bind();
        for (IndexRange const& range : ranges) {
            std::size_t const from = std::max(range.first, indices.first);
            std::size_t const to =
                std::min(range.first + range.count, indices.first + indices.count);
            if (from < to)
                m_gl.glDrawElements(
                    GL_TRIANGLES, GLsizei(to - from), GL_UNSIGNED_INT,
                    reinterpret_cast<void*>((from - indices.first) * sizeof(std::uint32_t)));
        }
    }
    release(surface);
}

void DrawDevice::drawTriangles(Geometry& surface, SurfaceLook const& look, QMatrix4x4 const& toClip,
                               QMatrix4x4 const& toEye, std::span<IndexRange const> ranges)
{
    if (ranges.empty())
        return;
    bool const isGhost = isTranslucent(look.front) || isTranslucent(look.back);
    m_part.bind();
    m_part.setUniformValue("mvp", toClip);
    m_part.setUniformValue("nmv", toEye.normalMatrix());
    m_part.setUniformValue("frontColor", colorOf(look.front));
    m_part.setUniformValue("backColor", colorOf(look.back));
    m_gl.glFrontFace(look.isMirrored ? GL_CW : GL_CCW);
    if (look.edges & 255) {
        // Leaves room for edges in front of the triangles they belong to. Not without need: steep
        // triangles are moved farther, so that those behind an outline would shine through.
        m_gl.glEnable(GL_POLYGON_OFFSET_FILL);
        m_gl.glPolygonOffset(1, 1);
    }
    if (look.isSolid) {
        m_gl.glEnable(GL_CULL_FACE);
        m_gl.glCullFace(GL_BACK);
    }
    if (isGhost) {
        m_gl.glEnable(GL_BLEND);
        m_gl.glDepthMask(GL_FALSE);
    }
    if (look.isMarked) {
        m_gl.glEnable(GL_STENCIL_TEST);
        m_gl.glStencilMask(markBit);
        m_gl.glStencilFunc(GL_ALWAYS, markBit, markBit);
        m_gl.glStencilOp(GL_KEEP, GL_REPLACE, GL_REPLACE);
    }
    beginCut(m_part, look);
    drawRanges(surface, ranges);
    endCut(m_part);
    m_gl.glDisable(GL_STENCIL_TEST);
    m_gl.glDisable(GL_CULL_FACE);
    m_gl.glDisable(GL_BLEND);
    m_gl.glDepthMask(GL_TRUE);
    m_gl.glDisable(GL_POLYGON_OFFSET_FILL);
    m_gl.glFrontFace(GL_CCW);
    m_part.release();
}

void DrawDevice::beginCut(QOpenGLShaderProgram& program, SurfaceLook const& look)
{
    // Without a cut too: some drivers clip by what the shader writes whatever the state says.
    ViewPlane const cut = look.cut.value_or(ViewPlane{{}, 1});
    UVector3<double> const& n = cut.normal;
    program.setUniformValue(
        "clip", QVector4D(float(-n.X()), float(-n.Y()), float(-n.Z()), float(cut.offset)));
    setClipping(look.cut.has_value());
}

void DrawDevice::endCut(QOpenGLShaderProgram& program)
{
    program.setUniformValue("clip", QVector4D(0, 0, 0, 1));
    setClipping(false);
}

void DrawDevice::drawEdges(Geometry& surface, SurfaceLook const& look, QMatrix4x4 const& toClip,
                           std::span<IndexRange const> ranges)
{
    if (ranges.empty())
        return;
    m_plain.bind();
    m_plain.setUniformValue("mvp", toClip);
    m_plain.setUniformValue("clr", colorOf(look.edges));
    beginCut(m_plain, look);
    m_gl.glEnable(GL_BLEND);
    setPolygonMode(GL_LINE);
    drawRanges(surface, ranges);
    setPolygonMode(GL_FILL);
    endCut(m_plain);
    m_gl.glDisable(GL_BLEND);
    m_plain.release();
}
