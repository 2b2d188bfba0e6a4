// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/DrawDevice.h"

class QOpenGLFunctions_2_1;

/// OpenGL 2.1: arrays are described at each draw, and flat colours come from the shade model.
class DrawDevice21 : public DrawDevice
{
public:
    /// Null if the current context lacks the functions.
    static std::unique_ptr<DrawDevice> create();

    void resetState() override;

protected:
    void setPolygonMode(GLenum mode) override;
    void setClipping(bool isOn) override;
    bool keepsVertexArrays() const override { return false; }

private:
    explicit DrawDevice21(QOpenGLFunctions_2_1* functions) : m_functions(functions) {}

    QOpenGLFunctions_2_1* m_functions;
};
