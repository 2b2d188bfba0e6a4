// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/GLGraphicsItem.h"
#include "display/LineShaders.h"
#include "display/PlaneViewProvider.h"
#include "display/RegisterViewProviders.h"
#include "display/RubberLine.h"
#include "display/VolumeViewProvider.h"
#include "tests/support/ShownView.h"
#include "tools/CuboidGraphicObject.h"
#include "tools/CylinderGraphicObject.h"
#include "tools/PlaneGraphicObject.h"
#include "tools/PolygonGraphicObject.h"

#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QOpenGLShaderProgram>

#include <algorithm>

TEST(LineShaders, OfVersion21AreAsTold)
{
    EXPECT_STREQ(Freecut::lineShaderSource21.vertex, R"(#version 120
varying vec4 theColor;
uniform mat4 mvp;
uniform vec4 clr;
void main()
{
   gl_Position = mvp * gl_Vertex;
   theColor = clr;
}
)");
    EXPECT_STREQ(Freecut::lineShaderSource21.fragment, R"(#version 120
varying vec4 theColor;
void main()
{
gl_FragColor = theColor;
}
)");
}

TEST(LineShaders, OfVersion33AreAsTold)
{
    EXPECT_STREQ(Freecut::lineShaderSource33.vertex, R"(#version 330
layout (location = 0) in vec3 position;
out vec4 theColor;
uniform mat4 mvp;
uniform vec4 clr;
void main()
{
   gl_Position = mvp * vec4(position,1.0f);
   theColor = clr;
}
)");
    EXPECT_STREQ(Freecut::lineShaderSource33.fragment, R"(#version 330
in vec4 theColor;
out vec4 outputColor;
void main()
{
outputColor = theColor;
}
)");
}

TEST(LineShaders, OfThePlaneByVersion33AreAsTold)
{
    EXPECT_STREQ(Freecut::planeShaderSource33.vertex, R"(#version 330
layout(location = 0) in vec3 vertex;out vec4 theColor;
uniform mat4 mvp;
uniform vec4 clr;
void main()
{
   gl_Position = mvp * vec4(vertex, 1.0);
   theColor = clr;
}
)");
    EXPECT_STREQ(Freecut::planeShaderSource33.fragment, R"(#version 330
in vec4 theColor;
out vec4 fragColor;void main()
{
fragColor = theColor;
}
)");
}

namespace {

/// What tools make on the device, in a view on the screen.
class ToolResources : public ShownView
{
protected:
    ~ToolResources() override { view.reset(); }

    /// The vertex array objects of the view's context that have been used.
    int vertexArrays() const
    {
        constexpr unsigned mostNames = 200;
        view->makeCurrent();
        auto const isVertexArray = reinterpret_cast<GLboolean(QOPENGLF_APIENTRYP)(GLuint)>(
            view->context()->getProcAddress("glIsVertexArray"));
        int count = 0;
        for (unsigned name = 1; isVertexArray && name <= mostNames; ++name)
            count += isVertexArray(name);
        return count;
    }
    template <typename Tool>
    int vertexArraysOf(Tool* tool)
    {
        int const before = vertexArrays();
        test.document->addObject(tool, "tool", true);
        static_cast<void>(picture("resources"));
        int const made = vertexArrays() - before;
        test.document->detachObject(tool).reset();
        EXPECT_EQ(vertexArrays(), before) << "some are left behind";
        return made;
    }
};

template <typename Tool>
Tool* toolAt(std::vector<UPoint3<float>> const& points)
{
    auto* const tool = new Tool;
    tool->getProperty().setKeyPoints(points);
    return tool;
}

/// Whether a shader was made from a source, which the toolkit puts definitions into.
bool isMadeFrom(QOpenGLShader const& shader, QByteArray source)
{
    return shader.sourceCode().endsWith(source.mid(source.indexOf('\n') + 1));
}

void expectProgram(QOpenGLShaderProgram const& program, Freecut::LineShader const& source)
{
    ASSERT_EQ(program.shaders().size(), 2);
    EXPECT_TRUE(isMadeFrom(*program.shaders()[0], source.vertex));
    EXPECT_TRUE(isMadeFrom(*program.shaders()[1], source.fragment));
    EXPECT_TRUE(program.isLinked());
}

struct OpenLine : Freecut::RubberLine
{
    using RubberLine::program;
    using RubberLine::RubberLine;
};

struct OpenProvider : Freecut::VolumeViewProvider
{
    using VolumeViewProvider::initSolidGL;
    using VolumeViewProvider::lineShader21;
    using VolumeViewProvider::lineShader33;
    using VolumeViewProvider::markerShader;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Path, ToolResources, bothPaths, pathName);

TEST_P(ToolResources, HaveVertexArrayObjectsByVersion33Alone)
{
    Freecut::registerViewProviders();
    bool const is33 = g_OPENGL_3_3;
    // One for the tool and one for its handles.
    auto* const plane = new Freecut::PlaneGraphicObject;
    plane->getProperty().setCorners({-9, -9, 0}, {9, -9, 0}, {9, 9, 0}, true);
    EXPECT_EQ(vertexArraysOf(plane), is33 ? 2 : 0);
    EXPECT_EQ(vertexArraysOf(toolAt<Freecut::PolygonGraphicObject>({{}, {9, 0, 0}, {0, 9, 0}})),
              is33 ? 2 : 0);
    EXPECT_EQ(vertexArraysOf(toolAt<Freecut::CylinderGraphicObject>({{}, {9, 0, 0}})),
              is33 ? 2 : 0);
    EXPECT_EQ(vertexArraysOf(toolAt<Freecut::CuboidGraphicObject>({{}})), is33 ? 2 : 0);
    int const before = vertexArrays();
    {
        Freecut::RubberLine line(view.get());
        line.initGL();
        // One is an object only from its first use on.
        line.setWorking(true);
        line.paintGL();
        EXPECT_EQ(vertexArrays() - before, is33 ? 1 : 0);
    }
    EXPECT_EQ(vertexArrays(), before);
}

TEST_P(ToolResources, AreMadeFromTheShadersOfTheirVersion)
{
    Freecut::LineShader const& source =
        g_OPENGL_3_3 ? Freecut::lineShaderSource33 : Freecut::lineShaderSource21;
    OpenLine line(view.get());
    line.initGL();
    expectProgram(*line.program, source);
    OpenProvider provider;
    provider.attachGLViewer(view.get());
    provider.initSolidGL();
    expectProgram(*provider.markerShader, source);
    expectProgram(g_OPENGL_3_3 ? provider.lineShader33 : provider.lineShader21, source);
    EXPECT_FALSE((g_OPENGL_3_3 ? provider.lineShader21 : provider.lineShader33).isLinked());
}
