// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/TLabel.h"

#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"
#include "tools/PolygonGraphicObject.h"

#include <QCoreApplication>
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

// A label would pass it on to the view, whose tool has not seen the press.
void TLabel::mouseReleaseEvent(QMouseEvent*) {}

void TLabel::wheelEvent(QWheelEvent* event)
{
    MainWindow* const window = MainWindow::getInstance();
    Base::GLView* const view = window ? window->activeGLView() : nullptr;
    if (!view || event->angleDelta().y() == 0)
        return;
    // One notch, however far the wheel was turned: the view zooms by 0.9 or 1.1 to what is there.
    int const notch = event->angleDelta().y() > 0 ? QWheelEvent::DefaultDeltasPerStep
                                                  : -QWheelEvent::DefaultDeltasPerStep;
    QPointF const place = view->mapFromGlobal(event->globalPosition().toPoint());
    QWheelEvent beside(place, event->globalPosition(), {}, {0, notch}, event->buttons(),
                       event->modifiers(), Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view, &beside);
}

}  // namespace Freecut
