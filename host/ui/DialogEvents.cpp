// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/DialogTitleBar.h"
#include "platform/ui/Dialog.h"
#include "platform/ui/Theme.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>

bool Dialog::event(QEvent* event)
{
    bool const result = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest) {
        fitWindow();
        emit signalSizeChanged();
    }
    return result;
}

void Dialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void Dialog::closeEvent(QCloseEvent* event)
{
    if (!isClosable()) {
        event->ignore();
        return;
    }
    QPointer<Dialog> const self = this;
    QDialog::closeEvent(event);
    if (self && event->isAccepted())
        emit signalClosed();
}

void Dialog::showEvent(QShowEvent* event)
{
    bool hasButtons = false;
    for (int i = 0; i < m_buttonLayout->count(); ++i)
        hasButtons = hasButtons || m_buttonLayout->itemAt(i)->widget();
    m_foot->setVisible(hasButtons);
    fitWindow();
    QDialog::showEvent(event);
    if (!event->spontaneous())
        QTimer::singleShot(0, this, [this] {
            if (isVisible())
                on_show_animate_finished();
        });
}

void Dialog::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    emit signalSizeChanged();
}

void Dialog::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
        case Qt::Key_Escape:
            on_close_clicked();
            return;
        case Qt::Key_Enter:
        case Qt::Key_Return:
            // A dialog would press its first button here.
            if (!isModal())
                return;
            break;
        default:
            break;
    }
    QDialog::keyPressEvent(event);
}

void Dialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), themeColor("window"));
    int const title = m_titleBar->geometry().bottom() + 1;
    painter.fillRect(QRect(0, 0, width(), title), themeColor("surface"));
    painter.fillRect(QRect(0, title - 1, width(), 1), themeColor("border"));
    painter.setPen(themeColor("border"));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void Dialog::moveBy(QPoint const& way)
{
    if (!isWindow()) {
        emit signalDragged(way);
        return;
    }
    // The window system moves a window better than we do; not all of them can be asked.
    if (!windowHandle() || !windowHandle()->startSystemMove())
        move(pos() + way);
}

void Dialog::fitWindow()
{
    if (!isWindow() || m_isMaximized)
        return;
    QScreen const* const display = screen();
    int const room = display ? display->availableGeometry().height() : QWIDGETSIZE_MAX;
    QSize const wanted = sizeHint();
    resize(std::max(wanted.width(), width()), std::min(wanted.height(), room));
}
