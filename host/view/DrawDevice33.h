// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/DrawDevice.h"

class QOpenGLFunctions_3_3_Core;

/// OpenGL 3.3 core: each geometry keeps its description in a vertex array object.
class DrawDevice33 : public DrawDevice
{
public:
    /// Null if the current context lacks the functions.
    static std::unique_ptr<DrawDevice> create();

protected:
    void setPolygonMode(GLenum mode) override;
    void setClipping(bool isOn) override;
    bool keepsVertexArrays() const override { return true; }

private:
    explicit DrawDevice33(QOpenGLFunctions_3_3_Core* functions) : m_functions(functions) {}

    QOpenGLFunctions_3_3_Core* m_functions;
};
