// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/FreeGroundSelection.h"

#include "platform/view/MeshGLView.h"
#include "platform/view/NavigationStyle.h"

#include <QMouseEvent>

int FreeGroundSelection::mousePressEvent(QMouseEvent* event)
{
    using Base::NavigationStyle;
    bool const isTurning =
        m_view->navigationStyle()->preset() == NavigationStyle::Preset::TurnByLeft &&
        !(event->modifiers() & Qt::ControlModifier);
    if (event->button() != Qt::LeftButton || isTurning)
        return 0;
    auto const* const view = dynamic_cast<Mesh::GLView const*>(m_view);
    Mesh::GLView::Pick pick;
    if (!view || view->pickPoint(event->pos(), pick))
        return 0;
    return RectangleSelection::mousePressEvent(event);
}

void FreeGroundSelection::clicked(QMouseEvent* event)
{
    m_view->clicked(event);
}
