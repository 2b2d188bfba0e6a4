// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/WindowPanels.h"

#include "app/panels/ApartSlider.h"
#include "app/panels/FarParts.h"
#include "app/panels/HistoryList.h"
#include "app/panels/LogConsole.h"
#include "app/panels/LogRecorder.h"
#include "app/panels/PartInformation.h"
#include "app/panels/PlacementPanel.h"
#include "app/partlist/PartList.h"
#include "app/view/ViewPreferences.h"
#include "app/window/FirstSize.h"
#include "app/window/OneHeight.h"
#include "app/window/PanelPlaces.h"
#include "host/ui/HeightSlider.h"
#include "platform/ui/CutView.h"
#include "platform/ui/DockWidget.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/SideControlTab.h"
#include "platform/ui/Theme.h"
#include "platform/view/MeshGLView.h"

#include <QDockWidget>
#include <QLayout>
#include <QScrollArea>
#include <QTabBar>
#include <QTimer>

namespace {

/// Of the dock at first, in base sizes of the interface.
constexpr int logHeight = 10;

void bringInFront(QDockWidget& dock)
{
    dock.show();
    dock.raise();
}

/// The width in which the tabs of a dock and of those behind it show their titles whole.
int widthOfTitles(QMainWindow const& window, QDockWidget const& dock)
{
    for (QTabBar const* const tabs :
         window.findChildren<QTabBar*>(QString(), Qt::FindDirectChildrenOnly))
        for (int i = 0; i < tabs->count(); ++i)
            if (tabs->tabText(i) == dock.windowTitle())
                return tabs->sizeHint().width();
    return 0;
}

}  // namespace

WindowPanels::WindowPanels(MainWindow& window, PanelPlaces& places)
    : QObject(&window),
      m_window(window),
      m_places(places),
      m_log(std::make_unique<LogRecorder>()),
      m_viewPreferences(new ViewPreferences(places.view(), this)),
      m_farParts(new FarParts(this))
{
    buildHeightSlider();
    buildLeft();
    buildRight();
    buildBottom();
}

WindowPanels::~WindowPanels() = default;

void WindowPanels::buildHeightSlider()
{
    auto* const slider = new HeightSlider(&m_window);
    slider->setView(&m_places.view());
    m_places.addBesideView(slider);
}

void WindowPanels::buildLeft()
{
    auto* const parts = new PartList(&m_window);
    parts->layout()->addWidget(new ApartSlider(m_places.view(), parts));
    m_partsDock = m_places.addPanel(parts, QStringLiteral("Parts"), Qt::LeftDockWidgetArea);
    QDockWidget* const history = m_places.addPanel(
        new HistoryList(&m_window), QStringLiteral("History"), Qt::LeftDockWidgetArea);
    m_window.tabifyDockWidget(m_partsDock, history);
    m_partsDock->raise();
}

void WindowPanels::buildRight()
{
    m_information = new PartInformation(&m_window);
    m_informationDock =
        addScrolled(m_information, QStringLiteral("Information"), Qt::RightDockWidgetArea);
    QDockWidget* const placement = addScrolled(
        new PlacementPanel(&m_window), QStringLiteral("Placement"), Qt::RightDockWidgetArea);
    m_sideControl = new SideControlTab(&m_window);
    m_window.setSideControl(m_sideControl);
    if (CutView* const cut = cutView()) {
        cut->setView(&m_places.view());
        new OneHeight(*cut, *MainWindow::getViewSlider(), cut);
    }
    m_sideDock =
        m_places.addPanel(m_sideControl, QStringLiteral("SideControl"), Qt::RightDockWidgetArea);
    m_window.tabifyDockWidget(m_informationDock, placement);
    m_window.tabifyDockWidget(placement, m_sideDock);
    m_informationDock->raise();
}

void WindowPanels::buildBottom()
{
    m_logDock = m_places.addPanel(new LogConsole(*m_log, &m_window), QStringLiteral("Log"),
                                  Qt::BottomDockWidgetArea);
    m_logDock->hide();
}

void WindowPanels::resizeDocks()
{
    FirstSize::Panels const widths =
        FirstSize::ofPanels(m_window.width(), widthOfTitles(m_window, *m_informationDock));
    m_window.resizeDocks({m_partsDock, m_informationDock}, {widths.left, widths.right},
                         Qt::Horizontal);
    m_window.resizeDocks({m_logDock}, {logHeight * g_pixelSize}, Qt::Vertical);
}

void WindowPanels::retranslate()
{
    m_sideControl->setWindowTitle(tr("Cut View"));
    // Once the tabs have the new titles.
    QTimer::singleShot(0, this, &WindowPanels::giveTitlesRoom);
}

void WindowPanels::giveTitlesRoom()
{
    int const right =
        FirstSize::ofPanels(m_window.width(), widthOfTitles(m_window, *m_informationDock)).right;
    if (m_informationDock->width() < right && m_window.isVisible())
        m_window.resizeDocks({m_informationDock}, {right}, Qt::Horizontal);
}

QDockWidget* WindowPanels::addScrolled(QWidget* panel, QString const& name, Qt::DockWidgetArea area)
{
    auto* const scroll = new QScrollArea(&m_window);
    scroll->setFrameShape(QFrame::NoFrame);
    // There is nothing to be done on it, and Tab would not get past two of them.
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidgetResizable(true);
    scroll->setWidget(panel);
    scroll->setMinimumWidth(panel->minimumSizeHint().width());
    scroll->setWindowTitle(panel->windowTitle());
    connect(panel, &QWidget::windowTitleChanged, scroll, &QWidget::setWindowTitle);
    return m_places.addPanel(scroll, name, area);
}

CutView* WindowPanels::cutView() const
{
    DockWidget const* const page = m_sideControl->getDock(QStringLiteral("Preparing"));
    return page ? page->getCutView() : nullptr;
}

void WindowPanels::lookAtOpened()
{
    m_farParts->look();
}

void WindowPanels::showInformation()
{
    bringInFront(*m_informationDock);
}

void WindowPanels::showCutView()
{
    bringInFront(*m_sideDock);
}
