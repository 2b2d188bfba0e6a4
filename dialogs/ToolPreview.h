// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/GLCamera.h"

#include <QPointer>

#include <optional>
#include <vector>

class QWidget;

namespace Base {
class GLView;
}

namespace Freecut {

class VolumeGraphicObject;

/// The preview of a solid tool: the view may be turned while the tool stays where it was drawn, and
/// nothing of the dialog can be used but the button that ends it. It keeps what was enabled before,
/// and the camera to go back to.
class ToolPreview
{
public:
    bool isOn() const { return m_camera.has_value(); }

    /// dialog  whose groups are disabled, but for the stop button
    void begin(VolumeGraphicObject& tool, Base::GLView& view, QWidget& dialog);
    /// Goes back to the camera, and to the standard view that there was.
    ///
    /// tool  null if it has gone meanwhile; the camera then stays
    void end(VolumeGraphicObject* tool, Base::GLView* view);

private:
    struct Disabled
    {
        QPointer<QWidget> widget;
        bool wasEnabled;
    };
    void disable(QWidget& dialog);
    void enable();

    std::optional<GLCamera> m_camera;
    std::vector<Disabled> m_disabled;
};

}  // namespace Freecut
