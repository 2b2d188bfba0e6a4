// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/DockTitles.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QTabBar>

namespace {

bool isTabbed(QMainWindow const& window, QDockWidget& dock)
{
    if (dock.isFloating())
        return false;
    for (QDockWidget const* const other : window.tabifiedDockWidgets(&dock))
        if (!other->isHidden() && !other->isFloating())
            return true;
    return false;
}

}  // namespace

DockTitles::DockTitles(QMainWindow& window) : QObject(&window), m_window(window) {}

void DockTitles::add(QDockWidget* dock)
{
    connect(dock, &QDockWidget::visibilityChanged, this, &DockTitles::updateLater);
    connect(dock, &QDockWidget::topLevelChanged, this, &DockTitles::updateLater);
    connect(dock, &QDockWidget::dockLocationChanged, this, &DockTitles::updateLater);
    connect(dock, &QWidget::windowTitleChanged, this, &DockTitles::updateLater);
    updateLater();
}

void DockTitles::updateLater()
{
    if (m_isPending)
        return;
    m_isPending = true;
    QMetaObject::invokeMethod(this, &DockTitles::update, Qt::QueuedConnection);
}

void DockTitles::update()
{
    m_isPending = false;
    auto const docks = m_window.findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QDockWidget* const dock : docks) {
        // The docks of dialogs have title bars of their own.
        QWidget* const own = dock->titleBarWidget();
        if (own && own->objectName() != QStringLiteral("NoTitle"))
            continue;
        bool const hidesTitle = isTabbed(m_window, *dock);
        if (hidesTitle == (own != nullptr))
            continue;
        QWidget* none = nullptr;
        if (hidesTitle) {
            none = new QWidget(dock);
            none->setObjectName(QStringLiteral("NoTitle"));
        }
        dock->setTitleBarWidget(none);
        delete own;
    }
    // Where there is no room a title is cut short.
    for (QTabBar* const tabs :
         m_window.findChildren<QTabBar*>(QString(), Qt::FindDirectChildrenOnly))
        for (int i = 0; i < tabs->count(); ++i)
            tabs->setTabToolTip(i, tabs->tabText(i));
}
