// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/BaseClass.h"

namespace Base {

class DocumentObject;
class GLView;

/// Shows one object in one view. The document makes it by the class name that the object gives, and
/// destroys it when the object leaves.
///
/// thread  the user interface thread
class ViewProvider : public BaseClass
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();

    Type getTypeId() const override;
    std::string getClassName() const override;

    virtual void attach(DocumentObject* object) = 0;
    virtual void hide() = 0;
    virtual void show() = 0;
    virtual bool isShow() const = 0;
    virtual void attachGLViewer(GLView* view) = 0;
    /// Makes what is drawn anew from the object.
    virtual void updateRenderData() = 0;
    virtual bool isTransparent() const = 0;
    /// The colour as 0xRRGGBBAA, in place of the object's own.
    virtual void setObjectColor(unsigned rgba) = 0;
    virtual void clearColor() = 0;
    virtual unsigned getObjectColor() const = 0;
    virtual void setRenderMode(int mode) = 0;
};

}  // namespace Base
