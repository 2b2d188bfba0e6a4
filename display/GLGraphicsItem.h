// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/LineDrawing.h"
#include "platform/document/TypeEntry.h"
#include "platform/view/GLGraphicsItem.h"

#include <span>
#include <vector>

namespace Freecut {

/// A mark that a mouse tool draws over the view: it has one colour, is hidden by no part, and is
/// uploaded anew with each picture. The tool that makes it adds it to the view and takes it out.
class GLGraphicsItem : public Base::TypeEntry<GLGraphicsItem, Base::GLGraphicsItem>
{
public:
    /// Not entered by the module: items are made with new and never looked up by name.
    static constexpr char const* typeName = "Freecut::GLGraphicsItem";
    /// Null.
    static void* create() { return nullptr; }

    explicit GLGraphicsItem(Base::GLView* view = nullptr);
    ~GLGraphicsItem() override;
    GLGraphicsItem(GLGraphicsItem const&) = delete;
    GLGraphicsItem& operator=(GLGraphicsItem const&) = delete;

    /// The view, borrowed.
    void setViewer(Base::GLView* view) { viewer = view; }
    /// Components from 0 to 255; red and without alpha at first.
    void setColor(float red, float green, float blue, float alpha);
    /// Only a working item paints; at first it does not work.
    void setWorking(bool isWorking) { working = isWorking; }
    bool isWorking() const { return working; }

    void initGL() final;
    void paintGL() final;
    /// Derives the vertices; this class has none of its own.
    void updateVBO() override;
    /// A line from vertex to vertex.
    void renderItem_GL_3_3() override;
    void renderItem_GL_2_1() override;

    /// x, y, z of each vertex as of the last picture.
    std::vector<float> const& getVertexData() const { return vertexData; }

protected:
    int vertexCount() const { return int(vertexData.size() / 3); }
    /// Uploads the vertices and draws runs of them over the parts.
    void render_GL_3_3(std::span<LineRun const> runs);
    void render_GL_2_1(std::span<LineRun const> runs, bool isSmooth, bool leavesDepthTestOff);

    Base::GLView* viewer;
    std::vector<float> vertexData;
    unsigned vbo = 0;
    QOpenGLVertexArrayObject* vao = nullptr;
    QOpenGLBuffer* buffer = nullptr;
    QOpenGLShaderProgram* program = nullptr;
    Color255 color{255, 0, 0, 0};
    bool working = false;

private:
    void initShader_GL_2_1();
    void initShader_GL_3_3();
    void releaseShader_GL_2_1();
    void releaseShader_GL_3_3();
};

}  // namespace Freecut
