// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/LineShaders.h"

#include <QOpenGLShaderProgram>

namespace Freecut {

LineShader const lineShaderSource21{
    "#version 120\nvarying vec4 theColor;\nuniform mat4 mvp;\nuniform vec4 clr;\nvoid main()\n{\n"
    "   gl_Position = mvp * gl_Vertex;\n   theColor = clr;\n}\n",
    "#version 120\nvarying vec4 theColor;\nvoid main()\n{\ngl_FragColor = theColor;\n}\n"};

LineShader const lineShaderSource33{
    "#version 330\nlayout (location = 0) in vec3 position;\nout vec4 theColor;\nuniform mat4 mvp;\n"
    "uniform vec4 clr;\nvoid main()\n{\n   gl_Position = mvp * vec4(position,1.0f);\n"
    "   theColor = clr;\n}\n",
    "#version 330\nin vec4 theColor;\nout vec4 outputColor;\nvoid main()\n{\n"
    "outputColor = theColor;\n}\n"};

LineShader const planeShaderSource33{
    "#version 330\nlayout(location = 0) in vec3 vertex;out vec4 theColor;\nuniform mat4 mvp;\n"
    "uniform vec4 clr;\nvoid main()\n{\n   gl_Position = mvp * vec4(vertex, 1.0);\n"
    "   theColor = clr;\n}\n",
    "#version 330\nin vec4 theColor;\nout vec4 fragColor;void main()\n{\nfragColor = theColor;\n}"
    "\n"};

void linkProgram(QOpenGLShaderProgram& program, LineShader const& source)
{
    program.addShaderFromSourceCode(QOpenGLShader::Vertex, source.vertex);
    program.addShaderFromSourceCode(QOpenGLShader::Fragment, source.fragment);
    program.link();
}

}  // namespace Freecut
