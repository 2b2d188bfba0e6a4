// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/DialogPlace.h"

#include "platform/ui/DialogWidget.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/StoredSettings.h"
#include "platform/ui/Theme.h"
#include "platform/view/GLView.h"

#include <QDockWidget>
#include <QEvent>
#include <QHBoxLayout>
#include <QTimer>

#include <algorithm>

DialogPlace::DialogPlace(QString const& name, DialogWidget* dialog, MainWindow* window)
    : QObject(dialog), m_key("/DialogWindow/" + name), m_dialog(dialog), m_window(window)
{
    readStored();
    window->installEventFilter(this);
    m_dialog->setParent(window, Qt::Widget);
    m_dialog->setFocusPolicy(Qt::TabFocus);
    connect(dialog, &Dialog::signalPinned, this, [this] {
        followDialog();
        store();
    });
    connect(dialog, &Dialog::signalMaximized, this, &DialogPlace::place);
    connect(dialog, &Dialog::signalSizeChanged, this, &DialogPlace::placeLater);
    connect(dialog, &Dialog::signalDragged, this, &DialogPlace::dragBy);
    connect(dialog, &Dialog::signalDropped, this, &DialogPlace::dropAt);
    connect(window, &MainWindow::signalActiveGLViewChanged, this, &DialogPlace::placeLater);
    // A panel that comes to the front would come over the dialog.
    for (QDockWidget const* const panel : window->findChildren<QDockWidget*>())
        connect(panel, &QDockWidget::visibilityChanged, this, &DialogPlace::placeLater);
    if (dialog->isPinEnabled() && storedValue(m_key + "/pinned", false).toBool())
        dialog->slotPinDialog(true);
}

DialogPlace::~DialogPlace()
{
    if (m_dock)
        m_dock->deleteLater();
}

void DialogPlace::readStored()
{
    m_isAtLeft = storedValue(m_key + "/side").toString() == "left";
    m_offset = std::max(0, storedValue(m_key + "/offset", 0).toInt());
}

void DialogPlace::store() const
{
    storeValue(m_key + "/side", m_isAtLeft ? "left" : "right");
    storeValue(m_key + "/offset", m_offset);
    storeValue(m_key + "/pinned", m_dialog->isPinned());
}

Qt::DockWidgetArea DialogPlace::area() const
{
    return m_isAtLeft ? Qt::LeftDockWidgetArea : Qt::RightDockWidgetArea;
}

QRect DialogPlace::viewArea() const
{
    QWidget* view = m_window->activeGLView();
    if (!view || !m_window->isAncestorOf(view))
        view = m_window->centralWidget();
    return view ? QRect(view->mapTo(m_window, QPoint()), view->size()) : m_window->rect();
}

QRect DialogPlace::room() const
{
    QRect room = viewArea();
    if (room.width() >= 2 * m_dialog->sizeHint().width())
        return room;
    m_isAtLeft ? room.setLeft(0) : room.setRight(m_window->width() - 1);
    return room;
}

void DialogPlace::bringUp()
{
    followDialog();
    if (m_dock) {
        m_dock->show();
        m_dock->raise();
    } else {
        if (!m_dialog->isVisible())
            stepAside();
        place();
    }
}

void DialogPlace::stepAside()
{
    auto const isTaken = [this](DialogPlace const* other) {
        return other != this && !other->m_dock && other->m_dialog->isVisible() &&
               other->m_isAtLeft == m_isAtLeft && other->m_offset == m_offset;
    };
    QList<DialogPlace*> const places = m_window->findChildren<DialogPlace*>();
    while (std::any_of(places.begin(), places.end(), isTaken))
        m_offset += themePixels("titleHeight");
}

void DialogPlace::followDialog()
{
    // Folded, even a pinned dialog gives its room back to the view.
    bool const wantsDock = m_dialog->isPinned() && m_dialog->isMainPageVisible();
    if (!m_window || wantsDock == !m_dock.isNull())
        return;
    bool const isShown = m_dialog->isVisible();
    wantsDock ? dock() : undock();
    m_dialog->setVisible(isShown);
    if (isShown)
        bringUp();
}

void DialogPlace::dock()
{
    auto* const dock = new QDockWidget(m_dialog->windowTitle(), m_window);
    dock->setObjectName(m_key);
    dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    // The dialog has a title bar of its own.
    auto* const noTitle = new QWidget(dock);
    (new QHBoxLayout(noTitle))->setContentsMargins(0, 0, 0, 0);
    dock->setTitleBarWidget(noTitle);
    dock->setWidget(m_dialog);
    m_window->addDockWidget(area(), dock);
    m_dock = dock;
    m_dialog->installEventFilter(this);
}

void DialogPlace::undock()
{
    m_dialog->removeEventFilter(this);
    m_dialog->setParent(m_window, Qt::Widget);
    m_dock->hide();
    m_dock->deleteLater();
    m_dock = nullptr;
}

void DialogPlace::placeLater()
{
    if (m_isWaiting)
        return;
    m_isWaiting = true;
    // Layouts settle first.
    QTimer::singleShot(0, this, [this] {
        m_isWaiting = false;
        followDialog();
        place();
    });
}

void DialogPlace::place()
{
    if (!m_window || m_dock || m_isDragged)
        return;
    QSize const wanted = m_dialog->sizeHint();
    if (m_dialog->isMaximizedInPlace()) {
        m_dialog->setGeometry(viewArea());
        return;
    }
    int const gap = themePixels("layoutSpacing");
    QRect const inner = room().adjusted(gap, gap, -gap, -gap);
    int const least = std::min(m_dialog->minimumSizeHint().width(), m_window->width());
    int const width = std::min(wanted.width(), std::max(inner.width(), least));
    int const offset = std::clamp(m_offset, 0, std::max(0, inner.height() - g_pixelSize * 6));
    int const height =
        std::min(wanted.height(), std::max(inner.height() - offset, g_pixelSize * 3));
    // A view too low for the dialog gives up the offset first.
    int const missing = std::clamp(wanted.height() - height, 0, offset);
    m_dialog->raise();
    int const left = std::max(0, m_isAtLeft ? inner.left() : inner.right() + 1 - width);
    m_dialog->setGeometry(left, inner.top() + offset - missing, width, height + missing);
}

void DialogPlace::dragBy(QPoint const& way)
{
    m_isDragged = true;
    if (m_dock)
        return;
    QRect room = viewArea();
    if (room != this->room()) {
        room.setLeft(0);
        room.setRight(m_window->width() - 1);
    }
    QPoint const wanted = m_dialog->pos() + way;
    m_dialog->move(
        std::clamp(wanted.x(), room.left(),
                   std::max(room.left(), room.right() + 1 - m_dialog->width())),
        std::clamp(wanted.y(), room.top(), std::max(room.top(), room.bottom() - g_pixelSize * 3)));
    m_dialog->raise();
}

void DialogPlace::dropAt(QPoint const& place)
{
    if (!m_isDragged || !m_window)
        return;
    m_isDragged = false;
    if (m_dock) {
        m_isAtLeft = m_window->mapFromGlobal(place).x() < m_window->width() / 2;
        m_window->addDockWidget(area(), static_cast<QDockWidget*>(m_dock.data()));
    } else {
        QRect const room = viewArea();
        m_isAtLeft = m_dialog->geometry().center().x() < room.center().x();
        m_offset = std::max(0, m_dialog->y() - room.top() - themePixels("layoutSpacing"));
        this->place();
    }
    store();
}

bool DialogPlace::eventFilter(QObject* watched, QEvent* event)
{
    // Also reached while dialog, dock or window are being destroyed and are plain widgets already.
    bool const isDialog = watched == m_dialog;
    if (!isDialog && (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest))
        placeLater();
    // A dock without its dialog is an empty strip.
    if (isDialog && !m_dock.isNull() && event->type() == QEvent::HideToParent)
        static_cast<QWidget*>(watched)->parentWidget()->hide();
    return QObject::eventFilter(watched, event);
}
