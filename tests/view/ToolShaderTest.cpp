// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ShownView.h"

#include <QOpenGLBuffer>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QOpenGLFunctions_2_1>
#include <QOpenGLFunctions_3_3_Core>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>

#include <cmath>

// The shaders that the host has for the solids of cut tools.
namespace {

/// A triangle over the whole picture that leans back to the right.
constexpr float triangle[9] = {-3, -3, 3, 3, -3, -3, 0, 5, 0};
float const lean = std::sqrt(0.5f);

class ToolShaders : public ShownView
{
protected:
    void SetUp() override
    {
        ShownView::SetUp();
        if (!view)
            return;
        view->makeCurrent();
        m_target =
            std::make_unique<QOpenGLFramebufferObject>(8, 8, QOpenGLFramebufferObject::Depth);
        m_target->bind();
        view->context()->functions()->glViewport(0, 0, 8, 8);
        view->context()->functions()->glClearColor(0, 0, 0, 1);
        view->context()->functions()->glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }
    void TearDown() override
    {
        if (!view)
            return;
        m_target.reset();
        view->doneCurrent();
    }

    QColor middle() const
    {
        // Colour and alpha as they were written; Qt takes the one to be multiplied by the other.
        QImage image = m_target->toImage();
        image.reinterpretAsFormat(QImage::Format_ARGB32);
        return image.pixelColor(4, 4);
    }

    void drawBy21(QOpenGLShaderProgram& program)
    {
        auto& gl = *view->context()->versionFunctions<QOpenGLFunctions_2_1>();
        gl.initializeOpenGLFunctions();
        float const normals[9] = {lean, 0, lean, lean, 0, lean, lean, 0, lean};
        QMatrix4x4 const flat = toClip();
        program.setUniformValue("mvp", flat);
        program.setUniformValue("nmv", QMatrix4x4().normalMatrix());
        program.setUniformValue("selectedcolor", 1.f, 1.f, 0.f, 0.5f);
        gl.glEnableClientState(GL_VERTEX_ARRAY);
        gl.glEnableClientState(GL_NORMAL_ARRAY);
        gl.glVertexPointer(3, GL_FLOAT, 0, triangle);
        gl.glNormalPointer(GL_FLOAT, 0, normals);
        gl.glDrawArrays(GL_TRIANGLES, 0, 3);
        gl.glDisableClientState(GL_VERTEX_ARRAY);
        gl.glDisableClientState(GL_NORMAL_ARRAY);
    }

    void drawBy33(QOpenGLShaderProgram& program)
    {
        auto& gl = *view->context()->versionFunctions<QOpenGLFunctions_3_3_Core>();
        gl.initializeOpenGLFunctions();
        QOpenGLVertexArrayObject array;
        array.create();
        array.bind();
        QOpenGLBuffer buffer(QOpenGLBuffer::VertexBuffer);
        buffer.create();
        buffer.bind();
        buffer.allocate(triangle, sizeof triangle);
        program.setAttributeBuffer(0, GL_FLOAT, 0, 3);
        program.enableAttributeArray(0);
        program.setUniformValue("mvp", toClip());
        program.setUniformValue("mv", QMatrix4x4());
        program.setUniformValue("eyeposition", 0.f, 0.f, 10.f);
        program.setUniformValue("ifselect", 1);
        program.setUniformValue("constcolor", 1.f, 1.f, 0.f, 0.5f);
        gl.glDrawArrays(GL_TRIANGLES, 0, 3);
        array.release();
    }

private:
    static QMatrix4x4 toClip()
    {
        QMatrix4x4 matrix;
        matrix.ortho(-1, 1, -1, 1, -10, 10);
        return matrix;
    }

    std::unique_ptr<QOpenGLFramebufferObject> m_target;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, ToolShaders, bothPaths, pathName);

TEST_P(ToolShaders, LightTheColourTheyAreGivenAndKeepItsAlpha)
{
    bool const is33 = GetParam() == Base::OpenGLPath::Version33;
    QString const folder =
        is33 ? ":/shader/shader/constshow/freecut" : ":/shader/shader/oprngl2.1/freecut";
    QOpenGLShader vertex(QOpenGLShader::Vertex), fragment(QOpenGLShader::Fragment);
    QOpenGLShaderProgram program;
    ASSERT_TRUE(vertex.compileSourceFile(folder + ".uvs")) << vertex.log().toStdString();
    ASSERT_TRUE(fragment.compileSourceFile(folder + ".ufs")) << fragment.log().toStdString();
    program.addShader(&vertex);
    program.addShader(&fragment);
    QOpenGLShader geometry(is33 ? QOpenGLShader::Geometry : QOpenGLShader::Vertex);
    if (is33) {
        ASSERT_TRUE(geometry.compileSourceFile(folder + ".ugs")) << geometry.log().toStdString();
        program.addShader(&geometry);
    }
    ASSERT_TRUE(program.link()) << program.log().toStdString();
    ASSERT_TRUE(program.bind());
    if (is33)
        drawBy33(program);
    else
        drawBy21(program);
    double const light = 0.4 + 0.6 * double(lean);
    QColor const color = middle();
    EXPECT_NEAR(color.red(), 255 * light, 2);
    EXPECT_EQ(color.red(), color.green());
    EXPECT_EQ(color.blue(), 0);
    EXPECT_NEAR(color.alpha(), 128, 1);
    EXPECT_EQ(view->context()->functions()->glGetError(), GLenum(GL_NO_ERROR));
}
