// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/VolumeViewProvider.h"

#include "display/CameraWatch.h"
#include "display/LineShaders.h"
#include "platform/view/GLView.h"
#include "platform/view/OpenGLPath.h"
#include "tools/ViewAxes.h"
#include "tools/VolumeGraphicObject.h"
#include "tools/VolumeOutline.h"
#include "tools/VolumeProperty.h"

namespace Freecut {

VolumeViewProvider::VolumeViewProvider()
{
    QObject::connect(&m_background, &NewestWork::ready, &m_background, [this] {
        if (m_view)
            m_view->redraw();
    });
}

VolumeViewProvider::~VolumeViewProvider()
{
    if (!makeContextCurrent(m_view))
        return;
    deleteBuffers33(solidVao, solidBuffer);
    if (lineVbo != 0)
        deleteVertexBuffer21(*m_view, lineVbo);
    if (normalVbo != 0)
        deleteVertexBuffer21(*m_view, normalVbo);
}

void VolumeViewProvider::initGL()
{
    GraphicViewProvider::initGL();
}

void VolumeViewProvider::makeSolid21()
{
    fillShader21.addShaderFromSourceFile(QOpenGLShader::Vertex,
                                         ":/shader/shader/oprngl2.1/freecut.uvs");
    fillShader21.addShaderFromSourceFile(QOpenGLShader::Fragment,
                                         ":/shader/shader/oprngl2.1/freecut.ufs");
    fillShader21.link();
    lineVbo = makeVertexBuffer21(*m_view);
    normalVbo = makeVertexBuffer21(*m_view);
    linkProgram(lineShader21, lineShaderSource21);
}

void VolumeViewProvider::makeSolid33()
{
    fillShader33.addShaderFromSourceFile(QOpenGLShader::Vertex,
                                         ":/shader/shader/constshow/freecut.uvs");
    fillShader33.addShaderFromSourceFile(QOpenGLShader::Geometry,
                                         ":/shader/shader/constshow/freecut.ugs");
    fillShader33.addShaderFromSourceFile(QOpenGLShader::Fragment,
                                         ":/shader/shader/constshow/freecut.ufs");
    fillShader33.link();
    linkProgram(lineShader33, lineShaderSource33);
    makeBuffers33(solidVao, solidBuffer);
}

void VolumeViewProvider::initSolidGL()
{
    GraphicViewProvider::initGL();
    if (makeContextCurrent(m_view) && hasLineFunctions(*m_view))
        g_OPENGL_3_3 ? makeSolid33() : makeSolid21();
    updateGeometry();
}

void VolumeViewProvider::updateGeometry()
{
    Base::GLView const* const view = getGLViewer();
    if (!view || !getObject())
        return;
    if (!outline)
        outline = makeOutline();
    if (!outline || deriveInBackground())
        return;
    m_background.drop();
    outline->update(*view->getCamera(), viewChanged, g_OPENGL_3_3);
}

bool VolumeViewProvider::deriveInBackground()
{
    // A turned camera takes the tool along in the same picture, and a preview shows its solid.
    if (viewChanged || outline->record().getPreviewOn() || !getGLViewer()->isVisible())
        return false;
    VolumeOutline::Derivation const derivation = outline->derivation(*getGLViewer()->getCamera());
    if (!derivation)
        return false;
    m_background.ask([this, derivation](NewestWork::Poll const& poll) {
        auto const derived = std::make_shared<ToolOutlines>(derivation(poll));
        return [this, derived] { outline->take(std::move(*derived)); };
    });
    return true;
}

VolumeOutline const* VolumeViewProvider::getOutline() const
{
    m_background.finish();
    return outline.get();
}

void VolumeViewProvider::buildSolidBuffers()
{
    m_background.finish();
    if (outline)
        outline->buildSolidBuffers(g_OPENGL_3_3);
}

std::unique_ptr<VolumeOutline> VolumeViewProvider::makeOutline() const
{
    return nullptr;
}

LinePicture VolumeViewProvider::linePicture() const
{
    return {};
}

std::vector<LineRun> VolumeViewProvider::faces33() const
{
    return facesOfPrisms33(shownOutlines());
}

std::vector<LabelledPoint> VolumeViewProvider::labels() const
{
    return {};
}

void VolumeViewProvider::storeEyeSpace()
{
    volumeRecord()->storeEyePoints();
}

VolumeProperty* VolumeViewProvider::volumeRecord() const
{
    return m_object ? &static_cast<VolumeGraphicObject*>(m_object)->getVolumeProperty() : nullptr;
}

ToolOutlines const& VolumeViewProvider::shownOutlines() const
{
    static ToolOutlines const none;
    return outline ? outline->outlines() : none;
}

void VolumeViewProvider::paintSolid()
{
    VolumeProperty const* const record = volumeRecord();
    if (!record || !makeContextCurrent(m_view))
        return;
    bool const isPreview = record->getPreviewOn();
    if (!isPreview)
        followCamera();
    drawPicture();
    updateLabels();
    if (!isPreview) {
        buildMarkers();
        drawMarkers();
    }
}

void VolumeViewProvider::followCamera()
{
    VolumeProperty& record = *volumeRecord();
    CameraPose const now = poseOf(*m_view);
    switch (changeBetween({record.getLastEye(), record.getLastRef(), record.getLastUp()}, now)) {
        case CameraChange::Panned:
            record.setLastEye(now.eye);
            [[fallthrough]];
        case CameraChange::ReferenceMoved:
            record.setLastRef(now.ref);
            storeEyeSpace();
            viewChanged = false;
            break;
        case CameraChange::Turned:
            viewChanged = true;
            turnWith(now);
            updateGeometry();
            record.setLastEye(now.eye);
            break;
        case CameraChange::Rolled:
            viewChanged = true;
            turnWith(now);
            updateGeometry();
            record.setLastUp(now.up);
            break;
        case CameraChange::None:
            viewChanged = false;
    }
    lastPose = now;
}

// A turn is told twice where the direction changes and then the upright: against the last picture
// it is one all the same.
void VolumeViewProvider::turnWith(CameraPose const& now)
{
    VolumeProperty& record = *volumeRecord();
    CameraPose const last =
        lastPose.value_or(CameraPose{record.getLastEye(), record.getLastRef(), record.getLastUp()});
    record.addTurn({now.ref, Axes::ofView(last.eye - last.ref, last.up),
                    Axes::ofView(now.eye - now.ref, now.up)});
}

LinePicture VolumeViewProvider::wholePicture() const
{
    LinePicture picture = linePicture();
    VolumeProperty const& record = *volumeRecord();
    if (record.getPreviewOn())
        picture.push_back(
            passOfFaces(shownOutlines(), record.getFillAlpha(),
                        g_OPENGL_3_3 ? faces33() : facesAsTriangles(shownOutlines())));
    return picture;
}

void VolumeViewProvider::drawPicture()
{
    QOpenGLShaderProgram& lines = g_OPENGL_3_3 ? lineShader33 : lineShader21;
    QOpenGLShaderProgram& faces = g_OPENGL_3_3 ? fillShader33 : fillShader21;
    auto const draw = g_OPENGL_3_3 ? drawLines33 : drawLines21;
    LineBuffers const buffers = solidBuffers();
    for (LinePass const& pass : wholePicture()) {
        if (pass.vertices->empty() || pass.strokes.empty())
            continue;
        uploadVertices(*m_view, buffers, *pass.vertices);
        if (pass.normals && !g_OPENGL_3_3)
            uploadNormals21(*m_view, buffers, *pass.normals);
        for (ColoredRuns const& stroke : pass.strokes)
            draw(*m_view, buffers, pass.normals ? faces : lines,
                 {.color = stroke.color, .isSmooth = true, .isLit = pass.normals != nullptr},
                 stroke.runs);
    }
}

void VolumeViewProvider::updateLabels()
{
    VolumeProperty const& record = *volumeRecord();
    if (isAxisView(record.getViewIndex()) && record.getShowCoordinate() && !record.getPreviewOn())
        showLabels(labels(), *m_view, record.getViewIndex());
    else
        hideLabels(labels());
}

}  // namespace Freecut
