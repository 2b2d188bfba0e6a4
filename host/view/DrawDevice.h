// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/PartSurface.h"
#include "host/view/ViewPlane.h"

#include <QMatrix4x4>
#include <QOpenGLBuffer>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

class DrawTrace;

/// Lines or areas in one colour: some of the points of a DrawDevice::Points, in order.
struct DrawRun
{
    GLenum mode;
    int first;
    int count;
    /// 0xRRGGBBAA
    unsigned rgba;
};

/// How the triangles of a part are drawn. Colours are 0xRRGGBBAA; alpha 0 leaves a side out.
struct SurfaceLook
{
    unsigned front = 0;
    unsigned back = 0;
    /// Drawn as lines over the triangles, or alone.
    unsigned edges = 0;
    /// The transform reflects, so that what faces outward shows its corners clockwise.
    bool isMirrored = false;
    /// Triangles seen from behind are left out, as something stands before them anyway.
    bool isSolid = false;
    /// What has a height above 0 by this plane, in the coordinates of the triangles, is cut away.
    std::optional<ViewPlane> cut;
    /// The places where it shows, or would show without what stands before it, get the mark.
    bool isMarked = false;
};

/// How the face is drawn that fills a part where it is cut.
struct CapLook
{
    /// 0xRRGGBBAA; the alpha of the first is ignored.
    unsigned fill = 0;
    unsigned hatch = 0;
    /// In device pixels.
    float hatchPitch = 8;
    bool isMarked = false;
};

/// Some of the indices of a surface, in whole triangles.
struct IndexRange
{
    std::size_t first;
    std::size_t count;
};

/// What can be drawn, for both versions of OpenGL: points are uploaded, and runs of them drawn in
/// a mode and a colour; surfaces of parts are uploaded, and drawn lit.
///
/// All of it with the context current that it was made in. Uploaded things must not outlive the
/// device.
class DrawDevice
{
public:
    /// Vertices on the device.
    class Geometry
    {
    public:
        Geometry() : m_vertices(QOpenGLBuffer::VertexBuffer) {}

    private:
        friend class DrawDevice;
        /// Whole triangles. A buffer of its own for each step of an upload, since some drivers fill a
        /// new one with zeros, which takes long for a large one.
        struct Indices
        {
            QOpenGLBuffer buffer{QOpenGLBuffer::IndexBuffer};
            std::size_t first = 0;
            std::size_t count = 0;
        };
        QOpenGLBuffer m_vertices;
        std::vector<Indices> m_indices;
        QOpenGLVertexArrayObject m_array;
        int m_count = 0;
        bool m_hasFacets = false;
        /// That of the points, or a number of the surface's own.
        std::uint64_t m_identity = 0;
    };

    /// The device for the current context: that of g_OPENGL_3_3. Null if the context lacks the
    /// functions.
    static std::unique_ptr<DrawDevice> create();
    virtual ~DrawDevice();

    std::unique_ptr<Geometry> upload(std::span<UPoint3<float> const> points);
    std::unique_ptr<Geometry> upload(PartSurface const& surface);

    // A surface that is uploaded in pieces: room for its vertices, and what fills it.

    std::unique_ptr<Geometry> reserve(std::size_t vertices);
    /// With the vertices of another surface, which may go.
    std::unique_ptr<Geometry> sharing(Geometry const& withVertices);
    void write(Geometry& surface, std::size_t first, std::span<PartSurface::Vertex const> vertices);
    /// Adds triangles.
    void append(Geometry& surface, std::span<std::uint32_t const> indices);

    void draw(Geometry& points, std::span<DrawRun const> runs, QMatrix4x4 const& toClip);
    /// toEye  for the light; its linear part may scale
    void draw(Geometry& surface, SurfaceLook const& look, QMatrix4x4 const& toClip,
              QMatrix4x4 const& toEye);
    /// Some of its triangles.
    void draw(Geometry& surface, SurfaceLook const& look, QMatrix4x4 const& toClip,
              QMatrix4x4 const& toEye, std::span<IndexRange const> ranges);

    /// Draws the area of a section: where the triangles before `cover` that run one way are not as
    /// many as those that run the other way, within the quad that the four points at `cover` span.
    void drawCap(Geometry& points, int cover, CapLook const& look, QMatrix4x4 const& toClip);

    /// In device pixels, from the lower left corner.
    struct OutlineArea
    {
        /// Where the line may be.
        QRect line;
        /// What lies around it as far as the line reaches.
        QRect asked;
    };
    /// Draws a line around all that has the mark. Needs OpenGL 3.0 or its framebuffer objects;
    /// without them there is no line.
    ///
    /// target  the framebuffer object of the picture
    /// size, reach  of the picture and the width of the line, in device pixels
    void drawOutline(GLuint target, QSize size, float reach, unsigned rgba,
                     OutlineArea const& area);

    /// Tells what is to be drawn to `trace`, and draws what that lets through; null for all. The line
    /// around what has the mark is left out of this.
    void setTrace(DrawTrace* trace) { m_trace = trace; }

    void setDepthWriting(bool isOn) { m_gl.glDepthMask(isOn ? GL_TRUE : GL_FALSE); }
    void setDepthTest(bool isOn)
    {
        isOn ? m_gl.glEnable(GL_DEPTH_TEST) : m_gl.glDisable(GL_DEPTH_TEST);
    }

    /// Waits until all is drawn.
    void finish() { m_gl.glFinish(); }

    /// Brings OpenGL into the state in which a picture begins, whatever others have left behind.
    virtual void resetState();

protected:
    struct Shaders
    {
        char const* plain;
        char const* part;
        char const* cap;
        char const* outline;
    };

    DrawDevice();
    bool link(Shaders const& shaders);
    QOpenGLFunctions& gl() { return m_gl; }

    /// GL_LINE or GL_FILL for both sides.
    virtual void setPolygonMode(GLenum mode) = 0;
    virtual bool keepsVertexArrays() const = 0;
    /// What has a clip distance below 0 is left out.
    virtual void setClipping(bool isOn) = 0;

private:
    std::unique_ptr<Geometry> makeGeometry(void const* data, std::size_t bytes);
    std::unique_ptr<Geometry> emptyGeometry();
    void beSurface(Geometry& geometry);
    void describe(Geometry& geometry);
    void bind(Geometry& geometry);
    void release(Geometry& geometry);
    void drawTriangles(Geometry& surface, SurfaceLook const& look, QMatrix4x4 const& toClip,
                       QMatrix4x4 const& toEye, std::span<IndexRange const> ranges);
    void drawEdges(Geometry& surface, SurfaceLook const& look, QMatrix4x4 const& toClip,
                   std::span<IndexRange const> ranges);
    void drawRanges(Geometry& surface, std::span<IndexRange const> ranges);
    void beginCut(QOpenGLShaderProgram& program, SurfaceLook const& look);
    void endCut(QOpenGLShaderProgram& program);
    void countAreas(Geometry& points, int count, QMatrix4x4 const& toClip);
    void markToAlpha();
    void drawSquare();

    QOpenGLFunctions m_gl;
    DrawTrace* m_trace = nullptr;
    std::uint64_t m_surfaces = 0;
    QOpenGLShaderProgram m_plain;
    QOpenGLShaderProgram m_part;
    QOpenGLShaderProgram m_cap;
    QOpenGLShaderProgram m_outline;
    std::unique_ptr<Geometry> m_square;
    std::unique_ptr<QOpenGLFramebufferObject> m_mask;
};
