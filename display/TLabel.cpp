// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/TLabel.h"

#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"
#include "tools/PolygonGraphicObject.h"

#include <QWheelEvent>

namespace Freecut {

char const TLabel::selectedStyle[] =
    "background-color: rgb(199, 97, 20);border-width: 2px;border-style: solid;border-color: "
    "rgb(255, 0, 0); color:rgb(255, 255, 255);";
char const TLabel::unselectedStyle[] =
    "background-color: rgb(199, 97, 20);border-width: 1px;border-style: solid;border-color: "
    "rgb(255, 170, 0); color:rgb(255, 255, 255);";

TLabel::TLabel() = default;

TLabel::TLabel(QWidget* parent) : QLabel(parent)
{
    setAlignment(Qt::AlignCenter);
    setFont(QFont("Timers", 10, 75, false));
}

void TLabel::mousePressEvent(QMouseEvent*)
{
    if (object->getClassName() != "Freecut::PolygonGraphicObject")
        return;
    for (TLabel* const label : static_cast<PolygonGraphicObject*>(object)->getPointLabels())
        label->setStyleSheet(unselectedStyle);
    setStyleSheet(selectedStyle);
    object->signalChanged();
}

void TLabel::wheelEvent(QWheelEvent* event)
{
    MainWindow* const window = MainWindow::getInstance();
    Base::GLView* const view = window ? window->activeGLView() : nullptr;
    if (!view)
        return;
    view->getCamera()->zoom(event->angleDelta().y() > 0 ? 0.9 : 1.1);
    view->update();
}

}  // namespace Freecut
