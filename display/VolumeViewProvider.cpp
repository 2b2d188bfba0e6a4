// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/VolumeViewProvider.h"

#include "display/LineShaders.h"
#include "platform/view/GLView.h"
#include "platform/view/OpenGLPath.h"
#include "tools/VolumeOutline.h"

#include <QOpenGLBuffer>
#include <QOpenGLVertexArrayObject>

namespace Freecut {

Base::Type VolumeViewProvider::classTypeId = Base::Type::badType();

void VolumeViewProvider::init()
{
    initSubclass(classTypeId, "Freecut::VolumeViewProvider", "Freecut::GraphicViewProvider",
                 create);
}

void* VolumeViewProvider::create()
{
    return new VolumeViewProvider;
}

VolumeViewProvider::VolumeViewProvider() = default;

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

Base::Type VolumeViewProvider::getTypeId() const
{
    return classTypeId;
}

std::string VolumeViewProvider::getClassName() const
{
    return "Freecut::VolumeViewProvider";
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
    solidVao = new QOpenGLVertexArrayObject;
    solidVao->create();
    solidBuffer = new QOpenGLBuffer(QOpenGLBuffer::VertexBuffer);
    solidBuffer->create();
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
    if (outline)
        outline->update(*view->getCamera(), viewChanged, g_OPENGL_3_3);
}

void VolumeViewProvider::buildSolidBuffers()
{
    if (outline)
        outline->buildSolidBuffers(g_OPENGL_3_3);
}

std::unique_ptr<VolumeOutline> VolumeViewProvider::makeOutline() const
{
    return nullptr;
}

}  // namespace Freecut
