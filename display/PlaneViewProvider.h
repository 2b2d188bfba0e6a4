// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/GraphicViewProvider.h"
#include "platform/document/TypeEntry.h"

#include <QOpenGLShaderProgram>

namespace Freecut {

class PlaneProperty;

/// Shows the plane of a section cut: a translucent rectangle with a grid, ticks on the midpoints of
/// its sides, and a handle on each of its nine key points.
class PlaneViewProvider : public Base::TypeEntry<PlaneViewProvider, GraphicViewProvider>
{
public:
    static constexpr char const* typeName = "Freecut::PlaneViewProvider";

    ~PlaneViewProvider() override;

    void initGL() override;
    void paintGL() override;
    /// Also derives the plane's key points.
    void updateGeometry() override;
    void buildMarkers() override;

    /// Cells along c1 - c0, and along c2 - c1.
    float getGridRows() const { return gridRows; }
    float getGridColumns() const { return gridColumns; }

private:
    PlaneProperty* record() const;
    std::vector<LineRun> planeRuns() const;
    void drawPlane();
    /// Shows in the view where the plane meets the parts.
    void showSectionLine(std::vector<UPoint3<float>> const& corners);

    unsigned planeVbo = 0;
    QOpenGLBuffer* planeBuffer = nullptr;
    QOpenGLShaderProgram lineShader21;
    QOpenGLShaderProgram lineShader33;
    QOpenGLVertexArrayObject* planeVao = nullptr;
    float gridRows = 2;
    float gridColumns = 2;
};

}  // namespace Freecut
