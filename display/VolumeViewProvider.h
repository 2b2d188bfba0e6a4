// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/CameraWatch.h"
#include "display/GraphicViewProvider.h"
#include "display/NewestWork.h"
#include "display/SolidPicture.h"
#include "display/ToolLabels.h"
#include "platform/document/TypeEntry.h"

#include <QOpenGLShaderProgram>

#include <memory>
#include <optional>

namespace Freecut {

class VolumeOutline;
class VolumeProperty;

/// Shows a solid tool: its outlines, in a preview its faces, and otherwise its handles and labels.
/// While the view is panned the tool stays on the model; while it is turned the tool stays on the
/// screen; in a preview the view may go anywhere and the tool stays where it is.
///
/// This class has no outline of its own; only the classes below are used.
class VolumeViewProvider : public Base::TypeEntry<VolumeViewProvider, GraphicViewProvider>
{
public:
    static constexpr char const* typeName = "Freecut::VolumeViewProvider";

    VolumeViewProvider();
    ~VolumeViewProvider() override;

    void initGL() override;
    /// Derives the outlines, in the eye space of the view that it is attached to; nothing without a
    /// view. If the camera was turned, the tool follows the screen.
    ///
    /// Long outlines in a view that is shown are derived in the background, from the values of now,
    /// unless there is a preview or the camera was turned. Until they are there the last ones are
    /// shown; then the view is drawn again.
    void updateGeometry() override;
    /// Brings the solid's bottom and faces up to date, for the path by which views draw.
    void buildSolidBuffers();

    /// What was derived, for which this waits; null before the first updateGeometry.
    VolumeOutline const* getOutline() const;
    /// What is drawn. It is of older values than the record has as long as background() is busy.
    ToolOutlines const& shownOutlines() const;
    /// Derives long outlines; tells when they are there.
    NewestWork const& background() const { return m_background; }

    /// The camera was turned since the last picture, so that the tool has to follow.
    bool getViewChanged() const { return viewChanged; }
    void setViewChanged(bool value) { viewChanged = value; }

protected:
    /// The outline of the tool that is shown; null if there is none.
    virtual std::unique_ptr<VolumeOutline> makeOutline() const;

    /// What initGL does for each of the shapes: makes the handles' and the solid's part of it, and
    /// derives the outlines.
    void initSolidGL();
    /// What paintGL does for each of the shapes.
    void paintSolid();

    // What the shapes differ in.

    virtual LinePicture linePicture() const;
    /// The faces of the preview, for OpenGL 3.3.
    virtual std::vector<LineRun> faces33() const;
    /// The tool's labels and their points.
    virtual std::vector<LabelledPoint> labels() const;
    /// Takes the tool over into eye space, where it follows the screen.
    virtual void storeEyeSpace();

    /// The record of the tool that is shown; null without one.
    VolumeProperty* volumeRecord() const;

    bool viewChanged = false;
    unsigned lineVbo = 0;
    unsigned normalVbo = 0;
    QOpenGLShaderProgram lineShader21;
    QOpenGLShaderProgram fillShader21;
    QOpenGLShaderProgram lineShader33;
    QOpenGLShaderProgram fillShader33;
    QOpenGLVertexArrayObject* solidVao = nullptr;
    QOpenGLBuffer* solidBuffer = nullptr;

private:
    bool deriveInBackground();
    void makeSolid21();
    void makeSolid33();
    void followCamera();
    void turnWith(CameraPose const& now);
    /// The outlines, and in a preview the faces.
    LinePicture wholePicture() const;
    void drawPicture();
    void updateLabels();
    LineBuffers solidBuffers() const
    {
        return {.vbo = lineVbo, .normalVbo = normalVbo, .vao = solidVao, .buffer = solidBuffer};
    }

    std::unique_ptr<VolumeOutline> outline;
    /// Of the last picture outside a preview.
    std::optional<CameraPose> lastPose;
    /// Goes before the outline that it brings up to date. Whoever asks for that waits for this.
    mutable NewestWork m_background;
};

}  // namespace Freecut
