// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/PointPickerMesh.h"

#include "host/view/PickedPointLabel.h"
#include "host/view/ViewScene.h"
#include "platform/view/ClickReach.h"
#include "platform/view/MeshGLView.h"

#include <QMouseEvent>

namespace Mesh {

namespace {

constexpr unsigned markColor = 0xd02020ff;
/// Half the length of the mark's lines, in pixels.
constexpr float markReach = 6;
/// From the mark to the text.
constexpr int labelOffset = 10;

}  // namespace

constinit Base::Type PointPickerMesh::classTypeId;

void PointPickerMesh::init()
{
    initSubclass(classTypeId, "Mesh::PointPickerMesh", "Base::RectangleSelection", create);
}

void* PointPickerMesh::create()
{
    return static_cast<BaseClass*>(new PointPickerMesh);
}

PointPickerMesh::~PointPickerMesh()
{
    delete m_label;
}

Base::Type PointPickerMesh::getTypeId() const
{
    return classTypeId;
}

std::string PointPickerMesh::getClassName() const
{
    return "Mesh::PointPickerMesh";
}

void PointPickerMesh::terminate()
{
    mark({});
}

int PointPickerMesh::mousePressEvent(QMouseEvent* event)
{
    m_isPressed = event->button() == Qt::LeftButton;
    m_press = event->pos();
    return 0;
}

int PointPickerMesh::mouseMoveEvent(QMouseEvent* event)
{
    if (isBeyondClick(event->pos() - m_press))
        m_isPressed = false;
    return 0;
}

int PointPickerMesh::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_isPressed || event->button() != Qt::LeftButton)
        return 0;
    m_isPressed = false;
    auto const* const view = dynamic_cast<GLView const*>(m_view);
    GLView::Pick pick;
    if (view && view->pickPoint(event->pos(), pick))
        mark(pick.point);
    else
        mark({});
    return 1;
}

void PointPickerMesh::clearMark()
{
    m_isPressed = false;
    if (m_point)
        mark({});
}

void PointPickerMesh::mark(std::optional<UPoint3<float>> point)
{
    m_point = point;
    if (!point) {
        delete m_label;
    } else {
        if (!m_label)
            m_label = new PickedPointLabel(m_view);
        m_label->setPoint(*point);
        m_label->show();
    }
    m_view->redraw();
}

void PointPickerMesh::draw()
{
    if (!m_point)
        return;
    int x, y;
    m_view->getWidgetcoordFromWCS(*m_point, x, y);
    placeLabel({x, y});
    QMatrix4x4 toClip;
    toClip.ortho(0, float(m_view->width()), float(m_view->height()), 0, -1, 1);
    float const left = float(x), top = float(y);
    DrawRun const runs[] = {{GL_LINES, 0, 4, markColor}};
    m_view->scene().drawOnce({{left - markReach, top, 1},
                              {left + markReach, top, 1},
                              {left, top - markReach, 1},
                              {left, top + markReach, 1}},
                             runs, toClip);
}

void PointPickerMesh::placeLabel(QPoint mark)
{
    QPoint const after = mark + QPoint(labelOffset, labelOffset);
    QPoint const before =
        mark - QPoint(labelOffset + m_label->width(), labelOffset + m_label->height());
    // On the other side of the mark where the view ends.
    bool const isLeft = after.x() + m_label->width() > m_view->width() && before.x() >= 0;
    bool const isAbove = after.y() + m_label->height() > m_view->height() && before.y() >= 0;
    m_label->move(isLeft ? before.x() : after.x(), isAbove ? before.y() : after.y());
}

}  // namespace Mesh
