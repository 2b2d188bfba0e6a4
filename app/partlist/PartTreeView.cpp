// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/partlist/PartTreeView.h"

#include "app/partlist/PartTreeModel.h"

#include <QMouseEvent>
#include <QPainter>

PartTreeView::PartTreeView(QWidget* parent) : QTreeView(parent)
{
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setUniformRowHeights(true);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setExpandsOnDoubleClick(false);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropMode(DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setMouseTracking(true);
    // Pieces differ at the end of their names.
    setTextElideMode(Qt::ElideMiddle);
}

void PartTreeView::setPlaceholder(QString const& text)
{
    m_placeholder = text;
    viewport()->update();
}

QModelIndex PartTreeView::buttonUnder(QMouseEvent const& event) const
{
    QModelIndex const index = indexAt(event.pos());
    bool const isButton =
        index.column() == PartTreeModel::ColorColumn || index.column() == PartTreeModel::EyeColumn;
    return isButton && event.button() == Qt::LeftButton ? index : QModelIndex();
}

void PartTreeView::mousePressEvent(QMouseEvent* event)
{
    m_pressed = buttonUnder(*event);
    if (!m_pressed.isValid())
        QTreeView::mousePressEvent(event);
}

void PartTreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_pressed = buttonUnder(*event);
    if (!m_pressed.isValid())
        QTreeView::mouseDoubleClickEvent(event);
}

void PartTreeView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressed.isValid())
        QTreeView::mouseMoveEvent(event);
}

void PartTreeView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_pressed.isValid()) {
        QTreeView::mouseReleaseEvent(event);
        return;
    }
    QModelIndex const pressed = m_pressed;
    m_pressed = QPersistentModelIndex();
    if (indexAt(event->pos()) == pressed)
        emit buttonClicked(pressed);
}

void PartTreeView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!model() || model()->rowCount() > 0 || m_placeholder.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    int const margin = fontMetrics().height();
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, m_placeholder);
}

void PartTreeView::rowsInserted(QModelIndex const& parent, int first, int last)
{
    QTreeView::rowsInserted(parent, first, last);
    // A new group, and one that gets its first members, lies open.
    if (parent.isValid() && model()->rowCount(parent) == last - first + 1)
        expand(parent);
}
