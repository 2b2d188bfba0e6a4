// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/SideControlTab.h"

#include "platform/ui/CutView.h"
#include "platform/ui/DockWidget.h"
#include "platform/ui/Theme.h"

#include <QEvent>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

char const* const preparing = "Preparing";

}  // namespace

DockWidget::DockWidget(QString const& name, QWidget* parent) : QWidget(parent), m_name(name)
{
    auto* const page = new QVBoxLayout(this);
    int const margin = themePixels("dialogWidegtMargin");
    page->setContentsMargins(margin, margin, margin, margin);
    page->setSpacing(margin);
    m_groups = new QVBoxLayout;
    m_groups->setSpacing(margin);
    page->addLayout(m_groups);
    page->addStretch();
}

void DockWidget::addGroup(QWidget* group)
{
    m_groups->addWidget(group);
}

CutView* DockWidget::getCutView() const
{
    return findChild<CutView*>();
}

SideControlTab::SideControlTab(QWidget* parent) : QTabWidget(parent)
{
    setTabBarAutoHide(true);
    // Its tabs take the focus themselves; to a hidden bar it would go in vain, and Tab stay where it is.
    setFocusProxy(nullptr);
    setFocusPolicy(Qt::NoFocus);
    setDocumentMode(true);
    auto* const dock = new DockWidget(preparing);
    dock->addGroup(new CutView);
    addDock(dock, preparing);
    retranslate();
}

DockWidget* SideControlTab::getDock(QString const& name) const
{
    for (DockWidget* const dock : findChildren<DockWidget*>())
        if (dock->name() == name)
            return dock;
    return nullptr;
}

void SideControlTab::addDock(DockWidget* dock, QString const& title)
{
    auto* const area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(dock);
    area->setMinimumWidth(dock->minimumSizeHint().width());
    addTab(area, title);
}

void SideControlTab::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QTabWidget::changeEvent(event);
}

void SideControlTab::retranslate()
{
    setTabText(0, tr("Preparing"));
}
