// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/GraphicViewProvider.h"
#include "platform/view/MeshGLView.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"

/// A document of parts in a view that is never shown.
class ViewedDocument : public TestDocument
{
public:
    ViewedDocument() { view.setDocument(document); }
    ~ViewedDocument() { view.setDocument(nullptr); }

    UPoint3<float> eyeImage(UPoint3<float> point) const
    {
        view.getEyePointFromWCSPoint(point);
        return point;
    }

    Mesh::GLView view;
};

/// Counts how often the outlines of a tool are derived anew.
class CountingProvider : public Freecut::GraphicViewProvider
{
public:
    /// Shows the tools that name this class from now on.
    static void enter(char const* className)
    {
        Base::Type type;
        initSubclass(type, className, "Base::GraphicViewProvider", create);
    }
    static void* create() { return new CountingProvider; }

    CountingProvider() { ++alive; }
    ~CountingProvider() override { --alive; }
    void updateGeometry() override { ++updates; }

    static inline int alive = 0;
    static inline int updates = 0;
};
