// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/LineDrawing.h"
#include "platform/document/TypeEntry.h"
#include "platform/geometry/UPoint3.h"
#include "platform/view/GraphicViewProvider.h"

#include <vector>

namespace Freecut {

/// Shows a cut tool, and the handles by which it is dragged. Owns what the tool has on the device;
/// what is needed there is made in initGL, and freed with the view's context current.
class GraphicViewProvider : public Base::TypeEntry<GraphicViewProvider, Base::GraphicViewProvider>
{
public:
    static constexpr char const* typeName = "Freecut::GraphicViewProvider";
    /// Null: only the classes below are made.
    static void* create() { return nullptr; }

    ~GraphicViewProvider() override;

    void initGL() override;
    void paintGL() override;
    /// Derives what is drawn, outlines included, from the tool's record. Called after every edit;
    /// needs no context.
    virtual void updateGeometry() = 0;

    // Places in the virtual table that no class fills.

    virtual void* reserved1();
    virtual void* reserved2();
    virtual void reserved3();
    virtual void reserved4();

    /// Makes the handles anew for the camera as it is now; here there are none.
    virtual void buildMarkers();
    virtual void drawMarkersGL21();
    virtual void drawMarkersGL33();

    /// The quads of the handles: x, y, z per vertex, 4 vertices per handle.
    std::vector<float> const& getMarkerVertices() const { return markerVertices; }

protected:
    /// Replaces the handles by one for each of these world points.
    void buildMarkersAt(std::vector<UPoint3<float>> const& points);
    /// Draws the handles by the version in use.
    void drawMarkers();
    int markerCount() const { return int(markerVertices.size() / 12); }
    // Uploads the handles, and draws some of them in a colour.
    void uploadMarkers();
    void drawMarkersOf21(Color255 const& color, int first, int count);
    void drawMarkersOf33(Color255 const& color, int first, int count);

    std::vector<float> markerVertices;
    unsigned markerVbo = 0;
    QOpenGLVertexArrayObject* markerVao = nullptr;
    QOpenGLBuffer* markerBuffer = nullptr;
    QOpenGLShaderProgram* markerShader = nullptr;
    Color255 markerColor{52, 52, 52, 204};

private:
    LineBuffers markerBuffers() const
    {
        return {.vbo = markerVbo, .vao = markerVao, .buffer = markerBuffer};
    }
};

}  // namespace Freecut
