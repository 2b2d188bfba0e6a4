// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/app/AppWindow.h"
#include "tests/support/SkipReasons.h"

#include <QImage>

/// The window, shown; its tests are left out where there is no display.
class ShownWindow : public AppWindow
{
protected:
    /// What a test starts with, once the window is shown.
    virtual void prepare() {}

    Mesh::GLView& view() const { return window->view(); }

    /// How many pixels of the view's picture have a colour of some kind.
    template <typename IsOfKind>
    int pixelsIn(IsOfKind const& isOfKind) const
    {
        QImage const picture = view().grabFramebuffer();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                count += isOfKind(picture.pixelColor(x, y));
        return count;
    }

private:
    void SetUp() final
    {
        if (!hasDisplay())
            GTEST_SKIP() << displayIsMissing;
        AppWindow::SetUp();
        show();
        prepare();
    }
};
