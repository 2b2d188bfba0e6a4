// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/ToolPreview.h"

#include "dialogs/ToolButton.h"
#include "display/GraphicViewProvider.h"
#include "platform/view/GLView.h"
#include "tools/ViewAxes.h"
#include "tools/VolumeGraphicObject.h"
#include "tools/VolumeProperty.h"

#include <QAbstractSpinBox>
#include <QTabBar>

namespace Freecut {

namespace {

constexpr char const* groupName = "DialogFrameGroup";
constexpr char const* stopName = "FreecutPreviewStop";

/// Tool buttons remember what their dialog wants.
void setEnabled(QWidget& widget, bool isEnabled)
{
    if (auto* const button = qobject_cast<ToolButton*>(&widget))
        button->setEnabled(isEnabled);
    else
        widget.setEnabled(isEnabled);
}

/// What a hand takes hold of: fields and tab bars as a whole, and else what holds no widgets.
bool isControl(QWidget const& widget)
{
    if (qobject_cast<QAbstractSpinBox const*>(widget.parentWidget()))
        return false;
    return qobject_cast<QAbstractSpinBox const*>(&widget) ||
           qobject_cast<QTabBar const*>(&widget) || widget.findChildren<QWidget*>().isEmpty();
}

void follow(VolumeGraphicObject& tool)
{
    if (GraphicViewProvider* const provider = tool.getViewProvider())
        provider->updateGeometry();
}

}  // namespace

void ToolPreview::disable(QWidget& dialog)
{
    for (QWidget* const group : dialog.findChildren<QWidget*>(QLatin1String(groupName)))
        for (QWidget* const widget : group->findChildren<QWidget*>()) {
            if (!isControl(*widget))
                continue;
            m_disabled.push_back({widget, widget->isEnabledTo(widget->parentWidget())});
            setEnabled(*widget, widget->objectName() == QLatin1String(stopName));
        }
}

void ToolPreview::enable()
{
    for (Disabled const& disabled : m_disabled)
        if (disabled.widget)
            setEnabled(*disabled.widget, disabled.wasEnabled);
    m_disabled.clear();
}

void ToolPreview::begin(VolumeGraphicObject& tool, Base::GLView& view, QWidget& dialog)
{
    if (isOn())
        return;
    m_camera = *view.getCamera();
    VolumeProperty& record = tool.getVolumeProperty();
    UPoint3<float> const ref = view.getViewRefPoint();
    record.saveCamera(ref + view.getViewDirection(), ref, view.getViewUpDirection());
    record.setPreviewing(true);
    record.updateDepth();
    follow(tool);
    view.redraw();
    disable(dialog);
}

void ToolPreview::end(VolumeGraphicObject* tool, Base::GLView* view)
{
    if (!isOn())
        return;
    enable();
    GLCamera camera = *m_camera;
    m_camera.reset();
    if (!tool || !view)
        return;
    VolumeProperty& record = tool->getVolumeProperty();
    record.setPreviewing(false);
    // The camera as it was, but for scale and size. What the tool last saw is the very same then,
    // so that it stays where it was to the last bit.
    double width, height;
    int screenWidth, screenHeight;
    view->getCamera()->get_view_rect(width, height);
    view->getCamera()->get_screen(screenWidth, screenHeight);
    camera.set_screen(screenWidth, screenHeight);
    camera.set_view_height(height);
    *view->getCamera() = camera;
    if (isAxisView(record.getViewIndex()))
        view->OnViewType(record.getViewIndex());
    follow(*tool);
    view->redraw();
}

}  // namespace Freecut
