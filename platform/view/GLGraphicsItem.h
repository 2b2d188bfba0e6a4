// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/BaseClass.h"

namespace Base {

/// Something that lies over the picture. Views paint their items last, in the order in which they
/// were added.
///
/// thread  the user interface thread
class GLGraphicsItem : public BaseClass
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();

    Type getTypeId() const override;
    std::string getClassName() const override;

    /// Paints, with the view's context current. The state of OpenGL is that of a fresh picture:
    /// depth test on, blending off, no program; it need not be put back.
    virtual void paintGL() = 0;
    /// Makes what painting needs; called once, before the first paintGL, with the view's context.
    virtual void initGL() = 0;

    // The steps of an item that draws itself by way of one buffer; others leave them as they are.

    virtual void updateVBO();
    virtual void renderItem_GL_3_3();
    virtual void renderItem_GL_2_1();
};

}  // namespace Base
