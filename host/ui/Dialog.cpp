// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/Dialog.h"

#include "host/ui/DialogPage.h"
#include "host/ui/DialogTitleBar.h"
#include "platform/jobs/EventNotify.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/Theme.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

Dialog::Dialog(QWidget* parent, bool modal) : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setModal(modal);
    setAttribute(Qt::WA_QuitOnClose, false);
    // A window belongs to a parent but is not disabled with it.
    setEnabled(true);
    buildFrame();
    connectTitleBar();
    connectHost();
}

Dialog::~Dialog() = default;

void Dialog::buildFrame()
{
    auto* const frame = new QVBoxLayout(this);
    frame->setContentsMargins(1, 1, 1, 1);
    frame->setSpacing(0);
    m_titleBar = new DialogTitleBar(this);
    m_body = new QWidget(this);
    frame->addWidget(m_titleBar);
    frame->addWidget(m_body, 1);

    auto* const column = new QVBoxLayout(m_body);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addSpacing(themePixels("layoutSpacing"));
    m_page = new DialogPage(m_body);
    m_foot = new QWidget(m_body);
    column->addWidget(m_page, 1);
    column->addWidget(m_foot);

    m_buttonLayout = new QHBoxLayout(m_foot);
    int const margin = themePixels("dialogWidegtMargin");
    m_buttonLayout->setContentsMargins(margin, margin, margin, margin);
    m_buttonLayout->setSpacing(margin);
    m_buttonLayout->addStretch(1);
}

void Dialog::connectTitleBar()
{
    connect(m_titleBar, &DialogTitleBar::closeClicked, this, [this] { on_close_clicked(); });
    connect(m_titleBar, &DialogTitleBar::pinClicked, this,
            [this](bool pinned) { slotPinDialog(pinned); });
    connect(m_titleBar, &DialogTitleBar::foldClicked, this,
            [this] { slotMainPageVisible(!m_isUnfolded); });
    connect(m_titleBar, &DialogTitleBar::maximizeClicked, this,
            [this] { onMaximizeButtonClicked(); });
    connect(m_titleBar, &DialogTitleBar::restoreClicked, this,
            [this] { onRestoreButtonClicked(); });
    connect(m_titleBar, &DialogTitleBar::dragged, this, &Dialog::moveBy);
    connect(m_titleBar, &DialogTitleBar::dropped, this, &Dialog::signalDropped);
}

void Dialog::connectHost()
{
    connect(EventNotify::instance(), &EventNotify::startEvent, this,
            [this] { setWidgetEnabled(false); });
    connect(EventNotify::instance(), &EventNotify::endEvent, this,
            [this] { setWidgetEnabled(true); });
    connect(&DisplayUnit::instance(), &DisplayUnit::changed, this, [this] { resetUnit(); });
    if (MainWindow* const window = MainWindow::getInstance())
        connect(window, &MainWindowBase::signalThemeColorChanged, this,
                [this](int theme) { slotThemeColorChanged(theme); });
}

void Dialog::setPinEnable(bool enabled)
{
    m_isPinEnabled = enabled;
    m_titleBar->setPinVisible(enabled);
}

void Dialog::setMainPageEnable(bool enabled)
{
    m_page->setEnabled(enabled);
    for (Dialog* const window : m_page->findChildren<Dialog*>())
        if (window->isWindow())
            window->setEnabled(true);
}

QVBoxLayout* Dialog::mainLayout() const
{
    return m_page->contentLayout();
}

QSize Dialog::sizeHint() const
{
    QSize const wanted = QDialog::sizeHint();
    return {isWindow() ? wanted.width() : std::max(wanted.width(), themePixels("dialogWidth")),
            m_isUnfolded ? wanted.height() : m_titleBar->sizeHint().height() + 2};
}

void Dialog::retranslate() {}

void Dialog::setWidgetEnabled(bool enabled)
{
    m_isBusy = !enabled;
    m_body->setEnabled(enabled);
    m_titleBar->setCloseEnabled(enabled);
}

void Dialog::resetUnit() {}

void Dialog::slotMainPageVisible(bool visible)
{
    if (visible == m_isUnfolded)
        return;
    m_isUnfolded = visible;
    m_body->setVisible(visible);
    m_titleBar->setFolded(!visible);
    setMaximumHeight(visible ? QWIDGETSIZE_MAX : m_titleBar->sizeHint().height() + 2);
    fitWindow();
    emit signalSizeChanged();
}

void Dialog::onMaximizeButtonClicked()
{
    slotMainPageVisible(true);
    m_isMaximized = true;
    m_titleBar->setMaximized(true);
    if (isWindow())
        showMaximized();
    emit signalMaximized(true);
}

void Dialog::onRestoreButtonClicked()
{
    m_isMaximized = false;
    m_titleBar->setMaximized(false);
    if (isWindow())
        showNormal();
    emit signalMaximized(false);
}

void Dialog::slotPinDialog(bool pinned)
{
    if (pinned == m_isPinned)
        return;
    m_isPinned = pinned;
    m_titleBar->setPinned(pinned);
    emit signalPinned(pinned);
}

void Dialog::setMaxRestoreEnable(bool enabled)
{
    m_titleBar->setMaximizeVisible(enabled);
}

void Dialog::on_close_clicked()
{
    if (isClosable())
        on_start_hide_animate();
}

void Dialog::slotThemeColorChanged(int)
{
    update();
}

void Dialog::on_show_animate_finished() {}

void Dialog::on_start_hide_animate()
{
    on_hide_animate_finished();
}

void Dialog::on_hide_animate_finished()
{
    // Closing tells of a rejection, which may be connected to the close button's slot.
    if (m_isHiding)
        return;
    QScopedValueRollback<bool> const hiding(m_isHiding, true);
    close();
}

bool Dialog::isOneoff() const
{
    return false;
}

void Dialog::terminate() {}
