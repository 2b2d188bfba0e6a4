// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/BaseClass.h"

namespace Base {

class DocumentObject;
class GLView;

/// Shows one object in one view. The document makes it by the class name that the object gives, and
/// destroys it when the object leaves; the view calls it to paint. This class paints nothing.
///
/// thread  the user interface thread
class ViewProvider : public BaseClass
{
public:
    /// What setRenderMode takes.
    enum RenderMode
    {
        Shaded = 0,
        ShadedWithEdges = 1,
        Edges = 2
    };

    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();

    ViewProvider() = default;
    /// Takes itself out of the view.
    ~ViewProvider() override;
    ViewProvider(ViewProvider const&) = delete;
    ViewProvider& operator=(ViewProvider const&) = delete;

    Type getTypeId() const override;
    std::string getClassName() const override;

    /// The object, borrowed.
    virtual void attach(DocumentObject* object);
    virtual void hide();
    virtual void show();
    virtual bool isShow() const;
    /// The view, borrowed, which paints it from now on; null takes it out of the one it was in.
    virtual void attachGLViewer(GLView* view);
    /// Makes what painting needs. Called once before the first paintGL, as soon as the view has a
    /// context: at once in attachGLViewer, or with the view's first picture.
    virtual void initGL();
    /// Paints; called while it is shown, with the view's context current and the state of OpenGL
    /// that of a fresh picture: depth test on, blending off, no program. It need not be put back.
    virtual void paintGL();
    /// Makes what is drawn anew from the object. Tells the view, by GLView::renderDataUpdated.
    virtual void updateRenderData();
    /// Painted after what is not; not for the tools, which are painted after all that is neither.
    virtual bool isTransparent() const;
    /// The colour as 0xRRGGBBAA, in place of the object's own.
    virtual void setObjectColor(unsigned rgba);
    virtual void clearColor();
    /// The colour set, or else the object's; 0 leaves it to the provider.
    virtual unsigned getObjectColor() const;
    /// Shaded, with edges, or edges alone: the values of RenderMode.
    virtual void setRenderMode(int mode);

    DocumentObject* getObject() const { return m_object; }
    GLView* getGLViewer() const { return m_view; }
    int getRenderMode() const { return m_renderMode; }

protected:
    DocumentObject* m_object = nullptr;
    GLView* m_view = nullptr;

private:
    void askForPicture() const;

    bool m_isShown = true;
    bool m_hasColor = false;
    unsigned m_color = 0;
    int m_renderMode = Shaded;
};

}  // namespace Base
